#include "ToolCommands.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <sstream>

#include "Feeder.h"
#include "PadInstaller.h"
#include "RawInputPads.h"
#include "hidcut/CollectionCutter.h"
#include "hidparse/PlatformParser.h"
#include "vhid/HexBytes.h"

using vhid::PadId;
using vhid::ReportShape;

namespace {

constexpr unsigned kStartMs = 5000;   // for the system to show an installed pad, or to drop a removed one

const char kUsage[] =
    "usage: kstrvhid COMMAND ...   (a virtual touchpad in this Wine prefix; for tests only)\n"
    "  install FILE [--id VID:PID] [--collection N]\n"
    "        FILE: a report descriptor in hex, or a HID recording (its R: and I: lines). A whole\n"
    "        device's descriptor is cut to its touchpad collection (or collection N, from 0).\n"
    "  remove VID:PID | --all\n"
    "  list\n"
    "  input VID:PID HEX...          one input report, report id first\n"
    "  feature VID:PID HEX...        one feature report, kept and answered when asked for\n"
    "  get-feature VID:PID ID        the feature report a program gets from the device\n"
    "  play VID:PID FILE [--speed F|max]\n"
    "        the E: (input) and F: (feature) lines of FILE at their times\n"
    "  serve VID:PID                 lines on standard input: input HEX, feature HEX,\n"
    "        play FILE [SPEED], remove; each answered by \"ok\" or \"error: ...\"\n";

std::optional<std::string> readFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        return std::nullopt;
    }
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::optional<vhid::ReportScript> readScript(const std::string& path, std::string& error)
{
    const std::optional<std::string> text = readFile(path);
    if (!text) {
        error = path + " cannot be read";
        return std::nullopt;
    }
    std::optional<vhid::ReportScript> script = vhid::ReportScript::parse(*text, error);
    if (!script) {
        error = path + ": " + error;
    }
    return script;
}

// "max" is 0: as fast as the driver takes reports.
std::optional<double> parseSpeed(const std::string& text)
{
    if (text == "max") {
        return 0.0;
    }
    char* end = nullptr;
    const double speed = std::strtod(text.c_str(), &end);
    if (end == text.c_str() || *end != 0 || !(speed > 0) || speed > 1000) {
        return std::nullopt;
    }
    return speed;
}

// The collection a whole descriptor is served as: the touchpad (or the one asked for), cut with
// the globals in force where it starts; a descriptor of one collection as it is.
std::optional<std::vector<std::uint8_t>> servedCollection(const std::vector<std::uint8_t>& descriptor, int asked,
                                                          std::string& error)
{
    const std::optional<hidcut::CollectionCutter> cutter = hidcut::CollectionCutter::parse(descriptor, error);
    if (!cutter) {
        error = "the descriptor does not parse: " + error;
        return std::nullopt;
    }
    const std::size_t count = cutter->collections().size();
    if (asked >= 0) {
        if (static_cast<std::size_t>(asked) >= count) {
            error = "the descriptor has " + std::to_string(count) + " top-level collections; there is no " +
                    std::to_string(asked);
            return std::nullopt;
        }
        return cutter->cut(static_cast<std::size_t>(asked));
    }
    if (count == 1) {
        return descriptor;
    }
    if (!cutter->touchpad()) {
        error = "the descriptor has " + std::to_string(count) +
                " top-level collections and no touchpad; name one with --collection N";
        return std::nullopt;
    }
    return cutter->cut(*cutter->touchpad());
}

}  // namespace

ToolCommands::ToolCommands(std::istream& in, std::ostream& out, std::ostream& err, std::wstring inf)
    : m_in(in), m_out(out), m_err(err), m_inf(std::move(inf))
{
}

int ToolCommands::fail(const std::string& message)
{
    m_err << "kstrvhid: " << message << "\n";
    return 1;
}

int ToolCommands::run(const std::vector<std::string>& args)
{
    const std::string command = args.empty() ? "" : args[0];
    const std::vector<std::string> rest(args.begin() + (args.empty() ? 0 : 1), args.end());
    if (command == "install") {
        return install(rest);
    }
    if (command == "remove") {
        return remove(rest);
    }
    if (command == "list" && rest.empty()) {
        return list();
    }
    if (command == "input" || command == "feature" || command == "get-feature" || command == "play" ||
        command == "serve") {
        return feed(command, rest);
    }
    m_err << kUsage;
    return 2;
}

int ToolCommands::install(const std::vector<std::string>& args)
{
    std::string file;
    std::optional<PadId> id;
    int collection = -1;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--id" && i + 1 < args.size()) {
            id = PadId::parse(args[++i]);
            if (!id) {
                return fail("--id takes VID:PID, four hex digits each: \"" + args[i] + "\"");
            }
        } else if (args[i] == "--collection" && i + 1 < args.size()) {
            char* end = nullptr;
            const long number = std::strtol(args[++i].c_str(), &end, 10);
            if (end == args[i].c_str() || *end != 0 || number < 0 || number > 255) {
                return fail("--collection takes a collection's number, from 0: \"" + args[i] + "\"");
            }
            collection = static_cast<int>(number);
        } else if (file.empty() && args[i].rfind("--", 0) != 0) {
            file = args[i];
        } else {
            m_err << kUsage;
            return 2;
        }
    }
    if (file.empty()) {
        m_err << kUsage;
        return 2;
    }
    std::string error;
    const std::optional<vhid::ReportScript> script = readScript(file, error);
    if (!script) {
        return fail(error);
    }
    if (script->descriptor.empty()) {
        return fail(file + " has no report descriptor (an R: line, or hex bytes)");
    }
    if (!id && script->vendorId && script->productId) {
        id = PadId{*script->vendorId, *script->productId};
    }
    if (!id) {
        return fail(file + " names no VID:PID (an I: line): give --id VID:PID");
    }
    const std::optional<std::vector<std::uint8_t>> served = servedCollection(script->descriptor, collection, error);
    if (!served) {
        return fail(error);
    }
    const std::optional<hidparse::Description> description = hidparse::PlatformParser::describe(*served, error);
    if (!description) {
        return fail(error);
    }
    if (description->reports.count(0) > 0) {
        return fail("the collection declares no report ids; the virtual device serves reports with their id");
    }
    const auto started = std::chrono::steady_clock::now();
    if (!PadInstaller::install(*id, *served, m_inf, error)) {
        return fail(error);
    }
    if (!RawInputPads::waitFor(*id, true, kStartMs)) {
        std::string ignored;
        PadInstaller::remove(*id, ignored);
        return fail("the device was installed but the system did not show it; it was removed again");
    }
    const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - started);
    char usage[64];
    std::snprintf(usage, sizeof(usage), "page 0x%02X usage 0x%02X", description->usagePage, description->usage);
    m_out << "installed " << id->text() << ": " << usage << ", " << served->size() << " descriptor bytes, in "
          << ms.count() << " ms\n";
    for (const auto& [reportId, lengths] : description->reports) {
        m_out << "  report " << static_cast<int>(reportId) << ": input " << lengths.input << " bytes, feature "
              << lengths.feature << " bytes\n";
    }
    return 0;
}

int ToolCommands::remove(const std::vector<std::string>& args)
{
    if (args.size() != 1) {
        m_err << kUsage;
        return 2;
    }
    std::vector<PadId> ids;
    if (args[0] == "--all") {
        ids = PadInstaller::installed();
    } else if (const std::optional<PadId> id = PadId::parse(args[0])) {
        ids.push_back(*id);
    } else {
        return fail("not VID:PID: \"" + args[0] + "\"");
    }
    for (const PadId& id : ids) {
        std::string error;
        if (!PadInstaller::remove(id, error)) {
            return fail(error);
        }
        if (!RawInputPads::waitFor(id, false, kStartMs)) {
            return fail("the device " + id.text() + " was removed but the system still shows it");
        }
        m_out << "removed " << id.text() << "\n";
    }
    return 0;
}

int ToolCommands::list()
{
    for (const PadId& id : PadInstaller::installed()) {
        m_out << id.text() << (RawInputPads::present(id) ? "  running\n" : "  installed, not running\n");
    }
    return 0;
}

int ToolCommands::feed(const std::string& command, const std::vector<std::string>& args)
{
    const bool counted = command == "serve"         ? args.size() == 1
                         : command == "get-feature" ? args.size() == 2
                         : command == "play"        ? args.size() == 2 || (args.size() == 4 && args[2] == "--speed")
                                                    : args.size() >= 2;
    if (!counted) {
        m_err << kUsage;
        return 2;
    }
    const std::optional<PadId> id = PadId::parse(args[0]);
    if (!id) {
        return fail("not VID:PID: \"" + args[0] + "\"");
    }
    std::string error;
    const std::unique_ptr<Feeder> feeder = Feeder::connect(*id, error);
    if (!feeder) {
        return fail(error);
    }
    if (command == "serve") {
        return serve(*feeder);
    }
    if (command == "play") {
        const std::optional<double> speed = args.size() == 4 ? parseSpeed(args[3]) : 1.0;
        if (!speed) {
            return fail("--speed takes a factor above 0 (up to 1000) or max");
        }
        const std::optional<vhid::ReportScript> script = readScript(args[1], error);
        return script && feeder->play(*script, *speed, m_out, error) ? 0 : fail(error);
    }
    if (command == "get-feature") {
        char* end = nullptr;
        const long reportId = std::strtol(args[1].c_str(), &end, 10);
        if (end == args[1].c_str() || *end != 0 || reportId < 1 || reportId > 255) {
            return fail("a report id is 1 to 255: \"" + args[1] + "\"");
        }
        const std::optional<std::vector<std::uint8_t>> report = feeder->getFeature(static_cast<std::uint8_t>(reportId),
                                                                                  error);
        if (!report) {
            return fail(error);
        }
        m_out << vhid::HexBytes::format(*report) << "\n";
        return 0;
    }
    std::string hex;
    for (std::size_t i = 1; i < args.size(); ++i) {
        hex += args[i] + " ";
    }
    const std::optional<std::vector<std::uint8_t>> report = vhid::HexBytes::parse(hex, error);
    const ReportShape::Kind kind = command == "input" ? ReportShape::Kind::Input : ReportShape::Kind::Feature;
    return report && feeder->send(*report, kind, error) ? 0 : fail(error);
}

int ToolCommands::serve(Feeder& feeder)
{
    std::string line;
    while (std::getline(m_in, line)) {
        std::istringstream words(line);
        std::string verb;
        words >> verb;
        std::string rest;
        std::getline(words, rest);
        std::string error;
        bool ok = false;
        if (verb == "input" || verb == "feature") {
            const std::optional<std::vector<std::uint8_t>> report = vhid::HexBytes::parse(rest, error);
            ok = report && feeder.send(*report, verb == "input" ? ReportShape::Kind::Input : ReportShape::Kind::Feature,
                                       error);
        } else if (verb == "play") {
            std::istringstream playWords(rest);
            std::string file;
            std::string speedText = "1";
            playWords >> file >> speedText;
            const std::optional<double> speed = parseSpeed(speedText);
            const std::optional<vhid::ReportScript> script = speed ? readScript(file, error) : std::nullopt;
            std::ostringstream said;
            ok = script && feeder.play(*script, *speed, said, error);
            if (!speed) {
                error = "the speed is a factor above 0 or max";
            }
        } else if (verb == "quit") {
            m_out << "ok" << std::endl;
            return 0;
        } else {
            error = "unknown command \"" + verb + "\" (input, feature, play, quit)";
        }
        m_out << (ok ? "ok" : "error: " + error) << std::endl;
    }
    return 0;
}
