#include "harn5/AtomicFile.h"

#include <cstdio>
#include <fstream>

#ifdef _WIN32
#include <windows.h>
#endif

#include "harn5/HarnException.h"
#include "harn5/Text.h"

namespace harn5 {

void AtomicFile::replace(const std::filesystem::path& target, const std::string& content)
{
    std::filesystem::path temporary = target;
    temporary += ".tmp";
    {
        std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
        out.write(content.data(), static_cast<std::streamsize>(content.size()));
        out.flush();
        if (!out) {
            throw HarnException(HarnString(Text::fromPath(target) +
                                           ": the report cannot be written (is the folder writable?)"));
        }
    }
#ifdef _WIN32
    // Replaces the target in one step; readers never see a missing or half-written report.
    const bool renamed = MoveFileExW(temporary.c_str(), target.c_str(),
                                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
#else
    const bool renamed = std::rename(temporary.c_str(), target.c_str()) == 0;
#endif
    if (!renamed) {
        std::error_code ignored;
        std::filesystem::remove(temporary, ignored);
        throw HarnException(HarnString(Text::fromPath(target) + ": the report cannot be replaced"));
    }
}

}  // namespace harn5
