// Explorer: all flights in one table, on a world map, and checked.
// The walk that looks for what is wrong with schedules, in slices.
#pragma once

#include "core/code_map.h"
#include "core/records.h"
#include "explorer/leg_number.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantor {

/// What the checks look for, in the order in which they are listed.
enum class CheckKind : std::uint8_t {
    UnknownAircraft,
    MissingAircraft,
    UnknownAirport,
    OpenLoop,
    SameAirport,
    NoTime,
    LongLeg,
    EarlyDeparture,
    ShortTurnaround,
    ShortRepeat,
    SameCallSign,
    EqualSchedules,
    PercentRange,
    LevelRange,
    RulesUnknown,
    DayRange,
    NoLegs,
    AllLegsDeleted,
};
inline constexpr std::size_t checkKinds = 18;

/// A kind in a few words, as in "Airport not in the table".
[[nodiscard]] std::string_view checkTitle(CheckKind kind) noexcept;

/// One place where something is wrong.
struct CheckFinding {
    LegNumber where = 0;     ///< 0 for lines of the file that were not loaded
    std::int32_t detail = 0; ///< minutes, or a record number, as the kind has it
    friend bool operator==(const CheckFinding&, const CheckFinding&) = default;
};

/// Where a finding is: the aircraft and call sign of its schedule, and the flight of its leg; empty without a schedule.
[[nodiscard]] std::string findingSchedule(LegNumber where);
[[nodiscard]] std::string findingLeg(LegNumber where);
/// What is wrong, in words.
[[nodiscard]] std::string checkReason(CheckKind kind, const CheckFinding& finding);

/// What the user can set.
struct CheckOptions {
    int turnaroundMinutes = 15; ///< the least time on the ground
};

/// The checks over the tables. What is deleted counts as gone, as the next save leaves it out. Between slices the
/// tables must not change: start it again then.
class Checks {
  public:
    using Findings = std::vector<CheckFinding>;

    void start(const CheckOptions& options);
    /// Goes on until all is looked at, which gives true, or until `enough` says so, which is asked every few schedules.
    bool step(const std::function<bool()>& enough);
    [[nodiscard]] bool done() const noexcept { return m_done; }
    /// How much of the tables was looked at, 0 to 1.
    [[nodiscard]] double progress() const noexcept;

    [[nodiscard]] const Findings& of(CheckKind kind) const noexcept { return m_found[static_cast<std::size_t>(kind)]; }
    [[nodiscard]] std::size_t count() const noexcept;

  private:
    // A leg that is flown: its number and, in minutes, its departure in the cycle and how long it takes.
    struct Flown {
        std::int32_t number = 0;
        const LegRec* leg = nullptr;
        std::int32_t departure = 0;
        std::int32_t minutes = 0;
        bool timed = false; // both times can be read
    };
    struct AircraftFacts {
        unsigned states = 0;
        double speed = 0; // knots
    };

    void lookAt(std::int32_t recnum, const ScheduleRec& schedule);
    void lookAtHeader(std::int32_t recnum, const ScheduleRec& schedule);
    void lookAtLegs(std::int32_t recnum, const ScheduleRec& schedule);
    void lookAtLeg(std::int32_t recnum, const ScheduleRec& schedule, const Flown& flown, double speed);
    void lookAtLoop(std::int32_t recnum);
    void lookAtTimes(std::int32_t recnum, const ScheduleRec& schedule);
    void lookAtWeek(std::int32_t recnum);
    void lookAtRepeats(std::int32_t recnum, std::int32_t cycle);
    void lookAtGround(std::int32_t recnum, const Flown& arrived, const Flown& next, std::int32_t minutes);
    void lookForEquals();
    void finish();
    void add(CheckKind kind, LegId where, std::int32_t detail = 0);

    CheckOptions m_options;
    std::int32_t m_next = 1;
    bool m_done = true;
    std::array<Findings, checkKinds> m_found;
    CodeMap<10, AircraftFacts> m_aircraft;
    CodeMap<6, bool> m_airports;
    CodeMap<12, std::int32_t> m_callSigns;
    std::vector<std::pair<std::uint64_t, std::int32_t>> m_contents; // of each schedule, as a hash, and its number
    std::vector<Flown> m_flown;                                     // kept for its room
    std::int32_t m_blank = 0;                                       // lines that were not loaded
};

/// All findings as a text file's lines: titles with counts, and a line for each place under its title.
[[nodiscard]] std::string checksReport(const Checks& checks);

} // namespace vantor
