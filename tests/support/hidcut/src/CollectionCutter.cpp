#include "hidcut/CollectionCutter.h"

#include "hidcut/GlobalState.h"
#include "hidcut/ItemReader.h"

namespace hidcut {

namespace {

// What a top-level collection needs of the state in force where it starts, learnt while reading it.
struct OpenCollection {
    GlobalState state;                      // where it started
    std::vector<std::uint8_t> locals;
    TopLevelCollection collection;
    std::size_t pushes = 0;                 // its own pushes not yet popped
    std::size_t borrowed = 0;               // pops of states pushed before it started
    bool setsReportId = false;
    bool usesOuterReportId = false;         // a report before its own report id
};

bool isData(const Item& item)
{
    return item.type == ItemType::Main &&
           (item.tag == tag::kInput || item.tag == tag::kOutput || item.tag == tag::kFeature);
}

// The usage a collection is named by: its first usage, an extended one carrying its own page.
void nameCollection(TopLevelCollection& collection, const std::vector<Item>& locals, std::uint32_t page)
{
    for (const Item& local : locals) {
        if (local.tag == tag::kUsage) {
            collection.usagePage = static_cast<std::uint16_t>(local.dataSize == 4 ? local.data >> 16 : page);
            collection.usage = static_cast<std::uint16_t>(local.data & 0xFFFF);
            return;
        }
    }
    collection.usagePage = static_cast<std::uint16_t>(page);
}

}  // namespace

std::optional<CollectionCutter> CollectionCutter::parse(std::span<const std::uint8_t> descriptor, std::string& error)
{
    const std::vector<Item> items = ItemReader::read(descriptor, error);
    if (items.empty()) {
        if (error.empty()) {
            error = "the descriptor is empty";
        }
        return std::nullopt;
    }
    CollectionCutter cutter;
    cutter.m_descriptor.assign(descriptor.begin(), descriptor.end());
    GlobalState state;
    std::vector<Item> locals;
    std::size_t depth = 0;
    std::optional<OpenCollection> open;
    for (const Item& item : items) {
        const std::string where = " at byte " + std::to_string(item.offset);
        if (item.type == ItemType::Global) {
            if (open && item.tag == tag::kPush) {
                ++open->pushes;
            } else if (open && item.tag == tag::kPop) {
                if (open->pushes > 0) {
                    --open->pushes;
                } else {
                    ++open->borrowed;
                }
            } else if (open && item.tag == tag::kReportId) {
                open->setsReportId = true;
            }
            if (!state.apply(item, descriptor, error)) {
                return std::nullopt;
            }
            continue;
        }
        if (item.type != ItemType::Main) {
            locals.push_back(item);   // local and long items
            continue;
        }
        if (item.tag == tag::kCollection) {
            if (depth++ == 0) {
                open.emplace();
                open->state = state;
                for (const Item& local : locals) {
                    open->locals.insert(open->locals.end(), descriptor.begin() + static_cast<std::ptrdiff_t>(local.offset),
                                        descriptor.begin() + static_cast<std::ptrdiff_t>(local.offset + local.length));
                }
                open->collection.begin = item.offset;
                nameCollection(open->collection, locals, state.usagePage());
            }
        } else if (item.tag == tag::kEndCollection) {
            if (depth == 0) {
                error = "End Collection without a Collection" + where;
                return std::nullopt;
            }
            if (--depth == 0) {
                open->collection.end = item.offset + item.length;
                Start start;
                start.globals = open->state.encodePushed(open->borrowed);
                const std::vector<std::uint8_t> globals = open->state.encode(open->usesOuterReportId);
                start.globals.insert(start.globals.end(), globals.begin(), globals.end());
                start.locals = std::move(open->locals);
                cutter.m_collections.push_back(open->collection);
                cutter.m_starts.push_back(std::move(start));
                open.reset();
            }
        } else if (isData(item)) {
            if (depth == 0) {
                error = "a report's item outside any collection" + where;
                return std::nullopt;
            }
            if (!open->setsReportId) {
                open->usesOuterReportId = true;
            }
        } else {
            error = "reserved main item" + where;
            return std::nullopt;
        }
        locals.clear();
    }
    if (depth != 0) {
        error = "the collection at byte " + std::to_string(open->collection.begin) + " is not closed";
        return std::nullopt;
    }
    if (cutter.m_collections.empty()) {
        error = "the descriptor has no collection";
        return std::nullopt;
    }
    return cutter;
}

std::vector<std::uint8_t> CollectionCutter::cut(std::size_t index) const
{
    const TopLevelCollection& collection = m_collections.at(index);
    const Start& start = m_starts.at(index);
    std::vector<std::uint8_t> out = start.globals;
    out.insert(out.end(), start.locals.begin(), start.locals.end());
    out.insert(out.end(), m_descriptor.begin() + static_cast<std::ptrdiff_t>(collection.begin),
               m_descriptor.begin() + static_cast<std::ptrdiff_t>(collection.end));
    return out;
}

std::optional<std::size_t> CollectionCutter::touchpad() const
{
    for (std::size_t i = 0; i < m_collections.size(); ++i) {
        if (m_collections[i].usagePage == kDigitizerPage && m_collections[i].usage == kTouchPadUsage) {
            return i;
        }
    }
    return std::nullopt;
}

}  // namespace hidcut
