#pragma once
// What a device can do, as a set of bits. A test's combination asks for ALL of its members.
#include <optional>
#include <string>
#include <string_view>

namespace harn5 {

class DeviceCapability {
public:
    DeviceCapability();                        // the empty set
    ~DeviceCapability();
    DeviceCapability(const DeviceCapability&) = default;
    DeviceCapability& operator=(const DeviceCapability&) = default;

    static const DeviceCapability& Mouse();
    static const DeviceCapability& SynapticsMouse();
    static const DeviceCapability& SynapticsTouchPad();
    static const DeviceCapability& SynapticsTrackpoint();

    // The member of that name ("Mouse", "SynapticsTouchPad", ...), exact case; none if unknown.
    static std::optional<DeviceCapability> fromName(std::string_view name);
    static std::string knownNames();           // "Mouse, SynapticsMouse, ..." for messages

    DeviceCapability operator|(const DeviceCapability& other) const;
    bool contains(const DeviceCapability& required) const;   // every bit of required is here
    bool empty() const;
    unsigned bits() const;
    std::string toString() const;              // members joined by '+', e.g. "Mouse+SynapticsMouse"

    bool operator==(const DeviceCapability& other) const;

private:
    explicit DeviceCapability(unsigned bits);
    unsigned m_bits;
};

}  // namespace harn5
