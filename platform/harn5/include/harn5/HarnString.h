#pragma once
// Text of the host library: kept as UTF-16 (for Win32 text calls) and as UTF-8 (for files and
// streams); both buffers live in the object and stay valid while it lives unchanged.
#include <string>

#include "ksx/String.h"

namespace harn5 {

class HarnString {
public:
    HarnString();
    HarnString(const char* utf8);              // NUL-terminated UTF-8; null gives the empty text
    HarnString(const std::string& utf8);
    HarnString(const ksx::String& text);

    const char* getUTF8Buffer() const;
    const unsigned short* getUCS2Buffer() const;
    const ksx::String& ksxString() const;
    const std::string& utf8() const;
    bool empty() const;

    bool operator==(const HarnString& other) const;
    bool operator!=(const HarnString& other) const;
    bool operator<(const HarnString& other) const;

private:
    ksx::String m_text;
    std::string m_utf8;
};

HarnString operator+(const HarnString& left, const HarnString& right);

}  // namespace harn5
