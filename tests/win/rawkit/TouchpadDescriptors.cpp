#include "TouchpadDescriptors.h"

#include "hidparse/PlatformParser.h"

namespace hidtest {

namespace {

void add(std::vector<std::uint8_t>& out, std::initializer_list<std::uint8_t> bytes)
{
    out.insert(out.end(), bytes);
}

void add16(std::vector<std::uint8_t>& out, std::uint16_t value)
{
    out.push_back(static_cast<std::uint8_t>(value & 0xFF));
    out.push_back(static_cast<std::uint8_t>(value >> 8));
}

}  // namespace

std::vector<std::uint8_t> descriptor(const Layout& layout)
{
    std::vector<std::uint8_t> d;
    add(d, {0x05, 0x0D, 0x09, 0x05, 0xA1, 0x01, 0x85, layout.reportId});   // Digitizer, Touch Pad, report id
    for (int finger = 0; finger < layout.fingers; ++finger) {
        add(d, {0x05, 0x0D, 0x09, 0x22, 0xA1, 0x02});                       // Finger, logical collection
        add(d, {0x15, 0x00, 0x25, 0x01, 0x75, 0x01, 0x95, 0x01});           // 0..1, one bit
        add(d, {0x09, 0x42, 0x81, 0x02});                                   // Tip Switch
        add(d, {0x95, 0x07, 0x81, 0x03});                                   // padding
        add(d, {0x25, 0x0F, 0x75, 0x08, 0x95, 0x01, 0x09, 0x51, 0x81, 0x02}); // Contact Identifier, a byte
        add(d, {0x05, 0x01, 0x75, 0x10, 0x26, 0xE8, 0x03});                 // Generic Desktop, 16 bits, 0..1000
        if (layout.x) {
            add(d, {0x09, 0x30, 0x81, 0x02});                               // X
        }
        add(d, {0x26, 0xF4, 0x01});                                         // 0..500
        if (layout.y) {
            add(d, {0x09, 0x31, 0x81, 0x02});                               // Y
        }
        if (layout.width) {
            add(d, {0x05, 0x0D, 0x26, 0x64, 0x00, 0x09, 0x48, 0x81, 0x02}); // Width 0..100
        }
        add(d, {0xC0});
    }
    add(d, {0x05, 0x0D, 0x25, 0x05, 0x75, 0x08, 0x95, 0x01, 0x09, 0x54, 0x81, 0x02});   // Contact Count
    const std::uint8_t buttons = layout.externalButtons ? 3 : 1;
    add(d, {0x05, 0x09, 0x19, 0x01, 0x29, buttons, 0x15, 0x00, 0x25, 0x01, 0x75, 0x01, 0x95, buttons, 0x81, 0x02});
    add(d, {0x95, static_cast<std::uint8_t>(8 - buttons), 0x81, 0x03});     // padding to a byte
    add(d, {0x85, static_cast<std::uint8_t>(layout.reportId + 1), 0x06, 0x00, 0xFF, 0x09, 0x01, 0x15, 0x00, 0x26,
            0xFF, 0x00, 0x75, 0x08, 0x95, 0x01, 0x81, 0x02});               // another report: a vendor byte
    add(d, {0xC0});
    return d;
}

std::vector<std::uint8_t> report(const Layout& layout, const std::vector<Contact>& contacts, std::uint8_t count,
                                 std::uint8_t buttons)
{
    std::vector<std::uint8_t> r{layout.reportId};
    for (int finger = 0; finger < layout.fingers; ++finger) {
        const Contact contact = finger < static_cast<int>(contacts.size()) ? contacts[finger] : Contact{};
        r.push_back(contact.tip ? 1 : 0);
        r.push_back(static_cast<std::uint8_t>(finger));
        if (layout.x) {
            add16(r, contact.x);
        }
        if (layout.y) {
            add16(r, contact.y);
        }
        if (layout.width) {
            add16(r, contact.width);
        }
    }
    r.push_back(count);
    r.push_back(buttons);
    return r;
}

std::vector<std::uint8_t> preparsed(const std::vector<std::uint8_t>& descriptor, std::string& why)
{
    const auto description = hidparse::PlatformParser::describe(descriptor, why);
    return description ? description->preparsed : std::vector<std::uint8_t>{};
}

std::map<std::uint8_t, std::uint16_t> inputLengths(const std::vector<std::uint8_t>& descriptor, std::string& why)
{
    std::map<std::uint8_t, std::uint16_t> lengths;
    if (const auto description = hidparse::PlatformParser::describe(descriptor, why)) {
        for (const auto& [id, report] : description->reports) {
            lengths[id] = report.input;
        }
    }
    return lengths;
}

}  // namespace hidtest
