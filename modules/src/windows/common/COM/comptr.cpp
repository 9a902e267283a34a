#include "comptr.h"

#include <objbase.h>

#include "ksx/Log.h"

namespace {

ksx::Logger* s_log = nullptr;  // "comptr"

// Source lines that log readers match on.
constexpr int kLineConstructorTrace = 46;
constexpr int kLineCoInitialize = 49;
constexpr int kLineUninitializeFailed = 63;

}  // namespace

COMInitializer::COMInitializer() : m_hr(E_FAIL)
{
    KSX_TRACE(trace, s_log, "comptr", "COMInitializer::COMInitializer", "comptr", kLineConstructorTrace);
    m_hr = ::CoInitialize(nullptr);
    KSX_LOG(s_log, "comptr", ksx::LoggerPriority::PRIORITY_TRACE, kLineCoInitialize,
            "CoInitialize returns " + static_cast<long>(m_hr));
}

COMInitializer::~COMInitializer()
{
    if (m_hr < 0) {
        return;
    }
    try {
        ::CoUninitialize();
    } catch (...) {
        KSX_LOG(s_log, "comptr", ksx::LoggerPriority::PRIORITY_TRACE, kLineUninitializeFailed,
                "The uninitialization of the COM object created an excecption.");
    }
}
