// Language files: parsing gives a language or a HarnException "fuzz.lang:LINE: ...". Every text
// of an accepted file is UTF-8 that reaches UTF-16 and comes back intact, and a variable set to
// its own "%name%" leaves the text as it was, whatever '%' signs surround it.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "Promise.h"
#include "harn5/HarnException.h"
#include "harn5/Language.h"
#include "harn5/LocalizedString.h"
#include "harn5/Text.h"

using namespace harn5;

namespace {

void checkText(const Language& language, const std::string& key, const std::string& text)
{
    Promise::hold(Text::isValidUtf8(text), "a text is UTF-8");
    Promise::hold(HarnString(text).ksxString().utf8() == text, "a text survives UTF-16");
    LocalizedString localized(HarnString(key), language);
    localized.setVariable("v", HarnString("%v%"));
    Promise::hold(localized.localizedString().utf8() == text, "a variable set to its own %name% changes nothing");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view content(reinterpret_cast<const char*>(data), size);
    try {
        const Language language = Language::parse(content, "fuzz.lang", "xx");
        Promise::hold(!language.code().empty() && !language.nativeName().empty(), "a language has a code and a name");
        // The keys are what stands before '=' on a line; the ones the file defines have texts.
        for (const std::string& line : Text::split(content, '\n')) {
            const std::string key = Text::trim(line.substr(0, line.find('=')));
            if (const std::string* text = language.find(Language::Section::Strings, key)) {
                checkText(language, key, *text);
            }
            if (const std::string* text = language.find(Language::Section::Tests, key)) {
                Promise::hold(Text::isValidUtf8(*text), "a test's name is UTF-8");
            }
        }
    } catch (const HarnException& error) {
        Promise::refusal(error, "fuzz.lang:");
    }
    return 0;
}
