#pragma once
// A Host with a small registry shaped like the module's, whose test entries do what each test
// case asks, and whose stdout/stderr are captured.
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "harn5/Host.h"

class HostHarness {
public:
    using Behaviour = std::function<harn5::TestResult(const harn5::DiagDevice&)>;

    HostHarness();
    ~HostHarness();

    // Runs start() with "kstrmouse.kmx" as argv[0].
    int run(const std::vector<std::string>& arguments);

    harn5::Host host;
    std::ostringstream out;
    std::ostringstream err;
    Behaviour behaviour;                       // what every registered test's entry does
    std::vector<std::string> devicesSeen;      // device names the entries were called with
    harn5::Test* touchpadTest;
    harn5::Test* mouseTest;
    harn5::Event* failed;
    harn5::Event* skipped;
    harn5::LocalizedString* stepIndex;
    harn5::Parameter* pnpList;                 // STRINGARRAY, TrackPointTest only
    harn5::Parameter* untilFinished;           // BOOLEAN, all tests
    harn5::Parameter* mouseType;               // UINT32, MouseTest only

private:
    static harn5::TestResult entry(const harn5::DiagDevice& device);
};
