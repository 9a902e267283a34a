#pragma once
// One line of text fitted into a layout box with GDI+. The font size is the largest that keeps
// the text inside the box: it starts from the box height and shrinks in half-pixel steps on one
// line; a text that does not fit on one line even at the smallest readable size is wrapped
// within the box instead, and a text that fits neither way is cut with an ellipsis.
#include <windows.h>

#include <objidl.h>
#include <gdiplus.h>

#include <memory>
#include <string>

#include "ksx/String.h"

class StringRenderer {
public:
    // The largest and smallest font sizes tried, in pixels, relative to the box height.
    static constexpr float kLargestEmPerBoxHeight = 0.8f;
    static constexpr float kSmallestReadableEm = 8.0f;
    static constexpr float kSmallestWrappedEm = 6.0f;

    // `fontFamily` that GDI+ does not know gives way to the system's sans-serif family.
    StringRenderer(const Gdiplus::RectF& box, const ksx::String& fontFamily);
    ~StringRenderer();
    StringRenderer(const StringRenderer&) = delete;
    StringRenderer& operator=(const StringRenderer&) = delete;

    // Prepares `text` for the box on `graphics`: chooses the font size and whether it wraps.
    // bold: the text is set in the bold weight of the family.
    void setString(Gdiplus::Graphics& graphics, const ksx::String& text, bool bold);
    // Draws the prepared text, centred vertically in the box, with the horizontal alignment
    // given. Nothing is drawn when no font family could be found or nothing was prepared.
    Gdiplus::Status renderString(Gdiplus::Graphics& graphics, Gdiplus::StringAlignment alignment,
                                 const Gdiplus::Color& color);

    // What setString chose; 0 when nothing could be prepared.
    float emSize() const;
    bool wraps() const;
    // The family actually used, empty when none was found.
    std::wstring familyName() const;

private:
    // The size of `m_text` set at `em` pixels, laid out in the box width (or unbounded when
    // not wrapped).
    Gdiplus::SizeF measure(Gdiplus::Graphics& graphics, float em, bool wrap) const;
    bool fits(Gdiplus::Graphics& graphics, float em, bool wrap) const;
    // The largest size in [smallest, largest] that fits, or 0 when even the smallest does not.
    float largestFitting(Gdiplus::Graphics& graphics, float smallest, float largest, bool wrap) const;
    std::unique_ptr<Gdiplus::StringFormat> format(bool wrap, Gdiplus::StringAlignment alignment) const;

    Gdiplus::RectF m_box;
    std::unique_ptr<Gdiplus::FontFamily> m_family;
    std::wstring m_text;
    int m_style;
    float m_em;
    bool m_wrap;
};
