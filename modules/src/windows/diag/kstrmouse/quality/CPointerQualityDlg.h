#pragma once
// The pointer quality test's dialog: instructions, the report-interval chart with the rate, each
// button's presses and chatter, the wheel, the hands-off check with its countdown, what is left or
// what was found, and Pass, Fail and Close. Its reports come from a source it is given: the
// device's raw input in a test.
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "CIntervalHistogramCtrl.h"
#include "MicrosecondClock.h"
#include "ReportSource.h"
#include "harn5/TestResult.h"
#include "ksx/String.h"
#include "ksxui/CAutoTimer.h"
#include "ksxui/KSXDialog.h"
#include "pointerq/QualityAnalysis.h"

class CPointerQualityDlg : public KSXDialog {
public:
    CPointerQualityDlg(ReportSource::Factory source, const pointerq::QualityAnalysis::Settings& settings);
    ~CPointerQualityDlg() override;

    // CANNOTRUN until Pass, Fail or Close decides.
    harn5::TestResult m_result;
    // What the checks found when the dialog ended, and the figures for the report.
    std::vector<pointerq::QualityAnalysis::Finding> m_findings;
    std::vector<pointerq::QualityAnalysis::Measurement> m_measurements;

protected:
    BOOL OnInitDialog() override;
    // Close, Esc and a stop request: USERABORTED.
    void OnCancel() override;

    afx_msg void OnDestroy();
    // WM_TIMER: the figures and the chart follow the reports and the countdown, at most at the
    // display's pace.
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg void OnBnClickedHandsOff();
    afx_msg void OnBnClickedPass();
    afx_msg void OnBnClickedFail();

    DECLARE_MESSAGE_MAP()

private:
    void onReport(const pointerq::TimedReport& report);
    void refresh();
    void setTexts();
    void setItemText(int nID, const ksx::String& text);
    void finish(const harn5::TestResult& verdict);

    ReportSource::Factory m_startSource;
    pointerq::QualityAnalysis m_analysis;
    std::unique_ptr<ReportSource> m_source;
    MicrosecondClock m_clock;
    CIntervalHistogramCtrl m_histogram;
    CAutoTimer m_refreshTimer;
    std::int64_t m_handsOffAtUs = -1;      // the hands-off period starts then, after a lead-in
    bool m_changed = true;                 // reports arrived since the last refresh
    std::int64_t m_refreshedAtUs = 0;      // the figures and the chart were last set then
    std::int64_t m_framePeriodUs = 16667;  // the display's refresh period
    std::map<int, std::wstring> m_shownTexts;   // each control's text as last set
    bool m_counting = false;               // the hands-off lead-in or period was under way then
};
