#include "core/flightplans_writer.h"

#include "core/save_file.h"
#include "core/schedule_walk.h"
#include "foundation/progress.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantor {

namespace {

// The most characters that a header and a leg take.
constexpr std::size_t headerRoom = 64;
constexpr std::size_t legRoom = 96;
constexpr std::size_t bytesPerWrite = std::size_t{256} * 1024;

// Writes fields one behind the other where there is room for them.
class FieldWriter {
  public:
    explicit FieldWriter(char* at) noexcept : m_at(at) {}

    void put(char c) noexcept { *m_at++ = c; }
    void put(std::string_view text) noexcept { m_at = std::copy(text.begin(), text.end(), m_at); }
    template <class Field>
    void putField(const Field& field) noexcept {
        put(field.text());
        put(',');
    }
    void putNumber(int number) noexcept { m_at = std::to_chars(m_at, m_at + 6, number).ptr; } // of 16 bits

    // A time with its day. One that brings its own slash, as behind a day of two digits, gets no second one: two would
    // be a comment mark, and the next load would drop the line.
    void putTime(bool weekly, std::int16_t day, const LegText& time) noexcept {
        const std::string_view text = time.text();
        if (weekly) {
            putNumber(day);
            if (!text.starts_with('/')) {
                put('/');
            }
        }
        put(text);
        put(',');
    }

    void putLeg(const LegRec& leg, bool weekly) noexcept {
        putTime(weekly, leg.depday, leg.dep);
        if (leg.atflag) {
            put('@');
        }
        if (leg.tng) {
            put("TNG");
        }
        putTime(weekly, leg.arrday, leg.arr);
        if (leg.flightlevel >= 0) { // a number as printNumber has it
            put(' ');
        }
        putNumber(leg.flightlevel);
        put(' ');
        put(',');
        putField(leg.legtype);
        putField(leg.flightnum);
        put(leg.toicao.text());
    }

    [[nodiscard]] char* at() const noexcept { return m_at; }

  private:
    char* m_at;
};

std::size_t roomFor(const ScheduleRec& schedule) noexcept {
    return headerRoom + static_cast<std::size_t>(std::max<std::int16_t>(schedule.legcount, 0)) * legRoom;
}

// Writes the line of a schedule where there is room for it, and gives its end.
char* writeSchedule(char* at, const ScheduleRec& schedule) {
    if (schedule.deleted || schedule.legcount < 1) {
        return at;
    }
    const auto legs = schedule.flown();
    FieldWriter line(at);
    line.putField(schedule.acnum);
    line.putField(schedule.tailnumber);
    line.putField(schedule.percent);
    line.putField(schedule.period);
    line.putField(schedule.rules);
    std::int32_t written = 0;
    for (const LegRec& leg : legs) {
        if (leg.deleted) {
            continue;
        }
        ++written;
        line.putLeg(leg, schedule.weekly);
        // Quirk: counted against all legs, deleted ones too, so a comma may stand behind the last one.
        if (written < schedule.legcount) {
            line.put(',');
        }
    }
    line.put("\r\n");
    return line.at();
}

} // namespace

void appendSchedule(std::string& text, const ScheduleRec& schedule) {
    const std::size_t length = text.size();
    text.resize(length + roomFor(schedule));
    const char* const end = writeSchedule(text.data() + length, schedule);
    text.resize(static_cast<std::size_t>(end - text.data()));
}

std::optional<Error> savesc(std::string_view file, Canvas* progress) noexcept {
    const StandardTrap trap{"sub savesc", "modSchedSave"};
    return saveFile(trap, file, [&](const auto& put) {
        // Whole lines in one piece of memory, so that the file is written in few steps.
        std::vector<char> text(bytesPerWrite);
        std::size_t length = 0;
        std::int32_t walked = 0;
        const auto write = [&] {
            put(std::string_view(text.data(), std::exchange(length, 0)));
            if (progress != nullptr) {
                showprogressstring(progress, walked, schedulecount, "");
            }
        };
        walkSchedules(trap, schedulecount, [&](const ScheduleRec& schedule) {
            ++walked;
            text.resize(std::max(text.size(), length + roomFor(schedule)));
            length = static_cast<std::size_t>(writeSchedule(text.data() + length, schedule) - text.data());
            if (length >= bytesPerWrite) {
                write();
            }
        });
        trap(write);
    });
}

} // namespace vantor
