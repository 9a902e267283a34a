#pragma once
// A text file read whole, refused above a size limit before more than the limit is read: a
// device file or a pipe may never end, and a file of gigabytes is no text the module reads.
#include <cstddef>
#include <filesystem>
#include <string>

namespace harn5 {

class TextFile {
public:
    // Larger than any text the module reads by far (its language files are a few kilobytes).
    static constexpr std::size_t kMostBytes = 1024 * 1024;

    // The whole file. Throws HarnException "<file>: the <what> cannot be read" or
    // "<file>: the <what> is larger than 1024 KB; ...".
    static std::string read(const std::filesystem::path& file, const std::string& what,
                            std::size_t mostBytes = kMostBytes);
};

}  // namespace harn5
