#include "CCoverageMapCtrl.h"

#include <vector>

BEGIN_MESSAGE_MAP(CCoverageMapCtrl, CWnd)
    ON_WM_ERASEBKGND()
    ON_WM_PAINT()
END_MESSAGE_MAP()

void CCoverageMapCtrl::show(const touchq::CoverageMap& map, const std::vector<touchq::CoverageRaster::Spot>& fingers)
{
    if (m_hWnd == nullptr) {
        return;
    }
    RECT client;
    ::GetClientRect(m_hWnd, &client);
    touchq::IndexedImage picture = touchq::CoverageRaster::draw(map, static_cast<unsigned>(client.right),
                                                                static_cast<unsigned>(client.bottom), fingers, false);
    if (picture.pixels == m_picture.pixels && picture.width == m_picture.width) {
        return;   // nothing changed that shows
    }
    m_picture = std::move(picture);
    // Painted now: a paint left to the queue waits for it to empty, which a flood of frames
    // may never let happen.
    InvalidateRect(nullptr, FALSE);
    UpdateWindow();
}

BOOL CCoverageMapCtrl::OnEraseBkgnd(CDC*)
{
    return TRUE;   // the paint covers every pixel
}

void CCoverageMapCtrl::OnPaint()
{
    PAINTSTRUCT paint;
    const HDC dc = ::BeginPaint(m_hWnd, &paint);
    if (m_picture.width > 0 && m_picture.height > 0) {
        // An 8-bit device-independent bitmap, top row first, with the picture's palette.
        struct {
            BITMAPINFOHEADER header;
            RGBQUAD colours[256];
        } info{};
        info.header.biSize = sizeof(BITMAPINFOHEADER);
        info.header.biWidth = static_cast<LONG>(m_picture.width);
        info.header.biHeight = -static_cast<LONG>(m_picture.height);
        info.header.biPlanes = 1;
        info.header.biBitCount = 8;
        info.header.biCompression = BI_RGB;
        info.header.biClrUsed = static_cast<DWORD>(m_picture.palette.size());
        for (std::size_t i = 0; i < m_picture.palette.size(); ++i) {
            const std::uint32_t colour = m_picture.palette[i];
            info.colours[i] = RGBQUAD{static_cast<BYTE>(colour), static_cast<BYTE>(colour >> 8),
                                      static_cast<BYTE>(colour >> 16), 0};
        }
        SetDIBitsToDevice(dc, 0, 0, m_picture.width, m_picture.height, 0, 0, 0, m_picture.height,
                          m_picture.pixels.data(), reinterpret_cast<const BITMAPINFO*>(&info), DIB_RGB_COLORS);
    }
    ::EndPaint(m_hWnd, &paint);
}
