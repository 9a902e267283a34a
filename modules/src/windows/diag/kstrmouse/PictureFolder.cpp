#include "PictureFolder.h"

#include "harn5/Text.h"
#include "ksx/Log.h"

namespace {

ksx::Logger* s_log = nullptr;  // "kstrmouse.pictures"
constexpr const char* kLogger = "kstrmouse.pictures";
// Source line of the missing-picture warning; log readers match on it.
constexpr int kLineMissing = 40;

bool isFile(const std::filesystem::path& path)
{
    std::error_code ignored;
    return std::filesystem::is_regular_file(path, ignored);
}

}  // namespace

PictureFolder::PictureFolder(std::filesystem::path relative, std::filesystem::path executableFolder)
    : m_relative(std::move(relative)), m_executableFolder(std::move(executableFolder))
{
}

std::filesystem::path PictureFolder::find(const std::string& name)
{
    const std::filesystem::path here = m_relative / name;
    if (isFile(here)) {
        return here;
    }
    const std::filesystem::path beside = m_executableFolder / m_relative / name;
    if (!m_executableFolder.empty() && isFile(beside)) {
        return beside;
    }
    if (m_reported.insert(name).second) {
        std::error_code ignored;
        const std::filesystem::path workingDirectory = std::filesystem::current_path(ignored);
        KSX_LOG(s_log, kLogger, ksx::LoggerPriority::PRIORITY_WARNING, kLineMissing,
                "The picture " + harn5::Text::fromPath(here) + " is missing: neither in the working directory (" +
                    harn5::Text::fromPath(workingDirectory) + ") nor at " +
                    harn5::Text::fromPath(beside.lexically_normal()) +
                    ".");
    }
    return {};
}
