#include <gtest/gtest.h>

#include <windows.h>

#include <memory>
#include <string>
#include <type_traits>

#include "ksx/DLLSearchPathRestriction.h"

namespace {

struct LibraryFreer {
    void operator()(HMODULE module) const { FreeLibrary(module); }
};
using Library = std::unique_ptr<std::remove_pointer_t<HMODULE>, LibraryFreer>;

// A copy of the probe DLL in the working directory under a name nothing else uses; removed at the end.
class ProbeCopy {
public:
    explicit ProbeCopy(const wchar_t* stem) : m_name(stem + std::to_wstring(GetCurrentProcessId()) + L".dll")
    {
        wchar_t exe[MAX_PATH];
        std::wstring source(exe, GetModuleFileNameW(nullptr, exe, MAX_PATH));
        source.replace(source.find_last_of(L'\\') + 1, std::wstring::npos, KSX_PROBE_DLL);
        m_copied = CopyFileW(source.c_str(), m_name.c_str(), FALSE) != 0;
    }
    ~ProbeCopy() { DeleteFileW(m_name.c_str()); }
    ProbeCopy(const ProbeCopy&) = delete;
    ProbeCopy& operator=(const ProbeCopy&) = delete;

    bool copied() const { return m_copied; }
    Library load() const { return Library(LoadLibraryW(m_name.c_str())); }

private:
    std::wstring m_name;
    bool m_copied = false;
};

// The restriction cannot be undone in the process, so the control load comes first.
TEST(DLLSearchPathRestriction, SystemDirectoryOnlyIgnoresTheWorkingDirectory)
{
    const ProbeCopy before(L"ksx_probe_before_");
    const ProbeCopy after(L"ksx_probe_after_");
    ASSERT_TRUE(before.copied() && after.copied());
    EXPECT_NE(before.load(), nullptr);

    ksx::DLLSearchPathRestriction::configure(ksx::DLLSearchPathRestriction::SYSTEM_DIRECTORY_ONLY);
    EXPECT_EQ(after.load(), nullptr);
    EXPECT_NE(Library(LoadLibraryW(L"user32.dll")), nullptr);
}

}  // namespace
