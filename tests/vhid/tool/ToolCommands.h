#pragma once
// kstrvhid's commands: install, remove, list, and feed a virtual touchpad of the test prefix.
#include <istream>
#include <ostream>
#include <string>
#include <vector>

class ToolCommands {
public:
    ToolCommands(std::istream& in, std::ostream& out, std::ostream& err, std::wstring inf);
    // The exit status: 0 done, 1 refused or failed (one line on err says why), 2 bad usage.
    int run(const std::vector<std::string>& args);

private:
    int install(const std::vector<std::string>& args);
    int remove(const std::vector<std::string>& args);
    int list();
    int feed(const std::string& command, const std::vector<std::string>& args);
    int serve(class Feeder& feeder);
    int fail(const std::string& message);

    std::istream& m_in;
    std::ostream& m_out;
    std::ostream& m_err;
    std::wstring m_inf;
};
