// Extra tests registered beside the module's own, each failing in one way the run operation must
// survive: what each prints and which exit status it leaves is checked from outside.
#include <stdexcept>

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

[[maybe_unused]] harn5::Test* const faults[] = {
    fault("ThrowCoreException", &throwCoreException),
    fault("ThrowHostException", &throwHostException),
    fault("ThrowOtherException", &throwOtherException),
    fault("FailAssertion", &failAssertion),
};

}  // namespace
