#pragma once
// Precision-touchpad report descriptors written from the HID usage tables, their reports, and
// the preparsed data the platform's HID parser makes of them. Without a touchpad on the machine,
// the preparsed data comes from Wine's own descriptor parser (hidparse.sys) loaded into the
// test process; on Windows it comes from the device.
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace hidtest {

struct Layout {
    std::uint8_t reportId = 1;
    int fingers = 2;
    bool width = true;
    bool externalButtons = false;   // three buttons of its own, rather than one under the pad
    bool x = true;
    bool y = true;
};

// X 0..1000, Y 0..500, width 0..100 (16 bits each), contact count 0..5; an input report 2 of a
// vendor byte follows the contacts' report.
std::vector<std::uint8_t> descriptor(const Layout& layout);

struct Contact {
    bool tip = false;
    std::uint16_t x = 0;
    std::uint16_t y = 0;
    std::uint16_t width = 0;
};

// One input report of the layout: the contacts in order, the count and the buttons (bit 0 left).
std::vector<std::uint8_t> report(const Layout& layout, const std::vector<Contact>& contacts, std::uint8_t count,
                                 std::uint8_t buttons);

// The preparsed data of the descriptor's only collection; empty, with why, when it is refused.
std::vector<std::uint8_t> preparsed(const std::vector<std::uint8_t>& descriptor, std::string& why);

// The input report length (with the id) the parser gives each report id of the descriptor;
// empty, with why, when it is refused.
std::map<std::uint8_t, std::uint16_t> inputLengths(const std::vector<std::uint8_t>& descriptor, std::string& why);

}  // namespace hidtest
