#include "CIntervalHistogramCtrl.h"

#include <algorithm>
#include <cstdio>

#include "GdiObject.h"
#include "SelectedObject.h"

namespace {

constexpr COLORREF kBackground = RGB(255, 255, 255);
constexpr COLORREF kBar = RGB(52, 120, 200);
constexpr COLORREF kMedian = RGB(200, 60, 40);
constexpr COLORREF kAxis = RGB(90, 90, 90);
constexpr int kAxisHeight = 14;   // the millisecond scale under the bars

}  // namespace

BEGIN_MESSAGE_MAP(CIntervalHistogramCtrl, CWnd)
    ON_WM_ERASEBKGND()
    ON_WM_PAINT()
END_MESSAGE_MAP()

void CIntervalHistogramCtrl::show(const std::array<std::uint64_t, kColumns>& columns, std::optional<double> medianUs)
{
    if (columns == m_columns && medianUs == m_medianUs) {
        return;
    }
    m_columns = columns;
    m_medianUs = medianUs;
    if (m_hWnd != nullptr) {
        // Painted now: a paint left to the queue waits for it to empty, which a flood of
        // reports may never let happen.
        InvalidateRect(nullptr, FALSE);
        UpdateWindow();
    }
}

BOOL CIntervalHistogramCtrl::OnEraseBkgnd(CDC*)
{
    return TRUE;   // the paint covers every pixel
}

void CIntervalHistogramCtrl::OnPaint()
{
    PAINTSTRUCT paint;
    const HDC dc = ::BeginPaint(m_hWnd, &paint);
    RECT client;
    ::GetClientRect(m_hWnd, &client);
    const GdiObject<HBRUSH> background(CreateSolidBrush(kBackground));
    FillRect(dc, &client, background.get());

    const int width = client.right - client.left;
    const int plotHeight = client.bottom - client.top - kAxisHeight;
    const std::uint64_t tallest = std::max<std::uint64_t>(1, *std::max_element(m_columns.begin(), m_columns.end()));
    const GdiObject<HBRUSH> bar(CreateSolidBrush(kBar));
    for (std::size_t column = 0; column < kColumns; ++column) {
        if (m_columns[column] == 0) {
            continue;
        }
        const int left = static_cast<int>(column * width / kColumns);
        const int right = static_cast<int>((column + 1) * width / kColumns);
        // At least a pixel: a rare interval must still show.
        const int height = std::max(1, static_cast<int>(m_columns[column] * plotHeight / tallest));
        const RECT rect{left, plotHeight - height, std::max(left + 1, right - 1), plotHeight};
        FillRect(dc, &rect, bar.get());
    }

    const GdiObject<HPEN> axis(CreatePen(PS_SOLID, 1, kAxis));
    const SelectedObject pen(dc, axis.get());
    MoveToEx(dc, 0, plotHeight, nullptr);
    LineTo(dc, width, plotHeight);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, kAxis);
    const SelectedObject font(dc, reinterpret_cast<HGDIOBJ>(::SendMessageW(::GetParent(m_hWnd), WM_GETFONT, 0, 0)));
    for (int ms = 0; ms <= kSpanUs / 1000; ms += 5) {
        const int x = static_cast<int>(ms * 1000LL * width / kSpanUs);
        MoveToEx(dc, x, plotHeight, nullptr);
        LineTo(dc, x, plotHeight + 3);
        wchar_t label[16];
        std::swprintf(label, 16, L"%d ms", ms);
        RECT text{x + 2, plotHeight + 1, x + 60, client.bottom};
        DrawTextW(dc, label, -1, &text, DT_LEFT | DT_TOP | DT_SINGLELINE | DT_NOCLIP);
    }
    if (m_medianUs && *m_medianUs < kSpanUs) {
        const GdiObject<HPEN> marker(CreatePen(PS_DOT, 1, kMedian));
        const SelectedObject medianPen(dc, marker.get());
        const int x = static_cast<int>(*m_medianUs * width / kSpanUs);
        MoveToEx(dc, x, 0, nullptr);
        LineTo(dc, x, plotHeight);
    }
    ::EndPaint(m_hWnd, &paint);
}
