#include "harn5/ProcessEnvironment.h"

#include <unistd.h>

#include <clocale>
#include <filesystem>
#include <string>

#include "harn5/Host.h"
#include "harn5/Text.h"

namespace harn5 {

Host& ProcessEnvironment::configure(Host& host)
{
    // Native builds run the portable half only: the language files sit beside the program and
    // the language is the C library's message locale ("de_DE.UTF-8" -> "de").
    host.setLanguageFolder(executableFolder() / "lang");
    const char* current = std::setlocale(LC_MESSAGES, nullptr);
    const std::string previous = current ? current : "C";
    const char* locale = std::setlocale(LC_MESSAGES, "");
    const std::string name = locale ? locale : "";
    std::setlocale(LC_MESSAGES, previous.c_str());
    const std::string code = Text::lower(name.substr(0, name.find_first_of("_.@")));
    host.setUserLanguage(code == "c" || code == "posix" ? std::string() : code);
    host.setConsoleInput(isatty(STDIN_FILENO) != 0);
    return host;
}

std::filesystem::path ProcessEnvironment::executableFolder()
{
    std::error_code ignored;
    return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
}

bool ProcessEnvironment::windowExists(std::uintptr_t)
{
    return true;
}

}  // namespace harn5
