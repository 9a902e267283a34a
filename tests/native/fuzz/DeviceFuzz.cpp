// Device descriptions, one a line, numbered from 1 as repeated --device options are. Each gives
// a device or a one-line HarnException. A device has a name and capabilities; its properties
// have distinct, trimmed names, none of them empty and none "name", which names the device, and
// their values read as any type or refuse.
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "Promise.h"
#include "ShippedSessionDevices.h"
#include "harn5/CommandLine.h"
#include "harn5/HarnException.h"
#include "harn5/Text.h"

using namespace harn5;

namespace {

// The module reads properties as numbers (SP_Handle) and flags: a value of another kind refuses.
void readAsEveryType(const Value& value)
{
    for (const auto& read : {+[](const Value& v) { v.valueInt32(); }, +[](const Value& v) { v.valueUint32(); },
                             +[](const Value& v) { v.valueBool(); }}) {
        try {
            read(value);
        } catch (const HarnException& error) {
            Promise::refusal(error, "value \"");
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const ShippedSessionDevices devices;
    std::size_t index = 0;
    for (const std::string& description : Text::split(text, '\n')) {
        try {
            const DiagDevice device = CommandLine::parseDevice(description, ++index, &devices.providers());
            Promise::hold(!device.name().empty(), "a device has a name");
            Promise::hold(!device.capability().empty(), "a device can do something");
            std::set<std::string> names;
            for (const DeviceProperty& property : device.properties()) {
                const std::string& name = property.name().utf8();
                Promise::hold(!name.empty() && name == Text::trim(name) && name != "name",
                              "a property's name is trimmed, not empty, not \"name\"");
                Promise::hold(names.insert(name).second, "a property is there once");
                readAsEveryType(property.value());
            }
        } catch (const HarnException& error) {
            Promise::refusal(error, "");
        }
    }
    return 0;
}
