#pragma once
// A test verdict. The integers are the host's and double as process exit statuses.
namespace harn5 {

class TestResult {
public:
    TestResult();                              // TESTNOTSTARTED
    TestResult(const TestResult&) = default;
    TestResult& operator=(const TestResult&) = default;

    int value() const;
    const char* name() const;                  // "PASS", "FAIL", ... for reports

    bool operator==(const TestResult& other) const;
    bool operator!=(const TestResult& other) const;

    static const TestResult& PASS();           // 0
    static const TestResult& FAIL();           // 1
    static const TestResult& WARN();           // 2
    static const TestResult& USERABORTED();    // 3
    static const TestResult& CANNOTRUN();      // 4
    static const TestResult& SKIPPED();        // 5
    static const TestResult& INTERNALERROR();  // 6
    static const TestResult& EXITEDABNORMALLY();  // 7
    static const TestResult& TESTNOTSTARTED(); // 8

private:
    explicit TestResult(int value);
    int m_value;
};

}  // namespace harn5
