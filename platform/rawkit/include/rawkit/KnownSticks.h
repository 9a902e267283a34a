#pragma once
// Hardware ids of pointing sticks that report as plain relative mice, from the text of a data
// file shipped beside the executable: one id per line, '#' starts a comment. An entry matches a device whose
// hardware id is the entry, or begins with it followed by '&' or '\' (an interface of it).
#include <string>
#include <string_view>
#include <vector>

namespace rawkit {

class KnownSticks {
public:
    KnownSticks() = default;
    explicit KnownSticks(std::vector<std::string> ids);

    static KnownSticks parse(std::string_view text);

    bool contains(std::string_view hardwareId) const;
    const std::vector<std::string>& ids() const { return m_ids; }

private:
    std::vector<std::string> m_ids;   // upper case
};

}  // namespace rawkit
