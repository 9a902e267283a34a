#pragma once
// The packets of a session file, read as they are replayed.
#include <filesystem>
#include <fstream>
#include <memory>

#include "padkit/PacketSource.h"
#include "padkit/SessionReader.h"

namespace padkit {

class SessionFileSource : public PacketSource {
public:
    // Reads the header; a SessionError when the file cannot be read or its header is bad.
    explicit SessionFileSource(const std::filesystem::path& file);

    const Session& header() const override { return m_reader->header(); }
    bool next(Packet& packet) override { return m_reader->next(packet); }
    const rawkit::TouchFrame* frame() const override;
    unsigned long malformedFrames() const override { return 0; }
    unsigned contactsPerReport() const override { return 0; }

private:
    std::ifstream m_in;
    std::unique_ptr<SessionReader> m_reader;
};

}  // namespace padkit
