#pragma once
// The touchpad quality test's dialog: instructions, the coverage map with the cells still to do,
// the fingers, the resting finger, the report rates, the clicks, the resolution and size, the
// hands-off check with its countdown, what is left or what was found, and Pass, Fail and Close.
// Its frames come from a source it is given: the live touchpad, or a replay.
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "CCoverageMapCtrl.h"
#include "FrameSource.h"
#include "harn5/TestResult.h"
#include "ksx/String.h"
#include "ksxui/CAutoTimer.h"
#include "ksxui/KSXDialog.h"
#include "quality/MicrosecondClock.h"
#include "touchq/PngWriter.h"
#include "touchq/TouchpadAnalysis.h"

class CTouchpadQualityDlg : public KSXDialog {
public:
    CTouchpadQualityDlg(const rawkit::TouchLayout& layout, FrameSource::Factory source,
                        const touchq::TouchpadAnalysis::Settings& settings);
    ~CTouchpadQualityDlg() override;

    // CANNOTRUN until Pass, Fail or Close decides.
    harn5::TestResult m_result;
    // At a Fail, what the checks found and what the pad never managed; the figures for the
    // report; the coverage map as it ended, for the report's picture.
    std::vector<touchq::TouchpadAnalysis::Finding> m_findings;
    std::vector<touchq::TouchpadAnalysis::Measurement> m_measurements;
    touchq::IndexedImage m_picture;

protected:
    BOOL OnInitDialog() override;
    // Close, Esc and a stop request: USERABORTED.
    void OnCancel() override;

    afx_msg void OnDestroy();
    // WM_TIMER: the map and the figures follow the frames and the countdown, at most at the
    // display's pace; a touchpad gone ends the test with FAIL.
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg void OnBnClickedHandsOff();
    afx_msg void OnBnClickedPass();
    afx_msg void OnBnClickedFail();

    DECLARE_MESSAGE_MAP()

private:
    void onFrame(const rawkit::TouchFrame& frame);
    void refresh();
    void showFigures();
    void showHandsOff(std::int64_t now);
    void showStatus(std::int64_t now);
    void setTexts();
    void setItemText(int nID, const ksx::String& text);
    void finish(const harn5::TestResult& verdict);

    FrameSource::Factory m_startSource;
    touchq::TouchpadAnalysis m_analysis;
    std::unique_ptr<FrameSource> m_source;
    MicrosecondClock m_clock;              // the screen's pace, apart from the frames' clock
    CCoverageMapCtrl m_map;
    CAutoTimer m_refreshTimer;
    std::int64_t m_handsOffAtUs = -1;      // on the frames' clock: the period starts then, after a lead-in
    bool m_changed = true;                 // frames arrived since the last refresh
    std::int64_t m_refreshedAtUs = 0;      // the map and the figures were last set then
    std::int64_t m_framePeriodUs = 16667;  // the display's refresh period
    std::map<int, std::wstring> m_shownTexts;   // each control's text as last set
    bool m_counting = false;               // the hands-off lead-in or period was under way then
};
