#pragma once
// Writes a session in the recorded-session format (FORMAT.md) as it happens: the header when the
// file is opened, then one line per packet (or frame, for a version 2 touchpad), each flushed, so that a run that ends abruptly keeps
// every packet already delivered.
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "padkit/Packet.h"
#include "padkit/Session.h"

namespace padkit {

class SessionWriter {
public:
    // The header of session (its packets are not written); null, with the reason in error, when
    // the file cannot be made.
    static std::unique_ptr<SessionWriter> open(const std::filesystem::path& file, const Session& header,
                                               const std::string& comment, std::string& error);
    void write(const Packet& packet);
    void write(const rawkit::TouchFrame& frame);   // a version 2 touchpad's
    bool good() const;

    static std::string headerText(const Session& header, const std::string& comment);
    static std::string packetLine(const Packet& packet);     // packetFields and the line end
    static std::string packetFields(const Packet& packet);

private:
    explicit SessionWriter(const std::filesystem::path& file);
    std::ofstream m_out;
};

}  // namespace padkit
