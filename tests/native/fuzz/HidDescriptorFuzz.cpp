// Report descriptors and the reports decoded by them. Input: two bytes of descriptor length
// (little-endian), the descriptor, then reports, each a length byte and its bytes. Parsing gives a
// descriptor or one DescriptorError line; a decoder is made or refused with one; every report
// decodes or is left alone, and a decoded one has a slot for each finger the layout counts. Every
// field lies within the report whose length the descriptor gives.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "Promise.h"
#include "hidrd/DescriptorError.h"
#include "hidrd/DescriptorParser.h"
#include "hidrd/MouseReportDecoder.h"
#include "hidrd/TouchReportDecoder.h"

namespace {

void oneLine(const hidrd::DescriptorError& error)
{
    Promise::refusal(error, "");
    Promise::hold(!std::string_view(error.what()).empty(), "a refusal says what is wrong");
}

template <typename Decoder>
std::optional<Decoder> make(const hidrd::ReportDescriptor& descriptor)
{
    try {
        return Decoder(descriptor);
    } catch (const hidrd::DescriptorError& error) {
        oneLine(error);
        return std::nullopt;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2) {
        return 0;
    }
    const std::size_t length = std::min<std::size_t>(data[0] | (data[1] << 8), size - 2);
    std::optional<hidrd::ReportDescriptor> descriptor;
    try {
        descriptor = hidrd::DescriptorParser::parse(std::span<const std::uint8_t>(data + 2, length));
    } catch (const hidrd::DescriptorError& error) {
        oneLine(error);
        return 0;
    }
    for (const hidrd::Field& field : descriptor->fields()) {
        const std::uint64_t end = field.bitOffset + static_cast<std::uint64_t>(field.bitSize) * field.count;
        Promise::hold(end <= (descriptor->reportBytes(field.kind, field.reportId) - descriptor->usesReportIds()) * 8,
                      "a field lies within its report");
    }
    const std::optional<hidrd::TouchReportDecoder> touch = make<hidrd::TouchReportDecoder>(*descriptor);
    const std::optional<hidrd::MouseReportDecoder> mouse = make<hidrd::MouseReportDecoder>(*descriptor);
    rawkit::TouchReport report;
    hidrd::MouseSample sample;
    for (std::size_t at = 2 + length; at < size;) {
        const std::size_t bytes = std::min<std::size_t>(data[at], size - at - 1);
        // In a buffer of exactly its size, so that a read past its end is caught.
        const std::vector<std::uint8_t> copy(data + at + 1, data + at + 1 + bytes);
        at += 1 + bytes;
        if (touch && touch->decode(copy.data(), copy.size(), report) == hidrd::TouchReportDecoder::Outcome::Decoded) {
            Promise::hold(report.slots.size() == touch->layout().slots, "a slot for each finger collection");
        }
        if (mouse) {
            mouse->decode(copy.data(), copy.size(), sample);
        }
    }
    return 0;
}
