// The device pictures without their files: the scaled-picture cache keeps a missing picture
// missing at every size, and the touchpad shows as labelled outlines, the held button filled.
#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>

#include "LoadedPicture.h"
#include "ScaledImages.h"
#include "SynapticsHarness.h"
#include "SynapticsSessions.h"
#include "ksxui/GdiResourceManager.h"
#include "resource.h"

namespace {

using namespace syntest;

constexpr COLORREF kWhite = RGB(0xFF, 0xFF, 0xFF);

// A white 32-bit bitmap selected into a memory DC.
class WhiteCanvas {
public:
    WhiteCanvas(int width, int height)
        : m_dc(::CreateCompatibleDC(nullptr)), m_bitmap(::CreateBitmap(width, height, 1, 32, nullptr)),
          m_previous(::SelectObject(m_dc, m_bitmap))
    {
        const RECT all{0, 0, width, height};
        ::FillRect(m_dc, &all, static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH)));
    }
    ~WhiteCanvas()
    {
        ::SelectObject(m_dc, m_previous);
        ::DeleteObject(m_bitmap);
        ::DeleteDC(m_dc);
    }
    WhiteCanvas(const WhiteCanvas&) = delete;
    WhiteCanvas& operator=(const WhiteCanvas&) = delete;

    HDC dc() const { return m_dc; }

private:
    HDC m_dc;
    HBITMAP m_bitmap;
    HGDIOBJ m_previous;
};

TEST(ScaledImages, AMissingPictureStaysMissingAtEverySize)
{
    const GdiResourceManager gdiplus;
    // A file that is not there, as a control that looked only in the working directory had it.
    const LoadedPicture missing(L"Z:\\nonexistent\\touchpad_pad.png");
    ASSERT_EQ(missing.image(), nullptr);
    ScaledImages images;
    for (const SIZE size : {SIZE{60, 30}, SIZE{80, 40}, SIZE{60, 30}}) {
        SCOPED_TRACE(size.cx);
        const WhiteCanvas canvas(100, 50);
        images.draw(canvas.dc(), missing, {0, 0, static_cast<int>(size.cx), static_cast<int>(size.cy)}, L"Pad");
        EXPECT_EQ(::GetPixel(canvas.dc(), 0, size.cy / 2), RGB(0, 0, 0)) << "its outline, not a clear picture";
        EXPECT_EQ(::GetPixel(canvas.dc(), size.cx - 1, size.cy / 2), RGB(0, 0, 0));
        EXPECT_EQ(::GetPixel(canvas.dc(), size.cx + 5, size.cy / 2), kWhite) << "nothing beyond its place";
    }
}

TEST(DevicePicture, WithoutItsFilesTheTouchpadIsLabelledOutlines)
{
    const std::filesystem::path empty = std::filesystem::temp_directory_path() / "kstr_no_touch_pictures";
    std::filesystem::create_directories(empty);
    wchar_t previous[MAX_PATH] = {};
    ::GetCurrentDirectoryW(MAX_PATH, previous);
    ASSERT_TRUE(::SetCurrentDirectoryW(empty.c_str()));
    const long h = addDevice(kTouchpadComplete, SynDeviceTouchPad);
    bool checked = false;
    runHost({"--test", "TouchpadTest", "--device", deviceOption("touchpad", "SP_Handle=" + std::to_string(h))},
            {waitForText(IDC_SYN_ROW5_VALUE, L"Yes"), [&](HWND dialog) {
                 const HWND picture = devicePicture(dialog);
                 EXPECT_EQ(pixel(picture, 0, 75), RGB(0, 0, 0)) << "the pad's outline";
                 EXPECT_EQ(pixel(picture, 299, 75), RGB(0, 0, 0));
                 // Right is held at the end: its outline is filled, the left one's is not.
                 EXPECT_TRUE(isBlueish(pixel(picture, 225, 160)));
                 EXPECT_FALSE(isBlueish(pixel(picture, 74, 160)));
                 EXPECT_EQ(pixel(picture, 0, 174), RGB(0, 0, 0)) << "the left button's outline";
                 checked = true;
                 click(dialog, IDCANCEL);
                 return true;
             }});
    EXPECT_TRUE(checked);
    ::SetCurrentDirectoryW(previous);
    std::filesystem::remove_all(empty);
}

}  // namespace
