#include "synaptics.h"

#include <windows.h>

#include "CSynapticsDlg.h"
#include "PnPIdExclusion.h"
#include "Registration.h"
#include "comptr.h"
#include "harn5/DiagModule.h"
#include "ksx/Exception.h"
#include "ksx/Log.h"
#include "ksxui/GdiResourceManager.h"

using harn5::DiagModule;
using harn5::TestResult;

namespace {

ksx::Logger* s_log = nullptr;  // "kstrmouse.synaptics"
constexpr const char* kLogger = "kstrmouse.synaptics";

// Source lines that log readers and hosts match on.
constexpr int kLineBlacklisted = 70;
constexpr int kLineBlacklistEvent = 71;
constexpr int kLineDialogFailed = 97;
constexpr int kLineException = 102;
constexpr int kLineStackTrace = 103;

// Buttons are shown and tested unless the device's PnP id is on the exclusion list.
bool threeButtonDisplay(const harn5::DiagDevice& device)
{
    const harn5::DeviceProperty* pnpProperty = device.property("SP_PnPID");
    if (pnpProperty == nullptr) {
        return true;
    }
    const ksx::String pnpId = pnpProperty->value().valueString().ksxString();
    const harn5::Parameter* excluded = kstrmouse::params::ExcludedThreeButtonDisplayByPnPID;
    if (!excluded->isset()) {
        return true;
    }
    const harn5::Value list = excluded->value();
    // The size is asked afresh for every entry.
    for (unsigned int index = 0; index < list.stringArraySize(); ++index) {
        if (PnPIdExclusion::matches(pnpId, list.getStringInArray(index).ksxString())) {
            return false;
        }
    }
    return true;
}

}  // namespace

TestResult runSynapticsTest(const harn5::DiagDevice& device)
{
    if (device.property("SynapticsBlacklistVersion") != nullptr) {
        KSX_LOG(s_log, kLogger, ksx::LoggerPriority::PRIORITY_INFO, kLineBlacklisted,
                "Cannot run touchpad test: blacklisted synaptics driver detected.");
        DiagModule::warning(kstrmouse::events::SynapticsBlacklistVersion, "synaptics", kLineBlacklistEvent);
        return TestResult::WARN();
    }
    const bool bThreeButtonDisplay = threeButtonDisplay(device);
    long synHandle = -1;
    if (const harn5::DeviceProperty* handle = device.property("SP_Handle")) {
        synHandle = handle->value().valueInt32();
    }

    const GdiResourceManager gdiplus;
    // Each run has its own verdict: a dialog that never ran to its end cannot give an earlier
    // run's PASS.
    TestResult result = TestResult::INTERNALERROR();
    try {
        const COMInitializer com;
        CSynapticsDlg dialog(synHandle, bThreeButtonDisplay);
        if (dialog.DoModal() == -1) {
            const auto error = static_cast<unsigned int>(::GetLastError());
            KSX_LOG(s_log, kLogger, ksx::LoggerPriority::PRIORITY_WARNING, kLineDialogFailed,
                    "Failed to load dialog with error " + error);
        } else {
            result = dialog.m_result;
        }
    } catch (const ksx::Exception& e) {
        KSX_LOG(s_log, kLogger, ksx::LoggerPriority::PRIORITY_ERROR, kLineException, "Caught exception " + e.getMessage());
        KSX_LOG(s_log, kLogger, ksx::LoggerPriority::PRIORITY_ERROR, kLineStackTrace, e.getStackTrace());
    }
    return result;
}
