#include "CSynapticsTouchPadCtrl.h"

#include <objidl.h>
#include <gdiplus.h>

#include "Registration.h"

namespace {

// Source line of the device start failure; hosts match on it.
constexpr int kLineDriverCommunicationError = 70;

std::unique_ptr<Gdiplus::Image> loadImage(const wchar_t* file)
{
    // A file that cannot be read leaves an image that simply draws nothing.
    return std::make_unique<Gdiplus::Image>(file);
}

}  // namespace

BEGIN_MESSAGE_MAP(CSynapticsTouchPadCtrl, CWnd)
    ON_WM_CREATE()
    ON_WM_PAINT()
END_MESSAGE_MAP()

CSynapticsTouchPadCtrl::CSynapticsTouchPadCtrl(long synHandle)
    : SynapticsDevice(synHandle),
      m_reticle(loadImage(L"Resources\\kstrmouse\\touchpad_reticle.png")),
      m_pad(loadImage(L"Resources\\kstrmouse\\touchpad_pad.png")),
      m_left(loadImage(L"Resources\\kstrmouse\\touchpad_button_left.png")),
      m_leftPressed(loadImage(L"Resources\\kstrmouse\\touchpad_button_left_click.png")),
      m_right(loadImage(L"Resources\\kstrmouse\\touchpad_button_right.png")),
      m_rightPressed(loadImage(L"Resources\\kstrmouse\\touchpad_button_right_click.png")),
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
    return CWnd::OnCreate(lpCreateStruct);
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

void CSynapticsTouchPadCtrl::OnPaint()
{
    CPaintDC dc(this);
    CRect client;
    GetClientRect(&client);
    const SynapticsDeviceState now = state();

    // The moving part is composed off-screen and copied in one go: no flicker.
    Gdiplus::Bitmap offscreen(TouchPadModel::kPadWidth, TouchPadModel::kPadHeight, PixelFormat32bppARGB);
    {
        Gdiplus::Graphics picture(&offscreen);
        picture.DrawImage(m_pad.get(), 0, 0, TouchPadModel::kPadWidth, TouchPadModel::kPadHeight);
        if (m_model.shouldDrawMarker(now)) {
            const PixelRect marker = TouchPadModel::marker(now);
            picture.DrawImage(m_reticle.get(), marker.left, marker.top, marker.width, marker.height);
        }
    }
    m_model.notePainted(SYNTestDevice::isFingerPresent());

    Gdiplus::Graphics screen(dc.m_hDC);
    screen.DrawImage(&offscreen, client.left, client.top, TouchPadModel::kPadWidth, TouchPadModel::kPadHeight);
    const int buttonsTop = client.top + TouchPadModel::kButtonsTop;
    screen.DrawImage(TouchPadModel::leftPressed(now) ? m_leftPressed.get() : m_left.get(), 0, buttonsTop,
                     TouchPadModel::kButtonWidth, TouchPadModel::kButtonHeight);
    screen.DrawImage(TouchPadModel::rightPressed(now) ? m_rightPressed.get() : m_right.get(),
                     TouchPadModel::kRightButtonLeft, buttonsTop, TouchPadModel::kButtonWidth,
                     TouchPadModel::kButtonHeight);
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
