#pragma once
// Which Windows release runs: 16 Windows 7, 17 Windows 8, 18 Windows 8.1, 19 Windows 10,
// 20 Windows 11, 0 unknown.

namespace ksx {

struct OperatingSystemMajorVersion {
    int major;
};

}  // namespace ksx
