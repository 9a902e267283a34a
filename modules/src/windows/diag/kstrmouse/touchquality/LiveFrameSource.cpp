#include "LiveFrameSource.h"

#include <utility>

#include "rawkit/HidUsages.h"

FrameSource::Factory LiveFrameSource::of(std::uintptr_t device, std::shared_ptr<const rawkit::HidTouchDecoder> decoder)
{
    return [device, decoder](Sink sink) -> std::unique_ptr<FrameSource> {
        auto source = std::make_unique<LiveFrameSource>(device, decoder, std::move(sink));
        if (!source->started()) {
            return nullptr;
        }
        return source;
    };
}

LiveFrameSource::LiveFrameSource(std::uintptr_t device, std::shared_ptr<const rawkit::HidTouchDecoder> decoder, Sink sink)
    : m_device(device),
      m_decoder(std::move(decoder)),
      m_sink(std::move(sink)),
      m_startUs(m_clock.nowUs()),
      m_assembler(m_decoder->layout().maxContactId)
{
    rawkit::RawInputReceiver::Handlers handlers;
    handlers.input = [this](const RAWINPUT& input) { onInput(input); };
    handlers.removed = [this](std::uintptr_t removed) { m_removed = m_removed || removed == m_device; };
    m_receiver = rawkit::RawInputReceiver::start(rawkit::hid::kDigitizer, rawkit::hid::kTouchPad, std::move(handlers));
}

std::int64_t LiveFrameSource::nowUs() const
{
    return m_clock.nowUs() - m_startUs;
}

bool LiveFrameSource::gone() const
{
    constexpr std::int64_t kCheckEveryUs = 1000000;
    const std::int64_t now = nowUs();
    if (!m_removed && now - m_checkedAtUs >= kCheckEveryUs) {
        m_checkedAtUs = now;
        RID_DEVICE_INFO info{};
        info.cbSize = sizeof(info);
        UINT size = sizeof(info);
        m_removed = GetRawInputDeviceInfoW(reinterpret_cast<HANDLE>(m_device), RIDI_DEVICEINFO, &info, &size) ==
                    static_cast<UINT>(-1);
    }
    return m_removed;
}

void LiveFrameSource::onInput(const RAWINPUT& input)
{
    if (input.header.dwType != RIM_TYPEHID || reinterpret_cast<std::uintptr_t>(input.header.hDevice) != m_device) {
        return;   // another touchpad's report does not count
    }
    const RAWHID& hid = input.data.hid;
    const std::int64_t now = nowUs();
    for (DWORD i = 0; i < hid.dwCount; ++i) {
        const std::optional<rawkit::TouchReport> report =
            m_decoder->decode(hid.bRawData + static_cast<std::size_t>(i) * hid.dwSizeHid, hid.dwSizeHid);
        if (!report) {
            continue;   // another report id of the collection
        }
        if (const std::optional<rawkit::TouchFrame> frame = m_assembler.add(*report, now)) {
            m_sink(*frame);
        }
    }
}
