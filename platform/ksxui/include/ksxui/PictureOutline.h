#pragma once
// What stands in for a picture whose file could not be loaded, where the user must see something
// to hit or watch: a plain outline of its place with a label in the middle, on the window colour,
// or on the highlight colour while the part it stands for is held.
#include <windows.h>

#include <string>

class PictureOutline {
public:
    static void draw(HDC dc, const RECT& place, const std::wstring& label, bool filled = false);
};
