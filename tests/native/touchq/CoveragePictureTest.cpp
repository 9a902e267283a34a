// The coverage map's picture and its PNG: read back by the PNG format's own rules (chunks and
// their CRCs, the zlib stream's stored blocks and Adler-32), not by the encoder's code.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "touchq/CoverageRaster.h"
#include "touchq/PngWriter.h"

using touchq::CoverageMap;
using touchq::CoverageRaster;
using touchq::IndexedImage;
using touchq::PngWriter;

namespace {

std::uint32_t be32(const std::vector<std::uint8_t>& bytes, std::size_t at)
{
    return (std::uint32_t{bytes[at]} << 24) | (std::uint32_t{bytes[at + 1]} << 16) | (std::uint32_t{bytes[at + 2]} << 8) |
           bytes[at + 3];
}

// The CRC-32 of the PNG format, bit by bit as its definition has it.
std::uint32_t crc(const std::uint8_t* data, std::size_t length)
{
    std::uint32_t c = 0xFFFFFFFFu;
    for (std::size_t i = 0; i < length; ++i) {
        c ^= data[i];
        for (int k = 0; k < 8; ++k) {
            c = (c >> 1) ^ ((c & 1) != 0 ? 0xEDB88320u : 0);
        }
    }
    return ~c;
}

struct Decoded {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::vector<std::uint8_t> palette;   // RGB triples
    std::vector<std::uint8_t> rows;      // filter byte and indices, row by row
};

// Reads a PNG of stored deflate blocks; fails the test on anything malformed.
Decoded decode(const std::vector<std::uint8_t>& png)
{
    Decoded out;
    const std::vector<std::uint8_t> signature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    EXPECT_TRUE(std::equal(signature.begin(), signature.end(), png.begin()));
    std::vector<std::uint8_t> zlib;
    std::vector<std::string> order;
    for (std::size_t at = 8; at + 12 <= png.size();) {
        const std::uint32_t length = be32(png, at);
        const std::string type(png.begin() + static_cast<std::ptrdiff_t>(at + 4), png.begin() + static_cast<std::ptrdiff_t>(at + 8));
        EXPECT_EQ(crc(png.data() + at + 4, length + 4), be32(png, at + 8 + length)) << type;
        const auto data = png.begin() + static_cast<std::ptrdiff_t>(at + 8);
        if (type == "IHDR") {
            out.width = be32(png, at + 8);
            out.height = be32(png, at + 12);
            EXPECT_EQ(std::vector<std::uint8_t>(data + 8, data + 13), (std::vector<std::uint8_t>{8, 3, 0, 0, 0}));
        } else if (type == "PLTE") {
            out.palette.assign(data, data + length);
        } else if (type == "IDAT") {
            zlib.insert(zlib.end(), data, data + length);
        }
        order.push_back(type);
        at += 12 + length;
    }
    EXPECT_EQ(order, (std::vector<std::string>{"IHDR", "PLTE", "IDAT", "IEND"}));
    // zlib: header, stored blocks (BFINAL, LEN, NLEN), Adler-32.
    EXPECT_EQ((zlib[0] * 256 + zlib[1]) % 31, 0);
    std::size_t at = 2;
    for (bool last = false; !last;) {
        last = (zlib[at] & 1) != 0;
        EXPECT_EQ(zlib[at] & 6, 0) << "a stored block";
        const unsigned length = zlib[at + 1] | (zlib[at + 2] << 8);
        EXPECT_EQ(length ^ 0xFFFFu, unsigned(zlib[at + 3] | (zlib[at + 4] << 8)));
        out.rows.insert(out.rows.end(), zlib.begin() + static_cast<std::ptrdiff_t>(at + 5),
                        zlib.begin() + static_cast<std::ptrdiff_t>(at + 5 + length));
        at += 5 + length;
    }
    std::uint32_t a = 1, b = 0;
    for (const std::uint8_t byte : out.rows) {
        a = (a + byte) % 65521;
        b = (b + a) % 65521;
    }
    EXPECT_EQ(be32(zlib, at), (b << 16) | a);
    EXPECT_EQ(at + 4, zlib.size());
    return out;
}

std::uint8_t pixel(const Decoded& image, unsigned x, unsigned y)
{
    return image.rows[static_cast<std::size_t>(y) * (image.width + 1) + 1 + x];
}

}  // namespace

TEST(PngWriter, IndexedImagesOfAnySizeAreWellFormedAndBadOnesGiveNothing)
{
    // 400 x 200 is more than one stored block (65,535 bytes); the stride's padding is left out.
    IndexedImage image{400, 200, 404, std::vector<std::uint8_t>(404 * 200, 0), {0x102030, 0xFFFFFF}};
    image.pixels[404 * 199 + 399] = 1;
    const Decoded decoded = decode(PngWriter::encode(image));
    EXPECT_EQ(decoded.width, 400U);
    EXPECT_EQ(decoded.height, 200U);
    EXPECT_EQ(decoded.palette, (std::vector<std::uint8_t>{0x10, 0x20, 0x30, 0xFF, 0xFF, 0xFF}));
    ASSERT_EQ(decoded.rows.size(), 401U * 200);
    EXPECT_EQ(pixel(decoded, 399, 199), 1);
    EXPECT_EQ(pixel(decoded, 398, 199), 0);
    EXPECT_EQ(decoded.rows[401 * 7], 0) << "no filter";

    image.pixels[5] = 2;   // not in the palette
    EXPECT_TRUE(PngWriter::encode(image).empty());
    EXPECT_TRUE(PngWriter::encode(IndexedImage{0, 0, 0, {}, {0}}).empty());
    EXPECT_TRUE(PngWriter::encode(IndexedImage{4, 4, 4, std::vector<std::uint8_t>(15), {0}}).empty());
}

TEST(CoverageRaster, ThePictureShowsCoveredAndNeverCoveredCellsInThePadsProportions)
{
    rawkit::TouchLayout layout;
    layout.x = {0, 1216};
    layout.y = {0, 680};
    layout.widthMm = 101.3;
    layout.heightMm = 56.6;
    CoverageMap map(layout);
    for (std::int32_t x = 0; x <= 1216; x += 8) {
        map.add(x, 10);   // the top row only
    }
    const IndexedImage picture = CoverageRaster::picture(map);
    EXPECT_EQ(picture.width, 13U * CoverageRaster::kCellPixels + 1);
    EXPECT_NEAR(static_cast<double>(picture.width - 1) / (picture.height - 1), 101.3 / 56.6, 0.01);
    EXPECT_EQ(picture.stride % 4, 0U);
    const Decoded decoded = decode(PngWriter::encode(picture));
    const unsigned cell = CoverageRaster::kCellPixels;
    EXPECT_EQ(pixel(decoded, cell / 2, cell / 2), CoverageRaster::Covered);
    EXPECT_EQ(pixel(decoded, 12 * cell + cell / 2, decoded.height - cell / 2), CoverageRaster::NeverCovered);
    EXPECT_EQ(pixel(decoded, 0, 0), CoverageRaster::Grid);
    EXPECT_EQ(decoded.palette.size(), 3U * CoverageRaster::ColourCount);

    // Live, the cells not yet covered are plain, a finger a dot where it is, the rest of a wide
    // control left to the background.
    const IndexedImage live = CoverageRaster::draw(map, 600, 200, {{608, 340}}, false);
    const auto at = [&live](unsigned x, unsigned y) { return live.pixels[y * live.stride + x]; };
    EXPECT_EQ(at(5, 100), CoverageRaster::Background);
    EXPECT_EQ(at(300, 100), CoverageRaster::Finger);
    EXPECT_EQ(at(300, 180), CoverageRaster::NotYet);
}
