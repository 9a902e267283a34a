// The Win32 pieces used in process: the system mouse source, the host window option, and
// German text handed to Win32 as UTF-16.
#include <gtest/gtest.h>

#include <windows.h>

#include <sstream>
#include <string>

#include "harn5/HarnException.h"
#include "harn5/Host.h"
#include "harn5/Language.h"
#include "harn5/LocalizedString.h"
#include "harn5/SystemMouseSource.h"

using namespace harn5;

TEST(SystemMouse, IsOfferedWithTheMouseCapabilityWhenPresent)
{
    std::vector<DiagDevice> devices;
    SystemMouseSource().enumerate(devices);
    ASSERT_NE(GetSystemMetrics(SM_MOUSEPRESENT), 0) << "no mouse on this system";
    ASSERT_EQ(devices.size(), 1u);
    EXPECT_EQ(devices[0].name().utf8(), "System mouse");
    EXPECT_EQ(devices[0].capability(), DeviceCapability::Mouse());
    ASSERT_NE(devices[0].property("Buttons"), nullptr);
    EXPECT_EQ(devices[0].property("Buttons")->value().valueInt32(), GetSystemMetrics(SM_CMOUSEBUTTONS));
    EXPECT_EQ(devices[0].property("SP_Handle"), nullptr);   // the mouse tests may run on it
}

TEST(HostWindow, IsTheHandleGivenOnTheCommandLineWhileThatWindowExists)
{
    HWND window = CreateWindowExW(0, L"STATIC", L"host", 0, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(window, nullptr);
    const std::string handle = std::to_string(reinterpret_cast<std::uintptr_t>(window));
    const char* argv[] = {"kstrmouse.kmx", "--list", "--host-window", handle.c_str()};
    {
        Host host;
        std::ostringstream out;
        host.setOutput(out, out);
        host.setCmdLineArgs(4, argv);
        EXPECT_EQ(host.start(), 0);
        EXPECT_EQ(host.hostWindow(), reinterpret_cast<std::uintptr_t>(window));
    }
    DestroyWindow(window);
    Host stale;
    std::ostringstream out;
    stale.setOutput(out, out);
    stale.setCmdLineArgs(4, argv);
    try {
        stale.start();
        ADD_FAILURE() << "a stale window handle was taken";
    } catch (const harn5::HarnException& e) {
        EXPECT_NE(e.toString().utf8().find("no window has this handle"), std::string::npos) << e.toString().utf8();
    }
}

TEST(Utf16, GermanTextReachesWin32Intact)
{
    const Language german = Language::load(KSTR_SOURCE_DIR "/resources/lang/de.lang");
    const LocalizedString skip("BUTTON_SKIP", german);
    const wchar_t* text = reinterpret_cast<const wchar_t*>(skip.localizedString().getUCS2Buffer());
    EXPECT_STREQ(text, L"\u00DCberspringen");
    wchar_t upper[32] = {};
    lstrcpynW(upper, text, 32);
    CharUpperW(upper);
    EXPECT_STREQ(upper, L"\u00DCBERSPRINGEN");
}
