#pragma once
// A picture read from its file once, and whether that worked. GDI+ tells an image's status only
// once (GetLastStatus resets it to Ok), so the status of the load is taken here and kept: a
// missing picture stays missing however often it is drawn.
#include <windows.h>

#include <objidl.h>
#include <gdiplus.h>

#include <filesystem>
#include <memory>

class LoadedPicture {
public:
    // An empty path is a picture that was not found.
    explicit LoadedPicture(const std::filesystem::path& file);
    ~LoadedPicture();
    LoadedPicture(const LoadedPicture&) = delete;
    LoadedPicture& operator=(const LoadedPicture&) = delete;

    // Null when the file was missing, broken or empty.
    Gdiplus::Image* image() const { return m_usable ? m_image.get() : nullptr; }

private:
    std::unique_ptr<Gdiplus::Image> m_image;
    bool m_usable;
};
