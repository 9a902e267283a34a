#pragma once
// The global items in force at a point of a report descriptor, with the states Push saved.
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "hidcut/Item.h"

namespace hidcut {

class GlobalState {
public:
    // Takes a global item read from the descriptor; false, with why, for a Pop with nothing
    // pushed or a reserved tag.
    bool apply(const Item& item, std::span<const std::uint8_t> descriptor, std::string& error);

    std::uint32_t usagePage() const;
    std::size_t pushed() const { return m_stack.size(); }

    // The items that set the state in force, as they were written; the report id only if asked.
    std::vector<std::uint8_t> encode(bool withReportId) const;
    // The items that rebuild the `levels` states pushed last, deepest first, each followed by a
    // Push, so that as many Pops find them.
    std::vector<std::uint8_t> encodePushed(std::size_t levels) const;

private:
    // Per tag, the bytes of the item that last set it (empty: never set).
    using Values = std::array<std::vector<std::uint8_t>, tag::kLastGlobalValue + 1>;

    static std::vector<std::uint8_t> encode(const Values& values, bool withReportId);

    Values m_current;
    std::vector<Values> m_stack;
};

}  // namespace hidcut
