#include "harn5/Parameter.h"

namespace harn5 {

Parameter::Parameter(const HarnString& name, const DataType& type, const HarnString& text)
    : m_name(name), m_type(&type), m_text(text)
{
}

bool Parameter::isset() const
{
    return m_isset;
}

Value Parameter::value() const
{
    return m_value;
}

const HarnString& Parameter::name() const
{
    return m_name;
}

const DataType& Parameter::type() const
{
    return *m_type;
}

const HarnString& Parameter::text() const
{
    return m_text;
}

void Parameter::assign(const Value& value)
{
    m_value = value;
    m_isset = true;
}

void Parameter::reset()
{
    m_value = Value();
    m_isset = false;
}

}  // namespace harn5
