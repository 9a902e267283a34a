#pragma once
// The data fields (constants left out) of one input report of a top-level collection, searched by
// usage.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "hidrd/ReportDescriptor.h"
#include "hidrd/ReportValue.h"

namespace hidrd {

class ReportFields {
public:
    struct Found {
        ReportValue value;
        const Field* field = nullptr;
    };

    ReportFields(const ReportDescriptor& descriptor, std::size_t topLevel, std::uint8_t reportId);

    // The first element of a variable field with this usage; only among the fields declared in
    // `collection` itself, when one is given.
    std::optional<Found> find(Usage wanted, std::optional<std::size_t> collection = std::nullopt) const;
    const std::vector<const Field*>& fields() const { return m_fields; }

    // Whether an element of the variable field has this usage.
    static bool carries(const Field& field, Usage wanted);
    // The first data field of the collection, in any of its reports, with an element of this usage.
    static const Field* first(const ReportDescriptor& descriptor, std::size_t topLevel, Usage wanted);

private:
    std::vector<const Field*> m_fields;
};

}  // namespace hidrd
