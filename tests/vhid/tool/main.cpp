// kstrvhid: installs, removes and feeds the virtual touchpad of the tests (tests/vhid/README.md).
#include <windows.h>

#include <iostream>
#include <string>
#include <vector>

#include "ToolCommands.h"

namespace {

// The driver's INF beside the tool, where the build puts both.
std::wstring infBesideTool()
{
    wchar_t path[MAX_PATH] = {};
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring folder(path, length);
    folder.resize(folder.find_last_of(L"\\/") + 1);
    return folder + L"kstrvhid.inf";
}

}  // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> args(argv + 1, argv + argc);
    ToolCommands commands(std::cin, std::cout, std::cerr, infBesideTool());
    return commands.run(args);
}
