#pragma once
// A whole number written alone, as the session format's fields are: no sign but a leading '-'
// for signed types, no blanks, nothing after it.
#include <charconv>
#include <optional>
#include <string_view>

namespace padkit {

template <typename Int>
std::optional<Int> wholeNumber(std::string_view text)
{
    Int value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return value;
}

}  // namespace padkit
