// The touchpad and TrackPoint dialog in the real host: texts by device type and button
// display, the status panel, the pass-button policies, verdicts, resume and the failure rows.
#include <gtest/gtest.h>

#include <ostream>

#include <filesystem>
#include <fstream>

#include "CSynapticsDlg.h"
#include "ISynapticsControl.h"
#include "SynapticsHarness.h"
#include "harn5/DiagModule.h"
#include "SynapticsSessions.h"
#include "padkit/DeviceRegistry.h"
#include "resource.h"

namespace {

using namespace syntest;

const std::wstring kPassDescription = L"Pass: every part of the device worked as expected.";
const std::wstring kFailDescription = L"Fail: a button, the wheel or the pointer did not work as expected.";
const std::wstring kTouchpadBody =
    L"Slide one finger slowly over the whole touchpad surface. The X and Y coordinates and the finger width "
    L"must change smoothly while the finger moves. If the touchpad has buttons, press each one and check that "
    L"its row shows Yes while it is held.";
const std::wstring kTrackpointBody = L"Push the TrackPoint up, down, left and right. The pointer must move the way you push it.";
const std::wstring kButtonBody = L"Then press each TrackPoint button and check that its row shows Yes while the button is held.";
constexpr const char* kPnPId = "ACPI\\LEN0049";

std::string handle(long h)
{
    return "SP_Handle=" + std::to_string(h);
}

struct TextCase {
    const char* name;
    const char* test;
    bool trackpoint;
    bool excluded;   // the device's PnP id is on the exclusion list
    std::wstring title;
    std::wstring row3Label;
    std::wstring row4Label;
    std::wstring row5Label;
    std::wstring body;
    // After the replay: X, Y, row 3, row 4, row 5 values.
    std::wstring values[5];
};

void PrintTo(const TextCase& c, std::ostream* os) { *os << c.name; }   // named in test listings

class DialogTexts : public testing::TestWithParam<TextCase> {};

TEST_P(DialogTexts, ByDeviceTypeAndButtonDisplay)
{
    const TextCase& c = GetParam();
    const long h = c.trackpoint ? addDevice(kTrackpointComplete, SynDeviceTrackpoint)
                                : addDevice(kTouchpadComplete, SynDeviceTouchPad);
    std::vector<std::string> options = {
        "--device", deviceOption(c.trackpoint ? "trackpoint" : "touchpad", handle(h) + ",SP_PnPID=" + kPnPId)};
    if (c.excluded) {
        // TouchpadTest does not take the list: it gets it from TrackPointTest running first,
        // which finds no TrackPoint here and cannot run.
        if (!c.trackpoint) {
            options.insert(options.end(), {"--test", "TrackPointTest"});
        }
        options.insert(options.end(), {"--param", "ExcludedThreeButtonDisplayByPnPID=other; acpi\\len0049 "});
    }
    options.insert(options.end(), {"--test", c.test});
    const Outcome outcome = runHost(
        options, {[&c](HWND dialog) {
                      wchar_t title[256] = {};
                      ::GetWindowTextW(dialog, title, 256);
                      EXPECT_EQ(std::wstring(title), c.title);
                      EXPECT_EQ(itemText(dialog, IDC_SYN_X_LABEL), L"X coordinate:");
                      EXPECT_EQ(itemText(dialog, IDC_SYN_Y_LABEL), L"Y coordinate:");
                      EXPECT_EQ(itemText(dialog, IDC_SYN_ROW3_LABEL), c.row3Label);
                      EXPECT_EQ(itemText(dialog, IDC_SYN_ROW4_LABEL), c.row4Label);
                      EXPECT_EQ(itemText(dialog, IDC_SYN_ROW5_LABEL), c.row5Label);
                      for (const int id : {IDC_SYN_ROW4_LABEL, IDC_SYN_ROW5_LABEL, IDC_SYN_ROW4_VALUE, IDC_SYN_ROW5_VALUE}) {
                          EXPECT_EQ(itemVisible(dialog, id), !c.excluded) << id;
                      }
                      // A stick's row 3 is its left button's.
                      for (const int id : {IDC_SYN_ROW3_LABEL, IDC_SYN_ROW3_VALUE}) {
                          EXPECT_EQ(itemVisible(dialog, id), !(c.trackpoint && c.excluded)) << id;
                      }
                      EXPECT_EQ(itemText(dialog, IDC_SYN_INSTRUCTIONS),
                                c.body + L"\r\n\r\n" + kPassDescription + L"\r\n" + kFailDescription);
                      EXPECT_EQ(itemText(dialog, IDCANCEL), L"Close");
                      EXPECT_EQ(itemText(dialog, IDC_SYN_PASS), L"Pass");
                      EXPECT_EQ(itemText(dialog, IDC_SYN_FAIL), L"Fail");
                      EXPECT_EQ(itemText(dialog, IDC_SYN_GROUP_INSTRUCTIONS), L"Instructions");
                      EXPECT_EQ(itemText(dialog, IDC_SYN_GROUP_STATUS), L"Device Status");
                      EXPECT_NE(::SendMessageW(dialog, WM_GETICON, ICON_BIG, 0), 0);
                      EXPECT_NE(::SendMessageW(dialog, WM_GETICON, ICON_SMALL, 0), 0);
                      EXPECT_NE(devicePicture(dialog), nullptr);
                      return true;
                  },
                  // The last packet reaches the panel with the 200 ms refresh.
                  [&c](HWND dialog) {
                      const int ids[5] = {IDC_SYN_X_VALUE, IDC_SYN_Y_VALUE, IDC_SYN_ROW3_VALUE, IDC_SYN_ROW4_VALUE,
                                          IDC_SYN_ROW5_VALUE};
                      for (int i = 0; i < 5; ++i) {
                          if (itemText(dialog, ids[i]) != c.values[i]) {
                              return false;
                          }
                      }
                      return true;
                  },
                  act([](HWND dialog) { click(dialog, IDCANCEL); })});
    EXPECT_FALSE(outcome.timedOut);
    EXPECT_EQ(outcome.stepsDone, 3u);
    EXPECT_EQ(outcome.verdict, harn5::TestResult::USERABORTED());
    EXPECT_TRUE(outcome.events.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Cases, DialogTexts,
    testing::Values(
        // Finger lifted at the end: empty X, Y and width; right still held.
        TextCase{"TouchpadButtonsShown", "TouchpadTest", false, false, L"Touchpad Test", L"Finger width:",
                 L"Left button pressed:", L"Right button pressed:", kTouchpadBody, {L"", L"", L"", L"No", L"Yes"}},
        TextCase{"TouchpadButtonsHidden", "TouchpadTest", false, true, L"Touchpad Test", L"Finger width:",
                 L"Left Button Pressed:", L"Right Button Pressed:", kTouchpadBody, {L"", L"", L"", L"No", L"Yes"}},
        // Row 3 carries the left button; a stick always reports its reading.
        TextCase{"TrackpointButtonsShown", "TrackPointTest", true, false, L"TrackPoint Test", L"Left button pressed:",
                 L"Middle button pressed:", L"Right button pressed:", kTrackpointBody + L"  " + kButtonBody,
                 {L"7", L"9", L"No", L"No", L"No"}},
        TextCase{"TrackpointButtonsHidden", "TrackPointTest", true, true, L"TrackPoint Test", L"Width of Object:",
                 L"Left Button Pressed:", L"Right Button Pressed:", kTrackpointBody, {L"7", L"9", L"No", L"No", L"No"}}),
    [](const testing::TestParamInfo<TextCase>& each) { return std::string(each.param.name); });

TEST(DialogStatus, TouchpadMiddleButtonShowsLeftAndRightAndYGrowsDownwards)
{
    const long h = addDevice(kTouchpadMiddle, SynDeviceTouchPad);
    const Outcome outcome =
        runHost({"--test", "TouchpadTest", "--device", deviceOption("touchpad", handle(h))},
                {waitForText(IDC_SYN_X_VALUE, L"500"), [](HWND dialog) {
                     EXPECT_EQ(itemText(dialog, IDC_SYN_Y_VALUE), L"1000");   // yHi - fingerY
                     EXPECT_EQ(itemText(dialog, IDC_SYN_ROW3_VALUE), L"3");
                     EXPECT_EQ(itemText(dialog, IDC_SYN_ROW4_VALUE), L"Yes");
                     EXPECT_EQ(itemText(dialog, IDC_SYN_ROW5_VALUE), L"Yes");
                     click(dialog, IDC_SYN_PASS);
                     return true;
                 }});
    EXPECT_EQ(outcome.stepsDone, 2u);
    EXPECT_EQ(outcome.verdict, harn5::TestResult::PASS());
}

struct PolicyCase {
    const char* name;
    const char* test;
    const std::string* session;
    bool excluded;
    const char* policy;      // the --param that sets it, or null for Enabled
    bool enabledAtStart;
    bool enabledAfterReplay;
    const wchar_t* lastX;    // the X value that shows the replay is over
};

void PrintTo(const PolicyCase& c, std::ostream* os) { *os << c.name; }   // named in test listings

class PassPolicy : public testing::TestWithParam<PolicyCase> {};

TEST_P(PassPolicy, ReleasesPassByPolicyAndCompletion)
{
    const PolicyCase& c = GetParam();
    const bool trackpoint = std::string(c.test) == "TrackPointTest";
    const long h = addDevice(*c.session, trackpoint ? SynDeviceTrackpoint : SynDeviceTouchPad);
    std::vector<std::string> options = {"--test", c.test, "--device",
                                        deviceOption(trackpoint ? "trackpoint" : "touchpad",
                                                     handle(h) + ",SP_PnPID=" + kPnPId)};
    if (c.policy != nullptr) {
        options.insert(options.end(), {"--param", c.policy});
    }
    if (c.excluded) {
        // TouchpadTest takes the list from TrackPointTest running first (and finding no stick).
        if (!trackpoint) {
            options.insert(options.begin(), {"--test", "TrackPointTest"});
        }
        options.insert(options.end(), {"--param", std::string("ExcludedThreeButtonDisplayByPnPID=") + kPnPId});
    }
    const Outcome outcome = runHost(options, {waitForText(IDC_SYN_X_VALUE, c.lastX), [&c](HWND dialog) {
                                                  EXPECT_EQ(itemEnabled(dialog, IDC_SYN_PASS), c.enabledAfterReplay);
                                                  click(dialog, c.enabledAfterReplay ? IDC_SYN_PASS : IDC_SYN_FAIL);
                                                  return true;
                                              }});
    ASSERT_TRUE(outcome.passEnabledAtInit.has_value());
    EXPECT_EQ(*outcome.passEnabledAtInit, c.enabledAtStart);
    EXPECT_EQ(outcome.stepsDone, 2u);
    EXPECT_EQ(outcome.verdict, c.enabledAfterReplay ? harn5::TestResult::PASS() : harn5::TestResult::FAIL());
}

INSTANTIATE_TEST_SUITE_P(
    Policies, PassPolicy,
    testing::Values(
        PolicyCase{"EnabledThroughout", "TouchpadTest", &kTouchpadLeftOnly, false, nullptr, true, true, L"2500"},
        PolicyCase{"UntilStartedFirstPacket", "TouchpadTest", &kTouchpadLeftOnly, false,
                   "bDisablePassUntilStarted=true", false, true, L"2500"},
        PolicyCase{"UntilFinishedWithoutRight", "TouchpadTest", &kTouchpadLeftOnly, false,
                   "bDisablePassUntilFinished=true", false, false, L"2500"},
        PolicyCase{"UntilFinishedFingerButtonsHidden", "TouchpadTest", &kTouchpadFingerOnly, true,
                   "bDisablePassUntilFinished=true", false, true, L"2500"},
        PolicyCase{"UntilFinishedMiddleOnly", "TouchpadTest", &kTouchpadMiddle, false,
                   "bDisablePassUntilFinished=true", false, true, L"500"},
        PolicyCase{"TrackpointStickWithoutButtons", "TrackPointTest", &kTrackpointStickOnly, false,
                   "bDisablePassUntilFinished=true", false, false, L"4"},
        PolicyCase{"TrackpointStickButtonsHidden", "TrackPointTest", &kTrackpointStickOnly, true,
                   "bDisablePassUntilFinished=true", false, true, L"4"},
        PolicyCase{"TrackpointComplete", "TrackPointTest", &kTrackpointComplete, false,
                   "bDisablePassUntilFinished=true", false, true, L"7"}),
    [](const testing::TestParamInfo<PolicyCase>& each) { return std::string(each.param.name); });

struct VerdictCase {
    const char* name;
    std::function<void(HWND)> end;
    harn5::TestResult verdict;
    int failEvents;
};

void PrintTo(const VerdictCase& c, std::ostream* os) { *os << c.name; }   // named in test listings

class Verdicts : public testing::TestWithParam<VerdictCase> {};

TEST_P(Verdicts, EndTheDialog)
{
    const long h = addDevice(kTouchpadComplete, SynDeviceTouchPad);
    const Outcome outcome = runHost({"--test", "TouchpadTest", "--device", deviceOption("touchpad", handle(h))},
                                    {act(GetParam().end)});
    EXPECT_EQ(outcome.verdict, GetParam().verdict);
    EXPECT_EQ(outcome.eventCount("TestFailedTouchPadOrTrackpoint"), GetParam().failEvents);
    EXPECT_EQ(outcome.events.size(), static_cast<std::size_t>(GetParam().failEvents));
    if (GetParam().failEvents == 1) {
        EXPECT_EQ(outcome.events[0].severity, "error");
        EXPECT_EQ(outcome.events[0].sourceFile, "CSynapticsDlg");
        EXPECT_EQ(outcome.events[0].line, 333);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Buttons, Verdicts,
    testing::Values(VerdictCase{"Pass", [](HWND d) { click(d, IDC_SYN_PASS); }, harn5::TestResult::PASS(), 0},
                    VerdictCase{"Fail", [](HWND d) { click(d, IDC_SYN_FAIL); }, harn5::TestResult::FAIL(), 1},
                    VerdictCase{"Cancel", [](HWND d) { click(d, IDCANCEL); }, harn5::TestResult::USERABORTED(), 0},
                    VerdictCase{"Escape",
                                [](HWND d) {
                                    ::SetFocus(::GetDlgItem(d, IDC_SYN_FAIL));
                                    ::PostMessageW(::GetDlgItem(d, IDC_SYN_FAIL), WM_KEYDOWN, VK_ESCAPE, 0);
                                },
                                harn5::TestResult::USERABORTED(), 0},
                    VerdictCase{"CloseBox", [](HWND d) { ::PostMessageW(d, WM_SYSCOMMAND, SC_CLOSE, 0); },
                                harn5::TestResult::USERABORTED(), 0},
                    // The base dialog's OK handling ends it with the verdict untouched.
                    VerdictCase{"OkCommand", [](HWND d) { ::PostMessageW(d, WM_COMMAND, IDOK, 0); },
                                harn5::TestResult::CANNOTRUN(), 0}),
    [](const testing::TestParamInfo<VerdictCase>& each) { return std::string(each.param.name); });

TEST(DialogFailures, UnknownDeviceEndsAtOnceWithBothLines)
{
    const Outcome outcome =
        runHost({"--test", "TouchpadTest", "--device", deviceOption("touchpad", "SP_Handle=987654")});
    EXPECT_EQ(outcome.verdict, harn5::TestResult::CANNOTRUN());
    EXPECT_TRUE(outcome.logged("kstrmouse.synaptics.CSynapticsDlg 4 84 Synaptics dialog found an unknown device."));
    EXPECT_TRUE(outcome.logged("kstrmouse.synaptics.CSynapticsDlg 4 170 Synaptics device type is not supported."));
    EXPECT_TRUE(outcome.logged("kstrmouse.synaptics.CSynapticsDlg 1 88 Synaptics device with synHandle==987654 and "
                               "m_synCtrlType==0"));
    EXPECT_TRUE(outcome.events.empty());
}

TEST(DialogFailures, UnsupportedTypeEndsWithoutTheUnknownLine)
{
    const long h = addDevice(kTouchpadComplete, static_cast<SynDeviceType>(3));
    const Outcome outcome = runHost({"--test", "TouchpadTest", "--device", deviceOption("touchpad", handle(h))});
    EXPECT_EQ(outcome.verdict, harn5::TestResult::CANNOTRUN());
    EXPECT_FALSE(outcome.logged("kstrmouse.synaptics.CSynapticsDlg 4 84 Synaptics dialog found an unknown device."));
    EXPECT_TRUE(outcome.logged("kstrmouse.synaptics.CSynapticsDlg 4 170 Synaptics device type is not supported."));
}

struct StartFailureCase {
    const char* name;
    const char* test;
    SynDeviceType type;
    int driverEvents;
};

void PrintTo(const StartFailureCase& c, std::ostream* os) { *os << c.name; }   // named in test listings

class DeviceStartFailure : public testing::TestWithParam<StartFailureCase> {};

TEST_P(DeviceStartFailure, DialogRunsOnWithoutPicture)
{
    const StartFailureCase& c = GetParam();
    const long h = addDevice("not a session\n", c.type);
    const bool trackpoint = c.type == SynDeviceTrackpoint;
    const Outcome outcome = runHost(
        {"--test", c.test, "--device", deviceOption(trackpoint ? "trackpoint" : "touchpad", handle(h))},
        // The refresh replaces the template's "0": a touchpad without finger shows no width, a
        // TrackPoint's third row its left button.
        {waitForText(IDC_SYN_ROW3_VALUE, trackpoint ? L"No" : L""), [trackpoint](HWND dialog) {
             EXPECT_EQ(devicePicture(dialog), nullptr);
             // The control still answers from the wrapper's state.
             EXPECT_EQ(itemText(dialog, IDC_SYN_X_VALUE), trackpoint ? L"0" : L"");
             click(dialog, IDC_SYN_FAIL);
             return true;
         }});
    EXPECT_EQ(outcome.stepsDone, 2u);
    EXPECT_EQ(outcome.verdict, harn5::TestResult::FAIL());
    EXPECT_EQ(outcome.eventCount("DriverCommunicationError"), c.driverEvents);
    for (const harn5::EventRecord& event : outcome.events) {
        if (event.name == "DriverCommunicationError") {
            EXPECT_EQ(event.severity, "error");
            EXPECT_EQ(event.sourceFile, "CSynapticsTouchPadCtrl");
            EXPECT_EQ(event.line, 70);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Devices, DeviceStartFailure,
                         testing::Values(StartFailureCase{"Touchpad", "TouchpadTest", SynDeviceTouchPad, 1},
                                         StartFailureCase{"Trackpoint", "TrackPointTest", SynDeviceTrackpoint, 0}),
                         [](const testing::TestParamInfo<StartFailureCase>& each) {
                             return std::string(each.param.name);
                         });

// A dialog whose second data exchange (the one of its own initialisation) fails.
class ExchangeFailsDlg : public CSynapticsDlg {
public:
    using CSynapticsDlg::CSynapticsDlg;

protected:
    void DoDataExchange(CDataExchange* pDX) override
    {
        if (++m_exchanges == 2) {
            pDX->Fail();
        }
        CSynapticsDlg::DoDataExchange(pDX);
    }

private:
    int m_exchanges = 0;
};

harn5::TestResult RunExchangeFails(const harn5::DiagDevice& device)
{
    ExchangeFailsDlg dialog(device.property("SP_Handle")->value().valueInt32(), true);
    dialog.DoModal();
    return dialog.m_result;
}

TEST(DialogFailures, FailedDataExchangeEndsThroughOk)
{
    [[maybe_unused]] static harn5::Test* const probe = harn5::DiagModule::createTest(
        "SynapticsExchangeProbe", harn5::DeviceCapability::Mouse(), &RunExchangeFails);
    const long h = addDevice(kTouchpadComplete, SynDeviceTouchPad);
    const Outcome outcome = runHost({"--test", "SynapticsExchangeProbe", "--device", deviceOption("touchpad", handle(h))});
    EXPECT_EQ(outcome.verdict, harn5::TestResult::CANNOTRUN());
    EXPECT_TRUE(outcome.logged("kstrmouse.synaptics.CSynapticsDlg 4 145 Failed to initialize dialog controls."));
}

constexpr const char* kResumeLine = "kstrmouse.synaptics.CSynapticsDlg 1 359 Returning from sleep, reaquiring the device.";
constexpr const char* kReacquireFailedLine = "kstrmouse.synaptics.CSynapticsDlg 1 361 Failed to reaquire the device.";

TEST(Resume, ReacquiresAndKeepsWhatWasSeen)
{
    const long h = addDevice(kTouchpadComplete, SynDeviceTouchPad);
    const Outcome outcome = runHost(
        {"--test", "TouchpadTest", "--param", "bDisablePassUntilFinished=true", "--device",
         deviceOption("touchpad", handle(h))},
        {waitForText(IDC_SYN_ROW5_VALUE, L"Yes"), [](HWND dialog) {
             EXPECT_TRUE(itemEnabled(dialog, IDC_SYN_PASS));
             // Another power event is nothing special.
             ::SendMessageW(dialog, WM_POWERBROADCAST, PBT_APMSUSPEND, 0);
             ::SendMessageW(dialog, WM_POWERBROADCAST, PBT_APMRESUMESUSPEND, 0);
             EXPECT_TRUE(itemEnabled(dialog, IDC_SYN_PASS));
             EXPECT_NE(devicePicture(dialog), nullptr);
             click(dialog, IDC_SYN_PASS);
             return true;
         }});
    EXPECT_EQ(outcome.verdict, harn5::TestResult::PASS());
    int resumes = 0;
    for (const std::string& line : outcome.log) {
        resumes += line == kResumeLine ? 1 : 0;
    }
    EXPECT_EQ(resumes, 1);
    EXPECT_FALSE(outcome.logged(kReacquireFailedLine));
    EXPECT_TRUE(outcome.events.empty());
}

TEST(Resume, FailedReacquireIsLoggedAndTheDialogRunsOn)
{
    const long h = addDevice(kTouchpadComplete, SynDeviceTouchPad);
    const std::filesystem::path session = padkit::DeviceRegistry::process().find(h)->session;
    const Outcome outcome = runHost(
        {"--test", "TouchpadTest", "--device", deviceOption("touchpad", handle(h))},
        {waitForText(IDC_SYN_ROW5_VALUE, L"Yes"), [&session](HWND dialog) {
             // The device is gone after the sleep: its file, open while it replays, reads no more.
             std::ofstream(session, std::ios::binary | std::ios::trunc);
             ::SendMessageW(dialog, WM_POWERBROADCAST, PBT_APMRESUMESUSPEND, 0);
             return true;
         },
         act([](HWND dialog) { click(dialog, IDC_SYN_FAIL); })});
    EXPECT_TRUE(outcome.logged(kResumeLine));
    EXPECT_TRUE(outcome.logged(kReacquireFailedLine));
    EXPECT_EQ(outcome.verdict, harn5::TestResult::FAIL());
}

constexpr const char* kWaitingLine = "kstrmouse.synaptics.CSynapticsDlg 4 382 The device went away as the machine slept or "
                                     "woke: waiting for it to come back.";
constexpr const char* kBackLine = "kstrmouse.synaptics.CSynapticsDlg 4 384 The device is back: the test goes on.";

// What the device control posts when its device is removed or stops answering.
void removeDevice(HWND dialog)
{
    ::PostMessageW(dialog, WM_SYN_DEVICE_REMOVED, 0, 0);
}

TEST(Removal, EndsWithFailAndAnEventOfItsOwn)
{
    const long h = addDevice(kTouchpadComplete, SynDeviceTouchPad);
    const Outcome outcome = runHost({"--test", "TouchpadTest", "--device", deviceOption("touchpad", handle(h))},
                                    {waitForText(IDC_SYN_ROW5_VALUE, L"Yes"), act(removeDevice)});
    EXPECT_EQ(outcome.verdict, harn5::TestResult::FAIL());
    ASSERT_EQ(outcome.events.size(), 1u) << "not the technician's TestFailedTouchPadOrTrackpoint";
    EXPECT_EQ(outcome.events[0].name, "TOUCH_DEVICE_REMOVED");
    EXPECT_EQ(outcome.events[0].severity, "error");
    EXPECT_EQ(outcome.events[0].sourceFile, "CSynapticsDlg");
    EXPECT_EQ(outcome.events[0].line, 380);
    EXPECT_FALSE(outcome.logged(kWaitingLine));
}

TEST(Removal, RightAfterAResumeWaitsAndADeviceThatComesBackGoesOn)
{
    const long h = addDevice(kTouchpadComplete, SynDeviceTouchPad);
    const Outcome outcome = runHost(
        {"--test", "TouchpadTest", "--param", "bDisablePassUntilFinished=true", "--device",
         deviceOption("touchpad", handle(h))},
        {waitForText(IDC_SYN_ROW5_VALUE, L"Yes"),
         act([](HWND dialog) {
             EXPECT_TRUE(itemEnabled(dialog, IDC_SYN_PASS));
             ::SendMessageW(dialog, WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, 0);
             ::SendMessageW(dialog, WM_SYN_DEVICE_REMOVED, 0, 0);
             EXPECT_FALSE(itemEnabled(dialog, IDC_SYN_PASS)) << "nothing passes while the device is away";
         }),
         // The session file is still there: the next try finds the device.
         [](HWND dialog) { return itemEnabled(dialog, IDC_SYN_PASS); }, act([](HWND dialog) { click(dialog, IDC_SYN_PASS); })});
    EXPECT_FALSE(outcome.timedOut);
    EXPECT_EQ(outcome.verdict, harn5::TestResult::PASS());
    EXPECT_TRUE(outcome.events.empty());
    EXPECT_TRUE(outcome.logged(kWaitingLine));
    EXPECT_TRUE(outcome.logged(kBackLine));
}

TEST(Removal, NearASuspendThatDoesNotComeBackStandsAfterItsTime)
{
    const long h = addDevice(kTouchpadComplete, SynDeviceTouchPad);
    const std::filesystem::path session = padkit::DeviceRegistry::process().find(h)->session;
    ULONGLONG removedAt = 0;
    const Outcome outcome = runHost(
        {"--test", "TouchpadTest", "--device", deviceOption("touchpad", handle(h))},
        {waitForText(IDC_SYN_ROW5_VALUE, L"Yes"), act([&](HWND dialog) {
             // Gone for good: a replayed file is open while it plays, so it is emptied, not deleted.
             std::ofstream(session, std::ios::binary | std::ios::trunc);
             ::SendMessageW(dialog, WM_POWERBROADCAST, PBT_APMSUSPEND, 0);
             ::SendMessageW(dialog, WM_POWERBROADCAST, PBT_APMRESUMESUSPEND, 0);
             removedAt = ::GetTickCount64();
             ::SendMessageW(dialog, WM_SYN_DEVICE_REMOVED, 0, 0);
         })});
    EXPECT_EQ(outcome.verdict, harn5::TestResult::FAIL());
    EXPECT_GE(::GetTickCount64() - removedAt, 5000u) << "the device had its time";
    EXPECT_EQ(outcome.eventCount("TOUCH_DEVICE_REMOVED"), 1);
    EXPECT_TRUE(outcome.logged(kWaitingLine));
    EXPECT_FALSE(outcome.logged(kBackLine));
}

}  // namespace
