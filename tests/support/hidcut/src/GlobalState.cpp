#include "hidcut/GlobalState.h"

namespace hidcut {

namespace {

constexpr std::uint8_t kPushItem = 0xA4;

}  // namespace

bool GlobalState::apply(const Item& item, std::span<const std::uint8_t> descriptor, std::string& error)
{
    if (item.tag == tag::kPush) {
        m_stack.push_back(m_current);
        return true;
    }
    if (item.tag == tag::kPop) {
        if (m_stack.empty()) {
            error = "Pop with nothing pushed at byte " + std::to_string(item.offset);
            return false;
        }
        m_current = m_stack.back();
        m_stack.pop_back();
        return true;
    }
    if (item.tag > tag::kLastGlobalValue) {
        error = "reserved global item at byte " + std::to_string(item.offset);
        return false;
    }
    const auto first = descriptor.begin() + static_cast<std::ptrdiff_t>(item.offset);
    m_current[item.tag].assign(first, first + static_cast<std::ptrdiff_t>(item.length));
    return true;
}

std::uint32_t GlobalState::usagePage() const
{
    std::uint32_t page = 0;
    const std::vector<std::uint8_t>& bytes = m_current[tag::kUsagePage];
    for (std::size_t i = bytes.size(); i > 1; --i) {
        page = (page << 8) | bytes[i - 1];
    }
    return page;
}

std::vector<std::uint8_t> GlobalState::encode(bool withReportId) const
{
    return encode(m_current, withReportId);
}

std::vector<std::uint8_t> GlobalState::encodePushed(std::size_t levels) const
{
    std::vector<std::uint8_t> out;
    for (std::size_t i = m_stack.size() - levels; i < m_stack.size(); ++i) {
        const std::vector<std::uint8_t> level = encode(m_stack[i], true);
        out.insert(out.end(), level.begin(), level.end());
        out.push_back(kPushItem);
    }
    return out;
}

std::vector<std::uint8_t> GlobalState::encode(const Values& values, bool withReportId)
{
    std::vector<std::uint8_t> out;
    for (std::size_t t = 0; t < values.size(); ++t) {
        if (t != tag::kReportId || withReportId) {
            out.insert(out.end(), values[t].begin(), values[t].end());
        }
    }
    return out;
}

}  // namespace hidcut
