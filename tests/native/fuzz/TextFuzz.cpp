// Outside text on its way between UTF-8 and UTF-16 and into the JSON report. The input is read
// as UTF-8 bytes and as UTF-16 code units. Decoding always gives text that encodes to valid
// UTF-8; valid UTF-8 comes back byte for byte, and only valid UTF-8 does; UTF-16 without lone
// surrogates comes back unit for unit; a quoted JSON string always parses, to the same text
// when that was valid UTF-8.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include <nlohmann/json.hpp>

#include "Promise.h"
#include "harn5/JsonWriter.h"
#include "harn5/Text.h"
#include "ksx/String.h"

using harn5::Text;

namespace {

bool hasLoneSurrogate(const std::u16string& text)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool high = text[i] >= 0xD800 && text[i] <= 0xDBFF;
        const bool low = text[i] >= 0xDC00 && text[i] <= 0xDFFF;
        if (high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF) {
            ++i;
        } else if (high || low) {
            return true;
        }
    }
    return false;
}

void fromUtf8(const std::string& bytes)
{
    const ksx::String text(bytes);
    const std::string encoded = text.utf8();
    Promise::hold(Text::isValidUtf8(encoded), "decoded text encodes to UTF-8");
    Promise::hold((encoded == bytes) == Text::isValidUtf8(bytes), "exactly valid UTF-8 comes back as it was");
    Promise::hold(ksx::String(encoded).utf16() == text.utf16(), "decoding is stable");
}

void fromUtf16(const std::string& bytes)
{
    std::u16string units(bytes.size() / 2, u'\0');
    std::memcpy(units.data(), bytes.data(), units.size() * 2);
    const std::string encoded = ksx::String(units).utf8();
    Promise::hold(Text::isValidUtf8(encoded), "UTF-16 encodes to UTF-8");
    if (!hasLoneSurrogate(units)) {
        Promise::hold(ksx::String(encoded).utf16() == units, "UTF-16 comes back as it was");
    }
}

void intoJson(const std::string& bytes)
{
    const nlohmann::json parsed = nlohmann::json::parse(harn5::JsonWriter::quote(bytes), nullptr, false);
    Promise::hold(parsed.is_string(), "a quoted text is a JSON string");
    if (Text::isValidUtf8(bytes)) {
        Promise::hold(parsed.get<std::string>() == bytes, "a quoted UTF-8 text reads back as it was");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    fromUtf8(bytes);
    fromUtf16(bytes);
    intoJson(bytes);
    return 0;
}
