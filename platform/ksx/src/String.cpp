#include "ksx/String.h"

#include <cstdarg>
#include <cstdio>
#include <string_view>
#include <vector>

namespace ksx {

namespace {

constexpr char16_t kReplacement = 0xFFFD;

void appendCodePoint(std::u16string& out, char32_t cp)
{
    if (cp < 0x10000) {
        out.push_back(static_cast<char16_t>(cp));
    } else {
        cp -= 0x10000;
        out.push_back(static_cast<char16_t>(0xD800 + (cp >> 10)));
        out.push_back(static_cast<char16_t>(0xDC00 + (cp & 0x3FF)));
    }
}

// Each ill-formed stretch (the longest prefix of a well-formed sequence, or one stray byte)
// becomes one U+FFFD, the replacement practice Unicode recommends, so overlong forms, encoded
// surrogates and code points past U+10FFFF never come through.
std::u16string decodeUtf8(std::string_view in)
{
    std::u16string out;
    out.reserve(in.size());
    std::size_t i = 0;
    while (i < in.size()) {
        const auto lead = static_cast<unsigned char>(in[i++]);
        if (lead < 0x80) {
            out.push_back(lead);
            continue;
        }
        int trailing = 0;
        char32_t cp = 0;
        unsigned char low = 0x80;
        unsigned char high = 0xBF;
        if (lead >= 0xC2 && lead <= 0xDF) {
            trailing = 1;
            cp = lead & 0x1F;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            trailing = 2;
            cp = lead & 0x0F;
            if (lead == 0xE0) low = 0xA0;        // overlong below U+0800
            else if (lead == 0xED) high = 0x9F;  // U+D800..U+DFFF
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            trailing = 3;
            cp = lead & 0x07;
            if (lead == 0xF0) low = 0x90;        // overlong below U+10000
            else if (lead == 0xF4) high = 0x8F;  // above U+10FFFF
        } else {
            out.push_back(kReplacement);
            continue;
        }
        bool complete = true;
        for (; trailing > 0; --trailing) {
            const auto next = i < in.size() ? static_cast<unsigned char>(in[i]) : 0;
            if (i >= in.size() || next < low || next > high) {
                complete = false;
                break;
            }
            cp = (cp << 6) | (next & 0x3F);
            ++i;
            low = 0x80;
            high = 0xBF;
        }
        if (complete) appendCodePoint(out, cp);
        else out.push_back(kReplacement);
    }
    return out;
}

void appendUtf8(std::string& out, char32_t cp)
{
    if (cp < 0x80) {
        out.push_back(static_cast<char>(cp));
    } else if (cp < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else if (cp < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    }
}

bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

// Unpaired surrogates have no UTF-8 form; they become U+FFFD.
std::string encodeUtf8(std::u16string_view in)
{
    std::string out;
    out.reserve(in.size());
    for (std::size_t i = 0; i < in.size(); ++i) {
        const char16_t unit = in[i];
        if (isHighSurrogate(unit) && i + 1 < in.size() && isLowSurrogate(in[i + 1])) {
            appendUtf8(out, 0x10000 + ((char32_t(unit) - 0xD800) << 10) + (in[i + 1] - 0xDC00));
            ++i;
        } else if (isHighSurrogate(unit) || isLowSurrogate(unit)) {
            appendUtf8(out, kReplacement);
        } else {
            appendUtf8(out, unit);
        }
    }
    return out;
}

// Simple one-to-one lower-case mapping for the scripts that device names and identifiers use:
// ASCII, Latin-1, Latin Extended-A, Greek and Cyrillic.
char16_t foldCase(char16_t c)
{
    if (c >= u'A' && c <= u'Z') return c + 0x20;
    if (c < 0xC0) return c;
    if (c <= 0xDE) return c == 0xD7 ? c : c + 0x20;
    if (c >= 0x0100 && c <= 0x017F) {
        if (c == 0x0178) return 0x00FF;
        const bool evenUpper = (c <= 0x0137) || (c >= 0x014A && c <= 0x0177);
        const bool oddUpper = (c >= 0x0139 && c <= 0x0148) || (c >= 0x0179 && c <= 0x017E);
        if ((evenUpper && c % 2 == 0 && c != 0x0130) || (oddUpper && c % 2 == 1)) return c + 1;
        return c;
    }
    if (c >= 0x0391 && c <= 0x03A9 && c != 0x03A2) return c + 0x20;
    if (c >= 0x0410 && c <= 0x042F) return c + 0x20;
    if (c >= 0x0400 && c <= 0x040F) return c + 0x50;
    return c;
}

// The Unicode White_Space characters of the Basic Multilingual Plane.
bool isWhiteSpace(char16_t c)
{
    return (c >= 0x09 && c <= 0x0D) || c == 0x20 || c == 0x85 || c == 0xA0 || c == 0x1680 ||
           (c >= 0x2000 && c <= 0x200A) || c == 0x2028 || c == 0x2029 || c == 0x202F ||
           c == 0x205F || c == 0x3000;
}

}  // namespace

String::String(const char* utf8) : m_text(utf8 ? decodeUtf8(utf8) : std::u16string())
{
}

String::String(const unsigned short* utf16)
{
    *this = utf16;
}

String::String(const std::string& utf8) : m_text(decodeUtf8(utf8))
{
}

String::String(const std::u16string& utf16) : m_text(utf16)
{
}

String& String::operator=(const unsigned short* utf16)
{
    std::u16string text;
    for (const unsigned short* p = utf16; p && *p; ++p) text.push_back(static_cast<char16_t>(*p));
    m_text = std::move(text);
    return *this;
}

String& String::operator+=(const String& other)
{
    m_text += other.m_text;
    return *this;
}

String& String::append(const String& other)
{
    return *this += other;
}

String& String::append(const char* utf8)
{
    if (utf8) m_text += decodeUtf8(utf8);
    return *this;
}

bool String::empty() const
{
    return m_text.empty();
}

bool String::equalNoCase(const String& other) const
{
    if (m_text.size() != other.m_text.size()) return false;
    for (std::size_t i = 0; i < m_text.size(); ++i) {
        if (foldCase(m_text[i]) != foldCase(other.m_text[i])) return false;
    }
    return true;
}

String& String::trim()
{
    std::size_t end = m_text.size();
    while (end > 0 && isWhiteSpace(m_text[end - 1])) --end;
    std::size_t begin = 0;
    while (begin < end && isWhiteSpace(m_text[begin])) ++begin;
    m_text = m_text.substr(begin, end - begin);
    return *this;
}

const unsigned short* String::getUCS2Buffer() const
{
    // char16_t and unsigned short share size and representation; Win32 takes the latter.
    return reinterpret_cast<const unsigned short*>(m_text.c_str());
}

CString String::getUTF8String() const
{
    return CString(utf8());
}

std::string String::utf8() const
{
    return encodeUtf8(m_text);
}

String operator+(const char* left, const String& right)
{
    String result(left);
    result += right;
    return result;
}

String operator+(const String& left, const String& right)
{
    String result(left);
    result += right;
    return result;
}

String SprintfFormat(const char* format, ...)
{
    if (!format) return String();
    va_list args;
    va_start(args, format);
    va_list measure;
    va_copy(measure, args);
    const int length = std::vsnprintf(nullptr, 0, format, measure);
    va_end(measure);
    if (length < 0) {
        va_end(args);
        return String();
    }
    std::vector<char> buffer(static_cast<std::size_t>(length) + 1);
    std::vsnprintf(buffer.data(), buffer.size(), format, args);
    va_end(args);
    return String(std::string(buffer.data(), static_cast<std::size_t>(length)));
}

}  // namespace ksx
