#include "harn5/TestResult.h"

namespace harn5 {

namespace {
constexpr const char* kNames[] = {"PASS",          "FAIL",          "WARN",
                                  "USERABORTED",   "CANNOTRUN",     "SKIPPED",
                                  "INTERNALERROR", "EXITEDABNORMALLY", "TESTNOTSTARTED"};
}

TestResult::TestResult() : m_value(8) {}

TestResult::TestResult(int value) : m_value(value) {}

int TestResult::value() const
{
    return m_value;
}

const char* TestResult::name() const
{
    return kNames[m_value];
}

bool TestResult::operator==(const TestResult& other) const
{
    return m_value == other.m_value;
}

bool TestResult::operator!=(const TestResult& other) const
{
    return m_value != other.m_value;
}

// Function-local statics: usable from other translation units' static initialisers.
const TestResult& TestResult::PASS()             { static const TestResult r(0); return r; }
const TestResult& TestResult::FAIL()             { static const TestResult r(1); return r; }
const TestResult& TestResult::WARN()             { static const TestResult r(2); return r; }
const TestResult& TestResult::USERABORTED()      { static const TestResult r(3); return r; }
const TestResult& TestResult::CANNOTRUN()        { static const TestResult r(4); return r; }
const TestResult& TestResult::SKIPPED()          { static const TestResult r(5); return r; }
const TestResult& TestResult::INTERNALERROR()    { static const TestResult r(6); return r; }
const TestResult& TestResult::EXITEDABNORMALLY() { static const TestResult r(7); return r; }
const TestResult& TestResult::TESTNOTSTARTED()   { static const TestResult r(8); return r; }

}  // namespace harn5
