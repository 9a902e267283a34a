#pragma once
// The driver's control device: hands it the reports a virtual touchpad is to send.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "vhid/PadId.h"

class PadChannel {
public:
    // Null, with why, when the driver's control device does not open (no pad was ever started in
    // this Wine session).
    static std::unique_ptr<PadChannel> open(std::string& error);
    ~PadChannel();
    PadChannel(const PadChannel&) = delete;
    PadChannel& operator=(const PadChannel&) = delete;

    // An input report (queued for hidclass's next read) or a feature report (kept, answered on
    // GET_FEATURE); report id first. `busy` is set when the driver's queue is full (the report
    // is then not taken).
    bool send(const vhid::PadId& id, const std::vector<std::uint8_t>& report, bool feature, bool& busy,
              std::string& error);

private:
    explicit PadChannel(void* handle) : m_handle(handle) {}
    void* m_handle;
};
