#pragma once
// The reports of one device as Raw Input delivers them, time-stamped on arrival; other devices'
// input is dropped.
#include <windows.h>

#include <cstdint>
#include <memory>

#include "MicrosecondClock.h"
#include "ReportSource.h"
#include "rawkit/RawInputReceiver.h"

class RawInputReportSource : public ReportSource {
public:
    // device: the raw input handle of the device under test.
    static Factory of(std::uintptr_t device);

    RawInputReportSource(std::uintptr_t device, Sink sink);
    bool started() const { return m_receiver != nullptr; }

private:
    void onInput(const RAWINPUT& input) const;

    std::uintptr_t m_device;
    Sink m_sink;
    MicrosecondClock m_clock;
    std::unique_ptr<rawkit::RawInputReceiver> m_receiver;
};
