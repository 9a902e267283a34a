#pragma once
// Text of the core library: UTF-16 code units inside, UTF-8 at the edges.
#include <string>

#include "ksx/CString.h"

namespace ksx {

class String {
public:
    String() = default;
    String(const char* utf8);                 // NUL-terminated UTF-8; null gives the empty text
    String(const unsigned short* utf16);      // NUL-terminated UTF-16; null gives the empty text
    String(const std::string& utf8);
    String(const std::u16string& utf16);
    String(const String&) = default;
    String(String&&) noexcept = default;
    ~String() = default;

    String& operator=(const String&) = default;
    String& operator=(String&&) noexcept = default;
    String& operator=(const unsigned short* utf16);

    String& operator+=(const String& other);
    String& append(const String& other);
    String& append(const char* utf8);

    bool empty() const;
    bool equalNoCase(const String& other) const;   // simple case folding, not locale-aware
    String& trim();                                // drops surrounding white space in place

    const unsigned short* getUCS2Buffer() const;   // valid until the text changes
    CString getUTF8String() const;

    const std::u16string& utf16() const { return m_text; }
    std::string utf8() const;

    bool operator==(const String& other) const { return m_text == other.m_text; }
    bool operator!=(const String& other) const { return m_text != other.m_text; }
    bool operator<(const String& other) const { return m_text < other.m_text; }

private:
    std::u16string m_text;
};

String operator+(const char* left, const String& right);
String operator+(const String& left, const String& right);

// printf-style formatting into a String (UTF-8 format and %s arguments).
String SprintfFormat(const char* format, ...)
#if defined(__GNUC__)
    __attribute__((format(printf, 1, 2)))
#endif
    ;

}  // namespace ksx
