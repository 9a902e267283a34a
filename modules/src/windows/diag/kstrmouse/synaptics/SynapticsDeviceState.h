#pragma once
// What the device controls read of the touch-device wrapper after a packet: its ranges, the
// finger and stick readings and the button and finger answers. The controls copy it out of the
// wrapper so that their rules work on plain values.

struct SynapticsDeviceState {
    int xLo = 0;
    int xHi = 0;
    int yLo = 0;
    int yHi = 0;
    int fingerX = 0;
    int fingerY = 0;
    int fingerWidth = 0;
    int stickX = 0;
    int stickY = 0;
    bool leftPressed = false;
    bool rightPressed = false;
    bool middlePressed = false;
    bool fingerPresent = false;
    bool fingerMotion = false;
};
