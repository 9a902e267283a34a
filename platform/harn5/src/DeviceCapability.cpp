#include "harn5/DeviceCapability.h"

#include <array>

namespace harn5 {

namespace {
struct Member {
    const char* name;
    unsigned bit;
};
constexpr std::array<Member, 4> kMembers{{{"Mouse", 1u << 0},
                                          {"SynapticsMouse", 1u << 1},
                                          {"SynapticsTouchPad", 1u << 2},
                                          {"SynapticsTrackpoint", 1u << 3}}};
}  // namespace

DeviceCapability::DeviceCapability() : m_bits(0) {}

DeviceCapability::DeviceCapability(unsigned bits) : m_bits(bits) {}

DeviceCapability::~DeviceCapability() = default;

const DeviceCapability& DeviceCapability::Mouse()
{
    static const DeviceCapability capability(kMembers[0].bit);
    return capability;
}

const DeviceCapability& DeviceCapability::SynapticsMouse()
{
    static const DeviceCapability capability(kMembers[1].bit);
    return capability;
}

const DeviceCapability& DeviceCapability::SynapticsTouchPad()
{
    static const DeviceCapability capability(kMembers[2].bit);
    return capability;
}

const DeviceCapability& DeviceCapability::SynapticsTrackpoint()
{
    static const DeviceCapability capability(kMembers[3].bit);
    return capability;
}

std::optional<DeviceCapability> DeviceCapability::fromName(std::string_view name)
{
    for (const Member& member : kMembers) {
        if (name == member.name) {
            return DeviceCapability(member.bit);
        }
    }
    return std::nullopt;
}

std::string DeviceCapability::knownNames()
{
    std::string names;
    for (const Member& member : kMembers) {
        names += names.empty() ? "" : ", ";
        names += member.name;
    }
    return names;
}

DeviceCapability DeviceCapability::operator|(const DeviceCapability& other) const
{
    return DeviceCapability(m_bits | other.m_bits);
}

bool DeviceCapability::contains(const DeviceCapability& required) const
{
    return (m_bits & required.m_bits) == required.m_bits;
}

bool DeviceCapability::empty() const
{
    return m_bits == 0;
}

unsigned DeviceCapability::bits() const
{
    return m_bits;
}

std::string DeviceCapability::toString() const
{
    std::string text;
    for (const Member& member : kMembers) {
        if (m_bits & member.bit) {
            text += text.empty() ? "" : "+";
            text += member.name;
        }
    }
    return text;
}

bool DeviceCapability::operator==(const DeviceCapability& other) const
{
    return m_bits == other.m_bits;
}

}  // namespace harn5
