#include "harn5/Language.h"

#include <algorithm>

#include "harn5/HarnException.h"
#include "harn5/Text.h"
#include "harn5/TextFile.h"
#include "ksx/Log.h"

namespace harn5 {

namespace {

ksx::Logger* s_log = nullptr;

// Letters, digits and the characters of `extra`; not empty.
bool validName(std::string_view name, std::string_view extra)
{
    for (const char c : name) {
        const bool alnum = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
        if (!alnum && extra.find(c) == std::string_view::npos) {
            return false;
        }
    }
    return !name.empty();
}

// Throws "<source>:<line>: <what>".
[[noreturn]] void failAt(const std::string& source, std::size_t line, const std::string& what)
{
    throw HarnException(HarnString(source + ":" + std::to_string(line) + ": " + what));
}

std::string unescape(std::string_view text, const std::string& source, std::size_t line)
{
    const auto fail = [&](const std::string& what) { failAt(source, line, what); };
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            out += text[i];
            continue;
        }
        if (++i == text.size()) {
            fail("a lone '\\' ends the line; write \\\\ for a backslash");
        }
        switch (text[i]) {
        case 'n': out += '\n'; break;
        case 'r': out += '\r'; break;
        case 't': out += '\t'; break;
        case '\\': out += '\\'; break;
        default: fail(std::string("unknown escape \\") + text[i] + "; valid: \\n \\r \\t \\\\");
        }
    }
    return out;
}

}  // namespace

Language::Language() = default;

Language Language::load(const std::filesystem::path& file)
{
    return parse(TextFile::read(file, "language file"), Text::fromPath(file), Text::fromPath(file.stem()));
}

Language Language::parse(std::string_view content, const std::string& sourceName,
                         const std::string& defaultCode)
{
    const auto fail = [&](std::size_t line, const std::string& what) { failAt(sourceName, line, what); };
    if (content.substr(0, 3) == "\xEF\xBB\xBF") {
        content.remove_prefix(3);
    }
    Language language;
    language.m_code = defaultCode;
    language.m_nativeName = defaultCode;
    std::map<std::string, std::string>* section = nullptr;
    std::map<std::string, std::size_t> firstLine[2];   // [Tests], [Strings]: key -> line

    std::size_t lineNumber = 0;
    for (std::size_t begin = 0; begin < content.size();) {
        const std::size_t end = std::min(content.find('\n', begin), content.size());
        std::string_view raw = content.substr(begin, end - begin);
        begin = end + 1;
        ++lineNumber;
        if (!raw.empty() && raw.back() == '\r') {
            raw.remove_suffix(1);
        }
        if (!Text::isValidUtf8(raw)) {
            fail(lineNumber, "the line is not valid UTF-8; save the file as UTF-8");
        }
        const std::string line = Text::trim(raw);
        if (line.empty() || line.front() == '#') {
            continue;
        }
        if (line.front() == '@') {
            const std::size_t space = line.find_first_of(" \t");
            const std::string header = line.substr(0, space);
            const std::string argument = space == std::string::npos ? "" : Text::trim(line.substr(space));
            if (header == "@language") {
                if (!validName(argument, "-_")) {
                    fail(lineNumber, "@language needs a code such as en or de-CH");
                }
                language.m_code = argument;
            } else if (header == "@name") {
                if (argument.empty()) {
                    fail(lineNumber, "@name needs the language's own name, such as Deutsch");
                }
                language.m_nativeName = argument;
            } else if (header == "@direction") {
                if (argument != "ltr" && argument != "rtl") {
                    fail(lineNumber, "@direction is \"" + argument + "\"; valid: ltr, rtl");
                }
                language.m_rightToLeft = argument == "rtl";
            } else {
                fail(lineNumber, "unknown header \"" + header + "\"; valid: @language, @name, @direction");
            }
            continue;
        }
        if (line.front() == '[') {
            if (line == "[Tests]") {
                section = &language.m_tests;
            } else if (line == "[Strings]") {
                section = &language.m_strings;
            } else {
                fail(lineNumber, "unknown section " + line + "; valid: [Tests], [Strings]");
            }
            continue;
        }
        const std::size_t equals = line.find('=');
        if (equals == std::string::npos) {
            fail(lineNumber, "expected KEY = text, a [section], an @header or a # comment");
        }
        const std::string key = Text::trim(std::string_view(line).substr(0, equals));
        if (!validName(key, "_.-")) {
            fail(lineNumber, key.empty() ? std::string("the key before '=' is missing")
                                         : "key \"" + key + "\" may hold only letters, digits, '_', '.' and '-'");
        }
        if (section == nullptr) {
            fail(lineNumber, "\"" + key + "\" comes before any [Tests] or [Strings] section");
        }
        auto& lines = firstLine[section == &language.m_tests ? 0 : 1];
        if (const auto earlier = lines.find(key); earlier != lines.end()) {
            fail(lineNumber, "key \"" + key + "\" is already defined on line " +
                                 std::to_string(earlier->second));
        }
        lines.emplace(key, lineNumber);
        (*section)[key] = unescape(Text::trim(std::string_view(line).substr(equals + 1)), sourceName, lineNumber);
    }
    return language;
}

const std::string& Language::code() const
{
    return m_code;
}

const std::string& Language::nativeName() const
{
    return m_nativeName;
}

bool Language::rightToLeft() const
{
    return m_rightToLeft;
}

const std::string* Language::find(Section section, const std::string& key) const
{
    const auto& texts = section == Section::Tests ? m_tests : m_strings;
    const auto found = texts.find(key);
    return found == texts.end() ? nullptr : &found->second;
}

std::string Language::lookup(Section section, const std::string& key) const
{
    if (const std::string* text = find(section, key)) {
        return *text;
    }
    const char* sectionName = section == Section::Tests ? "[Tests]" : "[Strings]";
    if (m_reportedMissing.insert(std::string(sectionName) + key).second) {
        // A missing text shows the user a key; a missing test name shows the test's own name,
        // which reads well enough to be only a debugging note.
        const auto priority = section == Section::Strings ? ksx::LoggerPriority::PRIORITY_WARNING
                                                          : ksx::LoggerPriority::PRIORITY_DEBUG;
        if (ksx::Logger* log = ksx::passingLogger(s_log, "harn5", priority)) {
            log->log(priority, ksx::LoggerStream() + "language \"" + m_code.c_str() +
                                           "\" has no " + sectionName + " text for \"" +
                                           key.c_str() + "\"; showing the key");
        }
    }
    return key;
}

}  // namespace harn5
