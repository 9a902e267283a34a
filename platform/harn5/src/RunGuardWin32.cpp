#include "harn5/RunGuard.h"

#include <windows.h>

#include <cstdio>
#include <string>

#include "harn5/Host.h"
#include "harn5/TestResult.h"

namespace harn5 {

namespace {

// The filter is process-wide; it reaches the host whose start() installed it.
Host* s_host = nullptr;
LPTOP_LEVEL_EXCEPTION_FILTER s_previousFilter = nullptr;

const char* exceptionName(DWORD code)
{
    switch (code) {
    case EXCEPTION_ACCESS_VIOLATION: return "access violation";
    case EXCEPTION_ARRAY_BOUNDS_EXCEEDED: return "array bounds exceeded";
    case EXCEPTION_BREAKPOINT: return "breakpoint";
    case EXCEPTION_DATATYPE_MISALIGNMENT: return "datatype misalignment";
    case EXCEPTION_FLT_DIVIDE_BY_ZERO: return "floating-point division by zero";
    case EXCEPTION_FLT_INVALID_OPERATION: return "invalid floating-point operation";
    case EXCEPTION_ILLEGAL_INSTRUCTION: return "illegal instruction";
    case EXCEPTION_IN_PAGE_ERROR: return "in-page error";
    case EXCEPTION_INT_DIVIDE_BY_ZERO: return "integer division by zero";
    case EXCEPTION_INT_OVERFLOW: return "integer overflow";
    case EXCEPTION_PRIV_INSTRUCTION: return "privileged instruction";
    case EXCEPTION_STACK_OVERFLOW: return "stack overflow";
    case 0xC0000409: return "stack buffer overrun";
    default: return "unknown exception";
    }
}

LONG WINAPI onUnhandledException(EXCEPTION_POINTERS* info)
{
    const DWORD code = info->ExceptionRecord->ExceptionCode;
    char text[64];
    // Code 7 is what a failed assertion raises; it needs no further name.
    if (code == 7) {
        std::snprintf(text, sizeof text, "0x%08lX", static_cast<unsigned long>(code));
    } else {
        std::snprintf(text, sizeof text, "0x%08lX %s", static_cast<unsigned long>(code), exceptionName(code));
    }
    if (s_host != nullptr) {
        try {
            s_host->recordCrash(text);
        } catch (...) {
            // Nothing may leave a filter; the exit status still tells what happened.
        }
    }
    ExitProcess(static_cast<UINT>(TestResult::EXITEDABNORMALLY().value()));
}

BOOL WINAPI onConsoleControl(DWORD type)
{
    switch (type) {
    case CTRL_C_EVENT:
    case CTRL_BREAK_EVENT:
    case CTRL_CLOSE_EVENT:
        RunGuard::interrupt();
        return TRUE;
    default:
        return FALSE;
    }
}

}  // namespace

RunGuard::RunGuard(Host& host)
{
    clearInterrupt();
    s_host = &host;
    s_previousFilter = SetUnhandledExceptionFilter(onUnhandledException);
    SetConsoleCtrlHandler(onConsoleControl, TRUE);
}

RunGuard::~RunGuard()
{
    SetConsoleCtrlHandler(onConsoleControl, FALSE);
    SetUnhandledExceptionFilter(s_previousFilter);
    s_host = nullptr;
}

}  // namespace harn5
