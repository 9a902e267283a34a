#pragma once
// Pictures scaled once to the sizes they are drawn at, kept as premultiplied 32-bit DIBs: drawing
// them again is one AlphaBlend, not a resampling of the PNG through GDI+. A picture whose file
// could not be loaded is drawn as a plain labelled outline of its place, at every size.
#include <windows.h>

#include <map>
#include <memory>
#include <string>
#include <tuple>

#include "LoadedPicture.h"
#include "PaintSurface.h"
#include "PixelRect.h"

class ScaledImages {
public:
    ScaledImages();
    ~ScaledImages();
    ScaledImages(const ScaledImages&) = delete;
    ScaledImages& operator=(const ScaledImages&) = delete;

    // Blends `picture` into `place` on dc; without its file, an outline with `label` (filled
    // when `held`). Nothing for an empty place.
    void draw(HDC dc, const LoadedPicture& picture, const PixelRect& place, const std::wstring& label = {},
              bool held = false);

private:
    // The image at width x height, made on first use; null when the system refuses the memory.
    const PaintSurface* scaled(Gdiplus::Image& image, int width, int height);

    std::map<std::tuple<Gdiplus::Image*, int, int>, std::unique_ptr<PaintSurface>> m_scaled;
};
