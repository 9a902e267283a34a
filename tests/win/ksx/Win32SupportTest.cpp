#include <gtest/gtest.h>

#include <windows.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <regex>
#include <sstream>
#include <string>
#include <type_traits>

#include "ksx/AssertionFailure.h"
#include "ksx/Exception.h"
#include "ksx/Log.h"
#include "ksx/OperatingSystem.h"

namespace {

constexpr wchar_t kMiniNT[] = L"SYSTEM\\CurrentControlSet\\Control\\MiniNT";

// The key made by the test, closed and deleted however the test ends.
struct MadeKey {
    explicit MadeKey(HKEY made) : key(made) {}
    MadeKey(const MadeKey&) = delete;
    MadeKey& operator=(const MadeKey&) = delete;
    ~MadeKey()
    {
        RegCloseKey(key);
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, kMiniNT);
    }
    HKEY key;
};

TEST(OperatingSystemDetection, MiniNTKeyMeansWindowsPE)
{
    const auto os = ksx::OperatingSystem::getCurrentOperatingSystem();
    EXPECT_TRUE(os.getDistribution().distribution == 1 || os.getDistribution().distribution == 2);
    EXPECT_GE(os.getMajor().major, 16);
    {
        HKEY raw = nullptr;
        DWORD disposition = 0;
        if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, kMiniNT, 0, nullptr, 0, KEY_WRITE, nullptr, &raw, &disposition) !=
            ERROR_SUCCESS) {
            GTEST_SKIP() << "no right to create the key";
        }
        ASSERT_EQ(disposition, static_cast<DWORD>(REG_CREATED_NEW_KEY));
        const MadeKey made(raw);
        const auto pe = ksx::OperatingSystem::getCurrentOperatingSystem();
        EXPECT_EQ(pe.getDistribution().distribution, 3);
        EXPECT_EQ(pe.getMajor().major, os.getMajor().major);
    }
    EXPECT_EQ(ksx::OperatingSystem::getCurrentOperatingSystem().getDistribution().distribution,
              os.getDistribution().distribution);
}

EXCEPTION_RECORD s_raised;

LONG CALLBACK continueAfterAssertion(EXCEPTION_POINTERS* info)
{
    if (info->ExceptionRecord->ExceptionCode != 7) return EXCEPTION_CONTINUE_SEARCH;
    s_raised = *info->ExceptionRecord;
    return EXCEPTION_CONTINUE_EXECUTION;
}

TEST(AssertionFailure, RaisesStructuredExceptionSevenWithoutFlagsOrArguments)
{
    const std::unique_ptr<void, ULONG(WINAPI*)(PVOID)> handler(AddVectoredExceptionHandler(1, continueAfterAssertion),
                                                               RemoveVectoredExceptionHandler);
    KSX_ASSERT(GetCurrentProcessId() == 0, "synaptics", 88);
    EXPECT_EQ(s_raised.ExceptionCode, 7u);
    EXPECT_EQ(s_raised.ExceptionFlags, 0u);
    EXPECT_EQ(s_raised.NumberParameters, 0u);
}

TEST(Exception, StackTraceNamesModulesWithOffsets)
{
    const std::string trace = ksx::Exception("lost").getStackTrace().utf8();
    EXPECT_NE(trace.find("ksx_win_tests.exe+0x"), std::string::npos) << trace;
    std::istringstream frames(trace);
    for (std::string frame; std::getline(frames, frame);) {
        EXPECT_TRUE(std::regex_match(frame, std::regex(R"([^+\s]+\+0x[0-9a-f]+|0x[0-9a-f]+)"))) << frame;
    }
}

TEST(LogFactory, FileSinkTakesAWidePath)
{
    wchar_t folder[MAX_PATH];
    std::wstring path(folder, GetTempPathW(MAX_PATH, folder));
    path += L"ksx-\u00E9\u20AC-" + std::to_wstring(GetCurrentProcessId()) + L".log";
    ksx::LogFactory::setSink(ksx::String(reinterpret_cast<const unsigned short*>(path.c_str())));
    ksx::Logger* log = nullptr;
    KSX_LOG(log, "wide.kstrmouse", ksx::LoggerPriority::PRIORITY_ERROR, 5, "\xC3\xA9t\xC3\xA9");
    ksx::LogFactory::resetSink();

    char content[256] = {};
    if (const std::unique_ptr<FILE, int (*)(FILE*)> file(_wfopen(path.c_str(), L"rb"), std::fclose); file) {
        std::fread(content, 1, sizeof content - 1, file.get());
    }
    DeleteFileW(path.c_str());
    EXPECT_NE(std::strstr(content, " wide.kstrmouse 5 5 \xC3\xA9t\xC3\xA9\n"), nullptr) << content;
}

}  // namespace
