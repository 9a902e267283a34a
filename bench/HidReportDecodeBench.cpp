// Reports decoded a second by our own descriptor parser's touchpad decoder, against the aim of
// 1,000,000 (thousands of times the 125-250 Hz a touchpad sends): a parallel pad (five finger
// collections a report) and a hybrid one (one a report), each alone and with the frames put
// together. Portable: runs natively and under Wine alike.
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "hidrd/DescriptorParser.h"
#include "hidrd/TouchReportDecoder.h"
#include "rawkit/FrameAssembler.h"

namespace {

constexpr double kAim = 1000000.0;
constexpr int kReports = 2000000;

std::vector<std::uint8_t> descriptor(const char* name)
{
    std::ifstream in(std::string(KSTR_SOURCE_DIR) + "/tests/data/hid-descriptors/" + name + ".rdesc");
    std::vector<std::uint8_t> bytes;
    std::string hex;
    while (in >> hex) {
        bytes.push_back(static_cast<std::uint8_t>(std::stoul(hex, nullptr, 16)));
    }
    return bytes;
}

// Two fingers moving: the Dell XPS 13 9360 pad sends both in one 30-byte report 3 (a finger
// every 5 bytes from byte 1: tip and confidence, X, Y; the count at byte 28); the Elan pad one a
// 10-byte report 4 (the count at byte 8, 0 in a frame's second report).
std::vector<std::vector<std::uint8_t>> stream(bool hybrid)
{
    std::vector<std::vector<std::uint8_t>> reports;
    for (int n = 0; n < 1000; ++n) {
        for (int finger = 0; finger < 2; ++finger) {
            std::vector<std::uint8_t> report(hybrid ? 10 : 30, 0);
            const int at = hybrid ? 1 : 1 + 5 * finger;
            report[0] = hybrid ? 4 : 3;
            report[at] = static_cast<std::uint8_t>(0x03 | (finger << 2));
            report[at + 1] = static_cast<std::uint8_t>(n + 300 * finger);
            report[at + 2] = static_cast<std::uint8_t>(1 + finger);
            report[at + 3] = static_cast<std::uint8_t>(n / 4);
            report[hybrid ? 8 : 28] = static_cast<std::uint8_t>(finger == 0 ? 2 : 0);
            if (hybrid || finger == 1) {
                reports.push_back(report);
            }
        }
    }
    return reports;
}

double perSecond(const char* name, bool hybrid, bool frames)
{
    const hidrd::TouchReportDecoder decoder(hidrd::DescriptorParser::parse(descriptor(name)));
    const std::vector<std::vector<std::uint8_t>> reports = stream(hybrid);
    rawkit::FrameAssembler assembler(decoder.layout().maxContactId);
    rawkit::TouchReport report;
    long long decoded = 0;
    const auto start = std::chrono::steady_clock::now();
    for (int n = 0; n < kReports; ++n) {
        const std::vector<std::uint8_t>& bytes = reports[static_cast<std::size_t>(n) % reports.size()];
        if (decoder.decode(bytes.data(), bytes.size(), report) == hidrd::TouchReportDecoder::Outcome::Decoded) {
            decoded += frames ? assembler.add(report, n).has_value() : 1;
        }
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    if (decoded == 0) {
        std::printf("%s: nothing decoded\n", name);
    }
    return kReports / seconds;
}

}  // namespace

int main()
{
    perSecond("dell-xps9360-touchpad", false, false);   // warm up
    const struct {
        const char* label;
        const char* file;
        bool hybrid;
        bool frames;
    } cases[] = {
        {"parallel (5 fingers a report), decoded", "dell-xps9360-touchpad", false, false},
        {"parallel, decoded and assembled", "dell-xps9360-touchpad", false, true},
        {"hybrid (1 finger a report), decoded", "elan_04f3_300b", true, false},
        {"hybrid, decoded and assembled", "elan_04f3_300b", true, true},
    };
    for (const auto& c : cases) {
        const double rate = perSecond(c.file, c.hybrid, c.frames);
        std::printf("touchpad reports, %-40s %11.0f reports/s = %6.1f x the aim of 1,000,000 (%s)\n", c.label, rate,
                    rate / kAim, rate >= kAim ? "met" : "MISSED");
    }
    return 0;
}
