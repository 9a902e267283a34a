// KSXDialog and KstrGetCUIHandle inside a real host run: the host's language decides the
// dialog's reading direction and its --host-window option the parent the dialogs get.
#include "ksxui/KSXDialog.h"
#include "ksxui/KstrGetCUIHandle.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "TestResource.h"
#include "harn5/DeviceCapability.h"
#include "harn5/DiagModule.h"

namespace {

// What the dialog saw while it ran inside the host.
struct Seen {
    bool initialised = false;
    LONG_PTR dialogExStyle = 0;
    LONG_PTR noteExStyle = 0;
    CWnd* hostWindow = nullptr;
};
Seen g_seen;

class LanguageDialog : public KSXDialog {
public:
    explicit LanguageDialog(CWnd* parent) : KSXDialog(IDD_KSXUI, parent) {}

    BOOL OnInitDialog() override
    {
        const BOOL result = KSXDialog::OnInitDialog();
        g_seen.initialised = true;
        g_seen.dialogExStyle = ::GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE);
        g_seen.noteExStyle = ::GetWindowLongPtrW(::GetDlgItem(m_hWnd, IDC_NOTE), GWL_EXSTYLE);
        EndDialog(IDOK);
        return result;
    }
};

harn5::TestResult RunLanguageDialog(const harn5::DiagDevice&)
{
    g_seen.hostWindow = KstrGetCUIHandle();
    LanguageDialog dialog(g_seen.hostWindow);
    dialog.DoModal();
    return harn5::TestResult::PASS();
}

// Runs the host once with the registered dialog test and the given options.
int RunHost(std::vector<std::string> options)
{
    [[maybe_unused]] static harn5::Test* const test = harn5::DiagModule::createTest(
        "KsxuiLanguageDialog", harn5::DeviceCapability::Mouse(), &RunLanguageDialog);
    g_seen = Seen{};
    options.insert(options.begin(), {"ksxui_tests", "--test", "KsxuiLanguageDialog",
                                     "--no-system-devices", "--device", "Mouse"});
    std::vector<const char*> argv;
    for (const std::string& option : options) {
        argv.push_back(option.c_str());
    }
    harn5::DiagModule::setCmdLineArgs(static_cast<int>(argv.size()), argv.data());
    return harn5::DiagModule::start();
}

// A language file of the given reading direction ("ltr" or "rtl") in the temporary folder.
std::string WriteLanguage(const std::string& direction)
{
    wchar_t folder[MAX_PATH] = {};
    ::GetTempPathW(MAX_PATH, folder);
    char path[MAX_PATH] = {};
    ::WideCharToMultiByte(CP_UTF8, 0, folder, -1, path, MAX_PATH, nullptr, nullptr);
    const std::string file = std::string(path) + "ksxui_" + direction + ".lang";
    std::ofstream(file) << "@language xx\n@name Test\n@direction " << direction
                        << "\n[Tests]\nKsxuiLanguageDialog = \xd7\x91\xd7\x93\xd7\x99\xd7\xa7\xd7\x94\n";
    return file;
}

TEST(KSXDialog, RightToLeftLanguageMirrorsTheDialogUnderTheHostWindow)
{
    CWnd host;
    ASSERT_TRUE(host.Create(AfxRegisterWndClass(0), L"host", WS_OVERLAPPEDWINDOW,
                            CRect(0, 0, 200, 100), nullptr, 0));
    const std::string handle = std::to_string(reinterpret_cast<std::uintptr_t>(host.m_hWnd));

    EXPECT_EQ(0, RunHost({"--lang", WriteLanguage("rtl"), "--host-window", handle}));
    ASSERT_TRUE(g_seen.initialised);
    EXPECT_EQ(&host, g_seen.hostWindow);
    EXPECT_NE(0, g_seen.dialogExStyle & WS_EX_LAYOUTRTL);
    EXPECT_NE(0, g_seen.noteExStyle & WS_EX_RTLREADING);
}

TEST(KSXDialog, LeftToRightLanguageWithoutHostWindowKeepsTheTemplate)
{
    // (A host window that is gone is refused before any dialog: HostWindow in tests/win/harn5.)
    EXPECT_EQ(0, RunHost({"--lang", WriteLanguage("ltr")}));
    ASSERT_TRUE(g_seen.initialised);
    EXPECT_EQ(nullptr, g_seen.hostWindow);
    EXPECT_EQ(0, g_seen.dialogExStyle & WS_EX_LAYOUTRTL);
    EXPECT_EQ(0, g_seen.noteExStyle & WS_EX_RTLREADING);
}

}  // namespace

TEST(KSXDialog, PicturesTheTemplateLoadedGoWithTheDialog)
{
    // One run per picture control would otherwise leave a bitmap behind.
    class PictureDialog : public KSXDialog {
    public:
        PictureDialog() : KSXDialog(IDD_KSXUI_PICTURES) {}
        BOOL OnInitDialog() override
        {
            const BOOL result = KSXDialog::OnInitDialog();
            picture = reinterpret_cast<HGDIOBJ>(SendDlgItemMessageW(m_hWnd, IDC_PICTURE, STM_GETIMAGE, IMAGE_BITMAP, 0));
            EndDialog(IDOK);
            return result;
        }
        HGDIOBJ picture = nullptr;
    } dialog;
    EXPECT_EQ(dialog.DoModal(), IDOK);
    ASSERT_NE(dialog.picture, nullptr);
    EXPECT_EQ(::GetObjectType(dialog.picture), 0u);
}
