#pragma once
// When the Pass button of a dialog may be pressed, from the two host parameters.

enum PassButtonPolicy {
    Enabled = 0,                // Pass from the start
    DisabledUntilStarted = 1,   // Pass after the first sign of test activity
    DisabledUntilFinished = 2,  // Pass once every demanded check is done
};

// Reads the parameters afresh on every call: dialogs ask at each decision.
PassButtonPolicy getPassButtonPolicy();
