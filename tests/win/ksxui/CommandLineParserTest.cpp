// The argument vector that CommandLineParser builds for the host from the framework's calls.
#include "ksxui/CommandLineParser.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> Arguments(const ksxui::CommandLineParser& parser)
{
    std::vector<std::string> out;
    for (int i = 0; i < parser.argc(); ++i) {
        out.emplace_back(parser.argv()[i]);
    }
    return out;
}

TEST(CommandLineParser, StartsWithTheModuleFileNameAlone)
{
    const ksxui::CommandLineParser parser(ksx::String("kstrmouse.kmx"));
    ASSERT_EQ(1, parser.argc());
    EXPECT_STREQ("kstrmouse.kmx", parser.argv()[0]);
    EXPECT_EQ(nullptr, parser.argv()[1]);
}

TEST(CommandLineParser, KeepsArgumentsAsTypedAndAsUtf8)
{
    // As ParseCommandLine delivers them: a flag arrives one character into its argument.
    const wchar_t* const typed[] = {L"--test", L"MouseTest", L"/param", L"bX=1", L"--report",
                                    L"/tmp/r.json", L"-", L"a b", L"\u00dcn\u00ef", L"\u20ac"};
    ksxui::CommandLineParser parser(ksx::String("kstrmouse.kmx"));
    for (size_t i = 0; i < std::size(typed); ++i) {
        const bool flag = typed[i][0] == L'-' || typed[i][0] == L'/';
        parser.ParseParam(typed[i] + (flag ? 1 : 0), flag, i + 1 == std::size(typed));
    }
    const std::vector<std::string> expected = {
        "kstrmouse.kmx", "--test", "MouseTest", "/param", "bX=1", "--report", "/tmp/r.json", "-", "a b",
        "\xc3\x9cn\xc3\xaf", "\xe2\x82\xac",
    };
    EXPECT_EQ(expected, Arguments(parser));
    EXPECT_EQ(nullptr, parser.argv()[parser.argc()]);
}

}  // namespace
