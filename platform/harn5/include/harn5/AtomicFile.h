#pragma once
// Replaces a file's whole content so that readers see the old or the new file, never a part.
#include <filesystem>
#include <string>

namespace harn5 {

class AtomicFile {
public:
    // Writes a temporary file beside the target and renames it over the target; throws
    // HarnException when the folder cannot be written.
    static void replace(const std::filesystem::path& target, const std::string& content);
};

}  // namespace harn5
