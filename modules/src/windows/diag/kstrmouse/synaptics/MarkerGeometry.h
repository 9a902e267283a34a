#pragma once
// Where a reading lies within its device range, and the pixel arithmetic of the markers.

class MarkerGeometry {
public:
    // (value - lo) / (hi - lo) in double precision. An empty range (hi == lo) has no position
    // to give: the answer is then 0.5, so the marker sits in the middle of that axis.
    static double fraction(int value, int lo, int hi);
    // Truncation toward zero, held within +-1,000,000 so that a reading far outside its
    // range still converts to an int (and GDI+ simply draws it off the picture).
    static int truncate(double value);
};
