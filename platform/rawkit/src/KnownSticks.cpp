#include "rawkit/KnownSticks.h"

#include "rawkit/InterfacePath.h"

#include <cctype>
#include <utility>

namespace rawkit {

namespace {

std::string_view trim(std::string_view text)
{
    const auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
    while (!text.empty() && blank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && blank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

}  // namespace

KnownSticks::KnownSticks(std::vector<std::string> ids)
{
    for (const std::string& id : ids) {
        m_ids.push_back(InterfacePath::upper(id));
    }
}

KnownSticks KnownSticks::parse(std::string_view text)
{
    std::vector<std::string> ids;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        line = trim(line.substr(0, line.find('#')));
        if (!line.empty()) {
            ids.emplace_back(line);
        }
    }
    return KnownSticks(std::move(ids));
}

bool KnownSticks::contains(std::string_view hardwareId) const
{
    const std::string id = InterfacePath::upper(hardwareId);
    for (const std::string& entry : m_ids) {
        if (id.compare(0, entry.size(), entry) != 0) {
            continue;
        }
        if (id.size() == entry.size() || id[entry.size()] == '&' || id[entry.size()] == '\\') {
            return true;
        }
    }
    return false;
}

}  // namespace rawkit
