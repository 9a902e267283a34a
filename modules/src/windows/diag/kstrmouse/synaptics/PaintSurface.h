#pragma once
// An off-screen 32-bit picture (premultiplied ARGB): built with GDI+ over its own pixels, composed
// with GDI, and copied to the screen in one BitBlt, so a repaint neither flickers nor costs an
// alpha blend against the window.
#include <windows.h>

#include <objidl.h>
#include <gdiplus.h>

#include <memory>

class PaintSurface {
public:
    PaintSurface();
    ~PaintSurface();
    PaintSurface(const PaintSurface&) = delete;
    PaintSurface& operator=(const PaintSurface&) = delete;

    // Makes the surface width x height (kept when it has that size already); false when the
    // system refuses the memory, and then there is no surface.
    bool resize(int width, int height);
    int width() const { return m_width; }
    int height() const { return m_height; }

    // GDI+'s view of the pixels; null without a surface. GDI drawing on dc() must be flushed
    // (GdiFlush) before GDI+ reads them.
    Gdiplus::Bitmap* bitmap() const { return m_bitmap.get(); }
    HDC dc() const { return m_dc; }
    // Copies the whole surface to dc at x, y.
    void copyTo(HDC dc, int x, int y) const;

private:
    void release();

    HDC m_dc;
    HBITMAP m_dib;
    HGDIOBJ m_previous;
    void* m_bits;
    int m_width;
    int m_height;
    std::unique_ptr<Gdiplus::Bitmap> m_bitmap;
};
