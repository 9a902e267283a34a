#pragma once
// One language file's texts: display names of tests ([Tests]) and text keys ([Strings]).
// Format: UTF-8, "KEY = text" a line, '#' comments, escapes \n \r \t \\, header lines
// "@language <code>", "@name <native name>", "@direction ltr|rtl".
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace harn5 {

class Language {
public:
    enum class Section { Tests, Strings };

    Language();                                // no texts: every key shows its own name
    // Both throw HarnException "<source>:<line>: <what is wrong>".
    static Language load(const std::filesystem::path& file);
    static Language parse(std::string_view content, const std::string& sourceName,
                          const std::string& defaultCode);

    const std::string& code() const;
    const std::string& nativeName() const;
    bool rightToLeft() const;

    const std::string* find(Section section, const std::string& key) const;
    // The text, or the key's own name when the file lacks it (logged once per key).
    std::string lookup(Section section, const std::string& key) const;

private:
    std::string m_code = "en";
    std::string m_nativeName = "English";
    bool m_rightToLeft = false;
    std::map<std::string, std::string> m_tests;
    std::map<std::string, std::string> m_strings;
    mutable std::set<std::string> m_reportedMissing;
};

}  // namespace harn5
