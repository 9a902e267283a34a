// Everything the host must know about the module, registered during static initialisation.
// One translation unit keeps the host's order fixed: within a file, initialisers run in the order
// they are written, whatever the link order.
#include "Registration.h"

#include "KstrMouse.h"
#include "harn5/Host.h"
#include "padkit/LiveDeviceSource.h"
#include "padkit/SessionDeviceProvider.h"
#include "quality/PointerQualityTest.h"
#include "synaptics/synaptics.h"
#include "touchquality/TouchpadQualityTest.h"

using harn5::DataType;
using harn5::DeviceCapability;
using harn5::DiagModule;
using harn5::HarnString;

namespace {

// An event and the one place it is reported from: severity, source file, line.
harn5::Event* event(const char* name, const char* severity, const char* sourceFile, int line)
{
    return DiagModule::createEvent(HarnString(name))->reportedAs(severity, sourceFile, line);
}
harn5::LocalizedString* text(const char* key) { return DiagModule::createLocalizedString(HarnString(key)); }
harn5::Parameter* parameter(const char* name, const DataType& type)
{
    return DiagModule::createParameter(HarnString(name), type, HarnString(""), false, true);
}

}  // namespace

namespace kstrmouse {

// 1. Touchpad and TrackPoint events.
harn5::Event* const events::TestFailedTouchPadOrTrackpoint =
    event("TestFailedTouchPadOrTrackpoint", "error", "CSynapticsDlg", 333);
harn5::Event* const events::DriverCommunicationError =
    event("DriverCommunicationError", "error", "CSynapticsTouchPadCtrl", 70);

// 2. Touchpad and TrackPoint dialog texts.
harn5::LocalizedString* const texts::SynXCoordinate = text("SynXCoordinate");
harn5::LocalizedString* const texts::SynYCoordinate = text("SynYCoordinate");
harn5::LocalizedString* const texts::SynWidth = text("SynWidth");
harn5::LocalizedString* const texts::SynLButtonPressed = text("SynLButtonPressed");
harn5::LocalizedString* const texts::SynRButtonPressed = text("SynRButtonPressed");
harn5::LocalizedString* const texts::SynMButtonPressed = text("SynMButtonPressed");
harn5::LocalizedString* const texts::Yes = text("Yes");
harn5::LocalizedString* const texts::No = text("No");
harn5::LocalizedString* const texts::SynDeviceStatus = text("SynDeviceStatus");
harn5::LocalizedString* const texts::TouchpadInstructions = text("TouchpadInstructions");
harn5::LocalizedString* const texts::TrackpointInstructions = text("TrackpointInstructions");
harn5::LocalizedString* const texts::SynButtonInstructions = text("SynButtonInstructions");

// 3. More Info texts.
harn5::LocalizedString* const texts::MsgMouseMoreInfo3200 = text("MsgMouseMoreInfo3200");
harn5::LocalizedString* const texts::MsgMouseMoreInfo3201 = text("MsgMouseMoreInfo3201");
harn5::LocalizedString* const texts::MsgMouseMoreInfo3202 = text("MsgMouseMoreInfo3202");
harn5::LocalizedString* const texts::MsgMouseMoreInfo3203 = text("MsgMouseMoreInfo3203");
harn5::LocalizedString* const texts::MsgMouseMoreInfo3204 = text("MsgMouseMoreInfo3204");
harn5::LocalizedString* const texts::MsgMouseMoreInfo3205 = text("MsgMouseMoreInfo3205");
harn5::LocalizedString* const texts::MsgMouseMoreInfo3206 = text("MsgMouseMoreInfo3206");
harn5::LocalizedString* const texts::MsgMouseMoreInfo3207 = text("MsgMouseMoreInfo3207");
harn5::LocalizedString* const texts::MsgMouseMoreInfo3208 = text("MsgMouseMoreInfo3208");
harn5::LocalizedString* const texts::MsgMouseMoreInfoButtonOk = text("MsgMouseMoreInfoButtonOk");

// 4. Parameters of the touchpad and TrackPoint tests (the pass-button pair is shared with MouseTest).
harn5::Parameter* const params::ExcludedThreeButtonDisplayByPnPID =
    parameter("ExcludedThreeButtonDisplayByPnPID", DataType::STRINGARRAY());
harn5::Parameter* const params::bDisablePassUntilFinished = parameter("bDisablePassUntilFinished", DataType::BOOLEAN());
harn5::Parameter* const params::bDisablePassUntilStarted = parameter("bDisablePassUntilStarted", DataType::BOOLEAN());

namespace {

// 5. The touchpad and TrackPoint tests share one entry point; their handles are not kept.
[[maybe_unused]] harn5::Test* const touchpadTest =
    DiagModule::createTest(HarnString("TouchpadTest"),
                           DeviceCapability::Mouse() | DeviceCapability::SynapticsMouse() |
                               DeviceCapability::SynapticsTouchPad(),
                           &runSynapticsTest)
        ->setInteractive(true)
        ->setCreatesOwnGUI(true)
        ->addParameter(params::bDisablePassUntilFinished)
        ->addParameter(params::bDisablePassUntilStarted);

[[maybe_unused]] harn5::Test* const trackPointTest =
    DiagModule::createTest(HarnString("TrackPointTest"),
                           DeviceCapability::Mouse() | DeviceCapability::SynapticsMouse() |
                               DeviceCapability::SynapticsTrackpoint(),
                           &runSynapticsTest)
        ->setInteractive(true)
        ->setCreatesOwnGUI(true)
        ->addParameter(params::bDisablePassUntilFinished)
        ->addParameter(params::bDisablePassUntilStarted)
        ->addParameter(params::ExcludedThreeButtonDisplayByPnPID);

// Recorded touchpad and TrackPoint sessions become host devices (--device touchpad:FILE).
[[maybe_unused]] const bool padkitDevices =
    (padkit::SessionDeviceProvider::registerWith(harn5::Host::process()), true);

// The touch tests read these properties; a device whose values they would misread is refused
// before any test runs.
[[maybe_unused]] const bool touchDeviceProperties = [] {
    harn5::Host& host = harn5::Host::process();
    host.declareDeviceProperty("SP_Handle", harn5::DevicePropertyTypes::Type::Int32);
    host.declareDeviceProperty("SP_PnPID", harn5::DevicePropertyTypes::Type::Text);
    host.declareDeviceProperty("SynapticsBlacklistVersion", harn5::DevicePropertyTypes::Type::Text);
    return true;
}();

// The machine's own mice, touchpads and pointing sticks, after the system mouse, and the
// pointing sticks named on the command line (--device stick:INDEX).
[[maybe_unused]] const bool liveDevices = (padkit::LiveDeviceSource::registerWith(harn5::Host::process()), true);

}  // namespace

// 6. Events of the touchpad entry and the classic dialog.
harn5::Event* const events::SynapticsBlacklistVersion =
    event("SynapticsBlacklistVersion", "warning", "synaptics", 71);
harn5::Event* const events::ErrorDuringInit = event("ErrorDuringInit", "warning", "KstrMouseDlg", 174);
harn5::Event* const events::TestFailed = event("TestFailed", "error", "KstrMouseDlg", 425);
harn5::Event* const events::UserMimicMiddleButton = event("UserMimicMiddleButton", "warning", "KstrMouseDlg", 410);

// 7. Classic dialog texts; two of them are registered for the host but shown nowhere.
harn5::LocalizedString* const texts::MsgMouseGroupBoxInstructions = text("MsgMouseGroupBoxInstructions");
harn5::LocalizedString* const texts::MsgMouseStatusDescription = text("MsgMouseStatusDescription");
harn5::LocalizedString* const texts::MsgMouseDragAndDropDescription = text("MsgMouseDragAndDropDescription");
harn5::LocalizedString* const texts::MsgMouseDoubleClickDescription = text("MsgMouseDoubleClickDescription");
harn5::LocalizedString* const texts::MsgMouseGroupBoxMouseStatus = text("MsgMouseGroupBoxMouseStatus");
harn5::LocalizedString* const texts::MsgMouseLabelPosition = text("MsgMouseLabelPosition");
harn5::LocalizedString* const texts::MsgMouseGroupBoxDragAndDrop = text("MsgMouseGroupBoxDragAndDrop");
harn5::LocalizedString* const texts::MsgMouseGroupBoxDoubleClick = text("MsgMouseGroupBoxDoubleClick");
harn5::LocalizedString* const texts::MsgMouseButtonLabelMoreInfo = text("MsgMouseButtonLabelMoreInfo");
harn5::LocalizedString* const texts::MsgMouseButtonLabelClose = text("MsgMouseButtonLabelClose");
harn5::LocalizedString* const texts::MsgMouseButtonLabelPass = text("MsgMouseButtonLabelPass");
harn5::LocalizedString* const texts::MsgMouseButtonLabelFail = text("MsgMouseButtonLabelFail");
namespace {
[[maybe_unused]] harn5::LocalizedString* const msgMouseCancelDescription = text("MsgMouseCancelDescription");
}
harn5::LocalizedString* const texts::MsgMouseFailDescription = text("MsgMouseFailDescription");
harn5::LocalizedString* const texts::MsgMousePassDescription = text("MsgMousePassDescription");
namespace {
[[maybe_unused]] harn5::LocalizedString* const msgMouseMoreInfoDescription = text("MsgMouseMoreInfoDescription");
}

// 8. Click test texts.
harn5::LocalizedString* const texts::MOUSE_INTERACTIVE_TEST_INDEX = text("MOUSE_INTERACTIVE_TEST_INDEX");
harn5::LocalizedString* const texts::MOUSE_LEFT_CLICK_TEST_INSTRUCTION = text("MOUSE_LEFT_CLICK_TEST_INSTRUCTION");
harn5::LocalizedString* const texts::MOUSE_RIGHT_CLICK_TEST_INSTRUCTION = text("MOUSE_RIGHT_CLICK_TEST_INSTRUCTION");
harn5::LocalizedString* const texts::MOUSE_MIDDLE_CLICK_TEST_INSTRUCTION = text("MOUSE_MIDDLE_CLICK_TEST_INSTRUCTION");
harn5::LocalizedString* const texts::MOUSE_MIDDLE_CLICK_TEST_INSTRUCTION_TESTING_REQUIRED =
    text("MOUSE_MIDDLE_CLICK_TEST_INSTRUCTION_TESTING_REQUIRED");
harn5::LocalizedString* const texts::MOUSE_DOUBLE_CLICK_TEST_INSTRUCTION = text("MOUSE_DOUBLE_CLICK_TEST_INSTRUCTION");
harn5::LocalizedString* const texts::MOUSE_CLICK_SUCCESSFUL_COMPLETION_INSTRUCTION =
    text("MOUSE_CLICK_SUCCESSFUL_COMPLETION_INSTRUCTION");
harn5::LocalizedString* const texts::MOUSE_SIDE_BUTTON_1_TEST_INSTRUCTION = text("MOUSE_SIDE_BUTTON_1_TEST_INSTRUCTION");
harn5::LocalizedString* const texts::MOUSE_SIDE_BUTTON_2_TEST_INSTRUCTION = text("MOUSE_SIDE_BUTTON_2_TEST_INSTRUCTION");
harn5::LocalizedString* const texts::MOUSE_DRAG_TEST_INSTRUCTION = text("MOUSE_DRAG_TEST_INSTRUCTION");
harn5::LocalizedString* const texts::MOUSE_POINTER_POSITION = text("MOUSE_POINTER_POSITION");
harn5::LocalizedString* const texts::MOUSE_WHEEL_UP_TEST_INSTRUCTION = text("MOUSE_WHEEL_UP_TEST_INSTRUCTION");
harn5::LocalizedString* const texts::MOUSE_WHEEL_DOWN_TEST_INSTRUCTION = text("MOUSE_WHEEL_DOWN_TEST_INSTRUCTION");

// 9. Click test events.
harn5::Event* const events::LEFT_MOUSE_CLICK_NOT_RECEIVED =
    event("LEFT_MOUSE_CLICK_NOT_RECEIVED", "error", "MouseClickTestDlg", 800)
        ->reportedAs("error", "KstrMouseDlg", 430);
harn5::Event* const events::RIGHT_MOUSE_CLICK_NOT_RECEIVED =
    event("RIGHT_MOUSE_CLICK_NOT_RECEIVED", "error", "MouseClickTestDlg", 802)
        ->reportedAs("error", "KstrMouseDlg", 430);
harn5::Event* const events::SCROLL_WHEEL_MOUSE_CLICK_NOT_RECEIVED =
    event("SCROLL_WHEEL_MOUSE_CLICK_NOT_RECEIVED", "error", "MouseClickTestDlg", 804)
        ->reportedAs("error", "KstrMouseDlg", 430);
harn5::Event* const events::MOUSE_DOUBLE_CLICK_NOT_RECEIVED =
    event("MOUSE_DOUBLE_CLICK_NOT_RECEIVED", "error", "MouseClickTestDlg", 810)
        ->reportedAs("error", "KstrMouseDlg", 430);
harn5::Event* const events::SCROLL_WHEEL_TESTING_SKIPPED =
    event("SCROLL_WHEEL_TESTING_SKIPPED", "informative", "MouseClickTestDlg", 834);
harn5::Event* const events::SCROLL_WHEEL_UP_NOT_RECEIVED =
    event("SCROLL_WHEEL_UP_NOT_RECEIVED", "error", "MouseClickTestDlg", 812);
harn5::Event* const events::SCROLL_WHEEL_DOWN_NOT_RECEIVED =
    event("SCROLL_WHEEL_DOWN_NOT_RECEIVED", "error", "MouseClickTestDlg", 814);
harn5::Event* const events::FIRST_SIDE_MOUSE_BUTTON_NOT_RECEIVED =
    event("FIRST_SIDE_MOUSE_BUTTON_NOT_RECEIVED", "error", "MouseClickTestDlg", 806)
        ->reportedAs("error", "KstrMouseDlg", 430);
harn5::Event* const events::SECOND_SIDE_MOUSE_BUTTON_NOT_RECEIVED =
    event("SECOND_SIDE_MOUSE_BUTTON_NOT_RECEIVED", "error", "MouseClickTestDlg", 808)
        ->reportedAs("error", "KstrMouseDlg", 430);
harn5::Event* const events::MOUSE_DRAG_NOT_RECEIVED =
    event("MOUSE_DRAG_NOT_RECEIVED", "error", "MouseClickTestDlg", 816)
        ->reportedAs("error", "KstrMouseDlg", 430);

// 10. Parameters of the two mouse tests.
harn5::Parameter* const params::iForceMouseType = parameter("iForceMouseType", DataType::UINT32());
harn5::Parameter* const params::iRequestFocusWhenLost = parameter("iRequestFocusWhenLost", DataType::UINT32());
harn5::Parameter* const params::bRequireDoubleClick = parameter("bRequireDoubleClick", DataType::BOOLEAN());
harn5::Parameter* const params::bRequireDragAndDrop = parameter("bRequireDragAndDrop", DataType::BOOLEAN());
harn5::Parameter* const params::bRequireLeftClick = parameter("bRequireLeftClick", DataType::BOOLEAN());
harn5::Parameter* const params::bRequireRightClick = parameter("bRequireRightClick", DataType::BOOLEAN());
harn5::Parameter* const params::bRequireAllButtons = parameter("bRequireAllButtons", DataType::BOOLEAN());
harn5::Parameter* const params::TestGamingButtons = parameter("TestGamingButtons", DataType::BOOLEAN());
harn5::Parameter* const params::RequireScrollWheelButton = parameter("RequireScrollWheelButton", DataType::BOOLEAN());

// 11. The two mouse tests; a device of the touchpad wrapper (it has an SP_Handle) is never offered.
harn5::Test* const tests::MouseInteractiveTest =
    DiagModule::createTest(HarnString("MouseInteractiveTest"), DeviceCapability::Mouse(), &::MouseInteractiveTest)
        ->setEnumeratesOnlyOnce(true)
        ->setInteractive(true)
        ->setCreatesOwnGUI(true)
        ->addDevicePropertyExclusion(HarnString("SP_Handle"), HarnString(""))
        ->addParameter(params::TestGamingButtons)
        ->addParameter(params::RequireScrollWheelButton);

harn5::Test* const tests::MouseTest =
    DiagModule::createTest(HarnString("MouseTest"), DeviceCapability::Mouse(), &::MouseTest)
        ->setEnumeratesOnlyOnce(true)
        ->setInteractive(true)
        ->setCreatesOwnGUI(true)
        ->addDevicePropertyExclusion(HarnString("SP_Handle"), HarnString(""))
        ->addParameter(params::iForceMouseType)
        ->addParameter(params::iRequestFocusWhenLost)
        ->addParameter(params::bRequireDoubleClick)
        ->addParameter(params::bRequireDragAndDrop)
        ->addParameter(params::bRequireLeftClick)
        ->addParameter(params::bRequireRightClick)
        ->addParameter(params::bDisablePassUntilFinished)
        ->addParameter(params::bDisablePassUntilStarted)
        ->addParameter(params::bRequireAllButtons);

// 12. Button texts of the click test, after one key that no dialog shows.
namespace {
[[maybe_unused]] harn5::LocalizedString* const didTestPass = text("DidTestPass");
}
harn5::LocalizedString* const texts::BUTTON_CANCEL = text("BUTTON_CANCEL");
harn5::LocalizedString* const texts::BUTTON_FAIL = text("BUTTON_FAIL");
harn5::LocalizedString* const texts::BUTTON_SKIP = text("BUTTON_SKIP");

// 13. The pointer quality test, after everything above: its parameters, events (all reported
// by its entry point), texts, and the test, on every live device (one with an InterfacePath).
harn5::Parameter* const params::uChatterThresholdMs = parameter("uChatterThresholdMs", DataType::UINT32());
harn5::Parameter* const params::uIdleSeconds = parameter("uIdleSeconds", DataType::UINT32());
harn5::Parameter* const params::uMinReportRateHz = parameter("uMinReportRateHz", DataType::UINT32());
harn5::Parameter* const params::RequiredChecks = parameter("RequiredChecks", DataType::STRINGARRAY());
harn5::Event* const events::BUTTON_CHATTER_DETECTED =
    event("BUTTON_CHATTER_DETECTED", "error", "PointerQualityTest", 60);
harn5::Event* const events::WHEEL_DIRECTION_REVERSAL =
    event("WHEEL_DIRECTION_REVERSAL", "error", "PointerQualityTest", 60);
harn5::Event* const events::POINTER_DRIFT_WHILE_IDLE =
    event("POINTER_DRIFT_WHILE_IDLE", "error", "PointerQualityTest", 60);
harn5::Event* const events::POINTER_JUMP =
    event("POINTER_JUMP", "error", "PointerQualityTest", 60);
harn5::Event* const events::REPORT_RATE_BELOW_MINIMUM =
    event("REPORT_RATE_BELOW_MINIMUM", "error", "PointerQualityTest", 60);
harn5::Event* const events::POINTER_QUALITY_TEST_FAILED =
    event("POINTER_QUALITY_TEST_FAILED", "error", "PointerQualityTest", 66);
harn5::LocalizedString* const texts::PqInstructions = text("PqInstructions");
harn5::LocalizedString* const texts::PqGroupRate = text("PqGroupRate");
harn5::LocalizedString* const texts::PqGroupButtons = text("PqGroupButtons");
harn5::LocalizedString* const texts::PqGroupIdle = text("PqGroupIdle");
harn5::LocalizedString* const texts::PqButtonHandsOff = text("PqButtonHandsOff");
harn5::LocalizedString* const texts::PqRate = text("PqRate");
harn5::LocalizedString* const texts::PqIntervals = text("PqIntervals");
harn5::LocalizedString* const texts::PqDropouts = text("PqDropouts");
harn5::LocalizedString* const texts::PqJumps = text("PqJumps");
harn5::LocalizedString* const texts::PqLeft = text("PqLeft");
harn5::LocalizedString* const texts::PqRight = text("PqRight");
harn5::LocalizedString* const texts::PqMiddle = text("PqMiddle");
harn5::LocalizedString* const texts::PqBack = text("PqBack");
harn5::LocalizedString* const texts::PqForward = text("PqForward");
harn5::LocalizedString* const texts::PqPresses = text("PqPresses");
harn5::LocalizedString* const texts::PqChatter = text("PqChatter");
harn5::LocalizedString* const texts::PqWheel = text("PqWheel");
harn5::LocalizedString* const texts::PqReversals = text("PqReversals");
harn5::LocalizedString* const texts::PqIdleNotRun = text("PqIdleNotRun");
harn5::LocalizedString* const texts::PqIdleLeadIn = text("PqIdleLeadIn");
harn5::LocalizedString* const texts::PqIdleRunning = text("PqIdleRunning");
harn5::LocalizedString* const texts::PqIdleClean = text("PqIdleClean");
harn5::LocalizedString* const texts::PqIdleDrift = text("PqIdleDrift");
harn5::LocalizedString* const texts::PqStillToDo = text("PqStillToDo");
harn5::LocalizedString* const texts::PqCheckRate = text("PqCheckRate");
harn5::LocalizedString* const texts::PqCheckButtons = text("PqCheckButtons");
harn5::LocalizedString* const texts::PqCheckWheel = text("PqCheckWheel");
harn5::LocalizedString* const texts::PqCheckIdle = text("PqCheckIdle");
harn5::LocalizedString* const texts::PqFound = text("PqFound");
harn5::LocalizedString* const texts::PqAllDone = text("PqAllDone");
harn5::Test* const tests::PointerQualityTest =
    DiagModule::createTest(HarnString("PointerQualityTest"), DeviceCapability::Mouse(), &runPointerQualityTest)
        ->setInteractive(true)
        ->setCreatesOwnGUI(true)
        ->requireDeviceProperty(HarnString("InterfacePath"))
        ->addParameter(params::uChatterThresholdMs)
        ->addParameter(params::uIdleSeconds)
        ->addParameter(params::uMinReportRateHz)
        ->addParameter(params::RequiredChecks);

// 14. The classic dialog's line of checks still to do, and the events for the checks a Fail or a
// Close left undone that no click-test event names, after everything above.
harn5::Event* const events::MOUSE_WHEEL_NOT_RECEIVED = event("MOUSE_WHEEL_NOT_RECEIVED", "error", "KstrMouseDlg", 430);
harn5::Event* const events::MOUSE_TILT_NOT_RECEIVED = event("MOUSE_TILT_NOT_RECEIVED", "error", "KstrMouseDlg", 430);
harn5::LocalizedString* const texts::MsgMouseStillToDo = text("MsgMouseStillToDo");
harn5::LocalizedString* const texts::MsgMouseCheckLeftButton = text("MsgMouseCheckLeftButton");
harn5::LocalizedString* const texts::MsgMouseCheckRightButton = text("MsgMouseCheckRightButton");
harn5::LocalizedString* const texts::MsgMouseCheckMiddleButton = text("MsgMouseCheckMiddleButton");
harn5::LocalizedString* const texts::MsgMouseCheckWheel = text("MsgMouseCheckWheel");
harn5::LocalizedString* const texts::MsgMouseCheckTiltLeft = text("MsgMouseCheckTiltLeft");
harn5::LocalizedString* const texts::MsgMouseCheckTiltRight = text("MsgMouseCheckTiltRight");
harn5::LocalizedString* const texts::MsgMouseCheckBackButton = text("MsgMouseCheckBackButton");
harn5::LocalizedString* const texts::MsgMouseCheckForwardButton = text("MsgMouseCheckForwardButton");
harn5::LocalizedString* const texts::MsgMouseCheckDoubleClick = text("MsgMouseCheckDoubleClick");
harn5::LocalizedString* const texts::MsgMouseCheckDragAndDrop = text("MsgMouseCheckDragAndDrop");

// 15. The classic test's demand for the side buttons, offered after its other parameters.
harn5::Parameter* const params::bRequireSideButtons = parameter("bRequireSideButtons", DataType::BOOLEAN());
namespace {
[[maybe_unused]] harn5::Test* const mouseTestWithSideButtons = tests::MouseTest->addParameter(params::bRequireSideButtons);
}

// 16. The touchpad quality test, after everything above: its own parameters (RequiredChecks and
// uIdleSeconds are the pointer quality test's, each test taking its own checks and default),
// events (all reported by its entry point), texts, and the test, on every touchpad.
harn5::Parameter* const params::uMinContacts = parameter("uMinContacts", DataType::UINT32());
harn5::Parameter* const params::uMaxJitterMicrons = parameter("uMaxJitterMicrons", DataType::UINT32());
harn5::Parameter* const params::bJudgeReportRate = parameter("bJudgeReportRate", DataType::BOOLEAN());
harn5::Event* const events::TOUCHPAD_DEAD_ZONE = event("TOUCHPAD_DEAD_ZONE", "error", "TouchpadQualityTest", 70);
harn5::Event* const events::TOUCHPAD_CONTACTS_BELOW_MINIMUM =
    event("TOUCHPAD_CONTACTS_BELOW_MINIMUM", "error", "TouchpadQualityTest", 70);
harn5::Event* const events::TOUCHPAD_JITTER = event("TOUCHPAD_JITTER", "error", "TouchpadQualityTest", 70);
harn5::Event* const events::TOUCHPAD_REPORT_RATE_OUT_OF_RANGE =
    event("TOUCHPAD_REPORT_RATE_OUT_OF_RANGE", "error", "TouchpadQualityTest", 70);
harn5::Event* const events::TOUCHPAD_GHOST_CONTACT = event("TOUCHPAD_GHOST_CONTACT", "error", "TouchpadQualityTest", 70);
harn5::Event* const events::TOUCHPAD_RESOLUTION_BELOW_MINIMUM =
    event("TOUCHPAD_RESOLUTION_BELOW_MINIMUM", "error", "TouchpadQualityTest", 70);
harn5::Event* const events::TOUCHPAD_QUALITY_TEST_FAILED =
    event("TOUCHPAD_QUALITY_TEST_FAILED", "error", "TouchpadQualityTest", 76);
harn5::LocalizedString* const texts::TqInstructions = text("TqInstructions");
harn5::LocalizedString* const texts::TqGroupCoverage = text("TqGroupCoverage");
harn5::LocalizedString* const texts::TqGroupFigures = text("TqGroupFigures");
harn5::LocalizedString* const texts::TqCellsToDo = text("TqCellsToDo");
harn5::LocalizedString* const texts::TqCellsDone = text("TqCellsDone");
harn5::LocalizedString* const texts::TqFingers = text("TqFingers");
harn5::LocalizedString* const texts::TqMostAtOnce = text("TqMostAtOnce");
harn5::LocalizedString* const texts::TqPalmFrames = text("TqPalmFrames");
harn5::LocalizedString* const texts::TqRest = text("TqRest");
harn5::LocalizedString* const texts::TqRestHolding = text("TqRestHolding");
harn5::LocalizedString* const texts::TqRateOne = text("TqRateOne");
harn5::LocalizedString* const texts::TqRateSeveral = text("TqRateSeveral");
harn5::LocalizedString* const texts::TqClicks = text("TqClicks");
harn5::LocalizedString* const texts::TqLeftHalf = text("TqLeftHalf");
harn5::LocalizedString* const texts::TqRightHalf = text("TqRightHalf");
harn5::LocalizedString* const texts::TqButton1 = text("TqButton1");
harn5::LocalizedString* const texts::TqButton2 = text("TqButton2");
harn5::LocalizedString* const texts::TqResolution = text("TqResolution");
harn5::LocalizedString* const texts::TqPadSize = text("TqPadSize");
harn5::LocalizedString* const texts::TqUnknown = text("TqUnknown");
harn5::LocalizedString* const texts::TqIdleClean = text("TqIdleClean");
harn5::LocalizedString* const texts::TqIdleGhost = text("TqIdleGhost");
harn5::LocalizedString* const texts::TqCheckCoverage = text("TqCheckCoverage");
harn5::LocalizedString* const texts::TqCheckContacts = text("TqCheckContacts");
harn5::LocalizedString* const texts::TqCheckJitter = text("TqCheckJitter");
harn5::LocalizedString* const texts::TqCheckJitterUnsized = text("TqCheckJitterUnsized");
harn5::LocalizedString* const texts::TqCheckRate = text("TqCheckRate");
harn5::LocalizedString* const texts::TqCheckButtons = text("TqCheckButtons");
harn5::LocalizedString* const texts::TqCheckButtonsSeparate = text("TqCheckButtonsSeparate");
harn5::LocalizedString* const texts::TqCheckResolution = text("TqCheckResolution");
harn5::Test* const tests::TouchpadQualityTest =
    DiagModule::createTest(HarnString("TouchpadQualityTest"),
                           DeviceCapability::Mouse() | DeviceCapability::SynapticsMouse() |
                               DeviceCapability::SynapticsTouchPad(),
                           &runTouchpadQualityTest)
        ->setInteractive(true)
        ->setCreatesOwnGUI(true)
        ->addParameter(params::RequiredChecks)
        ->addParameter(params::uMinContacts)
        ->addParameter(params::uMaxJitterMicrons)
        ->addParameter(params::bJudgeReportRate)
        ->addParameter(params::uIdleSeconds);

// 17. The touch tests' removed device, after everything above.
harn5::Event* const events::TOUCH_DEVICE_REMOVED = event("TOUCH_DEVICE_REMOVED", "error", "CSynapticsDlg", 380);

// 18. The labels of the outlines that stand in for missing pictures, after everything above.
harn5::LocalizedString* const texts::PictureDoubleClickTarget = text("PictureDoubleClickTarget");
harn5::LocalizedString* const texts::PictureDragItem = text("PictureDragItem");
harn5::LocalizedString* const texts::PictureDropArea = text("PictureDropArea");
harn5::LocalizedString* const texts::PictureTouchpad = text("PictureTouchpad");
harn5::LocalizedString* const texts::PictureLeftButton = text("PictureLeftButton");
harn5::LocalizedString* const texts::PictureMiddleButton = text("PictureMiddleButton");
harn5::LocalizedString* const texts::PictureRightButton = text("PictureRightButton");

}  // namespace kstrmouse

// The application object comes after every registration: initialisers of one translation unit run
// in the order written, so no link order can put it first.
CKstrMouseGUIApp theApp;
