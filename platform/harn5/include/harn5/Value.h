#pragma once
// Value of a parameter or device property: a text, or a list of texts for string arrays.
// Unset (empty) values read as false, 0 and the empty text.
#include <vector>

#include "harn5/HarnString.h"
#include "ksx/String.h"

namespace harn5 {

class Value {
public:
    Value();
    Value(const ksx::String& text);            // one text; a non-empty text is one array element
    Value(const HarnString& text);
    explicit Value(std::vector<HarnString> items);   // a string array; valueString joins with ';'

    // These throw HarnException when the text is not of the asked kind.
    bool valueBool() const;                    // true/false/1/0/yes/no, any case; empty is false
    int valueInt32() const;                    // decimal; empty is 0
    unsigned int valueUint32() const;          // decimal 0..4294967295; empty is 0
    const HarnString& valueString() const;

    unsigned int stringArraySize() const;
    const HarnString& getStringInArray(unsigned int index) const;   // throws past the end

private:
    HarnString m_text;
    std::vector<HarnString> m_items;
};

}  // namespace harn5
