#include "TouchpadFrames.h"

#include <memory>

#include "LiveFrameSource.h"
#include "SessionFrameSource.h"
#include "harn5/Text.h"
#include "padkit/SessionError.h"
#include "padkit/ReplayFile.h"
#include "rawkit/HidTouchDecoder.h"
#include "rawkit/RawInputDevices.h"

namespace {

std::optional<TouchpadFrames> live(const padkit::DeviceRegistry::Entry& entry, std::string& error)
{
    const std::optional<rawkit::DeviceInfo> attached = rawkit::RawInputDevices::find(entry.liveDevice);
    if (!attached) {
        error = entry.liveDevice + " is not attached any more";
        return std::nullopt;
    }
    std::shared_ptr<const rawkit::HidTouchDecoder> decoder =
        rawkit::HidTouchDecoder::create(rawkit::RawInputDevices::preparsedData(attached->handle), error);
    if (!decoder) {
        error = entry.liveDevice + ": " + error;
        return std::nullopt;
    }
    return TouchpadFrames{decoder->layout(), LiveFrameSource::of(attached->handle, decoder)};
}

std::optional<TouchpadFrames> recorded(const padkit::DeviceRegistry::Entry& entry, std::string& error)
{
    // A session file or a HID recording, read to its end: the analysis wants every frame.
    std::vector<rawkit::TouchFrame> frames;
    std::unique_ptr<padkit::PacketSource> source;
    try {
        source = padkit::ReplayFile::open(entry.session, SynDeviceTouchPad, entry.recordedDevice);
        padkit::Packet packet;
        while (source->next(packet)) {
            if (source->frame() == nullptr) {
                break;
            }
            frames.push_back(*source->frame());
        }
    } catch (const padkit::SessionError& failure) {
        error = failure.what();
        return std::nullopt;
    }
    const padkit::Session& session = source->header();
    if (session.version < 2) {
        error = harn5::Text::fromPath(entry.session) +
                ": a version 1 session keeps the finger shown, not every contact; record the touchpad again "
                "(version 2)";
        return std::nullopt;
    }
    rawkit::TouchLayout layout;
    layout.x = {session.xLo, session.xHi};
    layout.y = {session.yLo, session.yHi};
    layout.width = session.widthRange;
    layout.widthMm = session.widthMm;
    layout.heightMm = session.heightMm;
    // Recorded time per wall time: the replay clock gives the wall time a stretch of recording takes.
    const double speed = entry.clock.isUnpaced() ? 0.0 : 1000.0 / entry.clock.wallMs(1000);
    return TouchpadFrames{layout,
                          SessionFrameSource::of(std::move(frames), speed, entry.loop, source->malformedFrames())};
}

}  // namespace

std::optional<TouchpadFrames> TouchpadFrames::of(const padkit::DeviceRegistry::Entry& entry, std::string& error)
{
    return entry.liveDevice.empty() ? recorded(entry, error) : live(entry, error);
}
