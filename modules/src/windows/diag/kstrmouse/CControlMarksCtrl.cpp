#include "CControlMarksCtrl.h"

#include "GdiObject.h"
#include "Mouse.h"
#include "SelectedObject.h"

namespace {

constexpr int kGap = 4;          // pixels between marks
constexpr int kPadding = 6;      // pixels above and below a label
constexpr int kTickWidth = 17;   // room for the tick before a used mark's label

struct MarkColours {
    COLORREF fill;
    COLORREF border;
    COLORREF text;
};

MarkColours ColoursOf(std::uint32_t state)
{
    switch (state) {
    case Active:
        return {RGB(52, 120, 200), RGB(30, 80, 150), RGB(255, 255, 255)};
    case Seen:
        return {RGB(222, 242, 222), RGB(60, 140, 60), RGB(20, 90, 20)};
    default:
        return {RGB(255, 255, 255), RGB(160, 160, 160), RGB(110, 110, 110)};
    }
}

const wchar_t* StateSuffix(std::uint32_t state)
{
    switch (state) {
    case Active:
        return L" (now)";
    case Seen:
        return L" (done)";
    default:
        return L"";
    }
}

}  // namespace

BEGIN_MESSAGE_MAP(CControlMarksCtrl, CWnd)
    ON_WM_ERASEBKGND()
    ON_WM_PAINT()
END_MESSAGE_MAP()

void CControlMarksCtrl::show(const std::vector<Mark>& marks)
{
    std::vector<Mark> present;
    std::wstring text;
    for (const Mark& mark : marks) {
        if (mark.state != Absent) {
            present.push_back(mark);
            text += (text.empty() ? L"" : L", ") + mark.label + StateSuffix(mark.state);
        }
    }
    const bool shown = (::GetWindowLongW(m_hWnd, GWL_STYLE) & WS_VISIBLE) != 0;
    if (present == m_marks && shown == !present.empty()) {
        return;
    }
    m_marks = present;
    ::SetWindowTextW(m_hWnd, text.c_str());
    ShowWindow(m_marks.empty() ? SW_HIDE : SW_SHOWNA);
    InvalidateRect(nullptr, TRUE);
}

BOOL CControlMarksCtrl::OnEraseBkgnd(CDC* pDC)
{
    // The dialog's own background, as the static control this replaces would have it.
    const HBRUSH face = reinterpret_cast<HBRUSH>(::SendMessageW(
        ::GetParent(m_hWnd), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(pDC->GetSafeHdc()),
        reinterpret_cast<LPARAM>(m_hWnd)));
    RECT client;
    ::GetClientRect(m_hWnd, &client);
    ::FillRect(pDC->GetSafeHdc(), &client, face != nullptr ? face : ::GetSysColorBrush(COLOR_BTNFACE));
    return TRUE;
}

void CControlMarksCtrl::OnPaint()
{
    PAINTSTRUCT paint;
    const HDC dc = ::BeginPaint(m_hWnd, &paint);
    RECT client;
    ::GetClientRect(m_hWnd, &client);
    const SelectedObject font(dc, reinterpret_cast<HGDIOBJ>(::SendMessageW(::GetParent(m_hWnd), WM_GETFONT, 0, 0)));
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(dc, &metrics);
    const int height = metrics.tmHeight + 2 * kPadding;
    ::SetBkMode(dc, TRANSPARENT);
    for (std::size_t i = 0; i < m_marks.size(); ++i) {
        const int top = static_cast<int>(i) * (height + kGap);
        PaintMark(dc, RECT{0, top, client.right, top + height}, m_marks[i]);
    }
    ::EndPaint(m_hWnd, &paint);
}

void CControlMarksCtrl::PaintMark(HDC dc, const RECT& place, const Mark& mark) const
{
    const MarkColours colours = ColoursOf(mark.state);
    const GdiObject<HBRUSH> fill(::CreateSolidBrush(colours.fill));
    const GdiObject<HPEN> border(::CreatePen(PS_SOLID, 1, colours.border));
    {
        const SelectedObject brush(dc, fill.get());
        const SelectedObject pen(dc, border.get());
        ::RoundRect(dc, place.left, place.top, place.right, place.bottom, 6, 6);
    }
    RECT label = place;
    label.left += kTickWidth;
    if (mark.state == Seen) {
        // A tick drawn, not a glyph: every font has the pixels, not every font has the character.
        const GdiObject<HPEN> tick(::CreatePen(PS_SOLID, 2, colours.border));
        const SelectedObject pen(dc, tick.get());
        const int middle = (place.top + place.bottom) / 2;
        const POINT points[] = {{place.left + 4, middle}, {place.left + 7, middle + 3}, {place.left + 12, middle - 3}};
        ::Polyline(dc, points, 3);
    }
    ::SetTextColor(dc, colours.text);
    std::wstring text = mark.label;
    if (!text.empty()) {
        ::CharUpperBuffW(&text[0], 1);   // the check names are written for the middle of a sentence
    }
    ::DrawTextW(dc, text.c_str(), -1, &label, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
}
