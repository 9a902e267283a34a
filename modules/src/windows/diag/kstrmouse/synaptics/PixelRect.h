#pragma once
// A rectangle in pixels, as the device controls place their images.

struct PixelRect {
    int left;
    int top;
    int width;
    int height;
};
