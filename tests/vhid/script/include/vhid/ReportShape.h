#pragma once
// The reports a collection takes, by report id and kind, as the platform's parser gives their
// lengths (with the id byte): a report given to the device is checked against them and made as
// long as the collection's report.
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vhid {

class ReportShape {
public:
    enum class Kind { Input, Feature };

    // Declares a report id's lengths (0: the collection has no such report).
    void declare(std::uint8_t reportId, std::uint16_t inputLength, std::uint16_t featureLength);
    bool has(std::uint8_t reportId, Kind kind) const;

    // The report padded with zeros to its declared length; nothing, with why, when its id has
    // no report of that kind or it is longer.
    std::optional<std::vector<std::uint8_t>> fit(const std::vector<std::uint8_t>& report, Kind kind,
                                                  std::string& error) const;

private:
    struct Lengths {
        std::uint16_t input = 0;
        std::uint16_t feature = 0;
    };
    std::map<std::uint8_t, Lengths> m_reports;
};

}  // namespace vhid
