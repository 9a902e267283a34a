#include "harn5/JsonWriter.h"

#include <cmath>
#include <cstdio>

#include <cstdio>

#include "harn5/Text.h"

namespace harn5 {

void JsonWriter::separate()
{
    if (m_needComma) {
        m_text += ',';
    }
}

JsonWriter& JsonWriter::beginObject()
{
    separate();
    m_text += '{';
    m_needComma = false;
    return *this;
}

JsonWriter& JsonWriter::endObject()
{
    m_text += '}';
    m_needComma = true;
    return *this;
}

JsonWriter& JsonWriter::beginArray()
{
    separate();
    m_text += '[';
    m_needComma = false;
    return *this;
}

JsonWriter& JsonWriter::endArray()
{
    m_text += ']';
    m_needComma = true;
    return *this;
}

JsonWriter& JsonWriter::key(std::string_view name)
{
    separate();
    m_text += quote(name);
    m_text += ':';
    m_needComma = false;
    return *this;
}

JsonWriter& JsonWriter::string(std::string_view text)
{
    separate();
    m_text += quote(text);
    m_needComma = true;
    return *this;
}

JsonWriter& JsonWriter::number(long long value)
{
    separate();
    m_text += std::to_string(value);
    m_needComma = true;
    return *this;
}

JsonWriter& JsonWriter::real(double value)
{
    if (!std::isfinite(value)) {
        return null();
    }
    separate();
    char text[32];
    std::snprintf(text, sizeof text, "%.15g", value);
    m_text += text;
    m_needComma = true;
    return *this;
}

JsonWriter& JsonWriter::null()
{
    separate();
    m_text += "null";
    m_needComma = true;
    return *this;
}

const std::string& JsonWriter::text() const
{
    return m_text;
}

std::string JsonWriter::quote(std::string_view text)
{
    std::string out = "\"";
    for (std::size_t i = 0; i < text.size();) {
        const char c = text[i];
        const std::size_t length = Text::utf8SequenceLength(text, i);
        if (length == 0) {
            out += "\xEF\xBF\xBD";   // U+FFFD keeps the document valid
            ++i;
            continue;
        }
        if (length > 1) {
            out.append(text, i, length);   // UTF-8 is kept as it is
            i += length;
            continue;
        }
        ++i;
        switch (c) {
        case '"': out += "\\\""; break;
        case '\\': out += "\\\\"; break;
        case '\b': out += "\\b"; break;
        case '\f': out += "\\f"; break;
        case '\n': out += "\\n"; break;
        case '\r': out += "\\r"; break;
        case '\t': out += "\\t"; break;
        default:
            if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
                char escaped[8];
                std::snprintf(escaped, sizeof escaped, "\\u%04x", static_cast<unsigned>(c));
                out += escaped;
            } else {
                out += c;
            }
        }
    }
    return out + "\"";
}

}  // namespace harn5
