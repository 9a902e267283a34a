#pragma once
// The coverage map as a picture of palette indices: the pad as large as fits, in its own
// proportions, its cells covered or not, the fingers down as dots. The dialog shows it and the
// report's picture is made from it, so both show the same.
#include <cstdint>
#include <vector>

#include "touchq/CoverageMap.h"
#include "touchq/PngWriter.h"

namespace touchq {

class CoverageRaster {
public:
    enum Colour : std::uint8_t { Background, NotYet, Covered, NeverCovered, Grid, Finger, ColourCount };
    static constexpr unsigned kCellPixels = 24;   // in the report's picture

    struct Spot {
        std::int32_t x = 0;
        std::int32_t y = 0;
    };

    // width x height pixels. At the end (final), cells not covered show as never covered.
    static IndexedImage draw(const CoverageMap& map, unsigned width, unsigned height, const std::vector<Spot>& fingers,
                             bool final);
    // The report's picture: the final map in cells of kCellPixels, in the pad's proportions.
    static IndexedImage picture(const CoverageMap& map);
    static std::vector<std::uint32_t> palette();
};

}  // namespace touchq
