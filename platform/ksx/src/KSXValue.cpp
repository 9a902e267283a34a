#include "ksx/KSXValue.h"

#include <string>

#include "ksx/Exception.h"

KSXValue::KSXValue(const int& value)
    : m_negative(value < 0),
      // Negate in unsigned arithmetic so that INT_MIN has a magnitude too.
      m_magnitude(value < 0 ? 0ULL - static_cast<unsigned long long>(value)
                            : static_cast<unsigned long long>(value))
{
}

KSXValue::KSXValue(const unsigned int& value) : m_negative(false), m_magnitude(value)
{
}

KSXValue::KSXValue(const unsigned long long& value) : m_negative(false), m_magnitude(value)
{
}

ksx::String KSXValue::toString(unsigned int nil) const
{
    if (nil != nilValue()) throw ksx::Exception("KSXValue::toString: unsupported rendering " + std::to_string(nil));
    std::string digits = std::to_string(m_magnitude);
    if (m_negative) digits.insert(digits.begin(), '-');
    return ksx::String(digits);
}

unsigned int KSXValue::nilValue()
{
    return 0;
}
