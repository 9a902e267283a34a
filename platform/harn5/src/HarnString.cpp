#include "harn5/HarnString.h"

namespace harn5 {

HarnString::HarnString() = default;

HarnString::HarnString(const char* utf8) : m_text(utf8), m_utf8(utf8 ? utf8 : "") {}

HarnString::HarnString(const std::string& utf8) : m_text(utf8), m_utf8(utf8) {}

HarnString::HarnString(const ksx::String& text) : m_text(text), m_utf8(text.utf8()) {}

const char* HarnString::getUTF8Buffer() const
{
    return m_utf8.c_str();
}

const unsigned short* HarnString::getUCS2Buffer() const
{
    return m_text.getUCS2Buffer();
}

const ksx::String& HarnString::ksxString() const
{
    return m_text;
}

const std::string& HarnString::utf8() const
{
    return m_utf8;
}

bool HarnString::empty() const
{
    return m_utf8.empty();
}

bool HarnString::operator==(const HarnString& other) const
{
    return m_utf8 == other.m_utf8;
}

bool HarnString::operator!=(const HarnString& other) const
{
    return m_utf8 != other.m_utf8;
}

bool HarnString::operator<(const HarnString& other) const
{
    return m_utf8 < other.m_utf8;
}

HarnString operator+(const HarnString& left, const HarnString& right)
{
    return HarnString(left.utf8() + right.utf8());
}

}  // namespace harn5
