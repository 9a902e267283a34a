#include "CSynapticsTrackpointCtrl.h"

#include <objidl.h>
#include <gdiplus.h>

#include "PictureFolder.h"
#include "Registration.h"
#include "harn5/ProcessEnvironment.h"

namespace {

constexpr UINT_PTR kRepaintTimer = 1;
constexpr UINT kRepaintPeriodMs = 50;
// The drawing area's background: the dialog face.
constexpr COLORREF kAreaColour = RGB(0xF0, 0xF0, 0xF0);

}  // namespace

BEGIN_MESSAGE_MAP(CSynapticsTrackpointCtrl, CWnd)
    ON_WM_CREATE()
    ON_WM_DESTROY()
    ON_WM_ERASEBKGND()
    ON_WM_PAINT()
    ON_WM_TIMER()
END_MESSAGE_MAP()

CSynapticsTrackpointCtrl::CSynapticsTrackpointCtrl(long synHandle, bool bThreeButtonDisplay)
    : CSynapticsTrackpointCtrl(synHandle, bThreeButtonDisplay,
                               PictureFolder("Resources\\kstrmouse\\", harn5::ProcessEnvironment::executableFolder()))
{
}

CSynapticsTrackpointCtrl::CSynapticsTrackpointCtrl(long synHandle, bool bThreeButtonDisplay, PictureFolder&& pictures)
    : SynapticsDevice(synHandle),
      m_stick(pictures.find("trackpoint_button_main.png")),
      m_left(pictures.find("trackpoint_button_left.png")),
      m_center(pictures.find("trackpoint_button_center.png")),
      m_right(pictures.find("trackpoint_button_right.png")),
      m_leftPressed(pictures.find("trackpoint_button_left_click.png")),
      m_centerPressed(pictures.find("trackpoint_button_center_click.png")),
      m_rightPressed(pictures.find("trackpoint_button_right_click.png")),
      m_model(bThreeButtonDisplay),
      m_synHandle(synHandle)
{
    m_areaBrush.CreateSolidBrush(kAreaColour);
}

CSynapticsTrackpointCtrl::~CSynapticsTrackpointCtrl() = default;

int CSynapticsTrackpointCtrl::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    // No event here: the dialog stays up and the user decides.
    if (Initialize(m_synHandle) != SYN_OK) {
        return -1;
    }
    m_repaintTimer.SetAsWindowTimer(m_hWnd, kRepaintTimer, kRepaintPeriodMs);
    return CWnd::OnCreate(lpCreateStruct);
}

void CSynapticsTrackpointCtrl::OnDestroy()
{
    m_repaintTimer.Kill();
    CWnd::OnDestroy();
}

void CSynapticsTrackpointCtrl::OnTimer(UINT_PTR nIDEvent)
{
    if (nIDEvent == kRepaintTimer) {
        InvalidateRect(nullptr, TRUE);
        UpdateWindow();
    }
    CWnd::OnTimer(nIDEvent);
}

void CSynapticsTrackpointCtrl::OnSynDeviceRemoved()
{
    if (const HWND hParent = ::GetParent(m_hWnd)) {
        ::PostMessageW(hParent, WM_SYN_DEVICE_REMOVED, 0, 0);
    }
}

long CSynapticsTrackpointCtrl::OnSynDevicePacket(long sequence)
{
    const long result = SYNTestDevice::OnSynDevicePacket(sequence);
    readBuffer();
    m_model.onPacket(state());
    if (const HWND hParent = ::GetParent(m_hWnd)) {
        ::PostMessageW(hParent, WM_SYN_PACKET, 0, 0);
    }
    // No drawing here: the timer keeps the picture at its own pace whatever the packet rate.
    return result;
}

BOOL CSynapticsTrackpointCtrl::OnEraseBkgnd(CDC*)
{
    return TRUE;  // the paint covers every pixel
}

void CSynapticsTrackpointCtrl::OnPaint()
{
    CPaintDC dc(this);
    CRect client;
    GetClientRect(&client);
    CRect window;
    GetWindowRect(&window);
    const int width = window.Width();
    const int height = window.Height();
    const SynapticsDeviceState now = state();
    if (!m_surface.resize(client.Width(), client.Height())) {
        return;
    }
    // Composed off-screen from ready-made pictures, then copied in one go: no flicker.
    const HDC picture = m_surface.dc();
    const PixelRect area = TrackpointModel::drawingArea(width, height);
    const RECT whole{0, 0, client.Width(), client.Height()};
    ::FillRect(picture, &whole, ::GetSysColorBrush(COLOR_3DFACE));
    const RECT areaRect{0, 0, area.width, area.height};
    ::FillRect(picture, &areaRect, m_areaBrush);
    {
        const int saved = ::SaveDC(picture);
        ::IntersectClipRect(picture, 0, 0, area.width, area.height);
        m_scaled.draw(picture, m_stick, TrackpointModel::marker(now, width, height));
        ::RestoreDC(picture, saved);
    }
    if (m_model.threeButtonDisplay()) {
        using namespace kstrmouse::texts;
        drawButton(now.leftPressed ? m_leftPressed : m_left, TrackpointModel::leftButton(width, height),
                   PictureLeftButton, now.leftPressed);
        drawButton(now.middlePressed ? m_centerPressed : m_center, TrackpointModel::centerButton(width, height),
                   PictureMiddleButton, now.middlePressed);
        drawButton(now.rightPressed ? m_rightPressed : m_right, TrackpointModel::rightButton(width, height),
                   PictureRightButton, now.rightPressed);
    }
    m_surface.copyTo(dc.m_hDC, client.left, client.top);
}

void CSynapticsTrackpointCtrl::drawButton(const LoadedPicture& picture, const PixelRect& place,
                                          const harn5::LocalizedString* label, bool held)
{
    m_scaled.draw(m_surface.dc(), picture, place,
                  reinterpret_cast<const wchar_t*>(label->localizedString().getUCS2Buffer()), held);
}

bool CSynapticsTrackpointCtrl::isFingerPresent()
{
    return true;
}

bool CSynapticsTrackpointCtrl::leftButtonPressed()
{
    return SYNTestDevice::leftButtonPressed();
}

bool CSynapticsTrackpointCtrl::middleButtonPressed()
{
    return SYNTestDevice::middleButtonPressed();
}

bool CSynapticsTrackpointCtrl::rightButtonPressed()
{
    return SYNTestDevice::rightButtonPressed();
}

bool CSynapticsTrackpointCtrl::hasMoved()
{
    return m_model.moved();
}

int CSynapticsTrackpointCtrl::getX()
{
    return stickX;
}

int CSynapticsTrackpointCtrl::getY()
{
    return stickY;
}

int CSynapticsTrackpointCtrl::getWidth()
{
    return 0;
}

bool CSynapticsTrackpointCtrl::isTestComplete()
{
    return m_model.isTestComplete();
}

bool CSynapticsTrackpointCtrl::reaquireDevice()
{
    return SYNTestDevice::reaquireDevice();
}
