// Our descriptor parser checked against the platform's on each shipped touchpad: the same reports
// (built from tables of contacts by the platform's own encoder) decoded by HidP_* on the touchpad
// collection's preparsed data and by hidrd on the whole descriptor, then put together into frames
// and packets alike, must give the same reports, frames, contacts, buttons and packets.
#include <gtest/gtest.h>

#include <cctype>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ShippedTouchpads.h"
#include "hidrd/DescriptorParser.h"
#include "hidrd/TouchReportDecoder.h"
#include "padkit/SessionWriter.h"
#include "padkit/TouchFrameStream.h"
#include "rawkit/HidTouchDecoder.h"

using hidtest::Shipped;
using rawkit::ContactReport;

namespace {

using Scan = std::vector<ContactReport>;

ContactReport finger(std::uint32_t id, std::int32_t x, std::int32_t y, bool tip = true, bool confidence = true)
{
    return ContactReport{id, tip, confidence, x, y, {}, {}, {}};
}

class CrossCheck : public testing::TestWithParam<Shipped> {
protected:
    void SetUp() override
    {
        std::string why;
        std::vector<std::uint8_t> preparsed = hidtest::shippedTouchpad(GetParam().file, why);
        ASSERT_FALSE(preparsed.empty()) << why;
        m_maker.emplace(preparsed);
        m_platform = rawkit::HidTouchDecoder::create(preparsed, why);
        ASSERT_NE(m_platform, nullptr) << why;
        m_ours.emplace(hidrd::DescriptorParser::parse(hidtest::shippedDescriptor(GetParam().file)));
        m_platformStream.emplace(m_platform->layout());
        m_ourStream.emplace(m_ours->layout());
    }

    // Both decode the report and take it into their frames, which must agree at every step.
    void feed(const std::vector<std::uint8_t>& report)
    {
        SCOPED_TRACE("report " + std::to_string(m_reports++));
        const std::optional<rawkit::TouchReport> platform = m_platform->decode(report.data(), report.size());
        rawkit::TouchReport ours;
        const hidrd::TouchReportDecoder::Outcome outcome = m_ours->decode(report.data(), report.size(), ours);
        ASSERT_EQ(platform.has_value(), outcome == hidrd::TouchReportDecoder::Outcome::Decoded);
        if (!platform) {
            return;
        }
        EXPECT_EQ(ours.slots, platform->slots);
        EXPECT_EQ(ours.contactCount, platform->contactCount);
        EXPECT_EQ(ours.scanTime, platform->scanTime);
        EXPECT_EQ(ours.buttons, platform->buttons);
        m_timeUs += 4000;
        const std::optional<padkit::Packet> a = m_platformStream->add(*platform, m_timeUs);
        const std::optional<padkit::Packet> b = m_ourStream->add(ours, m_timeUs);
        ASSERT_EQ(a.has_value(), b.has_value());
        if (a) {
            ++m_packets;
            EXPECT_EQ(padkit::SessionWriter::packetFields(*b), padkit::SessionWriter::packetFields(*a));
            EXPECT_EQ(m_ourStream->lastFrame(), m_platformStream->lastFrame());
        }
        EXPECT_EQ(m_ourStream->malformedFrames(), m_platformStream->malformedFrames());
        EXPECT_EQ(m_ourStream->tracker().fingers().size(), m_platformStream->tracker().fingers().size());
        EXPECT_EQ(m_ourStream->tracker().palmsDown(), m_platformStream->tracker().palmsDown());
    }

    void scan(const Scan& contacts, std::uint8_t buttons = 0)
    {
        for (const std::vector<std::uint8_t>& report : m_maker->scan(contacts, buttons)) {
            feed(report);
        }
    }

    // An id the pad can give: its contact id field is as narrow as two bits on some.
    std::uint32_t id(std::uint32_t n) const { return n % (m_platform->layout().maxContactId + 1); }

    std::optional<hidtest::ReportMaker> m_maker;
    std::unique_ptr<rawkit::HidTouchDecoder> m_platform;
    std::optional<hidrd::TouchReportDecoder> m_ours;
    std::optional<padkit::TouchFrameStream> m_platformStream;
    std::optional<padkit::TouchFrameStream> m_ourStream;
    std::int64_t m_timeUs = 0;
    int m_reports = 0;
    int m_packets = 0;
};

}  // namespace

TEST_P(CrossCheck, LayoutsAgree)
{
    const rawkit::TouchLayout& platform = m_platform->layout();
    const rawkit::TouchLayout& ours = m_ours->layout();
    EXPECT_EQ(ours.x, platform.x);
    EXPECT_EQ(ours.y, platform.y);
    EXPECT_EQ(ours.width, platform.width);
    EXPECT_EQ(ours.widthMm, platform.widthMm);
    EXPECT_EQ(ours.heightMm, platform.heightMm);
    EXPECT_EQ(ours.slots, platform.slots);
    EXPECT_EQ(ours.maxContactId, platform.maxContactId);
    EXPECT_EQ(m_ours->reportId(), GetParam().reportId);
}

TEST_P(CrossCheck, EverydayScansGiveTheSameFramesContactsAndButtons)
{
    for (int i = 0; i < 8; ++i) {   // one finger moving
        scan({finger(id(1), 100 + 40 * i, 200 + 10 * i)});
    }
    for (int i = 0; i < 4; ++i) {   // a second finger comes and moves
        scan({finger(id(1), 420, 280), finger(id(2), 600 + 30 * i, 250)});
    }
    scan({finger(id(1), 420, 280), finger(id(2), 700, 250)}, 1);   // a two-finger click
    scan({finger(id(1), 420, 280, false), finger(id(2), 700, 250)});   // the first lifts
    scan({finger(id(2), 710, 250)});
    scan({finger(id(2), 710, 250)}, 1);   // a one-finger click
    scan({finger(id(2), 710, 250, false)});
    scan({finger(id(3), 300, 300, true, false)});   // a palm alone
    scan({finger(id(3), 300, 300, true, false), finger(id(4), 500, 100)});   // a palm beside a finger
    scan({finger(id(3), 300, 300, false, false), finger(id(4), 500, 100, false)});
    for (unsigned n = 3; n <= 5; ++n) {   // three to five fingers
        Scan many;
        for (unsigned f = 0; f < n; ++f) {
            many.push_back(finger(id(f), 100 + 150 * static_cast<int>(f), 300));
        }
        scan(many);
        for (ContactReport& c : many) {
            c.tip = false;
        }
        scan(many);
    }
    EXPECT_GT(m_packets, 20);
}

TEST_P(CrossCheck, LostContinuationsAndOtherReportsAlike)
{
    const auto reports = m_maker->scan({finger(id(1), 100, 100), finger(id(2), 200, 100)}, 0);
    feed(reports.front());   // a hybrid pad's second report never comes
    scan({finger(id(1), 110, 100), finger(id(2), 210, 100)});
    // A report of another id (the touchpad's mouse) and one of the touchpad's id cut short.
    feed(std::vector<std::uint8_t>{static_cast<std::uint8_t>(GetParam().reportId == 3 ? 2 : 1), 1, 2, 3});
    std::vector<std::uint8_t> cut = reports.front();
    cut.pop_back();
    feed(cut);
    scan({finger(id(1), 120, 100)});
    EXPECT_EQ(m_ourStream->malformedFrames(), GetParam().slots == 1 ? 1U : 0U);
}

INSTANTIATE_TEST_SUITE_P(Shipped, CrossCheck, testing::ValuesIn(hidtest::kShipped),
                         [](const testing::TestParamInfo<Shipped>& param) {
                             std::string name = param.param.file;
                             name = name.substr(0, name.find('.'));
                             for (char& c : name) {
                                 c = std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
                             }
                             return name;
                         });
