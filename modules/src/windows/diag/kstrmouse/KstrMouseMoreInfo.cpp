#include "KstrMouseMoreInfo.h"

#include "Registration.h"
#include "harn5/DiagModule.h"
#include "ksx/Log.h"
#include "resource.h"

namespace texts = kstrmouse::texts;

namespace {

ksx::Logger* s_log = nullptr;  // "kstrmouse"

constexpr int kLineOnTimerTrace = 108;

constexpr UINT_PTR kStopTimer = 1;
constexpr UINT kStopPeriodMs = 250;

LPCTSTR Text(const harn5::HarnString& text)
{
    return reinterpret_cast<LPCTSTR>(text.getUCS2Buffer());
}

}  // namespace

BEGIN_MESSAGE_MAP(CKstrMoreInfo, KSXDialog)
    ON_WM_TIMER()
    ON_WM_DESTROY()
END_MESSAGE_MAP()

CKstrMoreInfo::CKstrMoreInfo(CWnd* pParent) : KSXDialog(IDD_KSTRMOUSE_MOREINFO, pParent) {}

CKstrMoreInfo::~CKstrMoreInfo() = default;

BOOL CKstrMoreInfo::OnInitDialog()
{
    CDialog::OnInitDialog();
    BuildMoreInfoText();
    const HINSTANCE hInstance = AfxGetResourceHandle();
    SendMessage(WM_SETICON, ICON_BIG,
                reinterpret_cast<LPARAM>(::LoadIconW(hInstance, MAKEINTRESOURCEW(IDI_MOUSE))));
    SendMessage(WM_SETICON, ICON_SMALL,
                reinterpret_cast<LPARAM>(::LoadIconW(hInstance, MAKEINTRESOURCEW(IDI_MOUSE))));
    if (!m_stopTimer.SetAsWindowTimer(this, kStopTimer, kStopPeriodMs)) {
        // Without the poll a stop request could not close it: the user is back in the test.
        OnCancel();
    }
    return TRUE;  // the focus goes to OK
}

// Five paragraphs; the third is made of five sentences.
void CKstrMoreInfo::BuildMoreInfoText()
{
    SetWindowText(Text(kstrmouse::tests::MouseTest->localizedName()));
    const harn5::HarnString paragraphBreak("\r\n\r\n");
    const harn5::HarnString blank(" ");
    const harn5::HarnString text =
        texts::MsgMouseMoreInfo3200->localizedString() + paragraphBreak +
        texts::MsgMouseMoreInfo3201->localizedString() + paragraphBreak +
        texts::MsgMouseMoreInfo3202->localizedString() + blank +
        texts::MsgMouseMoreInfo3203->localizedString() + blank +
        texts::MsgMouseMoreInfo3204->localizedString() + blank +
        texts::MsgMouseMoreInfo3205->localizedString() + blank +
        texts::MsgMouseMoreInfo3206->localizedString() + paragraphBreak +
        texts::MsgMouseMoreInfo3207->localizedString() + paragraphBreak +
        texts::MsgMouseMoreInfo3208->localizedString();
    ::SetDlgItemTextW(m_hWnd, IDC_MORE_INFO_TEXT, Text(text));
    ::SetDlgItemTextW(m_hWnd, IDOK, Text(texts::MsgMouseMoreInfoButtonOk->localizedString()));
}

// Every 250 ms: a stop request from the host closes the dialog.
void CKstrMoreInfo::OnTimer(UINT_PTR nIDEvent)
{
    KSX_TRACE(trace, s_log, "kstrmouse", "CKstrMouseMoreInfo::OnTimer(): top of function\n",
              "KstrMouseMoreInfo", kLineOnTimerTrace);
    KSXDialog::OnTimer(nIDEvent);
    if (m_stopTimer.GetId() != 0 && m_stopTimer.GetId() == nIDEvent && harn5::DiagModule::checkForStop()) {
        OnCancel();
    }
}

void CKstrMoreInfo::OnDestroy()
{
    m_stopTimer.Kill();
    KSXDialog::OnDestroy();
}
