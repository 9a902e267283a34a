#pragma once
// Builds one JSON text with proper escaping; UTF-8 is kept as it is.
#include <string>
#include <string_view>

namespace harn5 {

class JsonWriter {
public:
    JsonWriter& beginObject();
    JsonWriter& endObject();
    JsonWriter& beginArray();
    JsonWriter& endArray();
    JsonWriter& key(std::string_view name);
    JsonWriter& string(std::string_view text);
    JsonWriter& number(long long value);
    // Up to 15 significant digits; a value JSON cannot hold (infinite, not a number) is null.
    JsonWriter& real(double value);
    JsonWriter& null();

    const std::string& text() const;
    static std::string quote(std::string_view text);

private:
    void separate();

    std::string m_text;
    bool m_needComma = false;
};

}  // namespace harn5
