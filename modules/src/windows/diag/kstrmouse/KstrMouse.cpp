#include "KstrMouse.h"

#include <afxdisp.h>
#include <gdiplus.h>

#include "KstrMouseDlg.h"
#include "MouseClickTestDlg.h"
#include "Registration.h"
#include "harn5/DiagModule.h"
#include "harn5/HarnException.h"
#include "harn5/Host.h"
#include "ksx/AssertionFailure.h"
#include "ksx/DLLSearchPathRestriction.h"
#include "ksx/Exception.h"
#include "ksx/Log.h"
#include "ksx/OStream.h"
#include "ksxui/CommandLineParser.h"
#include "ksxui/KstrGetCUIHandle.h"

using harn5::DeviceCapability;
using harn5::DiagModule;
using harn5::TestResult;

namespace {

ksx::Logger* s_log = nullptr;  // "kstrmouse", shared by everything in this file

// Source lines that log readers and hosts match on.
constexpr int kLineModuleInitFailed = 114;
constexpr int kLineRegisteredFirst = 120;
constexpr int kLineRunTrace = 137;
constexpr int kLineMouseTestTrace = 168;
constexpr int kLineMouseTestAssert = 172;
constexpr int kLineMouseInteractiveTestTrace = 182;
constexpr int kLineMouseInteractiveTestAssert = 184;
constexpr int kLineDisableControl = 242;
constexpr int kLineEnableControl = 262;
constexpr int kLineSetLocalizedString = 285;

constexpr unsigned int kVersionMajor = 6;
constexpr unsigned int kVersionMinor = 5;
constexpr const char* kVersionBuild = "000000001";
constexpr const char* kModuleFileName = "kstrmouse.kmx";

// The framework's own window class for the module's windows: byte-aligned, double clicks.
constexpr UINT kModuleClassStyle = CS_BYTEALIGNWINDOW | CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;

}  // namespace

// theApp itself is defined last in Registration.cpp: after every registration, whatever the link
// order.
CKstrMouseGUIApp::CKstrMouseGUIApp()
    : CWinApp(nullptr),
      m_registeredFirst(kstrmouse::tests::MouseTest != nullptr && kstrmouse::tests::MouseInteractiveTest != nullptr)
{
}

bool CKstrMouseGUIApp::registeredFirst() const
{
    return m_registeredFirst;
}

BOOL CKstrMouseGUIApp::InitInstance()
{
    // A module whose tests were not registered before it would run with some of them missing.
    KSX_ASSERT(m_registeredFirst, "KstrMouse", kLineRegisteredFirst);
    AfxEnableControlContainer(nullptr);
    AfxRegisterWndClass(kModuleClassStyle, nullptr, nullptr, nullptr);
    return TRUE;
}

void CKstrMouseGUIApp::handCommandLineToHost()
{
    ksxui::CommandLineParser parser{ksx::String(kModuleFileName)};
    ParseCommandLine(parser);
    DiagModule::setCmdLineArgs(parser.argc(), parser.argv());
    DiagModule::setVersion(kVersionMajor, kVersionMinor, harn5::HarnString(kVersionBuild));
}

int CKstrMouseGUIApp::Run()
{
    KSX_TRACE(trace, s_log, "kstrmouse", "KSTRMouse Run", "KstrMouse", kLineRunTrace);
    int result = 0;
    try {
        ksx::DLLSearchPathRestriction::configure(ksx::DLLSearchPathRestriction::SYSTEM_DIRECTORY_ONLY);
        handCommandLineToHost();
        DiagModule::setModuleInitCallback(&moduleInit);
        result = DiagModule::start();
    } catch (const ksx::Exception& e) {
        ksx::cerr << "Exception: " << e.toString().getUTF8String().c_str() << ksx::endl;
        result = TestResult::EXITEDABNORMALLY().value();
    } catch (const harn5::HarnException& e) {
        ksx::cerr << "HarnException: " << e.toString().getUTF8Buffer() << ksx::endl;
        result = TestResult::EXITEDABNORMALLY().value();
    } catch (...) {
        // Anything else is not the host's or the core's: the run ends quietly with 0.
    }
    return result;
}

void moduleInit()
{
    harn5::Host& host = DiagModule::host();
    // Only the classic test drags and drops: OLE starts for a run with it in it.
    if (host.willRun(*kstrmouse::tests::MouseTest) && !AfxOleInit()) {
        // It cannot run, and the report says so; the other tests go on. Nobody may be there to
        // close a message box.
        host.refuse(*kstrmouse::tests::MouseTest, "OLE could not be initialised");
        if (host.unattended()) {
            ksx::cerr << "Ole Initialization Failed" << ksx::endl;
        } else {
            AfxMessageBox(L"Ole Initialization Failed", 0, 0);
        }
    }
    // Only the click test draws on this session (the touch tests start one of their own): a run
    // without it never loads GDI+ at all.
    if (!host.willRun(*kstrmouse::tests::MouseInteractiveTest)) {
        return;
    }
    const Gdiplus::GdiplusStartupInput input(nullptr, FALSE, FALSE);
    ULONG_PTR token = 0;
    if (Gdiplus::GdiplusStartup(&token, &input, nullptr) != Gdiplus::Ok) {
        KSX_LOG(s_log, "kstrmouse", ksx::LoggerPriority::PRIORITY_TRACE, kLineModuleInitFailed,
                "moduleInit()::GdiplusStartup() call failed");
    }
}

TestResult MouseTest(const harn5::DiagDevice& device)
{
    KSX_TRACE(trace, s_log, "kstrmouse", "Enter MouseTest", "KstrMouse", kLineMouseTestTrace);
    KSX_ASSERT(device.hasCapability(DeviceCapability::Mouse()), "KstrMouse", kLineMouseTestAssert);
    CWnd* pParent = KstrGetCUIHandle();
    CKstrMouseDlg dialog(pParent);
    dialog.DoModal();
    return dialog.m_result;
}

TestResult MouseInteractiveTest(const harn5::DiagDevice& device)
{
    KSX_TRACE(trace, s_log, "kstrmouse", "MouseInteractiveTest", "KstrMouse", kLineMouseInteractiveTestTrace);
    KSX_ASSERT(device.hasCapability(DeviceCapability::Mouse()), "KstrMouse", kLineMouseInteractiveTestAssert);
    // Read once: the layout cannot change under a running dialog.
    const bool isGamingMouse = kstrmouse::params::TestGamingButtons->value().valueBool();
    CWnd* pParent = KstrGetCUIHandle();
    CMouseClickTestDlg dialog(pParent, isGamingMouse);
    return dialog.runTest();
}

bool disableControl(CWnd* parent, int controlId)
{
    KSX_TRACE(trace, s_log, "kstrmouse", "disableControl", "KstrMouse", kLineDisableControl);
    CWnd* control = parent != nullptr ? parent->GetDlgItem(controlId) : nullptr;
    if (control == nullptr || !control->IsWindowVisible() || !control->IsWindowEnabled()) {
        return false;
    }
    control->EnableWindow(FALSE);
    return true;
}

bool enableControl(CWnd* parent, int controlId)
{
    // The label is the one the log readers know for both helpers.
    KSX_TRACE(trace, s_log, "kstrmouse", "disableControl", "KstrMouse", kLineEnableControl);
    CWnd* control = parent != nullptr ? parent->GetDlgItem(controlId) : nullptr;
    if (control == nullptr) {
        return false;
    }
    if (!control->IsWindowEnabled()) {
        control->EnableWindow(TRUE);
    }
    if (!control->IsWindowVisible()) {
        control->ShowWindow(SW_SHOW);
    }
    return true;
}

void setLocalizedString(CWnd* parent, int controlId, const harn5::LocalizedString* key)
{
    KSX_TRACE(trace, s_log, "kstrmouse", "setLocalizedString", "KstrMouse", kLineSetLocalizedString);
    CWnd* control = parent != nullptr && key != nullptr ? parent->GetDlgItem(controlId) : nullptr;
    if (control != nullptr) {
        control->SetWindowText(reinterpret_cast<LPCTSTR>(key->localizedString().getUCS2Buffer()));
    }
}
