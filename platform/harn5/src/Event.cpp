#include "harn5/Event.h"

namespace harn5 {

Event::Event(const HarnString& name) : m_name(name) {}

const HarnString& Event::name() const
{
    return m_name;
}

Event* Event::reportedAs(const std::string& severity, const std::string& sourceFile, int line)
{
    m_site = Site{severity, sourceFile, line};
    return this;
}

const std::optional<Event::Site>& Event::site() const
{
    return m_site;
}

}  // namespace harn5
