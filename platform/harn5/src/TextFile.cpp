#include "harn5/TextFile.h"

#include <fstream>

#include "harn5/HarnException.h"
#include "harn5/Text.h"

namespace harn5 {

std::string TextFile::read(const std::filesystem::path& file, const std::string& what, std::size_t mostBytes)
{
    const auto fail = [&](const std::string& why) {
        throw HarnException(HarnString(Text::fromPath(file) + ": the " + what + " " + why));
    };
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        fail("cannot be read");
    }
    std::string content;
    char chunk[64 * 1024];
    // One byte past the limit is enough to refuse it.
    while (content.size() <= mostBytes && in.read(chunk, sizeof(chunk)).gcount() > 0) {
        content.append(chunk, static_cast<std::size_t>(in.gcount()));
    }
    if (in.bad()) {
        fail("cannot be read");
    }
    if (content.size() > mostBytes) {
        fail("is larger than " + std::to_string(mostBytes / 1024) + " KB; is it the right file?");
    }
    return content;
}

}  // namespace harn5
