// HID recordings (hid-recorder's text), read as a replay reads them: the reader gives devices and
// reports, or one RecordingError line "FILE:LINE: what is wrong; what is allowed". Reports come
// in time order, each of a device the recording declared; a device's descriptor parses or is
// refused, and its reports decode or are left alone.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

#include "Promise.h"
#include "hidrd/DescriptorError.h"
#include "hidrd/DescriptorParser.h"
#include "hidrd/RecordingError.h"
#include "hidrd/RecordingReader.h"
#include "hidrd/TouchReportDecoder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
    try {
        hidrd::RecordingReader reader(in, "fuzz");
        std::optional<hidrd::TouchReportDecoder> touch;
        try {
            for (const hidrd::RecordedDevice& device : reader.devices()) {
                if (device.descriptorLine != 0) {
                    touch.emplace(hidrd::DescriptorParser::parse(device.descriptor));
                    break;
                }
            }
        } catch (const hidrd::DescriptorError& error) {
            Promise::refusal(error, "");
        }
        hidrd::RecordedReport report;
        rawkit::TouchReport decoded;
        std::int64_t last = 0;
        while (reader.next(report)) {
            Promise::hold(report.timeUs >= last, "times never go back");
            last = report.timeUs;
            bool known = false;
            for (const hidrd::RecordedDevice& device : reader.devices()) {
                known = known || device.index == report.device;
            }
            Promise::hold(known, "a report's device is one of the recording");
            if (touch) {
                touch->decode(report.bytes.data(), report.bytes.size(), decoded);
            }
        }
    } catch (const hidrd::RecordingError& error) {
        Promise::refusal(error, "fuzz:");
        Promise::hold(std::string_view(error.what()).find("; ") != std::string_view::npos,
                      "a refusal says what is allowed");
    }
    return 0;
}
