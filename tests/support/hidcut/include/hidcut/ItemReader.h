#pragma once
// Splits a report descriptor into its items.
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "hidcut/Item.h"

namespace hidcut {

class ItemReader {
public:
    // Every item in order; empty, with why, when an item runs past the end.
    static std::vector<Item> read(std::span<const std::uint8_t> descriptor, std::string& error);
};

}  // namespace hidcut
