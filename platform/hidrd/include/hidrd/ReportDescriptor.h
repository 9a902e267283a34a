#pragma once
// A report descriptor as parsed: its collections, and the fields of its input, output and feature
// reports, each with where it sits in its report and what its values mean.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace hidrd {

// An extended usage: the usage page in the high 16 bits, the usage id in the low 16.
using Usage = std::uint32_t;
constexpr Usage usage(std::uint16_t page, std::uint16_t id)
{
    return (static_cast<Usage>(page) << 16) | id;
}

struct UsageRange {
    Usage min = 0;
    Usage max = 0;
    bool operator==(const UsageRange&) const = default;
};

enum class ReportKind : std::uint8_t { Input, Output, Feature };

struct Collection {
    Usage usage = 0;
    std::uint8_t type = 0;                 // 0 physical, 1 application, 2 logical, ...
    std::optional<std::size_t> parent;    // absent: a top-level collection
};

struct Field {
    ReportKind kind = ReportKind::Input;
    std::uint8_t reportId = 0;            // 0: the descriptor declares no report ids
    std::uint32_t bitOffset = 0;          // from the report's first bit after its id
    std::uint32_t bitSize = 0;
    std::uint32_t count = 0;
    std::uint32_t flags = 0;              // the main item's data bits
    std::vector<UsageRange> usages;       // as declared, in order
    std::int32_t logicalMin = 0;
    std::int32_t logicalMax = 0;
    std::int32_t physicalMin = 0;         // as declared; both 0: the logical range
    std::int32_t physicalMax = 0;
    std::uint32_t unit = 0;
    int unitExponent = 0;                 // a power of ten, signed
    std::size_t collection = 0;           // the innermost collection it is declared in

    bool constant() const { return (flags & 0x1) != 0; }
    bool variable() const { return (flags & 0x2) != 0; }
    bool relative() const { return (flags & 0x4) != 0; }

    // The usage of element `index` of a variable field: the index-th usage declared, the last
    // one standing for any after it. None when the field declares no usage.
    std::optional<Usage> usageAt(std::uint32_t index) const;
    // The usage an array field's value names: the (value - logical minimum)-th usage declared.
    std::optional<Usage> arrayUsage(std::int64_t value) const;
};

class ReportDescriptor {
public:
    ReportDescriptor(std::vector<Collection> collections, std::vector<Field> fields, bool usesReportIds);

    const std::vector<Collection>& collections() const { return m_collections; }
    const std::vector<Field>& fields() const { return m_fields; }
    bool usesReportIds() const { return m_usesReportIds; }

    // The top-level collections, in declaration order.
    std::vector<std::size_t> topLevel() const;
    // The collections from the field's top-level collection down to its own.
    std::vector<std::size_t> path(const Field& field) const;
    // Whether the field is declared in the collection or in one nested in it.
    bool within(const Field& field, std::size_t collection) const;
    // The input fields of one top-level collection, in report order of declaration.
    std::vector<const Field*> inputFields(std::size_t topLevelCollection) const;
    // The first top-level collection of this usage.
    std::optional<std::size_t> findTopLevel(Usage collectionUsage) const;
    // The length of a report in bytes, its id byte included; 0 for a report never declared.
    std::size_t reportBytes(ReportKind kind, std::uint8_t reportId) const;

private:
    std::vector<Collection> m_collections;
    std::vector<Field> m_fields;
    bool m_usesReportIds;
};

}  // namespace hidrd
