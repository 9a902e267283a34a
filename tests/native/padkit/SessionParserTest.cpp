#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "padkit/SessionError.h"
#include "padkit/SessionParser.h"

using padkit::Packet;
using padkit::Session;
using padkit::SessionError;
using padkit::SessionParser;

namespace {

const std::string kHeader = "padkit-session 1\ndevice touchpad\nx-range 1472 5472\ny-range 1408 4448\n";

std::string errorOf(const std::string& text)
{
    try {
        SessionParser::parse(text, "pad.session");
    } catch (const SessionError& e) {
        EXPECT_EQ(e.reason(), SessionError::Reason::Invalid);
        return e.what();
    }
    return "(accepted)";
}

}  // namespace

TEST(SessionParser, ReadsHeaderAndPacketFields)
{
    const Session s = SessionParser::parse("# before the magic line\r\n"
                                           "padkit-session 1\r\n"
                                           "device trackpoint   # trailing comment\r\n"
                                           "x-range -127 127\r\n"
                                           "y-range\t-5  -5\r\n"
                                           "pnp-id \"LEN0042 \"\r\n"
                                           "blacklist-version \"#1\"\r\n"
                                           "\r\n"
                                           "0 1 -3 4 15 1 -100 2147483647 LRM\r\n"
                                           "2147483647\t0 0 0 0 0 0 -2147483648 -",
                                           "stick.session");
    EXPECT_EQ(s.type, SynDeviceTrackpoint);
    EXPECT_EQ(std::vector<int>({s.xLo, s.xHi, s.yLo, s.yHi}), std::vector<int>({-127, 127, -5, -5}));
    EXPECT_EQ(s.pnpId, "LEN0042 ");   // quotes keep blanks and '#'
    EXPECT_EQ(s.blacklistVersion, "#1");
    ASSERT_EQ(s.packets.size(), 2u);
    const Packet& p = s.packets[0];
    EXPECT_TRUE(p.finger && p.motion && p.left && p.right && p.middle);
    EXPECT_EQ(std::vector<int>({p.x, p.y, p.width, p.stickX, p.stickY}),
              std::vector<int>({-3, 4, 15, -100, 2147483647}));
    const Packet& q = s.packets[1];
    EXPECT_FALSE(q.finger || q.motion || q.left || q.right || q.middle);
    EXPECT_EQ(q.stickY, -2147483647 - 1);
    EXPECT_EQ(q.timeMs, 2147483647);

    const Session bare = SessionParser::parse(kHeader, "pad.session");
    EXPECT_FALSE(bare.pnpId || bare.blacklistVersion);
    EXPECT_TRUE(bare.packets.empty());
}

TEST(SessionParser, ErrorsNameTheLineTheProblemAndWhatIsAllowed)
{
    const std::string packet = "0 1 3000 3000 4 1 0 0 -\n";
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", "pad.session:1: the file holds no session; the first line must be \"padkit-session 1\""},
        {"\n# comment\npadkit-session 3\n", "pad.session:3: \"padkit-session 3\" does not begin a session"},
        {"padkit-session 1\n", "pad.session:1: the header lacks device, x-range, y-range at the end of the file"},
        {"padkit-session 1\ndevice touchpad\n" + packet, "pad.session:3: the header lacks x-range, y-range before the first packet"},
        {"padkit-session 1\ndevice mouse\n", "pad.session:2: device \"mouse\" is not known; give touchpad or trackpoint"},
        {kHeader + "pnp-id A\npnp-id B\n", "pad.session:6: pnp-id is given twice; give it once"},
        {kHeader + "color red\n", "pad.session:5: unknown header line \"color\"; the header has device, x-range"},
        {"padkit-session 1\nx-range 5 4\n", "pad.session:2: x-range \"5 4\" runs backwards; give two whole numbers LOW HIGH with LOW <= HIGH"},
        {"padkit-session 1\ny-range +1 2147483648\n", "pad.session:2: y-range: \"+1\" is not a whole number"},
        {kHeader + "pnp-id\n", "pad.session:5: pnp-id has no value; give it, or \"\" for an empty one"},
        {kHeader + "pnp-id a\"b\n", "pad.session:5: pnp-id \"a\"b\" has a stray double quote"},
        {kHeader + packet + "pnp-id X\n", "pad.session:6: \"pnp-id\" after the first packet; header lines come before the packets"},
        {kHeader + "0 1 3000 3000 4 1 0 0\n", "pad.session:5: a packet has 9 fields, this line 8; give TIME FINGER X Y"},
        {kHeader + "2147483648 1 3000 3000 4 1 0 0 -\n", "time \"2147483648\" is not a time; give milliseconds from 0 to 2147483647"},
        {kHeader + "10 1 3000 3000 4 1 0 0 -\n9 1 3000 3000 4 1 0 0 -\n", "pad.session:6: time \"9\" is before the previous packet's 10"},
        {kHeader + "0 2 3000 3000 4 1 0 0 -\n", "pad.session:5: finger \"2\" is not a flag; give 0 or 1"},
        {kHeader + "0 1 3e3 3000 4 1 0 0 -\n", "pad.session:5: x \"3e3\" is not a whole number; give one from -2147483648"},
        {kHeader + "0 1 3000 3000 16 1 0 0 -\n", "pad.session:5: width \"16\" is not a finger width; give 0 to 15"},
        {kHeader + "0 1 3000 3000 4 1 0 0 LL\n", "pad.session:5: buttons \"LL\" are not a button set; give - for none"},
        {kHeader + "0 1 3000 3000 4 1 0 0 " + std::string(100, 'X') + "\n", "buttons \"" + std::string(40, 'X') + "...\" are"},
        // Saved as UTF-16: the NULs are shown, not taken for the end of the message.
        {std::string("p\0a\0d\0\r", 7) + "\n", "pad.session:1: \"p\\x00a\\x00d\\x00\" does not begin a session; the first"},
    };
    for (const auto& [text, expected] : cases) {
        const std::string message = errorOf(text);
        EXPECT_NE(message.find(expected), std::string::npos) << "input:\n" << text << "\nmessage: " << message;
    }
}

TEST(SessionParser, LoadTellsAnUnreadableFileFromAnInvalidOne)
{
    const std::filesystem::path source(KSTR_SOURCE_DIR);
    for (const std::filesystem::path& unreadable : {source / "no-such.session", source}) {
        try {
            SessionParser::load(unreadable);
            ADD_FAILURE() << unreadable << " loaded";
        } catch (const SessionError& e) {
            EXPECT_EQ(e.reason(), SessionError::Reason::Unreadable) << e.what();
        }
    }
    try {
        SessionParser::load(source / "CMakeLists.txt");
        ADD_FAILURE() << "a build script loaded";
    } catch (const SessionError& e) {
        EXPECT_EQ(e.reason(), SessionError::Reason::Invalid);
        EXPECT_NE(std::string(e.what()).find("CMakeLists.txt:1: "), std::string::npos) << e.what();
    }
}

TEST(SessionParser, ShippedSessionsAreWhatTheirNamesSay)
{
    const auto load = [](const char* name) {
        return SessionParser::load(std::filesystem::path(KSTR_SOURCE_DIR) / "resources" / "padkit-sessions" / name);
    };
    // Which of finger, left, right, middle and stick any packet of the session shows.
    const auto shown = [](const Session& s) {
        std::string seen;
        for (const auto& [mark, test] : std::vector<std::pair<char, bool (*)(const Packet&)>>{
                 {'F', [](const Packet& p) { return p.finger; }}, {'L', [](const Packet& p) { return p.left; }},
                 {'R', [](const Packet& p) { return p.right; }}, {'M', [](const Packet& p) { return p.middle; }},
                 {'S', [](const Packet& p) { return p.stickX != 0 || p.stickY != 0; }}}) {
            for (const Packet& p : s.packets) {
                if (test(p)) {
                    seen += mark;
                    break;
                }
            }
        }
        return seen;
    };
    EXPECT_EQ(shown(load("touchpad-complete.session")), "FLR");
    EXPECT_EQ(shown(load("touchpad-middle-only.session")), "FM");
    EXPECT_EQ(shown(load("trackpoint-buttons.session")), "LRMS");
    EXPECT_EQ(shown(load("trackpoint-stick-only.session")), "S");
    const Session empty = load("touchpad-empty-range.session");
    EXPECT_EQ(empty.xLo, empty.xHi);
    EXPECT_TRUE(load("touchpad-blacklisted.session").blacklistVersion.has_value());
    EXPECT_EQ(load("trackpoint-buttons.session").type, SynDeviceTrackpoint);
}
