#include "harn5/Test.h"

#include <algorithm>

#include "harn5/Language.h"

namespace harn5 {

Test::Test(const HarnString& name, const DeviceCapability& capability, Entry entryPoint,
           const Language& language)
    : m_name(name), m_capability(capability), m_entry(entryPoint), m_language(language)
{
}

Test* Test::setInteractive(bool interactive)
{
    m_interactive = interactive;
    return this;
}

Test* Test::setCreatesOwnGUI(bool createsOwnGUI)
{
    m_createsOwnGUI = createsOwnGUI;
    return this;
}

Test* Test::setEnumeratesOnlyOnce(bool enumeratesOnlyOnce)
{
    m_enumeratesOnlyOnce = enumeratesOnlyOnce;
    return this;
}

Test* Test::addParameter(const Parameter* parameter)
{
    if (parameter != nullptr && !lists(parameter)) {
        m_parameters.push_back(parameter);
    }
    return this;
}

Test* Test::addDevicePropertyExclusion(const HarnString& property, const HarnString& value)
{
    m_exclusions.emplace_back(property, value);
    return this;
}

const HarnString& Test::localizedName() const
{
    m_localizedName = HarnString(m_language.lookup(Language::Section::Tests, m_name.utf8()));
    return m_localizedName;
}

const HarnString& Test::name() const
{
    return m_name;
}

const DeviceCapability& Test::capability() const
{
    return m_capability;
}

Test::Entry Test::entry() const
{
    return m_entry;
}

bool Test::interactive() const
{
    return m_interactive;
}

bool Test::createsOwnGUI() const
{
    return m_createsOwnGUI;
}

bool Test::enumeratesOnlyOnce() const
{
    return m_enumeratesOnlyOnce;
}

const std::vector<const Parameter*>& Test::parameters() const
{
    return m_parameters;
}

const std::vector<Test::Exclusion>& Test::exclusions() const
{
    return m_exclusions;
}

bool Test::lists(const Parameter* parameter) const
{
    return std::find(m_parameters.begin(), m_parameters.end(), parameter) != m_parameters.end();
}

Test* Test::requireDeviceProperty(const HarnString& property)
{
    m_required.push_back(property);
    return this;
}

const std::vector<HarnString>& Test::requiredProperties() const
{
    return m_required;
}

bool Test::excludes(const DiagDevice& device) const
{
    const bool lacking = std::any_of(m_required.begin(), m_required.end(),
                                     [&](const HarnString& property) { return device.property(property) == nullptr; });
    return lacking || std::any_of(m_exclusions.begin(), m_exclusions.end(), [&](const Exclusion& exclusion) {
        const DeviceProperty* property = device.property(exclusion.first);
        return property != nullptr &&
               (exclusion.second.empty() ||
                property->text().ksxString().equalNoCase(exclusion.second.ksxString()));
    });
}

bool Test::fits(const DiagDevice& device) const
{
    return device.hasCapability(m_capability) && !excludes(device);
}

}  // namespace harn5
