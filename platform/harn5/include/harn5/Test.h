#pragma once
// Handle of a registered test: its entry point, device needs, flags and parameters.
#include <utility>
#include <vector>

#include "harn5/DeviceCapability.h"
#include "harn5/DiagDevice.h"
#include "harn5/HarnString.h"
#include "harn5/TestResult.h"

namespace harn5 {

class Language;
class Parameter;

class Test {
public:
    using Entry = TestResult (*)(const DiagDevice&);
    using Exclusion = std::pair<HarnString, HarnString>;   // (property, value)

    Test(const HarnString& name, const DeviceCapability& capability, Entry entryPoint,
         const Language& language);
    Test(const Test&) = delete;
    Test& operator=(const Test&) = delete;

    Test* setInteractive(bool interactive);
    Test* setCreatesOwnGUI(bool createsOwnGUI);
    Test* setEnumeratesOnlyOnce(bool enumeratesOnlyOnce);
    Test* addParameter(const Parameter* parameter);
    // Excludes devices that have the property with this value (ignoring case), or with any
    // value when the value is empty.
    Test* addDevicePropertyExclusion(const HarnString& property, const HarnString& value);
    // Excludes devices that lack the property (such as the InterfacePath of a live device).
    Test* requireDeviceProperty(const HarnString& property);

    const HarnString& localizedName() const;   // display name in the current language

    const HarnString& name() const;
    const DeviceCapability& capability() const;
    Entry entry() const;
    bool interactive() const;
    bool createsOwnGUI() const;
    bool enumeratesOnlyOnce() const;
    const std::vector<const Parameter*>& parameters() const;
    const std::vector<Exclusion>& exclusions() const;
    const std::vector<HarnString>& requiredProperties() const;

    bool lists(const Parameter* parameter) const;
    bool excludes(const DiagDevice& device) const;
    bool fits(const DiagDevice& device) const;  // all capabilities and not excluded

private:
    HarnString m_name;
    DeviceCapability m_capability;
    Entry m_entry;
    const Language& m_language;
    bool m_interactive = false;
    bool m_createsOwnGUI = false;
    bool m_enumeratesOnlyOnce = false;
    std::vector<const Parameter*> m_parameters;
    std::vector<Exclusion> m_exclusions;
    std::vector<HarnString> m_required;
    mutable HarnString m_localizedName;
};

}  // namespace harn5
