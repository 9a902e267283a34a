#pragma once
// Encodes an image of palette indices as a PNG file's bytes: 8-bit indexed colour, its rows
// stored without compression (the zlib stream's stored blocks), which every reader takes. A map
// of cells is a few tens of kilobytes so.
#include <cstdint>
#include <vector>

namespace touchq {

struct IndexedImage {
    unsigned width = 0;
    unsigned height = 0;
    unsigned stride = 0;                  // bytes from one row to the next, at least width
    std::vector<std::uint8_t> pixels;     // stride * height palette indices, top row first
    std::vector<std::uint32_t> palette;   // 0xRRGGBB, at most 256
};

class PngWriter {
public:
    // The PNG file of the image; empty for an image without pixels or with indices the palette lacks.
    static std::vector<std::uint8_t> encode(const IndexedImage& image);
};

}  // namespace touchq
