// Foundation: what the whole program stands on and that knows nothing of traffic.
// One row of a list or combo box, as the logic hands it to a form.
#pragma once

#include "foundation/text.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace vantor {

/// A row: its text (bytes of the code page) and its item data, the integer that leads back to its record.
struct ListRow {
    std::string text;
    std::int32_t itemData = 0;
    friend bool operator==(const ListRow&, const ListRow&) = default;
};

using ListRows = std::vector<ListRow>;

/// The order of a sorted list box: ascending without regard to case, equal rows in order of arrival.
inline void sortRows(ListRows& rows) {
    std::ranges::stable_sort(rows, lessNoCase, &ListRow::text);
}

} // namespace vantor
