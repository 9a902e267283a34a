#pragma once
// Handle of a registered text key. Its text comes from the host's current language, with
// "%name%" replaced by the variables set on the handle; variables persist on the handle.
#include <map>
#include <string>

#include "harn5/HarnString.h"
#include "harn5/Value.h"

namespace harn5 {

class Language;

class LocalizedString {
public:
    LocalizedString(const HarnString& key, const Language& language);
    LocalizedString(const LocalizedString&) = delete;
    LocalizedString& operator=(const LocalizedString&) = delete;

    // Recomputed on every call; the reference is to text kept in the handle.
    const HarnString& localizedString() const;
    LocalizedString* setVariable(const HarnString& name, const Value& value);

    const HarnString& key() const;

private:
    HarnString m_key;
    const Language& m_language;
    std::map<std::string, std::string> m_variables;
    mutable HarnString m_text;
};

}  // namespace harn5
