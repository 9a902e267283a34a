#include "hidrd/DescriptorParser.h"

#include <string>

#include "hidrd/DescriptorError.h"
#include "rawkit/HidUnits.h"

namespace hidrd {

namespace {

constexpr std::uint8_t kLongItem = 0xFE;
constexpr std::size_t kMaxPushed = 16;
// The longest report we take: more than any device sends, and a bound on what the bits of a
// report can add up to.
constexpr std::uint64_t kMaxReportBytes = 65536;

enum Type : std::uint8_t { kMain = 0, kGlobal = 1, kLocal = 2 };

enum MainTag : std::uint8_t { kInput = 0x8, kOutput = 0x9, kCollection = 0xA, kFeature = 0xB, kEndCollection = 0xC };

enum GlobalTag : std::uint8_t {
    kUsagePage = 0x0,
    kLogicalMin = 0x1,
    kLogicalMax = 0x2,
    kPhysicalMin = 0x3,
    kPhysicalMax = 0x4,
    kUnitExponent = 0x5,
    kUnit = 0x6,
    kReportSize = 0x7,
    kReportId = 0x8,
    kReportCount = 0x9,
    kPush = 0xA,
    kPop = 0xB,
};

enum LocalTag : std::uint8_t { kUsage = 0x0, kUsageMin = 0x1, kUsageMax = 0x2 };

const char* kindName(ReportKind kind)
{
    switch (kind) {
    case ReportKind::Input:
        return "Input";
    case ReportKind::Output:
        return "Output";
    case ReportKind::Feature:
        return "Feature";
    }
    return "?";
}

std::string hex(std::uint32_t value)
{
    static const char digits[] = "0123456789ABCDEF";
    std::string text;
    do {
        text.insert(text.begin(), digits[value & 0xF]);
        value >>= 4;
    } while (value != 0);
    if (text.size() % 2 != 0) {
        text.insert(text.begin(), '0');
    }
    return "0x" + text;
}

// A maximum is read signed only when its minimum is negative: a device that declares 0 to 255 in
// one byte (0x25 0xFF) means 255, not -1.
std::int32_t maximum(std::int32_t minimum, std::uint32_t data, std::size_t size)
{
    if (minimum >= 0 || size == 0 || size >= 4) {
        return static_cast<std::int32_t>(data);
    }
    const std::uint32_t sign = 1U << (size * 8 - 1);
    return static_cast<std::int32_t>(data ^ sign) - static_cast<std::int32_t>(sign);
}

}  // namespace

std::int32_t DescriptorParser::Item::signedData() const
{
    return maximum(-1, data, size);
}

ReportDescriptor DescriptorParser::parse(std::span<const std::uint8_t> descriptor)
{
    return DescriptorParser(descriptor).run();
}

ReportDescriptor DescriptorParser::run()
{
    for (std::vector<std::uint32_t>& bits : m_bits) {
        bits.assign(256, 0);
    }
    for (std::size_t at = 0; at < m_descriptor.size();) {
        const Item item = next(at);
        switch ((item.prefix >> 2) & 0x3) {
        case kMain:
            main(item);
            break;
        case kGlobal:
            global(item);
            break;
        case kLocal:
            local(item);
            break;
        default:
            break;   // reserved short items carry nothing we use
        }
    }
    if (!m_open.empty()) {
        throw DescriptorError("the descriptor ends with " + std::to_string(m_open.size()) +
                              " collection(s) open; each Collection needs its End Collection");
    }
    return ReportDescriptor(std::move(m_collections), std::move(m_fields), m_usesReportIds);
}

DescriptorParser::Item DescriptorParser::next(std::size_t& at) const
{
    Item item;
    item.offset = at;
    item.prefix = m_descriptor[at];
    if (item.prefix == kLongItem) {
        throw DescriptorError(at, "a long item (0xFE); long items are not supported, only short ones");
    }
    item.size = (item.prefix & 0x3) == 3 ? 4 : (item.prefix & 0x3);
    if (m_descriptor.size() - at - 1 < item.size) {
        throw DescriptorError(at, "the descriptor is cut inside an item (" + hex(item.prefix) + " needs " +
                                      std::to_string(item.size) + " byte(s) of data, " +
                                      std::to_string(m_descriptor.size() - at - 1) + " left)");
    }
    for (std::size_t i = 0; i < item.size; ++i) {
        item.data |= static_cast<std::uint32_t>(m_descriptor[at + 1 + i]) << (8 * i);
    }
    at += 1 + item.size;
    return item;
}

void DescriptorParser::main(const Item& item)
{
    switch (item.prefix >> 4) {
    case kInput:
        addField(item, ReportKind::Input);
        break;
    case kOutput:
        addField(item, ReportKind::Output);
        break;
    case kFeature:
        addField(item, ReportKind::Feature);
        break;
    case kCollection: {
        Collection collection;
        const std::vector<UsageRange> usages = takeUsages(item);
        collection.usage = usages.empty() ? 0 : usages.front().min;
        collection.type = static_cast<std::uint8_t>(item.data);
        if (!m_open.empty()) {
            collection.parent = m_open.back();
        }
        m_open.push_back(m_collections.size());
        m_collections.push_back(collection);
        break;
    }
    case kEndCollection:
        if (m_open.empty()) {
            throw DescriptorError(item.offset, "an End Collection with no collection open");
        }
        m_open.pop_back();
        break;
    default:
        break;   // reserved main items declare nothing
    }
    clearLocals();
}

void DescriptorParser::addField(const Item& item, ReportKind kind)
{
    if (m_open.empty()) {
        throw DescriptorError(item.offset, std::string("an ") + kindName(kind) +
                                               " item outside any collection; fields belong to a collection");
    }
    std::uint32_t& bits = m_bits[static_cast<int>(kind)][m_globals.reportId];
    const std::uint64_t total = bits + static_cast<std::uint64_t>(m_globals.reportSize) * m_globals.reportCount;
    if (total > kMaxReportBytes * 8) {
        throw DescriptorError(item.offset, std::string(kindName(kind)) + " report " +
                                               std::to_string(m_globals.reportId) + " would be longer than " +
                                               std::to_string(kMaxReportBytes) + " bytes");
    }
    Field field;
    field.kind = kind;
    field.reportId = m_globals.reportId;
    field.bitOffset = bits;
    field.bitSize = m_globals.reportSize;
    field.count = m_globals.reportCount;
    field.flags = item.data;
    field.usages = takeUsages(item);
    field.logicalMin = m_globals.logicalMin;
    field.logicalMax = maximum(m_globals.logicalMin, m_globals.logicalMaxData, m_globals.logicalMaxSize);
    field.physicalMin = m_globals.physicalMin;
    field.physicalMax = maximum(m_globals.physicalMin, m_globals.physicalMaxData, m_globals.physicalMaxSize);
    field.unit = m_globals.unit;
    field.unitExponent = m_globals.unitExponent;
    field.collection = m_open.back();
    bits = static_cast<std::uint32_t>(total);
    m_fields.push_back(std::move(field));
}

std::vector<UsageRange> DescriptorParser::takeUsages(const Item& item)
{
    // A minimum or maximum left without its other end stands for itself.
    if (m_usageMin) {
        m_usages.push_back({m_usageMin->first, m_usageMin->first, m_usageMin->second});
    }
    if (m_usageMax) {
        m_usages.push_back({m_usageMax->first, m_usageMax->first, m_usageMax->second});
    }
    m_usageMin.reset();
    m_usageMax.reset();
    const Usage page = static_cast<Usage>(m_globals.usagePage) << 16;
    std::vector<UsageRange> usages;
    usages.reserve(m_usages.size());
    for (const LocalUsage& local : m_usages) {
        const UsageRange range{local.extended ? local.min : page | (local.min & 0xFFFF),
                               local.extended ? local.max : page | (local.max & 0xFFFF)};
        if (range.min > range.max) {
            throw DescriptorError(item.offset, "a usage range from " + hex(range.min) + " down to " +
                                                   hex(range.max) + "; a Usage Minimum is at most its Maximum");
        }
        usages.push_back(range);
    }
    return usages;
}

void DescriptorParser::clearLocals()
{
    m_usages.clear();
    m_usageMin.reset();
    m_usageMax.reset();
}

void DescriptorParser::global(const Item& item)
{
    switch (item.prefix >> 4) {
    case kUsagePage:
        if (item.data > 0xFFFF) {
            throw DescriptorError(item.offset, "usage page " + hex(item.data) + " is above 0xFFFF");
        }
        m_globals.usagePage = static_cast<std::uint16_t>(item.data);
        break;
    case kLogicalMin:
        m_globals.logicalMin = item.signedData();
        break;
    case kLogicalMax:
        m_globals.logicalMaxData = item.data;
        m_globals.logicalMaxSize = item.size;
        break;
    case kPhysicalMin:
        m_globals.physicalMin = item.signedData();
        break;
    case kPhysicalMax:
        m_globals.physicalMaxData = item.data;
        m_globals.physicalMaxSize = item.size;
        break;
    case kUnitExponent:
        m_globals.unitExponent = rawkit::unitExponent(item.signedData());
        break;
    case kUnit:
        m_globals.unit = item.data;
        break;
    case kReportSize:
        m_globals.reportSize = item.data;
        break;
    case kReportId:
        if (item.data == 0 || item.data > 0xFF) {
            throw DescriptorError(item.offset, "report id " + std::to_string(item.data) + "; give 1 to 255");
        }
        m_globals.reportId = static_cast<std::uint8_t>(item.data);
        m_usesReportIds = true;
        break;
    case kReportCount:
        m_globals.reportCount = item.data;
        break;
    case kPush:
        if (m_pushed.size() == kMaxPushed) {
            throw DescriptorError(item.offset, "more than " + std::to_string(kMaxPushed) + " states pushed");
        }
        m_pushed.push_back(m_globals);
        break;
    case kPop:
        if (m_pushed.empty()) {
            throw DescriptorError(item.offset, "a Pop with nothing pushed");
        }
        m_globals = m_pushed.back();
        m_pushed.pop_back();
        break;
    default:
        throw DescriptorError(item.offset, "a reserved global item (" + hex(item.prefix) + ")");
    }
}

void DescriptorParser::local(const Item& item)
{
    const bool extended = item.size == 4;
    switch (item.prefix >> 4) {
    case kUsage:
        m_usages.push_back({item.data, item.data, extended});
        break;
    case kUsageMin:
        m_usageMin.emplace(item.data, extended);
        break;
    case kUsageMax:
        m_usageMax.emplace(item.data, extended);
        break;
    default:
        return;   // designators, strings and delimiters change no field
    }
    if (m_usageMin && m_usageMax) {
        // One extended end gives its page to a short other end.
        auto [min, minExtended] = *m_usageMin;
        auto [max, maxExtended] = *m_usageMax;
        if (minExtended && !maxExtended) {
            max = (min & 0xFFFF0000u) | (max & 0xFFFF);
        } else if (maxExtended && !minExtended) {
            min = (max & 0xFFFF0000u) | (min & 0xFFFF);
        }
        if ((minExtended || maxExtended) && (min >> 16) != (max >> 16)) {
            throw DescriptorError(item.offset, "a usage range from " + hex(min) + " to " + hex(max) +
                                                   " crosses usage pages; a range stays in one page");
        }
        m_usages.push_back({min, max, minExtended || maxExtended});
        m_usageMin.reset();
        m_usageMax.reset();
    }
}

}  // namespace hidrd
