#include "PnPIdExclusion.h"

bool PnPIdExclusion::matches(const ksx::String& pnpId, const ksx::String& entry)
{
    if (entry.empty() || pnpId.empty()) {
        return false;
    }
    ksx::String trimmed = entry;
    trimmed.trim();
    // An entry of blanks trims to nothing, which equals no id that is not empty itself.
    return trimmed.equalNoCase(pnpId);
}
