// StringRenderer on a real GDI+ surface: the text it draws stays inside its box however long the
// text is, the size it picks falls as the text grows, and an unknown family still draws.
#include "ksxui/StringRenderer.h"

#include <gtest/gtest.h>

#include <objidl.h>
#include <gdiplus.h>

#include <memory>
#include <string>

#include "ksxui/GdiResourceManager.h"

namespace {

constexpr int kWidth = 700;
constexpr int kHeight = 120;
const Gdiplus::RectF kBox(50.0f, 40.0f, 400.0f, 25.0f);

// A white surface to draw on and look at afterwards.
class Canvas {
public:
    Canvas() : m_bitmap(kWidth, kHeight, PixelFormat32bppARGB), m_graphics(&m_bitmap)
    {
        m_graphics.Clear(Gdiplus::Color::White);
    }

    Gdiplus::Graphics& graphics() { return m_graphics; }

    // The smallest rectangle holding every pixel that is not white; empty when there is none.
    Gdiplus::Rect inked()
    {
        int left = kWidth, top = kHeight, right = -1, bottom = -1;
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                Gdiplus::Color c;
                m_bitmap.GetPixel(x, y, &c);
                if (c.GetValue() != Gdiplus::Color(Gdiplus::Color::White).GetValue()) {
                    left = std::min(left, x);
                    top = std::min(top, y);
                    right = std::max(right, x);
                    bottom = std::max(bottom, y);
                }
            }
        }
        return right < 0 ? Gdiplus::Rect() : Gdiplus::Rect(left, top, right - left + 1, bottom - top + 1);
    }

private:
    Gdiplus::Bitmap m_bitmap;
    Gdiplus::Graphics m_graphics;
};

class StringRendererTest : public ::testing::Test {
protected:
    GdiResourceManager gdiplus;
};

// Draws `text` centred in kBox and answers where ink landed and the size chosen.
struct Drawn {
    Gdiplus::Rect ink;
    float em;
    bool wraps;
};
Drawn Draw(const std::string& text, const char* family = "Liberation Sans")
{
    Canvas canvas;
    StringRenderer renderer(kBox, ksx::String(family));
    renderer.setString(canvas.graphics(), ksx::String(text.c_str()), false);
    EXPECT_EQ(renderer.renderString(canvas.graphics(), Gdiplus::StringAlignmentCenter, Gdiplus::Color(255, 0x4D, 0x4D, 0x4B)),
              Gdiplus::Ok);
    return {canvas.inked(), renderer.emSize(), renderer.wraps()};
}

bool Inside(const Gdiplus::Rect& ink)
{
    return ink.X >= kBox.X && ink.Y >= kBox.Y && ink.X + ink.Width <= kBox.X + kBox.Width &&
           ink.Y + ink.Height <= kBox.Y + kBox.Height;
}

TEST_F(StringRendererTest, EveryLengthStaysInsideTheBox)
{
    ASSERT_TRUE(gdiplus.IsStarted());
    float previous = 1e9f;
    for (const std::string& text : {std::string("Step 1 of 7"),
                                   std::string("Turn the wheel down, toward you, until the bar is empty."),
                                   std::string("Ziehen Sie das Element bei gedrueckter linker Maustaste auf die "
                                               "Ablageflaeche und lassen Sie es dort los."),
                                   std::string(400, 'W')}) {
        SCOPED_TRACE(text);
        const Drawn drawn = Draw(text);
        EXPECT_GT(drawn.ink.Width, 0) << "something was drawn";
        EXPECT_TRUE(Inside(drawn.ink)) << drawn.ink.X << "," << drawn.ink.Y << " " << drawn.ink.Width << "x"
                                       << drawn.ink.Height;
        EXPECT_LE(drawn.em, previous) << "a longer text never gets a larger font";
        previous = drawn.em;
    }
}

TEST_F(StringRendererTest, ShortTextIsCentredAtTheLargestSize)
{
    const Drawn drawn = Draw("Step 1 of 7");
    EXPECT_EQ(drawn.em, 20.0f) << "0.8 of the box height";
    EXPECT_FALSE(drawn.wraps);
    const float inkCentre = drawn.ink.X + drawn.ink.Width / 2.0f;
    EXPECT_NEAR(inkCentre, kBox.X + kBox.Width / 2, 4.0f);
}

TEST_F(StringRendererTest, TooLongForOneReadableLineWraps)
{
    const Drawn drawn = Draw("Ziehen Sie das Element bei gedrueckter linker Maustaste auf die Ablageflaeche und "
                             "lassen Sie es dort los, sobald der Zeiger darueber steht.");
    EXPECT_TRUE(drawn.wraps);
    EXPECT_TRUE(Inside(drawn.ink));
}

TEST_F(StringRendererTest, UnknownFamilyFallsBackToOneThatDraws)
{
    const StringRenderer renderer(kBox, ksx::String("No Such Family"));
    EXPECT_FALSE(renderer.familyName().empty());
    EXPECT_GT(Draw("Click the left mouse button.", "MS Shell Dlg").ink.Width, 0);
}

TEST_F(StringRendererTest, NothingPreparedDrawsNothing)
{
    Canvas canvas;
    StringRenderer renderer(kBox, ksx::String("Liberation Sans"));
    EXPECT_EQ(renderer.renderString(canvas.graphics(), Gdiplus::StringAlignmentCenter, Gdiplus::Color::Black),
              Gdiplus::Ok);
    renderer.setString(canvas.graphics(), ksx::String(""), false);
    renderer.renderString(canvas.graphics(), Gdiplus::StringAlignmentCenter, Gdiplus::Color::Black);
    EXPECT_EQ(canvas.inked().Width, 0);
}

}  // namespace
