#include "harn5/SystemMouseSource.h"

#include <windows.h>

#include <string>

namespace harn5 {

void SystemMouseSource::enumerate(std::vector<DiagDevice>& devices)
{
    if (GetSystemMetrics(SM_MOUSEPRESENT) == 0) {
        return;
    }
    const auto metric = [](int index) { return HarnString(std::to_string(GetSystemMetrics(index))); };
    devices.emplace_back(HarnString("System mouse"), DeviceCapability::Mouse(),
                         std::vector<DeviceProperty>{
                             {HarnString("Buttons"), metric(SM_CMOUSEBUTTONS)},
                             {HarnString("WheelPresent"), metric(SM_MOUSEWHEELPRESENT)},
                             {HarnString("ButtonsSwapped"), metric(SM_SWAPBUTTON)},
                         });
}

}  // namespace harn5
