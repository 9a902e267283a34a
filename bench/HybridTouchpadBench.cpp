// A five-finger scan of a hybrid touchpad (five reports a frame, the SiPodev pad's own touchpad
// collection) decoded by the platform's parser, put together into frames and packets as the live
// path does: frames a second against the 125-250 Hz such a pad sends (aim: 100 times 250 Hz).
#include <cstdio>
#include <string>
#include <vector>

#include "ShippedTouchpads.h"
#include "Stopwatch.h"
#include "padkit/TouchFrameStream.h"
#include "rawkit/HidTouchDecoder.h"

namespace {

constexpr double kPadRate = 250.0;
constexpr double kAim = 100.0 * kPadRate;
constexpr int kFingers = 5;

}  // namespace

int wmain()
{
    std::string why;
    const std::vector<std::uint8_t> data = hidtest::shippedTouchpad("sipodev_0603_0002.rdesc", why);
    const auto decoder = rawkit::HidTouchDecoder::create(data, why);
    if (!decoder) {
        std::printf("hybrid touchpad bench: the descriptor cannot be decoded: %s\n", why.c_str());
        return 1;
    }
    // A hundred scans of five fingers sweeping, encoded once; decoded over and over.
    hidtest::ReportMaker maker(data);
    std::vector<std::vector<std::uint8_t>> reports;
    for (int scan = 0; scan < 100; ++scan) {
        std::vector<rawkit::ContactReport> contacts;
        for (int i = 0; i < kFingers; ++i) {
            contacts.push_back({static_cast<std::uint32_t>(i), true, true, 200 + 400 * i + scan, 300 + 5 * scan, {}, {}, {}});
        }
        for (auto& report : maker.scan(contacts, 0)) {
            reports.push_back(std::move(report));
        }
    }
    padkit::TouchFrameStream stream(decoder->layout());
    long frames = 0;
    std::int64_t timeUs = 0;
    const Stopwatch clock;
    for (int round = 0; round < 400; ++round) {
        for (const std::vector<std::uint8_t>& report : reports) {
            const auto decoded = decoder->decode(report.data(), report.size());
            if (decoded && stream.add(*decoded, timeUs += 800)) {
                ++frames;
            }
        }
    }
    const double perSecond = frames / (clock.elapsedMicroseconds() / 1e6);
    std::printf("hybrid touchpad, %d contacts a frame in %d reports: %.0f frames/s = %.0f x a %.0f Hz pad "
                "(aim 100 x: %s); malformed %lu\n",
                kFingers, kFingers, perSecond, perSecond / kPadRate, kPadRate, perSecond >= kAim ? "met" : "MISSED",
                stream.malformedFrames());
    return 0;
}
