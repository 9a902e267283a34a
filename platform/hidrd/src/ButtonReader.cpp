#include "hidrd/ButtonReader.h"

#include <algorithm>

#include "hidrd/Usages.h"

namespace hidrd {

namespace {

constexpr std::size_t kMaxArrayValues = 256;

std::uint8_t maskOf(std::optional<Usage> found)
{
    if (!found || (*found >> 16) != usages::kButtonPage) {
        return 0;
    }
    const std::uint32_t button = *found & 0xFFFF;
    return button >= 1 && button <= 8 ? static_cast<std::uint8_t>(1U << (button - 1)) : 0;
}

}  // namespace

ButtonReader::ButtonReader(const std::vector<const Field*>& fields)
{
    for (const Field* field : fields) {
        if (field->variable()) {
            // Buttons sit within the first elements of a field; past its usages all repeat the last.
            const std::uint32_t elements = std::min<std::uint32_t>(field->count, kMaxArrayValues);
            for (std::uint32_t i = 0; i < elements; ++i) {
                if (const std::uint8_t mask = maskOf(field->usageAt(i))) {
                    m_bits.push_back({ReportValue(*field, i), mask});
                }
            }
            continue;
        }
        Array array;
        array.logicalMin = field->logicalMin;
        const std::int64_t span = static_cast<std::int64_t>(field->logicalMax) - field->logicalMin + 1;
        std::uint8_t any = 0;
        for (std::int64_t v = 0; v < std::min<std::int64_t>(span, kMaxArrayValues); ++v) {
            array.masks.push_back(maskOf(field->arrayUsage(field->logicalMin + v)));
            any |= array.masks.back();
        }
        if (any == 0) {
            continue;
        }
        for (std::uint32_t i = 0; i < std::min<std::uint32_t>(field->count, kMaxArrayValues); ++i) {
            array.value = ReportValue(*field, i);
            m_arrays.push_back(array);
        }
    }
}

std::uint8_t ButtonReader::read(const std::uint8_t* payload) const
{
    std::uint8_t buttons = 0;
    for (const Bit& bit : m_bits) {
        if (bit.value.read(payload) != 0) {
            buttons |= bit.mask;
        }
    }
    for (const Array& array : m_arrays) {
        const std::int64_t index = static_cast<std::int64_t>(array.value.read(payload)) - array.logicalMin;
        if (index >= 0 && index < static_cast<std::int64_t>(array.masks.size())) {
            buttons |= array.masks[static_cast<std::size_t>(index)];
        }
    }
    return buttons;
}

}  // namespace hidrd
