// The resolution of the shipped touchpads (tests/data/hid-descriptors, copied from the Linux
// kernel's HID selftests) as the descriptors' own items give it: each pad's touchpad collection,
// its X and Y logical range over their physical extent in the declared unit and exponent.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <optional>

#include "hidcut/CollectionCutter.h"
#include "hidcut/ItemReader.h"
#include "rawkit/HidUnits.h"
#include "touchq/Resolution.h"

namespace {

std::vector<std::uint8_t> descriptor(const std::string& file)
{
    std::ifstream in(std::string(KSTR_SOURCE_DIR) + "/tests/data/hid-descriptors/" + file);
    std::vector<std::uint8_t> bytes;
    std::string hex;
    while (in >> hex) {
        bytes.push_back(static_cast<std::uint8_t>(std::stoul(hex, nullptr, 16)));
    }
    return bytes;
}

std::int32_t signedData(const hidcut::Item& item)
{
    const unsigned bits = 8U * item.dataSize;
    return bits == 0 || bits >= 32 || (item.data >> (bits - 1)) == 0 ? static_cast<std::int32_t>(item.data)
                                                                     : static_cast<std::int32_t>(item.data - (1U << bits));
}

// The logical range and physical extent (mm) of the first input of Generic Desktop usage X (0x30)
// or Y (0x31) in the pad's touchpad collection.
struct Axis {
    rawkit::ValueRange range;
    std::optional<double> mm;
};

Axis axis(const std::vector<std::uint8_t>& whole, std::uint16_t usage)
{
    std::string error;
    const auto cutter = hidcut::CollectionCutter::parse(whole, error);
    EXPECT_TRUE(cutter && cutter->touchpad()) << error;
    const std::vector<std::uint8_t> pad = cutter->cut(*cutter->touchpad());
    std::map<std::uint8_t, hidcut::Item> globals;
    std::vector<std::map<std::uint8_t, hidcut::Item>> pushed;
    std::vector<std::uint32_t> usages;
    for (const hidcut::Item& item : hidcut::ItemReader::read(pad, error)) {
        if (item.type == hidcut::ItemType::Global && item.tag == hidcut::tag::kPush) {
            pushed.push_back(globals);
        } else if (item.type == hidcut::ItemType::Global && item.tag == hidcut::tag::kPop && !pushed.empty()) {
            globals = pushed.back();
            pushed.pop_back();
        } else if (item.type == hidcut::ItemType::Global) {
            globals[item.tag] = item;
        } else if (item.type == hidcut::ItemType::Local && item.tag == hidcut::tag::kUsage) {
            usages.push_back(item.data);
        } else if (item.type == hidcut::ItemType::Main) {
            const bool found = item.tag == hidcut::tag::kInput && globals[0x0].data == 0x01 &&
                               std::find(usages.begin(), usages.end(), usage) != usages.end();
            if (found) {
                return Axis{{signedData(globals[0x1]), signedData(globals[0x2])},
                            rawkit::extentMm(signedData(globals[0x3]), signedData(globals[0x4]), globals[0x6].data,
                                             rawkit::unitExponent(static_cast<std::int32_t>(globals[0x5].data)))};
            }
            usages.clear();
        }
    }
    ADD_FAILURE() << "no input of usage " << usage;
    return {};
}

}  // namespace

TEST(ShippedTouchpads, ResolutionFromEachDescriptorsUnits)
{
    struct Expected {
        const char* file;
        double dpiX;   // logical maximum over the physical maximum in inches (10^-2 cm, or 10^-2 inch)
        double dpiY;
    };
    for (const Expected e : {Expected{"dell-xps9360-touchpad.rdesc", 1216 / (10.13 / 2.54), 680 / (5.66 / 2.54)},
                             Expected{"synaptics_06cb_ce08.rdesc", 1272 / (10.60 / 2.54), 672 / (5.60 / 2.54)},
                             Expected{"elan_04f3_300b.rdesc", 3239 / 4.13, 2347 / 2.93},
                             Expected{"sipodev_0603_0002.rdesc", 2628 / (9.40 / 2.54), 1332 / (5.10 / 2.54)},
                             Expected{"microsoft-surfacebook2-touchpad.rdesc", 2020 / (10.10 / 2.54), 1321 / (6.60 / 2.54)}}) {
        const std::vector<std::uint8_t> whole = descriptor(e.file);
        const Axis x = axis(whole, 0x30);
        const Axis y = axis(whole, 0x31);
        rawkit::TouchLayout layout;
        layout.x = x.range;
        layout.y = y.range;
        layout.widthMm = x.mm;
        layout.heightMm = y.mm;
        const touchq::Resolution resolution(layout);
        ASSERT_TRUE(resolution.known()) << e.file;
        EXPECT_NEAR(*resolution.dpiX(), e.dpiX, 0.05) << e.file;
        EXPECT_NEAR(*resolution.dpiY(), e.dpiY, 0.05) << e.file;
        EXPECT_FALSE(resolution.belowMinimum()) << e.file << ": every shipped pad has 300 dpi or more";
    }
}
