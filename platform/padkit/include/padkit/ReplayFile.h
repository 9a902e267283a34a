#pragma once
// Opens a file to replay, telling a session file from a HID recording by what it holds: a
// recording's first line that says something is one of its R:, D:, N:, P: or I: lines; a file
// that is not text is left to the recording reader, which says so.
#include <filesystem>
#include <memory>
#include <optional>

#include "padkit/PacketSource.h"
#include "padkit/SynDeviceType.h"

namespace padkit {

class ReplayFile {
public:
    // The file's packets for a device of the kind; `device` picks one device of a recording of
    // several. A SessionError when the file cannot be read, is not well formed, or holds no
    // device of the kind.
    static std::unique_ptr<PacketSource> open(const std::filesystem::path& file, SynDeviceType type,
                                              std::optional<unsigned> device = std::nullopt);
    static bool isRecording(const std::filesystem::path& file);
};

}  // namespace padkit
