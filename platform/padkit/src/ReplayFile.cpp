#include "padkit/ReplayFile.h"

#include <fstream>
#include <string>
#include <string_view>

#include "hidrd/LineReader.h"
#include "hidrd/RecordingReader.h"
#include "padkit/RecordingSource.h"
#include "padkit/SessionError.h"
#include "padkit/SessionFileSource.h"

namespace padkit {

namespace {

const char* kindName(SynDeviceType type)
{
    return type == SynDeviceTrackpoint ? "trackpoint" : "touchpad";
}

}  // namespace

bool ReplayFile::isRecording(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    hidrd::LineReader lines(in, hidrd::RecordingReader::kMaxLine);
    std::string_view line;
    while (lines.next(line) == hidrd::LineReader::Status::Line) {
        for (const char c : line) {
            if (static_cast<unsigned char>(c) < 0x20 && c != '\t') {
                return true;   // not text: the recording reader says where
            }
        }
        const std::size_t start = line.find_first_not_of(" \t");
        if (start == std::string_view::npos || line[start] == '#') {
            continue;
        }
        return hidrd::RecordingReader::begins(line);
    }
    return false;
}

std::unique_ptr<PacketSource> ReplayFile::open(const std::filesystem::path& file, SynDeviceType type,
                                               std::optional<unsigned> device)
{
    if (isRecording(file)) {
        return std::make_unique<RecordingSource>(file, type, device);
    }
    std::unique_ptr<PacketSource> source = std::make_unique<SessionFileSource>(file);
    const std::u8string name = file.u8string();
    const std::string shown(name.begin(), name.end());
    if (device) {
        throw SessionError(SessionError::Reason::Invalid,
                           shown + ": device=" + std::to_string(*device) +
                               " picks a device of a HID recording; a session file records one device");
    }
    if (source->header().type != type) {
        throw SessionError(SessionError::Reason::Invalid, shown + ": the session records a " +
                                                              kindName(source->header().type) + "; give it as " +
                                                              kindName(source->header().type) + ":FILE");
    }
    return source;
}

}  // namespace padkit
