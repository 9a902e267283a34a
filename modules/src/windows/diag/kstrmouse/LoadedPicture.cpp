#include "LoadedPicture.h"

LoadedPicture::LoadedPicture(const std::filesystem::path& file) : m_usable(false)
{
    if (file.empty()) {
        return;
    }
    m_image = std::make_unique<Gdiplus::Image>(file.c_str());
    m_usable = m_image->GetLastStatus() == Gdiplus::Ok && m_image->GetWidth() > 0 && m_image->GetHeight() > 0;
}

LoadedPicture::~LoadedPicture() = default;
