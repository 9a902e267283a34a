#pragma once
// Parses a HID report descriptor (Device Class Definition for HID 1.11, section 6.2.2): short main,
// global and local items with their state, Push and Pop, usage ranges and extended usages, report
// ids, collections and their nesting. Delimiters, designators and strings are read and ignored;
// long items are refused by name.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "hidrd/ReportDescriptor.h"

namespace hidrd {

class DescriptorParser {
public:
    // The descriptor's collections and fields; a DescriptorError naming the byte for a descriptor
    // that does not parse.
    static ReportDescriptor parse(std::span<const std::uint8_t> descriptor);

private:
    // The global items in force (what Push saves and Pop restores).
    struct Globals {
        std::uint16_t usagePage = 0;
        std::int32_t logicalMin = 0;
        std::uint32_t logicalMaxData = 0;   // signed or not as the minimum is: decided at use
        std::size_t logicalMaxSize = 0;
        std::int32_t physicalMin = 0;
        std::uint32_t physicalMaxData = 0;
        std::size_t physicalMaxSize = 0;
        std::uint32_t unit = 0;
        int unitExponent = 0;
        std::uint32_t reportSize = 0;
        std::uint32_t reportCount = 0;
        std::uint8_t reportId = 0;
    };
    // One usage as a local item gave it; a short one takes the usage page in force at its main item.
    struct LocalUsage {
        std::uint32_t min = 0;
        std::uint32_t max = 0;
        bool extended = false;
    };
    struct Item {
        std::size_t offset = 0;
        std::uint8_t prefix = 0;
        std::size_t size = 0;
        std::uint32_t data = 0;
        std::int32_t signedData() const;
    };

    explicit DescriptorParser(std::span<const std::uint8_t> descriptor) : m_descriptor(descriptor) {}

    ReportDescriptor run();
    Item next(std::size_t& at) const;
    void main(const Item& item);
    void global(const Item& item);
    void local(const Item& item);
    void addField(const Item& item, ReportKind kind);
    std::vector<UsageRange> takeUsages(const Item& item);
    void clearLocals();

    std::span<const std::uint8_t> m_descriptor;
    Globals m_globals;
    std::vector<Globals> m_pushed;
    std::vector<LocalUsage> m_usages;
    std::optional<std::pair<std::uint32_t, bool>> m_usageMin;   // value, extended
    std::optional<std::pair<std::uint32_t, bool>> m_usageMax;
    std::vector<Collection> m_collections;
    std::vector<std::size_t> m_open;
    std::vector<Field> m_fields;
    std::vector<std::uint32_t> m_bits[3];   // per report kind, per report id: the bits declared so far
    bool m_usesReportIds = false;
};

}  // namespace hidrd
