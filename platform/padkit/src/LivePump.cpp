#include "LivePump.h"

#include <string>
#include <utility>

#include "rawkit/HidUsages.h"
#include "rawkit/RawInputDevices.h"

namespace padkit {

namespace {

constexpr unsigned kTickMs = 50;
constexpr auto kRestAfter = std::chrono::milliseconds(60);     // longer than a stick's report interval
constexpr auto kCheckEvery = std::chrono::milliseconds(1000);  // whether the handle still answers

bool attached(std::uintptr_t device)
{
    RID_DEVICE_INFO info{};
    info.cbSize = sizeof(info);
    UINT size = sizeof(info);
    return GetRawInputDeviceInfoW(reinterpret_cast<HANDLE>(device), RIDI_DEVICEINFO, &info, &size) !=
           static_cast<UINT>(-1);
}

}  // namespace

LivePump::LivePump(const DeviceRegistry::Entry& entry, Deliver deliver, Gone gone)
    : m_entry(entry), m_deliver(std::move(deliver)), m_gone(std::move(gone))
{
}

std::unique_ptr<LivePump> LivePump::start(const DeviceRegistry::Entry& entry, Deliver deliver, Gone gone,
                                          _tagSYNStatus& status)
{
    std::unique_ptr<LivePump> pump(new LivePump(entry, std::move(deliver), std::move(gone)));
    status = pump->attach();
    if (status != SYN_OK) {
        return nullptr;
    }
    if (!entry.record.empty()) {
        std::string error;
        const std::filesystem::path file = DeviceRegistry::process().claimRecording(entry.record);
        pump->m_writer = SessionWriter::open(file, pump->m_description, "recorded live from " + entry.liveDevice, error);
        if (!pump->m_writer) {
            status = SYN_RECORDING_FAILED;
            return nullptr;
        }
    }
    return pump;
}

LivePump::~LivePump() = default;

_tagSYNStatus LivePump::attach()
{
    m_receiver.reset();
    m_device = 0;
    const std::optional<rawkit::DeviceInfo> found = rawkit::RawInputDevices::find(m_entry.liveDevice);
    if (!found) {
        return SYN_DEVICE_ABSENT;
    }
    m_device = found->handle;
    m_description.pnpId = found->hardwareId;
    m_description.type = m_entry.type;
    const bool touchpad = m_entry.type == SynDeviceTouchPad;
    if (touchpad) {
        std::string error;
        m_decoder = rawkit::HidTouchDecoder::create(rawkit::RawInputDevices::preparsedData(m_device), error);
        if (!m_decoder) {
            return SYN_NOT_DECODABLE;
        }
        const rawkit::TouchLayout& layout = m_decoder->layout();
        m_description.version = 2;
        m_description.xLo = layout.x.low;
        m_description.xHi = layout.x.high;
        m_description.yLo = layout.y.low;
        m_description.yHi = layout.y.high;
        m_description.widthMm = layout.widthMm;
        m_description.heightMm = layout.heightMm;
        m_description.widthRange = layout.width;
        if (m_touch) {
            m_malformed += m_touch->malformedFrames();
        }
        m_touch.emplace(layout);
    } else {
        m_description.xLo = -StickPacketBuilder::kRange;
        m_description.xHi = StickPacketBuilder::kRange;
        m_description.yLo = -StickPacketBuilder::kRange;
        m_description.yHi = StickPacketBuilder::kRange;
    }
    rawkit::RawInputReceiver::Handlers handlers;
    handlers.input = [this](const RAWINPUT& input) { onInput(input); };
    handlers.removed = [this](std::uintptr_t removed) {
        if (removed == m_device) {
            lose();
        }
    };
    m_receiver = touchpad ? rawkit::RawInputReceiver::start(rawkit::hid::kDigitizer, rawkit::hid::kTouchPad,
                                                            std::move(handlers))
                          : rawkit::RawInputReceiver::start(rawkit::hid::kGenericDesktop, rawkit::hid::kMouse,
                                                            std::move(handlers));
    if (!m_receiver) {
        return SYN_NO_DELIVERY;
    }
    m_lost = false;
    m_lastCheck = Clock::now();
    m_receiver->after(kTickMs, [this] { onTick(); });
    return SYN_OK;
}

bool LivePump::reacquire()
{
    return attach() == SYN_OK;
}

std::int64_t LivePump::nowMs() const
{
    return nowUs() / 1000;
}

std::int64_t LivePump::nowUs() const
{
    return std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - m_start).count();
}

void LivePump::onInput(const RAWINPUT& input)
{
    if (m_lost || reinterpret_cast<std::uintptr_t>(input.header.hDevice) != m_device) {
        return;   // another device of the same kind
    }
    if (input.header.dwType == RIM_TYPEHID && m_touch) {
        const RAWHID& hid = input.data.hid;
        for (DWORD i = 0; i < hid.dwCount; ++i) {
            const std::optional<rawkit::TouchReport> report =
                m_decoder->decode(hid.bRawData + static_cast<std::size_t>(i) * hid.dwSizeHid, hid.dwSizeHid);
            if (!report) {
                continue;
            }
            if (const std::optional<Packet> packet = m_touch->add(*report, nowUs())) {
                emit(*packet);
            }
        }
    } else if (input.header.dwType == RIM_TYPEMOUSE && !m_touch) {
        const RAWMOUSE& mouse = input.data.mouse;
        rawkit::MouseReport report;
        // An absolute position (a tablet, or the first report of a remote session) is no reading.
        if ((mouse.usFlags & MOUSE_MOVE_ABSOLUTE) == 0) {
            report.dx = mouse.lLastX;
            report.dy = mouse.lLastY;
        }
        report.buttonFlags = mouse.usButtonFlags;
        m_lastReport = Clock::now();
        m_stickAtRest = report.dx == 0 && report.dy == 0;
        emit(m_stick.build(report, nowMs()));
    }
}

void LivePump::onTick()
{
    const std::weak_ptr<char> alive = m_alive;
    const Clock::time_point now = Clock::now();
    if (!m_touch && !m_stickAtRest && now - m_lastReport >= kRestAfter) {
        m_stickAtRest = true;
        emit(m_stick.rest(nowMs()));
        if (alive.expired()) {
            return;
        }
    }
    if (now - m_lastCheck >= kCheckEvery) {
        m_lastCheck = now;
        if (!attached(m_device)) {
            lose();
            if (alive.expired()) {
                return;
            }
        }
    }
    if (!m_lost && m_receiver) {
        m_receiver->after(kTickMs, [this] { onTick(); });
    }
}

void LivePump::emit(const Packet& packet)
{
    if (m_writer && m_touch) {
        m_writer->write(m_touch->lastFrame());
    } else if (m_writer) {
        m_writer->write(packet);
    }
    m_deliver(m_sequence++, packet);
}

void LivePump::lose()
{
    if (m_lost) {
        return;
    }
    m_lost = true;
    if (m_gone) {
        m_gone();
    }
}

}  // namespace padkit
