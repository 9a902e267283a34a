// Feeds a fuzz target's entry the files of its corpus, so that the corpus replays as an
// ordinary test where libFuzzer is not at hand (g++). Arguments: corpus files or folders.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::size_t s_inputs = 0;

// In a buffer of exactly that size, as libFuzzer does, so that a read past the end is caught.
void feed(const std::string& text, std::size_t size)
{
    size = std::min(size, text.size());
    const std::unique_ptr<std::uint8_t[]> copy(new std::uint8_t[size]);
    std::memcpy(copy.get(), text.data(), size);
    LLVMFuzzerTestOneInput(copy.get(), size);
    ++s_inputs;
}

// The whole file, then cut-off copies, the commonest damage: at each line end, and a byte
// either side of it.
void replay(const std::string& text)
{
    feed(text, text.size());
    for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', end + 1)) {
        if (end > 0) {
            feed(text, end - 1);
        }
        feed(text, end);
        feed(text, end + 1);
    }
}

std::vector<std::filesystem::path> corpusFiles(const std::filesystem::path& argument)
{
    if (!std::filesystem::is_directory(argument)) {
        return {argument};
    }
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(argument)) {
        if (entry.is_regular_file()) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace

int main(int argc, char* argv[])
{
    feed(std::string(), 0);   // libFuzzer always begins with the empty input
    std::size_t fileCount = 0;
    for (int i = 1; i < argc; ++i) {
        for (const std::filesystem::path& file : corpusFiles(argv[i])) {
            std::ifstream in(file, std::ios::binary);
            if (!in) {
                std::cerr << file.string() << ": cannot be read\n";
                return 1;
            }
            std::cout << file.filename().string() << "\n";   // the culprit, should one crash
            replay(std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()));
            ++fileCount;
        }
    }
    if (fileCount == 0) {
        std::cerr << "no corpus file given\n";
        return 1;
    }
    std::cout << s_inputs << " inputs from " << fileCount << " files\n";
    return 0;
}
