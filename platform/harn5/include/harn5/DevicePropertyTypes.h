#pragma once
// The device properties that something reads with a type, declared by their readers, so that a
// device whose property would be misread, or whose property name is a slip of a known one, is
// refused when the host builds its device list, before any test runs.
#include <map>
#include <optional>
#include <string>

#include "harn5/DiagDevice.h"

namespace harn5 {

class DevicePropertyTypes {
public:
    enum class Type { Text, Boolean, Int32, Uint32, Hex16 };

    // A second declaration of a name must give the same type; throws HarnException if not.
    void declare(const std::string& name, Type type);
    std::optional<Type> typeOf(const std::string& name) const;

    // Throws HarnException naming the device, the property and what is allowed.
    void check(const DiagDevice& device) const;
    // "SP_Handle=1 (int32)": what the host understood of each property.
    std::string understood(const DiagDevice& device) const;

    static bool valid(Type type, const std::string& text);
    static const char* allowed(Type type);     // for messages: "a decimal 32-bit number"
    static const char* shortName(Type type);   // for listings: "int32"

private:
    // The declared name that this undeclared one is probably a slip of; none if it is not near any.
    std::optional<std::string> nearMiss(const std::string& name) const;

    std::map<std::string, Type> m_types;
};

}  // namespace harn5
