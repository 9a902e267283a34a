#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "ksx/Exception.h"
#include "ksx/KSXValue.h"
#include "ksx/String.h"

namespace {

struct DecodeCase {
    const char* what;
    std::string utf8;
    std::u16string utf16;
};
void PrintTo(const DecodeCase& c, std::ostream* os) { *os << c.what; }

class Utf8Decoding : public ::testing::TestWithParam<DecodeCase> {};

TEST_P(Utf8Decoding, GivesOneReplacementPerIllFormedStretch)
{
    EXPECT_EQ(ksx::String(GetParam().utf8.c_str()).utf16(), GetParam().utf16);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, Utf8Decoding,
    ::testing::Values(DecodeCase{"multibyte", "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x96\xB1", u"\u00E9\u20AC\U0001F5B1"},
                      DecodeCase{"lone_continuation", "a\x80" "b", u"a\uFFFDb"},
                      DecodeCase{"overlong", "\xC0\xAF\xE0\x80\xAF", u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
                      DecodeCase{"encoded_surrogate", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
                      DecodeCase{"beyond_10FFFF", "\xF4\x90\x80\x80\xF5", u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
                      DecodeCase{"truncated", "\xE2\x82" "x\xF0\x9F\x96", u"\uFFFDx\uFFFD"},
                      DecodeCase{"lead_after_lead", "\xC3\xC3\xA9", u"\uFFFD\u00E9"}),
    [](const auto& p) { return std::string(p.param.what); });

TEST(String, EveryCodePointSurvivesTheRoundTrip)
{
    for (char32_t cp = 0; cp <= 0x10FFFF; ++cp) {
        if (cp >= 0xD800 && cp <= 0xDFFF) continue;
        std::u16string one;
        if (cp < 0x10000) one.push_back(static_cast<char16_t>(cp));
        else one = {char16_t(0xD800 + ((cp - 0x10000) >> 10)), char16_t(0xDC00 + ((cp - 0x10000) & 0x3FF))};
        ASSERT_EQ(ksx::String(ksx::String(one).utf8()).utf16(), one) << std::hex << static_cast<unsigned long>(cp);
    }
    const std::u16string unpaired{u'a', char16_t(0xD800), u'b', char16_t(0xDC00)};
    EXPECT_STREQ(ksx::String(unpaired).getUTF8String().c_str(), "a\xEF\xBF\xBD" "b\xEF\xBF\xBD");
}

TEST(String, NullPointersGiveEmptyTextAndUcs2IsTerminated)
{
    EXPECT_TRUE(ksx::String(static_cast<const char*>(nullptr)).empty());
    const unsigned short wide[] = {'O', 'K', 0x20AC, 0};
    ksx::String text(wide);
    EXPECT_EQ(("<" + text).utf8(), "<OK\xE2\x82\xAC");
    EXPECT_EQ(text.getUCS2Buffer()[3], 0);
    text = static_cast<const unsigned short*>(nullptr);
    EXPECT_TRUE(text.empty());
}

TEST(String, TrimAndEqualNoCase)
{
    EXPECT_EQ(ksx::String(u"\u00A0 Synaptics \t\r\n\u3000").trim().utf16(), u"Synaptics");
    EXPECT_EQ(ksx::String(u" \t ").trim().utf16(), u"");
    EXPECT_EQ(ksx::String(u"\u200Bx").trim().utf16(), u"\u200Bx");   // zero width space is no white space

    const struct {
        const char* a;
        const char* b;
        bool equal;
    } cases[] = {
        {"ACPI\\SYN1234", "acpi\\syn1234", true},
        {"\xC5\x81\xC3\xB3" "d\xC5\xBA", "\xC5\x82\xC3\x93" "D\xC5\xB9", true},  // Latin-1 and Extended-A
        {"\xCE\xA3\xD0\x96\xD0\x81", "\xCF\x83\xD0\xB6\xD1\x91", true},         // Greek and Cyrillic
        {"abc", "abcd", false},
        {"\xC3\x97", "\xC3\xB7", false},   // multiplication and division signs are no case pair
    };
    for (const auto& c : cases) EXPECT_EQ(ksx::String(c.a).equalNoCase(ksx::String(c.b)), c.equal) << c.a;
}

TEST(String, SprintfFormatHasNoLengthLimit)
{
    const std::string longArgument(10000, 'x');
    EXPECT_EQ(ksx::SprintfFormat("%d:%s:%s", -42, longArgument.c_str(), "\xC3\xA9").utf8(),
              "-42:" + longArgument + ":\xC3\xA9");
}

TEST(KSXValue, GivesDecimalTextOfEveryKind)
{
    const int intMin = INT_MIN;
    const unsigned int uintMax = UINT_MAX;
    const unsigned long long ullMax = ULLONG_MAX;
    const unsigned int nil = KSXValue::nilValue();
    EXPECT_EQ(KSXValue(intMin).toString(nil).utf8(), "-2147483648");
    EXPECT_EQ(KSXValue(uintMax).toString(nil).utf8(), "4294967295");
    EXPECT_EQ(KSXValue(ullMax).toString(nil).utf8(), "18446744073709551615");
    EXPECT_THROW(KSXValue(intMin).toString(nil + 1), ksx::Exception);
}

}  // namespace
