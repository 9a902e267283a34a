#include "hidcut/ItemReader.h"

namespace hidcut {

namespace {

constexpr std::uint8_t kLongItemPrefix = 0xFE;

std::string at(std::size_t offset)
{
    return " at byte " + std::to_string(offset);
}

std::string hex(std::uint8_t value)
{
    static constexpr char kDigits[] = "0123456789abcdef";
    return std::string("0x") + kDigits[value >> 4] + kDigits[value & 0xF];
}

}  // namespace

std::vector<Item> ItemReader::read(std::span<const std::uint8_t> descriptor, std::string& error)
{
    std::vector<Item> items;
    std::size_t offset = 0;
    while (offset < descriptor.size()) {
        const std::uint8_t prefix = descriptor[offset];
        Item item;
        item.offset = offset;
        std::size_t header = 1;
        if (prefix == kLongItemPrefix) {
            // Long item: a size byte and a tag byte, then that many data bytes.
            if (offset + 3 > descriptor.size()) {
                error = "a long item is cut short" + at(offset);
                return {};
            }
            item.type = ItemType::Long;
            item.dataSize = descriptor[offset + 1];
            item.tag = descriptor[offset + 2];
            header = 3;
        } else {
            static constexpr std::uint8_t kSizes[] = {0, 1, 2, 4};
            item.type = static_cast<ItemType>((prefix >> 2) & 0x3);
            item.tag = static_cast<std::uint8_t>(prefix >> 4);
            item.dataSize = kSizes[prefix & 0x3];
            if (item.type == ItemType::Long) {
                error = "item " + hex(prefix) + " has the reserved type" + at(offset);
                return {};
            }
        }
        item.length = header + item.dataSize;
        if (offset + item.length > descriptor.size()) {
            error = "an item needs " + std::to_string(item.dataSize) + " data bytes" + at(offset) + ", the descriptor ends first";
            return {};
        }
        if (item.type != ItemType::Long) {
            for (std::size_t i = item.dataSize; i > 0; --i) {
                item.data = (item.data << 8) | descriptor[offset + header + i - 1];
            }
        }
        items.push_back(item);
        offset += item.length;
    }
    return items;
}

}  // namespace hidcut
