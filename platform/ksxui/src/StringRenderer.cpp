#include "ksxui/StringRenderer.h"

#include <cmath>

namespace {

// Tried in turn when the requested family is unknown to GDI+ (Wine knows none of the Windows
// names, and a dialog's logical "MS Shell Dlg" is not a real family anywhere).
const wchar_t* const kFallbackFamilies[] = {L"Arial", L"Liberation Sans", L"DejaVu Sans"};

constexpr float kStep = 0.5f;

std::unique_ptr<Gdiplus::FontFamily> findFamily(const std::wstring& requested)
{
    auto family = std::make_unique<Gdiplus::FontFamily>(requested.c_str());
    if (family->IsAvailable()) {
        return family;
    }
    const Gdiplus::FontFamily* generic = Gdiplus::FontFamily::GenericSansSerif();
    if (generic != nullptr && generic->IsAvailable()) {
        return std::unique_ptr<Gdiplus::FontFamily>(generic->Clone());
    }
    for (const wchar_t* name : kFallbackFamilies) {
        family = std::make_unique<Gdiplus::FontFamily>(name);
        if (family->IsAvailable()) {
            return family;
        }
    }
    return nullptr;
}

}  // namespace

StringRenderer::StringRenderer(const Gdiplus::RectF& box, const ksx::String& fontFamily)
    : m_box(box),
      m_family(findFamily(reinterpret_cast<const wchar_t*>(fontFamily.getUCS2Buffer()))),
      m_style(Gdiplus::FontStyleRegular),
      m_em(0),
      m_wrap(false)
{
}

StringRenderer::~StringRenderer() = default;

void StringRenderer::setString(Gdiplus::Graphics& graphics, const ksx::String& text, bool bold)
{
    m_text = reinterpret_cast<const wchar_t*>(text.getUCS2Buffer());
    m_style = bold ? Gdiplus::FontStyleBold : Gdiplus::FontStyleRegular;
    m_em = 0;
    m_wrap = false;
    if (m_family == nullptr || m_box.Width <= 0 || m_box.Height <= 0) {
        return;
    }
    const float largest = std::floor(m_box.Height * kLargestEmPerBoxHeight / kStep) * kStep;
    m_em = largestFitting(graphics, kSmallestReadableEm, largest, false);
    if (m_em > 0) {
        return;
    }
    m_wrap = true;
    m_em = largestFitting(graphics, kSmallestWrappedEm, largest, true);
    if (m_em == 0) {
        // Neither way fits: the smallest wrapped size, cut at the box with an ellipsis.
        m_em = kSmallestWrappedEm;
    }
}

Gdiplus::Status StringRenderer::renderString(Gdiplus::Graphics& graphics, Gdiplus::StringAlignment alignment,
                                             const Gdiplus::Color& color)
{
    if (m_family == nullptr || m_em <= 0 || m_text.empty()) {
        return Gdiplus::Ok;
    }
    const Gdiplus::Font font(m_family.get(), m_em, m_style, Gdiplus::UnitPixel);
    const Gdiplus::SolidBrush brush(color);
    const std::unique_ptr<Gdiplus::StringFormat> layout = format(m_wrap, alignment);
    // Clipped as well: not every GDI+ keeps overflowing lines inside the layout box.
    const Gdiplus::GraphicsState state = graphics.Save();
    graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintAntiAliasGridFit);
    graphics.SetClip(m_box, Gdiplus::CombineModeIntersect);
    const Gdiplus::Status status =
        graphics.DrawString(m_text.c_str(), static_cast<INT>(m_text.size()), &font, m_box, layout.get(), &brush);
    graphics.Restore(state);
    return status;
}

float StringRenderer::emSize() const
{
    return m_em;
}

bool StringRenderer::wraps() const
{
    return m_wrap;
}

std::wstring StringRenderer::familyName() const
{
    if (m_family == nullptr) {
        return {};
    }
    wchar_t name[LF_FACESIZE] = {};
    m_family->GetFamilyName(name);
    return name;
}

Gdiplus::SizeF StringRenderer::measure(Gdiplus::Graphics& graphics, float em, bool wrap) const
{
    const Gdiplus::Font font(m_family.get(), em, m_style, Gdiplus::UnitPixel);
    const std::unique_ptr<Gdiplus::StringFormat> layout = format(wrap, Gdiplus::StringAlignmentNear);
    // Unwrapped text is measured without a width limit, so that its full length shows.
    const Gdiplus::SizeF area(wrap ? m_box.Width : 1e6f, 1e6f);
    Gdiplus::SizeF size;
    graphics.MeasureString(m_text.c_str(), static_cast<INT>(m_text.size()), &font, area, layout.get(), &size);
    return size;
}

bool StringRenderer::fits(Gdiplus::Graphics& graphics, float em, bool wrap) const
{
    const Gdiplus::SizeF size = measure(graphics, em, wrap);
    return size.Width <= m_box.Width && size.Height <= m_box.Height && size.Height > 0;
}

float StringRenderer::largestFitting(Gdiplus::Graphics& graphics, float smallest, float largest, bool wrap) const
{
    if (largest < smallest || !fits(graphics, smallest, wrap)) {
        return 0;
    }
    // Binary search over half-pixel steps: fits(low) holds throughout.
    int low = 0;
    int high = static_cast<int>((largest - smallest) / kStep);
    while (low < high) {
        const int middle = (low + high + 1) / 2;
        if (fits(graphics, smallest + static_cast<float>(middle) * kStep, wrap)) {
            low = middle;
        } else {
            high = middle - 1;
        }
    }
    return smallest + static_cast<float>(low) * kStep;
}

std::unique_ptr<Gdiplus::StringFormat> StringRenderer::format(bool wrap, Gdiplus::StringAlignment alignment) const
{
    auto layout = std::make_unique<Gdiplus::StringFormat>();
    layout->SetAlignment(alignment);
    layout->SetLineAlignment(Gdiplus::StringAlignmentCenter);
    layout->SetTrimming(Gdiplus::StringTrimmingEllipsisCharacter);
    // Wrapped text shows whole lines only.
    layout->SetFormatFlags(wrap ? Gdiplus::StringFormatFlagsLineLimit : Gdiplus::StringFormatFlagsNoWrap);
    return layout;
}
