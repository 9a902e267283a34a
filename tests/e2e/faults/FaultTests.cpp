// Extra tests registered beside the module's own, each failing in one way the run operation must
// survive: what each prints and which exit status it leaves is checked from outside.
#include <windows.h>
#include <ole2.h>

#include <stdexcept>
#include <string>

#include "ImportOverride.h"

#include "harn5/DiagModule.h"
#include "harn5/HarnException.h"
#include "ksx/AssertionFailure.h"
#include "ksx/Exception.h"

using harn5::DeviceCapability;
using harn5::DiagModule;
using harn5::HarnString;
using harn5::TestResult;

namespace {

TestResult throwCoreException(const harn5::DiagDevice&) { throw ksx::Exception(ksx::String("core failure for the test")); }
TestResult throwHostException(const harn5::DiagDevice&) { throw harn5::HarnException(HarnString("host failure for the test")); }
TestResult throwOtherException(const harn5::DiagDevice&) { throw std::runtime_error("neither core nor host"); }
TestResult failAssertion(const harn5::DiagDevice& device)
{
    KSX_ASSERT(!device.hasCapability(DeviceCapability::Mouse()), "FaultTests", 42);
    return TestResult::PASS();
}

harn5::Test* fault(const char* name, harn5::Test::Entry entry)
{
    return DiagModule::createTest(HarnString(name), DeviceCapability::Mouse(), entry)->setEnumeratesOnlyOnce(true);
}

// KSTR_FAULT=ole: OLE refuses to start, through the executable's own import slot, for the whole
// life of the process.
using OleInitializeFn = HRESULT(WINAPI*)(LPVOID);
extern "C" OleInitializeFn __imp_OleInitialize;

HRESULT WINAPI refuseOle(LPVOID)
{
    return E_OUTOFMEMORY;
}

bool faultAsked(const std::string& fault)
{
    char value[32] = {};
    const DWORD length = GetEnvironmentVariableA("KSTR_FAULT", value, sizeof value);
    return length > 0 && length < sizeof value && fault == value;
}

[[maybe_unused]] const auto* const oleFault =
    faultAsked("ole") ? new mousetest::ImportOverride<OleInitializeFn>(__imp_OleInitialize, &refuseOle) : nullptr;

// KSTR_FAULT=gdiplus: GDI+ refuses to start (its slot is taken before the first call loads it).
using GdiplusStartupFn = int(WINAPI*)(ULONG_PTR*, const void*, void*);
extern "C" GdiplusStartupFn __imp_GdiplusStartup;

int WINAPI refuseGdiplus(ULONG_PTR* token, const void*, void*)
{
    *token = 0;
    return 1;   // GenericError
}

[[maybe_unused]] const auto* const gdiplusFault =
    faultAsked("gdiplus") ? new mousetest::ImportOverride<GdiplusStartupFn>(__imp_GdiplusStartup, &refuseGdiplus)
                          : nullptr;

[[maybe_unused]] harn5::Test* const faults[] = {
    fault("ThrowCoreException", &throwCoreException),
    fault("ThrowHostException", &throwHostException),
    fault("ThrowOtherException", &throwOtherException),
    fault("FailAssertion", &failAssertion),
};

}  // namespace
