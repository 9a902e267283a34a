#include "CSynapticsDlg.h"

#include "CSynapticsTouchPadCtrl.h"
#include "CSynapticsTrackpointCtrl.h"
#include "PassButtonPolicy.h"
#include "Registration.h"
#include "harn5/DiagModule.h"
#include "ksx/Log.h"
#include "ksx/OStream.h"
#include "padkit/SynapticsHelper.h"
#include "resource.h"

using harn5::DiagModule;
using harn5::TestResult;
using ksx::LoggerPriority::PRIORITY_TRACE;
using ksx::LoggerPriority::PRIORITY_WARNING;

namespace {

ksx::Logger* s_log = nullptr;  // "kstrmouse.synaptics.CSynapticsDlg"
constexpr const char* kLogger = "kstrmouse.synaptics.CSynapticsDlg";

// Source lines that log readers and hosts match on.
constexpr int kLineUnknownDevice = 84;
constexpr int kLineDevice = 88;
constexpr int kLineUpdateDataFailed = 145;
constexpr int kLineNotSupported = 170;
constexpr int kLineTestFailed = 333;
constexpr int kLineResume = 359;
constexpr int kLineReacquireFailed = 361;
constexpr int kLineDeviceRemoved = 380;

constexpr int kLineWaitingForDevice = 382;
constexpr int kLineDeviceBack = 384;

constexpr UINT_PTR kStatusTimer = 1;
constexpr UINT kStatusPeriodMs = 200;
constexpr UINT_PTR kReturnTimer = 2;
constexpr UINT kReturnPeriodMs = 500;
constexpr int kControlWidth = 300;
constexpr int kControlHeight = 200;

ksx::String textOf(const harn5::LocalizedString* key)
{
    return key->localizedString().ksxString();
}

ksx::String label(const harn5::LocalizedString* key)
{
    return textOf(key).append(":");
}

// The text of a value row: the number while a finger is there, else nothing.
ksx::String number(bool bShown, int value)
{
    return bShown ? ksx::SprintfFormat("%d", value) : ksx::String();
}

}  // namespace

BEGIN_MESSAGE_MAP(CSynapticsDlg, KSXDialog)
    ON_WM_CREATE()
    ON_WM_DESTROY()
    ON_WM_TIMER()
    ON_BN_CLICKED(IDC_SYN_PASS, &CSynapticsDlg::OnBnClickedPass)
    ON_BN_CLICKED(IDC_SYN_FAIL, &CSynapticsDlg::OnBnClickedFail)
    ON_MESSAGE(WM_SYN_PACKET, &CSynapticsDlg::OnSynPacket)
    ON_MESSAGE(WM_SYN_DEVICE_REMOVED, &CSynapticsDlg::OnSynDeviceRemoved)
END_MESSAGE_MAP()

CSynapticsDlg::CSynapticsDlg(long synHandle, bool bThreeButtonDisplay)
    : KSXDialog(IDD_SYNAPTICS_DIALOG, nullptr),
      m_result(TestResult::CANNOTRUN()),
      m_synCtrlType(SynapticsHelper::getDeviceType(synHandle)),
      m_pSynCtrl(nullptr),
      m_hIcon(nullptr),
      m_bThreeButtonDisplay(bThreeButtonDisplay)
{
    switch (m_synCtrlType) {
    case SynDeviceUnknown:
        KSX_LOG(s_log, kLogger, PRIORITY_WARNING, kLineUnknownDevice, "Synaptics dialog found an unknown device.");
        break;
    case SynDeviceTouchPad: {
        auto control = std::make_unique<CSynapticsTouchPadCtrl>(synHandle, m_bThreeButtonDisplay);
        m_pSynCtrl = control.get();
        m_pSynCtrlWnd = std::move(control);
        m_hIcon = ::LoadIconW(AfxGetResourceHandle(), MAKEINTRESOURCEW(IDI_TOUCHPAD));
        break;
    }
    case SynDeviceTrackpoint: {
        auto control = std::make_unique<CSynapticsTrackpointCtrl>(synHandle, m_bThreeButtonDisplay);
        m_pSynCtrl = control.get();
        m_pSynCtrlWnd = std::move(control);
        m_hIcon = ::LoadIconW(AfxGetResourceHandle(), MAKEINTRESOURCEW(IDI_TRACKPOINT));
        break;
    }
    default:
        break;
    }
    KSX_LOG(s_log, kLogger, PRIORITY_TRACE, kLineDevice,
            "Synaptics device with synHandle==" + synHandle + " and m_synCtrlType==" +
                static_cast<int>(m_synCtrlType));
}

CSynapticsDlg::~CSynapticsDlg() = default;

void CSynapticsDlg::DoDataExchange(CDataExchange* pDX)
{
    KSXDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_SYN_INSTRUCTIONS, m_instructions);
}

LRESULT CSynapticsDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_POWERBROADCAST) {
        const auto now = static_cast<std::int64_t>(::GetTickCount64());
        if (wParam == PBT_APMSUSPEND) {
            m_removal.onSuspend(now);
        } else if (wParam == PBT_APMRESUMEAUTOMATIC || wParam == PBT_APMRESUMESUSPEND) {
            m_removal.onResume(now);
        }
    }
    if (message == WM_POWERBROADCAST && wParam == PBT_APMRESUMESUSPEND && m_pSynCtrl != nullptr) {
        KSX_LOG(s_log, kLogger, PRIORITY_TRACE, kLineResume, "Returning from sleep, reaquiring the device.");
        if (!m_pSynCtrl->reaquireDevice()) {
            KSX_LOG(s_log, kLogger, PRIORITY_TRACE, kLineReacquireFailed, "Failed to reaquire the device.");
        } else if (m_removal.waiting()) {
            deviceCameBack();
        }
    }
    return KSXDialog::WindowProc(message, wParam, lParam);
}

BOOL CSynapticsDlg::OnInitDialog()
{
    KSXDialog::OnInitDialog();
    if (m_hIcon != nullptr) {
        SetIcon(m_hIcon, TRUE);
        SetIcon(m_hIcon, FALSE);
    }
    if (!UpdateData(FALSE)) {
        KSX_LOG(s_log, kLogger, PRIORITY_WARNING, kLineUpdateDataFailed, "Failed to initialize dialog controls.");
        CDialog::OnOK();
    }
    placeDeviceControl();
    if (m_synCtrlType != SynDeviceTouchPad && m_synCtrlType != SynDeviceTrackpoint) {
        KSX_LOG(s_log, kLogger, PRIORITY_WARNING, kLineNotSupported, "Synaptics device type is not supported.");
        CDialog::OnOK();
    }
    if (getPassButtonPolicy() != Enabled) {
        GetDlgItem(IDC_SYN_PASS)->EnableWindow(FALSE);
    }
    setTexts();
    return TRUE;
}

void CSynapticsDlg::placeDeviceControl()
{
    CRect instructions;
    GetDlgItem(IDC_SYN_GROUP_INSTRUCTIONS)->GetWindowRect(&instructions);
    ScreenToClient(&instructions);
    CRect status;
    GetDlgItem(IDC_SYN_GROUP_STATUS)->GetWindowRect(&status);
    ScreenToClient(&status);
    const CRect place(instructions.left, status.top, instructions.left + kControlWidth, status.top + kControlHeight);
    if (m_pSynCtrlWnd != nullptr) {
        // Not checked: a device that cannot start refuses its window, and the dialog runs on.
        m_pSynCtrlWnd->Create(L"STATIC", L"", WS_CHILD | WS_VISIBLE, place, this, IDC_SYN_DEVICE);
    }
}

void CSynapticsDlg::setItemText(int nID, const ksx::String& text)
{
    ::SetDlgItemTextW(m_hWnd, nID, reinterpret_cast<const wchar_t*>(text.getUCS2Buffer()));
}

void CSynapticsDlg::showButtonRows(bool bShow)
{
    for (const int nID : {IDC_SYN_ROW4_LABEL, IDC_SYN_ROW5_LABEL, IDC_SYN_ROW4_VALUE, IDC_SYN_ROW5_VALUE}) {
        GetDlgItem(nID)->ShowWindow(bShow ? SW_SHOW : SW_HIDE);
    }
}

void CSynapticsDlg::setTexts()
{
    using namespace kstrmouse::texts;
    const harn5::HarnString& title = DiagModule::getCurrentTest().localizedName();
    ::SetWindowTextW(m_hWnd, reinterpret_cast<const wchar_t*>(title.getUCS2Buffer()));
    setItemText(IDC_SYN_X_LABEL, label(SynXCoordinate));
    setItemText(IDC_SYN_Y_LABEL, label(SynYCoordinate));

    ksx::String body;
    if (m_synCtrlType == SynDeviceTouchPad) {
        setItemText(IDC_SYN_ROW3_LABEL, label(SynWidth));
        if (m_bThreeButtonDisplay) {
            setItemText(IDC_SYN_ROW4_LABEL, label(SynLButtonPressed));
            setItemText(IDC_SYN_ROW5_LABEL, label(SynRButtonPressed));
        } else {
            showButtonRows(false);
        }
        body = textOf(TouchpadInstructions);
    } else if (m_synCtrlType == SynDeviceTrackpoint) {
        if (m_bThreeButtonDisplay) {
            // A stick has no width: row 3 carries the left button, rows 4 and 5 the others.
            setItemText(IDC_SYN_ROW3_LABEL, label(SynLButtonPressed));
            setItemText(IDC_SYN_ROW4_LABEL, label(SynMButtonPressed));
            setItemText(IDC_SYN_ROW5_LABEL, label(SynRButtonPressed));
            body = textOf(TrackpointInstructions).append("  ").append(textOf(SynButtonInstructions));
        } else {
            showButtonRows(false);
            // Row 3 is the left button's too: a stick without its buttons shows no row of them.
            for (const int nID : {IDC_SYN_ROW3_LABEL, IDC_SYN_ROW3_VALUE}) {
                GetDlgItem(nID)->ShowWindow(SW_HIDE);
            }
            body = textOf(TrackpointInstructions);
        }
    }
    body.append("\r\n\r\n").append(textOf(MsgMousePassDescription)).append("\r\n").append(textOf(MsgMouseFailDescription));
    m_instructions.SetWindowText(reinterpret_cast<const wchar_t*>(body.getUCS2Buffer()));

    setItemText(IDCANCEL, textOf(MsgMouseButtonLabelClose));
    setItemText(IDC_SYN_PASS, textOf(MsgMouseButtonLabelPass));
    setItemText(IDC_SYN_FAIL, textOf(MsgMouseButtonLabelFail));
    setItemText(IDC_SYN_GROUP_INSTRUCTIONS, textOf(MsgMouseGroupBoxInstructions));
    setItemText(IDC_SYN_GROUP_STATUS, textOf(SynDeviceStatus));
}

int CSynapticsDlg::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    m_statusTimer.SetAsWindowTimer(m_hWnd, kStatusTimer, kStatusPeriodMs);
    return KSXDialog::OnCreate(lpCreateStruct);
}

void CSynapticsDlg::OnDestroy()
{
    m_statusTimer.Kill();
    m_returnTimer.Kill();
    if (m_pSynCtrlWnd != nullptr) {
        m_pSynCtrlWnd->DestroyWindow();
    }
    KSXDialog::OnDestroy();
}

void CSynapticsDlg::OnTimer(UINT_PTR nIDEvent)
{
    if (nIDEvent == kReturnTimer) {
        tryDeviceAgain();
        return;
    }
    if (nIDEvent != kStatusTimer || m_pSynCtrl == nullptr) {
        KSXDialog::OnTimer(nIDEvent);
        return;
    }
    const ksx::String yes = textOf(kstrmouse::texts::Yes);
    const ksx::String no = textOf(kstrmouse::texts::No);
    const auto yesNo = [&yes, &no](bool bPressed) { return bPressed ? yes : no; };
    setItemText(IDC_SYN_X_VALUE, number(m_pSynCtrl->isFingerPresent(), m_pSynCtrl->getX()));
    setItemText(IDC_SYN_Y_VALUE, number(m_pSynCtrl->isFingerPresent(), m_pSynCtrl->getY()));
    const ksx::String width = number(m_pSynCtrl->isFingerPresent(), m_pSynCtrl->getWidth());
    // Hidden rows are written all the same.
    if (m_synCtrlType == SynDeviceTouchPad) {
        setItemText(IDC_SYN_ROW3_VALUE, width);
        setItemText(IDC_SYN_ROW4_VALUE, yesNo(m_pSynCtrl->leftButtonPressed()));
        setItemText(IDC_SYN_ROW5_VALUE, yesNo(m_pSynCtrl->rightButtonPressed()));
    } else if (m_synCtrlType == SynDeviceTrackpoint) {
        setItemText(IDC_SYN_ROW3_VALUE, yesNo(m_pSynCtrl->leftButtonPressed()));
        setItemText(IDC_SYN_ROW4_VALUE, yesNo(m_pSynCtrl->middleButtonPressed()));
        setItemText(IDC_SYN_ROW5_VALUE, yesNo(m_pSynCtrl->rightButtonPressed()));
    }
    KSXDialog::OnTimer(nIDEvent);
}

void CSynapticsDlg::OnBnClickedPass()
{
    m_result = TestResult::PASS();
    EndDialog(IDOK);
}

void CSynapticsDlg::OnBnClickedFail()
{
    DiagModule::error(kstrmouse::events::TestFailedTouchPadOrTrackpoint, "CSynapticsDlg", kLineTestFailed);
    m_result = TestResult::FAIL();
    EndDialog(IDOK);
}

void CSynapticsDlg::OnCancel()
{
    m_result = TestResult::USERABORTED();
    KSXDialog::OnCancel();
}

LRESULT CSynapticsDlg::OnSynPacket(WPARAM, LPARAM)
{
    if (m_removal.waiting()) {
        return 0;   // Pass stays out of reach until the device is back
    }
    const PassButtonPolicy policy = getPassButtonPolicy();
    if (policy == DisabledUntilFinished) {
        if (m_pSynCtrl != nullptr && m_pSynCtrl->isTestComplete()) {
            GetDlgItem(IDC_SYN_PASS)->EnableWindow(TRUE);
        }
    } else if (policy == DisabledUntilStarted) {
        GetDlgItem(IDC_SYN_PASS)->EnableWindow(TRUE);
    }
    return 0;
}

LRESULT CSynapticsDlg::OnSynDeviceRemoved(WPARAM, LPARAM)
{
    if (m_removal.removalStands(static_cast<std::int64_t>(::GetTickCount64()))) {
        endWithRemovedDevice();
        return 0;
    }
    if (m_returnTimer.GetId() == 0) {
        KSX_LOG(s_log, kLogger, PRIORITY_WARNING, kLineWaitingForDevice,
                "The device went away as the machine slept or woke: waiting for it to come back.");
        // Nothing passes while the device is away.
        CWnd* pass = GetDlgItem(IDC_SYN_PASS);
        m_bPassWasEnabled = pass->IsWindowEnabled() != FALSE;
        pass->EnableWindow(FALSE);
        m_returnTimer.SetAsWindowTimer(m_hWnd, kReturnTimer, kReturnPeriodMs);
    }
    return 0;
}

void CSynapticsDlg::tryDeviceAgain()
{
    if (m_pSynCtrl != nullptr && m_pSynCtrl->reaquireDevice()) {
        deviceCameBack();
    } else if (m_removal.waitOver(static_cast<std::int64_t>(::GetTickCount64()))) {
        m_returnTimer.Kill();
        endWithRemovedDevice();
    }
}

void CSynapticsDlg::deviceCameBack()
{
    KSX_LOG(s_log, kLogger, PRIORITY_WARNING, kLineDeviceBack, "The device is back: the test goes on.");
    m_removal.cameBack();
    m_returnTimer.Kill();
    if (m_bPassWasEnabled) {
        GetDlgItem(IDC_SYN_PASS)->EnableWindow(TRUE);
    }
}

void CSynapticsDlg::endWithRemovedDevice()
{
    const char* what = m_synCtrlType == SynDeviceTrackpoint ? "pointing stick" : "touchpad";
    KSX_LOG(s_log, kLogger, PRIORITY_WARNING, kLineDeviceRemoved,
            ksx::String("The ") + what + " under test was removed.");
    ksx::cerr << "The " << what << " under test was removed or stopped answering: the test ends with FAIL."
              << ksx::endl;
    DiagModule::error(kstrmouse::events::TOUCH_DEVICE_REMOVED, "CSynapticsDlg", kLineDeviceRemoved);
    m_result = TestResult::FAIL();
    EndDialog(IDABORT);
}
