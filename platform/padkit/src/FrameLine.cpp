#include "padkit/FrameLine.h"

#include <cstdint>
#include <limits>
#include <optional>

#include "WholeNumber.h"

namespace padkit {

namespace {

constexpr std::int64_t kMaxTimeUs = std::int64_t{std::numeric_limits<std::int32_t>::max()} * 1000;
constexpr std::size_t kContactFields = 8;
constexpr std::size_t kQuoteLimit = 40;

std::string quoted(std::string_view text)
{
    return "\"" + std::string(text.substr(0, kQuoteLimit)) + (text.size() > kQuoteLimit ? "...\"" : "\"");
}

// Milliseconds with up to three decimals, as microseconds.
std::optional<std::int64_t> timeUs(std::string_view text)
{
    const std::size_t dot = text.find('.');
    const std::optional<std::int64_t> ms = wholeNumber<std::int64_t>(text.substr(0, dot));
    if (!ms || *ms < 0 || text.front() == '-') {
        return std::nullopt;
    }
    std::int64_t fraction = 0;
    if (dot != std::string_view::npos) {
        const std::string_view decimals = text.substr(dot + 1);
        if (decimals.empty() || decimals.size() > 3 || !wholeNumber<std::uint32_t>(decimals)) {
            return std::nullopt;
        }
        fraction = *wholeNumber<std::int64_t>(decimals);
        for (std::size_t i = decimals.size(); i < 3; ++i) {
            fraction *= 10;
        }
    }
    const std::int64_t us = *ms * 1000 + fraction;
    return us <= kMaxTimeUs ? std::optional<std::int64_t>(us) : std::nullopt;
}

std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    std::size_t start = 0;
    while (true) {
        const std::size_t end = text.find(separator, start);
        parts.push_back(text.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start));
        if (end == std::string_view::npos) {
            return parts;
        }
        start = end + 1;
    }
}

bool contact(std::string_view text, rawkit::ContactReport& contact, std::string& error)
{
    const std::string allowed = "; give ID,TIP,CONFIDENCE,X,Y,WIDTH,HEIGHT,PRESSURE (the last three - where not reported)";
    const std::vector<std::string_view> parts = split(text, ',');
    if (parts.size() != kContactFields) {
        error = "contact " + quoted(text) + " has " + std::to_string(parts.size()) + " fields, not 8" + allowed;
        return false;
    }
    const std::optional<std::uint32_t> id = wholeNumber<std::uint32_t>(parts[0]);
    const auto flag = [](std::string_view v) { return v == "0" || v == "1"; };
    const std::optional<std::int32_t> x = wholeNumber<std::int32_t>(parts[3]);
    const std::optional<std::int32_t> y = wholeNumber<std::int32_t>(parts[4]);
    if (!id || !flag(parts[1]) || !flag(parts[2]) || !x || !y) {
        error = "contact " + quoted(text) + " is not a contact" + allowed +
                ", an id from 0 to 4294967295, tip and confidence 0 or 1, whole numbers for the rest";
        return false;
    }
    contact = rawkit::ContactReport{*id, parts[1] == "1", parts[2] == "1", *x, *y, {}, {}, {}};
    std::optional<std::int32_t>* optionals[] = {&contact.width, &contact.height, &contact.pressure};
    for (std::size_t i = 0; i < 3; ++i) {
        if (parts[5 + i] == "-") {
            continue;
        }
        *optionals[i] = wholeNumber<std::int32_t>(parts[5 + i]);
        if (!*optionals[i]) {
            error = "contact " + quoted(text) + " has " + quoted(parts[5 + i]) + " where a whole number or - goes" +
                    allowed;
            return false;
        }
    }
    return true;
}

}  // namespace

bool FrameLine::parse(const std::vector<std::string_view>& fields, rawkit::TouchFrame& frame, std::string& error)
{
    frame = rawkit::TouchFrame{};
    if (fields.size() < 2) {
        error = "a frame line has its time and buttons at least; give TIME BUTTONS CONTACT...";
        return false;
    }
    const std::optional<std::int64_t> time = timeUs(fields[0]);
    if (!time) {
        error = "time " + quoted(fields[0]) + " is not a time; give milliseconds from 0 to 2147483647, "
                "with up to three decimals";
        return false;
    }
    frame.timeUs = *time;
    if (fields[1] != "-") {
        for (const char c : fields[1]) {
            const unsigned bit = c >= '1' && c <= '3' ? 1U << (c - '1') : 0U;
            if (bit == 0 || (frame.buttons & bit) != 0) {
                error = "buttons " + quoted(fields[1]) + " are not a button set; give - for none, or the pressed "
                        "buttons as 1, 2 and 3, each once";
                return false;
            }
            frame.buttons = static_cast<std::uint8_t>(frame.buttons | bit);
        }
    }
    for (std::size_t i = 2; i < fields.size(); ++i) {
        rawkit::ContactReport c;
        if (!contact(fields[i], c, error)) {
            return false;
        }
        frame.contacts.push_back(c);
    }
    return true;
}

std::string FrameLine::format(const rawkit::TouchFrame& frame)
{
    std::string line = std::to_string(frame.timeUs / 1000);
    if (const std::int64_t fraction = frame.timeUs % 1000; fraction != 0) {
        std::string digits = std::to_string(1000 + fraction).substr(1);
        while (digits.back() == '0') {
            digits.pop_back();
        }
        line += "." + digits;
    }
    line += ' ';
    for (unsigned bit = 0; bit < 3; ++bit) {
        if ((frame.buttons & (1U << bit)) != 0) {
            line += static_cast<char>('1' + bit);
        }
    }
    if ((frame.buttons & 7) == 0) {
        line += '-';
    }
    const auto optional = [](const std::optional<std::int32_t>& value) {
        return value ? std::to_string(*value) : std::string("-");
    };
    for (const rawkit::ContactReport& c : frame.contacts) {
        line += ' ' + std::to_string(c.id) + ',' + (c.tip ? '1' : '0') + ',' + (c.confidence ? '1' : '0') + ',' +
                std::to_string(c.x) + ',' + std::to_string(c.y) + ',' + optional(c.width) + ',' +
                optional(c.height) + ',' + optional(c.pressure);
    }
    return line;
}

}  // namespace padkit
