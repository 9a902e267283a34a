#include "ksxui/CommandLineParser.h"

namespace ksxui {

CommandLineParser::CommandLineParser(const ksx::String& moduleFileName)
    : m_args{moduleFileName.utf8()}
{
    m_argv = {m_args.front().c_str(), nullptr};
}

CommandLineParser::~CommandLineParser() = default;

void CommandLineParser::ParseParam(const wchar_t* pszParam, BOOL bFlag, BOOL)
{
    static_assert(sizeof(wchar_t) == sizeof(unsigned short), "UTF-16 wide characters");
    std::string arg = ksx::String(reinterpret_cast<const unsigned short*>(pszParam)).utf8();
    if (bFlag) {
        // The framework strips a flag's leading '-' or '/' by handing a pointer one character into
        // the argument: that character is still there, and "/tmp/report.json" must stay a path.
        arg.insert(arg.begin(), static_cast<char>(pszParam[-1]));
    }
    m_args.push_back(std::move(arg));
    // The strings may have moved: rebuild the vector of pointers into them.
    m_argv.clear();
    for (const std::string& text : m_args) {
        m_argv.push_back(text.c_str());
    }
    m_argv.push_back(nullptr);
}

int CommandLineParser::argc() const
{
    return static_cast<int>(m_args.size());
}

const char** CommandLineParser::argv() const
{
    // The host library takes `const char* argv[]`; the texts themselves stay read-only.
    return const_cast<const char**>(m_argv.data());
}

}  // namespace ksxui
