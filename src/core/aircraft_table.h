// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// The aircraft table: its order, and the way to a row by code.
#pragma once

#include "core/record_store.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace vantor {

/// A table of aircraft, row 1 upward. Rows are read in place, and what stands in them is changed by put and replace.
class AircraftTable : public RecordStore<AircraftRec> {
  public:
    /// Overwrites a row. One that isn't there is error 9.
    void put(std::int32_t row, AircraftRec record) {
        static_cast<void>((*this)[row]);
        store(row, std::move(record));
    }
    /// Puts other rows in the place of all: for what moves rows or adds some.
    void replace(OneBased<AircraftRec> rows) { storeAll(std::move(rows)); }
    /// A copy of all rows, to be changed and put back.
    [[nodiscard]] OneBased<AircraftRec> rows() const { return all(); }
    /// Drops all rows.
    void clear() { replace({}); }
};

/// The number inside an aircraft code: what stands from the fourth character on, whatever the first three are.
[[nodiscard]] std::int32_t trueacnum(std::string_view code) noexcept;
/// Sorts rows 1 to aircraftcount by that number; rows with equal numbers keep their order.
void SortAircraft();
/// The row of a code in the aircraft table, or -1. Deleted aircraft are found like any other.
[[nodiscard]] std::int32_t aircraftrecord(std::string_view code) noexcept;
/// The aircraft's title, or the code as it was given.
[[nodiscard]] std::string aircrafttitle(std::string_view code);

} // namespace vantor
