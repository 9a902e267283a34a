#include "KstrMouseDlg.h"

#include <memory>

#include "ChecksNotDone.h"
#include "KstrMouseMoreInfo.h"
#include "PassButtonPolicy.h"
#include "Registration.h"
#include "harn5/DiagModule.h"
#include "ksx/Log.h"
#include "ksx/OperatingSystem.h"
#include "resource.h"

using harn5::DiagModule;
using harn5::TestResult;
namespace texts = kstrmouse::texts;
namespace params = kstrmouse::params;

namespace {

ksx::Logger* s_log = nullptr;  // "kstrmouse"

constexpr const char* kSourceFile = "KstrMouseDlg";

// Source lines that log readers and hosts match on.
constexpr int kLineWindows10PEDetected = 75;
constexpr int kLineWindows10PENotDetected = 78;
constexpr int kLineOleRegistrationFailed = 173;
constexpr int kLineErrorDuringInit = 174;
constexpr int kLineUserMimicMiddleButton = 410;
constexpr int kLineTestFailed = 425;
constexpr int kLineScrollInfo = 625;
constexpr int kLineHidingScrollbar = 628;
constexpr int kLineWheelTimerKillFailed = 1012;
constexpr int kLineDropTimerKillFailed = 1023;

// One id serves the wheel timer and the drop timer; m_bWheelMoved tells which one expired.
// The wheel and the drop each have their own timer: a drop within the wheel's 100 ms would
// otherwise take the wheel's expiry and leave the filled target on screen.
constexpr UINT_PTR kWheelTimer = 1;
constexpr UINT_PTR kDropTimer = 4;
constexpr UINT_PTR kStopTimer = 2;
constexpr UINT_PTR kPositionTimer = 3;
constexpr UINT kWheelPeriodMs = 100;
constexpr UINT kDropPeriodMs = 1000;
constexpr UINT kStopPeriodMs = 750;
constexpr UINT kPositionPeriodMs = 200;

constexpr UINT kNoTimer = 0xFFFFFFFF;

LPCTSTR Text(const harn5::HarnString& text)
{
    return reinterpret_cast<LPCTSTR>(text.getUCS2Buffer());
}

LPCTSTR Text(const harn5::LocalizedString* key)
{
    return Text(key->localizedString());
}

}  // namespace

BEGIN_MESSAGE_MAP(CKstrMouseDlg, KSXDialog)
    ON_WM_CREATE()
    ON_WM_DESTROY()
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONDBLCLK()
    ON_WM_LBUTTONUP()
    ON_WM_RBUTTONDOWN()
    ON_WM_RBUTTONDBLCLK()
    ON_WM_RBUTTONUP()
    ON_WM_MBUTTONDOWN()
    ON_WM_MBUTTONUP()
    ON_WM_XBUTTONDOWN()
    ON_WM_XBUTTONUP()
    ON_WM_MOUSEMOVE()
    ON_WM_CAPTURECHANGED()
    ON_WM_MOUSEWHEEL()
    ON_WM_MOUSEHWHEEL()
    ON_WM_TIMER()
    ON_WM_QUERYDRAGICON()
    ON_BN_CLICKED(IDC_PASS, &CKstrMouseDlg::OnBnClickedPass)
    ON_BN_CLICKED(IDC_FAIL, &CKstrMouseDlg::OnBnClickedFail)
    ON_BN_CLICKED(IDC_MORE_INFO, &CKstrMouseDlg::OnBnClickedMoreInfo)
    ON_BN_DOUBLECLICKED(IDC_SMILEY, &CKstrMouseDlg::OnBnDoubleClickedFace)
    ON_BN_DOUBLECLICKED(IDC_NON_SMILEY, &CKstrMouseDlg::OnBnDoubleClickedFace)
    ON_EN_SETFOCUS(IDC_INSTRUCTIONS, &CKstrMouseDlg::OnEnSetFocusInstructions)
END_MESSAGE_MAP()

CKstrMouseDlg::CKstrMouseDlg(CWnd* pParent)
    : KSXDialog(IDD_KSTRMOUSE_DIALOG, pParent),
      m_nWheelTimer(kNoTimer),
      m_nPositionTimer(0),
      m_nDropTimer(kNoTimer),
      m_bWheelMoved(false),
      m_iForcedMouseType(0),
      m_iDragState(Idle),
      m_bDoubleClickDone(false),
      m_bDragDropDone(Windows10PE()),  // no drag-and-drop check on Windows 10 PE
      m_bCaptured(false),
      m_bMiddleSeen(false),
      m_pPassButton(nullptr),
      m_hIcon(::LoadIconW(AfxGetResourceHandle(), MAKEINTRESOURCEW(IDI_MOUSE))),
      m_result(TestResult::TESTNOTSTARTED()),
      m_pMoreInfo(nullptr),
      m_panel(*this)
{
}

CKstrMouseDlg::~CKstrMouseDlg() = default;

bool CKstrMouseDlg::Windows10PE()
{
    const ksx::OperatingSystem os = ksx::OperatingSystem::getCurrentOperatingSystem();
    if (os.getDistribution().distribution != ksx::OperatingSystem::WINDOWS_PE) {
        return false;
    }
    if (os.getMajor().major == ksx::OperatingSystem::WINDOWS_10) {
        KSX_LOG(s_log, "kstrmouse", ksx::LoggerPriority::PRIORITY_TRACE, kLineWindows10PEDetected,
                "Windows10PE():Windows 10 PE detected");
        return true;
    }
    KSX_LOG(s_log, "kstrmouse", ksx::LoggerPriority::PRIORITY_TRACE, kLineWindows10PENotDetected,
            "Windows10PE():Windows 10 PE could not be detected");
    return false;
}

void CKstrMouseDlg::StartDropTimer()
{
    m_nDropTimer = static_cast<UINT>(SetTimer(kDropTimer, kDropPeriodMs));
}

void CKstrMouseDlg::DoDataExchange(CDataExchange* pDX)
{
    KSXDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_INSTRUCTIONS, m_instructions);
    m_panel.bind(pDX);
}

// WM_CREATE: the dialog window is its own drop target.
int CKstrMouseDlg::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (KSXDialog::OnCreate(lpCreateStruct) == -1) {
        return -1;
    }
    if (!m_dropTarget.Register(this)) {
        KSX_LOG(s_log, "kstrmouse", ksx::LoggerPriority::PRIORITY_INFO, kLineOleRegistrationFailed,
                "Error occurred during Ole registration ");
        DiagModule::warning(kstrmouse::events::ErrorDuringInit, kSourceFile, kLineErrorDuringInit);
    }
    return 0;
}

BOOL CKstrMouseDlg::OnInitDialog()
{
    if (!KSXDialog::OnInitDialog()) {
        return FALSE;  // the controls could not be bound: the base has ended the dialog
    }
    SetIcon(m_hIcon, TRUE);
    SetIcon(m_hIcon, FALSE);
    if (Windows10PE()) {
        m_panel.show(IDC_GROUP_DRAG_DROP, SW_HIDE);
        m_panel.show(IDC_DRAG_SOURCE, SW_HIDE);
        m_panel.show(IDC_DROP_TARGET, SW_HIDE);
    }
    m_iForcedMouseType = params::iForceMouseType->value().valueUint32();
    m_mouse.probe();
    bool anyControl = false;
    for (const std::uint32_t state : m_mouse.state) {
        anyControl = anyControl || state != Absent;
    }
    if (!anyControl) {
        // The base ends the dialog, so that the verdict stays; it closes once start-up is over.
        m_result = TestResult::INTERNALERROR();
        CDialog::OnCancel();
    }
    m_panel.showButtons(m_mouse);
    UpdateControlMarks();
    m_smiley.AutoLoad(IDC_SMILEY, this);
    m_nonSmiley.AutoLoad(IDC_NON_SMILEY, this);
    m_panel.show(IDC_DROP_TARGET_FILLED, SW_HIDE);
    m_pPassButton = GetDlgItem(IDC_PASS);
    if (getPassButtonPolicy() != Enabled && m_pPassButton != nullptr) {
        m_pPassButton->EnableWindow(FALSE);
    }
    SetDialogTexts();
    ShowMissingChecks(getPassButtonPolicy() != DisabledUntilFinished);
    m_nPositionTimer = static_cast<UINT>(SetTimer(kPositionTimer, kPositionPeriodMs));
    if (!m_stopTimer.SetAsWindowTimer(this, kStopTimer, kStopPeriodMs)) {
        m_result = TestResult::INTERNALERROR();
        CDialog::OnCancel();
    }
    if (CWnd* pMoreInfo = GetDlgItem(IDC_MORE_INFO)) {
        pMoreInfo->SetFocus();
    }
    m_panel.initialiseWheelBar();
    return FALSE;  // the focus was set above
}

void CKstrMouseDlg::SetDialogTexts()
{
    SetWindowText(Text(kstrmouse::tests::MouseTest->localizedName()));
    SetControlText(IDC_GROUP_INSTRUCTIONS, Text(texts::MsgMouseGroupBoxInstructions));
    const harn5::HarnString paragraphBreak("\r\n\r\n");
    const harn5::HarnString instructions =
        texts::MsgMouseStatusDescription->localizedString() + paragraphBreak +
        texts::MsgMouseDragAndDropDescription->localizedString() + paragraphBreak +
        texts::MsgMouseDoubleClickDescription->localizedString();
    SetControlText(IDC_PASS_DESCRIPTION, Text(texts::MsgMousePassDescription));
    SetControlText(IDC_FAIL_DESCRIPTION, Text(texts::MsgMouseFailDescription));
    if (CWnd* pEdit = GetDlgItem(IDC_INSTRUCTIONS)) {
        pEdit->SetWindowText(Text(instructions));
        SCROLLINFO info{};
        info.cbSize = sizeof(info);
        pEdit->GetScrollInfo(SB_VERT, &info, SIF_ALL);
        KSX_LOG(s_log, "kstrmouse", ksx::LoggerPriority::PRIORITY_TRACE, kLineScrollInfo,
                "Scroll Info : " + info.nTrackPos + "," + info.nMin + "," + info.nMax + "," + info.nPage);
        // Unsigned, as the system keeps the page: a range of -1 never hides the bar.
        if (static_cast<UINT>(info.nMax) >= info.nPage) {
            pEdit->ShowScrollBar(SB_VERT, TRUE);
        } else {
            KSX_LOG(s_log, "kstrmouse", ksx::LoggerPriority::PRIORITY_TRACE, kLineHidingScrollbar,
                    "Hiding vertical scrollbar");
            pEdit->ShowScrollBar(SB_VERT, FALSE);
        }
    }
    SetControlText(IDC_GROUP_MOUSE_STATUS, Text(texts::MsgMouseGroupBoxMouseStatus));
    SetControlText(IDC_POSITION_LABEL, Text(texts::MsgMouseLabelPosition));
    SetControlText(IDC_GROUP_DRAG_DROP, Text(texts::MsgMouseGroupBoxDragAndDrop));
    SetControlText(IDC_GROUP_DOUBLE_CLICK, Text(texts::MsgMouseGroupBoxDoubleClick));
    SetControlText(IDC_MORE_INFO, Text(texts::MsgMouseButtonLabelMoreInfo));
    SetControlText(IDCANCEL, Text(texts::MsgMouseButtonLabelClose));
    SetControlText(IDC_PASS, Text(texts::MsgMouseButtonLabelPass));
    SetControlText(IDC_FAIL, Text(texts::MsgMouseButtonLabelFail));
}

void CKstrMouseDlg::OnDestroy()
{
    KillTimer(m_nPositionTimer);
    m_stopTimer.Kill();
    KSXDialog::OnDestroy();
}

void CKstrMouseDlg::OnCancel()
{
    m_result = TestResult::USERABORTED();
    ChecksNotDone(m_mouse, m_bDoubleClickDone, m_bDragDropDone).report();
    KSXDialog::OnCancel();
}

void CKstrMouseDlg::CaptureMouse()
{
    if (!m_bCaptured) {
        SetCapture();
        m_bCaptured = true;
    }
}

void CKstrMouseDlg::ReleaseMouse()
{
    if (m_bCaptured) {
        ::ReleaseCapture();
        m_bCaptured = false;
    }
}

void CKstrMouseDlg::SetControlText(int id, LPCTSTR text)
{
    ::SetDlgItemTextW(m_hWnd, id, text);
}

// WM_LBUTTONDOWN: the primary button goes down, or, with the secondary held, the chord
// stands in for the middle button (not on a two-button picture set).
void CKstrMouseDlg::OnLButtonDown(UINT nFlags, CPoint point)
{
    const ButtonChords::Effect effect = m_chords.leftDown(m_mouse);
    if (effect == ButtonChords::Effect::Own) {
        if (MouseDragSource::contains(point)) {
            m_iDragState = Armed;
        } else {
            CaptureMouse();
        }
    }
    if (effect != ButtonChords::Effect::None) {
        m_panel.showButtons(m_mouse);
    }
    if (effect == ButtonChords::Effect::Own) {
        KSXDialog::OnLButtonDown(nFlags, point);
    }
}

void CKstrMouseDlg::OnLButtonDblClk(UINT nFlags, CPoint point)
{
    OnLButtonDown(nFlags, point);
}

// WM_LBUTTONUP: the primary button is seen, and a drag this dialog started is closed.
void CKstrMouseDlg::OnLButtonUp(UINT nFlags, CPoint point)
{
    const ButtonChords::Effect effect = m_chords.leftUp(m_mouse);
    if (effect == ButtonChords::Effect::None) {
        return;
    }
    if (effect == ButtonChords::Effect::Own) {
        ReleaseMouse();
    }
    m_panel.showButtons(m_mouse);
    if (effect == ButtonChords::Effect::Own && m_iDragState == Dragged) {
        m_iDragState = Idle;
        if (m_dropTarget.m_bDropped) {
            m_bDragDropDone = true;
        }
    }
    RefreshPassButton();
    if (effect == ButtonChords::Effect::Own) {
        KSXDialog::OnLButtonUp(nFlags, point);
    }
}

// WM_RBUTTONDOWN: the secondary button goes down, or completes a chord.
void CKstrMouseDlg::OnRButtonDown(UINT nFlags, CPoint point)
{
    const ButtonChords::Effect effect = m_chords.rightDown(m_mouse);
    if (effect == ButtonChords::Effect::Own) {
        CaptureMouse();
    }
    if (effect != ButtonChords::Effect::None) {
        m_panel.showButtons(m_mouse);
    }
    if (effect == ButtonChords::Effect::Own) {
        KSXDialog::OnRButtonDown(nFlags, point);
    }
}

void CKstrMouseDlg::OnRButtonDblClk(UINT nFlags, CPoint point)
{
    OnRButtonDown(nFlags, point);
}

// WM_RBUTTONUP: the secondary button is seen, or a chord ends.
void CKstrMouseDlg::OnRButtonUp(UINT nFlags, CPoint point)
{
    const ButtonChords::Effect effect = m_chords.rightUp(m_mouse);
    if (effect == ButtonChords::Effect::None) {
        return;
    }
    if (effect == ButtonChords::Effect::Own) {
        ReleaseMouse();
    }
    m_panel.showButtons(m_mouse);
    RefreshPassButton();
    if (effect == ButtonChords::Effect::Own) {
        KSXDialog::OnRButtonUp(nFlags, point);
    }
}

// WM_MBUTTONDOWN: a real middle button, which also rules out the emulation warning.
void CKstrMouseDlg::OnMButtonDown(UINT nFlags, CPoint point)
{
    m_bMiddleSeen = true;
    CaptureMouse();
    m_mouse.state[Mouse::MiddleButton] = Active;
    m_panel.showButtons(m_mouse);
    KSXDialog::OnMButtonDown(nFlags, point);
}

void CKstrMouseDlg::OnMButtonUp(UINT nFlags, CPoint point)
{
    ReleaseMouse();
    m_mouse.state[Mouse::MiddleButton] = Seen;
    m_panel.showButtons(m_mouse);
    RefreshPassButton();
    KSXDialog::OnMButtonUp(nFlags, point);
}

// WM_XBUTTONDOWN: a side button the system did not count is still one the mouse has.
void CKstrMouseDlg::OnXButtonDown(UINT, UINT nButton, CPoint)
{
    m_mouse.state[nButton == XBUTTON1 ? Mouse::BackButton : Mouse::ForwardButton] = Active;
    UpdateControlMarks();   // as for the other buttons, Pass waits for the release
}

void CKstrMouseDlg::OnXButtonUp(UINT, UINT nButton, CPoint)
{
    m_mouse.state[nButton == XBUTTON1 ? Mouse::BackButton : Mouse::ForwardButton] = Seen;
    UpdateControlMarks();
    RefreshPassButton();
}

void CKstrMouseDlg::UpdateControlMarks()
{
    m_panel.showMarks(m_mouse, params::bRequireSideButtons->value().valueBool());
}

// WM_MOUSEWHEEL: the vertical arrow and the bar follow the direction; away from the user is up.
BOOL CKstrMouseDlg::OnMouseWheel(UINT nFlags, short zDelta, CPoint pt)
{
    m_nWheelTimer = static_cast<UINT>(SetTimer(kWheelTimer, kWheelPeriodMs));
    const bool towardUser = zDelta < 1;
    m_bWheelMoved = true;
    m_mouse.state[Mouse::VerticalWheel] = towardUser ? Seen : Active;
    m_panel.showWheelNotch(towardUser);
    m_iDragState = Idle;
    if (!Windows10PE()) {
        m_panel.resetDragPictures();
    }
    RefreshPassButton();
    return KSXDialog::OnMouseWheel(nFlags, zDelta, pt);
}

// WM_MOUSEHWHEEL: one tilt arrow shows until the wheel timer expires.
void CKstrMouseDlg::OnMouseHWheel(UINT, short zDelta, CPoint)
{
    m_nWheelTimer = static_cast<UINT>(SetTimer(kWheelTimer, kWheelPeriodMs));
    const bool left = zDelta < 1;
    m_panel.showTilt(left);
    m_bWheelMoved = true;
    m_mouse.state[left ? Mouse::TiltLeft : Mouse::TiltRight] = Seen;
    UpdateControlMarks();
    m_iDragState = Idle;
    if (!Windows10PE()) {
        m_panel.resetDragPictures();
    }
    RefreshPassButton();
}

void CKstrMouseDlg::OnTimer(UINT_PTR nIDEvent)
{
    switch (nIDEvent) {
    case kPositionTimer:
        OnPositionTimer();
        break;
    case kWheelTimer:
        OnWheelTimer();
        break;
    case kDropTimer:
        OnDropTimer();
        break;
    case kStopTimer:
        OnStopTimer();
        break;
    default:
        KSXDialog::OnTimer(nIDEvent);
        break;
    }
}

// Every 200 ms, wherever the pointer is.
void CKstrMouseDlg::OnPositionTimer()
{
    POINT cursor{};
    ::GetCursorPos(&cursor);
    m_panel.showPosition(cursor);
    KSXDialog::OnTimer(kPositionTimer);
}

// 100 ms after the last wheel or tilt event the tilt arrows go; the rest stays as it is.
void CKstrMouseDlg::OnWheelTimer()
{
    m_panel.hideTilt();
    m_bWheelMoved = false;
    if (!KillTimer(m_nWheelTimer)) {
        KSX_LOG(s_log, "kstrmouse", ksx::LoggerPriority::PRIORITY_DEBUG, kLineWheelTimerKillFailed,
                "Error killing mouse wheel Timer");
    }
    KSXDialog::OnTimer(kWheelTimer);
}

// A second after an accepted drop the target empties and the source returns.
void CKstrMouseDlg::OnDropTimer()
{
    if (!Windows10PE()) {
        m_panel.resetDragPictures();
    }
    if (!KillTimer(m_nDropTimer)) {
        KSX_LOG(s_log, "kstrmouse", ksx::LoggerPriority::PRIORITY_DEBUG, kLineDropTimerKillFailed,
                "Error killing drag and drop timer Timer");
    }
    KSXDialog::OnTimer(kDropTimer);
}

// Every 750 ms: a stop request from the host ends the test, once More Info has closed itself.
void CKstrMouseDlg::OnStopTimer()
{
    if (DiagModule::checkForStop()) {
        m_result = TestResult::USERABORTED();
        if (m_pMoreInfo != nullptr) {
            return;
        }
        CDialog::OnCancel();
    }
    KSXDialog::OnTimer(kStopTimer);
}

HCURSOR CKstrMouseDlg::OnQueryDragIcon()
{
    return static_cast<HCURSOR>(m_hIcon);
}

bool CKstrMouseDlg::AllRequiredChecksDone() const
{
    return ChecksNotDone(m_mouse, m_bDoubleClickDone, m_bDragDropDone).empty();
}

void CKstrMouseDlg::ShowMissingChecks(bool passEnabled)
{
    const std::wstring line =
        passEnabled ? std::wstring() : ChecksNotDone(m_mouse, m_bDoubleClickDone, m_bDragDropDone).line();
    // Set only when it changes: each window call is dear, and this runs at every press.
    if (line != m_missingLine) {
        m_missingLine = line;
        SetControlText(IDC_MISSING_CHECKS, m_missingLine.c_str());
    }
}

void CKstrMouseDlg::RefreshPassButton()
{
    if (m_pPassButton == nullptr) {
        return;
    }
    const bool enable = getPassButtonPolicy() != DisabledUntilFinished || AllRequiredChecksDone();
    if ((m_pPassButton->IsWindowEnabled() != FALSE) != enable) {
        m_pPassButton->EnableWindow(enable ? TRUE : FALSE);
    }
    ShowMissingChecks(enable);
}

void CKstrMouseDlg::OnBnClickedPass()
{
    if (getPassButtonPolicy() == DisabledUntilFinished && m_chords.middleMimicked() && !m_bMiddleSeen) {
        DiagModule::warning(kstrmouse::events::UserMimicMiddleButton, kSourceFile, kLineUserMimicMiddleButton);
    }
    m_result = TestResult::PASS();
    CDialog::OnOK();
}

void CKstrMouseDlg::OnBnClickedFail()
{
    DiagModule::error(kstrmouse::events::TestFailed, kSourceFile, kLineTestFailed);
    ChecksNotDone(m_mouse, m_bDoubleClickDone, m_bDragDropDone).report();
    m_result = TestResult::FAIL();
    CDialog::OnOK();
}

// More Info runs modally on top; while it is open the stop poll leaves the ending to it.
void CKstrMouseDlg::OnBnClickedMoreInfo()
{
    if (m_pMoreInfo != nullptr) {
        return;
    }
    // Empties m_pMoreInfo however the run ends, exceptions included.
    struct Forget {
        CKstrMoreInfo*& slot;
        ~Forget() { slot = nullptr; }
    };
    const auto moreInfo = std::make_unique<CKstrMoreInfo>(this);
    const Forget forget{m_pMoreInfo};
    m_pMoreInfo = moreInfo.get();
    m_pMoreInfo->DoModal();
}

// A double click on either face: the second press counts in the status panel and the faces swap.
void CKstrMouseDlg::OnBnDoubleClickedFace()
{
    SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(0, 0));
    m_panel.swapFaces();
    m_bDoubleClickDone = true;
    RefreshPassButton();
}

// The instructions never keep the focus.
void CKstrMouseDlg::OnEnSetFocusInstructions()
{
    SetFocus();
}

// WM_MOUSEMOVE: the first move over the source after a press on it starts the drag.
void CKstrMouseDlg::OnMouseMove(UINT nFlags, CPoint point)
{
    // A release the dialog never saw (outside it, without the capture) shows in the key-state
    // flags of the next move: the button is let go of here, so it never makes a chord later.
    if (m_chords.leftHeld() && (nFlags & MK_LBUTTON) == 0) {
        OnLButtonUp(nFlags, point);
    }
    if (m_chords.rightHeld() && (nFlags & MK_RBUTTON) == 0) {
        OnRButtonUp(nFlags, point);
    }
    if (m_iDragState == Armed && MouseDragSource::contains(point)) {
        StartDrag();
    }
    KSXDialog::OnMouseMove(nFlags, point);
}

void CKstrMouseDlg::OnCaptureChanged(CWnd* pWnd)
{
    // Taken by another window, the capture is no longer this dialog's to release.
    m_bCaptured = pWnd != nullptr && pWnd->m_hWnd == m_hWnd;
    KSXDialog::OnCaptureChanged(pWnd);
}

void CKstrMouseDlg::StartDrag()
{
    m_iDragState = Dragged;
    if (m_dragSource.drag()) {
        // The drag loop took the real release: this one closes the drag.
        SendMessage(WM_LBUTTONUP, 0, 0);
    }
}
