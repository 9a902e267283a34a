#include "harn5/Event.h"

namespace harn5 {

Event::Event(const HarnString& name) : m_name(name) {}

const HarnString& Event::name() const
{
    return m_name;
}

}  // namespace harn5
