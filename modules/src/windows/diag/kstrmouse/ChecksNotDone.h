#pragma once
// The classic test's checks the host's parameters demand and the user has not done yet, in the
// two places they show: the line under the instructions, and at a Fail or a Close one error event
// each in the report.
#include <string>
#include <vector>

#include "MissingChecks.h"
#include "Mouse.h"

class ChecksNotDone {
public:
    ChecksNotDone(const Mouse& mouse, bool doubleClickDone, bool dragDropDone);

    bool empty() const { return m_checks.empty(); }
    // "Still to do: left button, wheel" in the host's language; empty when nothing is.
    std::wstring line() const;
    // One event per check (both tilt directions missing is one tilt event).
    void report() const;

private:
    std::vector<MissingChecks::Check> m_checks;
};
