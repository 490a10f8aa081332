#include "core/undo.h"

#include "core/tables.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace vantor {

namespace {

using Kind = JournalEntry::Kind;

constexpr std::size_t trimmedFrom = 1U << 20U; // bytes: less is kept beside the smallest tables

TableCounts currentCounts() {
    return {schedulecount, aircraftcount, traffic.lastacnum};
}

void setCounts(const TableCounts& counts) {
    schedulecount = counts.schedules;
    aircraftcount = counts.aircraft;
    traffic.lastacnum = counts.lastacnum;
}

std::size_t tableBytes() {
    std::size_t sum = static_cast<std::size_t>(aircraft.size()) * sizeof(AircraftRec);
    for (std::int32_t recnum = 1; recnum <= std::min(schedulecount, schedules.RecordCount()); ++recnum) {
        sum += sizeof(ScheduleRec) + static_cast<std::size_t>(schedules.peek(recnum).legs.size()) * sizeof(LegRec);
    }
    return sum;
}

enum class Direction { Back, Forward };

void apply(JournalStep& step, const JournalEntry& entry, Direction direction) {
    switch (entry.kind) {
    case Kind::Patch: {
        // In place: a patch is its own inverse, and a copy would cost more than what the command did.
        schedules.patch(entry.slot, [&](ScheduleRec& schedule) { step.patch(entry, schedule); });
        break;
    }
    case Kind::Replace: {
        ScheduleRec other = schedules.HashGetSlot(entry.slot);
        std::swap(other, step.schedules[entry.at]);
        schedules.HashPutSlot(entry.slot, std::move(other));
        break;
    }
    case Kind::NewSlot:
        if (direction == Direction::Back) {
            schedules.freeSlot(entry.slot);
        } else {
            schedules.takeSlot();
        }
        break;
    case Kind::Aircraft: {
        AircraftRec other = aircraft[entry.slot];
        std::swap(other, step.aircraft[entry.at]);
        aircraft.put(entry.slot, other);
        break;
    }
    case Kind::Rows: {
        OneBased<AircraftRec> rows = aircraft.rows();
        std::vector<AircraftRec>& others = step.rows[entry.at];
        std::vector<AircraftRec> replaced(rows.begin() + (entry.slot - 1), rows.end());
        rows.resize(entry.slot - 1);
        for (const AircraftRec& other : others) {
            rows.append(other);
        }
        others = std::move(replaced);
        aircraft.replace(std::move(rows));
        break;
    }
    }
}

StepRecords recordsOf(const JournalStep& step) {
    StepRecords records{.name = step.name, .recnums = {}, .aircraft = !step.aircraft.empty() || !step.rows.empty()};
    for (const JournalEntry& entry : step.entries) {
        if (entry.kind == Kind::Patch || entry.kind == Kind::Replace) {
            records.recnums.push_back(entry.slot);
        }
    }
    std::ranges::sort(records.recnums);
    records.recnums.erase(std::unique(records.recnums.begin(), records.recnums.end()), records.recnums.end());
    return records;
}

} // namespace

Journal& journal() noexcept {
    return traffic.journal;
}

Step::Step(std::string name) {
    journal().open(std::move(name), currentCounts());
}

Step::~Step() {
    journal().close(currentCounts());
    if (journal().bytes() > trimmedFrom) {
        journal().trim(tableBytes() / 3);
    }
}

void nameStep(std::string name) {
    journal().rename(std::move(name));
}

std::string undoName() {
    const JournalStep* const step = journal().undoable();
    return step == nullptr ? std::string() : step->name;
}

std::string redoName() {
    const JournalStep* const step = journal().redoable();
    return step == nullptr ? std::string() : step->name;
}

std::optional<StepRecords> undo() {
    JournalStep* const step = journal().undoable();
    if (step == nullptr) {
        return {};
    }
    journal().back([&] {
        for (auto entry = step->entries.rbegin(); entry != step->entries.rend(); ++entry) {
            apply(*step, *entry, Direction::Back);
        }
        setCounts(step->before);
    });
    return recordsOf(*step);
}

std::optional<StepRecords> redo() {
    JournalStep* const step = journal().redoable();
    if (step == nullptr) {
        return {};
    }
    journal().forward([&] {
        for (const JournalEntry& entry : step->entries) {
            apply(*step, entry, Direction::Forward);
        }
        setCounts(step->after);
    });
    return recordsOf(*step);
}

} // namespace vantor
