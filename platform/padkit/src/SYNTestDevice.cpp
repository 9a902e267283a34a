#include "padkit/SYNTestDevice.h"

#include <optional>
#include <utility>

#include "LivePump.h"
#include "ReplayPump.h"
#include "ksx/Log.h"
#include "padkit/DeviceRegistry.h"
#include "padkit/SessionError.h"
#include "padkit/SessionParser.h"
#include "padkit/SessionWriter.h"

namespace {

ksx::Logger* s_log = nullptr;  // "padkit"
constexpr const char* kLogger = "padkit";
constexpr int kLinePacket = 60;

// The session registered under the handle, opened afresh; the reason when that fails.
_tagSYNStatus open(long handle, padkit::DeviceRegistry::Entry& entry, padkit::Session& session)
{
    const std::optional<padkit::DeviceRegistry::Entry> found = padkit::DeviceRegistry::process().find(handle);
    if (!found) {
        return SYN_UNKNOWN_HANDLE;
    }
    entry = *found;
    try {
        session = padkit::SessionParser::load(entry.session);
    } catch (const padkit::SessionError& error) {
        return error.reason() == padkit::SessionError::Reason::Unreadable ? SYN_SESSION_UNREADABLE
                                                                          : SYN_SESSION_INVALID;
    }
    // A file that now records another kind of device is not the device that was registered.
    return session.type == entry.type ? SYN_OK : SYN_SESSION_INVALID;
}

}  // namespace

SYNTestDevice::SYNTestDevice(long handle) : m_handle(handle) {}

SYNTestDevice::~SYNTestDevice() = default;

_tagSYNStatus SYNTestDevice::Initialize(long handle)
{
    m_pump.reset();
    m_live.reset();
    m_announced.reset();
    m_handle = handle;
    const auto deliver = [this](long sequence, const padkit::Packet& packet) {
        // Each packet as a session line: a live run and the replay of its recording trace alike.
        KSX_LOG(s_log, kLogger, ksx::LoggerPriority::PRIORITY_TRACE, kLinePacket,
                "packet " + sequence + ": " + padkit::SessionWriter::packetFields(packet).c_str());
        m_announced = packet;
        OnSynDevicePacket(sequence);
    };
    const std::optional<padkit::DeviceRegistry::Entry> live = padkit::DeviceRegistry::process().find(handle);
    if (live && !live->liveDevice.empty()) {
        _tagSYNStatus status = SYN_OK;
        m_live = padkit::LivePump::start(*live, deliver, [this] { OnSynDeviceRemoved(); }, status);
        if (m_live) {
            takeRanges(m_live->description());
        }
        return status;
    }
    padkit::DeviceRegistry::Entry entry;
    padkit::Session session;
    const _tagSYNStatus status = open(handle, entry, session);
    if (status != SYN_OK) {
        return status;
    }
    takeRanges(session);
    m_pump = padkit::ReplayPump::start(padkit::ReplayCursor(std::move(session), entry.clock, entry.loop), deliver);
    return m_pump ? SYN_OK : SYN_NO_DELIVERY;
}

void SYNTestDevice::takeRanges(const padkit::Session& session)
{
    xLo = session.xLo;
    xHi = session.xHi;
    yLo = session.yLo;
    yHi = session.yHi;
    m_widthMm = session.widthMm;
    m_heightMm = session.heightMm;
}

unsigned long SYNTestDevice::malformedFrames() const
{
    return m_live ? m_live->malformedFrames() : 0;
}

long SYNTestDevice::OnSynDevicePacket(long)
{
    return 0;
}

bool SYNTestDevice::readBuffer()
{
    if (!m_announced) {
        return false;
    }
    m_read = *m_announced;
    fingerX = m_read.x;
    fingerY = m_read.y;
    fingerWidth = m_read.width;
    stickX = m_read.stickX;
    stickY = m_read.stickY;
    return true;
}

bool SYNTestDevice::leftButtonPressed() const
{
    return m_read.left;
}

bool SYNTestDevice::rightButtonPressed() const
{
    return m_read.right;
}

bool SYNTestDevice::middleButtonPressed() const
{
    return m_read.middle;
}

bool SYNTestDevice::isFingerPresent() const
{
    return m_read.finger;
}

bool SYNTestDevice::fingerMotion() const
{
    return m_read.motion;
}

bool SYNTestDevice::reaquireDevice()
{
    if (m_live) {
        return m_live->reacquire();
    }
    if (!m_pump) {
        return Initialize(m_handle) == SYN_OK;
    }
    padkit::DeviceRegistry::Entry entry;
    padkit::Session session;
    if (open(m_handle, entry, session) != SYN_OK) {
        m_pump.reset();   // the device is gone: no more packets
        return false;
    }
    takeRanges(session);
    m_pump->reopen(std::move(session));
    return true;
}

void SYNTestDevice::OnSynDeviceRemoved() {}
