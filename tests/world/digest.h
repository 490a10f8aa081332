// World: a generated world through the whole logic, held against digests.
// A running digest (FNV-1a, 64 bits) of values in a form that is the same on every machine.
#pragma once

#include "core/records.h"
#include "foundation/list_row.h"

#include <bit>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace vantor::test {

class Digest {
  public:
    void add(std::string_view text) {
        add(static_cast<std::int64_t>(text.size())); // so that neighbours don't run together
        for (const char c : text) {
            addByte(static_cast<unsigned char>(c));
        }
    }
    void add(std::int64_t number) {
        for (int shift = 0; shift < 64; shift += 8) {
            addByte(static_cast<unsigned char>(static_cast<std::uint64_t>(number) >> shift));
        }
    }
    void add(float value) { add(std::int64_t{std::bit_cast<std::int32_t>(value)}); }
    void add(double value) { add(std::bit_cast<std::int64_t>(value)); }
    void add(const AircraftRec& record);
    void add(const AirportRec& record);
    void add(const LegRec& leg);
    void add(const ScheduleRec& schedule);
    void add(const ListRows& rows) {
        add(static_cast<std::int64_t>(rows.size()));
        for (const ListRow& row : rows) {
            add(row.text);
            add(std::int64_t{row.itemData});
        }
    }
    template <class... Values>
    void addAll(const Values&... values) {
        (add(values), ...);
    }

    /// "{name} {16 hexadecimal digits}".
    [[nodiscard]] std::string line(std::string_view name) const {
        std::string digits(16, '0');
        std::snprintf(digits.data(), digits.size() + 1, "%016llx", static_cast<unsigned long long>(m_hash));
        return std::string(name) + " " + digits;
    }

  private:
    void addByte(unsigned char byte) noexcept { m_hash = (m_hash ^ byte) * 1099511628211ULL; }
    void addFlag(Flag flag) { add(std::int64_t{flag ? -1 : 0}); }

    std::uint64_t m_hash = 14695981039346656037ULL;
};

inline void Digest::add(const AircraftRec& record) {
    addAll(record.acnum.raw(), record.cruisespeed, record.title.raw());
    addFlag(record.missing);
    addFlag(record.deleted);
}

inline void Digest::add(const AirportRec& record) {
    add(std::int64_t{record.slot});
    addAll(record.icao.raw(), record.longtext.raw(), record.lattext.raw(), record.longdeg, record.latdeg);
    add(std::int64_t{record.altitude});
    add(record.title.raw());
}

inline void Digest::add(const LegRec& leg) {
    add(std::int64_t{leg.hashindex});
    addAll(leg.dep.raw(), leg.arr.raw());
    addFlag(leg.atflag);
    for (const std::int16_t number : {leg.depday, leg.arrday, leg.flightlevel}) {
        add(std::int64_t{number});
    }
    addAll(leg.distance, leg.flighthours, leg.legtype.raw(), leg.flightnum.raw(), leg.toicao.raw(), leg.fromicao.raw());
    addFlag(leg.tng);
    addFlag(leg.deleted);
}

inline void Digest::add(const ScheduleRec& schedule) {
    add(std::int64_t{schedule.recnum});
    addAll(schedule.acnum.raw(), schedule.tailnumber.raw(), schedule.percent.raw(), schedule.period.raw());
    addFlag(schedule.weekly);
    add(schedule.rules.raw());
    add(std::int64_t{schedule.legcount});
    addFlag(schedule.deleted);
    add(std::int64_t{schedule.legs.size()});
    for (const LegRec& leg : schedule.legs) {
        add(leg);
    }
}

} // namespace vantor::test
