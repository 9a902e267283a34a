#include "TouchpadQualityTest.h"

#include <windows.h>

#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "CTouchpadQualityDlg.h"
#include "Registration.h"
#include "TouchpadFrames.h"
#include "harn5/DiagModule.h"
#include "harn5/HarnException.h"
#include "harn5/Host.h"
#include "harn5/Text.h"
#include "ksx/OStream.h"
#include "padkit/DeviceRegistry.h"
#include "pointerq/QualityAnalysis.h"

using harn5::DiagModule;
using harn5::TestResult;
using touchq::TouchpadAnalysis;

namespace {

// Source lines that the report carries for the events.
constexpr int kLineFinding = 70;
constexpr int kLineFailedByUser = 76;

TouchpadAnalysis::Settings settings()
{
    using namespace kstrmouse::params;
    // RequiredChecks is shared with the pointer quality test: a name only it knows is its own.
    std::vector<std::string> checks;
    const harn5::Value list = RequiredChecks->value();
    for (unsigned int index = 0; index < list.stringArraySize(); ++index) {
        const std::string name = list.getStringInArray(index).utf8();
        if (TouchpadAnalysis::isCheckName(name) || !pointerq::QualityAnalysis::isCheckName(name)) {
            checks.push_back(name);
        }
    }
    std::string error;
    // The rate is judged unless bJudgeReportRate is given as false.
    const bool judgeRate = !bJudgeReportRate->isset() || bJudgeReportRate->value().valueBool();
    const std::optional<TouchpadAnalysis::Settings> chosen =
        TouchpadAnalysis::settingsFrom(uMinContacts->value().valueUint32(), uMaxJitterMicrons->value().valueUint32(),
                                       judgeRate, uIdleSeconds->value().valueUint32(), checks, error);
    if (!chosen) {
        throw harn5::HarnException(harn5::HarnString(error));
    }
    return *chosen;
}

harn5::Event* eventOf(const std::string& name)
{
    using namespace kstrmouse::events;
    for (harn5::Event* event : {TOUCHPAD_DEAD_ZONE, TOUCHPAD_CONTACTS_BELOW_MINIMUM, TOUCHPAD_JITTER,
                                TOUCHPAD_REPORT_RATE_OUT_OF_RANGE, TOUCHPAD_GHOST_CONTACT,
                                TOUCHPAD_RESOLUTION_BELOW_MINIMUM}) {
        if (event->name().utf8() == name) {
            return event;
        }
    }
    return TOUCHPAD_QUALITY_TEST_FAILED;
}

std::optional<padkit::DeviceRegistry::Entry> registered(const harn5::DiagDevice& device)
{
    const harn5::DeviceProperty* handle = device.property(harn5::HarnString("SP_Handle"));
    if (handle == nullptr) {
        return std::nullopt;
    }
    return padkit::DeviceRegistry::process().find(handle->value().valueInt32());
}

// The coverage map beside the report, named after it and the run; nowhere without a report.
void writePicture(const touchq::IndexedImage& picture)
{
    const std::optional<std::filesystem::path> file = harn5::Host::process().runFile("coverage.png");
    if (!file) {
        return;
    }
    const std::vector<std::uint8_t> png = touchq::PngWriter::encode(picture);
    std::ofstream out(*file, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
    if (!out.flush()) {
        ksx::cerr << "TouchpadQualityTest: the coverage map could not be written to "
                  << harn5::Text::fromPath(*file).c_str() << ksx::endl;
    }
}

}  // namespace

TestResult runTouchpadQualityTest(const harn5::DiagDevice& device)
{
    const TouchpadAnalysis::Settings chosen = settings();
    const std::optional<padkit::DeviceRegistry::Entry> entry = registered(device);
    std::string error = "it is neither a live touchpad nor a recorded session";
    const std::optional<TouchpadFrames> frames = entry ? TouchpadFrames::of(*entry, error) : std::nullopt;
    if (!frames) {
        ksx::cerr << "TouchpadQualityTest: " << device.name().utf8().c_str() << " cannot be read: " << error.c_str()
                  << ksx::endl;
        return TestResult::CANNOTRUN();
    }
    CTouchpadQualityDlg dialog(frames->layout, frames->source, chosen);
    if (dialog.DoModal() == -1 || dialog.m_result == TestResult::CANNOTRUN()) {
        return TestResult::CANNOTRUN();
    }
    if (dialog.m_result == TestResult::FAIL()) {
        for (const TouchpadAnalysis::Finding& finding : dialog.m_findings) {
            DiagModule::error(eventOf(finding.event), harn5::HarnString("TouchpadQualityTest"), kLineFinding,
                              harn5::HarnString(finding.detail));
        }
        if (dialog.m_findings.empty()) {
            DiagModule::error(kstrmouse::events::TOUCHPAD_QUALITY_TEST_FAILED, harn5::HarnString("TouchpadQualityTest"),
                              kLineFailedByUser);
        }
    }
    std::vector<harn5::RunRecord::Measurement> figures;
    for (const TouchpadAnalysis::Measurement& measurement : dialog.m_measurements) {
        figures.push_back({measurement.name, measurement.value, measurement.unit});
    }
    DiagModule::measure(figures);
    writePicture(dialog.m_picture);
    return dialog.m_result;
}
