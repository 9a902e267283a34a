#include "touchq/PngWriter.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace touchq {

namespace {

constexpr std::array<std::uint32_t, 256> crcTable()
{
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t n = 0; n < 256; ++n) {
        std::uint32_t c = n;
        for (int k = 0; k < 8; ++k) {
            c = (c & 1) != 0 ? 0xEDB88320u ^ (c >> 1) : c >> 1;
        }
        table[n] = c;
    }
    return table;
}

constexpr std::array<std::uint32_t, 256> kCrcTable = crcTable();
constexpr std::size_t kStoredBlockMost = 65535;

void put32(std::vector<std::uint8_t>& out, std::uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8) {
        out.push_back(static_cast<std::uint8_t>(value >> shift));
    }
}

void chunk(std::vector<std::uint8_t>& out, std::string_view type, const std::vector<std::uint8_t>& data)
{
    put32(out, static_cast<std::uint32_t>(data.size()));
    const std::size_t start = out.size();
    out.insert(out.end(), type.begin(), type.end());
    out.insert(out.end(), data.begin(), data.end());
    std::uint32_t crc = 0xFFFFFFFFu;
    for (std::size_t i = start; i < out.size(); ++i) {
        crc = kCrcTable[(crc ^ out[i]) & 0xFF] ^ (crc >> 8);
    }
    put32(out, crc ^ 0xFFFFFFFFu);
}

// The zlib stream of the raw bytes in stored blocks, with its Adler-32.
std::vector<std::uint8_t> zlibStored(const std::vector<std::uint8_t>& raw)
{
    std::vector<std::uint8_t> out{0x78, 0x01};
    std::size_t at = 0;
    do {
        const std::size_t length = std::min(kStoredBlockMost, raw.size() - at);
        const bool last = at + length == raw.size();
        out.push_back(last ? 1 : 0);
        out.push_back(static_cast<std::uint8_t>(length));
        out.push_back(static_cast<std::uint8_t>(length >> 8));
        out.push_back(static_cast<std::uint8_t>(~length));
        out.push_back(static_cast<std::uint8_t>(~length >> 8));
        out.insert(out.end(), raw.begin() + static_cast<std::ptrdiff_t>(at),
                   raw.begin() + static_cast<std::ptrdiff_t>(at + length));
        at += length;
    } while (at < raw.size());
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    for (const std::uint8_t byte : raw) {
        a = (a + byte) % 65521;
        b = (b + a) % 65521;
    }
    put32(out, (b << 16) | a);
    return out;
}

}  // namespace

std::vector<std::uint8_t> PngWriter::encode(const IndexedImage& image)
{
    const std::size_t size = static_cast<std::size_t>(image.stride) * image.height;
    if (image.width == 0 || image.height == 0 || image.stride < image.width || image.pixels.size() < size ||
        image.palette.empty() || image.palette.size() > 256) {
        return {};
    }
    std::vector<std::uint8_t> rows;
    rows.reserve(static_cast<std::size_t>(image.width + 1) * image.height);
    for (unsigned row = 0; row < image.height; ++row) {
        rows.push_back(0);   // no filter
        const auto first = image.pixels.begin() + static_cast<std::ptrdiff_t>(row) * image.stride;
        if (std::any_of(first, first + image.width, [&](std::uint8_t index) { return index >= image.palette.size(); })) {
            return {};
        }
        rows.insert(rows.end(), first, first + image.width);
    }
    std::vector<std::uint8_t> header;
    put32(header, image.width);
    put32(header, image.height);
    header.insert(header.end(), {8, 3, 0, 0, 0});   // 8 bits, indexed colour, deflate, no filter, no interlace
    std::vector<std::uint8_t> palette;
    for (const std::uint32_t colour : image.palette) {
        palette.insert(palette.end(), {static_cast<std::uint8_t>(colour >> 16), static_cast<std::uint8_t>(colour >> 8),
                                       static_cast<std::uint8_t>(colour)});
    }
    std::vector<std::uint8_t> out{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    chunk(out, "IHDR", header);
    chunk(out, "PLTE", palette);
    chunk(out, "IDAT", zlibStored(rows));
    chunk(out, "IEND", {});
    return out;
}

}  // namespace touchq
