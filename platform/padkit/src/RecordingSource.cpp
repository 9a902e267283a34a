#include "padkit/RecordingSource.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "hidrd/DescriptorError.h"
#include "hidrd/DescriptorParser.h"
#include "hidrd/RecordingError.h"
#include "padkit/SessionError.h"
#include "padkit/SessionParser.h"

namespace padkit {

namespace {

constexpr std::int64_t kRestAfterUs = 60000;   // as the live stick: longer than a report interval

[[noreturn]] void invalid(const std::string& message)
{
    throw SessionError(SessionError::Reason::Invalid, message);
}

}  // namespace

RecordingSource::RecordingSource(const std::filesystem::path& file, SynDeviceType type, std::optional<unsigned> device)
{
    m_name = SessionParser::open(file, m_in);
    try {
        m_reader = std::make_unique<hidrd::RecordingReader>(m_in, m_name);
    } catch (const hidrd::RecordingError& error) {
        invalid(error.what());
    }
    describe(choose(type, device));
}

SynDeviceType RecordingSource::choose(SynDeviceType type, std::optional<unsigned> wanted)
{
    const std::vector<SynDeviceType> kinds =
        type == SynDeviceUnknown ? std::vector{SynDeviceTouchPad, SynDeviceTrackpoint} : std::vector{type};
    const std::vector<hidrd::RecordedDevice>& devices = m_reader->devices();
    if (wanted) {
        std::string numbers;
        for (std::size_t i = 0; i < devices.size(); ++i) {
            if (devices[i].index == *wanted) {
                for (const SynDeviceType kind : kinds) {
                    if (fits(i, kind, kind == kinds.back())) {
                        return kind;
                    }
                }
            }
            numbers += (numbers.empty() ? "" : ", ") + std::to_string(devices[i].index);
        }
        invalid(m_name + ": device=" + std::to_string(*wanted) + " names no device of the recording; its devices are " +
                numbers);
    }
    for (const SynDeviceType kind : kinds) {
        for (std::size_t i = 0; i < devices.size(); ++i) {
            if (fits(i, kind, false)) {
                return kind;
            }
        }
    }
    if (!m_refusal.empty()) {
        invalid(m_refusal);
    }
    std::size_t firstLine = 0;
    for (const hidrd::RecordedDevice& d : devices) {
        firstLine = firstLine != 0 ? firstLine : d.descriptorLine;
    }
    const std::string touchpad = "a touchpad collection (Digitizer page 0x0D, Touch Pad usage 0x05)";
    const std::string mouse = "a mouse collection with X and Y (Generic Desktop page 0x01, Mouse or Pointer)";
    invalid(m_name + ":" + std::to_string(firstLine) + ": no descriptor of the recording has " +
            (type == SynDeviceTouchPad   ? touchpad + "; a touchpad replays a touchpad's recording (a mouse's "
                                                      "replays as trackpoint:FILE)"
             : type == SynDeviceTrackpoint ? mouse + "; a trackpoint replays a mouse's or a pointing stick's recording"
                                           : touchpad + " or " + mouse + "; only those can be replayed"));
}

// Whether the device can be replayed as the kind; a device named that cannot is refused with its
// R: line.
bool RecordingSource::fits(std::size_t index, SynDeviceType type, bool named)
{
    const hidrd::RecordedDevice& d = m_reader->devices()[index];
    const std::string where = m_name + ":" + std::to_string(d.descriptorLine);
    if (d.descriptorLine == 0) {
        if (named) {
            invalid(m_name + ": device " + std::to_string(d.index) + " has no R: line (its report descriptor); "
                    "a device's R: line comes before its reports");
        }
        return false;
    }
    std::optional<hidrd::ReportDescriptor> descriptor;
    try {
        descriptor = hidrd::DescriptorParser::parse(d.descriptor);
    } catch (const hidrd::DescriptorError& error) {
        // Another device's may be the one wanted: this one is refused when none is.
        const std::string refusal = where + ": R: the report descriptor does not parse: " + error.what();
        if (named) {
            invalid(refusal);
        }
        m_refusal = m_refusal.empty() ? refusal : m_refusal;
        return false;
    }
    try {
        if (type == SynDeviceTouchPad) {
            m_touch.emplace(*descriptor);
        } else {
            m_mouse.emplace(*descriptor);
        }
    } catch (const hidrd::DescriptorError& error) {
        if (named) {
            invalid(where + ": device " + std::to_string(d.index) + ": " + error.what() + "; " +
                    (type == SynDeviceTouchPad ? "a touchpad replays a touchpad's recording"
                                               : "a trackpoint replays a mouse's recording"));
        }
        return false;
    }
    m_device = index;
    return true;
}

void RecordingSource::describe(SynDeviceType type)
{
    const hidrd::RecordedDevice& d = device();
    m_header.type = type;
    m_header.version = 2;
    if (!d.name.empty()) {
        m_header.name = d.name;
    }
    if (d.vendor && d.product) {
        char id[32];
        std::snprintf(id, sizeof id, "HID\\VID_%04X&PID_%04X", *d.vendor, *d.product);
        m_header.pnpId = id;
    }
    if (m_touch) {
        const rawkit::TouchLayout& layout = m_touch->layout();
        m_header.xLo = layout.x.low;
        m_header.xHi = layout.x.high;
        m_header.yLo = layout.y.low;
        m_header.yHi = layout.y.high;
        m_header.widthRange = layout.width;
        m_header.widthMm = layout.widthMm;
        m_header.heightMm = layout.heightMm;
        m_frames.emplace(layout);
    } else {
        m_header.xLo = m_header.yLo = -StickPacketBuilder::kRange;
        m_header.xHi = m_header.yHi = StickPacketBuilder::kRange;
    }
}

// The next report of the device replayed.
bool RecordingSource::nextReport()
{
    if (m_held) {
        m_held = false;
        return true;
    }
    try {
        while (m_reader->next(m_report)) {
            if (m_report.device == device().index) {
                return true;
            }
        }
    } catch (const hidrd::RecordingError& error) {
        invalid(error.what());
    }
    return false;
}

bool RecordingSource::next(Packet& packet)
{
    return m_touch ? nextTouch(packet) : nextStick(packet);
}

bool RecordingSource::nextTouch(Packet& packet)
{
    while (nextReport()) {
        switch (m_touch->decode(m_report.bytes.data(), m_report.bytes.size(), m_decoded)) {
        case hidrd::TouchReportDecoder::Outcome::OtherReport:
            break;
        case hidrd::TouchReportDecoder::Outcome::TooShort:
            ++m_shortReports;   // a scan with a cut report in it cannot be told whole
            break;
        case hidrd::TouchReportDecoder::Outcome::Decoded:
            if (const std::optional<Packet> made = m_frames->add(m_decoded, m_report.timeUs)) {
                packet = *made;
                return true;
            }
            break;
        }
    }
    return false;
}

rawkit::MouseReport RecordingSource::mouseReport(const hidrd::MouseSample& sample)
{
    namespace mouse = rawkit::mouse;
    rawkit::MouseReport report;
    if (sample.absolute) {
        // A position is no reading: the movement since the last one is.
        if (m_position) {
            report.dx = sample.x - m_position->first;
            report.dy = sample.y - m_position->second;
        }
        m_position.emplace(sample.x, sample.y);
    } else {
        report.dx = sample.x;
        report.dy = sample.y;
    }
    const std::uint16_t downs[] = {mouse::kLeftDown, mouse::kRightDown, mouse::kMiddleDown};
    const std::uint16_t ups[] = {mouse::kLeftUp, mouse::kRightUp, mouse::kMiddleUp};
    for (unsigned bit = 0; bit < 3; ++bit) {
        const bool was = (m_buttons & (1U << bit)) != 0;
        const bool is = (sample.buttons & (1U << bit)) != 0;
        report.buttonFlags = static_cast<std::uint16_t>(report.buttonFlags | (is && !was ? downs[bit] : 0) |
                                                        (was && !is ? ups[bit] : 0));
    }
    m_buttons = sample.buttons;
    return report;
}

bool RecordingSource::nextStick(Packet& packet)
{
    hidrd::MouseSample sample;
    for (;;) {
        const bool more = nextReport();
        if (!m_atRest && (!more || m_report.timeUs - m_lastReportUs >= kRestAfterUs)) {
            // The stick stopped reporting: back in the middle, as the live stick comes back.
            m_atRest = true;
            m_held = more;
            packet = m_stick.rest((m_lastReportUs + kRestAfterUs) / 1000);
            return true;
        }
        if (!more) {
            return false;
        }
        if (m_mouse->decode(m_report.bytes.data(), m_report.bytes.size(), sample) !=
            hidrd::MouseReportDecoder::Outcome::Decoded) {
            continue;
        }
        const rawkit::MouseReport report = mouseReport(sample);
        m_lastReportUs = m_report.timeUs;
        m_atRest = report.dx == 0 && report.dy == 0;
        packet = m_stick.build(report, m_report.timeUs / 1000);
        return true;
    }
}

const rawkit::TouchFrame* RecordingSource::frame() const
{
    return m_frames ? &m_frames->lastFrame() : nullptr;
}

unsigned long RecordingSource::malformedFrames() const
{
    return (m_frames ? m_frames->malformedFrames() : 0) + m_shortReports;
}

}  // namespace padkit
