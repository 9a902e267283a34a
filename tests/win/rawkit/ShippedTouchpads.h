#pragma once
// The shipped touchpads' descriptors (tests/data/hid-descriptors), their touchpad collection as
// the platform's parser makes it, and reports of given contacts encoded by that same parser, so
// that the streams of the tests are built from tables of contacts rather than copied bytes.
#include <cstdint>
#include <string>
#include <vector>

#include "rawkit/TouchFrame.h"

namespace hidtest {

struct Shipped {
    const char* file;
    std::uint8_t reportId;   // of the touchpad's input report
    unsigned slots;          // finger collections a report
};

extern const Shipped kShipped[5];

std::vector<std::uint8_t> shippedDescriptor(const std::string& file);

// The touchpad collection of a shipped descriptor, cut out and parsed; empty, with why, if not.
std::vector<std::uint8_t> shippedTouchpad(const std::string& file, std::string& why);

// Encodes a touchpad collection's input reports.
class ReportMaker {
public:
    explicit ReportMaker(std::vector<std::uint8_t> preparsed);

    // The reports of one scan: as many as the contacts need (one on a parallel pad with up to
    // its number of slots), the first with the contact count, the others with 0.
    std::vector<std::vector<std::uint8_t>> scan(const std::vector<rawkit::ContactReport>& contacts,
                                                std::uint8_t buttons);
    unsigned slots() const { return static_cast<unsigned>(m_fingers.size()); }
    std::uint8_t reportId() const { return m_reportId; }

private:
    std::vector<std::uint8_t> report(const std::vector<rawkit::ContactReport>& contacts, unsigned count,
                                     std::uint8_t buttons);

    std::vector<std::uint8_t> m_preparsed;
    std::vector<std::uint16_t> m_fingers;   // their link collections
    std::uint16_t m_length = 0;
    std::uint8_t m_reportId = 0;
    std::uint32_t m_scanTime = 0;
};

}  // namespace hidtest
