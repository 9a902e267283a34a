#include "touchq/CoverageRaster.h"

#include <algorithm>
#include <cmath>

namespace touchq {

namespace {

void fill(IndexedImage& image, int left, int top, int right, int bottom, std::uint8_t colour)
{
    left = std::max(left, 0);
    top = std::max(top, 0);
    right = std::min(right, static_cast<int>(image.width));
    bottom = std::min(bottom, static_cast<int>(image.height));
    for (int y = top; y < bottom && left < right; ++y) {
        std::uint8_t* row = image.pixels.data() + static_cast<std::size_t>(y) * image.stride;
        std::fill(row + left, row + right, colour);
    }
}

void dot(IndexedImage& image, int cx, int cy, int radius, std::uint8_t colour)
{
    for (int dy = -radius; dy <= radius; ++dy) {
        const int half = static_cast<int>(std::sqrt(static_cast<double>(radius * radius - dy * dy)));
        fill(image, cx - half, cy + dy, cx + half + 1, cy + dy + 1, colour);
    }
}

}  // namespace

std::vector<std::uint32_t> CoverageRaster::palette()
{
    // Background, not yet, covered, never covered, grid, finger.
    return {0xFFFFFF, 0xDDDDDD, 0x5CB85C, 0xD9534F, 0x8A8A8A, 0x3478C8};
}

IndexedImage CoverageRaster::draw(const CoverageMap& map, unsigned width, unsigned height,
                                  const std::vector<Spot>& fingers, bool final)
{
    IndexedImage image;
    image.width = width;
    image.height = height;
    image.stride = (width + 3) & ~3u;   // rows of whole 32-bit words, as a device-independent bitmap has them
    image.pixels.assign(static_cast<std::size_t>(image.stride) * height, Background);
    image.palette = palette();
    if (width < 2 || height < 2) {
        return image;
    }
    // The pad's outline: as large as fits, in its proportions, centred; the grid's last line inside.
    const double aspect = map.aspect();
    double padWidth = width - 1.0;
    double padHeight = padWidth / aspect;
    if (padHeight > height - 1.0) {
        padHeight = height - 1.0;
        padWidth = padHeight * aspect;
    }
    const double left = std::floor((width - 1.0 - padWidth) / 2.0);
    const double top = std::floor((height - 1.0 - padHeight) / 2.0);
    const auto xAt = [&](unsigned column) { return static_cast<int>(std::lround(left + column * padWidth / map.columns())); };
    const auto yAt = [&](unsigned row) { return static_cast<int>(std::lround(top + row * padHeight / map.rows())); };

    for (unsigned row = 0; row < map.rows(); ++row) {
        for (unsigned column = 0; column < map.columns(); ++column) {
            const bool covered = map.covered(CoverageMap::Cell{row, column});
            const std::uint8_t colour = covered ? Covered : final ? NeverCovered : NotYet;
            fill(image, xAt(column), yAt(row), xAt(column + 1) + 1, yAt(row + 1) + 1, Grid);
            fill(image, xAt(column) + 1, yAt(row) + 1, xAt(column + 1), yAt(row + 1), colour);
        }
    }
    const int radius = std::max(3, static_cast<int>(std::min(padWidth / map.columns(), padHeight / map.rows()) / 4));
    for (const Spot& finger : fingers) {
        const PointMm at = map.relative(finger.x, finger.y);
        dot(image, static_cast<int>(std::lround(left + at.x * padWidth)), static_cast<int>(std::lround(top + at.y * padHeight)),
            radius, Finger);
    }
    return image;
}

IndexedImage CoverageRaster::picture(const CoverageMap& map)
{
    // The cells' grid in kCellPixels a cell along the longer side of a cell, the pad's proportions kept.
    const double aspect = map.aspect();
    unsigned width = map.columns() * kCellPixels + 1;
    unsigned height = static_cast<unsigned>(std::lround((width - 1) / aspect)) + 1;
    if (height - 1 < map.rows() * kCellPixels) {
        height = map.rows() * kCellPixels + 1;
        width = static_cast<unsigned>(std::lround((height - 1) * aspect)) + 1;
    }
    return draw(map, width, height, {}, true);
}

}  // namespace touchq
