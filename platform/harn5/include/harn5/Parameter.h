#pragma once
// Handle of a registered option. Its value is given by the host for the current process.
#include "harn5/DataType.h"
#include "harn5/HarnString.h"
#include "harn5/Value.h"

namespace harn5 {

class Parameter {
public:
    Parameter(const HarnString& name, const DataType& type, const HarnString& text);
    Parameter(const Parameter&) = delete;
    Parameter& operator=(const Parameter&) = delete;

    bool isset() const;
    Value value() const;                       // the empty value while unset

    const HarnString& name() const;
    const DataType& type() const;
    const HarnString& text() const;

    // Host side: the value given on the command line, or back to unset.
    void assign(const Value& value);
    void reset();

private:
    HarnString m_name;
    const DataType* m_type;
    HarnString m_text;
    bool m_isset = false;
    Value m_value;
};

}  // namespace harn5
