#pragma once
// One item of a HID report descriptor (HID 1.11, 6.2.2), where it lies in the descriptor.
#include <cstddef>
#include <cstdint>

namespace hidcut {

enum class ItemType : std::uint8_t { Main = 0, Global = 1, Local = 2, Long = 3 };

namespace tag {
// Main items.
constexpr std::uint8_t kInput = 0x8;
constexpr std::uint8_t kOutput = 0x9;
constexpr std::uint8_t kCollection = 0xA;
constexpr std::uint8_t kFeature = 0xB;
constexpr std::uint8_t kEndCollection = 0xC;
// Global items.
constexpr std::uint8_t kUsagePage = 0x0;
constexpr std::uint8_t kReportId = 0x8;
constexpr std::uint8_t kPush = 0xA;
constexpr std::uint8_t kPop = 0xB;
constexpr std::uint8_t kLastGlobalValue = 0x9;   // usage page .. report count hold values
// Local items.
constexpr std::uint8_t kUsage = 0x0;
}  // namespace tag

struct Item {
    std::size_t offset = 0;     // of its prefix byte
    std::size_t length = 0;     // prefix and data
    ItemType type = ItemType::Main;
    std::uint8_t tag = 0;
    std::uint8_t dataSize = 0;  // 0, 1, 2 or 4 bytes (any size for a long item)
    std::uint32_t data = 0;     // the data bytes, little endian, unsigned

    bool is(ItemType itemType, std::uint8_t itemTag) const { return type == itemType && tag == itemTag; }
};

}  // namespace hidcut
