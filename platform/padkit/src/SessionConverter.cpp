#include "padkit/SessionConverter.h"

#include <cstdio>
#include <filesystem>
#include <memory>

#include "harn5/HarnException.h"
#include "harn5/Text.h"
#include "padkit/RecordingSource.h"
#include "padkit/ReplayFile.h"
#include "padkit/SessionCopy.h"
#include "padkit/SessionError.h"
#include "padkit/SessionFileSource.h"

namespace padkit {

namespace {

[[noreturn]] void fail(const std::string& message)
{
    throw harn5::HarnException(harn5::HarnString(message));
}

std::unique_ptr<PacketSource> open(const std::filesystem::path& file)
{
    if (ReplayFile::isRecording(file)) {
        return std::make_unique<RecordingSource>(file, SynDeviceUnknown, std::nullopt);
    }
    return std::make_unique<SessionFileSource>(file);
}

std::string seconds(double ms)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.3f s", ms / 1000.0);
    return text;
}

}  // namespace

std::string SessionConverter::convert(const std::string& in, const std::string& out)
{
    const std::filesystem::path inFile = harn5::Text::toPath(in);
    const std::filesystem::path outFile = harn5::Text::toPath(out);
    std::unique_ptr<PacketSource> source;
    try {
        source = open(inFile);
    } catch (const SessionError& error) {
        fail(std::string("--convert: ") + error.what());
    }
    std::string error;
    std::unique_ptr<SessionCopy> copy = SessionCopy::open(outFile, source->header(), "converted from " + in, error);
    if (!copy) {
        fail("--convert \"" + out + "\": " + error + "; give a path you may write");
    }
    try {
        Packet packet;
        while (source->next(packet)) {
            copy->add(packet, source->frame());
        }
    } catch (const SessionError& fault) {
        copy.reset();
        std::error_code ignored;
        std::filesystem::remove(outFile, ignored);
        fail(std::string("--convert: ") + fault.what());
    }
    if (!copy->good()) {
        fail("--convert \"" + out + "\": the session could not be written whole; give a path with room to write");
    }

    const Session& header = copy->header();
    const bool touchpad = header.type == SynDeviceTouchPad;
    const bool frames = touchpad && header.version == 2;
    std::string said = "Wrote " + out + " (session version " + std::to_string(header.version) + ") from " + in + ": " +
                       (touchpad ? "touchpad" : "pointing stick");
    if (header.name) {
        said += " \"" + *header.name + "\"";
    }
    if (header.pnpId) {
        said += " " + *header.pnpId;
    }
    said += ", " + std::to_string(copy->lines()) + (frames ? " frames" : " packets") + " over " +
            seconds(copy->durationMs());
    if (frames) {
        said += ", " + std::to_string(source->malformedFrames()) + " malformed frames (not written)";
    } else if (touchpad) {
        said += " (a version 1 touchpad session has one finger a packet, no contacts: kept as it was)";
    }
    return said;
}

}  // namespace padkit
