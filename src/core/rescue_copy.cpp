#include "core/rescue_copy.h"

#include "core/aircraft_file.h"
#include "core/flightplans_writer.h"
#include "core/tables.h"
#include "foundation/clock.h"
#include "foundation/disk.h"
#include "foundation/numbers.h"
#include "foundation/text.h"
#include "foundation/text_files.h"
#include "foundation/trap.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace vantor {

namespace {

constexpr std::string_view module = "rescue_copy";
constexpr std::int32_t schedulesPerStep = 1000; // some hundred kilobytes, a few milliseconds with their flush
// A file that can be loaded, also where all that it stands for was deleted.
constexpr std::string_view heading = "// Unsaved changes that Vantor offers to restore\r\n";

std::string noteFile(std::string_view folder) {
    return std::string(folder) + "Vantor2.rescue";
}

// The note comes last: where it stands, the others do.
std::array<std::string, 3> filesOf(std::string_view folder) {
    return {rescuedFlightplans(folder), rescuedAircraft(folder), noteFile(folder)};
}

std::string newOf(const std::string& file) {
    return file + ".~new";
}

std::string timeText(DateTime time) {
    static constexpr std::array<std::string_view, 12> months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const Date date = dateOf(time);
    return std::to_string(date.day) + " " + std::string(months.at(static_cast<std::size_t>(date.month - 1))) + " " +
           formatHHMM(time);
}

std::string flag(bool value) {
    return value ? "1" : "0";
}

std::string textOf(const RescueNote& note) {
    std::string text;
    for (const std::string& line : {note.when, std::to_string(note.mode), note.plansuffix, note.flightplans,
                                    note.aircraft, note.airports, note.flightplansStamp, note.aircraftStamp,
                                    flag(note.flightplansChanged), flag(note.aircraftChanged), flag(note.setAside)}) {
        text += line + "\r\n";
    }
    return text;
}

// The note in a file; nothing where it is missing or broke off.
std::optional<RescueNote> readNote(const std::string& file) {
    std::string text;
    ReadWholeFile(file, text);
    const std::vector<std::string_view> lines = split(text, "\r\n");
    if (lines.size() != 12) {
        return {};
    }
    const auto line = [&](std::size_t number) { return std::string(lines[number]); };
    return RescueNote{.when = line(0),
                      .mode = parseInt16(lines[1]),
                      .plansuffix = line(2),
                      .flightplans = line(3),
                      .aircraft = line(4),
                      .airports = line(5),
                      .flightplansStamp = line(6),
                      .aircraftStamp = line(7),
                      .flightplansChanged = lines[8] == "1",
                      .aircraftChanged = lines[9] == "1",
                      .setAside = lines[10] == "1"};
}

// Puts a copy that is whole in the place of the one before. A new note is written when all else is, so that this goes
// on wherever it broke off: each new file is there until it has taken its place.
void replaceCopy(std::string_view folder) {
    const std::optional<RescueNote> note = readNote(newOf(noteFile(folder)));
    if (!note) {
        return;
    }
    for (const std::string& file : filesOf(folder)) {
        if (!FileExists(newOf(file))) {
            continue;
        }
        if (note->setAside && FileExists(file)) {
            renameFile(file, file + ".1");
        }
        renameFile(newOf(file), file);
    }
}

} // namespace

std::string rescuedFlightplans(std::string_view folder) {
    return std::string(folder) + "Flightplans.rescue";
}

std::string rescuedAircraft(std::string_view folder) {
    return std::string(folder) + "Aircraft.rescue";
}

std::optional<RescueNote> readRescueNote(std::string_view folder) noexcept {
    const StandardTrap trap{"readrescuenote", module};
    std::optional<RescueNote> note;
    trap(replaceCopy, folder);
    trap([&] {
        if (std::ranges::all_of(filesOf(folder), FileExists)) {
            note = readNote(noteFile(folder));
        }
    });
    return note;
}

void removeRescue(std::string_view folder) noexcept {
    const StandardTrap trap{"removerescue", module};
    trap([&] {
        std::array<std::string, 3> files = filesOf(folder);
        std::ranges::reverse(files); // no note without the others
        for (const std::string& file : files) {
            EraseFile(newOf(file));
            EraseFile(file);
        }
    });
}

RescueWriter::RescueWriter(std::string folder, RescueNote note)
    : m_folder(std::move(folder)), m_note(std::move(note)) {}

bool RescueWriter::step() {
    try {
        return goOn();
    } catch (...) {
        m_flightplans.reset(); // the next step begins anew
        throw;
    }
}

bool RescueWriter::goOn() {
    if (!m_flightplans || m_revision != journal().revision()) {
        begin();
    }
    const std::int32_t last = std::min(schedulecount, m_recnum + schedulesPerStep);
    while (m_recnum < last) {
        appendSchedule(m_piece, schedules.peek(++m_recnum));
    }
    m_flightplans->write(m_piece);
    m_piece.clear();
    if (m_recnum < schedulecount) {
        return false;
    }
    end();
    return true;
}

void RescueWriter::begin() {
    m_flightplans.reset(); // its file goes before another of the same name comes
    replaceCopy(m_folder); // one that is whole and met a fault at its last step
    EraseFile(newOf(noteFile(m_folder)));
    m_revision = journal().revision();
    m_note.when = timeText(now());
    m_recnum = 0;
    m_piece = heading;
    m_flightplans.emplace(newOf(rescuedFlightplans(m_folder)));
}

void RescueWriter::end() {
    GrowingFile aircraftCopy(newOf(rescuedAircraft(m_folder)));
    std::string text(heading);
    for (std::int32_t row = 1; row <= aircraftcount; ++row) {
        appendAircraft(text, aircraft[row]);
    }
    aircraftCopy.write(text);
    GrowingFile noteCopy(newOf(noteFile(m_folder)));
    noteCopy.write(textOf(m_note));
    for (GrowingFile* const file : {&*m_flightplans, &aircraftCopy, &noteCopy}) {
        file->finish();
    }
    m_flightplans.reset();
    replaceCopy(m_folder);
}

} // namespace vantor
