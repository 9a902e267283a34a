#include "CPointerQualityDlg.h"

#include <cstdio>
#include <string>

#include "DisplayRate.h"
#include "Registration.h"
#include "harn5/DiagModule.h"
#include "ksx/OStream.h"
#include "resource.h"

using harn5::TestResult;
using pointerq::ButtonChatter;
using pointerq::QualityAnalysis;

namespace {

constexpr UINT_PTR kRefreshTimer = 1;
constexpr std::int64_t kHandsOffLeadInUs = 1000000;  // time to take the hand off after the click

// The display's refresh period, rounded up: the figures and the chart never change faster than
// the screen can show them, however fast the reports come.
UINT framePeriodMs()
{
    const int hz = DisplayRate::hz();
    return static_cast<UINT>((1000 + hz - 1) / hz);
}

ksx::String textOf(const harn5::LocalizedString* key)
{
    return key->localizedString().ksxString();
}

ksx::String format(const char* pattern, double value)
{
    char text[64];
    std::snprintf(text, sizeof text, pattern, value);
    return ksx::String(text);
}

}  // namespace

BEGIN_MESSAGE_MAP(CPointerQualityDlg, KSXDialog)
    ON_WM_DESTROY()
    ON_WM_TIMER()
    ON_BN_CLICKED(IDC_PQ_HANDS_OFF, &CPointerQualityDlg::OnBnClickedHandsOff)
    ON_BN_CLICKED(IDC_PQ_PASS, &CPointerQualityDlg::OnBnClickedPass)
    ON_BN_CLICKED(IDC_PQ_FAIL, &CPointerQualityDlg::OnBnClickedFail)
END_MESSAGE_MAP()

CPointerQualityDlg::CPointerQualityDlg(ReportSource::Factory source, const QualityAnalysis::Settings& settings)
    : KSXDialog(IDD_POINTER_QUALITY, nullptr),
      m_result(TestResult::CANNOTRUN()),
      m_startSource(std::move(source)),
      m_analysis(settings)
{
}

CPointerQualityDlg::~CPointerQualityDlg() = default;

BOOL CPointerQualityDlg::OnInitDialog()
{
    KSXDialog::OnInitDialog();
    CRect place;
    CWnd* frame = GetDlgItem(IDC_PQ_HISTOGRAM);
    frame->GetWindowRect(&place);
    ScreenToClient(&place);
    frame->ShowWindow(SW_HIDE);
    m_histogram.Create(L"STATIC", L"", WS_CHILD | WS_VISIBLE | WS_BORDER, place, this, IDC_PQ_HISTOGRAM + 1);
    m_source = m_startSource([this](const pointerq::TimedReport& report) { onReport(report); });
    if (m_source == nullptr) {
        ksx::cerr << "PointerQualityTest: the device's reports cannot be received (error "
                  << std::to_string(::GetLastError()).c_str() << ")" << ksx::endl;
        EndDialog(IDCANCEL);   // the verdict stays CANNOTRUN
        return TRUE;
    }
    GetDlgItem(IDC_PQ_PASS)->EnableWindow(FALSE);
    setTexts();
    refresh();
    const UINT periodMs = framePeriodMs();
    m_framePeriodUs = std::int64_t{periodMs} * 1000;
    m_refreshTimer.SetAsWindowTimer(this, kRefreshTimer, periodMs);
    return TRUE;
}

void CPointerQualityDlg::OnDestroy()
{
    m_refreshTimer.Kill();
    m_source.reset();
    if (m_histogram.m_hWnd != nullptr) {
        m_histogram.DestroyWindow();
    }
    KSXDialog::OnDestroy();
}

void CPointerQualityDlg::onReport(const pointerq::TimedReport& report)
{
    m_analysis.add(report);
    m_changed = true;
    // Timers come only once the queue is empty: a device that keeps it full must not freeze the
    // figures, so a report refreshes them too once a frame has passed.
    if (m_clock.nowUs() - m_refreshedAtUs >= m_framePeriodUs) {
        refresh();
    }
}

void CPointerQualityDlg::OnTimer(UINT_PTR nIDEvent)
{
    if (nIDEvent == kRefreshTimer) {
        const std::int64_t now = m_clock.nowUs();
        if (m_handsOffAtUs >= 0 && now >= m_handsOffAtUs) {
            m_analysis.startIdle(m_handsOffAtUs);
            m_handsOffAtUs = -1;
        }
        // The countdown ticks even without reports, and its end shows once it has ended.
        if ((m_changed || m_counting) && now - m_refreshedAtUs >= m_framePeriodUs) {
            refresh();
        }
    }
    KSXDialog::OnTimer(nIDEvent);
}

void CPointerQualityDlg::setItemText(int nID, const ksx::String& text)
{
    // Only a text that changed is set: each one set repaints its control, and most stay the same
    // from one refresh to the next.
    std::wstring wide(reinterpret_cast<const wchar_t*>(text.getUCS2Buffer()));
    const auto [shown, first] = m_shownTexts.try_emplace(nID);
    if (first || wide != shown->second) {
        shown->second = std::move(wide);
        ::SetDlgItemTextW(m_hWnd, nID, shown->second.c_str());
    }
}

void CPointerQualityDlg::setTexts()
{
    using namespace kstrmouse::texts;
    const harn5::HarnString& title = harn5::DiagModule::getCurrentTest().localizedName();
    ::SetWindowTextW(m_hWnd, reinterpret_cast<const wchar_t*>(title.getUCS2Buffer()));
    setItemText(IDC_PQ_GROUP_INSTRUCTIONS, textOf(MsgMouseGroupBoxInstructions));
    setItemText(IDC_PQ_INSTRUCTIONS, textOf(PqInstructions));
    setItemText(IDC_PQ_GROUP_RATE, textOf(PqGroupRate));
    setItemText(IDC_PQ_GROUP_BUTTONS, textOf(PqGroupButtons));
    setItemText(IDC_PQ_GROUP_IDLE, textOf(PqGroupIdle));
    setItemText(IDC_PQ_HANDS_OFF, textOf(PqButtonHandsOff));
    setItemText(IDC_PQ_PASS, textOf(MsgMouseButtonLabelPass));
    setItemText(IDC_PQ_FAIL, textOf(MsgMouseButtonLabelFail));
    setItemText(IDCANCEL, textOf(MsgMouseButtonLabelClose));
}

void CPointerQualityDlg::refresh()
{
    using namespace kstrmouse::texts;
    m_changed = false;
    const std::int64_t now = m_clock.nowUs();
    m_refreshedAtUs = now;
    const pointerq::ReportRate& rate = m_analysis.rate();
    m_histogram.show(rate.histogram().columns<CIntervalHistogramCtrl::kColumns>(CIntervalHistogramCtrl::kSpanUs),
                     rate.medianUs());

    ksx::String rateText = textOf(PqRate) + " ";
    if (const std::optional<double> hz = rate.rateHz()) {
        rateText += format("%.0f Hz", *hz) + format("   median %.2f ms", *rate.medianUs() / 1000.0) +
                    format("   1%%: %.2f ms", *rate.percentileUs(0.01) / 1000.0) +
                    format("   99%%: %.2f ms", *rate.percentileUs(0.99) / 1000.0);
    } else {
        rateText += "-";
    }
    setItemText(IDC_PQ_RATE, rateText);
    setItemText(IDC_PQ_INTERVALS, textOf(PqIntervals) + format(" %.0f", static_cast<double>(rate.intervals())) +
                                      "   " + textOf(PqDropouts) + format(" %.0f", static_cast<double>(rate.dropouts())) +
                                      "   " + textOf(PqJumps) +
                                      format(" %.0f", static_cast<double>(m_analysis.jumps().jumps())));

    const harn5::LocalizedString* const names[] = {PqLeft, PqRight, PqMiddle, PqBack, PqForward};
    ksx::String buttons;
    for (int b = 0; b < ButtonChatter::ButtonCount; ++b) {
        const ButtonChatter::Counts& counts = m_analysis.buttons().counts(static_cast<ButtonChatter::Button>(b));
        buttons += textOf(names[b]) + format(": %.0f ", counts.presses) + textOf(PqPresses) +
                   format(", %.0f ", counts.chatter) + textOf(PqChatter) + "\r\n";
    }
    setItemText(IDC_PQ_BUTTONS, buttons);
    const pointerq::WheelReversal& wheel = m_analysis.wheel();
    setItemText(IDC_PQ_WHEEL, textOf(PqWheel) + format(" %.0f", wheel.notchesUp()) + format(" / %.0f   ", wheel.notchesDown()) +
                                  textOf(PqReversals) + format(" %.0f", wheel.reversals() + m_analysis.tilt().reversals()));

    const pointerq::IdleDrift& idle = m_analysis.idle();
    ksx::String idleText;
    if (m_handsOffAtUs >= 0) {
        idleText = textOf(PqIdleLeadIn);
    } else if (idle.running(now)) {
        idleText = textOf(PqIdleRunning) + format(" %.0f s", static_cast<double>((idle.remainingUs(now) + 999999) / 1000000));
    } else if (idle.done(now)) {
        idleText = idle.reports() == 0 ? textOf(PqIdleClean) : textOf(PqIdleDrift);
    } else {
        idleText = textOf(PqIdleNotRun);
    }
    setItemText(IDC_PQ_IDLE, idleText);
    m_counting = m_handsOffAtUs >= 0 || idle.running(now);

    const std::vector<QualityAnalysis::Finding> findings = m_analysis.findings(now);
    ksx::String status;
    if (!findings.empty()) {
        status = textOf(PqFound);
        for (const QualityAnalysis::Finding& finding : findings) {
            status += ksx::String("\r\n") + finding.detail.c_str();
        }
    } else if (m_analysis.complete(now)) {
        status = textOf(PqAllDone);
    } else {
        const harn5::LocalizedString* const checks[] = {PqCheckRate, PqCheckButtons, PqCheckWheel, PqCheckIdle};
        status = textOf(PqStillToDo);
        for (int check = 0; check < QualityAnalysis::CheckCount; ++check) {
            const auto which = static_cast<QualityAnalysis::Check>(check);
            if (m_analysis.settings().required[check] && !m_analysis.ran(which, now)) {
                status += ksx::String("\r\n- ") + textOf(checks[check]);
            }
        }
    }
    setItemText(IDC_PQ_STATUS, status);
    const BOOL passOpen = findings.empty() && m_analysis.complete(now) ? TRUE : FALSE;
    CWnd* pass = GetDlgItem(IDC_PQ_PASS);
    if (pass->IsWindowEnabled() != passOpen) {
        pass->EnableWindow(passOpen);
    }
}

void CPointerQualityDlg::OnBnClickedHandsOff()
{
    if (m_counting) {
        return;   // one hands-off period at a time
    }
    m_handsOffAtUs = m_clock.nowUs() + kHandsOffLeadInUs;
    refresh();
}

void CPointerQualityDlg::finish(const TestResult& verdict)
{
    const std::int64_t now = m_clock.nowUs();
    m_findings = m_analysis.findings(now);
    m_measurements = m_analysis.measurements();
    m_result = verdict;
}

void CPointerQualityDlg::OnBnClickedPass()
{
    // Pass is enabled only while nothing was found; a report arriving since may have changed that.
    finish(m_analysis.findings(m_clock.nowUs()).empty() ? TestResult::PASS() : TestResult::FAIL());
    EndDialog(IDOK);
}

void CPointerQualityDlg::OnBnClickedFail()
{
    finish(TestResult::FAIL());
    EndDialog(IDOK);
}

void CPointerQualityDlg::OnCancel()
{
    finish(TestResult::USERABORTED());
    KSXDialog::OnCancel();
}
