#include "ScaledImages.h"

#include "ksxui/PictureOutline.h"

namespace {

// Marker sizes follow the finger width; beyond this many pictures the cache starts afresh.
constexpr std::size_t kMostPictures = 64;

}  // namespace

ScaledImages::ScaledImages() = default;

ScaledImages::~ScaledImages() = default;

void ScaledImages::draw(HDC dc, const LoadedPicture& picture, const PixelRect& place, const std::wstring& label,
                        bool held)
{
    if (place.width <= 0 || place.height <= 0) {
        return;
    }
    Gdiplus::Image* image = picture.image();
    if (image == nullptr) {
        const RECT outline{place.left, place.top, place.left + place.width, place.top + place.height};
        PictureOutline::draw(dc, outline, label, held);
        return;
    }
    if (const PaintSurface* scaledPicture = scaled(*image, place.width, place.height)) {
        const BLENDFUNCTION blend{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
        ::AlphaBlend(dc, place.left, place.top, place.width, place.height, scaledPicture->dc(), 0, 0, place.width,
                     place.height, blend);
    }
}

const PaintSurface* ScaledImages::scaled(Gdiplus::Image& image, int width, int height)
{
    const auto key = std::make_tuple(&image, width, height);
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
        graphics.DrawImage(&image, 0, 0, width, height);
    }
    return m_scaled.emplace(key, std::move(picture)).first->second.get();
}
