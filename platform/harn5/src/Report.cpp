#include "harn5/Report.h"

#include <chrono>
#include <cstdio>
#include <ctime>
#include <utility>

#include "harn5/AtomicFile.h"
#include "harn5/JsonWriter.h"

namespace harn5 {

namespace {

void writeEvents(JsonWriter& json, const std::vector<EventRecord>& events)
{
    json.beginArray();
    for (const EventRecord& event : events) {
        json.beginObject()
            .key("name").string(event.name)
            .key("severity").string(event.severity)
            .key("sourceFile").string(event.sourceFile)
            .key("line").number(event.line)
            .key("time").string(event.time);
        if (!event.detail.empty()) {
            json.key("detail").string(event.detail);
        }
        json.endObject();
    }
    json.endArray();
}

void writeRun(JsonWriter& json, const RunRecord& run)
{
    json.beginObject().key("test").string(run.test).key("displayName").string(run.displayName);
    json.key("device");
    if (run.device) {
        json.beginObject()
            .key("name").string(run.device->name)
            .key("capabilities").string(run.device->capabilities)
            .key("properties").beginObject();
        for (const auto& [name, value] : run.device->properties) {
            json.key(name).string(value);
        }
        json.endObject().endObject();
    } else {
        json.null();
    }
    json.key("state").string(run.finished ? "finished" : "running");
    if (run.verdict) {
        json.key("verdict").string(run.verdict->name()).key("verdictValue").number(run.verdict->value());
    } else {
        json.key("verdict").null().key("verdictValue").null();
    }
    json.key("started").string(run.started).key("ended");
    if (run.finished) {
        json.string(run.ended);
    } else {
        json.null();
    }
    json.key("events");
    writeEvents(json, run.events);
    if (!run.measurements.empty()) {
        json.key("measurements").beginArray();
        for (const RunRecord::Measurement& measurement : run.measurements) {
            json.beginObject()
                .key("name")
                .string(measurement.name)
                .key("value")
                .real(measurement.value)
                .key("unit")
                .string(measurement.unit)
                .endObject();
        }
        json.endArray();
    }
    if (!run.reason.empty()) {
        json.key("reason").string(run.reason);
    }
    if (!run.exception.empty()) {
        json.key("exception").string(run.exception);
    }
    json.endObject();
}

}  // namespace

Report::Report() = default;

void Report::open(const std::filesystem::path& path, const std::string& module,
                  const std::string& version, const std::string& language)
{
    m_path = path;
    m_module = module;
    m_version = version;
    m_started = now();
    m_language = language;
    m_runs.clear();
    m_moduleEvents.clear();
    m_exitStatus.reset();
    write();
}

std::size_t Report::beginRun(RunRecord run)
{
    run.finished = false;
    run.started = now();
    m_runs.push_back(std::move(run));
    write();
    return m_runs.size() - 1;
}

void Report::addEvent(std::optional<std::size_t> run, EventRecord event)
{
    event.time = now();
    (run ? m_runs.at(*run).events : m_moduleEvents).push_back(std::move(event));
    write();
}

void Report::addMeasurements(std::size_t run, const std::vector<RunRecord::Measurement>& measurements)
{
    std::vector<RunRecord::Measurement>& kept = m_runs.at(run).measurements;
    kept.insert(kept.end(), measurements.begin(), measurements.end());
    write();
}

void Report::finishRun(std::size_t run, const TestResult& verdict, const std::string& exception)
{
    RunRecord& record = m_runs.at(run);
    record.finished = true;
    record.verdict = verdict;
    record.ended = now();
    record.exception = exception;
    write();
}

void Report::setExitStatus(int status)
{
    m_exitStatus = status;
    write();
}

const std::vector<RunRecord>& Report::runs() const
{
    return m_runs;
}

const std::vector<EventRecord>& Report::moduleEvents() const
{
    return m_moduleEvents;
}

std::string Report::toJson() const
{
    JsonWriter json;
    json.beginObject()
        .key("module").string(m_module)
        .key("version").string(m_version)
        .key("started").string(m_started)
        .key("language").string(m_language)
        .key("runs").beginArray();
    for (const RunRecord& run : m_runs) {
        writeRun(json, run);
    }
    json.endArray().key("moduleEvents");
    writeEvents(json, m_moduleEvents);
    if (m_exitStatus) {
        json.key("exitStatus").number(*m_exitStatus);
    }
    json.endObject();
    return json.text() + "\n";
}

std::string Report::summary() const
{
    std::string text;
    for (const RunRecord& run : m_runs) {
        text += run.test + " on " + (run.device ? run.device->name : std::string("no device")) + ": " +
                (run.verdict ? run.verdict->name() : "still running");
        if (!run.reason.empty()) {
            text += " (" + run.reason + ")";
        }
        if (!run.exception.empty()) {
            text += " (" + run.exception + ")";
        }
        if (run.events.empty()) {
            text += "; no events";
        } else {
            text += "; events:";
            for (const EventRecord& event : run.events) {
                text += " " + event.name + " (" + event.severity + ")";
            }
        }
        text += "\n";
    }
    return text;
}

std::string Report::now()
{
    const auto time = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    const auto millis =
        std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch()).count() % 1000;
    std::tm utc{};
#ifdef _WIN32
    gmtime_s(&utc, &seconds);
#else
    gmtime_r(&seconds, &utc);
#endif
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d.%03dZ", utc.tm_year + 1900,
                  utc.tm_mon + 1, utc.tm_mday, utc.tm_hour, utc.tm_min, utc.tm_sec,
                  static_cast<int>(millis));
    return text;
}

void Report::write() const
{
    if (!m_path.empty()) {
        AtomicFile::replace(m_path, toJson());
    }
}

}  // namespace harn5
