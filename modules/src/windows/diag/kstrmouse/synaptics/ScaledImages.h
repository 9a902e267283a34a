#pragma once
// Pictures scaled once to the sizes they are drawn at, kept as premultiplied 32-bit DIBs: drawing
// them again is one AlphaBlend, not a resampling of the PNG through GDI+.
#include <windows.h>

#include <objidl.h>
#include <gdiplus.h>

#include <map>
#include <memory>
#include <tuple>

#include "PaintSurface.h"

class ScaledImages {
public:
    ScaledImages();
    ~ScaledImages();
    ScaledImages(const ScaledImages&) = delete;
    ScaledImages& operator=(const ScaledImages&) = delete;

    // Blends `image`, width x height, onto dc at x, y; nothing for an unusable image or an
    // empty size.
    void draw(HDC dc, Gdiplus::Image* image, int x, int y, int width, int height);

private:
    // `image` at width x height, made on first use; null for an unusable image or empty size.
    const PaintSurface* scaled(Gdiplus::Image* image, int width, int height);

    std::map<std::tuple<Gdiplus::Image*, int, int>, std::unique_ptr<PaintSurface>> m_scaled;
};
