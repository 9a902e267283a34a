#pragma once
// Contacts nobody made: the hands-off period runs for a set time from when it is started, and
// every contact that touches down in it (finger or palm) is a ghost, kept with where and when.
#include <cstdint>
#include <optional>
#include <vector>

#include "rawkit/TouchFrame.h"

namespace touchq {

class HandsOff {
public:
    static constexpr std::size_t kKept = 8;   // ghosts kept with their place; the rest are counted

    struct Ghost {
        std::uint32_t id = 0;
        std::int32_t x = 0;
        std::int32_t y = 0;
        std::int64_t afterUs = 0;   // from the start of the period
        bool palm = false;
    };

    void start(std::int64_t nowUs, std::int64_t lengthUs);
    void add(const rawkit::TouchFrame& frame);

    bool started() const { return m_startUs.has_value(); }
    bool running(std::int64_t nowUs) const;
    bool done(std::int64_t nowUs) const;
    // Microseconds left, 0 when not running.
    std::int64_t remainingUs(std::int64_t nowUs) const;
    std::uint32_t ghosts() const { return m_ghosts; }
    const std::vector<Ghost>& kept() const { return m_kept; }

private:
    std::optional<std::int64_t> m_startUs;
    std::int64_t m_lengthUs = 0;
    std::uint32_t m_ghosts = 0;
    std::vector<Ghost> m_kept;
    std::vector<std::uint32_t> m_down;   // ids touching in the period's frame before
    std::vector<std::uint32_t> m_next;
};

}  // namespace touchq
