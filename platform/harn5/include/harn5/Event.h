#pragma once
// Handle of a registered event: a named failure or notice reported during a test.
#include "harn5/HarnString.h"

namespace harn5 {

class Event {
public:
    explicit Event(const HarnString& name);
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    const HarnString& name() const;

private:
    HarnString m_name;
};

}  // namespace harn5
