#include "harn5/ParameterParser.h"

#include <cctype>
#include <charconv>
#include <string>

#include "harn5/HarnException.h"
#include "harn5/Text.h"

namespace harn5 {

namespace {
[[noreturn]] void reject(const Parameter& parameter, const std::string& text, const char* valid)
{
    throw HarnException(HarnString("--param " + parameter.name().utf8() + "=" + text + ": \"" +
                                   text + "\" is not a valid " + parameter.type().name() +
                                   " value; give " + valid));
}
}  // namespace

std::optional<bool> ParameterParser::parseBoolean(std::string_view text)
{
    const std::string word = Text::lower(text);
    if (word == "true" || word == "1" || word == "yes") {
        return true;
    }
    if (word == "false" || word == "0" || word == "no") {
        return false;
    }
    return std::nullopt;
}

std::optional<unsigned int> ParameterParser::parseUint32(std::string_view text)
{
    // from_chars alone would take nothing else, but an empty text or a sign must not pass.
    if (text.empty() || !std::isdigit(static_cast<unsigned char>(text.front()))) {
        return std::nullopt;
    }
    unsigned long long number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number > 0xFFFFFFFFull) {
        return std::nullopt;
    }
    return static_cast<unsigned int>(number);
}

std::optional<int> ParameterParser::parseInt32(std::string_view text)
{
    const bool negative = !text.empty() && text.front() == '-';
    const std::string_view digits = negative ? text.substr(1) : text;
    if (digits.empty() || !std::isdigit(static_cast<unsigned char>(digits.front()))) {
        return std::nullopt;
    }
    long long number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || end != digits.data() + digits.size()) {
        return std::nullopt;
    }
    number = negative ? -number : number;
    if (number < -2147483648LL || number > 2147483647LL) {
        return std::nullopt;
    }
    return static_cast<int>(number);
}

Value ParameterParser::parse(const Parameter& parameter, const std::vector<std::string>& texts)
{
    // No text at all reads as an unset parameter does, whatever the type.
    if (texts.empty()) {
        return Value();
    }
    const std::string& name = parameter.name().utf8();
    switch (parameter.type().kind()) {
    case DataType::Kind::Boolean:
    case DataType::Kind::Uint32: {
        if (texts.size() > 1) {
            throw HarnException(HarnString("--param " + name + " is given " +
                                           std::to_string(texts.size()) + " times; a " +
                                           parameter.type().name() +
                                           " parameter takes one value"));
        }
        const std::string& text = texts.front();
        if (parameter.type().kind() == DataType::Kind::Boolean) {
            if (!parseBoolean(text)) {
                reject(parameter, text, "true, false, 1, 0, yes or no");
            }
        } else if (!parseUint32(text)) {
            reject(parameter, text, "a decimal number from 0 to 4294967295");
        }
        return Value(HarnString(text));
    }
    case DataType::Kind::StringArray: {
        // Each repetition adds elements; one value may hold several separated by ';'.
        std::vector<HarnString> items;
        for (const std::string& text : texts) {
            for (const std::string& part : Text::split(text, ';')) {
                if (std::string item = Text::trim(part); !item.empty()) {
                    items.emplace_back(item);
                }
            }
        }
        return Value(std::move(items));
    }
    }
    return Value();
}

}  // namespace harn5
