#include "harn5/Value.h"

#include <optional>
#include <utility>

#include "harn5/HarnException.h"
#include "harn5/ParameterParser.h"

namespace harn5 {

namespace {
std::string joined(const std::vector<HarnString>& items)
{
    std::string text;
    for (std::size_t i = 0; i < items.size(); ++i) {
        text += (i == 0 ? "" : ";") + items[i].utf8();
    }
    return text;
}

[[noreturn]] void throwNotA(const HarnString& text, const char* what)
{
    throw HarnException(HarnString("value \"" + text.utf8() + "\" is not " + what));
}
}  // namespace

Value::Value() = default;

Value::Value(const ksx::String& text) : Value(HarnString(text)) {}

Value::Value(const HarnString& text) : m_text(text)
{
    if (!text.empty()) {
        m_items.push_back(text);
    }
}

Value::Value(std::vector<HarnString> items) : m_text(joined(items)), m_items(std::move(items)) {}

bool Value::valueBool() const
{
    if (m_text.empty()) {
        return false;
    }
    const std::optional<bool> parsed = ParameterParser::parseBoolean(m_text.utf8());
    if (!parsed) {
        throwNotA(m_text, "a boolean (true/false, 1/0, yes/no)");
    }
    return *parsed;
}

int Value::valueInt32() const
{
    if (m_text.empty()) {
        return 0;
    }
    const std::optional<int> parsed = ParameterParser::parseInt32(m_text.utf8());
    if (!parsed) {
        throwNotA(m_text, "a decimal 32-bit integer");
    }
    return *parsed;
}

unsigned int Value::valueUint32() const
{
    if (m_text.empty()) {
        return 0;
    }
    const std::optional<unsigned int> parsed = ParameterParser::parseUint32(m_text.utf8());
    if (!parsed) {
        throwNotA(m_text, "a decimal number from 0 to 4294967295");
    }
    return *parsed;
}

const HarnString& Value::valueString() const
{
    return m_text;
}

unsigned int Value::stringArraySize() const
{
    return static_cast<unsigned int>(m_items.size());
}

const HarnString& Value::getStringInArray(unsigned int index) const
{
    if (index >= m_items.size()) {
        throw HarnException(HarnString("string array index " + std::to_string(index) +
                                       " is past the end: the array holds " +
                                       std::to_string(m_items.size()) + " element(s)"));
    }
    return m_items[index];
}

}  // namespace harn5
