// Explorer: all flights in one table, on a world map, and checked.
// The rows of the tables in the order of a column.
#pragma once

#include "explorer/leg_number.h"
#include "explorer/leg_values.h"

#include <span>
#include <vector>

namespace vantor {

/// A column to sort by.
struct SortKey {
    LegColumn column = LegColumn::Aircraft;
    bool descending = false;
    friend bool operator==(const SortKey&, const SortKey&) = default;
};

/// All rows of the tables, sorted by the first key, equal ones by the next, and at last in the order of the tables.
/// Numbers and times go by their values, aircraft by their numbers, texts by capitals; what has no value stands last.
[[nodiscard]] std::vector<LegNumber> sortedRows(RowKind kind, std::span<const SortKey> keys);

} // namespace vantor
