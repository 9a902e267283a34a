// The shipped touchpads' reports, decoded by the platform's parser on the touchpad collection
// alone (as Raw Input hands it to a program), put together into frames and packets as the live
// path does: every contact, hybrid frames, palms, clicks.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "ShippedTouchpads.h"
#include "padkit/TouchFrameStream.h"
#include "rawkit/HidTouchDecoder.h"

using hidtest::ReportMaker;
using hidtest::Shipped;
using rawkit::ContactReport;

namespace {

ContactReport finger(std::uint32_t id, std::int32_t x, std::int32_t y, bool tip = true, bool confidence = true)
{
    return ContactReport{id, tip, confidence, x, y, {}, {}, {}};
}

class ShippedTouchpad : public testing::TestWithParam<Shipped> {
protected:
    void SetUp() override
    {
        std::string why;
        std::vector<std::uint8_t> data = hidtest::shippedTouchpad(GetParam().file, why);
        ASSERT_FALSE(data.empty()) << why;
        m_maker.emplace(data);
        m_decoder = rawkit::HidTouchDecoder::create(data, why);
        ASSERT_NE(m_decoder, nullptr) << why;
        m_stream.emplace(m_decoder->layout());
    }

    // Feeds one scan's reports; the packets they gave (one when the scan is complete).
    std::vector<padkit::Packet> scan(const std::vector<ContactReport>& contacts, std::uint8_t buttons = 0)
    {
        return feed(m_maker->scan(contacts, buttons));
    }

    std::vector<padkit::Packet> feed(const std::vector<std::vector<std::uint8_t>>& reports)
    {
        std::vector<padkit::Packet> packets;
        for (const std::vector<std::uint8_t>& report : reports) {
            const auto decoded = m_decoder->decode(report.data(), report.size());
            EXPECT_TRUE(decoded.has_value());
            if (decoded) {
                if (auto packet = m_stream->add(*decoded, m_timeUs += 4000)) {
                    packets.push_back(*packet);
                }
            }
        }
        return packets;
    }

    padkit::Packet one(const std::vector<ContactReport>& contacts, std::uint8_t buttons = 0)
    {
        const std::vector<padkit::Packet> packets = scan(contacts, buttons);
        EXPECT_EQ(packets.size(), 1U) << "one packet a complete frame";
        return packets.empty() ? padkit::Packet{} : packets.back();
    }

    unsigned fingersDown() const { return static_cast<unsigned>(m_stream->tracker().fingers().size()); }
    std::int32_t flip(std::int32_t y) const { return m_decoder->layout().y.low + m_decoder->layout().y.high - y; }

    std::optional<ReportMaker> m_maker;
    std::unique_ptr<rawkit::HidTouchDecoder> m_decoder;
    std::optional<padkit::TouchFrameStream> m_stream;
    std::int64_t m_timeUs = 0;
};

}  // namespace

TEST_P(ShippedTouchpad, LayoutIsTheDescriptors)
{
    const rawkit::TouchLayout& layout = m_decoder->layout();
    EXPECT_EQ(layout.slots, GetParam().slots);
    EXPECT_EQ(m_maker->reportId(), GetParam().reportId);
    EXPECT_EQ(layout.x.low, 0);
    EXPECT_GT(layout.x.high, 1000);
    ASSERT_TRUE(layout.widthMm && layout.heightMm) << "every shipped pad states its size";
    EXPECT_GT(*layout.widthMm, 60.0);
    EXPECT_LT(*layout.widthMm, 140.0);
    EXPECT_GT(*layout.heightMm, 30.0);
    EXPECT_LT(*layout.heightMm, *layout.widthMm);
}

TEST_P(ShippedTouchpad, OneFingerMovingAndTwoFingersWithTheSecondMoving)
{
    const padkit::Packet landed = one({finger(0, 300, 200)});
    EXPECT_TRUE(landed.finger);
    EXPECT_EQ(landed.x, 300);
    EXPECT_EQ(landed.y, flip(200));
    EXPECT_TRUE(one({finger(0, 320, 210)}).motion);
    for (int step = 0; step < 4; ++step) {
        const padkit::Packet packet = one({finger(0, 320, 210), finger(1, 700 + 10 * step, 400)});
        EXPECT_EQ(packet.x, 320) << "the first finger stays shown";
        EXPECT_EQ(fingersDown(), 2U);
    }
}

TEST_P(ShippedTouchpad, PalmsAreNoFingers)
{
    EXPECT_FALSE(one({finger(2, 500, 300, true, false)}).finger) << "a palm alone";
    one({finger(2, 500, 300, false, false)});
    const padkit::Packet beside = one({finger(0, 200, 200), finger(1, 800, 500, true, false)});
    EXPECT_TRUE(beside.finger);
    EXPECT_EQ(beside.x, 200);
    EXPECT_EQ(fingersDown(), 1U);
    EXPECT_GT(m_stream->tracker().palmFrames(), 1U);
}

TEST_P(ShippedTouchpad, SecondFingerIsShownWhenTheFirstLifts)
{
    one({finger(0, 200, 200)});
    one({finger(0, 200, 200), finger(1, 600, 300)});
    const padkit::Packet handedOver = one({finger(0, 200, 200, false), finger(1, 610, 300)});
    EXPECT_TRUE(handedOver.finger);
    EXPECT_EQ(handedOver.x, 610);
    EXPECT_EQ(fingersDown(), 1U);
}

TEST_P(ShippedTouchpad, ClicksWithOneAndTwoFingers)
{
    const padkit::Packet left = one({finger(0, 300, 200)}, 1);
    EXPECT_TRUE(left.left);
    EXPECT_FALSE(left.right);
    one({finger(0, 300, 200, false)});
    const padkit::Packet right = one({finger(0, 300, 200), finger(1, 500, 200)}, 1);
    EXPECT_TRUE(right.right);
    EXPECT_FALSE(right.left);
}

TEST_P(ShippedTouchpad, ThreeFourAndFiveFingersAreCounted)
{
    // As many as the pad can tell apart: the Elan's ids run 0..2, the Surface Book's 0..3.
    const unsigned most = std::min(5U, m_decoder->layout().maxContactId + 1);
    EXPECT_GE(most, 3U);
    for (unsigned n = 3; n <= most; ++n) {
        std::vector<ContactReport> contacts;
        for (unsigned i = 0; i < n; ++i) {
            contacts.push_back(finger(i, 100 + 150 * static_cast<std::int32_t>(i), 300));
        }
        const auto reports = m_maker->scan(contacts, 0);
        EXPECT_EQ(reports.size(), (n + GetParam().slots - 1) / GetParam().slots);
        EXPECT_EQ(feed(reports).size(), 1U);
        EXPECT_EQ(fingersDown(), n);
    }
    EXPECT_EQ(m_stream->malformedFrames(), 0U);

    // An id beyond the declared ones makes the frame malformed, never a finger.
    if (most < 5) {
        one({finger(0, 100, 100, false)});
        EXPECT_TRUE(scan({finger(0, 100, 100), finger(most, 300, 300)}).empty());
        EXPECT_EQ(m_stream->malformedFrames(), 1U);
    }
}

TEST_P(ShippedTouchpad, ALostContinuationIsCountedAndTheNextFrameIsRight)
{
    // Seven fingers take more than one report on every pad.
    std::vector<ContactReport> contacts;
    for (std::uint32_t i = 0; i < 7; ++i) {
        contacts.push_back(finger(i, 100 + 100 * static_cast<std::int32_t>(i), 300));
    }
    auto reports = m_maker->scan(contacts, 0);
    ASSERT_GE(reports.size(), 2U);
    reports.pop_back();
    EXPECT_TRUE(feed(reports).empty());
    const padkit::Packet next = one({finger(0, 150, 250), finger(1, 900, 250)});
    EXPECT_EQ(m_stream->malformedFrames(), 1U);
    EXPECT_EQ(next.x, 150);
    EXPECT_EQ(fingersDown(), 2U);
}

TEST_P(ShippedTouchpad, AReportOfAnotherIdIsNotTheTouchpads)
{
    std::vector<std::uint8_t> other = m_maker->scan({finger(0, 100, 100)}, 0).front();
    other[0] = static_cast<std::uint8_t>(GetParam().reportId + 0x20);
    EXPECT_FALSE(m_decoder->decode(other.data(), other.size()).has_value());
}

INSTANTIATE_TEST_SUITE_P(Shipped, ShippedTouchpad, testing::ValuesIn(hidtest::kShipped),
                         [](const testing::TestParamInfo<Shipped>& param) {
                             std::string name = param.param.file;
                             name = name.substr(0, name.find('.'));
                             std::replace_if(name.begin(), name.end(), [](char c) { return !std::isalnum(c); }, '_');
                             return name;
                         });
