#pragma once
// The touchpad control's rules without a window: what it has seen, when its test is complete,
// the values it shows, and where and whether it draws the finger marker.
#include "PixelRect.h"
#include "SynapticsDeviceState.h"

class TouchPadModel {
public:
    static constexpr int kPadWidth = 300;
    static constexpr int kPadHeight = 150;
    static constexpr int kButtonWidth = 149;
    static constexpr int kButtonHeight = 45;
    static constexpr int kButtonsTop = 152;      // below the pad, relative to the client top
    static constexpr int kRightButtonLeft = 151;

    // Buttons not shown are not demanded (nor drawn).
    explicit TouchPadModel(bool buttonsShown);

    // Notes what one packet showed; the flags only ever go from false to true.
    void onPacket(const SynapticsDeviceState& state);
    // A finger, and with the buttons shown a left (or middle) press and a right (or middle)
    // press, in any packets.
    bool isTestComplete() const;
    bool buttonsShown() const { return m_buttonsShown; }
    bool leftSeen() const { return m_bLeftSeen; }
    bool rightSeen() const { return m_bRightSeen; }
    bool fingerSeen() const { return m_bFingerSeen; }

    // The middle button counts as both buttons, as on pads with one bar for all three.
    static bool leftPressed(const SynapticsDeviceState& state);
    static bool rightPressed(const SynapticsDeviceState& state);
    // The status panel's values: X from the low end, Y from the high end (growing downwards).
    static int x(const SynapticsDeviceState& state);
    static int y(const SynapticsDeviceState& state);

    // One paint: the marker is drawn while the finger moves, or when it has just landed;
    // a finger resting since the previous paint leaves the pad bare.
    bool shouldDrawMarker(const SynapticsDeviceState& state) const;
    // After each paint, with the finger presence asked again.
    void notePainted(bool fingerPresent);
    // The marker square on the pad picture: 8 pixels per unit of finger width, centred on the
    // finger, high Y at the top.
    static PixelRect marker(const SynapticsDeviceState& state);

private:
    bool m_buttonsShown;
    bool m_bFingerWasPresent = true;   // true, so that the very first paint needs motion
    bool m_bLeftSeen = false;
    bool m_bRightSeen = false;
    bool m_bFingerSeen = false;
};
