#include "hidrd/ReportFields.h"

namespace hidrd {

namespace {

// The element of a variable field that carries the usage: the declared usages in order, the last
// one standing for every element after them.
std::optional<std::uint32_t> element(const Field& field, Usage wanted)
{
    if (!field.variable() || field.usages.empty()) {
        return std::nullopt;
    }
    std::uint64_t start = 0;
    for (const UsageRange& range : field.usages) {
        if (start >= field.count) {
            return std::nullopt;
        }
        if (range.min <= wanted && wanted <= range.max) {
            const std::uint64_t index = start + (wanted - range.min);
            return index < field.count ? std::optional<std::uint32_t>(static_cast<std::uint32_t>(index)) : std::nullopt;
        }
        start += static_cast<std::uint64_t>(range.max - range.min) + 1;
    }
    return std::nullopt;
}

}  // namespace

ReportFields::ReportFields(const ReportDescriptor& descriptor, std::size_t topLevel, std::uint8_t reportId)
{
    for (const Field* field : descriptor.inputFields(topLevel)) {
        if (field->reportId == reportId && !field->constant() && field->bitSize > 0 && field->count > 0) {
            m_fields.push_back(field);
        }
    }
}

std::optional<ReportFields::Found> ReportFields::find(Usage wanted, std::optional<std::size_t> collection) const
{
    for (const Field* field : m_fields) {
        if (collection && field->collection != *collection) {
            continue;
        }
        if (const std::optional<std::uint32_t> index = element(*field, wanted)) {
            return Found{ReportValue(*field, *index), field};
        }
    }
    return std::nullopt;
}

bool ReportFields::carries(const Field& field, Usage wanted)
{
    return element(field, wanted).has_value();
}

const Field* ReportFields::first(const ReportDescriptor& descriptor, std::size_t topLevel, Usage wanted)
{
    for (const Field* field : descriptor.inputFields(topLevel)) {
        if (!field->constant() && field->bitSize > 0 && carries(*field, wanted)) {
            return field;
        }
    }
    return nullptr;
}

}  // namespace hidrd
