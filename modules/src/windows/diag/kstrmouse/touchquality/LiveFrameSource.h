#pragma once
// The frames of the live touchpad under test: its digitizer reports through Raw Input, decoded
// with the platform's HID parser and put together into complete frames, time-stamped on arrival.
// Other devices' reports are dropped.
#include <windows.h>

#include <cstdint>
#include <memory>

#include "FrameSource.h"
#include "quality/MicrosecondClock.h"
#include "rawkit/FrameAssembler.h"
#include "rawkit/HidTouchDecoder.h"
#include "rawkit/RawInputReceiver.h"

class LiveFrameSource : public FrameSource {
public:
    // device: the raw input handle of the touchpad; decoder: made from its preparsed data.
    static Factory of(std::uintptr_t device, std::shared_ptr<const rawkit::HidTouchDecoder> decoder);

    LiveFrameSource(std::uintptr_t device, std::shared_ptr<const rawkit::HidTouchDecoder> decoder, Sink sink);
    bool started() const { return m_receiver != nullptr; }

    std::int64_t nowUs() const override;
    unsigned long malformedFrames() const override { return m_assembler.malformedFrames(); }
    // Removed (the system says so), or its handle no longer answers (asked at most once a second).
    bool gone() const override;

private:
    void onInput(const RAWINPUT& input);

    std::uintptr_t m_device;
    std::shared_ptr<const rawkit::HidTouchDecoder> m_decoder;
    Sink m_sink;
    MicrosecondClock m_clock;
    std::int64_t m_startUs;
    rawkit::FrameAssembler m_assembler;
    mutable bool m_removed = false;
    mutable std::int64_t m_checkedAtUs = 0;
    std::unique_ptr<rawkit::RawInputReceiver> m_receiver;
};
