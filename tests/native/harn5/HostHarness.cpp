#include "HostHarness.h"

#include <stdexcept>

using namespace harn5;

namespace {
HostHarness* s_current = nullptr;   // entries are plain functions: they find their harness here
}

HostHarness::HostHarness()
{
    if (s_current != nullptr) {
        throw std::logic_error("one HostHarness at a time");
    }
    s_current = this;
    host.setOutput(out, err);
    host.setLanguageFolder(KSTR_SOURCE_DIR "/resources/lang");
    failed = host.createEvent("TestFailed");
    skipped = host.createEvent("SCROLL_WHEEL_TESTING_SKIPPED");
    stepIndex = host.createLocalizedString("MOUSE_INTERACTIVE_TEST_INDEX");
    pnpList = host.createParameter("ExcludedThreeButtonDisplayByPnPID", DataType::STRINGARRAY(), "", false, true);
    untilFinished = host.createParameter("bDisablePassUntilFinished", DataType::BOOLEAN(), "", false, true);
    mouseType = host.createParameter("iForceMouseType", DataType::UINT32(), "", false, true);
    const DeviceCapability synaptics = DeviceCapability::Mouse() | DeviceCapability::SynapticsMouse();
    touchpadTest = host.createTest("TouchpadTest", synaptics | DeviceCapability::SynapticsTouchPad(), entry)
        ->setInteractive(true)->addParameter(untilFinished);
    host.createTest("TrackPointTest", synaptics | DeviceCapability::SynapticsTrackpoint(), entry)
        ->setInteractive(true)->addParameter(untilFinished)->addParameter(pnpList);
    mouseTest = host.createTest("MouseTest", DeviceCapability::Mouse(), entry)
        ->setEnumeratesOnlyOnce(true)
        ->addDevicePropertyExclusion("SP_Handle", "")
        ->addParameter(mouseType)
        ->addParameter(untilFinished);
    behaviour = [](const DiagDevice&) { return TestResult::PASS(); };
}

HostHarness::~HostHarness()
{
    s_current = nullptr;
}

int HostHarness::run(const std::vector<std::string>& arguments)
{
    std::vector<const char*> argv{"kstrmouse.kmx"};
    for (const std::string& argument : arguments) {
        argv.push_back(argument.c_str());
    }
    host.setCmdLineArgs(static_cast<int>(argv.size()), argv.data());
    return host.start();
}

TestResult HostHarness::entry(const DiagDevice& device)
{
    s_current->devicesSeen.push_back(device.name().utf8());
    return s_current->behaviour(device);
}
