#pragma once
// The TrackPoint control's rules without a window: what it has seen, when its test is complete,
// and where the stick marker and the three buttons go.
#include "PixelRect.h"
#include "SynapticsDeviceState.h"

class TrackpointModel {
public:
    static constexpr int kMarkerSize = 45;
    static constexpr int kButtonWidth = 120;
    static constexpr int kButtonHeight = 45;
    static constexpr int kButtonRowHeight = 60;   // taken off the bottom of the window

    explicit TrackpointModel(bool bThreeButtonDisplay);

    // Notes what one packet showed, buttons included even when they are not displayed.
    void onPacket(const SynapticsDeviceState& state);
    // With the buttons displayed: a movement and all three buttons; without: a movement.
    bool isTestComplete() const;
    bool threeButtonDisplay() const { return m_bThreeButtonDisplay; }
    bool moved() const { return m_bMoved; }

    // The picture of a window of width x height: the drawing area above the button row ...
    static PixelRect drawingArea(int width, int height);
    // ... the stick marker in it, high Y at the top ...
    static PixelRect marker(const SynapticsDeviceState& state, int width, int height);
    // ... and the buttons below it, relative to the client top (the centre one sits higher).
    static PixelRect leftButton(int width, int height);
    static PixelRect centerButton(int width, int height);
    static PixelRect rightButton(int width, int height);

private:
    bool m_bLeftSeen = false;
    bool m_bMiddleSeen = false;
    bool m_bRightSeen = false;
    bool m_bMoved = false;
    bool m_bThreeButtonDisplay;
};
