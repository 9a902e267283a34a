#include "CPointerQualityDlg.h"

#include <cstdio>

#include "Registration.h"
#include "harn5/DiagModule.h"
#include "rawkit/HidUsages.h"
#include "resource.h"

using harn5::TestResult;
using pointerq::ButtonChatter;
using pointerq::QualityAnalysis;

namespace {

constexpr UINT_PTR kRefreshTimer = 1;
constexpr UINT kRefreshMs = 16;                      // about the display's rate
constexpr std::int64_t kHandsOffLeadInUs = 1000000;  // time to take the hand off after the click

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

CPointerQualityDlg::CPointerQualityDlg(std::uintptr_t device, const QualityAnalysis::Settings& settings)
    : KSXDialog(IDD_POINTER_QUALITY, nullptr), m_result(TestResult::CANNOTRUN()), m_device(device), m_analysis(settings)
{
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    m_frequency = frequency.QuadPart;
}

CPointerQualityDlg::~CPointerQualityDlg() = default;

std::int64_t CPointerQualityDlg::nowUs() const
{
    LARGE_INTEGER counter;
    QueryPerformanceCounter(&counter);
    return counter.QuadPart / m_frequency * 1000000 + counter.QuadPart % m_frequency * 1000000 / m_frequency;
}

BOOL CPointerQualityDlg::OnInitDialog()
{
    KSXDialog::OnInitDialog();
    CRect place;
    CWnd* frame = GetDlgItem(IDC_PQ_HISTOGRAM);
    frame->GetWindowRect(&place);
    ScreenToClient(&place);
    frame->ShowWindow(SW_HIDE);
    m_histogram.Create(L"STATIC", L"", WS_CHILD | WS_VISIBLE | WS_BORDER, place, this, IDC_PQ_HISTOGRAM + 1);
    rawkit::RawInputReceiver::Handlers handlers;
    handlers.input = [this](const RAWINPUT& input) { onInput(input); };
    m_receiver = rawkit::RawInputReceiver::start(rawkit::hid::kGenericDesktop, rawkit::hid::kMouse, std::move(handlers));
    GetDlgItem(IDC_PQ_PASS)->EnableWindow(FALSE);
    setTexts();
    refresh();
    m_refreshTimer.SetAsWindowTimer(this, kRefreshTimer, kRefreshMs);
    return TRUE;
}

void CPointerQualityDlg::OnDestroy()
{
    m_refreshTimer.Kill();
    m_receiver.reset();
    if (m_histogram.m_hWnd != nullptr) {
        m_histogram.DestroyWindow();
    }
    KSXDialog::OnDestroy();
}

void CPointerQualityDlg::onInput(const RAWINPUT& input)
{
    if (input.header.dwType != RIM_TYPEMOUSE || reinterpret_cast<std::uintptr_t>(input.header.hDevice) != m_device) {
        return;   // another device's report does not count
    }
    const RAWMOUSE& mouse = input.data.mouse;
    pointerq::TimedReport report;
    report.timeUs = nowUs();
    // An absolute position (a tablet, a remote session) is no movement of this device.
    if ((mouse.usFlags & MOUSE_MOVE_ABSOLUTE) == 0) {
        report.mouse.dx = mouse.lLastX;
        report.mouse.dy = mouse.lLastY;
    }
    report.mouse.buttonFlags = mouse.usButtonFlags;
    if ((mouse.usButtonFlags & RI_MOUSE_WHEEL) != 0) {
        report.mouse.wheel = static_cast<std::int16_t>(mouse.usButtonData);
    }
    if ((mouse.usButtonFlags & RI_MOUSE_HWHEEL) != 0) {
        report.mouse.hwheel = static_cast<std::int16_t>(mouse.usButtonData);
    }
    m_analysis.add(report);
    m_changed = true;
}

void CPointerQualityDlg::OnTimer(UINT_PTR nIDEvent)
{
    if (nIDEvent == kRefreshTimer) {
        const std::int64_t now = nowUs();
        if (m_handsOffAtUs >= 0 && now >= m_handsOffAtUs) {
            m_analysis.startIdle(m_handsOffAtUs);
            m_handsOffAtUs = -1;
        }
        // The countdown ticks even without reports, and its end shows once it has ended.
        if (m_changed || m_counting) {
            refresh();
        }
    }
    KSXDialog::OnTimer(nIDEvent);
}

void CPointerQualityDlg::setItemText(int nID, const ksx::String& text)
{
    ::SetDlgItemTextW(m_hWnd, nID, reinterpret_cast<const wchar_t*>(text.getUCS2Buffer()));
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
    const std::int64_t now = nowUs();
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
    GetDlgItem(IDC_PQ_PASS)->EnableWindow(findings.empty() && m_analysis.complete(now));
}

void CPointerQualityDlg::OnBnClickedHandsOff()
{
    if (m_counting) {
        return;   // one hands-off period at a time
    }
    m_handsOffAtUs = nowUs() + kHandsOffLeadInUs;
    refresh();
}

void CPointerQualityDlg::finish(const TestResult& verdict)
{
    const std::int64_t now = nowUs();
    m_findings = m_analysis.findings(now);
    m_measurements = m_analysis.measurements();
    m_result = verdict;
}

void CPointerQualityDlg::OnBnClickedPass()
{
    // Pass is enabled only while nothing was found; a report arriving since may have changed that.
    finish(m_analysis.findings(nowUs()).empty() ? TestResult::PASS() : TestResult::FAIL());
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
