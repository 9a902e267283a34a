#include "padkit/SessionParser.h"

#include <fstream>
#include <sstream>

#include "padkit/SessionError.h"
#include "padkit/SessionReader.h"

namespace padkit {

Session SessionParser::parse(std::string_view text, const std::string& fileName)
{
    std::istringstream in{std::string(text)};
    return read(in, fileName);
}

Session SessionParser::read(std::istream& in, const std::string& fileName)
{
    SessionReader reader(in, fileName);
    Session session = reader.header();
    Packet packet;
    while (reader.next(packet)) {
        if (reader.frame()) {
            session.frames.push_back(*reader.frame());
        }
        session.packets.push_back(packet);
    }
    return session;
}

Session SessionParser::load(const std::filesystem::path& file)
{
    std::ifstream in;
    const std::string name = open(file, in);
    return read(in, name);
}

std::string SessionParser::open(const std::filesystem::path& file, std::ifstream& in)
{
    const std::u8string utf8 = file.u8string();
    const std::string name(utf8.begin(), utf8.end());
    std::error_code ignored;
    if (!std::filesystem::is_directory(file, ignored)) {
        in.open(file, std::ios::binary);
    }
    if (!in.is_open() || in.bad()) {
        throw SessionError(SessionError::Reason::Unreadable,
                           name + ": cannot be read; give the path of a readable session file");
    }
    return name;
}

}  // namespace padkit
