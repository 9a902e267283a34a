// The touchpad and TrackPoint entry: the blacklist refusal, the handle, the exclusion list as
// the host hands it over, COM around the dialog and the exception guard.
#include <gtest/gtest.h>

#include <ostream>

#include <objbase.h>

#include <optional>

#include "../kstrmouse/ImportOverride.h"
#include "SynapticsHarness.h"
#include "SynapticsSessions.h"
#include "resource.h"

namespace {

using namespace syntest;

constexpr const char* kBlacklistLine =
    "kstrmouse.synaptics 3 70 Cannot run touchpad test: blacklisted synaptics driver detected.";

class Blacklist : public testing::TestWithParam<const char*> {};

TEST_P(Blacklist, RefusesWithWarningAndNoDialog)
{
    const bool trackpoint = std::string(GetParam()) == "TrackPointTest";
    const long h = addDevice(trackpoint ? kTrackpointComplete : kTouchpadComplete,
                             trackpoint ? SynDeviceTrackpoint : SynDeviceTouchPad);
    // Present with an empty value is enough.
    const Outcome outcome = runHost(
        {"--test", GetParam(), "--device",
         deviceOption(trackpoint ? "trackpoint" : "touchpad", "SP_Handle=" + std::to_string(h) + ",SynapticsBlacklistVersion=")},
        {act([](HWND dialog) { click(dialog, IDCANCEL); })});
    EXPECT_EQ(outcome.verdict, harn5::TestResult::WARN());
    EXPECT_FALSE(outcome.dialogSeen);
    EXPECT_TRUE(outcome.logged(kBlacklistLine));
    ASSERT_EQ(outcome.events.size(), 1u);
    EXPECT_EQ(outcome.events[0].name, "SynapticsBlacklistVersion");
    EXPECT_EQ(outcome.events[0].severity, "warning");
    EXPECT_EQ(outcome.events[0].sourceFile, "synaptics");
    EXPECT_EQ(outcome.events[0].line, 71);
    for (const std::string& line : outcome.log) {
        EXPECT_EQ(line.find("comptr"), std::string::npos) << "COM is not touched: " << line;
    }
}

INSTANTIATE_TEST_SUITE_P(Tests, Blacklist, testing::Values("TouchpadTest", "TrackPointTest"));

TEST(Entry, WithoutHandleTheDialogGetsMinusOne)
{
    const Outcome outcome = runHost({"--test", "TouchpadTest", "--device", deviceOption("touchpad", "")});
    EXPECT_EQ(outcome.verdict, harn5::TestResult::CANNOTRUN());
    EXPECT_TRUE(outcome.logged(
        "kstrmouse.synaptics.CSynapticsDlg 1 88 Synaptics device with synHandle==-1 and m_synCtrlType==0"));
}

struct ExclusionCase {
    const char* name;
    const char* properties;   // besides the handle
    const char* list;         // null: the parameter is not given
    bool buttonsShown;
};

void PrintTo(const ExclusionCase& c, std::ostream* os) { *os << c.name; }   // named in test listings

class ExclusionList : public testing::TestWithParam<ExclusionCase> {};

TEST_P(ExclusionList, DecidesTheButtonRows)
{
    const long h = addDevice(kTrackpointComplete, SynDeviceTrackpoint);
    std::vector<std::string> options = {
        "--test", "TrackPointTest", "--device",
        deviceOption("trackpoint", "SP_Handle=" + std::to_string(h) + GetParam().properties)};
    if (GetParam().list != nullptr) {
        options.insert(options.end(), {"--param", std::string("ExcludedThreeButtonDisplayByPnPID=") + GetParam().list});
    }
    std::optional<bool> shown;
    runHost(options, {act([&shown](HWND dialog) {
                shown = itemVisible(dialog, IDC_SYN_ROW4_VALUE);
                EXPECT_EQ(*shown, itemVisible(dialog, IDC_SYN_ROW5_LABEL));
                click(dialog, IDCANCEL);
            })});
    ASSERT_TRUE(shown.has_value());
    EXPECT_EQ(*shown, GetParam().buttonsShown);
}

INSTANTIATE_TEST_SUITE_P(
    Lists, ExclusionList,
    testing::Values(ExclusionCase{"NoList", ",SP_PnPID=ACPI\\LEN0049", nullptr, true},
                    ExclusionCase{"LaterEntryOtherCase", ",SP_PnPID=ACPI\\LEN0049", ";ACPI\\X;acpi\\len0049", false},
                    ExclusionCase{"WithoutPnPId", "", "ACPI\\LEN0049", true}),
    [](const testing::TestParamInfo<ExclusionCase>& each) { return std::string(each.param.name); });

TEST(Entry, ComIsAnApartmentWhileTheDialogRuns)
{
    const long h = addDevice(kTouchpadComplete, SynDeviceTouchPad);
    APTTYPE type = APTTYPE_CURRENT;
    APTTYPEQUALIFIER qualifier = APTTYPEQUALIFIER_NONE;
    HRESULT during = E_FAIL;
    const Outcome outcome = runHost({"--test", "TouchpadTest", "--device", deviceOption("touchpad", "SP_Handle=" + std::to_string(h))},
                                    {act([&](HWND dialog) {
                                        during = ::CoGetApartmentType(&type, &qualifier);
                                        click(dialog, IDC_SYN_PASS);
                                    })});
    EXPECT_EQ(during, S_OK);
    EXPECT_EQ(type, APTTYPE_MAINSTA);
    EXPECT_EQ(::CoGetApartmentType(&type, &qualifier), CO_E_NOTINITIALIZED) << "uninitialised again";
    EXPECT_TRUE(outcome.logged("comptr 1 49 CoInitialize returns 0"));
    EXPECT_EQ(outcome.verdict, harn5::TestResult::PASS());
}

TEST(Entry, FailedCoInitializeStillRunsTheDialogAndLeavesComAlone)
{
    ASSERT_EQ(::CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    const long h = addDevice(kTouchpadComplete, SynDeviceTouchPad);
    const Outcome outcome = runHost({"--test", "TouchpadTest", "--device", deviceOption("touchpad", "SP_Handle=" + std::to_string(h))},
                                    {act([](HWND dialog) { click(dialog, IDC_SYN_PASS); })});
    EXPECT_TRUE(outcome.logged("comptr 1 49 CoInitialize returns " + std::to_string(static_cast<long>(RPC_E_CHANGED_MODE))));
    EXPECT_EQ(outcome.verdict, harn5::TestResult::PASS());
    // Our own initialisation is still there: nobody uninitialised it.
    EXPECT_EQ(::CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_FALSE);
    ::CoUninitialize();
    ::CoUninitialize();
}

using FindResourceFn = HRSRC(WINAPI*)(HMODULE, LPCWSTR, LPCWSTR);
extern "C" FindResourceFn __imp_FindResourceW;

// Every dialog template is missing.
HRSRC WINAPI NoDialogTemplate(HMODULE module, LPCWSTR name, LPCWSTR type)
{
    if (type == RT_DIALOG) {
        ::SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return nullptr;
    }
    return ::FindResourceExW(module, type, name, 0);
}

TEST(Entry, EachRunHasItsOwnVerdictAfterAPass)
{
    const long h = addDevice(kTouchpadComplete, SynDeviceTouchPad);
    const std::vector<std::string> options = {"--test", "TouchpadTest", "--device",
                                              deviceOption("touchpad", "SP_Handle=" + std::to_string(h))};
    ASSERT_EQ(runHost(options, {act([](HWND dialog) { click(dialog, IDC_SYN_PASS); })}).verdict,
              harn5::TestResult::PASS());
    {
        const mousetest::ImportOverride<FindResourceFn> missing(__imp_FindResourceW, &NoDialogTemplate);
        const Outcome notCreated = runHost(options);
        EXPECT_FALSE(notCreated.dialogSeen);
        EXPECT_EQ(notCreated.verdict, harn5::TestResult::INTERNALERROR()) << "not the earlier run's PASS";
        EXPECT_TRUE(notCreated.logged("kstrmouse.synaptics 4 97 Failed to load dialog with error " +
                                      std::to_string(ERROR_RESOURCE_NAME_NOT_FOUND)));
    }
    ASSERT_EQ(runHost(options, {act([](HWND dialog) { click(dialog, IDC_SYN_PASS); })}).verdict,
              harn5::TestResult::PASS());
    // The dialog's construction logs through a core that throws.
    const Outcome failed = runHost(options, {}, [](const std::string& line) {
        return line.find(" 88 Synaptics device with") != std::string::npos;
    });
    EXPECT_FALSE(failed.dialogSeen);
    EXPECT_EQ(failed.verdict, harn5::TestResult::INTERNALERROR());
    EXPECT_TRUE(failed.logged("kstrmouse.synaptics 5 102 Caught exception the log sink broke"));
    bool stack = false;
    for (const std::string& line : failed.log) {
        stack = stack || line.rfind("kstrmouse.synaptics 5 103 ", 0) == 0;
    }
    EXPECT_TRUE(stack);
}

}  // namespace
