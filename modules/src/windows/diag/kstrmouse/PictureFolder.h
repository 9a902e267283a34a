#pragma once
// Where the module's picture files are: in the picture folder under the working directory, where
// the module has always looked, or else in the same folder beside the executable, so that the
// pictures are found wherever a host starts the module from. A picture found in neither place
// is logged once, at warning level, with both paths.
#include <filesystem>
#include <set>
#include <string>

class PictureFolder {
public:
    // `relative`: the folder as the module names it ("resources//kstrmouse//"), looked for under
    // the working directory and under `executableFolder`.
    PictureFolder(std::filesystem::path relative, std::filesystem::path executableFolder);

    // The file to load; empty when it is in neither place.
    std::filesystem::path find(const std::string& name);

private:
    std::filesystem::path m_relative;
    std::filesystem::path m_executableFolder;
    std::set<std::string> m_reported;
};
