#include "harn5/Event.h"

namespace harn5 {

Event::Event(const HarnString& name) : m_name(name) {}

const HarnString& Event::name() const
{
    return m_name;
}

Event* Event::reportedAs(const std::string& severity, const std::string& sourceFile, int line)
{
    m_sites.push_back(Site{severity, sourceFile, line});
    return this;
}

const std::vector<Event::Site>& Event::sites() const
{
    return m_sites;
}

bool Event::declared(const std::string& severity, const std::string& sourceFile, int line) const
{
    if (m_sites.empty()) {
        return true;
    }
    for (const Site& site : m_sites) {
        if (site.severity == severity && site.sourceFile == sourceFile && site.line == line) {
            return true;
        }
    }
    return false;
}

}  // namespace harn5
