// Parameter values, one text a line (as repeated --param options give them), read as each
// type. Numbers that parse print back to themselves and parse again to the same value; a value
// that parses reads back through Value unchanged; a one-value type refuses several texts; a
// string array never refuses and holds trimmed, non-empty elements without ';'.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Promise.h"
#include "harn5/DataType.h"
#include "harn5/HarnException.h"
#include "harn5/Parameter.h"
#include "harn5/ParameterParser.h"
#include "harn5/Text.h"

using namespace harn5;

namespace {

void numbers(const std::string& text)
{
    if (const std::optional<unsigned int> number = ParameterParser::parseUint32(text)) {
        Promise::hold(ParameterParser::parseUint32(std::to_string(*number)) == number, "a UINT32 prints back");
        Promise::hold(text.find_first_not_of("0123456789") == std::string::npos, "a UINT32 is digits only");
    }
    if (const std::optional<int> number = ParameterParser::parseInt32(text)) {
        Promise::hold(ParameterParser::parseInt32(std::to_string(*number)) == number, "an INT32 prints back");
    }
}

std::optional<Value> parsed(const DataType& type, const std::vector<std::string>& texts)
{
    const Parameter parameter("p", type, "");
    try {
        return ParameterParser::parse(parameter, texts);
    } catch (const HarnException& error) {
        Promise::refusal(error, "--param p");
        return std::nullopt;
    }
}

void oneValueTypes(const std::vector<std::string>& texts)
{
    const std::optional<Value> boolean = parsed(DataType::BOOLEAN(), texts);
    const std::optional<Value> uint32 = parsed(DataType::UINT32(), texts);
    if (texts.size() > 1) {
        Promise::hold(!boolean && !uint32, "a BOOLEAN or UINT32 takes one text");
    }
    if (boolean && !texts.empty()) {
        Promise::hold(boolean->valueBool() == ParameterParser::parseBoolean(texts.front()), "a BOOLEAN reads back");
    }
    if (uint32 && !texts.empty()) {
        Promise::hold(uint32->valueUint32() == ParameterParser::parseUint32(texts.front()), "a UINT32 reads back");
    }
}

void stringArray(const std::vector<std::string>& texts)
{
    const std::optional<Value> array = parsed(DataType::STRINGARRAY(), texts);
    Promise::hold(array.has_value(), "a STRINGARRAY takes any text");
    std::string joined;
    for (unsigned int i = 0; i < array->stringArraySize(); ++i) {
        const std::string& item = array->getStringInArray(i).utf8();
        Promise::hold(!item.empty() && item == Text::trim(item) && item.find(';') == std::string::npos,
                      "an element is trimmed, not empty, without ';'");
        joined += (i == 0 ? "" : ";") + item;
    }
    Promise::hold(array->valueString().utf8() == joined, "an array's text is its elements joined by ';'");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::vector<std::string> texts = text.empty() ? std::vector<std::string>() : Text::split(text, '\n');
    for (const std::string& one : texts) {
        numbers(one);
    }
    oneValueTypes(texts);
    stringArray(texts);
    return 0;
}
