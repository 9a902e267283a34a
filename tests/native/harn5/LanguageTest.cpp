// Language files: the format, its errors with file and line, variables, missing keys, the
// shipped English and German files, and how the host picks a language.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>

#include "HostHarness.h"
#include "harn5/HarnException.h"
#include "harn5/Language.h"
#include "harn5/LocalizedString.h"
#include "ksx/LogFactory.h"

using namespace harn5;
using Section = Language::Section;

namespace {

const std::string kLangDir = KSTR_SOURCE_DIR "/resources/lang";

// Every text key the module registers.
const std::vector<std::string> kModuleKeys = {
    "SynXCoordinate", "SynYCoordinate", "SynWidth", "SynLButtonPressed", "SynRButtonPressed",
    "SynMButtonPressed", "Yes", "No", "SynDeviceStatus", "TouchpadInstructions", "TrackpointInstructions",
    "SynButtonInstructions", "MsgMouseMoreInfo3200", "MsgMouseMoreInfo3201", "MsgMouseMoreInfo3202",
    "MsgMouseMoreInfo3203", "MsgMouseMoreInfo3204", "MsgMouseMoreInfo3205", "MsgMouseMoreInfo3206",
    "MsgMouseMoreInfo3207", "MsgMouseMoreInfo3208", "MsgMouseMoreInfoButtonOk", "MsgMouseGroupBoxInstructions",
    "MsgMouseStatusDescription", "MsgMouseDragAndDropDescription", "MsgMouseDoubleClickDescription",
    "MsgMouseGroupBoxMouseStatus", "MsgMouseLabelPosition", "MsgMouseGroupBoxDragAndDrop",
    "MsgMouseGroupBoxDoubleClick", "MsgMouseButtonLabelMoreInfo", "MsgMouseButtonLabelClose",
    "MsgMouseButtonLabelPass", "MsgMouseButtonLabelFail", "MsgMouseCancelDescription", "MsgMouseFailDescription",
    "MsgMousePassDescription", "MsgMouseMoreInfoDescription", "MOUSE_INTERACTIVE_TEST_INDEX",
    "MOUSE_LEFT_CLICK_TEST_INSTRUCTION", "MOUSE_RIGHT_CLICK_TEST_INSTRUCTION", "MOUSE_MIDDLE_CLICK_TEST_INSTRUCTION",
    "MOUSE_MIDDLE_CLICK_TEST_INSTRUCTION_TESTING_REQUIRED", "MOUSE_DOUBLE_CLICK_TEST_INSTRUCTION",
    "MOUSE_CLICK_SUCCESSFUL_COMPLETION_INSTRUCTION", "MOUSE_SIDE_BUTTON_1_TEST_INSTRUCTION",
    "MOUSE_SIDE_BUTTON_2_TEST_INSTRUCTION", "MOUSE_DRAG_TEST_INSTRUCTION", "MOUSE_POINTER_POSITION",
    "MOUSE_WHEEL_UP_TEST_INSTRUCTION", "MOUSE_WHEEL_DOWN_TEST_INSTRUCTION", "DidTestPass", "BUTTON_CANCEL",
    "BUTTON_FAIL", "BUTTON_SKIP"};
const std::vector<std::string> kModuleTests = {"TouchpadTest", "TrackPointTest", "MouseInteractiveTest", "MouseTest"};

std::string parseError(const std::string& content)
{
    try {
        Language::parse(content, "x.lang", "x");
    } catch (const HarnException& e) {
        return e.toString().utf8();
    }
    return "accepted";
}

}  // namespace

TEST(LanguageFile, ReadsHeadersSectionsEscapesAndComments)
{
    const Language language = Language::parse(
        "\xEF\xBB\xBF# comment\r\n@language he\r\n@name \xD7\xA2\xD7\x91\xD7\xA8\xD7\x99\xD7\xAA\r\n"
        "@direction rtl\r\n\r\n[Tests]\r\nMouseTest =  Maustest  \r\n[Strings]\r\n"
        "  Multi=one\\ntwo\\r\\tthree \\\\ four = five\r\n   # indented comment\nEmpty =\n",
        "he.lang", "fallback");
    EXPECT_EQ(language.code(), "he");
    EXPECT_EQ(language.nativeName(), "\xD7\xA2\xD7\x91\xD7\xA8\xD7\x99\xD7\xAA");
    EXPECT_TRUE(language.rightToLeft());
    EXPECT_EQ(*language.find(Section::Tests, "MouseTest"), "Maustest");
    EXPECT_EQ(*language.find(Section::Strings, "Multi"), "one\ntwo\r\tthree \\ four = five");
    EXPECT_EQ(*language.find(Section::Strings, "Empty"), "");
    EXPECT_EQ(language.find(Section::Strings, "MouseTest"), nullptr);   // sections are separate

    const Language plain = Language::parse("[Strings]\nYes = Ja\n", "fr.lang", "fr");
    EXPECT_EQ(plain.code(), "fr");
    EXPECT_FALSE(plain.rightToLeft());
}

TEST(LanguageFile, BadLinesAreReportedWithFileAndLine)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"[Strings]\nYes = Ja\nno equals sign\n", "x.lang:3: expected KEY = text"},
        {"Yes = Ja\n", "x.lang:1: \"Yes\" comes before any [Tests] or [Strings] section"},
        {"[Strings]\n= text\n", "x.lang:2: the key before '=' is missing"},
        {"[Strings]\nBad Key = x\n", "x.lang:2: key \"Bad Key\" may hold only"},
        {"[Strings]\nA = 1\n\nA = 2\n", "x.lang:4: key \"A\" is already defined on line 2"},
        {"[Strings]\nA = a\\qb\n", "x.lang:2: unknown escape \\q"},
        {"[Strings]\nA = ends\\\n", "x.lang:2: a lone '\\' ends the line"},
        {"[Texts]\n", "x.lang:1: unknown section [Texts]; valid: [Tests], [Strings]"},
        {"@direction up\n", "x.lang:1: @direction is \"up\"; valid: ltr, rtl"},
        {"@encoding utf-8\n", "x.lang:1: unknown header \"@encoding\""},
        {"@language\n", "x.lang:1: @language needs a code"},
        {"[Strings]\nA = \xC3\x28\n", "x.lang:2: the line is not valid UTF-8"},
        {"[Strings]\nA = \xED\xA0\x80\n", "x.lang:2: the line is not valid UTF-8"},   // a surrogate
    };
    for (const auto& [content, expected] : cases) {
        EXPECT_EQ(parseError(content).rfind(expected, 0), 0u) << parseError(content);
    }
}

TEST(LocalizedText, SubstitutesVariablesThatPersistOnTheHandle)
{
    const Language language = Language::parse(
        "[Strings]\nIndex = Step %start% of %end%\nOdd = 100% of %end%%start% %unknown% %\n", "en.lang", "en");
    LocalizedString index("Index", language);
    LocalizedString odd("Odd", language);
    EXPECT_EQ(index.localizedString().utf8(), "Step %start% of %end%");
    EXPECT_EQ(index.setVariable("start", Value(HarnString("3")))->setVariable("end", Value(HarnString("7"))), &index);
    EXPECT_EQ(index.localizedString().utf8(), "Step 3 of 7");
    index.setVariable("start", Value(HarnString("4")));
    const HarnString& first = index.localizedString();
    EXPECT_EQ(first.utf8(), "Step 4 of 7");
    EXPECT_EQ(&index.localizedString(), &first);   // text kept in the handle
    odd.setVariable("start", Value(HarnString("1")))->setVariable("end", Value(HarnString("9")));
    EXPECT_EQ(odd.localizedString().utf8(), "100% of 91 %unknown% %");
}

TEST(LocalizedText, MissingKeyShowsItsNameAndIsLoggedOnce)
{
    std::vector<std::string> lines;
    ksx::LogFactory::setSink([&lines](const std::string& line) { lines.push_back(line); });
    const Language language = Language::parse("[Strings]\nYes = Ja\n", "de.lang", "de");
    LocalizedString missing("NoSuchKey", language);
    EXPECT_EQ(missing.localizedString().utf8(), "NoSuchKey");
    EXPECT_EQ(missing.localizedString().utf8(), "NoSuchKey");
    ksx::LogFactory::resetSink();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_NE(lines[0].find("harn5 4 "), std::string::npos) << lines[0];
    EXPECT_NE(lines[0].find("NoSuchKey"), std::string::npos) << lines[0];
}

TEST(ShippedLanguages, AreCompleteAndAgree)
{
    const Language english = Language::load(kLangDir + "/en.lang");
    const Language german = Language::load(kLangDir + "/de.lang");
    EXPECT_EQ(english.code(), "en");
    EXPECT_EQ(german.code(), "de");
    for (const Language* language : {&english, &german}) {
        for (const std::string& key : kModuleKeys) {
            const std::string* text = language->find(Section::Strings, key);
            ASSERT_NE(text, nullptr) << language->code() << " lacks " << key;
            EXPECT_FALSE(text->empty()) << key;
            EXPECT_LT(text->size(), 400u) << key << " is too long for a dialog";
        }
        for (const std::string& test : kModuleTests) {
            EXPECT_NE(language->find(Section::Tests, test), nullptr) << language->code() << " lacks " << test;
        }
    }
    LocalizedString index("MOUSE_INTERACTIVE_TEST_INDEX", english);
    index.setVariable("start", Value(HarnString("2")))->setVariable("end", Value(HarnString("9")));
    EXPECT_EQ(index.localizedString().utf8(), "Step 2 of 9");
}

TEST(ShippedLanguages, GermanReachesUtf16Intact)
{
    const Language german = Language::load(kLangDir + "/de.lang");
    const LocalizedString close("MsgMouseButtonLabelClose", german);
    const LocalizedString skip("BUTTON_SKIP", german);
    const std::u16string expectedClose = u"Schlie\u00DFen";
    const std::u16string expectedSkip = u"\u00DCberspringen";
    EXPECT_EQ(std::u16string(reinterpret_cast<const char16_t*>(close.localizedString().getUCS2Buffer())),
              expectedClose);
    EXPECT_EQ(std::u16string(reinterpret_cast<const char16_t*>(skip.localizedString().getUCS2Buffer())),
              expectedSkip);
}

TEST(LanguageChoice, FollowsOptionThenSystemLanguageThenEnglish)
{
    const std::filesystem::path rtl = std::filesystem::temp_directory_path() / "harn5_rtl_test.lang";
    std::ofstream(rtl) << "@language ar\n@direction rtl\n[Tests]\nMouseTest = \xD8\xA7\xD8\xAE\xD8\xAA\xD8\xA8\xD8\xA7\xD8\xB1\n";
    struct Case {
        std::string userLanguage;
        std::vector<std::string> args;
        std::string code;
        std::string mouseTestName;
    };
    const std::vector<Case> cases = {
        {"de", {}, "de", "Maustest"},
        {"fr", {}, "en", "Mouse Test"},
        {"", {}, "en", "Mouse Test"},
        {"en", {"--lang", "de"}, "de", "Maustest"},
        {"de", {"--lang", rtl.string()}, "ar", "\xD8\xA7\xD8\xAE\xD8\xAA\xD8\xA8\xD8\xA7\xD8\xB1"},
    };
    for (const Case& c : cases) {
        HostHarness harness;
        harness.host.setUserLanguage(c.userLanguage);
        std::vector<std::string> args = c.args;
        args.push_back("--list");
        harness.run(args);
        EXPECT_EQ(harness.host.language().code(), c.code);
        EXPECT_EQ(harness.host.language().rightToLeft(), c.code == "ar");
        EXPECT_NE(harness.out.str().find("MouseTest \"" + c.mouseTestName + "\""), std::string::npos)
            << harness.out.str();
    }
    std::filesystem::remove(rtl);
}
