#include "harn5/LocalizedString.h"

#include "harn5/Language.h"

namespace harn5 {

LocalizedString::LocalizedString(const HarnString& key, const Language& language)
    : m_key(key), m_language(language)
{
}

const HarnString& LocalizedString::localizedString() const
{
    // "%name%" with a set variable is replaced; any other '%' stays as written.
    const std::string text = m_language.lookup(Language::Section::Strings, m_key.utf8());
    std::string out;
    std::size_t i = 0;
    while (i < text.size()) {
        const std::size_t open = text.find('%', i);
        if (open == std::string::npos) {
            break;
        }
        const std::size_t close = text.find('%', open + 1);
        if (close == std::string::npos) {
            break;
        }
        const auto variable = m_variables.find(text.substr(open + 1, close - open - 1));
        if (variable == m_variables.end()) {
            out.append(text, i, close - i);   // the closing '%' may open the next name
            i = close;
            continue;
        }
        out.append(text, i, open - i);
        out += variable->second;
        i = close + 1;
    }
    out.append(text, i, std::string::npos);
    m_text = HarnString(out);
    return m_text;
}

LocalizedString* LocalizedString::setVariable(const HarnString& name, const Value& value)
{
    m_variables[name.utf8()] = value.valueString().utf8();
    return this;
}

const HarnString& LocalizedString::key() const
{
    return m_key;
}

}  // namespace harn5
