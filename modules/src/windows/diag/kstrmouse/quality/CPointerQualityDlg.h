#pragma once
// The pointer quality test's dialog: instructions, the report-interval chart with the rate, each
// button's presses and chatter, the wheel, the hands-off check with its countdown, what is left or
// what was found, and Pass, Fail and Close. It reads only its device's raw reports.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "CIntervalHistogramCtrl.h"
#include "harn5/TestResult.h"
#include "ksx/String.h"
#include "ksxui/CAutoTimer.h"
#include "ksxui/KSXDialog.h"
#include "pointerq/QualityAnalysis.h"
#include "rawkit/RawInputReceiver.h"

class CPointerQualityDlg : public KSXDialog {
public:
    // device: the raw input handle of the device under test.
    CPointerQualityDlg(std::uintptr_t device, const pointerq::QualityAnalysis::Settings& settings);
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
    // WM_TIMER: the figures and the chart follow the reports, at most at the display's pace.
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg void OnBnClickedHandsOff();
    afx_msg void OnBnClickedPass();
    afx_msg void OnBnClickedFail();

    DECLARE_MESSAGE_MAP()

private:
    void onInput(const RAWINPUT& input);
    std::int64_t nowUs() const;
    void refresh();
    void setTexts();
    void setItemText(int nID, const ksx::String& text);
    void finish(const harn5::TestResult& verdict);

    std::uintptr_t m_device;
    pointerq::QualityAnalysis m_analysis;
    std::unique_ptr<rawkit::RawInputReceiver> m_receiver;
    CIntervalHistogramCtrl m_histogram;
    CAutoTimer m_refreshTimer;
    std::int64_t m_frequency = 1;          // QueryPerformanceCounter ticks a second
    std::int64_t m_handsOffAtUs = -1;      // the hands-off period starts then, after a lead-in
    bool m_changed = true;                 // reports arrived since the last refresh
    bool m_counting = false;               // the hands-off lead-in or period was under way then
};
