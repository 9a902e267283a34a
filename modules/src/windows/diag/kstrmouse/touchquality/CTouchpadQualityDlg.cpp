#include "CTouchpadQualityDlg.h"

#include <cstdio>
#include <string>

#include "Registration.h"
#include "harn5/DiagModule.h"
#include "ksx/OStream.h"
#include "quality/DisplayRate.h"
#include "resource.h"
#include "touchq/CoverageRaster.h"

using harn5::TestResult;
using touchq::ReportRate;
using touchq::TouchpadAnalysis;

namespace {

constexpr UINT_PTR kRefreshTimer = 1;
constexpr std::int64_t kHandsOffLeadInUs = 1000000;  // time to take the hand off after the click

// The display's refresh period, rounded up: the map and the figures never change faster than
// the screen can show them, however fast the frames come.
UINT framePeriodMs()
{
    const int hz = DisplayRate::hz();
    return static_cast<UINT>((1000 + hz - 1) / hz);
}

ksx::String textOf(const harn5::LocalizedString* key)
{
    return key->localizedString().ksxString();
}

template <typename... Args>
ksx::String format(const char* pattern, Args... args)
{
    char text[96];
    std::snprintf(text, sizeof text, pattern, args...);
    return ksx::String(text);
}

ksx::String yesNo(bool yes)
{
    return textOf(yes ? kstrmouse::texts::Yes : kstrmouse::texts::No);
}

}  // namespace

BEGIN_MESSAGE_MAP(CTouchpadQualityDlg, KSXDialog)
    ON_WM_DESTROY()
    ON_WM_TIMER()
    ON_BN_CLICKED(IDC_TQ_HANDS_OFF, &CTouchpadQualityDlg::OnBnClickedHandsOff)
    ON_BN_CLICKED(IDC_TQ_PASS, &CTouchpadQualityDlg::OnBnClickedPass)
    ON_BN_CLICKED(IDC_TQ_FAIL, &CTouchpadQualityDlg::OnBnClickedFail)
END_MESSAGE_MAP()

CTouchpadQualityDlg::CTouchpadQualityDlg(const rawkit::TouchLayout& layout, FrameSource::Factory source,
                                         const TouchpadAnalysis::Settings& settings)
    : KSXDialog(IDD_TOUCHPAD_QUALITY, nullptr),
      m_result(TestResult::CANNOTRUN()),
      m_startSource(std::move(source)),
      m_analysis(layout, settings)
{
}

CTouchpadQualityDlg::~CTouchpadQualityDlg() = default;

BOOL CTouchpadQualityDlg::OnInitDialog()
{
    KSXDialog::OnInitDialog();
    CRect place;
    CWnd* frame = GetDlgItem(IDC_TQ_MAP);
    frame->GetWindowRect(&place);
    ScreenToClient(&place);
    frame->ShowWindow(SW_HIDE);
    m_map.Create(L"STATIC", L"", WS_CHILD | WS_VISIBLE, place, this, IDC_TQ_MAP + 1);
    m_source = m_startSource([this](const rawkit::TouchFrame& touchFrame) { onFrame(touchFrame); });
    if (m_source == nullptr) {
        ksx::cerr << "TouchpadQualityTest: the touchpad's frames cannot be received (error "
                  << std::to_string(::GetLastError()).c_str() << ")" << ksx::endl;
        EndDialog(IDCANCEL);   // the verdict stays CANNOTRUN
        return TRUE;
    }
    GetDlgItem(IDC_TQ_PASS)->EnableWindow(FALSE);
    setTexts();
    refresh();
    const UINT periodMs = framePeriodMs();
    m_framePeriodUs = std::int64_t{periodMs} * 1000;
    m_refreshTimer.SetAsWindowTimer(this, kRefreshTimer, periodMs);
    return TRUE;
}

void CTouchpadQualityDlg::OnDestroy()
{
    m_refreshTimer.Kill();
    m_source.reset();
    if (m_map.m_hWnd != nullptr) {
        m_map.DestroyWindow();
    }
    KSXDialog::OnDestroy();
}

void CTouchpadQualityDlg::onFrame(const rawkit::TouchFrame& frame)
{
    m_analysis.add(frame);
    m_changed = true;
    // Timers come only once the queue is empty: a pad that keeps it full must not freeze the
    // map, so a frame refreshes it too once a display frame has passed.
    if (m_clock.nowUs() - m_refreshedAtUs >= m_framePeriodUs) {
        refresh();
    }
}

void CTouchpadQualityDlg::OnTimer(UINT_PTR nIDEvent)
{
    if (nIDEvent == kRefreshTimer && m_source != nullptr && m_source->gone()) {
        // What was found so far is reported; the checks left undone are not the pad's fault.
        ksx::cerr << "The touchpad under test was removed or stopped answering: the test ends with FAIL." << ksx::endl;
        m_refreshTimer.Kill();
        finish(TestResult::FAIL());
        m_findings = m_analysis.findings(m_source->nowUs());
        EndDialog(IDABORT);
    } else if (nIDEvent == kRefreshTimer && m_source != nullptr) {
        const std::int64_t now = m_source->nowUs();
        if (m_handsOffAtUs >= 0 && now >= m_handsOffAtUs) {
            m_analysis.startIdle(m_handsOffAtUs);
            m_handsOffAtUs = -1;
        }
        // The countdown ticks even without frames, and its end shows once it has ended.
        if ((m_changed || m_counting) && m_clock.nowUs() - m_refreshedAtUs >= m_framePeriodUs) {
            refresh();
        }
    }
    KSXDialog::OnTimer(nIDEvent);
}

void CTouchpadQualityDlg::setItemText(int nID, const ksx::String& text)
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

void CTouchpadQualityDlg::setTexts()
{
    using namespace kstrmouse::texts;
    const harn5::HarnString& title = harn5::DiagModule::getCurrentTest().localizedName();
    ::SetWindowTextW(m_hWnd, reinterpret_cast<const wchar_t*>(title.getUCS2Buffer()));
    setItemText(IDC_TQ_GROUP_INSTRUCTIONS, textOf(MsgMouseGroupBoxInstructions));
    setItemText(IDC_TQ_INSTRUCTIONS, textOf(TqInstructions));
    setItemText(IDC_TQ_GROUP_COVERAGE, textOf(TqGroupCoverage));
    setItemText(IDC_TQ_GROUP_FIGURES, textOf(TqGroupFigures));
    setItemText(IDC_TQ_GROUP_IDLE, textOf(PqGroupIdle));
    setItemText(IDC_TQ_HANDS_OFF, textOf(PqButtonHandsOff));
    setItemText(IDC_TQ_PASS, textOf(MsgMouseButtonLabelPass));
    setItemText(IDC_TQ_FAIL, textOf(MsgMouseButtonLabelFail));
    setItemText(IDCANCEL, textOf(MsgMouseButtonLabelClose));
}

void CTouchpadQualityDlg::refresh()
{
    m_changed = false;
    m_refreshedAtUs = m_clock.nowUs();
    const std::int64_t now = m_source->nowUs();
    std::vector<touchq::CoverageRaster::Spot> fingers;
    for (const rawkit::ContactTracker::Finger& finger : m_analysis.tracker().fingers()) {
        fingers.push_back({finger.contact.x, finger.contact.y});
    }
    m_map.show(m_analysis.coverage(), fingers);
    showFigures();
    showHandsOff(now);
    showStatus(now);
}

void CTouchpadQualityDlg::showFigures()
{
    using namespace kstrmouse::texts;
    const touchq::CoverageMap& coverage = m_analysis.coverage();
    const unsigned left = coverage.totalCells() - coverage.coveredCells();
    setItemText(IDC_TQ_CELLS, left == 0 ? textOf(TqCellsDone)
                                        : textOf(TqCellsToDo) + format(" %u / %u", left, coverage.totalCells()));
    setItemText(IDC_TQ_FINGERS, textOf(TqFingers) + format(" %u   ", m_analysis.contacts().now()) + textOf(TqMostAtOnce) +
                                    format(" %u   ", m_analysis.contacts().most()) + textOf(TqPalmFrames) +
                                    format(" %lu", m_analysis.tracker().palmFrames()));

    const touchq::RestingFinger& rest = m_analysis.rest();
    ksx::String restText = textOf(TqRest) + " ";
    if (!rest.measurable()) {
        restText += textOf(TqUnknown);
    } else if (const std::int64_t held = rest.restingUs(m_source->nowUs()); held > 0) {
        restText += textOf(TqRestHolding) + format(" %.1f s", static_cast<double>(held) / 1e6);
    } else if (rest.jitterMicrons()) {
        restText += format("%.0f \xC2\xB5m", *rest.jitterMicrons());
    } else {
        restText += "-";
    }
    setItemText(IDC_TQ_REST, restText);

    const touchq::ReportRate& rate = m_analysis.rate();
    for (const auto& [kind, id, key] : {std::tuple{ReportRate::One, IDC_TQ_RATE_ONE, TqRateOne},
                                        std::tuple{ReportRate::Several, IDC_TQ_RATE_SEVERAL, TqRateSeveral}}) {
        ksx::String line = textOf(key) + " ";
        if (const std::optional<double> hz = rate.rateHz(kind)) {
            line += format("%.0f Hz   median %.1f ms   1%%: %.1f   99%%: %.1f", *hz, *rate.percentileUs(kind, 0.5) / 1000.0,
                           *rate.percentileUs(kind, 0.01) / 1000.0, *rate.percentileUs(kind, 0.99) / 1000.0);
        } else {
            line += "-";
        }
        setItemText(id, line);
    }

    const touchq::PadClicks& clicks = m_analysis.clicks();
    setItemText(IDC_TQ_CLICKS, clicks.separateButtons()
                                   ? textOf(TqClicks) + " " + textOf(TqButton1) + ": " + yesNo(clicks.clicks() > 0) +
                                         "   " + textOf(TqButton2) + ": " + yesNo(clicks.secondButtonClicked())
                                   : textOf(TqClicks) + " " + textOf(TqLeftHalf) + ": " + yesNo(clicks.leftHalfClicked()) +
                                         "   " + textOf(TqRightHalf) + ": " + yesNo(clicks.rightHalfClicked()));

    const touchq::Resolution& resolution = m_analysis.resolution();
    setItemText(IDC_TQ_RESOLUTION, textOf(TqResolution) + " " +
                                       (resolution.known() ? format("%.0f x %.0f dpi", *resolution.dpiX(), *resolution.dpiY())
                                                           : textOf(TqUnknown)));
    const rawkit::TouchLayout& layout = m_analysis.layout();
    setItemText(IDC_TQ_SIZE, textOf(TqPadSize) + " " +
                                 (layout.widthMm && layout.heightMm ? format("%.1f x %.1f mm", *layout.widthMm, *layout.heightMm)
                                                                    : textOf(TqUnknown)) +
                                 format("   %u x %u", coverage.columns(), coverage.rows()));
}

void CTouchpadQualityDlg::showHandsOff(std::int64_t now)
{
    using namespace kstrmouse::texts;
    const touchq::HandsOff& idle = m_analysis.idle();
    ksx::String text;
    if (m_handsOffAtUs >= 0) {
        text = textOf(PqIdleLeadIn);
    } else if (idle.running(now)) {
        text = textOf(PqIdleRunning) + format(" %.0f s", static_cast<double>((idle.remainingUs(now) + 999999) / 1000000));
    } else if (idle.done(now)) {
        text = idle.ghosts() == 0 ? textOf(TqIdleClean) : textOf(TqIdleGhost);
    } else {
        text = textOf(PqIdleNotRun);
    }
    setItemText(IDC_TQ_IDLE, text);
    m_counting = m_handsOffAtUs >= 0 || idle.running(now);
}

void CTouchpadQualityDlg::showStatus(std::int64_t now)
{
    using namespace kstrmouse::texts;
    const std::vector<TouchpadAnalysis::Finding> findings = m_analysis.findings(now);
    ksx::String status;
    if (!findings.empty()) {
        status = textOf(PqFound);
        for (const TouchpadAnalysis::Finding& finding : findings) {
            status += ksx::String("\r\n") + finding.detail.c_str();
        }
    } else if (m_analysis.complete(now)) {
        status = textOf(PqAllDone);
    } else {
        status = textOf(PqStillToDo);
        for (int check = 0; check < TouchpadAnalysis::CheckCount; ++check) {
            const auto which = static_cast<TouchpadAnalysis::Check>(check);
            if (!m_analysis.settings().required[check] || m_analysis.ran(which, now)) {
                continue;
            }
            ksx::String line;
            switch (which) {
            case TouchpadAnalysis::Coverage: line = textOf(TqCheckCoverage); break;
            case TouchpadAnalysis::Contacts:
                line = textOf(TqCheckContacts) + format(" %u", m_analysis.settings().minContacts);
                break;
            case TouchpadAnalysis::Jitter:
                line = textOf(m_analysis.rest().measurable() ? TqCheckJitter : TqCheckJitterUnsized);
                break;
            case TouchpadAnalysis::Rate: line = textOf(TqCheckRate); break;
            case TouchpadAnalysis::Idle: line = textOf(PqCheckIdle); break;
            case TouchpadAnalysis::Buttons:
                line = textOf(m_analysis.clicks().separateButtons() ? TqCheckButtonsSeparate : TqCheckButtons);
                break;
            case TouchpadAnalysis::Resolve: line = textOf(TqCheckResolution); break;
            case TouchpadAnalysis::CheckCount: break;
            }
            status += ksx::String("\r\n- ") + line;
        }
    }
    setItemText(IDC_TQ_STATUS, status);
    const BOOL passOpen = findings.empty() && m_analysis.complete(now) ? TRUE : FALSE;
    CWnd* pass = GetDlgItem(IDC_TQ_PASS);
    if (pass->IsWindowEnabled() != passOpen) {
        pass->EnableWindow(passOpen);
    }
}

void CTouchpadQualityDlg::OnBnClickedHandsOff()
{
    if (m_counting || m_source == nullptr) {
        return;   // one hands-off period at a time
    }
    m_handsOffAtUs = m_source->nowUs() + kHandsOffLeadInUs;
    refresh();
}

void CTouchpadQualityDlg::finish(const TestResult& verdict)
{
    const std::int64_t now = m_source != nullptr ? m_source->nowUs() : 0;
    if (verdict == TestResult::FAIL()) {
        m_findings = m_analysis.verdictFindings(now);
    }
    m_measurements = m_analysis.measurements(m_source != nullptr ? m_source->malformedFrames() : 0);
    m_picture = touchq::CoverageRaster::picture(m_analysis.coverage());
    m_result = verdict;
}

void CTouchpadQualityDlg::OnBnClickedPass()
{
    // Pass is enabled only while every check ran and nothing was found; a frame arriving since
    // may have changed that.
    const std::int64_t now = m_source->nowUs();
    finish(m_analysis.findings(now).empty() && m_analysis.complete(now) ? TestResult::PASS() : TestResult::FAIL());
    EndDialog(IDOK);
}

void CTouchpadQualityDlg::OnBnClickedFail()
{
    finish(TestResult::FAIL());
    EndDialog(IDOK);
}

void CTouchpadQualityDlg::OnCancel()
{
    finish(TestResult::USERABORTED());
    KSXDialog::OnCancel();
}
