#pragma once
// Handle of a registered event: a named failure or notice reported during a test, and the places
// the module says it reports it from, so that the registration can be listed and checked whole.
#include <string>
#include <vector>

#include "harn5/HarnString.h"

namespace harn5 {

class Event {
public:
    struct Site {
        std::string severity;   // "error", "warning" or "informative"
        std::string sourceFile;
        int line = 0;
    };

    explicit Event(const HarnString& name);
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    const HarnString& name() const;
    // Declares a place the event is reported from; answers the event for chaining.
    Event* reportedAs(const std::string& severity, const std::string& sourceFile, int line);
    const std::vector<Site>& sites() const;
    // Whether a report so made is one of the declared ones (any, when none was declared).
    bool declared(const std::string& severity, const std::string& sourceFile, int line) const;

private:
    HarnString m_name;
    std::vector<Site> m_sites;
};

}  // namespace harn5
