#include "padkit/SessionWriter.h"

#include <sstream>

#include "padkit/FrameLine.h"

namespace padkit {

namespace {

// Quoted, so that blanks and '#' stay part of the value.
std::string quotedValue(const std::string& text)
{
    return "\"" + text + "\"";
}

// A comment stays on its line.
std::string oneLine(std::string text)
{
    for (char& c : text) {
        if (c == '\n' || c == '\r') {
            c = ' ';
        }
    }
    return text;
}

// A size to a hundredth of a millimetre, without trailing zeros.
std::string millimetres(double mm)
{
    std::ostringstream text;
    text.precision(2);
    text << std::fixed << mm;
    std::string digits = text.str();
    while (digits.back() == '0') {
        digits.pop_back();
    }
    if (digits.back() == '.') {
        digits.pop_back();
    }
    return digits;
}

}  // namespace

SessionWriter::SessionWriter(const std::filesystem::path& file) : m_out(file, std::ios::binary | std::ios::trunc) {}

std::unique_ptr<SessionWriter> SessionWriter::open(const std::filesystem::path& file, const Session& header,
                                                   const std::string& comment, std::string& error)
{
    std::unique_ptr<SessionWriter> writer(new SessionWriter(file));
    if (!writer->m_out) {
        error = "cannot write the recording";
        return nullptr;
    }
    writer->m_out << headerText(header, comment) << std::flush;
    if (!writer->m_out) {
        error = "cannot write the recording";
        return nullptr;
    }
    return writer;
}

void SessionWriter::write(const Packet& packet)
{
    m_out << packetLine(packet) << std::flush;
}

void SessionWriter::write(const rawkit::TouchFrame& frame)
{
    m_out << FrameLine::format(frame) << '\n' << std::flush;
}

bool SessionWriter::good() const
{
    return static_cast<bool>(m_out);
}

std::string SessionWriter::headerText(const Session& header, const std::string& comment)
{
    std::ostringstream text;
    const bool frames = header.version == 2 && header.type == SynDeviceTouchPad;
    text << "padkit-session " << (header.version == 2 ? 2 : 1) << "\n";
    if (!comment.empty()) {
        text << "# " << oneLine(comment) << "\n";
    }
    text << "device " << (header.type == SynDeviceTrackpoint ? "trackpoint" : "touchpad") << "\n";
    text << "x-range " << header.xLo << " " << header.xHi << "\n";
    text << "y-range " << header.yLo << " " << header.yHi << "\n";
    if (header.pnpId && header.pnpId->find('"') == std::string::npos) {
        text << "pnp-id " << quotedValue(oneLine(*header.pnpId)) << "\n";
    }
    if (header.version == 2) {
        if (header.widthMm && header.heightMm) {
            text << "size-mm " << millimetres(*header.widthMm) << " " << millimetres(*header.heightMm) << "\n";
        }
        if (header.widthRange) {
            text << "width-range " << header.widthRange->low << " " << header.widthRange->high << "\n";
        }
        if (header.name && header.name->find('"') == std::string::npos) {
            text << "name " << quotedValue(oneLine(*header.name)) << "\n";
        }
    }
    text << (frames ? "\n# time buttons id,tip,confidence,x,y,width,height,pressure...\n"
                    : "\n# time finger x y w motion stick-x stick-y buttons\n");
    return text.str();
}

std::string SessionWriter::packetLine(const Packet& packet)
{
    return packetFields(packet) + '\n';
}

std::string SessionWriter::packetFields(const Packet& packet)
{
    std::string buttons;
    buttons += packet.left ? "L" : "";
    buttons += packet.right ? "R" : "";
    buttons += packet.middle ? "M" : "";
    std::ostringstream line;
    line << packet.timeMs << ' ' << (packet.finger ? 1 : 0) << ' ' << packet.x << ' ' << packet.y << ' '
         << packet.width << ' ' << (packet.motion ? 1 : 0) << ' ' << packet.stickX << ' ' << packet.stickY << ' '
         << (buttons.empty() ? "-" : buttons);
    return line.str();
}

}  // namespace padkit
