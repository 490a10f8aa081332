// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// The four records of the traffic. Records are values: a fetched one is a copy.
#pragma once

#include "core/leg_text.h"
#include "core/lent_vector.h"
#include "foundation/error.h"
#include "foundation/fixed_text.h"
#include "foundation/text.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace vantor {

/// A flag: -1 for true, 0 for false.
class Flag {
  public:
    constexpr Flag() noexcept = default;
    constexpr Flag(bool value) noexcept : m_value(static_cast<std::int8_t>(value ? -1 : 0)) {}
    constexpr operator bool() const noexcept { return m_value != 0; }

  private:
    std::int8_t m_value = 0;
};

/// An array whose first element is number 1. An index outside it is error 9. `Items` holds the elements.
template <class T, class Items = std::vector<T>>
class OneBased {
  public:
    OneBased() = default;
    explicit OneBased(Items items) : m_items(std::move(items)) {}

    [[nodiscard]] std::int32_t size() const noexcept { return static_cast<std::int32_t>(m_items.size()); }
    [[nodiscard]] bool has(std::int32_t index) const noexcept { return index >= 1 && index <= size(); }
    [[nodiscard]] const T& operator[](std::int32_t index) const { return m_items[checked(index)]; }
    [[nodiscard]] T& operator[](std::int32_t index) { return m_items[checked(index)]; }
    void clear() noexcept { m_items.clear(); }
    void reserve(std::int32_t count) { m_items.reserve(static_cast<std::size_t>(count)); }
    /// Sets the upper bound, keeping what stands and adding blank elements.
    void resize(std::int32_t count) { m_items.resize(static_cast<std::size_t>(count)); }
    void append(T item) { m_items.push_back(std::move(item)); }
    /// Puts an item in at `index` (1 to size + 1), moving up what stands from there on.
    void insert(std::int32_t index, T item) {
        if (index != size() + 1) {
            static_cast<void>(checked(index));
        }
        m_items.insert(m_items.begin() + (index - 1), std::move(item));
    }
    void erase(std::int32_t index) { m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(checked(index))); }

    [[nodiscard]] auto begin() const noexcept { return m_items.begin(); }
    [[nodiscard]] auto end() const noexcept { return m_items.end(); }
    [[nodiscard]] auto begin() noexcept { return m_items.begin(); }
    [[nodiscard]] auto end() noexcept { return m_items.end(); }
    /// Elements 1 to `count`, none for a count below 1. A count beyond the last element is error 9.
    [[nodiscard]] std::span<const T> first(std::int32_t count) const { return {m_items.data(), checkedCount(count)}; }
    [[nodiscard]] std::span<T> first(std::int32_t count) { return {m_items.data(), checkedCount(count)}; }

    friend bool operator==(const OneBased&, const OneBased&) = default;

  private:
    [[nodiscard]] std::size_t checked(std::int32_t index) const {
        if (!has(index)) {
            throw Error(ErrorCode::SubscriptOutOfRange);
        }
        return static_cast<std::size_t>(index - 1);
    }

    [[nodiscard]] std::size_t checkedCount(std::int32_t count) const {
        if (count > size()) {
            throw Error(ErrorCode::SubscriptOutOfRange);
        }
        return count < 1 ? 0 : static_cast<std::size_t>(count);
    }

    Items m_items;
};

/// One aircraft of the traffic or of the simulator.
struct AircraftRec {
    FixedText<12> acnum;   ///< code with its prefix, as in AC#123
    float cruisespeed = 0; ///< knots
    FixedText<80> title;   ///< the simulator's title
    Flag missing;          ///< no aircraft of the simulator has this title
    Flag deleted;          ///< left out of the lists and of the next save
    friend bool operator==(const AircraftRec&, const AircraftRec&) = default;
};

/// One airport.
// Quirk: the longitude pair stands ahead of the latitude pair, the reverse of the file's columns.
struct AirportRec {
    std::int32_t slot = 0;     ///< filled by a find: the slot in the table, -1 for a miss
    FixedText<6> icao;         ///< the key; "-1" after a miss
    FixedText<14> longtext;    ///< third column of the file as it stands
    FixedText<14> lattext;     ///< second column of the file as it stands
    float longdeg = 0;         ///< degrees, west negative
    float latdeg = 0;          ///< degrees, south negative
    std::int16_t altitude = 0; ///< feet
    FixedText<60> title;       ///< name from "icao name.cfg", else the code

    /// False for the record of a miss, and for an airport of the file whose code reads like one.
    [[nodiscard]] bool known() const noexcept { return icao.text() != "-1"; }
    friend bool operator==(const AirportRec&, const AirportRec&) = default;
};

/// Which leg: the record number of its schedule and its number in it, both from 1 upward; 0 for none.
struct LegId {
    std::int32_t recnum = 0;
    std::int32_t leg = 0;

    [[nodiscard]] explicit operator bool() const noexcept { return recnum != 0 && leg != 0; }
    friend bool operator==(const LegId&, const LegId&) = default;
};

/// One leg of a schedule. Times are GMT texts.
struct LegRec {
    std::int32_t hashindex = 0; ///< recnum * 1000 + leg number, the item data of its row
    LegText dep;                ///< departure time HH:MM:SS, without day
    LegText arr;                ///< arrival time, without day and marks
    LegText flightnum;
    float distance = 0;      ///< nautical miles, rounded to a whole number
    float flighthours = 0;   ///< hours: whole when loaded, unrounded when set by the editor
    std::int16_t depday = 0; ///< 0 (Sunday) to 6 in a weekly schedule, -1 in any other
    std::int16_t arrday = 0; ///< 0 to 6 in a weekly schedule, 0 in any other
    std::int16_t flightlevel = 0;
    FixedText<6> toicao;
    FixedText<6> fromicao; ///< no column of the file: the destination of the leg before
    FixedText<1> legtype;
    bool atflag : 1 = false;     ///< the arrival carried "@": it is fixed
    bool tng : 1 = false;        ///< touch and go
    bool deleted : 1 = false;    ///< shown with "(DEL) " and left out of the next save
    std::uint8_t unused : 5 = 0; ///< no bit is left open, since the journal compares records as bytes
    friend bool operator==(const LegRec&, const LegRec&) = default;
};

// Of a million of them, each byte counts: in memory, and in time until it is filled.
static_assert(sizeof(LegRec) == 44);

/// What a schedule is apart from its legs.
struct ScheduleHeader {
    std::int32_t recnum = 0; ///< number in load order, also the slot in the table
    FixedText<10> acnum;     ///< narrower than that of the aircraft: a longer code is cut
    FixedText<12> tailnumber;
    FixedText<4> percent; ///< ATC percentage with its sign
    FixedText<4> period;  ///< WEEK, or a repeat such as 24HR
    Flag weekly;
    FixedText<3> rules; ///< IFR or VFR
    std::int16_t legcount = 0;
    Flag deleted;
    friend bool operator==(const ScheduleHeader&, const ScheduleHeader&) = default;
};

/// One schedule: a closed loop of legs flown by one aircraft.
struct ScheduleRec : ScheduleHeader {
    OneBased<LegRec, LentVector<LegRec>> legs; ///< at least legcount of them; those behind it count for nothing

    /// Legs 1 to legcount. Fewer legs than that are error 9.
    [[nodiscard]] std::span<const LegRec> flown() const { return legs.first(legcount); }
    [[nodiscard]] std::span<LegRec> flown() { return legs.first(legcount); }
    /// Number of the leg behind and of the leg ahead of leg `leg` in the closed loop.
    [[nodiscard]] std::int32_t next(std::int32_t leg) const noexcept { return leg == legcount ? 1 : leg + 1; }
    [[nodiscard]] std::int32_t previous(std::int32_t leg) const noexcept { return leg == 1 ? legcount : leg - 1; }
    friend bool operator==(const ScheduleRec&, const ScheduleRec&) = default;
};

} // namespace vantor
