#pragma once
// The top-level collections of a whole report descriptor, and any one of them cut out with the
// global items in force where it starts, so that it can be served as a device's only collection
// and mean what it meant in the whole.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace hidcut {

struct TopLevelCollection {
    std::uint16_t usagePage = 0;
    std::uint16_t usage = 0;
    std::size_t begin = 0;   // offset of its Collection item
    std::size_t end = 0;     // offset past its End Collection
};

class CollectionCutter {
public:
    static constexpr std::uint16_t kDigitizerPage = 0x0D;
    static constexpr std::uint16_t kTouchPadUsage = 0x05;

    // Nothing, with why, for a descriptor whose items or collections do not parse.
    static std::optional<CollectionCutter> parse(std::span<const std::uint8_t> descriptor, std::string& error);

    const std::vector<TopLevelCollection>& collections() const { return m_collections; }

    // The collection alone: the global items in force where it starts (the stack of pushed
    // states its own Pops reach, the report id only if it sends reports before setting its
    // own), the local items that name it, then its items as they were.
    std::vector<std::uint8_t> cut(std::size_t index) const;

    // The first touchpad collection (Digitizer page, Touch Pad usage), if there is one.
    std::optional<std::size_t> touchpad() const;

private:
    struct Start {
        std::vector<std::uint8_t> globals;   // the state in force, encoded
        std::vector<std::uint8_t> locals;    // the local items before its Collection item
    };

    std::vector<std::uint8_t> m_descriptor;
    std::vector<TopLevelCollection> m_collections;
    std::vector<Start> m_starts;
};

}  // namespace hidcut
