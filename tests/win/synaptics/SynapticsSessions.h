#pragma once
// Recorded sessions the tests replay. Touchpad range X 1000..6000, Y 1000..5000; TrackPoint
// range -100..100 on both axes. Packet fields: TIME FINGER X Y WIDTH MOTION STICK-X STICK-Y BUTTONS.
#include <string>

namespace syntest {

inline const std::string kTouchpadHeader = "padkit-session 1\ndevice touchpad\nx-range 1000 6000\ny-range 1000 5000\n";
inline const std::string kTrackpointHeader = "padkit-session 1\ndevice trackpoint\nx-range -100 100\ny-range -100 100\n";

// A finger, then left, then right: every touchpad check; ends lifted with right held.
inline const std::string kTouchpadComplete = kTouchpadHeader +
                                             "0 1 3500 3000 4 1 0 0 -\n"
                                             "5 0 0 0 0 0 0 0 L\n"
                                             "10 0 0 0 0 0 0 0 R\n";
// A finger with the left button: no right press.
inline const std::string kTouchpadLeftOnly = kTouchpadHeader + "0 1 3500 3000 4 1 0 0 L\n";
// A finger and no button.
inline const std::string kTouchpadFingerOnly = kTouchpadHeader + "0 1 3500 3000 4 1 0 0 -\n";
// One packet: a finger and the middle button, which counts as left and right.
inline const std::string kTouchpadMiddle = kTouchpadHeader + "0 1 1500 4000 3 1 0 0 M\n";

// A movement and the three buttons one after the other; ends at (7, 9), nothing held.
inline const std::string kTrackpointComplete = kTrackpointHeader +
                                               "0 0 0 0 0 0 5 -3 L\n"
                                               "5 0 0 0 0 0 0 0 M\n"
                                               "10 0 0 0 0 0 0 0 R\n"
                                               "15 0 0 0 0 0 7 9 -\n";
// A movement without any button.
inline const std::string kTrackpointStickOnly = kTrackpointHeader + "0 0 0 0 0 0 4 0 -\n";

}  // namespace syntest
