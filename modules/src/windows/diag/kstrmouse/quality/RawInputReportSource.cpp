#include "RawInputReportSource.h"

#include "rawkit/HidUsages.h"

ReportSource::Factory RawInputReportSource::of(std::uintptr_t device)
{
    return [device](Sink sink) -> std::unique_ptr<ReportSource> {
        auto source = std::make_unique<RawInputReportSource>(device, std::move(sink));
        if (!source->started()) {
            return nullptr;
        }
        return source;
    };
}

RawInputReportSource::RawInputReportSource(std::uintptr_t device, Sink sink) : m_device(device), m_sink(std::move(sink))
{
    rawkit::RawInputReceiver::Handlers handlers;
    handlers.input = [this](const RAWINPUT& input) { onInput(input); };
    m_receiver = rawkit::RawInputReceiver::start(rawkit::hid::kGenericDesktop, rawkit::hid::kMouse, std::move(handlers));
}

void RawInputReportSource::onInput(const RAWINPUT& input) const
{
    if (input.header.dwType != RIM_TYPEMOUSE || reinterpret_cast<std::uintptr_t>(input.header.hDevice) != m_device) {
        return;   // another device's report does not count
    }
    const RAWMOUSE& mouse = input.data.mouse;
    pointerq::TimedReport report;
    report.timeUs = m_clock.nowUs();
    // An absolute position (a tablet, a remote session) is no movement of this device.
    if ((mouse.usFlags & MOUSE_MOVE_ABSOLUTE) == 0) {
        report.mouse.dx = mouse.lLastX;
        report.mouse.dy = mouse.lLastY;
    }
    report.mouse.buttonFlags = mouse.usButtonFlags;
    if ((mouse.usButtonFlags & RI_MOUSE_WHEEL) != 0) {
        report.mouse.wheel = static_cast<std::int16_t>(mouse.usButtonData);
    }
    if ((mouse.usButtonFlags & RI_MOUSE_HWHEEL) != 0) {
        report.mouse.hwheel = static_cast<std::int16_t>(mouse.usButtonData);
    }
    m_sink(report);
}
