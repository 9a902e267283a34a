#include "PassButtonPolicy.h"

#include "Registration.h"

PassButtonPolicy getPassButtonPolicy()
{
    // Unset parameters read as false from the host, which keeps Pass enabled.
    if (kstrmouse::params::bDisablePassUntilFinished->value().valueBool()) {
        return DisabledUntilFinished;
    }
    return kstrmouse::params::bDisablePassUntilStarted->value().valueBool() ? DisabledUntilStarted : Enabled;
}
