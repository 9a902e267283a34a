#include "harn5/DiagModule.h"

#include "harn5/Host.h"

namespace harn5 {

Host& DiagModule::host()
{
    return Host::process();
}

Event* DiagModule::createEvent(const HarnString& name)
{
    return host().createEvent(name);
}

LocalizedString* DiagModule::createLocalizedString(const HarnString& key)
{
    return host().createLocalizedString(key);
}

Parameter* DiagModule::createParameter(const HarnString& name, const DataType& type,
                                       const HarnString& text, bool first, bool second)
{
    return host().createParameter(name, type, text, first, second);
}

Test* DiagModule::createTest(const HarnString& name, const DeviceCapability& capability,
                             TestResult (*entry)(const DiagDevice&))
{
    return host().createTest(name, capability, entry);
}

void DiagModule::setCmdLineArgs(int argc, const char* argv[])
{
    host().setCmdLineArgs(argc, argv);
}

void DiagModule::setVersion(unsigned int major, unsigned int minor, const HarnString& build)
{
    host().setVersion(major, minor, build);
}

void DiagModule::setModuleInitCallback(void (*callback)())
{
    host().setModuleInitCallback(callback);
}

int DiagModule::start()
{
    return host().start();
}

void DiagModule::error(Event* event, const HarnString& sourceFile, int sourceLine)
{
    host().report(Host::Severity::Error, event, sourceFile, sourceLine);
}

void DiagModule::error(Event* event, const HarnString& sourceFile, int sourceLine, const HarnString& detail)
{
    host().report(Host::Severity::Error, event, sourceFile, sourceLine, detail.utf8());
}

void DiagModule::warning(Event* event, const HarnString& sourceFile, int sourceLine)
{
    host().report(Host::Severity::Warning, event, sourceFile, sourceLine);
}

void DiagModule::informative(Event* event, const HarnString& sourceFile, int sourceLine)
{
    host().report(Host::Severity::Informative, event, sourceFile, sourceLine);
}

void DiagModule::measure(const std::vector<RunRecord::Measurement>& measurements)
{
    host().measure(measurements);
}

bool DiagModule::checkForStop()
{
    return host().checkForStop();
}

const Test& DiagModule::getCurrentTest()
{
    const Test* test = host().currentTest();
    if (test == nullptr) {
        throw HarnException("getCurrentTest() was called while no test runs");
    }
    return *test;
}

}  // namespace harn5
