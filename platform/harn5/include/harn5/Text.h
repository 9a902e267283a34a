#pragma once
// Small text helpers shared by the host's parsers and writers (UTF-8 throughout).
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace harn5 {

class Text {
public:
    static std::string trim(std::string_view text);             // blanks and tabs
    static std::vector<std::string> split(std::string_view text, char separator);
    static std::string lower(std::string_view text);            // ASCII letters only
    // Length of the well-formed UTF-8 sequence at text[index], or 0 when it is not one.
    static std::size_t utf8SequenceLength(std::string_view text, std::size_t index);
    static bool isValidUtf8(std::string_view text);
    // Control characters but tab written as \xNN, for messages that quote outside text: a NUL
    // would cut them short where they are read as C strings, a line end would split them.
    static std::string visible(std::string_view text);
    static std::string fromPath(const std::filesystem::path& path);   // UTF-8
    static std::filesystem::path toPath(const std::string& utf8);
};

}  // namespace harn5
