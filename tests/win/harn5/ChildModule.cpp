// A module in miniature: tests registered from static initialisers on the process-wide host,
// then the command line, version and start, with the run operation's exception handling.
#include <windows.h>

#include <cstdio>
#include <string>
#include <vector>

#include "harn5/DiagModule.h"

using namespace harn5;

namespace {

// A failed assertion raises structured exception 7.
TestResult raiseAssertion(const DiagDevice&)
{
    RaiseException(7, 0, 0, nullptr);
    return TestResult::PASS();
}

TestResult raiseAccessViolation(const DiagDevice&)
{
    RaiseException(EXCEPTION_ACCESS_VIOLATION, 0, 0, nullptr);
    return TestResult::PASS();
}

// Polls for a stop from a window timer, as the dialogs do; gives up after 60 s.
TestResult waitForStop(const DiagDevice&)
{
    const UINT_PTR timer = SetTimer(nullptr, 0, 50, nullptr);
    const ULONGLONG deadline = GetTickCount64() + 60000;
    MSG message;
    bool stopped = false;
    while (!stopped && GetTickCount64() < deadline && GetMessageW(&message, nullptr, 0, 0) > 0) {
        stopped = message.message == WM_TIMER && DiagModule::checkForStop();
    }
    KillTimer(nullptr, timer);
    return stopped ? TestResult::USERABORTED() : TestResult::FAIL();
}

TestResult pass(const DiagDevice&)
{
    return TestResult::PASS();
}

Test* const s_mouse = DiagModule::createTest("MouseTest", DeviceCapability::Mouse(), pass);
Test* const s_assertion = DiagModule::createTest("RaiseAssertion", DeviceCapability::Mouse(), raiseAssertion);
Test* const s_violation = DiagModule::createTest("AccessViolation", DeviceCapability::Mouse(), raiseAccessViolation);
Test* const s_wait = DiagModule::createTest("WaitForStop", DeviceCapability::Mouse(), waitForStop);

std::string utf8(const wchar_t* text)
{
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string out(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, out.data(), size, nullptr, nullptr);
    out.resize(static_cast<std::size_t>(size) - 1);
    return out;
}

}  // namespace

int wmain(int argc, wchar_t** argv)
{
    std::vector<std::string> arguments;
    for (int i = 0; i < argc; ++i) {
        arguments.push_back(utf8(argv[i]));
    }
    std::vector<const char*> pointers;
    for (const std::string& argument : arguments) {
        pointers.push_back(argument.c_str());
    }
    try {
        DiagModule::setCmdLineArgs(argc, pointers.data());
        DiagModule::setVersion(6, 5, "000000001");
        return DiagModule::start();
    } catch (const HarnException& e) {
        std::fprintf(stderr, "HarnException: %s\n", e.toString().getUTF8Buffer());
        return TestResult::EXITEDABNORMALLY().value();
    }
}
