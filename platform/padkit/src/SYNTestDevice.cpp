#include "padkit/SYNTestDevice.h"

#include <optional>
#include <utility>

#include "LivePump.h"
#include "ReplayPump.h"
#include "harn5/Text.h"
#include "ksx/Log.h"
#include "ksx/OStream.h"
#include "padkit/DeviceRegistry.h"
#include "padkit/ReplayFile.h"
#include "padkit/SessionCopy.h"
#include "padkit/SessionError.h"
#include "padkit/SessionWriter.h"

namespace {

ksx::Logger* s_log = nullptr;  // "padkit"
constexpr const char* kLogger = "padkit";
constexpr int kLinePacket = 60;
constexpr int kLineReplayStopped = 61;

// Opens the file of a replayed device from its start.
padkit::ReplayCursor::Opener opener(const padkit::DeviceRegistry::Entry& entry)
{
    return [entry] { return padkit::ReplayFile::open(entry.session, entry.type, entry.recordedDevice); };
}

_tagSYNStatus statusOf(const padkit::SessionError& error)
{
    return error.reason() == padkit::SessionError::Reason::Unreadable ? SYN_SESSION_UNREADABLE : SYN_SESSION_INVALID;
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
    const std::optional<padkit::DeviceRegistry::Entry> entry = padkit::DeviceRegistry::process().find(handle);
    if (entry && !entry->liveDevice.empty()) {
        _tagSYNStatus status = SYN_OK;
        m_live = padkit::LivePump::start(*entry, deliver, [this] { OnSynDeviceRemoved(); }, status);
        if (m_live) {
            takeRanges(m_live->description());
        }
        return status;
    }
    if (!entry) {
        return SYN_UNKNOWN_HANDLE;
    }
    std::optional<padkit::ReplayCursor> cursor;
    try {
        cursor.emplace(opener(*entry), entry->clock, entry->loop);
    } catch (const padkit::SessionError& error) {
        return statusOf(error);
    }
    takeRanges(cursor->session());
    m_copy.reset();
    if (!entry->record.empty()) {
        std::string error;
        m_copy = padkit::SessionCopy::open(padkit::DeviceRegistry::process().claimRecording(entry->record),
                                           cursor->session(), "replayed from " + harn5::Text::fromPath(entry->session),
                                           error);
        if (!m_copy) {
            return SYN_RECORDING_FAILED;
        }
    }
    const auto replayed = [this, deliver](long sequence, const padkit::Packet& packet) {
        if (m_copy) {
            m_copy->add(packet, m_pump->cursor().currentFrame());
        }
        deliver(sequence, packet);
    };
    const auto stopped = [this](const std::string& fault) {
        // The file went bad after its header: the device stops, as a live one that is removed.
        KSX_LOG(s_log, kLogger, ksx::LoggerPriority::PRIORITY_WARNING, kLineReplayStopped, ksx::String(fault.c_str()));
        ksx::cerr << fault.c_str() << ksx::endl;
        OnSynDeviceRemoved();
    };
    m_pump = padkit::ReplayPump::start(std::move(*cursor), replayed, stopped);
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
    return m_live ? m_live->malformedFrames() : m_pump ? m_pump->cursor().source().malformedFrames() : 0;
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
    try {
        m_pump->reopen();
    } catch (const padkit::SessionError&) {
        m_pump.reset();   // the device is gone: no more packets
        return false;
    }
    takeRanges(m_pump->cursor().session());
    return true;
}

void SYNTestDevice::OnSynDeviceRemoved() {}
