#include "CSynapticsTouchPadCtrl.h"

#include <objidl.h>
#include <gdiplus.h>

#include "PictureFolder.h"
#include "Registration.h"
#include "harn5/ProcessEnvironment.h"

namespace {

// Source line of the device start failure; hosts match on it.
constexpr int kLineDriverCommunicationError = 70;

std::wstring textOf(const harn5::LocalizedString* key)
{
    return reinterpret_cast<const wchar_t*>(key->localizedString().getUCS2Buffer());
}

}  // namespace

BEGIN_MESSAGE_MAP(CSynapticsTouchPadCtrl, CWnd)
    ON_WM_CREATE()
    ON_WM_DESTROY()
    ON_WM_ERASEBKGND()
    ON_WM_PAINT()
END_MESSAGE_MAP()

CSynapticsTouchPadCtrl::CSynapticsTouchPadCtrl(long synHandle, bool bButtonsShown)
    : CSynapticsTouchPadCtrl(synHandle, bButtonsShown,
                             PictureFolder("Resources\\kstrmouse\\", harn5::ProcessEnvironment::executableFolder()))
{
}

CSynapticsTouchPadCtrl::CSynapticsTouchPadCtrl(long synHandle, bool bButtonsShown, PictureFolder&& pictures)
    : SynapticsDevice(synHandle),
      m_model(bButtonsShown),
      m_reticle(pictures.find("touchpad_reticle.png")),
      m_pad(pictures.find("touchpad_pad.png")),
      m_left(pictures.find("touchpad_button_left.png")),
      m_leftPressed(pictures.find("touchpad_button_left_click.png")),
      m_right(pictures.find("touchpad_button_right.png")),
      m_rightPressed(pictures.find("touchpad_button_right_click.png")),
      m_synHandle(synHandle)
{
}

CSynapticsTouchPadCtrl::~CSynapticsTouchPadCtrl() = default;

int CSynapticsTouchPadCtrl::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (Initialize(m_synHandle) != SYN_OK) {
        harn5::DiagModule::error(kstrmouse::events::DriverCommunicationError, "CSynapticsTouchPadCtrl",
                                 kLineDriverCommunicationError);
        return -1;
    }
    m_started = true;
    return CWnd::OnCreate(lpCreateStruct);
}

void CSynapticsTouchPadCtrl::OnDestroy()
{
    if (!m_started) {
        CWnd::OnDestroy();
        return;
    }
    std::vector<harn5::RunRecord::Measurement> figures;
    if (padWidthMm() && padHeightMm()) {
        figures.push_back({"PadWidth", *padWidthMm(), "mm"});
        figures.push_back({"PadHeight", *padHeightMm(), "mm"});
    }
    figures.push_back({"MalformedFrames", static_cast<double>(malformedFrames()), "frames"});
    harn5::DiagModule::measure(figures);
    CWnd::OnDestroy();
}

void CSynapticsTouchPadCtrl::OnSynDeviceRemoved()
{
    if (const HWND hParent = ::GetParent(m_hWnd)) {
        ::PostMessageW(hParent, WM_SYN_DEVICE_REMOVED, 0, 0);
    }
}

long CSynapticsTouchPadCtrl::OnSynDevicePacket(long sequence)
{
    const long result = SYNTestDevice::OnSynDevicePacket(sequence);
    readBuffer();
    m_model.onPacket(state());
    if (const HWND hParent = ::GetParent(m_hWnd)) {
        ::PostMessageW(hParent, WM_SYN_PACKET, 0, 0);
    }
    // Repaint before the notification returns, so the picture follows every packet.
    if (m_hWnd != nullptr) {
        InvalidateRect(nullptr, TRUE);
        UpdateWindow();
    }
    return result;
}

BOOL CSynapticsTouchPadCtrl::OnEraseBkgnd(CDC*)
{
    return TRUE;  // the paint covers every pixel
}

void CSynapticsTouchPadCtrl::OnPaint()
{
    CPaintDC dc(this);
    CRect client;
    GetClientRect(&client);
    const SynapticsDeviceState now = state();
    // Whether the marker shows depends on the paint before this one: decided first.
    const bool drawMarker = m_model.shouldDrawMarker(now);
    m_model.notePainted(SYNTestDevice::isFingerPresent());
    if (!m_surface.resize(client.Width(), client.Height())) {
        return;
    }
    // The pad and the buttons change only with the button states: each of the four pictures
    // is composed once per size, so a packet costs one copy and the marker's blend.
    const bool left = TouchPadModel::leftPressed(now);
    const bool right = TouchPadModel::rightPressed(now);
    PaintSurface& base = m_bases[left ? 1 : 0][right ? 1 : 0];
    if (base.width() != client.Width() || base.height() != client.Height()) {
        if (!base.resize(client.Width(), client.Height())) {
            return;
        }
        const COLORREF face = ::GetSysColor(COLOR_3DFACE);
        Gdiplus::Graphics(base.bitmap()).Clear(Gdiplus::Color(255, GetRValue(face), GetGValue(face), GetBValue(face)));
        using kstrmouse::texts::PictureLeftButton;
        using kstrmouse::texts::PictureRightButton;
        m_scaled.draw(base.dc(), m_pad, {0, 0, TouchPadModel::kPadWidth, TouchPadModel::kPadHeight},
                      textOf(kstrmouse::texts::PictureTouchpad));
        if (m_model.buttonsShown()) {
            m_scaled.draw(base.dc(), left ? m_leftPressed : m_left,
                          {0, TouchPadModel::kButtonsTop, TouchPadModel::kButtonWidth, TouchPadModel::kButtonHeight},
                          textOf(PictureLeftButton), left);
            m_scaled.draw(base.dc(), right ? m_rightPressed : m_right,
                          {TouchPadModel::kRightButtonLeft, TouchPadModel::kButtonsTop, TouchPadModel::kButtonWidth,
                           TouchPadModel::kButtonHeight},
                          textOf(PictureRightButton), right);
        }
    }
    const HDC picture = m_surface.dc();
    base.copyTo(picture, 0, 0);
    if (drawMarker) {
        // The marker stays on the pad, however near its edge the finger is.
        const int saved = ::SaveDC(picture);
        ::IntersectClipRect(picture, 0, 0, TouchPadModel::kPadWidth, TouchPadModel::kPadHeight);
        m_scaled.draw(picture, m_reticle, TouchPadModel::marker(now));
        ::RestoreDC(picture, saved);
    }
    m_surface.copyTo(dc.m_hDC, client.left, client.top);
}

bool CSynapticsTouchPadCtrl::isFingerPresent()
{
    return SYNTestDevice::isFingerPresent();
}

bool CSynapticsTouchPadCtrl::leftButtonPressed()
{
    return TouchPadModel::leftPressed(state());
}

bool CSynapticsTouchPadCtrl::middleButtonPressed()
{
    return SYNTestDevice::middleButtonPressed();
}

bool CSynapticsTouchPadCtrl::rightButtonPressed()
{
    return TouchPadModel::rightPressed(state());
}

bool CSynapticsTouchPadCtrl::hasMoved()
{
    return true;
}

int CSynapticsTouchPadCtrl::getX()
{
    return TouchPadModel::x(state());
}

int CSynapticsTouchPadCtrl::getY()
{
    return TouchPadModel::y(state());
}

int CSynapticsTouchPadCtrl::getWidth()
{
    return fingerWidth;
}

bool CSynapticsTouchPadCtrl::isTestComplete()
{
    return m_model.isTestComplete();
}

bool CSynapticsTouchPadCtrl::reaquireDevice()
{
    return SYNTestDevice::reaquireDevice();
}
