#pragma once
// The host library's facade: every operation forwards to the one process-wide Host, which is
// created on first use so that registrations work from any static initialiser.
#include <vector>

#include "harn5/DataType.h"
#include "harn5/DeviceCapability.h"
#include "harn5/DiagDevice.h"
#include "harn5/Event.h"
#include "harn5/HarnException.h"
#include "harn5/HarnString.h"
#include "harn5/LocalizedString.h"
#include "harn5/Parameter.h"
#include "harn5/RunRecord.h"
#include "harn5/Test.h"
#include "harn5/TestResult.h"

namespace harn5 {

class Host;

class DiagModule {
public:
    static Event* createEvent(const HarnString& name);
    static LocalizedString* createLocalizedString(const HarnString& key);
    static Parameter* createParameter(const HarnString& name, const DataType& type,
                                      const HarnString& text, bool first, bool second);
    static Test* createTest(const HarnString& name, const DeviceCapability& capability,
                            TestResult (*entry)(const DiagDevice&));

    static void setCmdLineArgs(int argc, const char* argv[]);
    static void setVersion(unsigned int major, unsigned int minor, const HarnString& build);
    static void setModuleInitCallback(void (*callback)());
    static int start();

    static void error(Event* event, const HarnString& sourceFile, int sourceLine);
    // With what was found, which the report keeps beside the event.
    static void error(Event* event, const HarnString& sourceFile, int sourceLine, const HarnString& detail);
    static void warning(Event* event, const HarnString& sourceFile, int sourceLine);
    static void informative(Event* event, const HarnString& sourceFile, int sourceLine);

    static bool checkForStop();
    // Figures of the running test for the report: name, value and unit.
    static void measure(const std::vector<RunRecord::Measurement>& measurements);
    static const Test& getCurrentTest();       // throws HarnException when no test runs

    static Host& host();                       // the process-wide host
};

}  // namespace harn5
