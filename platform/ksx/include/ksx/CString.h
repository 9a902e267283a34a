#pragma once
// UTF-8 bytes of a ksx::String; owns its buffer.
#include <string>

namespace ksx {

class CString {
public:
    CString() = default;
    explicit CString(std::string utf8) : m_bytes(std::move(utf8)) {}
    const char* c_str() const { return m_bytes.c_str(); }
    const std::string& str() const { return m_bytes; }

private:
    std::string m_bytes;
};

}  // namespace ksx
