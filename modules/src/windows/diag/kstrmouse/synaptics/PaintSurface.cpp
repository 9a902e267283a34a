#include "PaintSurface.h"

PaintSurface::PaintSurface()
    : m_dc(nullptr), m_dib(nullptr), m_previous(nullptr), m_bits(nullptr), m_width(0), m_height(0)
{
}

PaintSurface::~PaintSurface()
{
    release();
}

bool PaintSurface::resize(int width, int height)
{
    if (m_bitmap != nullptr && width == m_width && height == m_height) {
        return true;
    }
    release();
    if (width <= 0 || height <= 0) {
        return false;
    }
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;  // top-down, as GDI+ lays out its rows
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    m_dc = ::CreateCompatibleDC(nullptr);
    m_dib = m_dc != nullptr ? ::CreateDIBSection(m_dc, &info, DIB_RGB_COLORS, &m_bits, nullptr, 0) : nullptr;
    if (m_dib == nullptr) {
        release();
        return false;
    }
    m_previous = ::SelectObject(m_dc, m_dib);
    m_width = width;
    m_height = height;
    m_bitmap = std::make_unique<Gdiplus::Bitmap>(width, height, width * 4, PixelFormat32bppPARGB,
                                                 static_cast<BYTE*>(m_bits));
    return true;
}

void PaintSurface::copyTo(HDC dc, int x, int y) const
{
    if (m_bitmap != nullptr) {
        ::BitBlt(dc, x, y, m_width, m_height, m_dc, 0, 0, SRCCOPY);
    }
}

void PaintSurface::release()
{
    m_bitmap.reset();
    if (m_dc != nullptr && m_previous != nullptr) {
        ::SelectObject(m_dc, m_previous);
    }
    if (m_dib != nullptr) {
        ::DeleteObject(m_dib);
    }
    if (m_dc != nullptr) {
        ::DeleteDC(m_dc);
    }
    m_dc = nullptr;
    m_dib = nullptr;
    m_previous = nullptr;
    m_bits = nullptr;
    m_width = 0;
    m_height = 0;
}
