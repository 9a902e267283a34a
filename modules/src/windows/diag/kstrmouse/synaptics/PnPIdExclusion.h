#pragma once
// Whether one entry of the host's exclusion list names a device's Plug and Play id.
#include "ksx/String.h"

class PnPIdExclusion {
public:
    // The entry is trimmed of surrounding blanks (the id is not) and compared with the id as a
    // whole, ignoring case; an empty id, and an entry that is empty or only blanks, never match.
    static bool matches(const ksx::String& pnpId, const ksx::String& entry);
};
