#include "MouseStringRenderer.h"

#include <afxwin.h>

#include "Registration.h"
#include "ksxui/StringRenderer.h"

namespace {

// The step number box is this much narrower than the widest dialog the layout was drawn for.
constexpr float kIndexLayoutWidth = 900.0f;
constexpr Gdiplus::ARGB kTextColor = 0xFF4D4D4B;

ksx::String dialogFontFace(CWnd& dialog)
{
    const HFONT font = reinterpret_cast<HFONT>(dialog.SendMessage(WM_GETFONT));
    LOGFONTW logFont{};
    if (font == nullptr || ::GetObjectW(font, sizeof(logFont), &logFont) == 0) {
        return ksx::String("Arial");
    }
    return ksx::String(reinterpret_cast<const unsigned short*>(logFont.lfFaceName));
}

}  // namespace

CMouseStringRenderer::CMouseStringRenderer(CWnd& dialog)
    : m_indexWidthBase(600.0f),
      m_indexHeight(21.0f),
      m_indexLeft(0.0f),
      m_indexTop(15.0f),
      m_instructionHeight(25.0f),
      m_instructionMargin(20.0f),
      m_instructionLeft(0.0f),
      m_instructionTop(80.0f),
      m_hintLeft(0.0f),
      m_hintTop(110.0f),
      m_fontFamily(dialogFontFace(dialog)),
      m_clientWidth(0),
      m_textColor(kTextColor)
{
    RECT client{};
    dialog.GetClientRect(&client);
    m_clientWidth = static_cast<float>(client.right - client.left);
}

CMouseStringRenderer::~CMouseStringRenderer() = default;

void CMouseStringRenderer::renderIndex(HDC dc, const ksx::String& text)
{
    beginGraphics(dc);
    render(indexBox(), text);
}

void CMouseStringRenderer::renderInstruction(HDC dc, const harn5::LocalizedString& key)
{
    beginGraphics(dc);
    render(instructionBox(), key.localizedString().ksxString());
    render(hintBox(), kstrmouse::texts::MOUSE_CLICK_SUCCESSFUL_COMPLETION_INSTRUCTION->localizedString().ksxString());
}

Gdiplus::RectF CMouseStringRenderer::indexBox() const
{
    return {m_indexLeft, m_indexTop, kIndexLayoutWidth - m_indexWidthBase, m_indexHeight};
}

Gdiplus::RectF CMouseStringRenderer::instructionBox() const
{
    return {m_instructionLeft, m_instructionTop, m_clientWidth - m_instructionMargin, m_instructionHeight};
}

Gdiplus::RectF CMouseStringRenderer::hintBox() const
{
    return {m_hintLeft, m_hintTop, m_clientWidth - m_instructionMargin, m_instructionHeight};
}

const ksx::String& CMouseStringRenderer::fontFamily() const
{
    return m_fontFamily;
}

Gdiplus::Color CMouseStringRenderer::textColor() const
{
    return m_textColor;
}

Gdiplus::Graphics& CMouseStringRenderer::beginGraphics(HDC dc)
{
    m_graphics = std::make_unique<Gdiplus::Graphics>(dc);
    m_graphics->SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    m_graphics->SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
    return *m_graphics;
}

void CMouseStringRenderer::render(const Gdiplus::RectF& box, const ksx::String& text)
{
    StringRenderer renderer(box, m_fontFamily);
    renderer.setString(*m_graphics, text, false);
    renderer.renderString(*m_graphics, Gdiplus::StringAlignmentCenter, m_textColor);
}
