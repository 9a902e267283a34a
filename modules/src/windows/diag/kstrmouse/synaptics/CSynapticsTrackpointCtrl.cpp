#include "CSynapticsTrackpointCtrl.h"

#include <objidl.h>
#include <gdiplus.h>

namespace {

constexpr UINT_PTR kRepaintTimer = 1;
constexpr UINT kRepaintPeriodMs = 50;
// The drawing area's background: the dialog face.
constexpr COLORREF kAreaColour = RGB(0xF0, 0xF0, 0xF0);

std::unique_ptr<Gdiplus::Image> loadImage(const wchar_t* file)
{
    // A file that cannot be read leaves an image that simply draws nothing.
    return std::make_unique<Gdiplus::Image>(file);
}

}  // namespace

BEGIN_MESSAGE_MAP(CSynapticsTrackpointCtrl, CWnd)
    ON_WM_CREATE()
    ON_WM_DESTROY()
    ON_WM_ERASEBKGND()
    ON_WM_PAINT()
    ON_WM_TIMER()
END_MESSAGE_MAP()

CSynapticsTrackpointCtrl::CSynapticsTrackpointCtrl(long synHandle, bool bThreeButtonDisplay)
    : SynapticsDevice(synHandle),
      m_stick(loadImage(L"Resources\\kstrmouse\\trackpoint_button_main.png")),
      m_left(loadImage(L"Resources\\kstrmouse\\trackpoint_button_left.png")),
      m_center(loadImage(L"Resources\\kstrmouse\\trackpoint_button_center.png")),
      m_right(loadImage(L"Resources\\kstrmouse\\trackpoint_button_right.png")),
      m_leftPressed(loadImage(L"Resources\\kstrmouse\\trackpoint_button_left_click.png")),
      m_centerPressed(loadImage(L"Resources\\kstrmouse\\trackpoint_button_center_click.png")),
      m_rightPressed(loadImage(L"Resources\\kstrmouse\\trackpoint_button_right_click.png")),
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
        const PixelRect marker = TrackpointModel::marker(now, width, height);
        m_scaled.draw(picture, m_stick.get(), marker.left, marker.top, marker.width, marker.height);
        ::RestoreDC(picture, saved);
    }
    if (m_model.threeButtonDisplay()) {
        drawButton(now.leftPressed ? m_leftPressed.get() : m_left.get(), TrackpointModel::leftButton(width, height));
        drawButton(now.middlePressed ? m_centerPressed.get() : m_center.get(),
                   TrackpointModel::centerButton(width, height));
        drawButton(now.rightPressed ? m_rightPressed.get() : m_right.get(),
                   TrackpointModel::rightButton(width, height));
    }
    m_surface.copyTo(dc.m_hDC, client.left, client.top);
}

void CSynapticsTrackpointCtrl::drawButton(Gdiplus::Image* image, const PixelRect& place)
{
    m_scaled.draw(m_surface.dc(), image, place.left, place.top, place.width, place.height);
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
