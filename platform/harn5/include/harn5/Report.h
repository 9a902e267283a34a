#pragma once
// The results report: one JSON document rewritten whole after every change, so a killed
// process leaves every verdict and event reported so far in a valid file.
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "harn5/EventRecord.h"
#include "harn5/RunRecord.h"
#include "harn5/TestResult.h"

namespace harn5 {

class Report {
public:
    Report();
    // An empty path keeps the report in memory only.
    void open(const std::filesystem::path& path, const std::string& module,
              const std::string& version, const std::string& language);

    std::size_t beginRun(RunRecord run);       // the run's index
    void addEvent(std::optional<std::size_t> run, EventRecord event);   // none: module event
    void addMeasurements(std::size_t run, const std::vector<RunRecord::Measurement>& measurements);
    void finishRun(std::size_t run, const TestResult& verdict, const std::string& exception = {});
    void setExitStatus(int status);

    const std::vector<RunRecord>& runs() const;
    const std::filesystem::path& path() const { return m_path; }   // empty: kept in memory only
    const std::vector<EventRecord>& moduleEvents() const;
    std::string toJson() const;
    std::string summary() const;               // one line per run, for stdout

    static std::string now();                  // ISO 8601 UTC with milliseconds

private:
    void write() const;

    std::filesystem::path m_path;
    std::string m_module;
    std::string m_version;
    std::string m_started;
    std::string m_language;
    std::vector<RunRecord> m_runs;
    std::vector<EventRecord> m_moduleEvents;
    std::optional<int> m_exitStatus;
};

}  // namespace harn5
