#include "vhid/ReportScript.h"

#include <charconv>

#include "vhid/HexBytes.h"

namespace vhid {

namespace {

bool isRecord(std::string_view line)
{
    return line.size() >= 2 && line[0] >= 'A' && line[0] <= 'Z' && line[1] == ':';
}

std::string_view nextToken(std::string_view& rest)
{
    const std::size_t start = rest.find_first_not_of(" \t\r");
    if (start == std::string_view::npos) {
        rest = {};
        return {};
    }
    rest.remove_prefix(start);
    const std::size_t end = std::min(rest.find_first_of(" \t\r"), rest.size());
    const std::string_view token = rest.substr(0, end);
    rest.remove_prefix(end);
    return token;
}

template <typename T>
bool number(std::string_view token, T& value, int base = 10)
{
    const auto [end, ec] = std::from_chars(token.data(), token.data() + token.size(), value, base);
    return ec == std::errc() && end == token.data() + token.size() && !token.empty();
}

// `<n> <bytes>`: the count, then exactly that many bytes.
bool countedBytes(std::string_view rest, std::vector<std::uint8_t>& bytes, std::string& error)
{
    std::size_t count = 0;
    if (!number(nextToken(rest), count)) {
        error = "the byte count is not a number";
        return false;
    }
    const std::optional<std::vector<std::uint8_t>> parsed = HexBytes::parse(rest, error);
    if (!parsed) {
        return false;
    }
    if (parsed->size() != count) {
        error = "it says " + std::to_string(count) + " bytes and has " + std::to_string(parsed->size());
        return false;
    }
    bytes = *parsed;
    return true;
}

// `<sec>.<usec> <n> <bytes>`.
bool timedReport(std::string_view rest, TimedReport& report, std::string& error)
{
    const std::string_view time = nextToken(rest);
    const std::size_t dot = time.find('.');
    std::int64_t seconds = 0;
    std::int64_t micros = 0;
    if (dot == std::string_view::npos || !number(time.substr(0, dot), seconds) ||
        !number(time.substr(dot + 1), micros) || micros >= 1000000 || seconds > 1000000000) {
        error = "the time is not <seconds>.<microseconds>";
        return false;
    }
    report.micros = seconds * 1000000 + micros;
    return countedBytes(rest, report.bytes, error);
}

bool ids(std::string_view rest, ReportScript& script, std::string& error)
{
    unsigned bus = 0;
    std::uint16_t vendor = 0;
    std::uint16_t product = 0;
    if (!number(nextToken(rest), bus, 16) || !number(nextToken(rest), vendor, 16) ||
        !number(nextToken(rest), product, 16)) {
        error = "it is not <bus> <vendor> <product> in hex";
        return false;
    }
    script.vendorId = vendor;
    script.productId = product;
    return true;
}

}  // namespace

std::optional<ReportScript> ReportScript::parse(std::string_view text, std::string& error)
{
    ReportScript script;
    const std::string_view whole = text;
    bool records = false;
    int lineNumber = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        ++lineNumber;
        if (!isRecord(line)) {
            continue;   // comments, blank lines and, in a plain descriptor, its bytes
        }
        records = true;
        const char kind = line[0];
        const std::string_view rest = line.substr(2);
        std::string why;
        bool ok = true;
        if (kind == 'R') {
            ok = countedBytes(rest, script.descriptor, why);
        } else if (kind == 'I') {
            ok = ids(rest, script, why);
        } else if (kind == 'D') {
            std::string_view index = rest;
            ok = nextToken(index) == "0";
            why = "it records several devices; give the virtual device one";
        } else if (kind == 'E' || kind == 'F') {
            TimedReport report;
            report.feature = kind == 'F';
            report.line = lineNumber;
            ok = timedReport(rest, report, why);
            if (ok && report.bytes.empty()) {
                ok = false;
                why = "the report is empty";
            }
            if (ok && !script.reports.empty() && report.micros < script.reports.back().micros) {
                ok = false;
                why = "its time is before the report above it";
            }
            if (ok) {
                script.reports.push_back(std::move(report));
            }
        }
        if (!ok) {
            error = "line " + std::to_string(lineNumber) + ": " + std::string(1, kind) + ": " + why;
            return std::nullopt;
        }
    }
    if (!records) {
        std::optional<std::vector<std::uint8_t>> descriptor = HexBytes::parse(whole, error);
        if (!descriptor) {
            error = "neither a recording nor a descriptor in hex: " + error;
            return std::nullopt;
        }
        script.descriptor = std::move(*descriptor);
    }
    return script;
}

}  // namespace vhid
