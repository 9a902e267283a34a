#include "rawkit/HidTouchDecoder.h"

#include <windows.h>
extern "C" {
#include <hidsdi.h>
}

#include <utility>

#include "rawkit/HidUsages.h"

namespace rawkit {

namespace {

PHIDP_PREPARSED_DATA parsed(const std::vector<std::uint8_t>& preparsed)
{
    return reinterpret_cast<PHIDP_PREPARSED_DATA>(const_cast<std::uint8_t*>(preparsed.data()));
}

bool covers(const HIDP_VALUE_CAPS& caps, USAGE page, USAGE usage)
{
    if (caps.UsagePage != page) {
        return false;
    }
    return caps.IsRange ? caps.Range.UsageMin <= usage && usage <= caps.Range.UsageMax : caps.NotRange.Usage == usage;
}

// A logical minimum below zero makes the field signed.
std::int32_t signExtend(ULONG raw, const HIDP_VALUE_CAPS& caps)
{
    if (caps.LogicalMin >= 0 || caps.BitSize == 0 || caps.BitSize >= 32) {
        return static_cast<std::int32_t>(raw);
    }
    const ULONG sign = 1UL << (caps.BitSize - 1);
    return static_cast<std::int32_t>((raw ^ sign)) - static_cast<std::int32_t>(sign);
}

}  // namespace

HidTouchDecoder::HidTouchDecoder(std::vector<std::uint8_t> preparsed) : m_preparsed(std::move(preparsed)) {}

std::unique_ptr<HidTouchDecoder> HidTouchDecoder::create(std::vector<std::uint8_t> preparsed, std::string& error)
{
    std::unique_ptr<HidTouchDecoder> decoder(new HidTouchDecoder(std::move(preparsed)));
    HIDP_CAPS caps{};
    if (decoder->m_preparsed.empty() || HidP_GetCaps(parsed(decoder->m_preparsed), &caps) != HIDP_STATUS_SUCCESS) {
        error = "its HID description cannot be read";
        return nullptr;
    }
    std::vector<HIDP_VALUE_CAPS> values(caps.NumberInputValueCaps);
    USHORT count = caps.NumberInputValueCaps;
    if (count > 0 && HidP_GetValueCaps(HidP_Input, values.data(), &count, parsed(decoder->m_preparsed)) !=
                         HIDP_STATUS_SUCCESS) {
        error = "its HID description cannot be read";
        return nullptr;
    }
    values.resize(count);
    const auto find = [&values](USAGE page, USAGE usage, std::optional<USHORT> collection) -> const HIDP_VALUE_CAPS* {
        for (const HIDP_VALUE_CAPS& value : values) {
            if (covers(value, page, usage) && (!collection || value.LinkCollection == *collection)) {
                return &value;
            }
        }
        return nullptr;
    };
    const auto describe = [](const HIDP_VALUE_CAPS& value, USAGE usage) {
        return Value{value.UsagePage, usage, value.LinkCollection, value.BitSize, value.LogicalMin};
    };
    const auto range = [](const HIDP_VALUE_CAPS& value) { return ValueRange{value.LogicalMin, value.LogicalMax}; };

    // The first contact: the first collection with an X that also has a Y.
    for (const HIDP_VALUE_CAPS& x : values) {
        if (!covers(x, hid::kGenericDesktop, hid::kX)) {
            continue;
        }
        const HIDP_VALUE_CAPS* y = find(hid::kGenericDesktop, hid::kY, x.LinkCollection);
        if (y == nullptr) {
            continue;
        }
        decoder->m_x = describe(x, hid::kX);
        decoder->m_y = describe(*y, hid::kY);
        decoder->m_layout.x = range(x);
        decoder->m_layout.y = range(*y);
        if (const HIDP_VALUE_CAPS* width = find(hid::kDigitizer, hid::kWidth, x.LinkCollection)) {
            decoder->m_width = describe(*width, hid::kWidth);
            decoder->m_layout.width = range(*width);
        }
        if (const HIDP_VALUE_CAPS* contacts = find(hid::kDigitizer, hid::kContactCount, std::nullopt)) {
            decoder->m_contactCount = describe(*contacts, hid::kContactCount);
        }
        std::vector<HIDP_BUTTON_CAPS> buttons(caps.NumberInputButtonCaps);
        USHORT buttonCount = caps.NumberInputButtonCaps;
        if (buttonCount > 0 &&
            HidP_GetSpecificButtonCaps(HidP_Input, hid::kButtonPage, 0, 0, buttons.data(), &buttonCount,
                                       parsed(decoder->m_preparsed)) == HIDP_STATUS_SUCCESS &&
            buttonCount > 0) {
            decoder->m_buttonCollection = buttons[0].LinkCollection;
        }
        return decoder;
    }
    error = find(hid::kGenericDesktop, hid::kX, std::nullopt) == nullptr ? "its reports have no X usage"
                                                                          : "its reports have no Y usage";
    return nullptr;
}

std::optional<std::int32_t> HidTouchDecoder::read(const Value& value, const std::uint8_t* report,
                                                  std::size_t length) const
{
    ULONG raw = 0;
    const NTSTATUS status =
        HidP_GetUsageValue(HidP_Input, value.usagePage, value.linkCollection, value.usage, &raw,
                           parsed(m_preparsed), reinterpret_cast<PCHAR>(const_cast<std::uint8_t*>(report)),
                           static_cast<ULONG>(length));
    if (status != HIDP_STATUS_SUCCESS) {
        return std::nullopt;
    }
    HIDP_VALUE_CAPS caps{};
    caps.LogicalMin = value.logicalMin;
    caps.BitSize = value.bitSize;
    return signExtend(raw, caps);
}

std::vector<std::uint16_t> HidTouchDecoder::pressed(std::uint16_t usagePage, std::uint16_t linkCollection,
                                                    const std::uint8_t* report, std::size_t length) const
{
    ULONG count = HidP_MaxUsageListLength(HidP_Input, usagePage, parsed(m_preparsed));
    std::vector<USAGE> usages(count);
    if (count == 0 ||
        HidP_GetUsages(HidP_Input, usagePage, linkCollection, usages.data(), &count, parsed(m_preparsed),
                       reinterpret_cast<PCHAR>(const_cast<std::uint8_t*>(report)),
                       static_cast<ULONG>(length)) != HIDP_STATUS_SUCCESS) {
        return {};
    }
    return {usages.begin(), usages.begin() + count};
}

std::optional<TouchSample> HidTouchDecoder::decode(const std::uint8_t* report, std::size_t length) const
{
    const std::optional<std::int32_t> x = read(m_x, report, length);
    const std::optional<std::int32_t> y = read(m_y, report, length);
    if (!x || !y) {
        return std::nullopt;
    }
    TouchSample sample;
    sample.x = *x;
    sample.y = *y;
    if (m_width) {
        sample.width = read(*m_width, report, length);
    }
    for (const std::uint16_t usage : pressed(hid::kDigitizer, m_x.linkCollection, report, length)) {
        sample.tip = sample.tip || usage == hid::kTipSwitch;
    }
    const std::optional<std::int32_t> contacts = m_contactCount ? read(*m_contactCount, report, length) : std::nullopt;
    sample.contactCount = contacts && *contacts > 0 ? static_cast<unsigned>(*contacts) : (sample.tip ? 1U : 0U);
    if (m_buttonCollection) {
        for (const std::uint16_t usage : pressed(hid::kButtonPage, *m_buttonCollection, report, length)) {
            sample.button1 = sample.button1 || usage == 1;
            sample.button2 = sample.button2 || usage == 2;
            sample.button3 = sample.button3 || usage == 3;
        }
    }
    return sample;
}

}  // namespace rawkit
