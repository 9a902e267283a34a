#pragma once
// Decodes a precision touchpad's input reports with the platform's HID parser, given the
// collection's preparsed data: the first contact (tip, X, Y, width where reported), the contact
// count and the buttons. The first contact is the first finger collection that has X and Y.
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "rawkit/Reports.h"

namespace rawkit {

class HidTouchDecoder {
public:
    // Null, with the reason in error, when the collection has no X or Y to decode.
    static std::unique_ptr<HidTouchDecoder> create(std::vector<std::uint8_t> preparsed, std::string& error);

    const TouchLayout& layout() const { return m_layout; }
    // The report's sample; none when the report is not one of the contact's (another report id).
    std::optional<TouchSample> decode(const std::uint8_t* report, std::size_t length) const;

private:
    struct Value {
        std::uint16_t usagePage = 0;
        std::uint16_t usage = 0;
        std::uint16_t linkCollection = 0;
        std::uint16_t bitSize = 0;
        std::int32_t logicalMin = 0;
    };

    explicit HidTouchDecoder(std::vector<std::uint8_t> preparsed);
    std::optional<std::int32_t> read(const Value& value, const std::uint8_t* report, std::size_t length) const;
    std::vector<std::uint16_t> pressed(std::uint16_t usagePage, std::uint16_t linkCollection,
                                       const std::uint8_t* report, std::size_t length) const;

    std::vector<std::uint8_t> m_preparsed;
    TouchLayout m_layout;
    Value m_x;
    Value m_y;
    std::optional<Value> m_width;
    std::optional<Value> m_contactCount;
    std::optional<std::uint16_t> m_buttonCollection;   // where the buttons are, when it has any
};

}  // namespace rawkit
