// PngControl in a real window: where the image lands for each way of placing it, that it paints
// the image over the parent's background, and that a broken file leaves the control empty.
#include "ksxui/PngControl.h"

#include <gtest/gtest.h>

#include <objidl.h>
#include <gdiplus.h>

#include "ksxui/GdiResourceManager.h"

namespace {

constexpr int kControlWidth = 120;
constexpr int kControlHeight = 60;

// A visible popup with one static child, the control bound to it.
class Host {
public:
    Host()
    {
        m_parent = ::CreateWindowExW(0, L"Static", L"", WS_POPUP | WS_VISIBLE, 10, 10, 200, 100, nullptr, nullptr,
                                     nullptr, nullptr);
        m_child = ::CreateWindowExW(0, L"Static", L"", WS_CHILD | WS_VISIBLE | SS_BITMAP | SS_CENTERIMAGE, 20, 20,
                                    kControlWidth, kControlHeight, m_parent, nullptr, nullptr, nullptr);
        control.SubclassWindow(m_child);
    }
    ~Host()
    {
        control.UnsubclassWindow();
        ::DestroyWindow(m_parent);
    }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    COLORREF Pixel(int x, int y)
    {
        ::UpdateWindow(m_child);
        const HDC dc = ::GetDC(m_child);
        const COLORREF colour = ::GetPixel(dc, x, y);
        ::ReleaseDC(m_child, dc);
        return colour;
    }

    PngControl control;

private:
    HWND m_parent;
    HWND m_child;
};

class PngControlTest : public ::testing::Test {
protected:
    GdiResourceManager gdiplus;
};

// A 40 by 20 image in one opaque colour.
std::unique_ptr<Gdiplus::Bitmap> RedImage()
{
    auto image = std::make_unique<Gdiplus::Bitmap>(40, 20, PixelFormat32bppARGB);
    Gdiplus::Graphics(image.get()).Clear(Gdiplus::Color(255, 255, 0, 0));
    return image;
}

TEST_F(PngControlTest, PlacementFollowsTheFlags)
{
    Host host;
    const auto image = RedImage();
    struct Case {
        bool fit, stretch, topLeft;
        RECT expected;
    };
    const Case cases[] = {
        {true, false, false, {0, 0, 120, 60}},     // fit: 40x20 scaled by 3, fills the control
        {false, false, false, {40, 20, 80, 40}},   // own size, centred
        {false, false, true, {0, 0, 40, 20}},      // own size, top left
        {false, true, false, {0, 0, 120, 60}},     // stretched
    };
    for (const Case& c : cases) {
        EXPECT_EQ(host.control.SetImage(*image, c.fit, c.stretch, c.topLeft), 0);
        const RECT r = host.control.ImageRect(kControlWidth, kControlHeight);
        EXPECT_EQ(r.left, c.expected.left);
        EXPECT_EQ(r.top, c.expected.top);
        EXPECT_EQ(r.right, c.expected.right);
        EXPECT_EQ(r.bottom, c.expected.bottom);
    }
    // A square image fitted into a wide control keeps its proportions, centred.
    Gdiplus::Bitmap square(30, 30, PixelFormat32bppARGB);
    host.control.SetImage(square, true, false, false);
    const RECT r = host.control.ImageRect(kControlWidth, kControlHeight);
    EXPECT_EQ(r.right - r.left, 60);
    EXPECT_EQ(r.left, 30);
}

TEST_F(PngControlTest, PaintsTheImageWhereItLands)
{
    Host host;
    const auto image = RedImage();
    host.control.SetImage(*image, false, false, false);
    host.control.InvalidateRect(nullptr, TRUE);
    EXPECT_EQ(host.Pixel(60, 30), RGB(255, 0, 0)) << "inside the centred image";
    EXPECT_NE(host.Pixel(5, 5), RGB(255, 0, 0)) << "outside it the background shows";
}

TEST_F(PngControlTest, BrokenFileLeavesTheControlEmpty)
{
    Host host;
    Gdiplus::Image missing(L"resources//kstrmouse//no_such_picture.png");
    EXPECT_EQ(host.control.SetImage(missing, true, false, false), -1);
    const RECT r = host.control.ImageRect(kControlWidth, kControlHeight);
    EXPECT_EQ(r.right - r.left, 0);
    host.control.InvalidateRect(nullptr, TRUE);
    EXPECT_NE(host.Pixel(60, 30), RGB(255, 0, 0));
}

}  // namespace
