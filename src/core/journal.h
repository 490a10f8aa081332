// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// The journal: what each command changed in the tables, kept as differences, so that it can be undone and redone.
#pragma once

#include "core/records.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vantor {

/// The numbers beside the records that the next command would look at.
struct TableCounts {
    std::int32_t schedules = 0; ///< schedulecount
    std::int32_t aircraft = 0;  ///< aircraftcount
    std::int32_t lastacnum = 0; ///< the number in the aircraft code given out last
    friend bool operator==(const TableCounts&, const TableCounts&) = default;
};

/// One write of a stored record. Each is its own inverse: a patch holds what differs as exclusive or, and the others
/// hold the version that does not stand in the table just now.
struct JournalEntry {
    enum class Kind : std::uint8_t {
        Patch,    ///< a schedule of the same number of legs; `at` is the place of its differences in `patches`
        Replace,  ///< a schedule with other legs; `at` is the place of the other version in `schedules`
        NewSlot,  ///< a slot that was handed out to a new schedule
        Aircraft, ///< an aircraft; `at` is the place of the other version in `aircraft`
        Rows,     ///< all aircraft from row `slot` on; `at` is the place of the other ones in `rows`
    };
    Kind kind = Kind::Patch;
    std::int32_t slot = 0;
    std::uint32_t at = 0;
};

/// The differences of a step, one behind the other in pieces that never move: a change of a million legs makes tens of
/// megabytes of them.
class PatchLog {
  public:
    /// Room for `most` bytes, at most a megabyte.
    [[nodiscard]] std::byte* room(std::size_t most);
    /// Keeps what was written into the room up to `end`, and gives its place.
    [[nodiscard]] std::uint32_t keep(const std::byte* end) noexcept;
    [[nodiscard]] const std::byte* at(std::uint32_t place) const noexcept;
    /// Bytes that the log takes.
    [[nodiscard]] std::size_t bytes() const noexcept { return m_bytes; }

  private:
    std::vector<std::unique_ptr<std::byte[]>> m_pieces;
    std::size_t m_used = 0; // of the last piece
    std::size_t m_size = 0; // of the last piece
    std::size_t m_bytes = 0;
};

/// All that one command changed.
struct JournalStep {
    std::string name; ///< as a person reads it: "Delete 3 schedules"
    std::vector<JournalEntry> entries;
    PatchLog patches;
    std::vector<ScheduleRec> schedules;
    std::vector<AircraftRec> aircraft;
    std::vector<std::vector<AircraftRec>> rows;
    TableCounts before;
    TableCounts after;
    std::int64_t state = 0; ///< the state of the tables that the step led to
    std::size_t size = 0;   ///< bytes that it took when it was done

    /// Puts the differences of a patch into the schedule, or takes them out again.
    void patch(const JournalEntry& entry, ScheduleRec& schedule) const;
    /// Bytes that the step takes.
    [[nodiscard]] std::size_t bytes() const noexcept;
};

/// Steps done and undone. The doors of the tables hand it each write of a stored record. A write outside a step can't
/// be taken back, and neither can what came before it: it empties the journal, as a load does.
class Journal {
  public:
    // ---- What the doors of the tables call ----
    /// A stored record is about to become another.
    void willStore(std::int32_t slot, const ScheduleRec& before, const ScheduleRec& after) {
        if (takes()) {
            record(slot, before, after);
        }
    }
    void willStore(std::int32_t row, const AircraftRec& before, const AircraftRec& after) {
        ++m_aircraftRevision;
        if (takes()) {
            record(row, before, after);
        }
    }
    /// All rows are about to become others; without any, a load begins.
    void willStoreAll(const OneBased<AircraftRec>& before, const OneBased<AircraftRec>& after);
    void willStoreAll(const OneBased<ScheduleRec>& /*before*/, const OneBased<ScheduleRec>& /*after*/) noexcept {
        ++m_revision;
        clear();
    }
    void willStoreAll(const OneBased<AirportRec>& /*before*/, const OneBased<AirportRec>& /*after*/) noexcept {}
    /// No command changes an airport.
    void willStore(std::int32_t /*slot*/, const AirportRec& /*before*/, const AirportRec& /*after*/) noexcept {}
    /// A schedule changes in place in an undo or redo.
    void willPatch() noexcept { ++m_revision; }
    /// A slot was handed out to a new schedule.
    void newSlot(std::int32_t slot) {
        if (takes()) {
            m_open->entries.push_back({JournalEntry::Kind::NewSlot, slot, 0});
        }
    }
    /// Forgets all steps, the open one too, since a load takes the tables' place.
    void clear() noexcept;

    // ---- Steps ----
    /// Opens a step; those opened in it belong to it, and their names are not heard.
    void open(std::string name, const TableCounts& counts);
    /// Names the outermost open step anew, when it is known what it did.
    void rename(std::string name);
    /// Closes a step. The outermost is kept, unless it changed nothing, and all undone steps go.
    void close(const TableCounts& counts);
    /// Drops the oldest steps until the journal takes no more than `limit` bytes, but never the latest.
    void trim(std::size_t limit) noexcept;

    /// The step that an undo takes back, and the one that a redo does again; null without any, or while one is open.
    [[nodiscard]] JournalStep* undoable() noexcept {
        return m_depth == 0 && m_done > 0 ? &m_steps[m_done - 1] : nullptr;
    }
    [[nodiscard]] JournalStep* redoable() noexcept {
        return m_depth == 0 && m_done < m_steps.size() ? &m_steps[m_done] : nullptr;
    }
    /// Moves one step back or forward, and keeps the journal from recording what `apply` writes.
    template <class Apply>
    void back(const Apply& apply) {
        replay(apply, m_done - 1);
    }
    template <class Apply>
    void forward(const Apply& apply) {
        replay(apply, m_done + 1);
    }

    /// The state of the tables: the same number means the same content, as long as the program runs.
    [[nodiscard]] std::int64_t state() const noexcept { return m_done == 0 ? m_base : m_steps[m_done - 1].state; }
    /// Grows with each write: an equal number tells that nothing was written in between.
    [[nodiscard]] std::int64_t revision() const noexcept { return m_revision; }
    /// The same for the writes of schedules alone.
    [[nodiscard]] std::int64_t scheduleRevision() const noexcept { return m_revision - m_aircraftRevision; }
    /// Whether a step is open, so that state() does not tell what was written in it yet.
    [[nodiscard]] bool isOpen() const noexcept { return m_depth > 0; }
    /// Whether the open step has changed anything so far.
    [[nodiscard]] bool openChanges() const noexcept { return m_open && !m_open->entries.empty(); }
    /// Bytes that all steps take.
    [[nodiscard]] std::size_t bytes() const noexcept { return m_bytes; }

  private:
    // Whether a write is to be recorded.
    [[nodiscard]] bool takes() noexcept {
        ++m_revision;
        if (!m_open && !m_replaying) {
            clear();
        }
        return m_open.has_value();
    }
    void record(std::int32_t slot, const ScheduleRec& before, const ScheduleRec& after);
    void record(std::int32_t row, const AircraftRec& before, const AircraftRec& after);
    template <class Apply>
    void replay(const Apply& apply, std::size_t done) {
        struct Replaying {
            explicit Replaying(bool& flag) : m_flag(flag) { m_flag = true; }
            ~Replaying() { m_flag = false; }
            Replaying(const Replaying&) = delete;
            Replaying& operator=(const Replaying&) = delete;

          private:
            bool& m_flag;
        };
        const Replaying replaying(m_replaying);
        apply();
        m_done = done;
    }

    std::deque<JournalStep> m_steps;
    std::size_t m_done = 0; // steps that stand in the tables; those behind are undone
    std::optional<JournalStep> m_open;
    int m_depth = 0;
    bool m_replaying = false;
    std::size_t m_bytes = 0;
    std::int64_t m_base = 0; // the state without any step
    std::int64_t m_lastState = 0;
    std::int64_t m_revision = 0;
    std::int64_t m_aircraftRevision = 0; // those of m_revision that are of aircraft
};

/// The journal of the traffic.
[[nodiscard]] Journal& journal() noexcept;

} // namespace vantor
