#include "MouseClickTestDlg.h"

#include <objidl.h>
#include <gdiplus.h>
#include <uxtheme.h>

#include <string>

#include "KstrMouse.h"
#include "Registration.h"
#include "harn5/DiagModule.h"
#include "harn5/Value.h"
#include "ksx/Log.h"
#include "resource.h"

using harn5::DiagModule;
using harn5::TestResult;
namespace texts = kstrmouse::texts;
namespace events = kstrmouse::events;

namespace {

ksx::Logger* s_log = nullptr;  // "kstrmouse.MouseClickTestDlg"

constexpr const char* kLogger = "kstrmouse.MouseClickTestDlg";
constexpr const char* kSourceFile = "MouseClickTestDlg";

// Source lines that log readers and hosts match on.
constexpr int kLineOnInitDialog = 208;
constexpr int kLineWindowPosition = 215;
constexpr int kLineOnLButtonDown = 310;
constexpr int kLineOnLButtonUp = 331;
constexpr int kLineOnRButtonDown = 395;
constexpr int kLineOnRButtonUp = 411;
constexpr int kLineOnMButtonDown = 439;
constexpr int kLineOnMButtonUp = 568;
constexpr int kLineOnXButtonDown = 574;
constexpr int kLineOnXButtonUp = 612;
constexpr int kLineOnMouseMove = 664;
constexpr int kLineOnMouseHWheel = 683;
constexpr int kLineOnMouseWheel = 689;
constexpr int kLineDownPosition = 714;
constexpr int kLineIsControlClicked = 736;
constexpr int kLineIsCloseClicked = 753;
constexpr int kLineIsInsideDoubleClickArea = 759;
constexpr int kLineIsDragSourceClicked = 765;
constexpr int kLineIsInDropArea = 771;
constexpr int kLineOnLButtonDblClk = 777;
constexpr int kLineOnBnClickedButtonFail = 797;
constexpr int kLineOnBnClickedCancel = 824;
constexpr int kLineOnBnClickedButtonSkip = 831;
constexpr int kLineSkipEvent = 834;
constexpr int kLineRunTest = 859;
constexpr int kLineSetGamingMouseImages = 866;
constexpr int kLineSetDefaultMouseImages = 919;
constexpr int kLineSetTestIndex = 957;
constexpr int kLineShowTestStep = 978;
constexpr int kLineDragImageFailed = 1081;
constexpr int kLineSetDragImages = 1112;
constexpr int kLineSetTestInstruction = 1126;
constexpr int kLineEnabledScrollingImages = 1150;

constexpr UINT_PTR kPositionTimer = 1010;
constexpr UINT kPositionPeriodMs = 200;

// Presses this close to the top edge move the captionless dialog.
constexpr unsigned kTopStripHeight = 50;
constexpr WPARAM kMoveByCaption = SC_MOVE | HTCAPTION;

constexpr COLORREF kBackground = RGB(0xFF, 0xFF, 0xFF);
constexpr COLORREF kWheelBarBackground = 0xF5F5F5;
constexpr COLORREF kWheelBarColor = 0xFFBB72;
constexpr COLORREF kWheelBarFullColor = 0x00BF00;

// The event the Fail button raises at each step.
struct Step {
    harn5::Event* const* failEvent;
    int failNumber;
};
const Step kSteps[ClickTestSteps::kSteps] = {
    {&events::LEFT_MOUSE_CLICK_NOT_RECEIVED, 800},
    {&events::RIGHT_MOUSE_CLICK_NOT_RECEIVED, 802},
    {&events::SCROLL_WHEEL_MOUSE_CLICK_NOT_RECEIVED, 804},
    {&events::FIRST_SIDE_MOUSE_BUTTON_NOT_RECEIVED, 806},
    {&events::SECOND_SIDE_MOUSE_BUTTON_NOT_RECEIVED, 808},
    {&events::MOUSE_DOUBLE_CLICK_NOT_RECEIVED, 810},
    {&events::MOUSE_DRAG_NOT_RECEIVED, 816},
    {&events::SCROLL_WHEEL_UP_NOT_RECEIVED, 812},
    {&events::SCROLL_WHEEL_DOWN_NOT_RECEIVED, 814},
};

const harn5::LocalizedString* s_currentInstruction = nullptr;
POINT s_rememberedPosition = {0, 0};

LPCTSTR Text(const harn5::HarnString& text)
{
    return reinterpret_cast<LPCTSTR>(text.getUCS2Buffer());
}

}  // namespace

BEGIN_MESSAGE_MAP(CMouseClickTestDlg, CDialog)
    ON_WM_PAINT()
    ON_WM_DESTROY()
    ON_WM_QUERYDRAGICON()
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONUP()
    ON_WM_RBUTTONDOWN()
    ON_WM_RBUTTONUP()
    ON_WM_MBUTTONDOWN()
    ON_WM_MBUTTONUP()
    ON_WM_LBUTTONDBLCLK()
    ON_WM_CTLCOLOR()
    ON_WM_MOUSEMOVE()
    ON_WM_XBUTTONDOWN()
    ON_WM_XBUTTONUP()
    ON_BN_CLICKED(IDC_CT_FAIL, &CMouseClickTestDlg::OnBnClickedButtonFail)
    ON_BN_CLICKED(IDCANCEL, &CMouseClickTestDlg::OnBnClickedCancel)
    ON_BN_CLICKED(IDC_CT_SKIP, &CMouseClickTestDlg::OnBnClickedButtonSkip)
    ON_BN_CLICKED(IDC_CT_CLOSE, &CMouseClickTestDlg::OnBnClickedCancel)
    ON_WM_TIMER()
    ON_WM_MOUSEWHEEL()
    ON_WM_MOUSEHWHEEL()
    ON_MESSAGE(WM_PRINTCLIENT, &CMouseClickTestDlg::OnPrintClient)
END_MESSAGE_MAP()

CMouseClickTestDlg::CMouseClickTestDlg(CWnd* pParent, bool isGamingMouse)
    : CDialog(IDD_MOUSE_CLICK_TEST, pParent),
      m_steps(isGamingMouse),
      m_isMovingWindow(false),
      m_positionTimerId(0),
      m_lastCursorPos{0, 0},
      m_wheelBarColor(kWheelBarColor),
      m_wheelBarFullColor(kWheelBarFullColor),
      m_pictures(*this, isGamingMouse),
      m_icon(::LoadIconW(AfxGetResourceHandle(), MAKEINTRESOURCEW(IDI_MOUSE)))
{
}

CMouseClickTestDlg::~CMouseClickTestDlg() = default;

const harn5::LocalizedString* CMouseClickTestDlg::currentInstruction()
{
    return s_currentInstruction;
}

POINT CMouseClickTestDlg::rememberedPosition()
{
    return s_rememberedPosition;
}

TestResult CMouseClickTestDlg::runTest()
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::runTest()", kSourceFile, kLineRunTest);
    DoModal();
    return m_steps.verdict();
}

void CMouseClickTestDlg::DoDataExchange(CDataExchange* pDX)
{
    CDialog::DoDataExchange(pDX);
    m_pictures.bind(pDX);
    DDX_Control(pDX, IDC_CT_WHEEL_BAR, m_wheelBar);
}

BOOL CMouseClickTestDlg::OnInitDialog()
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::OnInitDialog()", kSourceFile, kLineOnInitDialog);
    if (!CDialog::OnInitDialog()) {
        return FALSE;  // the controls could not be bound: the base has ended the dialog
    }
    SetWindowText(Text(kstrmouse::tests::MouseInteractiveTest->localizedName()));
    if (s_rememberedPosition.x != 0 && s_rememberedPosition.y != 0) {
        SetWindowPos(nullptr, s_rememberedPosition.x, s_rememberedPosition.y, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    KSX_LOG(s_log, kLogger, ksx::LoggerPriority::PRIORITY_TRACE, kLineWindowPosition,
            "CMouseClickTestDlg::OnInitDialog() window position: X: " + s_rememberedPosition.x +
                " Y: " + s_rememberedPosition.y);
    SetIcon(m_icon, TRUE);
    SetIcon(m_icon, FALSE);
    m_pictures.set(IDC_CT_CLOSE, true);
    m_renderer = std::make_shared<CMouseStringRenderer>(*this);
    if (m_steps.gaming()) {
        setGamingMouseImages();
    } else {
        setDefaultMouseImages();
    }
    hideMouseImages();
    setTestIndex();
    showTestStep();
    m_backgroundBrush.CreateSolidBrush(kBackground);
    setLocalizedString(this, IDC_CT_SKIP, texts::BUTTON_SKIP);
    setLocalizedString(this, IDCANCEL, texts::BUTTON_CANCEL);
    setLocalizedString(this, IDC_CT_FAIL, texts::BUTTON_FAIL);
    // Visual styles ignore a progress bar's colours; the classic drawing shows them.
    ::SetWindowTheme(m_wheelBar.m_hWnd, L" ", L" ");
    if (m_wheelBar.IsWindowVisible()) {
        enabledScrollingImages(IDC_CT_WHEEL_BAR, false);
    }
    for (const int id : {IDC_CT_WHEEL_SUCCESS, IDC_CT_WHEEL_UP, IDC_CT_WHEEL_DOWN}) {
        m_pictures.show(id, SW_HIDE);
    }
    return TRUE;
}

void CMouseClickTestDlg::setTestIndex()
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::setTestIndex()", kSourceFile, kLineSetTestIndex);
    CWnd* pMain = AfxGetMainWnd();
    enableControl(pMain, IDCANCEL);
    enableControl(pMain, IDC_CT_FAIL);
    texts::MOUSE_INTERACTIVE_TEST_INDEX
        ->setVariable("start", harn5::Value(harn5::HarnString(std::to_string(m_steps.shownNumber()))))
        ->setVariable("end", harn5::Value(harn5::HarnString(std::to_string(m_steps.shownCount()))));
    Invalidate(TRUE);
}

void CMouseClickTestDlg::showTestStep()
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::setDefaultMouseImages()", kSourceFile, kLineShowTestStep);
    switch (m_steps.index()) {
    case 1:
        s_currentInstruction = texts::MOUSE_LEFT_CLICK_TEST_INSTRUCTION;
        m_pictures.showMouse(IDC_CT_MOUSE_START);
        break;
    case 2:
        s_currentInstruction = texts::MOUSE_RIGHT_CLICK_TEST_INSTRUCTION;
        m_pictures.showMouse(IDC_CT_LEFT_SUCCESS);
        break;
    case 3:
        s_currentInstruction = m_steps.middleRequired() ? texts::MOUSE_MIDDLE_CLICK_TEST_INSTRUCTION_TESTING_REQUIRED
                                                        : texts::MOUSE_MIDDLE_CLICK_TEST_INSTRUCTION;
        if (m_steps.offersSkip()) {
            CWnd* skip = GetDlgItem(IDC_CT_SKIP);
            if (!skip->IsWindowVisible()) {
                skip->ShowWindow(SW_SHOWNORMAL);
            }
            if (!skip->IsWindowEnabled()) {
                skip->EnableWindow(TRUE);
            }
        }
        m_pictures.showMouse(IDC_CT_RIGHT_SUCCESS);
        break;
    case 4:
        s_currentInstruction = texts::MOUSE_SIDE_BUTTON_1_TEST_INSTRUCTION;
        hideMouseImages();
        if (m_steps.middleSkipped()) {
            m_pictures.showMouse(IDC_CT_MIDDLE_SKIPPED);
        } else {
            m_pictures.set(IDC_CT_MIDDLE_SUCCESS, true);
            m_pictures.showMouse(IDC_CT_MIDDLE_SUCCESS);
        }
        break;
    case 5:
        s_currentInstruction = texts::MOUSE_SIDE_BUTTON_2_TEST_INSTRUCTION;
        hideMouseImages();
        m_pictures.showMouse(m_steps.middleSkipped() ? IDC_CT_SIDE1_SUCCESS_SKIPPED : IDC_CT_SIDE1_SUCCESS);
        break;
    case 6:
        s_currentInstruction = texts::MOUSE_DOUBLE_CLICK_TEST_INSTRUCTION;
        // The target takes the mouse area's place.
        m_pictures.showMouse(0);
        m_pictures.show(IDC_CT_DOUBLE_CLICK_TARGET, SW_SHOW);
        break;
    case 7:
        setUpDragStep();
        break;
    case 8:
        setUpWheelUpStep();
        break;
    case 9:
        setUpWheelDownStep();
        break;
    default:
        break;
    }
}

void CMouseClickTestDlg::completeStep()
{
    const int done = m_steps.index();
    const ClickTestSteps::Completion completion = m_steps.complete();
    // Out of reach while the success picture shows.
    CWnd* pMain = AfxGetMainWnd();
    disableControl(pMain, IDCANCEL);
    disableControl(pMain, IDC_CT_FAIL);
    m_pictures.hideIfVisible(IDC_CT_SKIP);
    // A disabled button loses the focus to nobody; the dialog keeps it, so that Escape works.
    if (CWnd::GetFocus() == nullptr) {
        SetFocus();
    }
    if (completion.mouseArea) {
        m_pictures.showMouse(completion.shows);
    } else {
        m_pictures.show(completion.hides, SW_HIDE);
        m_pictures.show(completion.shows, SW_SHOW);
    }
    m_pictures.drawNow(completion.shows);
    if (completion.pauseMs != 0) {
        stepPause(completion.pauseMs);
    }
    if (completion.ends) {
        CDialog::OnOK();
        return;
    }
    setTestIndex();
    if (done == 2) {
        m_steps.setMiddleRequired(kstrmouse::params::RequireScrollWheelButton->value().valueBool());
    }
    showTestStep();
}

void CMouseClickTestDlg::stepPause(unsigned ms)
{
    // What was just drawn reaches the screen first: Wine hands a window's pixels to the display
    // only when its thread looks at its queue. Nothing is taken from the queue here.
    MSG pending;
    ::PeekMessageW(&pending, nullptr, 0, 0, PM_NOREMOVE);
    // Deliberately blocking: the success picture stays while input waits.
    ::Sleep(ms);
    // Input that came meanwhile belongs to no step: a press on Fail, or the next step's action
    // done too early, is dropped before Fail is back and the next step begins.
    MSG input;
    while (::PeekMessageW(&input, nullptr, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE) ||
           ::PeekMessageW(&input, nullptr, WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK, PM_REMOVE) ||
           ::PeekMessageW(&input, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) {
    }
}

void CMouseClickTestDlg::setGamingMouseImages()
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::setGamingMouseImages()", kSourceFile,
              kLineSetGamingMouseImages);
    for (const int id : {IDC_CT_MOUSE_START, IDC_CT_LEFT_PRESSED, IDC_CT_LEFT_SUCCESS, IDC_CT_RIGHT_PRESSED,
                         IDC_CT_RIGHT_SUCCESS, IDC_CT_MIDDLE_PRESSED, IDC_CT_MIDDLE_SUCCESS,
                         IDC_CT_DOUBLE_CLICK_TARGET, IDC_CT_DOUBLE_CLICK_HOVER, IDC_CT_DOUBLE_CLICK_SUCCESS,
                         IDC_CT_SIDE1_PRESSED, IDC_CT_SIDE1_PRESSED_SKIPPED, IDC_CT_SIDE1_SUCCESS,
                         IDC_CT_MIDDLE_SKIPPED, IDC_CT_SIDE1_SUCCESS_SKIPPED, IDC_CT_SIDE2_PRESSED_SKIPPED,
                         IDC_CT_SIDE2_PRESSED, IDC_CT_SIDE2_SUCCESS, IDC_CT_SIDE2_SUCCESS_SKIPPED}) {
        m_pictures.set(id, false);
    }
}

void CMouseClickTestDlg::setDefaultMouseImages()
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::setDefaultMouseImages()", kSourceFile,
              kLineSetDefaultMouseImages);
    for (const int id : {IDC_CT_MOUSE_START, IDC_CT_LEFT_PRESSED, IDC_CT_LEFT_SUCCESS, IDC_CT_RIGHT_PRESSED,
                         IDC_CT_RIGHT_SUCCESS, IDC_CT_MIDDLE_PRESSED, IDC_CT_MIDDLE_SUCCESS, IDC_CT_MIDDLE_SKIPPED,
                         IDC_CT_DOUBLE_CLICK_TARGET, IDC_CT_DOUBLE_CLICK_HOVER, IDC_CT_DOUBLE_CLICK_SUCCESS}) {
        m_pictures.set(id, false);
    }
}

void CMouseClickTestDlg::hideMouseImages()
{
    for (const int id : {IDC_CT_MIDDLE_SKIPPED, IDC_CT_LEFT_PRESSED, IDC_CT_LEFT_SUCCESS, IDC_CT_RIGHT_PRESSED,
                         IDC_CT_RIGHT_SUCCESS, IDC_CT_MIDDLE_PRESSED, IDC_CT_MIDDLE_SUCCESS,
                         IDC_CT_DOUBLE_CLICK_TARGET, IDC_CT_DOUBLE_CLICK_HOVER, IDC_CT_DOUBLE_CLICK_SUCCESS,
                         IDC_CT_SIDE1_PRESSED, IDC_CT_SIDE1_PRESSED_SKIPPED, IDC_CT_SIDE1_SUCCESS_SKIPPED,
                         IDC_CT_SIDE1_SUCCESS, IDC_CT_SIDE2_PRESSED, IDC_CT_SIDE2_PRESSED_SKIPPED,
                         IDC_CT_SIDE2_SUCCESS, IDC_CT_SIDE2_SUCCESS_SKIPPED}) {
        m_pictures.show(id, SW_HIDE);
    }
}

void CMouseClickTestDlg::setDragImages()
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::setDragImages()", kSourceFile, kLineSetDragImages);
    m_pictures.set(IDC_CT_DRAG_ITEM, true);
    m_pictures.set(IDC_CT_DROP_AREA, true);
    m_pictures.set(IDC_CT_DROP_SUCCESS, false);
}

void CMouseClickTestDlg::setTestInstruction()
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::setTestInstruction()", kSourceFile,
              kLineSetTestInstruction);
    for (const int id : {IDC_CT_POSITION_VALUE, IDC_CT_POSITION_LABEL}) {
        if (GetDlgItem(id)->IsWindowVisible()) {
            enabledScrollingImages(id, false);
        }
    }
    enabledScrollingImages(IDC_CT_WHEEL_BAR, true);
    m_pictures.set(IDC_CT_WHEEL_SUCCESS, false);
    if (m_steps.index() == 8) {
        s_currentInstruction = texts::MOUSE_WHEEL_UP_TEST_INSTRUCTION;
        m_pictures.show(IDC_CT_DROP_SUCCESS, SW_HIDE);
        m_pictures.set(IDC_CT_WHEEL_UP, true);
    } else {
        s_currentInstruction = texts::MOUSE_WHEEL_DOWN_TEST_INSTRUCTION;
        m_pictures.set(IDC_CT_WHEEL_UP, false);
        m_pictures.set(IDC_CT_WHEEL_DOWN, true);
    }
}

void CMouseClickTestDlg::enabledScrollingImages(int controlId, bool show)
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::enabledScrollingImages()", kSourceFile,
              kLineEnabledScrollingImages);
    CWnd* control = GetDlgItem(controlId);
    if (control == nullptr) {
        return;
    }
    if (show) {
        if (!control->IsWindowVisible()) {
            control->ShowWindow(SW_SHOW);
        }
        if (!control->IsWindowEnabled()) {
            control->EnableWindow(TRUE);
        }
    } else if (control->IsWindowVisible()) {
        control->ShowWindow(SW_HIDE);
    }
    Invalidate(TRUE);
}

void CMouseClickTestDlg::setUpDragStep()
{
    setLocalizedString(this, IDC_CT_POSITION_LABEL, texts::MOUSE_POINTER_POSITION);
    if (!m_drag.loadImage(IDB_DRAG_FEEDBACK)) {
        KSX_LOG(s_log, kLogger, ksx::LoggerPriority::PRIORITY_TRACE, kLineDragImageFailed,
                "Unable to add the drag image to the image list");
    }
    m_positionTimerId = SetTimer(kPositionTimer, kPositionPeriodMs);
    s_currentInstruction = texts::MOUSE_DRAG_TEST_INSTRUCTION;
    m_pictures.hideIfVisible(IDC_CT_DOUBLE_CLICK_SUCCESS);
    setDragImages();
}

void CMouseClickTestDlg::setUpWheelUpStep()
{
    // Wheel messages go to the window with the keyboard focus.
    SetFocus();
    setTestInstruction();
    enabledScrollingImages(IDC_CT_WHEEL_VALUE, true);
    m_wheelBar.Initialize(GetDlgItem(IDC_CT_WHEEL_VALUE));
    m_wheelBar.SendMessage(PBM_SETBKCOLOR, 0, kWheelBarBackground);
    m_wheelBarColor = kWheelBarColor;
    m_wheelBarFullColor = kWheelBarFullColor;
    s_currentInstruction = texts::MOUSE_WHEEL_UP_TEST_INSTRUCTION;
}

void CMouseClickTestDlg::setUpWheelDownStep()
{
    SetFocus();
    setTestInstruction();
    s_currentInstruction = texts::MOUSE_WHEEL_DOWN_TEST_INSTRUCTION;
    m_wheelBar.SendMessage(PBM_SETBARCOLOR, 0, m_wheelBarColor);
    m_wheelBar.SendMessage(PBM_SETPOS, 100, 0);
    Invalidate(TRUE);
}

bool CMouseClickTestDlg::isControlClicked(int controlId, CPoint point)
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::isControlClicked()", kSourceFile, kLineIsControlClicked);
    CWnd* pMain = AfxGetMainWnd();
    if (pMain == nullptr) {
        return false;
    }
    pMain->ClientToScreen(&point);
    CWnd* control = pMain->GetDlgItem(controlId);
    if (control == nullptr) {
        return false;
    }
    RECT rect{};
    control->GetWindowRect(&rect);
    return ::PtInRect(&rect, point) != FALSE;
}

bool CMouseClickTestDlg::isCloseClicked(CPoint point)
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::isCloseClicked()", kSourceFile, kLineIsCloseClicked);
    return isControlClicked(IDC_CT_CLOSE, point);
}

bool CMouseClickTestDlg::isInsideDoubleClickArea(CPoint point)
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::isInsideDoubleClickArea()", kSourceFile,
              kLineIsInsideDoubleClickArea);
    return isControlClicked(IDC_CT_DOUBLE_CLICK_TARGET, point);
}

bool CMouseClickTestDlg::isDragSourceClicked(CPoint point)
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::isDragSourceClicked()", kSourceFile,
              kLineIsDragSourceClicked);
    return isControlClicked(IDC_CT_DRAG_ITEM, point);
}

bool CMouseClickTestDlg::isInDropArea(CPoint point)
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::isInDropArea()", kSourceFile, kLineIsInDropArea);
    return isControlClicked(IDC_CT_DROP_AREA, point);
}

void CMouseClickTestDlg::OnLButtonDown(UINT nFlags, CPoint point)
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::OnLButtonDown()", kSourceFile, kLineOnLButtonDown);
    pressStepButton(ClickTestSteps::Button::Left);
    if (m_steps.index() == 7 && !m_drag.dragging() && isDragSourceClicked(point)) {
        // A press on the item is decided here, one way or the other.
        if (DragTracker::detect(*this, point)) {
            m_isMovingWindow = false;
            m_pictures.show(IDC_CT_DRAG_ITEM, SW_HIDE);
            m_drag.begin(*this, point);
        } else {
            // The release went into the drag detection.
            OnLButtonUp(nFlags, point);
        }
        return;
    }
    RECT window{};
    GetWindowRect(&window);
    if (static_cast<unsigned>(point.y) < kTopStripHeight && point.x < window.right - window.left) {
        if (DragTracker::detect(*this, point)) {
            m_isMovingWindow = true;
            // Returns once the user lets go of the button.
            SendMessage(WM_SYSCOMMAND, kMoveByCaption, 0);
            GetWindowRect(&window);
            s_rememberedPosition = {window.left, window.top};
        }
        OnLButtonUp(nFlags, point);
    }
}

void CMouseClickTestDlg::OnLButtonUp(UINT /*nFlags*/, CPoint point)
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::OnLButtonUp()", kSourceFile, kLineOnLButtonUp);
    if (isCloseClicked(point)) {
        OnBnClickedCancel();
        return;
    }
    m_isMovingWindow = false;
    if (m_steps.isStepButton(ClickTestSteps::Button::Left)) {
        releaseStepButton(ClickTestSteps::Button::Left);
    } else if (m_steps.index() == 7 && m_drag.dragging()) {
        if (!isInDropArea(point)) {
            abandonDrag();
            return;
        }
        KillTimer(m_positionTimerId);
        m_drag.end();
        completeStep();
    }
}

void CMouseClickTestDlg::abandonDrag()
{
    m_drag.end();
    m_pictures.show(IDC_CT_DRAG_ITEM, SW_SHOW);
    m_pictures.drawNow(IDC_CT_DRAG_ITEM);
}

void CMouseClickTestDlg::pressStepButton(ClickTestSteps::Button button)
{
    if (m_steps.isStepButton(button)) {
        SetCapture();
        m_pictures.showMouse(m_steps.pressedPicture());
    }
}

void CMouseClickTestDlg::releaseStepButton(ClickTestSteps::Button button)
{
    if (m_steps.isStepButton(button)) {
        ::ReleaseCapture();
        completeStep();
    }
}

void CMouseClickTestDlg::OnRButtonDown(UINT /*nFlags*/, CPoint /*point*/)
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::OnRButtonDown()", kSourceFile, kLineOnRButtonDown);
    pressStepButton(ClickTestSteps::Button::Right);
    Default();
}

void CMouseClickTestDlg::OnRButtonUp(UINT /*nFlags*/, CPoint /*point*/)
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::OnRButtonUp()", kSourceFile, kLineOnRButtonUp);
    releaseStepButton(ClickTestSteps::Button::Right);
}

void CMouseClickTestDlg::OnMButtonDown(UINT /*nFlags*/, CPoint /*point*/)
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::OnMButtonDown()", kSourceFile, kLineOnMButtonDown);
    pressStepButton(ClickTestSteps::Button::Middle);
    Default();
}

void CMouseClickTestDlg::OnMButtonUp(UINT /*nFlags*/, CPoint /*point*/)
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::OnMButtonUp()", kSourceFile, kLineOnMButtonUp);
    releaseStepButton(ClickTestSteps::Button::Middle);
    Default();
}

void CMouseClickTestDlg::OnXButtonDown(UINT /*nFlags*/, UINT nButton, CPoint /*point*/)
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::OnXButtonDown()", kSourceFile, kLineOnXButtonDown);
    pressStepButton(nButton == XBUTTON1 ? ClickTestSteps::Button::X1 : ClickTestSteps::Button::X2);
}

void CMouseClickTestDlg::OnXButtonUp(UINT /*nFlags*/, UINT nButton, CPoint /*point*/)
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::OnXButtonUp()", kSourceFile, kLineOnXButtonUp);
    releaseStepButton(nButton == XBUTTON1 ? ClickTestSteps::Button::X1 : ClickTestSteps::Button::X2);
}

void CMouseClickTestDlg::OnLButtonDblClk(UINT /*nFlags*/, CPoint point)
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::OnLButtonDblClk()", kSourceFile, kLineOnLButtonDblClk);
    if (m_steps.index() == 6 && isInsideDoubleClickArea(point)) {
        completeStep();
    }
    Default();
}

void CMouseClickTestDlg::OnMouseMove(UINT nFlags, CPoint point)
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::OnMouseMove()", kSourceFile, kLineOnMouseMove);
    if (m_isMovingWindow) {
        return;
    }
    if (m_drag.dragging()) {
        if ((nFlags & MK_LBUTTON) == 0) {
            // The release happened where this window could not see it.
            abandonDrag();
        } else {
            m_drag.follow(point);
        }
    }
    Default();
}

BOOL CMouseClickTestDlg::OnMouseWheel(UINT /*nFlags*/, short zDelta, CPoint /*pt*/)
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::OnMouseWheel()", kSourceFile, kLineOnMouseWheel);
    // Every message is one notch, whatever its distance.
    if (zDelta > 0 && m_steps.index() == 8) {
        m_wheelBar.SendMessage(PBM_SETBARCOLOR, 0, m_wheelBarColor);
        m_wheelBar.StepUp();
        const auto notch = ClickTestSteps::wheelUp(static_cast<int>(m_wheelBar.SendMessage(PBM_GETPOS)));
        if (notch.fullColour) {
            m_wheelBar.SendMessage(PBM_SETBARCOLOR, 0, m_wheelBarFullColor);
        }
        if (notch.done) {
            completeStep();
        }
    } else if (zDelta <= 0 && m_steps.index() == 9) {
        const int position = static_cast<int>(m_wheelBar.SendMessage(PBM_GETPOS));
        KSX_LOG(s_log, kLogger, ksx::LoggerPriority::PRIORITY_TRACE, kLineDownPosition,
                "Down position: " + position);
        m_wheelBar.SendMessage(PBM_SETBARCOLOR, 0, m_wheelBarColor);
        m_wheelBar.StepDown();
        // Judged on the position before the notch.
        const auto notch = ClickTestSteps::wheelDown(position);
        if (notch.fullColour) {
            m_wheelBar.SendMessage(PBM_SETBARCOLOR, 0, m_wheelBarFullColor);
        }
        if (notch.done) {
            completeStep();
        }
    }
    return static_cast<BOOL>(Default());
}

void CMouseClickTestDlg::OnMouseHWheel(UINT /*nFlags*/, short /*zDelta*/, CPoint /*pt*/)
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::OnMouseHWheel()", kSourceFile, kLineOnMouseHWheel);
    Default();
}

void CMouseClickTestDlg::OnTimer(UINT_PTR nIDEvent)
{
    if (nIDEvent != kPositionTimer) {
        return;
    }
    POINT cursor{};
    ::GetCursorPos(&cursor);
    if (cursor.x == m_lastCursorPos.x && cursor.y == m_lastCursorPos.y) {
        return;
    }
    m_lastCursorPos = cursor;
    if (CWnd* value = GetDlgItem(IDC_CT_POSITION_VALUE)) {
        const std::wstring text = std::to_wstring(cursor.x) + L" , " + std::to_wstring(cursor.y);
        value->SetWindowText(text.c_str());
    }
}

void CMouseClickTestDlg::OnBnClickedButtonFail()
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::OnBnClickedButtonFail()", kSourceFile,
              kLineOnBnClickedButtonFail);
    const Step& step = kSteps[m_steps.fail() - 1];
    DiagModule::error(*step.failEvent, kSourceFile, step.failNumber);
    m_drag.end();
    CDialog::OnOK();
}

void CMouseClickTestDlg::OnBnClickedCancel()
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::OnBnClickedCancel()", kSourceFile, kLineOnBnClickedCancel);
    // A drag under way ends with the test, leaving no drag image and no capture behind.
    m_drag.end();
    m_steps.cancel();
    CDialog::OnCancel();
}

void CMouseClickTestDlg::OnBnClickedButtonSkip()
{
    KSX_TRACE(trace, s_log, kLogger, "CMouseClickTestDlg::OnBnClickedButtonSkip()", kSourceFile,
              kLineOnBnClickedButtonSkip);
    // Only where it is offered: a required middle button cannot be skipped by a command.
    if (!m_steps.skip()) {
        return;
    }
    DiagModule::informative(events::SCROLL_WHEEL_TESTING_SKIPPED, kSourceFile, kLineSkipEvent);
    completeStep();
}

void CMouseClickTestDlg::OnOK()
{
    // No OK button, and Enter (or IDOK from anywhere) must not end the test before its last step.
}

void CMouseClickTestDlg::OnDestroy()
{
    // However the test ends, no drag image is left locking the window.
    m_drag.end();
    CDialog::OnDestroy();
}

void CMouseClickTestDlg::OnPaint()
{
    CPaintDC dc(this);
    drawTexts(dc.m_hDC, dc.m_ps.rcPaint);
    if (::IsIconic(m_hWnd)) {
        SendMessage(WM_ICONERASEBKGND, reinterpret_cast<WPARAM>(dc.m_hDC), 0);
        RECT client{};
        GetClientRect(&client);
        const int x = (client.right - ::GetSystemMetrics(SM_CXICON) + 1) / 2;
        const int y = (client.bottom - ::GetSystemMetrics(SM_CYICON) + 1) / 2;
        dc.DrawIcon(x, y, m_icon);
    } else {
        Default();
    }
}

LRESULT CMouseClickTestDlg::OnPrintClient(WPARAM wParam, LPARAM /*lParam*/)
{
    // A picture asks for what lies under it, so that the text shows through its clear parts.
    const HDC dc = reinterpret_cast<HDC>(wParam);
    RECT area{};
    if (::GetClipBox(dc, &area) != NULLREGION) {
        drawTexts(dc, area);
    }
    return 0;
}

void CMouseClickTestDlg::drawTexts(HDC dc, const RECT& area)
{
    if (m_renderer == nullptr) {
        return;
    }
    const auto touches = [&area](const Gdiplus::RectF& box) {
        return box.X < area.right && box.X + box.Width > area.left && box.Y < area.bottom &&
               box.Y + box.Height > area.top;
    };
    if (texts::MOUSE_INTERACTIVE_TEST_INDEX != nullptr && touches(m_renderer->indexBox())) {
        m_renderer->renderIndex(dc, texts::MOUSE_INTERACTIVE_TEST_INDEX->localizedString().ksxString());
    }
    if (s_currentInstruction != nullptr &&
        (touches(m_renderer->instructionBox()) || touches(m_renderer->hintBox()))) {
        m_renderer->renderInstruction(dc, *s_currentInstruction);
    }
}

HBRUSH CMouseClickTestDlg::OnCtlColor(CDC* /*pDC*/, CWnd* /*pWnd*/, UINT /*nCtlColor*/)
{
    return m_backgroundBrush;
}

HCURSOR CMouseClickTestDlg::OnQueryDragIcon()
{
    return static_cast<HCURSOR>(m_icon);
}
