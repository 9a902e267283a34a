#include "harn5/ProcessEnvironment.h"

#include <windows.h>
#include <shellapi.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "harn5/CommandLine.h"
#include "harn5/Host.h"
#include "harn5/SystemMouseSource.h"
#include "harn5/Text.h"

namespace harn5 {

namespace {

// "de-DE" -> "de"; empty when the system does not say.
std::string userLanguage()
{
    wchar_t name[LOCALE_NAME_MAX_LENGTH] = {};
    if (LCIDToLocaleName(MAKELCID(GetUserDefaultUILanguage(), SORT_DEFAULT), name,
                         LOCALE_NAME_MAX_LENGTH, 0) == 0) {
        return {};
    }
    const std::string locale = Text::fromPath(std::filesystem::path(name));
    return Text::lower(locale.substr(0, locale.find('-')));
}

// The process's arguments after the program name, in UTF-8.
std::vector<std::string> processArguments()
{
    int count = 0;
    std::unique_ptr<LPWSTR, decltype(&LocalFree)> argv(CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
    std::vector<std::string> arguments;
    for (int i = 1; argv && i < count; ++i) {
        arguments.push_back(Text::fromPath(std::filesystem::path(argv.get()[i])));
    }
    return arguments;
}

}  // namespace

std::filesystem::path ProcessEnvironment::executableFolder()
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) {
            return {};
        }
        if (length < path.size()) {
            path.resize(length);
            return std::filesystem::path(path).parent_path();
        }
        path.resize(path.size() * 2);
    }
}

bool ProcessEnvironment::windowExists(std::uintptr_t handle)
{
    return IsWindow(reinterpret_cast<HWND>(handle)) != FALSE;
}

Host& ProcessEnvironment::configure(Host& host)
{
    // A killed process must not lose what it already printed.
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    std::setvbuf(stderr, nullptr, _IONBF, 0);
    host.setLanguageFolder(executableFolder() / "lang");
    host.setUserLanguage(userLanguage());
    // A console answers its mode; a pipe, a file or NUL (a character device too) does not.
    DWORD mode = 0;
    host.setConsoleInput(GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode) != FALSE);
    host.addDeviceSource(std::make_unique<SystemMouseSource>());
    for (const char* name : {"Buttons", "WheelPresent", "ButtonsSwapped"}) {
        host.declareDeviceProperty(name, DevicePropertyTypes::Type::Uint32);
    }
    // The host is made at the first registration, long before start(): taking the log options now
    // lets the module's earliest traces obey them. Bad options are left for start() to report.
    try {
        host.configureLogging(CommandLine::parse(processArguments()));
    } catch (...) {
    }
    return host;
}

}  // namespace harn5
