#pragma once
// What opening a touch device answers; 0 is success, every other value a reason it failed.

enum _tagSYNStatus : long {
    SYN_OK = 0,
    SYN_UNKNOWN_HANDLE = 1,     // no device is registered under the handle
    SYN_SESSION_UNREADABLE = 2, // the device's recorded session cannot be read
    SYN_SESSION_INVALID = 3,    // the recorded session is not well formed
    SYN_NO_DELIVERY = 4,        // the packet delivery window or its timer could not be made
    SYN_DEVICE_ABSENT = 5,      // the live device is not attached
    SYN_NOT_DECODABLE = 6,      // the live device's reports have no X or Y to read
    SYN_RECORDING_FAILED = 7,   // the recording asked for cannot be written
};
