#pragma once
// Handles of everything the module registers with the host. They are created once, during static
// initialisation and in the host's fixed order (Registration.cpp), and belong to the host library.
#include "harn5/DiagModule.h"

namespace kstrmouse {

namespace events {
extern harn5::Event* const TestFailedTouchPadOrTrackpoint;
extern harn5::Event* const DriverCommunicationError;
extern harn5::Event* const SynapticsBlacklistVersion;
extern harn5::Event* const ErrorDuringInit;
extern harn5::Event* const TestFailed;
extern harn5::Event* const UserMimicMiddleButton;
extern harn5::Event* const LEFT_MOUSE_CLICK_NOT_RECEIVED;
extern harn5::Event* const RIGHT_MOUSE_CLICK_NOT_RECEIVED;
extern harn5::Event* const SCROLL_WHEEL_MOUSE_CLICK_NOT_RECEIVED;
extern harn5::Event* const MOUSE_DOUBLE_CLICK_NOT_RECEIVED;
extern harn5::Event* const SCROLL_WHEEL_TESTING_SKIPPED;
extern harn5::Event* const SCROLL_WHEEL_UP_NOT_RECEIVED;
extern harn5::Event* const SCROLL_WHEEL_DOWN_NOT_RECEIVED;
extern harn5::Event* const FIRST_SIDE_MOUSE_BUTTON_NOT_RECEIVED;
extern harn5::Event* const SECOND_SIDE_MOUSE_BUTTON_NOT_RECEIVED;
extern harn5::Event* const MOUSE_DRAG_NOT_RECEIVED;
// The classic dialog's checks left undone that no click-test event names.
extern harn5::Event* const MOUSE_WHEEL_NOT_RECEIVED;
extern harn5::Event* const MOUSE_TILT_NOT_RECEIVED;
// The pointer quality test: one per kind of finding, and the user's own Fail.
extern harn5::Event* const BUTTON_CHATTER_DETECTED;
extern harn5::Event* const WHEEL_DIRECTION_REVERSAL;
extern harn5::Event* const POINTER_DRIFT_WHILE_IDLE;
extern harn5::Event* const POINTER_JUMP;
extern harn5::Event* const REPORT_RATE_BELOW_MINIMUM;
extern harn5::Event* const POINTER_QUALITY_TEST_FAILED;
// The touchpad quality test: one per kind of finding, and the user's own Fail.
extern harn5::Event* const TOUCHPAD_DEAD_ZONE;
extern harn5::Event* const TOUCHPAD_CONTACTS_BELOW_MINIMUM;
extern harn5::Event* const TOUCHPAD_JITTER;
extern harn5::Event* const TOUCHPAD_REPORT_RATE_OUT_OF_RANGE;
extern harn5::Event* const TOUCHPAD_GHOST_CONTACT;
extern harn5::Event* const TOUCHPAD_RESOLUTION_BELOW_MINIMUM;
extern harn5::Event* const TOUCHPAD_QUALITY_TEST_FAILED;
// The device under a touch test went away (not a technician's Fail).
extern harn5::Event* const TOUCH_DEVICE_REMOVED;
}  // namespace events

namespace texts {
// Touchpad and TrackPoint dialog.
extern harn5::LocalizedString* const SynXCoordinate;
extern harn5::LocalizedString* const SynYCoordinate;
extern harn5::LocalizedString* const SynWidth;
extern harn5::LocalizedString* const SynLButtonPressed;
extern harn5::LocalizedString* const SynRButtonPressed;
extern harn5::LocalizedString* const SynMButtonPressed;
extern harn5::LocalizedString* const Yes;
extern harn5::LocalizedString* const No;
extern harn5::LocalizedString* const SynDeviceStatus;
extern harn5::LocalizedString* const TouchpadInstructions;
extern harn5::LocalizedString* const TrackpointInstructions;
extern harn5::LocalizedString* const SynButtonInstructions;
// More Info dialog.
extern harn5::LocalizedString* const MsgMouseMoreInfo3200;
extern harn5::LocalizedString* const MsgMouseMoreInfo3201;
extern harn5::LocalizedString* const MsgMouseMoreInfo3202;
extern harn5::LocalizedString* const MsgMouseMoreInfo3203;
extern harn5::LocalizedString* const MsgMouseMoreInfo3204;
extern harn5::LocalizedString* const MsgMouseMoreInfo3205;
extern harn5::LocalizedString* const MsgMouseMoreInfo3206;
extern harn5::LocalizedString* const MsgMouseMoreInfo3207;
extern harn5::LocalizedString* const MsgMouseMoreInfo3208;
extern harn5::LocalizedString* const MsgMouseMoreInfoButtonOk;
// Classic dialog (the last six are shared with the touchpad and TrackPoint dialog).
extern harn5::LocalizedString* const MsgMouseGroupBoxInstructions;
extern harn5::LocalizedString* const MsgMouseStatusDescription;
extern harn5::LocalizedString* const MsgMouseDragAndDropDescription;
extern harn5::LocalizedString* const MsgMouseDoubleClickDescription;
extern harn5::LocalizedString* const MsgMouseGroupBoxMouseStatus;
extern harn5::LocalizedString* const MsgMouseLabelPosition;
extern harn5::LocalizedString* const MsgMouseGroupBoxDragAndDrop;
extern harn5::LocalizedString* const MsgMouseGroupBoxDoubleClick;
extern harn5::LocalizedString* const MsgMouseButtonLabelMoreInfo;
extern harn5::LocalizedString* const MsgMouseButtonLabelClose;
extern harn5::LocalizedString* const MsgMouseButtonLabelPass;
extern harn5::LocalizedString* const MsgMouseButtonLabelFail;
extern harn5::LocalizedString* const MsgMouseFailDescription;
extern harn5::LocalizedString* const MsgMousePassDescription;
// Click test.
extern harn5::LocalizedString* const MOUSE_INTERACTIVE_TEST_INDEX;
extern harn5::LocalizedString* const MOUSE_LEFT_CLICK_TEST_INSTRUCTION;
extern harn5::LocalizedString* const MOUSE_RIGHT_CLICK_TEST_INSTRUCTION;
extern harn5::LocalizedString* const MOUSE_MIDDLE_CLICK_TEST_INSTRUCTION;
extern harn5::LocalizedString* const MOUSE_MIDDLE_CLICK_TEST_INSTRUCTION_TESTING_REQUIRED;
extern harn5::LocalizedString* const MOUSE_DOUBLE_CLICK_TEST_INSTRUCTION;
extern harn5::LocalizedString* const MOUSE_CLICK_SUCCESSFUL_COMPLETION_INSTRUCTION;
extern harn5::LocalizedString* const MOUSE_SIDE_BUTTON_1_TEST_INSTRUCTION;
extern harn5::LocalizedString* const MOUSE_SIDE_BUTTON_2_TEST_INSTRUCTION;
extern harn5::LocalizedString* const MOUSE_DRAG_TEST_INSTRUCTION;
extern harn5::LocalizedString* const MOUSE_POINTER_POSITION;
extern harn5::LocalizedString* const MOUSE_WHEEL_UP_TEST_INSTRUCTION;
extern harn5::LocalizedString* const MOUSE_WHEEL_DOWN_TEST_INSTRUCTION;
extern harn5::LocalizedString* const BUTTON_CANCEL;
extern harn5::LocalizedString* const BUTTON_FAIL;
extern harn5::LocalizedString* const BUTTON_SKIP;
// Classic dialog: the line of checks still to do.
extern harn5::LocalizedString* const MsgMouseStillToDo;
extern harn5::LocalizedString* const MsgMouseCheckLeftButton;
extern harn5::LocalizedString* const MsgMouseCheckRightButton;
extern harn5::LocalizedString* const MsgMouseCheckMiddleButton;
extern harn5::LocalizedString* const MsgMouseCheckWheel;
extern harn5::LocalizedString* const MsgMouseCheckTiltLeft;
extern harn5::LocalizedString* const MsgMouseCheckTiltRight;
extern harn5::LocalizedString* const MsgMouseCheckBackButton;
extern harn5::LocalizedString* const MsgMouseCheckForwardButton;
extern harn5::LocalizedString* const MsgMouseCheckDoubleClick;
extern harn5::LocalizedString* const MsgMouseCheckDragAndDrop;
// Pointer quality dialog.
extern harn5::LocalizedString* const PqInstructions;
extern harn5::LocalizedString* const PqGroupRate;
extern harn5::LocalizedString* const PqGroupButtons;
extern harn5::LocalizedString* const PqGroupIdle;
extern harn5::LocalizedString* const PqButtonHandsOff;
extern harn5::LocalizedString* const PqRate;
extern harn5::LocalizedString* const PqIntervals;
extern harn5::LocalizedString* const PqDropouts;
extern harn5::LocalizedString* const PqJumps;
extern harn5::LocalizedString* const PqLeft;
extern harn5::LocalizedString* const PqRight;
extern harn5::LocalizedString* const PqMiddle;
extern harn5::LocalizedString* const PqBack;
extern harn5::LocalizedString* const PqForward;
extern harn5::LocalizedString* const PqPresses;
extern harn5::LocalizedString* const PqChatter;
extern harn5::LocalizedString* const PqWheel;
extern harn5::LocalizedString* const PqReversals;
extern harn5::LocalizedString* const PqIdleNotRun;
extern harn5::LocalizedString* const PqIdleLeadIn;
extern harn5::LocalizedString* const PqIdleRunning;
extern harn5::LocalizedString* const PqIdleClean;
extern harn5::LocalizedString* const PqIdleDrift;
extern harn5::LocalizedString* const PqStillToDo;
extern harn5::LocalizedString* const PqCheckRate;
extern harn5::LocalizedString* const PqCheckButtons;
extern harn5::LocalizedString* const PqCheckWheel;
extern harn5::LocalizedString* const PqCheckIdle;
extern harn5::LocalizedString* const PqFound;
extern harn5::LocalizedString* const PqAllDone;
// Touchpad quality dialog (with the pointer quality dialog's hands-off and status texts).
extern harn5::LocalizedString* const TqInstructions;
extern harn5::LocalizedString* const TqGroupCoverage;
extern harn5::LocalizedString* const TqGroupFigures;
extern harn5::LocalizedString* const TqCellsToDo;
extern harn5::LocalizedString* const TqCellsDone;
extern harn5::LocalizedString* const TqFingers;
extern harn5::LocalizedString* const TqMostAtOnce;
extern harn5::LocalizedString* const TqPalmFrames;
extern harn5::LocalizedString* const TqRest;
extern harn5::LocalizedString* const TqRestHolding;
extern harn5::LocalizedString* const TqRateOne;
extern harn5::LocalizedString* const TqRateSeveral;
extern harn5::LocalizedString* const TqClicks;
extern harn5::LocalizedString* const TqLeftHalf;
extern harn5::LocalizedString* const TqRightHalf;
extern harn5::LocalizedString* const TqButton1;
extern harn5::LocalizedString* const TqButton2;
extern harn5::LocalizedString* const TqResolution;
extern harn5::LocalizedString* const TqPadSize;
extern harn5::LocalizedString* const TqUnknown;
extern harn5::LocalizedString* const TqIdleClean;
extern harn5::LocalizedString* const TqIdleGhost;
extern harn5::LocalizedString* const TqCheckCoverage;
extern harn5::LocalizedString* const TqCheckContacts;
extern harn5::LocalizedString* const TqCheckJitter;
extern harn5::LocalizedString* const TqCheckJitterUnsized;
extern harn5::LocalizedString* const TqCheckRate;
extern harn5::LocalizedString* const TqCheckButtons;
extern harn5::LocalizedString* const TqCheckButtonsSeparate;
extern harn5::LocalizedString* const TqCheckResolution;
// What stands in for a picture whose file is missing: the label of its outline.
extern harn5::LocalizedString* const PictureDoubleClickTarget;
extern harn5::LocalizedString* const PictureDragItem;
extern harn5::LocalizedString* const PictureDropArea;
extern harn5::LocalizedString* const PictureTouchpad;
extern harn5::LocalizedString* const PictureLeftButton;
extern harn5::LocalizedString* const PictureMiddleButton;
extern harn5::LocalizedString* const PictureRightButton;
}  // namespace texts

namespace params {
extern harn5::Parameter* const ExcludedThreeButtonDisplayByPnPID;
extern harn5::Parameter* const bDisablePassUntilFinished;
extern harn5::Parameter* const bDisablePassUntilStarted;
extern harn5::Parameter* const iForceMouseType;
extern harn5::Parameter* const iRequestFocusWhenLost;
extern harn5::Parameter* const bRequireDoubleClick;
extern harn5::Parameter* const bRequireDragAndDrop;
extern harn5::Parameter* const bRequireLeftClick;
extern harn5::Parameter* const bRequireRightClick;
extern harn5::Parameter* const bRequireAllButtons;
extern harn5::Parameter* const bRequireSideButtons;
extern harn5::Parameter* const TestGamingButtons;
extern harn5::Parameter* const RequireScrollWheelButton;
extern harn5::Parameter* const uChatterThresholdMs;
extern harn5::Parameter* const uIdleSeconds;
extern harn5::Parameter* const uMinReportRateHz;
extern harn5::Parameter* const RequiredChecks;
extern harn5::Parameter* const uMinContacts;
extern harn5::Parameter* const uMaxJitterMicrons;
extern harn5::Parameter* const bJudgeReportRate;
}  // namespace params

namespace tests {
// The two mouse dialogs take their titles from these; the touchpad and TrackPoint
// dialog asks the host for the running test instead.
extern harn5::Test* const MouseInteractiveTest;
extern harn5::Test* const MouseTest;
extern harn5::Test* const PointerQualityTest;
extern harn5::Test* const TouchpadQualityTest;
}  // namespace tests

}  // namespace kstrmouse
