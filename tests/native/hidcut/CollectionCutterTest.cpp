#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "hidcut/CollectionCutter.h"
#include "hidcut/ItemReader.h"

using hidcut::CollectionCutter;
using hidcut::ItemReader;
using hidcut::ItemType;
using Bytes = std::vector<std::uint8_t>;

namespace {

Bytes shippedDescriptor(const std::string& file)
{
    std::ifstream in(std::string(KSTR_SOURCE_DIR) + "/tests/data/hid-descriptors/" + file);
    Bytes bytes;
    std::string hex;
    while (in >> hex) {
        bytes.push_back(static_cast<std::uint8_t>(std::stoul(hex, nullptr, 16)));
    }
    return bytes;
}

// Bits of each input and feature report by report id, counted from the items on their own (the
// test's own reading of report size, count, id, Push and Pop).
struct ReportBits {
    std::map<int, unsigned> input;
    std::map<int, unsigned> feature;
};

ReportBits reportBits(const Bytes& descriptor)
{
    std::string error;
    ReportBits bits;
    struct State {
        unsigned size = 0;
        unsigned count = 0;
        int id = 0;
    } state;
    std::vector<State> pushed;
    for (const hidcut::Item& item : ItemReader::read(descriptor, error)) {
        if (item.type == ItemType::Global) {
            switch (item.tag) {
            case 0x7: state.size = item.data; break;
            case 0x8: state.id = static_cast<int>(item.data); break;
            case 0x9: state.count = item.data; break;
            case 0xA: pushed.push_back(state); break;
            case 0xB: state = pushed.back(); pushed.pop_back(); break;
            default: break;
            }
        } else if (item.type == ItemType::Main && item.tag == 0x8) {
            bits.input[state.id] += state.size * state.count;
        } else if (item.type == ItemType::Main && item.tag == 0xB) {
            bits.feature[state.id] += state.size * state.count;
        }
    }
    return bits;
}

CollectionCutter parsed(const Bytes& descriptor)
{
    std::string error;
    std::optional<CollectionCutter> cutter = CollectionCutter::parse(descriptor, error);
    EXPECT_TRUE(cutter.has_value()) << error;
    return cutter.value_or(*CollectionCutter::parse(Bytes{0xA1, 0x01, 0xC0}, error));
}

using Usages = std::vector<std::pair<int, int>>;

struct Shipped {
    const char* file;
    Usages collections;   // usage page and usage of each top-level collection
    int reportId;         // of the touchpad's input report
    unsigned reportBytes; // its length with the id
};

const Shipped kShipped[] = {
    {"dell-xps9360-touchpad.rdesc", {{1, 2}, {0x0D, 5}, {0x0D, 0x0E}, {0xFF00, 1}}, 3, 30},
    {"synaptics_06cb_ce08.rdesc", {{1, 2}, {1, 2}, {0xFF00, 2}, {0x0D, 5}, {0x0D, 0x0E}, {0xFF00, 1}}, 3, 30},
    {"elan_04f3_300b.rdesc", {{1, 2}, {0x0D, 5}, {0x0D, 0x0E}}, 4, 10},
    {"sipodev_0603_0002.rdesc",
     {{1, 2}, {0x0D, 5}, {0x0D, 0x0E}, {1, 0x0C}, {1, 0x80}, {0x0C, 1}, {0xFF00, 1}}, 4, 8},
    {"microsoft-surfacebook2-touchpad.rdesc",
     {{1, 6}, {1, 2}, {0x0C, 1}, {0xFF05, 1}, {0xFF05, 2}, {0x0D, 5}, {0x0D, 0x0E}, {0xFF07, 1}, {0xFF05, 4},
      {0xFF05, 0x50}, {0xFF00, 0xF900}},
     4, 30},
};

}  // namespace

TEST(CollectionCutter, CutsTheTouchpadOfEachShippedDescriptorWithItsReportsAsTheWholeHasThem)
{
    for (const Shipped& shipped : kShipped) {
        SCOPED_TRACE(shipped.file);
        const Bytes whole = shippedDescriptor(shipped.file);
        ASSERT_FALSE(whole.empty());
        const CollectionCutter cutter = parsed(whole);
        Usages found;
        for (const hidcut::TopLevelCollection& collection : cutter.collections()) {
            found.emplace_back(collection.usagePage, collection.usage);
        }
        EXPECT_EQ(found, shipped.collections);
        ASSERT_TRUE(cutter.touchpad().has_value());

        const Bytes cut = cutter.cut(*cutter.touchpad());
        const CollectionCutter alone = parsed(cut);
        ASSERT_EQ(alone.collections().size(), 1U);
        EXPECT_EQ(alone.collections()[0].usagePage, 0x0D);
        EXPECT_EQ(alone.collections()[0].usage, 0x05);
        EXPECT_EQ(alone.cut(0), cut);   // nothing left to carry

        // Each report the cut declares is the whole descriptor's report of that id, bit for bit.
        const ReportBits cutBits = reportBits(cut);
        const ReportBits wholeBits = reportBits(whole);
        EXPECT_EQ((cutBits.input.at(shipped.reportId) + 7) / 8 + 1, shipped.reportBytes);
        ASSERT_EQ(cutBits.input.size(), 1U);
        for (const auto& [id, bits] : cutBits.input) {
            EXPECT_EQ(bits, wholeBits.input.at(id)) << "input report " << id;
        }
        EXPECT_FALSE(cutBits.feature.empty());   // Contact Max and the certification blob
        for (const auto& [id, bits] : cutBits.feature) {
            EXPECT_EQ(bits, wholeBits.feature.at(id)) << "feature report " << id;
        }
    }
}

TEST(CollectionCutter, CarriesTheGlobalsInForceWhereTheCollectionStarts)
{
    // A mouse leaves its ranges, unit and sizes in force; the pad after it relies on them.
    const Bytes whole = {
        0x05, 0x01, 0x09, 0x02, 0xA1, 0x01, 0x85, 0x01,               // mouse, report 1
        0x15, 0x81, 0x25, 0x7F, 0x35, 0x00, 0x46, 0xE8, 0x03,         // logical -127..127, physical 0..1000
        0x55, 0x0E, 0x65, 0x11, 0x75, 0x08, 0x95, 0x02,               // exponent -2, cm, 8 bits x 2
        0x09, 0x30, 0x09, 0x31, 0x81, 0x06, 0xC0,                     // X, Y
        0x05, 0x0D, 0x09, 0x05, 0xA1, 0x01, 0x85, 0x04,               // touchpad, report 4
        0x09, 0x30, 0x81, 0x02, 0xC0,
    };
    const CollectionCutter cutter = parsed(whole);
    ASSERT_EQ(cutter.touchpad(), 1U);
    const Bytes expected = {
        0x05, 0x0D, 0x15, 0x81, 0x25, 0x7F, 0x35, 0x00, 0x46, 0xE8, 0x03, 0x55, 0x0E, 0x65, 0x11,
        0x75, 0x08, 0x95, 0x02,                                       // in force, written as they were
        0x09, 0x05, 0xA1, 0x01, 0x85, 0x04, 0x09, 0x30, 0x81, 0x02, 0xC0,
    };
    EXPECT_EQ(cutter.cut(1), expected);
    // The first collection starts with nothing in force but its page.
    EXPECT_EQ(cutter.cut(0), Bytes(whole.begin(), whole.begin() + 32));
}

TEST(CollectionCutter, RebuildsThePushedStatesTheCollectionPops)
{
    const Bytes whole = {
        0x05, 0x0D, 0x75, 0x08, 0xA4,                                 // 8 bits, pushed
        0x75, 0x10, 0xA4,                                             // 16 bits, pushed
        0x75, 0x01, 0xB4, 0xA4,                                       // 1 bit, popped back to 16, pushed again
        0x09, 0x05, 0xA1, 0x01, 0x95, 0x01,
        0xB4, 0x09, 0x30, 0x81, 0x02,                                 // pops to 16 bits
        0xB4, 0x09, 0x31, 0x81, 0x02,                                 // pops to 8 bits
        0xA4, 0x75, 0x04, 0xB4, 0xC0,                                 // its own push and pop borrow nothing
    };
    const CollectionCutter cutter = parsed(whole);
    const Bytes cut = cutter.cut(0);
    const Bytes expected = {
        0x05, 0x0D, 0x75, 0x08, 0xA4,                                 // the deeper state, pushed
        0x05, 0x0D, 0x75, 0x10, 0xA4,                                 // the one above it, pushed
        0x05, 0x0D, 0x75, 0x10,                                       // in force
        0x09, 0x05, 0xA1, 0x01, 0x95, 0x01, 0xB4, 0x09, 0x30, 0x81, 0x02, 0xB4, 0x09, 0x31, 0x81, 0x02,
        0xA4, 0x75, 0x04, 0xB4, 0xC0,
    };
    EXPECT_EQ(cut, expected);
    EXPECT_EQ(reportBits(cut).input.at(0), reportBits(whole).input.at(0));
}

TEST(CollectionCutter, CarriesTheReportIdOnlyToACollectionThatReportsBeforeSettingItsOwn)
{
    const Bytes whole = {
        0x05, 0x01, 0x09, 0x02, 0xA1, 0x01, 0x85, 0x02, 0x75, 0x08, 0x95, 0x01, 0x81, 0x02, 0xC0,
        0x05, 0x0D, 0x09, 0x05, 0xA1, 0x01, 0x81, 0x02, 0x85, 0x03, 0x81, 0x02, 0xC0,   // report 2, then 3
        0x09, 0x0E, 0xA1, 0x01, 0x85, 0x05, 0xB1, 0x02, 0xC0,                           // its own id first
    };
    const CollectionCutter cutter = parsed(whole);
    ASSERT_EQ(cutter.collections().size(), 3U);
    const Bytes pad = cutter.cut(1);
    EXPECT_EQ(Bytes(pad.begin(), pad.begin() + 8), (Bytes{0x05, 0x0D, 0x75, 0x08, 0x85, 0x02, 0x95, 0x01}));
    EXPECT_EQ(reportBits(pad).input, (std::map<int, unsigned>{{2, 8}, {3, 8}}));
    const Bytes configuration = cutter.cut(2);
    EXPECT_EQ(Bytes(configuration.begin(), configuration.begin() + 6), (Bytes{0x05, 0x0D, 0x75, 0x08, 0x95, 0x01}));
}

TEST(CollectionCutter, NamesACollectionByItsFirstUsageAnExtendedOneWithItsOwnPage)
{
    const Bytes whole = {
        0x05, 0x01, 0x0B, 0x05, 0x00, 0x0D, 0x00, 0x09, 0x02, 0xA1, 0x01, 0xC0,   // extended: digitizer touchpad
        0x09, 0x02, 0x09, 0x01, 0xA1, 0x01, 0xC0,                               // mouse, then pointer
        0x06, 0x00, 0xFF, 0xA1, 0x01, 0xFE, 0x02, 0x10, 0xAA, 0xBB, 0xC0,        // no usage; a long item
    };
    const CollectionCutter cutter = parsed(whole);
    ASSERT_EQ(cutter.collections().size(), 3U);
    EXPECT_EQ(cutter.touchpad(), 0U);
    EXPECT_EQ(cutter.collections()[1].usagePage, 1);
    EXPECT_EQ(cutter.collections()[1].usage, 2);
    EXPECT_EQ(cutter.collections()[2].usagePage, 0xFF00);
    EXPECT_EQ(cutter.collections()[2].usage, 0);
    EXPECT_EQ(cutter.cut(2), (Bytes{0x06, 0x00, 0xFF, 0xA1, 0x01, 0xFE, 0x02, 0x10, 0xAA, 0xBB, 0xC0}));
    // The cut of a nameless collection carries its local items: it names itself the same.
    EXPECT_EQ(cutter.cut(0), (Bytes{0x05, 0x01, 0x0B, 0x05, 0x00, 0x0D, 0x00, 0x09, 0x02, 0xA1, 0x01, 0xC0}));
    EXPECT_FALSE(parsed({0x05, 0x0D, 0x09, 0x04, 0xA1, 0x01, 0xC0}).touchpad().has_value());   // a touch screen
}

TEST(CollectionCutter, RefusesADescriptorThatDoesNotParseSayingWhere)
{
    const std::vector<std::pair<Bytes, std::string>> cases = {
        {{}, "the descriptor is empty"},
        {{0x05, 0x0D, 0x26, 0xFF}, "an item needs 2 data bytes at byte 2, the descriptor ends first"},
        {{0xA1, 0x01, 0xFE, 0x05}, "a long item is cut short at byte 2"},
        {{0xA1, 0x01, 0xFE, 0x04, 0x10, 0x00}, "an item needs 4 data bytes at byte 2, the descriptor ends first"},
        {{0x0D, 0x00}, "item 0x0d has the reserved type at byte 0"},
        {{0xA1, 0x01, 0xC0, 0xC0}, "End Collection without a Collection at byte 3"},
        {{0x05, 0x0D, 0xA1, 0x01, 0xA1, 0x02, 0xC0}, "the collection at byte 2 is not closed"},
        {{0xA1, 0x01, 0xB4, 0xC0}, "Pop with nothing pushed at byte 2"},
        {{0x75, 0x08, 0x95, 0x01, 0x81, 0x02}, "a report's item outside any collection at byte 4"},
        {{0xA1, 0x01, 0xD1, 0x00, 0xC0}, "reserved main item at byte 2"},
        {{0xC5, 0x00}, "reserved global item at byte 0"},
        {{0x05, 0x0D, 0x09, 0x05}, "the descriptor has no collection"},
    };
    for (const auto& [descriptor, message] : cases) {
        std::string error;
        EXPECT_FALSE(CollectionCutter::parse(descriptor, error).has_value());
        EXPECT_EQ(error, message);
    }
}
