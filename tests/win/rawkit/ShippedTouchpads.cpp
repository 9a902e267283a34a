#include "ShippedTouchpads.h"

#include <windows.h>
extern "C" {
#include <hidsdi.h>
}

#include <algorithm>
#include <fstream>

#include "TouchpadDescriptors.h"
#include "hidcut/CollectionCutter.h"

namespace hidtest {

namespace {

constexpr USAGE kDigitizer = 0x0D;
constexpr USAGE kGenericDesktop = 0x01;
constexpr USAGE kButtons = 0x09;

PHIDP_PREPARSED_DATA parsed(std::vector<std::uint8_t>& data)
{
    return reinterpret_cast<PHIDP_PREPARSED_DATA>(data.data());
}

}  // namespace

const Shipped kShipped[5] = {
    {"dell-xps9360-touchpad.rdesc", 3, 5}, {"synaptics_06cb_ce08.rdesc", 3, 5}, {"elan_04f3_300b.rdesc", 4, 1},
    {"sipodev_0603_0002.rdesc", 4, 1},     {"microsoft-surfacebook2-touchpad.rdesc", 4, 5},
};

std::vector<std::uint8_t> shippedDescriptor(const std::string& file)
{
    std::ifstream in(std::string(KSTR_SOURCE_DIR) + "/tests/data/hid-descriptors/" + file);
    std::vector<std::uint8_t> bytes;
    std::string hex;
    while (in >> hex) {
        bytes.push_back(static_cast<std::uint8_t>(std::stoul(hex, nullptr, 16)));
    }
    return bytes;
}

std::vector<std::uint8_t> shippedTouchpad(const std::string& file, std::string& why)
{
    const auto cutter = hidcut::CollectionCutter::parse(shippedDescriptor(file), why);
    if (!cutter || !cutter->touchpad()) {
        why = "no touchpad collection: " + why;
        return {};
    }
    return preparsed(cutter->cut(*cutter->touchpad()), why);
}

ReportMaker::ReportMaker(std::vector<std::uint8_t> preparsed) : m_preparsed(std::move(preparsed))
{
    HIDP_CAPS caps{};
    HidP_GetCaps(parsed(m_preparsed), &caps);
    m_length = caps.InputReportByteLength;
    std::vector<HIDP_VALUE_CAPS> values(caps.NumberInputValueCaps);
    USHORT count = caps.NumberInputValueCaps;
    HidP_GetValueCaps(HidP_Input, values.data(), &count, parsed(m_preparsed));
    for (const HIDP_VALUE_CAPS& value : values) {
        if (value.UsagePage == kGenericDesktop && !value.IsRange && value.NotRange.Usage == 0x30) {
            m_fingers.push_back(value.LinkCollection);
            m_reportId = value.ReportID;
        }
    }
    std::sort(m_fingers.begin(), m_fingers.end());
}

std::vector<std::uint8_t> ReportMaker::report(const std::vector<rawkit::ContactReport>& contacts, unsigned count,
                                              std::uint8_t buttons)
{
    std::vector<std::uint8_t> r(m_length);
    const PCHAR bytes = reinterpret_cast<PCHAR>(r.data());
    HidP_InitializeReportForID(HidP_Input, m_reportId, parsed(m_preparsed), bytes, m_length);
    const auto value = [&](USAGE page, USHORT collection, USAGE usage, ULONG v) {
        HidP_SetUsageValue(HidP_Input, page, collection, usage, v, parsed(m_preparsed), bytes, m_length);
    };
    for (std::size_t i = 0; i < contacts.size() && i < m_fingers.size(); ++i) {
        const rawkit::ContactReport& c = contacts[i];
        value(kDigitizer, m_fingers[i], 0x51, c.id);
        value(kGenericDesktop, m_fingers[i], 0x30, static_cast<ULONG>(c.x));
        value(kGenericDesktop, m_fingers[i], 0x31, static_cast<ULONG>(c.y));
        std::vector<USAGE> on;
        if (c.tip) {
            on.push_back(0x42);
        }
        if (c.confidence) {
            on.push_back(0x47);
        }
        ULONG n = static_cast<ULONG>(on.size());
        if (n > 0) {
            HidP_SetUsages(HidP_Input, kDigitizer, m_fingers[i], on.data(), &n, parsed(m_preparsed), bytes, m_length);
        }
    }
    value(kDigitizer, 0, 0x54, count);
    value(kDigitizer, 0, 0x56, m_scanTime);
    for (USAGE button = 1; button <= 3; ++button) {
        if ((buttons & (1U << (button - 1))) != 0) {
            USAGE usage = button;
            ULONG n = 1;
            HidP_SetUsages(HidP_Input, kButtons, 0, &usage, &n, parsed(m_preparsed), bytes, m_length);
        }
    }
    return r;
}

std::vector<std::vector<std::uint8_t>> ReportMaker::scan(const std::vector<rawkit::ContactReport>& contacts,
                                                         std::uint8_t buttons)
{
    m_scanTime += 80;   // 8 ms in the device's 100 us units
    std::vector<std::vector<std::uint8_t>> reports;
    std::size_t next = 0;
    do {
        const std::size_t take = std::min(contacts.size() - next, m_fingers.size());
        const std::vector<rawkit::ContactReport> part(contacts.begin() + static_cast<std::ptrdiff_t>(next),
                                                      contacts.begin() + static_cast<std::ptrdiff_t>(next + take));
        reports.push_back(report(part, next == 0 ? static_cast<unsigned>(contacts.size()) : 0U, buttons));
        next += take;
    } while (next < contacts.size());
    return reports;
}

}  // namespace hidtest
