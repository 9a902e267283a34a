#include "rawkit/HidTouchDecoder.h"

#include <windows.h>
extern "C" {
#include <hidsdi.h>
}

#include <algorithm>
#include <utility>

#include "rawkit/HidUnits.h"
#include "rawkit/HidUsages.h"

namespace rawkit {

namespace {

PHIDP_PREPARSED_DATA parsed(const std::vector<std::uint8_t>& preparsed)
{
    return reinterpret_cast<PHIDP_PREPARSED_DATA>(const_cast<std::uint8_t*>(preparsed.data()));
}

PCHAR bytes(const std::uint8_t* report)
{
    return reinterpret_cast<PCHAR>(const_cast<std::uint8_t*>(report));
}

bool covers(USAGE page, USAGE usage, USAGE capsPage, BOOLEAN isRange, USAGE low, USAGE high)
{
    return capsPage == page && (isRange ? low <= usage && usage <= high : low == usage);
}

// A logical minimum below zero makes the field signed.
std::int32_t signExtend(ULONG raw, std::int32_t logicalMin, std::uint16_t bitSize)
{
    if (logicalMin >= 0 || bitSize == 0 || bitSize >= 32) {
        return static_cast<std::int32_t>(raw);
    }
    const ULONG sign = 1UL << (bitSize - 1);
    return static_cast<std::int32_t>(raw ^ sign) - static_cast<std::int32_t>(sign);
}

}  // namespace

// The input value and button capabilities of the collection.
class HidTouchDecoder::Caps {
public:
    bool read(PHIDP_PREPARSED_DATA data)
    {
        HIDP_CAPS caps{};
        if (HidP_GetCaps(data, &caps) != HIDP_STATUS_SUCCESS) {
            return false;
        }
        values.resize(caps.NumberInputValueCaps);
        USHORT count = caps.NumberInputValueCaps;
        if (count > 0 && HidP_GetValueCaps(HidP_Input, values.data(), &count, data) != HIDP_STATUS_SUCCESS) {
            return false;
        }
        values.resize(count);
        buttons.resize(caps.NumberInputButtonCaps);
        count = caps.NumberInputButtonCaps;
        if (count > 0 && HidP_GetButtonCaps(HidP_Input, buttons.data(), &count, data) != HIDP_STATUS_SUCCESS) {
            return false;
        }
        buttons.resize(count);
        return true;
    }

    const HIDP_VALUE_CAPS* value(USAGE page, USAGE usage, std::optional<USHORT> collection) const
    {
        for (const HIDP_VALUE_CAPS& caps : values) {
            if (covers(page, usage, caps.UsagePage, caps.IsRange, caps.Range.UsageMin, caps.Range.UsageMax) &&
                (!collection || caps.LinkCollection == *collection)) {
                return &caps;
            }
        }
        return nullptr;
    }

    const HIDP_BUTTON_CAPS* button(USAGE page, std::optional<USAGE> usage, std::optional<USHORT> collection) const
    {
        for (const HIDP_BUTTON_CAPS& caps : buttons) {
            const bool usageFits = !usage || covers(page, *usage, caps.UsagePage, caps.IsRange, caps.Range.UsageMin,
                                                    caps.Range.UsageMax);
            if (caps.UsagePage == page && usageFits && (!collection || caps.LinkCollection == *collection)) {
                return &caps;
            }
        }
        return nullptr;
    }

    std::vector<HIDP_VALUE_CAPS> values;
    std::vector<HIDP_BUTTON_CAPS> buttons;
};

HidTouchDecoder::HidTouchDecoder(std::vector<std::uint8_t> preparsed) : m_preparsed(std::move(preparsed)) {}

std::unique_ptr<HidTouchDecoder> HidTouchDecoder::create(std::vector<std::uint8_t> preparsed, std::string& error)
{
    std::unique_ptr<HidTouchDecoder> decoder(new HidTouchDecoder(std::move(preparsed)));
    Caps caps;
    if (decoder->m_preparsed.empty() || !caps.read(parsed(decoder->m_preparsed))) {
        error = "its HID description cannot be read";
        return nullptr;
    }
    if (!decoder->describe(caps, error)) {
        return nullptr;
    }
    return decoder;
}

bool HidTouchDecoder::describe(const Caps& caps, std::string& error)
{
    const auto value = [](const HIDP_VALUE_CAPS& c, USAGE usage) {
        return Value{c.UsagePage, usage, c.LinkCollection, c.BitSize, c.LogicalMin};
    };
    const auto optional = [&](USAGE page, USAGE usage, std::optional<USHORT> collection) -> std::optional<Value> {
        const HIDP_VALUE_CAPS* c = caps.value(page, usage, collection);
        return c != nullptr ? std::optional<Value>(value(*c, usage)) : std::nullopt;
    };
    // Each collection with both an X and a Y is a finger; the platform numbers link collections
    // in declaration order, which is the order the slots of a report are filled in.
    std::vector<USHORT> fingers;
    for (const HIDP_VALUE_CAPS& c : caps.values) {
        if (covers(hid::kGenericDesktop, hid::kX, c.UsagePage, c.IsRange, c.Range.UsageMin, c.Range.UsageMax) &&
            caps.value(hid::kGenericDesktop, hid::kY, c.LinkCollection) != nullptr &&
            std::find(fingers.begin(), fingers.end(), c.LinkCollection) == fingers.end()) {
            fingers.push_back(c.LinkCollection);
        }
    }
    std::sort(fingers.begin(), fingers.end());
    if (fingers.empty()) {
        error = caps.value(hid::kGenericDesktop, hid::kX, std::nullopt) == nullptr ? "its reports have no X usage"
                                                                                   : "its reports have no Y usage";
        return false;
    }
    for (const USHORT collection : fingers) {
        Slot slot;
        slot.x = *optional(hid::kGenericDesktop, hid::kX, collection);
        slot.y = *optional(hid::kGenericDesktop, hid::kY, collection);
        slot.id = optional(hid::kDigitizer, hid::kContactId, collection);
        slot.width = optional(hid::kDigitizer, hid::kWidth, collection);
        slot.height = optional(hid::kDigitizer, hid::kHeight, collection);
        slot.pressure = optional(hid::kDigitizer, hid::kTipPressure, collection);
        slot.confidence = caps.button(hid::kDigitizer, hid::kConfidence, collection) != nullptr;
        m_slots.push_back(slot);
    }

    const HIDP_VALUE_CAPS& x = *caps.value(hid::kGenericDesktop, hid::kX, fingers.front());
    const HIDP_VALUE_CAPS& y = *caps.value(hid::kGenericDesktop, hid::kY, fingers.front());
    m_layout.x = {x.LogicalMin, x.LogicalMax};
    m_layout.y = {y.LogicalMin, y.LogicalMax};
    m_layout.widthMm = extentMm(x.PhysicalMin, x.PhysicalMax, x.Units, static_cast<std::int32_t>(x.UnitsExp));
    m_layout.heightMm = extentMm(y.PhysicalMin, y.PhysicalMax, y.Units, static_cast<std::int32_t>(y.UnitsExp));
    if (const HIDP_VALUE_CAPS* width = caps.value(hid::kDigitizer, hid::kWidth, fingers.front())) {
        m_layout.width = ValueRange{width->LogicalMin, width->LogicalMax};
    }
    m_layout.slots = static_cast<unsigned>(m_slots.size());
    if (const HIDP_VALUE_CAPS* id = caps.value(hid::kDigitizer, hid::kContactId, fingers.front())) {
        m_layout.maxContactId = static_cast<std::uint32_t>(std::max<LONG>(0, id->LogicalMax));
    }
    m_contactCount = optional(hid::kDigitizer, hid::kContactCount, std::nullopt);
    m_scanTime = optional(hid::kDigitizer, hid::kScanTime, std::nullopt);
    if (const HIDP_BUTTON_CAPS* buttons = caps.button(hid::kButtonPage, std::nullopt, std::nullopt)) {
        m_buttonCollection = buttons->LinkCollection;
    }
    return true;
}

std::optional<std::int32_t> HidTouchDecoder::read(const Value& value, const std::uint8_t* report,
                                                  std::size_t length) const
{
    ULONG raw = 0;
    if (HidP_GetUsageValue(HidP_Input, value.usagePage, value.linkCollection, value.usage, &raw, parsed(m_preparsed),
                           bytes(report), static_cast<ULONG>(length)) != HIDP_STATUS_SUCCESS) {
        return std::nullopt;
    }
    return signExtend(raw, value.logicalMin, value.bitSize);
}

std::optional<std::int32_t> HidTouchDecoder::read(const std::optional<Value>& value, const std::uint8_t* report,
                                                  std::size_t length) const
{
    return value ? read(*value, report, length) : std::nullopt;
}

std::vector<std::uint16_t> HidTouchDecoder::pressed(std::uint16_t usagePage, std::uint16_t linkCollection,
                                                    const std::uint8_t* report, std::size_t length) const
{
    ULONG count = HidP_MaxUsageListLength(HidP_Input, usagePage, parsed(m_preparsed));
    std::vector<USAGE> usages(count);
    if (count == 0 || HidP_GetUsages(HidP_Input, usagePage, linkCollection, usages.data(), &count, parsed(m_preparsed),
                                     bytes(report), static_cast<ULONG>(length)) != HIDP_STATUS_SUCCESS) {
        return {};
    }
    return {usages.begin(), usages.begin() + count};
}

ContactReport HidTouchDecoder::contact(const Slot& slot, std::size_t index, const std::uint8_t* report,
                                       std::size_t length) const
{
    ContactReport contact;
    contact.x = read(slot.x, report, length).value_or(0);
    contact.y = read(slot.y, report, length).value_or(0);
    // Without an id usage a slot is its own contact.
    contact.id = static_cast<std::uint32_t>(read(slot.id, report, length).value_or(static_cast<std::int32_t>(index)));
    contact.width = read(slot.width, report, length);
    contact.height = read(slot.height, report, length);
    contact.pressure = read(slot.pressure, report, length);
    const std::vector<std::uint16_t> digitizer = pressed(hid::kDigitizer, slot.x.linkCollection, report, length);
    const auto has = [&digitizer](std::uint16_t usage) {
        return std::find(digitizer.begin(), digitizer.end(), usage) != digitizer.end();
    };
    contact.tip = has(hid::kTipSwitch);
    contact.confidence = !slot.confidence || has(hid::kConfidence);
    return contact;
}

std::optional<TouchReport> HidTouchDecoder::decode(const std::uint8_t* report, std::size_t length) const
{
    // Another report id of the collection (a mouse's, a vendor's) has no finger's X.
    if (!read(m_slots.front().x, report, length)) {
        return std::nullopt;
    }
    TouchReport decoded;
    decoded.slots.reserve(m_slots.size());
    for (std::size_t i = 0; i < m_slots.size(); ++i) {
        decoded.slots.push_back(contact(m_slots[i], i, report, length));
    }
    if (const std::optional<std::int32_t> count = read(m_contactCount, report, length)) {
        decoded.contactCount = static_cast<unsigned>(std::max(0, *count));
    }
    if (const std::optional<std::int32_t> scan = read(m_scanTime, report, length)) {
        decoded.scanTime = static_cast<std::uint32_t>(*scan);
    }
    if (m_buttonCollection) {
        for (const std::uint16_t usage : pressed(hid::kButtonPage, *m_buttonCollection, report, length)) {
            if (usage >= 1 && usage <= 8) {
                decoded.buttons |= static_cast<std::uint8_t>(1U << (usage - 1));
            }
        }
    }
    return decoded;
}

}  // namespace rawkit
