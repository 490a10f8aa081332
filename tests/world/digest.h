// World: a generated world through the whole logic, held against digests.
// A running digest (FNV-1a, 64 bits) of values in a form that is the same on every machine.
#pragma once

#include "core/aircraft_table.h"
#include "core/records.h"
#include "foundation/fixed_text.h"
#include "foundation/list_row.h"

#include <bit>
#include <concepts>
#include <cstdint>
#include <iomanip>
#include <sstream>
#include <string>
#include <string_view>

namespace vantor::test {

class Digest {
  public:
    void add(std::string_view text) {
        add(text.size()); // so that neighbours don't run together
        for (const char c : text) {
            addByte(static_cast<unsigned char>(c));
        }
    }
    template <std::integral Number>
    void add(Number number) {
        const auto bits = static_cast<std::uint64_t>(static_cast<std::int64_t>(number));
        for (int shift = 0; shift < 64; shift += 8) {
            addByte(static_cast<unsigned char>(bits >> shift));
        }
    }
    void add(float value) { add(std::bit_cast<std::int32_t>(value)); }
    void add(double value) { add(std::bit_cast<std::int64_t>(value)); }
    template <std::same_as<Flag> Value>
    void add(Value flag) {
        add(flag ? -1 : 0);
    }
    template <std::size_t N>
    void add(const FixedText<N>& text) {
        add(text.raw());
    }
    void add(const ListRow& row) { addAll(row.text, row.itemData); }
    void add(const AircraftRec& record) {
        addAll(record.acnum, record.cruisespeed, record.title, record.missing, record.deleted);
    }
    void add(const AirportRec& record) {
        addAll(record.slot, record.icao, record.longtext, record.lattext, record.longdeg, record.latdeg,
               record.altitude, record.title);
    }
    void add(const LegRec& leg) {
        addAll(leg.hashindex, leg.dep, leg.arr, leg.atflag, leg.depday, leg.arrday, leg.flightlevel, leg.distance,
               leg.flighthours, leg.legtype, leg.flightnum, leg.toicao, leg.fromicao, leg.tng, leg.deleted);
    }
    void add(const ScheduleRec& record) {
        addAll(record.recnum, record.acnum, record.tailnumber, record.percent, record.period, record.weekly,
               record.rules, record.legcount, record.deleted, record.legs);
    }
    void add(const ListRows& rows) { addEach(rows); }
    template <class Record>
    void add(const OneBased<Record>& records) {
        addEach(records);
    }
    void add(const AircraftTable& table) { addEach(table); }
    template <class... Values>
    void addAll(const Values&... values) {
        (add(values), ...);
    }

    /// Sixteen hexadecimal digits.
    [[nodiscard]] std::string text() const {
        std::ostringstream digits;
        digits << std::hex << std::setw(16) << std::setfill('0') << m_hash;
        return digits.str();
    }

  private:
    template <class Items>
    void addEach(const Items& items) {
        add(items.size());
        for (const auto& item : items) {
            add(item);
        }
    }
    void addByte(unsigned char byte) noexcept { m_hash = (m_hash ^ byte) * 1099511628211ULL; }

    std::uint64_t m_hash = 14695981039346656037ULL;
};

} // namespace vantor::test
