#include "ScaledImages.h"

namespace {

// Marker sizes follow the finger width; beyond this many pictures the cache starts afresh.
constexpr std::size_t kMostPictures = 64;

}  // namespace

ScaledImages::ScaledImages() = default;

ScaledImages::~ScaledImages() = default;

void ScaledImages::draw(HDC dc, Gdiplus::Image* image, int x, int y, int width, int height)
{
    const PaintSurface* picture = scaled(image, width, height);
    if (picture == nullptr) {
        return;
    }
    const BLENDFUNCTION blend{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    ::AlphaBlend(dc, x, y, width, height, picture->dc(), 0, 0, width, height, blend);
}

const PaintSurface* ScaledImages::scaled(Gdiplus::Image* image, int width, int height)
{
    if (image == nullptr || image->GetLastStatus() != Gdiplus::Ok || width <= 0 || height <= 0) {
        return nullptr;
    }
    const auto key = std::make_tuple(image, width, height);
    const auto found = m_scaled.find(key);
    if (found != m_scaled.end()) {
        return found->second.get();
    }
    if (m_scaled.size() >= kMostPictures) {
        m_scaled.clear();
    }
    auto picture = std::make_unique<PaintSurface>();
    if (!picture->resize(width, height)) {
        return nullptr;
    }
    {
        Gdiplus::Graphics graphics(picture->bitmap());
        graphics.Clear(Gdiplus::Color(0, 0, 0, 0));
        graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
        graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
        graphics.DrawImage(image, 0, 0, width, height);
    }
    return m_scaled.emplace(key, std::move(picture)).first->second.get();
}
