#pragma once
// Handle of a registered event: a named failure or notice reported during a test, and where the
// module says it reports it from, so that the registration can be listed and checked whole.
#include <optional>
#include <string>

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
    // Declares the one place the event is reported from; answers the event for chaining.
    Event* reportedAs(const std::string& severity, const std::string& sourceFile, int line);
    const std::optional<Site>& site() const;

private:
    HarnString m_name;
    std::optional<Site> m_site;
};

}  // namespace harn5
