#include "hidrd/ReportDescriptor.h"

#include <algorithm>
#include <utility>

namespace hidrd {

namespace {

std::optional<Usage> nth(const std::vector<UsageRange>& usages, std::uint64_t index)
{
    for (const UsageRange& range : usages) {
        const std::uint64_t size = static_cast<std::uint64_t>(range.max - range.min) + 1;
        if (index < size) {
            return static_cast<Usage>(range.min + index);
        }
        index -= size;
    }
    return std::nullopt;
}

}  // namespace

std::optional<Usage> Field::usageAt(std::uint32_t index) const
{
    if (usages.empty()) {
        return std::nullopt;
    }
    const std::optional<Usage> found = nth(usages, index);
    return found ? found : std::optional<Usage>(usages.back().max);
}

std::optional<Usage> Field::arrayUsage(std::int64_t value) const
{
    if (value < logicalMin || value > logicalMax) {
        return std::nullopt;
    }
    return nth(usages, static_cast<std::uint64_t>(value - logicalMin));
}

ReportDescriptor::ReportDescriptor(std::vector<Collection> collections, std::vector<Field> fields, bool usesReportIds)
    : m_collections(std::move(collections)), m_fields(std::move(fields)), m_usesReportIds(usesReportIds)
{
}

std::vector<std::size_t> ReportDescriptor::topLevel() const
{
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < m_collections.size(); ++i) {
        if (!m_collections[i].parent) {
            found.push_back(i);
        }
    }
    return found;
}

std::vector<std::size_t> ReportDescriptor::path(const Field& field) const
{
    std::vector<std::size_t> chain;
    for (std::optional<std::size_t> at = field.collection; at; at = m_collections[*at].parent) {
        chain.push_back(*at);
    }
    std::reverse(chain.begin(), chain.end());
    return chain;
}

bool ReportDescriptor::within(const Field& field, std::size_t collection) const
{
    for (std::optional<std::size_t> at = field.collection; at; at = m_collections[*at].parent) {
        if (*at == collection) {
            return true;
        }
    }
    return false;
}

std::vector<const Field*> ReportDescriptor::inputFields(std::size_t topLevelCollection) const
{
    std::vector<const Field*> found;
    for (const Field& field : m_fields) {
        if (field.kind == ReportKind::Input && within(field, topLevelCollection)) {
            found.push_back(&field);
        }
    }
    return found;
}

std::optional<std::size_t> ReportDescriptor::findTopLevel(Usage collectionUsage) const
{
    for (std::size_t i = 0; i < m_collections.size(); ++i) {
        if (!m_collections[i].parent && m_collections[i].usage == collectionUsage) {
            return i;
        }
    }
    return std::nullopt;
}

std::size_t ReportDescriptor::reportBytes(ReportKind kind, std::uint8_t reportId) const
{
    std::uint64_t bits = 0;
    bool declared = false;
    for (const Field& field : m_fields) {
        if (field.kind == kind && field.reportId == reportId) {
            declared = true;
            bits = std::max(bits, field.bitOffset + static_cast<std::uint64_t>(field.bitSize) * field.count);
        }
    }
    if (!declared) {
        return 0;
    }
    return static_cast<std::size_t>((bits + 7) / 8) + (m_usesReportIds ? 1 : 0);
}

}  // namespace hidrd
