#include "vhid/ReportShape.h"

namespace vhid {

void ReportShape::declare(std::uint8_t reportId, std::uint16_t inputLength, std::uint16_t featureLength)
{
    m_reports[reportId] = {inputLength, featureLength};
}

bool ReportShape::has(std::uint8_t reportId, Kind kind) const
{
    const auto found = m_reports.find(reportId);
    return found != m_reports.end() && (kind == Kind::Input ? found->second.input : found->second.feature) > 0;
}

std::optional<std::vector<std::uint8_t>> ReportShape::fit(const std::vector<std::uint8_t>& report, Kind kind,
                                                          std::string& error) const
{
    const char* name = kind == Kind::Input ? "input" : "feature";
    if (report.empty()) {
        error = std::string("an empty ") + name + " report";
        return std::nullopt;
    }
    const auto found = m_reports.find(report[0]);
    const std::uint16_t length =
        found == m_reports.end() ? 0 : (kind == Kind::Input ? found->second.input : found->second.feature);
    if (length == 0) {
        std::string known;
        for (const auto& [id, lengths] : m_reports) {
            if ((kind == Kind::Input ? lengths.input : lengths.feature) > 0) {
                known += (known.empty() ? "" : ", ") + std::to_string(id);
            }
        }
        error = "the collection has no " + std::string(name) + " report with id " + std::to_string(report[0]) +
                (known.empty() ? std::string(" (it has none)") : " (its ids: " + known + ")");
        return std::nullopt;
    }
    if (report.size() > length) {
        error = "the " + std::string(name) + " report " + std::to_string(report[0]) + " is " +
                std::to_string(report.size()) + " bytes, longer than the collection's " + std::to_string(length);
        return std::nullopt;
    }
    std::vector<std::uint8_t> fitted = report;
    fitted.resize(length, 0);
    return fitted;
}

}  // namespace vhid
