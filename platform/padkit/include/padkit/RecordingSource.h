#pragma once
// The packets of a HID recording (the Linux HID tools' hid-recorder text), read as they are
// replayed and decoded by our own descriptor parser: a touchpad's reports put together into
// frames under the same rules as a live touchpad, or a mouse's reports as a pointing stick's
// readings with a rest packet once the reports stop, as the live stick has.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>

#include "hidrd/MouseReportDecoder.h"
#include "hidrd/RecordingReader.h"
#include "hidrd/TouchReportDecoder.h"
#include "padkit/PacketSource.h"
#include "padkit/StickPacketBuilder.h"
#include "padkit/SynDeviceType.h"
#include "padkit/TouchFrameStream.h"

namespace padkit {

class RecordingSource : public PacketSource {
public:
    // The recording's first device the kind can replay (a touchpad collection for a touchpad, a
    // mouse for a trackpoint; for SynDeviceUnknown a touchpad, else a mouse), or the one numbered
    // `device` (its D: number). A SessionError naming the file and line when the file cannot be
    // read or has no such device.
    RecordingSource(const std::filesystem::path& file, SynDeviceType type, std::optional<unsigned> device);

    const Session& header() const override { return m_header; }
    bool next(Packet& packet) override;
    const rawkit::TouchFrame* frame() const override;
    unsigned long malformedFrames() const override;

    // The device replayed, as the recording gives it.
    const hidrd::RecordedDevice& device() const { return m_reader->devices()[m_device]; }
    unsigned contactsPerReport() const override { return m_touch ? m_touch->layout().slots : 0; }

private:
    SynDeviceType choose(SynDeviceType type, std::optional<unsigned> wanted);
    bool fits(std::size_t index, SynDeviceType type, bool named);
    void describe(SynDeviceType type);
    bool nextReport();
    bool nextTouch(Packet& packet);
    bool nextStick(Packet& packet);
    rawkit::MouseReport mouseReport(const hidrd::MouseSample& sample);

    std::ifstream m_in;
    std::string m_name;
    std::unique_ptr<hidrd::RecordingReader> m_reader;
    std::size_t m_device = 0;                     // in m_reader->devices()
    std::string m_refusal;                        // the first descriptor that did not parse
    Session m_header;
    std::optional<hidrd::TouchReportDecoder> m_touch;
    std::optional<TouchFrameStream> m_frames;
    std::optional<hidrd::MouseReportDecoder> m_mouse;
    StickPacketBuilder m_stick;
    hidrd::RecordedReport m_report;
    bool m_held = false;                          // m_report waits behind a rest packet
    rawkit::TouchReport m_decoded;
    std::uint8_t m_buttons = 0;                   // the mouse's buttons held
    std::optional<std::pair<std::int32_t, std::int32_t>> m_position;   // an absolute mouse's last
    bool m_atRest = true;
    std::int64_t m_lastReportUs = 0;
    unsigned long m_shortReports = 0;
};

}  // namespace padkit
