// The click test's pictures: each control shows its own file (a control drawn off-screen is
// nearest to its own file drawn alone, of every picture the test has), and without the files the
// targets the user must hit show as labelled outlines.
#include <gtest/gtest.h>

#include <windows.h>

#include <objidl.h>
#include <gdiplus.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ClickTestDriver.h"
#include "MouseDlgHarness.h"
#include "PauseRecorder.h"
#include "resource.h"

namespace {

using namespace clicktest;

// Which file each control shows, by layout (written out here, not taken from the module).
struct Shown {
    int control;
    const char* file;
};
const std::vector<Shown> kBoth = {
    {IDC_CT_DOUBLE_CLICK_TARGET, "double_click_drag_target.png"},
    {IDC_CT_DOUBLE_CLICK_HOVER, "double_click_drag_target_hover.png"},
    {IDC_CT_DOUBLE_CLICK_SUCCESS, "double_click_drag_success.png"},
    {IDC_CT_DRAG_ITEM, "drag_item.png"},
    {IDC_CT_DROP_AREA, "double_click_drag_target.png"},
    {IDC_CT_DROP_SUCCESS, "double_click_drag_success.png"},
    {IDC_CT_CLOSE, "close.png"},
    {IDC_CT_WHEEL_SUCCESS, "scroll_up_down_success.png"},
    {IDC_CT_WHEEL_UP, "scroll_up_indicator.png"},
    {IDC_CT_WHEEL_DOWN, "scroll_down_indicator.png"},
};
const std::vector<Shown> kDefault = {
    {IDC_CT_MOUSE_START, "mouse_default.png"},
    {IDC_CT_LEFT_PRESSED, "mouse_left_clicked.png"},
    {IDC_CT_LEFT_SUCCESS, "mouse_left_click_success.png"},
    {IDC_CT_RIGHT_PRESSED, "mouse_right_clicked.png"},
    {IDC_CT_RIGHT_SUCCESS, "mouse_right_click_success.png"},
    {IDC_CT_MIDDLE_PRESSED, "mouse_middle_clicked.png"},
    {IDC_CT_MIDDLE_SUCCESS, "mouse_click_final_success.png"},
    {IDC_CT_MIDDLE_SKIPPED, "mouse_click_final_success_middle_skipped.png"},
};
const std::vector<Shown> kGaming = {
    {IDC_CT_MOUSE_START, "mouse_side_button_default.png"},
    {IDC_CT_LEFT_PRESSED, "mouse_side_button_left_clicked.png"},
    {IDC_CT_LEFT_SUCCESS, "mouse_side_button_left_success.png"},
    {IDC_CT_RIGHT_PRESSED, "mouse_side_button_right_clicked.png"},
    {IDC_CT_RIGHT_SUCCESS, "mouse_side_button_right_click_success.png"},
    {IDC_CT_MIDDLE_PRESSED, "mouse_side_button_middle_clicked.png"},
    {IDC_CT_MIDDLE_SUCCESS, "mouse_side_button_middle_success.png"},
    {IDC_CT_MIDDLE_SKIPPED, "mouse_side_button_middle_skipped.png"},
    {IDC_CT_SIDE1_PRESSED, "mouse_side_button_1_clicked.png"},
    {IDC_CT_SIDE1_PRESSED_SKIPPED, "mouse_side_button_1_clicked_middle_skipped.png"},
    {IDC_CT_SIDE1_SUCCESS, "mouse_side_button_1_success.png"},
    {IDC_CT_SIDE1_SUCCESS_SKIPPED, "mouse_side_button_1_success_middle_skipped.png"},
    {IDC_CT_SIDE2_PRESSED, "mouse_side_button_2_clicked.png"},
    {IDC_CT_SIDE2_PRESSED_SKIPPED, "mouse_side_button_2_clicked_middle_skipped.png"},
    {IDC_CT_SIDE2_SUCCESS, "mouse_side_button_2_success.png"},
    {IDC_CT_SIDE2_SUCCESS_SKIPPED, "mouse_side_button_2_success_middle_skipped.png"},
};

std::wstring ShippedFile(const std::string& name)
{
    return mousetest::ShippedPicturesFolder() + L"\\resources\\kstrmouse\\" + std::wstring(name.begin(), name.end());
}

// A white 32-bit picture to draw into.
class Canvas {
public:
    Canvas(int width, int height) : m_width(width), m_height(height), m_dc(::CreateCompatibleDC(nullptr))
    {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        m_bitmap = ::CreateDIBSection(m_dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        m_pixels = static_cast<std::uint32_t*>(bits);
        m_previous = ::SelectObject(m_dc, m_bitmap);
        std::fill(m_pixels, m_pixels + static_cast<std::size_t>(width) * height, 0x00FFFFFFu);
    }
    ~Canvas()
    {
        ::SelectObject(m_dc, m_previous);
        ::DeleteObject(m_bitmap);
        ::DeleteDC(m_dc);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC dc() const { return m_dc; }
    // The colour differences of two canvases of one size, summed.
    std::uint64_t distance(const Canvas& other) const
    {
        ::GdiFlush();
        std::uint64_t sum = 0;
        for (std::size_t i = 0; i < static_cast<std::size_t>(m_width) * m_height; ++i) {
            for (int shift : {0, 8, 16}) {
                sum += static_cast<std::uint64_t>(
                    std::abs(static_cast<int>((m_pixels[i] >> shift) & 0xFF) - static_cast<int>((other.m_pixels[i] >> shift) & 0xFF)));
            }
        }
        return sum;
    }
    // The pixel at x, y as 0x00RRGGBB.
    std::uint32_t at(int x, int y) const
    {
        ::GdiFlush();
        return m_pixels[static_cast<std::size_t>(y) * m_width + x] & 0xFFFFFFu;
    }

private:
    int m_width;
    int m_height;
    HDC m_dc;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_previous = nullptr;
    std::uint32_t* m_pixels = nullptr;
};

SIZE ClientSize(HWND control)
{
    RECT client{};
    ::GetClientRect(control, &client);
    return {client.right, client.bottom};
}

// The control as it paints itself, off-screen.
std::unique_ptr<Canvas> Rendered(HWND control)
{
    const SIZE size = ClientSize(control);
    auto canvas = std::make_unique<Canvas>(size.cx, size.cy);
    ::SendMessageW(control, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(canvas->dc()), PRF_CLIENT);
    return canvas;
}

// The file alone, scaled into a control of that size as a picture control fits it: whole,
// proportions kept, centred.
std::unique_ptr<Canvas> Drawn(const std::string& file, SIZE size)
{
    auto canvas = std::make_unique<Canvas>(size.cx, size.cy);
    const std::wstring path = ShippedFile(file);
    Gdiplus::Image image(path.c_str());
    const double scale = std::min(static_cast<double>(size.cx) / image.GetWidth(),
                                  static_cast<double>(size.cy) / image.GetHeight());
    const int w = static_cast<int>(image.GetWidth() * scale + 0.5);
    const int h = static_cast<int>(image.GetHeight() * scale + 0.5);
    Gdiplus::Graphics graphics(canvas->dc());
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
    graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
    graphics.DrawImage(&image, Gdiplus::Rect((size.cx - w) / 2, (size.cy - h) / 2, w, h));
    return canvas;
}

// Every control of the layout set up: the run taken to its last step.
void ToLastStep(const Dialog& d, bool gaming)
{
    std::vector<int> indices = StepIndices(gaming);
    indices.pop_back();
    for (const int index : indices) {
        StepAction(index)(d);
    }
}

TEST(ClickTestPictureTable, EachControlShowsItsOwnFile)
{
    std::vector<std::string> files;
    for (const std::vector<Shown>* table : {&kBoth, &kDefault, &kGaming}) {
        for (const Shown& shown : *table) {
            if (std::find(files.begin(), files.end(), shown.file) == files.end()) {
                files.push_back(shown.file);
            }
        }
    }
    ASSERT_EQ(files.size(), 32u) << "every picture file of the click test";
    for (const bool gaming : {false, true}) {
        SCOPED_TRACE(gaming ? "gaming" : "default");
        const PauseRecorder pauses;
        RunClickTest(Layout(gaming), [&](Dialog& d) {
            ToLastStep(d, gaming);
            std::vector<Shown> table = kBoth;
            const std::vector<Shown>& own = gaming ? kGaming : kDefault;
            table.insert(table.end(), own.begin(), own.end());
            for (const Shown& shown : table) {
                const std::unique_ptr<Canvas> control = Rendered(d.Item(shown.control));
                std::map<std::uint64_t, std::string> byDistance;
                for (const std::string& file : files) {
                    byDistance.emplace(control->distance(*Drawn(file, ClientSize(d.Item(shown.control)))), file);
                }
                EXPECT_EQ(byDistance.begin()->second, shown.file) << "control " << shown.control;
            }
        });
    }
}

TEST(ClickTestPictureTable, WithoutTheFilesTheTargetsAreLabelledOutlines)
{
    const std::filesystem::path empty = std::filesystem::temp_directory_path() / "kstr_no_pictures";
    std::filesystem::create_directories(empty);
    ASSERT_TRUE(::SetCurrentDirectoryW(empty.c_str()));
    const PauseRecorder pauses;
    RunClickTest(Layout(false), [](Dialog& d) {
        ToLastStep(d, false);
        for (const int target : {IDC_CT_DOUBLE_CLICK_TARGET, IDC_CT_DRAG_ITEM, IDC_CT_DROP_AREA, IDC_CT_CLOSE}) {
            const std::unique_ptr<Canvas> drawn = Rendered(d.Item(target));
            const SIZE size = ClientSize(d.Item(target));
            EXPECT_EQ(drawn->at(0, size.cy / 2), 0u) << "outlined at the left edge: " << target;
            EXPECT_EQ(drawn->at(size.cx - 1, size.cy / 2), 0u) << target;
            bool label = false;
            for (int x = size.cx / 4; x < size.cx * 3 / 4 && !label; ++x) {
                label = drawn->at(x, size.cy / 2) != 0xFFFFFFu;
            }
            EXPECT_TRUE(label) << "a label in the middle: " << target;
        }
        // A picture that is no target stays empty.
        const std::unique_ptr<Canvas> mouse = Rendered(d.Item(IDC_CT_WHEEL_SUCCESS));
        EXPECT_EQ(mouse->at(0, ClientSize(d.Item(IDC_CT_WHEEL_SUCCESS)).cy / 2), 0xFFFFFFu);
    });
    ASSERT_TRUE(::SetCurrentDirectoryW(mousetest::ShippedPicturesFolder().c_str()));
    std::filesystem::remove_all(empty);
}

}  // namespace
