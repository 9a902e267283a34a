#pragma once
// A number of one of the core library's integer kinds, turned into text on demand.
#include "ksx/String.h"

class KSXValue {
public:
    KSXValue(const int& value);
    KSXValue(const unsigned int& value);
    KSXValue(const unsigned long long& value);

    // Decimal text of the value. `nil` selects the rendering; only nilValue(), the plain
    // decimal form, exists, and anything else throws ksx::Exception.
    ksx::String toString(unsigned int nil) const;
    static unsigned int nilValue();

private:
    bool m_negative;
    unsigned long long m_magnitude;
};
