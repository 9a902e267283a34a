#pragma once
// The distribution of report intervals as a bar chart: how many intervals fell in each span of
// the first 20 ms, with the median marked. Painted from a snapshot the dialog hands it, so that
// it repaints only when the dialog's refresh asks, never once per report, and at once.
#include <afxwin.h>

#include <array>
#include <cstdint>
#include <optional>

class CIntervalHistogramCtrl : public CWnd {
public:
    static constexpr std::size_t kColumns = 80;
    static constexpr std::int64_t kSpanUs = 20000;

    // A new picture: the counts per column and the median, if any.
    void show(const std::array<std::uint64_t, kColumns>& columns, std::optional<double> medianUs);

protected:
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnPaint();

    DECLARE_MESSAGE_MAP()

private:
    std::array<std::uint64_t, kColumns> m_columns{};
    std::optional<double> m_medianUs;
};
