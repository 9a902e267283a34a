#pragma once
// The three text lines of the click test, drawn with GDI+ on the dialog's paint device context:
// the step number at the top left, the instruction and under it the fixed hint line, both
// across the dialog.
#include <windows.h>

#include <objidl.h>
#include <gdiplus.h>

#include <memory>

#include "harn5/LocalizedString.h"
#include "ksx/String.h"

class CWnd;
class StringRenderer;

class CMouseStringRenderer {
public:
    // Takes the dialog's font face (Arial when it has no font) and its client width.
    explicit CMouseStringRenderer(CWnd& dialog);
    ~CMouseStringRenderer();
    CMouseStringRenderer(const CMouseStringRenderer&) = delete;
    CMouseStringRenderer& operator=(const CMouseStringRenderer&) = delete;

    // The step number line, in its box at the top left.
    void renderIndex(HDC dc, const ksx::String& text);
    // The instruction of `key` and the hint line under it.
    void renderInstruction(HDC dc, const harn5::LocalizedString& key);

    Gdiplus::RectF indexBox() const;
    Gdiplus::RectF instructionBox() const;
    Gdiplus::RectF hintBox() const;
    const ksx::String& fontFamily() const;
    Gdiplus::Color textColor() const;

private:
    // A fresh drawing surface on dc for this paint, replacing the one of the paint before.
    Gdiplus::Graphics& beginGraphics(HDC dc);
    void render(const Gdiplus::RectF& box, const ksx::String& text);

    float m_indexWidthBase;
    float m_indexHeight;
    float m_indexLeft;
    float m_indexTop;
    float m_instructionHeight;
    float m_instructionMargin;
    float m_instructionLeft;
    float m_instructionTop;
    float m_hintLeft;
    float m_hintTop;
    std::unique_ptr<Gdiplus::Graphics> m_graphics;
    ksx::String m_fontFamily;
    float m_clientWidth;
    Gdiplus::Color m_textColor;
};
