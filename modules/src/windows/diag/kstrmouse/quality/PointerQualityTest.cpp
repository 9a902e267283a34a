#include "PointerQualityTest.h"

#include <windows.h>

#include <string>
#include <vector>

#include "CPointerQualityDlg.h"
#include "RawInputReportSource.h"
#include "Registration.h"
#include "harn5/DiagModule.h"
#include "harn5/HarnException.h"
#include "ksx/OStream.h"
#include "rawkit/RawInputDevices.h"
#include "touchq/TouchpadAnalysis.h"

using harn5::DiagModule;
using harn5::TestResult;
using pointerq::QualityAnalysis;

namespace {

// Source lines that the report carries for the events.
constexpr int kLineFinding = 60;
constexpr int kLineFailedByUser = 66;

QualityAnalysis::Settings settings()
{
    using namespace kstrmouse::params;
    std::vector<std::string> checks;
    const harn5::Value list = RequiredChecks->value();
    for (unsigned int index = 0; index < list.stringArraySize(); ++index) {
        // RequiredChecks is shared with the touchpad quality test: a name only it knows is its own.
        const std::string name = list.getStringInArray(index).utf8();
        if (!touchq::TouchpadAnalysis::isCheckName(name) || QualityAnalysis::isCheckName(name)) {
            checks.push_back(name);
        }
    }
    std::string error;
    const std::optional<QualityAnalysis::Settings> chosen =
        QualityAnalysis::settingsFrom(uChatterThresholdMs->value().valueUint32(), uIdleSeconds->value().valueUint32(),
                                      uMinReportRateHz->value().valueUint32(), checks, error);
    if (!chosen) {
        throw harn5::HarnException(harn5::HarnString(error));
    }
    return *chosen;
}

harn5::Event* eventOf(const std::string& name)
{
    using namespace kstrmouse::events;
    for (harn5::Event* event : {BUTTON_CHATTER_DETECTED, WHEEL_DIRECTION_REVERSAL, POINTER_DRIFT_WHILE_IDLE, POINTER_JUMP,
                                REPORT_RATE_BELOW_MINIMUM}) {
        if (event->name().utf8() == name) {
            return event;
        }
    }
    return POINTER_QUALITY_TEST_FAILED;
}

}  // namespace

TestResult runPointerQualityTest(const harn5::DiagDevice& device)
{
    const QualityAnalysis::Settings chosen = settings();
    const harn5::DeviceProperty* path = device.property(harn5::HarnString("InterfacePath"));
    const std::optional<rawkit::DeviceInfo> attached =
        path == nullptr ? std::nullopt : rawkit::RawInputDevices::find(path->text().utf8());
    if (!attached) {
        ksx::cerr << "PointerQualityTest: " << device.name().utf8().c_str() << " is not attached any more" << ksx::endl;
        return TestResult::CANNOTRUN();
    }
    CPointerQualityDlg dialog(RawInputReportSource::of(attached->handle), chosen);
    if (dialog.DoModal() == -1) {
        return TestResult::CANNOTRUN();
    }
    if (dialog.m_result == TestResult::FAIL()) {
        for (const QualityAnalysis::Finding& finding : dialog.m_findings) {
            DiagModule::error(eventOf(finding.event), harn5::HarnString("PointerQualityTest"), kLineFinding);
        }
        if (dialog.m_findings.empty()) {
            DiagModule::error(kstrmouse::events::POINTER_QUALITY_TEST_FAILED, harn5::HarnString("PointerQualityTest"),
                              kLineFailedByUser);
        }
    }
    std::vector<harn5::RunRecord::Measurement> figures;
    for (const QualityAnalysis::Measurement& measurement : dialog.m_measurements) {
        figures.push_back({measurement.name, measurement.value, measurement.unit});
    }
    DiagModule::measure(figures);
    return dialog.m_result;
}
