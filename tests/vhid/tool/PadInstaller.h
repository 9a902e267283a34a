#pragma once
// Virtual touchpads as devices of the Wine prefix: installed as root devices named after their
// ids with the driver's INF, their descriptor and ids in the device's key, and removed as the
// system removes a device (the driver then sees a surprise removal, programs GIDC_REMOVAL).
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "vhid/PadId.h"

class PadInstaller {
public:
    // Every virtual touchpad the prefix has.
    static std::vector<vhid::PadId> installed();

    // False, with why, when it cannot be installed; then nothing of it is left in the prefix.
    static bool install(const vhid::PadId& id, const std::vector<std::uint8_t>& descriptor, const std::wstring& inf,
                        std::string& error);
    static bool remove(const vhid::PadId& id, std::string& error);

    // The descriptor an installed pad serves; nothing, with why, when there is no such pad.
    static std::optional<std::vector<std::uint8_t>> descriptor(const vhid::PadId& id, std::string& error);
};
