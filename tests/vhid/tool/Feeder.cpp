#include "Feeder.h"

#include <windows.h>

// mingw's HID headers lack C linkage of their own.
extern "C" {
#include <hidsdi.h>
}

#include <chrono>
#include <set>
#include <thread>

#include "PadInstaller.h"
#include "RawInputPads.h"
#include "Win32Error.h"
#include "hidparse/PlatformParser.h"

using vhid::ReportShape;

namespace {

constexpr auto kBusyPause = std::chrono::milliseconds(1);
constexpr int kBusyTries = 2000;   // two seconds of a queue that does not drain

}  // namespace

Feeder::Feeder(const vhid::PadId& id, ReportShape shape, std::unique_ptr<PadChannel> channel)
    : m_id(id), m_shape(std::move(shape)), m_channel(std::move(channel))
{
}

std::unique_ptr<Feeder> Feeder::connect(const vhid::PadId& id, std::string& error)
{
    const std::optional<std::vector<std::uint8_t>> descriptor = PadInstaller::descriptor(id, error);
    if (!descriptor) {
        return nullptr;
    }
    const std::optional<hidparse::Description> description = hidparse::PlatformParser::describe(*descriptor, error);
    if (!description) {
        return nullptr;
    }
    ReportShape shape;
    for (const auto& [reportId, lengths] : description->reports) {
        shape.declare(reportId, lengths.input, lengths.feature);
    }
    std::unique_ptr<PadChannel> channel = PadChannel::open(error);
    if (!channel) {
        return nullptr;
    }
    return std::unique_ptr<Feeder>(new Feeder(id, std::move(shape), std::move(channel)));
}

bool Feeder::deliver(const std::vector<std::uint8_t>& report, bool feature, std::string& error)
{
    // A full queue drains as the system reads: wait for it rather than drop a report.
    for (int attempt = 0; attempt < kBusyTries; ++attempt) {
        bool busy = false;
        if (m_channel->send(m_id, report, feature, busy, error)) {
            return true;
        }
        if (!busy) {
            return false;
        }
        std::this_thread::sleep_for(kBusyPause);
    }
    return false;
}

bool Feeder::send(const std::vector<std::uint8_t>& report, ReportShape::Kind kind, std::string& error)
{
    const std::optional<std::vector<std::uint8_t>> fitted = m_shape.fit(report, kind, error);
    return fitted && deliver(*fitted, kind == ReportShape::Kind::Feature, error);
}

std::optional<std::vector<std::uint8_t>> Feeder::getFeature(std::uint8_t reportId, std::string& error) const
{
    std::optional<std::vector<std::uint8_t>> report = m_shape.fit({reportId}, ReportShape::Kind::Feature, error);
    const std::wstring path = report ? RawInputPads::interfacePath(m_id) : L"";
    if (report && path.empty()) {
        error = "the virtual touchpad " + m_id.text() + " does not open";
    }
    if (path.empty()) {
        return std::nullopt;
    }
    HANDLE device = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                nullptr, OPEN_EXISTING, 0, nullptr);
    const bool answered = device != INVALID_HANDLE_VALUE &&
                          HidD_GetFeature(device, report->data(), static_cast<ULONG>(report->size()));
    error = answered ? "" : "the device did not answer: " + win32Error(GetLastError());
    if (device != INVALID_HANDLE_VALUE) {
        CloseHandle(device);
    }
    return answered ? report : std::nullopt;
}

bool Feeder::play(const vhid::ReportScript& script, double speed, std::ostream& out, std::string& error)
{
    struct Step {
        std::int64_t micros;
        bool feature;
        std::vector<std::uint8_t> report;
    };
    std::vector<Step> steps;
    std::set<int> skippedIds;
    std::size_t skipped = 0;
    for (const vhid::TimedReport& timed : script.reports) {
        const ReportShape::Kind kind = timed.feature ? ReportShape::Kind::Feature : ReportShape::Kind::Input;
        if (!m_shape.has(timed.bytes[0], kind)) {
            ++skipped;
            skippedIds.insert(timed.bytes[0]);
            continue;
        }
        std::optional<std::vector<std::uint8_t>> fitted = m_shape.fit(timed.bytes, kind, error);
        if (!fitted) {
            error = "line " + std::to_string(timed.line) + ": " + error;
            return false;
        }
        steps.push_back({timed.micros, timed.feature, std::move(*fitted)});
    }
    if (skipped > 0) {
        std::string ids;
        for (const int id : skippedIds) {
            ids += (ids.empty() ? "" : ", ") + std::to_string(id);
        }
        out << "skipped " << skipped << " reports of ids the collection does not have (" << ids << ")\n";
    }
    const auto start = std::chrono::steady_clock::now();
    const std::int64_t first = steps.empty() ? 0 : steps.front().micros;
    for (const Step& step : steps) {
        if (speed > 0) {
            std::this_thread::sleep_until(
                start + std::chrono::microseconds(static_cast<std::int64_t>((step.micros - first) / speed)));
        }
        if (!deliver(step.report, step.feature, error)) {
            return false;
        }
    }
    out << "played " << steps.size() << " reports\n";
    return true;
}
