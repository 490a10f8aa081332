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

// Goes one rename on with putting a copy that is whole in the place of the one before; false when nothing is left to
// do. A new note is written when all else is, so that this goes on wherever it broke off: each new file is there until
// it has taken its place.
bool replaceNext(std::string_view folder) {
    const std::optional<RescueNote> note = readNote(newOf(noteFile(folder)));
    if (!note) {
        return false;
    }
    for (const std::string& file : filesOf(folder)) {
        if (FileExists(newOf(file))) {
            const bool aside = note->setAside && FileExists(file);
            renameFile(aside ? file : newOf(file), aside ? file + ".1" : file);
            return true;
        }
    }
    return false;
}

void replaceCopy(std::string_view folder) {
    while (replaceNext(folder)) {
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
        m_stage = Stage::Begin;
        throw;
    }
}

bool RescueWriter::goOn() {
    // One that is whole takes its place, even if there are newer changes already.
    if (m_stage == Stage::Begin || (m_stage != Stage::Replace && m_revision != journal().revision())) {
        begin();
    }
    switch (m_stage) {
    case Stage::Begin:
    case Stage::Schedules:
        writeSchedules();
        break;
    case Stage::Aircraft:
        writeAircraft();
        break;
    case Stage::Note:
        writeNote();
        break;
    case Stage::Replace:
        return !replaceNext(m_folder);
    }
    return false;
}

void RescueWriter::begin() {
    m_flightplans.reset(); // their files go before others of the same names come
    m_aircraft.reset();
    replaceCopy(m_folder); // one that is whole and met a fault at its last steps
    EraseFile(newOf(noteFile(m_folder)));
    m_revision = journal().revision();
    m_note.when = timeText(now());
    m_recnum = 0;
    m_flightplans.emplace(newOf(rescuedFlightplans(m_folder)));
    m_piece = heading;
    m_stage = Stage::Schedules;
}

void RescueWriter::writeSchedules() {
    const std::int32_t last = std::min(schedulecount, m_recnum + schedulesPerStep);
    while (m_recnum < last) {
        appendSchedule(m_piece, schedules.peek(++m_recnum));
    }
    m_flightplans->write(m_piece);
    m_piece.clear();
    m_stage = m_recnum < schedulecount ? Stage::Schedules : Stage::Aircraft;
}

void RescueWriter::writeAircraft() {
    m_piece = heading;
    for (std::int32_t row = 1; row <= aircraftcount; ++row) {
        appendAircraft(m_piece, aircraft[row]);
    }
    m_aircraft.emplace(newOf(rescuedAircraft(m_folder)));
    m_aircraft->write(m_piece);
    m_stage = Stage::Note;
}

void RescueWriter::writeNote() {
    GrowingFile note(newOf(noteFile(m_folder)));
    note.write(textOf(m_note));
    for (GrowingFile* const file : {&*m_flightplans, &*m_aircraft, &note}) {
        file->finish();
    }
    m_stage = Stage::Replace;
}

} // namespace vantor
