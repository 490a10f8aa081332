#include "core/flightplans_reader.h"

#include "core/aircraft_table.h"
#include "core/code_map.h"
#include "core/codes.h"
#include "core/leg_distances.h"
#include "core/tables.h"
#include "foundation/byte_search.h"
#include "foundation/channels.h"
#include "foundation/clock.h"
#include "foundation/disk.h"
#include "foundation/fixed_text.h"
#include "foundation/log.h"
#include "foundation/numbers.h"
#include "foundation/progress.h"
#include "foundation/text.h"
#include "foundation/text_files.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace vantor {

namespace {

constexpr std::size_t maximumFields = 1001;
constexpr std::size_t headerFields = 5;
constexpr std::size_t legFields = 6;
constexpr float defaultSpeed = 250; // knots, where no aircraft tells any
constexpr int linesPerProgress = 500;
// In place of a speed, and none that a file can hold.
constexpr float notSought = -std::numeric_limits<float>::infinity();
constexpr float notKnown = std::numeric_limits<float>::infinity();

// The text of a line without comments; blanks ahead of a comment mark stay.
std::string_view withoutComment(std::string_view line) {
    line = trim(line);
    line = line.substr(0, line.find("//"));
    return line.substr(0, line.find(';'));
}

// What some lines together have or don't have, so that it isn't looked for in each of them.
struct Marks {
    bool comments = false;    // there may be some
    bool loneReturns = false; // line ends that have no LF
};

// A look at all bytes, of which the compiler takes sixteen at a time.
Marks marksOf(std::string_view lines) {
    std::uint8_t comments = lines.ends_with(';') ? 1 : 0;
    std::uint8_t returns = lines.ends_with('\r') ? 1 : 0;
    for (std::size_t at = 0; at + 1 < lines.size(); ++at) {
        const auto is = [&](std::size_t where, char mark) { return static_cast<std::uint8_t>(lines[where] == mark); };
        comments |= static_cast<std::uint8_t>((is(at, '/') & is(at + 1, '/')) | is(at, ';'));
        returns |= static_cast<std::uint8_t>(is(at, '\r') & (is(at + 1, '\n') ^ 1));
    }
    return {comments != 0, returns != 0};
}

// A flight level. Nearly all are up to four digits between blanks.
std::int16_t levelOf(std::string_view field) {
    const std::string_view bare = trim(field);
    int level = 0;
    bool digits = !bare.empty() && bare.size() <= 4;
    for (std::size_t at = 0; digits && at < bare.size(); ++at) {
        digits = bare[at] >= '0' && bare[at] <= '9';
        level = level * 10 + (bare[at] - '0');
    }
    return digits ? static_cast<std::int16_t>(level) : parseInt16(field);
}

// Calls take(line) for each line, its end taken off.
template <class Take>
void forEachLine(std::string_view lines, bool loneReturns, const Take& take) {
    while (!lines.empty()) {
        std::size_t end = std::min(loneReturns ? lines.find_first_of("\r\n") : lines.find('\n'), lines.size());
        std::string_view line = lines.substr(0, end);
        if (lines.substr(end).starts_with("\r\n")) {
            ++end;
        } else if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        lines.remove_prefix(std::min(end + 1, lines.size()));
        take(line);
    }
}

// The fields of a line: what stands between its commas.
class Fields {
  public:
    // More than maximumFields of them are error 13.
    void split(std::string_view line) {
        std::size_t count = 0;
        const auto endField = [&](std::size_t end) {
            if (count == maximumFields) {
                throw Error(ErrorCode::TypeMismatch);
            }
            m_starts[++count] = static_cast<std::uint32_t>(end) + 1;
        };
        forEachPosition(line, ',', endField);
        endField(line.size());
        m_line = line.data();
        m_count = count;
    }
    [[nodiscard]] std::size_t size() const noexcept { return m_count; }
    [[nodiscard]] std::string_view operator[](std::size_t field) const noexcept {
        return {m_line + m_starts[field], m_starts[field + 1] - m_starts[field] - 1};
    }

  private:
    const char* m_line = nullptr;
    std::size_t m_count = 0;
    std::array<std::uint32_t, maximumFields + 1> m_starts{}; // of each field, and one behind the comma after the last
};

// A day prefix such as 3/ has one digit, and the time starts behind it. Any other is the number at the field's front.
std::int16_t dayOf(std::string_view field) {
    const bool isPrefix = field.size() >= 2 && field[1] == '/' && field[0] >= '0' && field[0] <= '9';
    return isPrefix ? static_cast<std::int16_t>(field[0] - '0') : toInt16(val(field));
}

std::string_view behindDay(std::string_view field) {
    return field.size() < 3 ? std::string_view() : field.substr(2);
}

class Reader {
  public:
    Reader(Canvas* progress, std::string_view name) : m_progress(progress), m_name(name) {}

    void read();
    // The message of a line that can't be read, told from where the reading stands.
    [[nodiscard]] std::string mismatchText() const;

  private:
    void readLine(std::string_view line);
    void showProgress();
    void readHeader();
    void readLegs();
    void readLeg(LegRec& leg, std::size_t at);
    void readArrival(LegRec& leg, std::string_view field);
    void readMarkedArrival(LegRec& leg, std::string_view field);
    [[nodiscard]] float speedOf(const FixedText<10>& acnum);
    void findPoints();
    void deriveLeg(LegRec& leg) const;
    void deriveArrivalDay(LegRec& leg, std::int16_t hours) const;
    void addRecord();

    Canvas* m_progress;
    std::string m_name;
    Fields m_fields;             // of the line; reused: no allocation for a line
    CodeMap<10, float> m_speeds; // knots, by the field of the aircraft's code
    LegDistances m_distances;
    std::vector<GlobePoint> m_points; // the origin of leg 1, then the destinations of all legs
    ScheduleRec m_record;
    FixedText<12> m_previousTail; // of the last accepted record, for the message alone
    std::int32_t m_recnum = 0;
    std::int32_t m_lines = 0;
    std::int32_t m_total = 0; // lines of the file
    int m_sinceProgress = 0;
    float m_speed = 0; // kept from line to line: an unknown aircraft inherits the one above
    // The leg being derived.
    // Quirk: it is not reset by a new line, so a fault in a line's first pass tells the value that the line before
    // left.
    std::int32_t m_leg = 0;
};

void Reader::read() {
    schedules.Init();
    if (FileLength(m_name) == 0) {
        throw Error(ErrorCode::Loader, m_name + " missing or empty.   Please run this program in the TrafficTools path "
                                                "AFTER you have decompiled Traffic.BGL");
    }
    m_total = LinesInFile(m_name);
    // No record has to move, and what is not used is memory in name only.
    constexpr std::uintmax_t shortestLine = headerFields + legFields;
    schedules.reserve(static_cast<std::int32_t>(
        std::min<std::uintmax_t>(static_cast<std::uintmax_t>(m_total), FileLength(m_name) / shortestLine)));
    InputFile file(m_name);
    for (std::span<char> read; file.readLines(read);) {
        upperInPlace(read);
        const std::string_view lines(read.data(), read.size());
        const Marks marks = marksOf(lines);
        forEachLine(lines, marks.loneReturns, [&](std::string_view line) {
            ++m_sinceProgress;
            line = marks.comments ? withoutComment(line) : trim(line);
            if (!trim(line).empty()) {
                readLine(line);
            }
        });
    }
    file.close();
    schedules.Cover(m_lines); // dropped lines count, and every walk reads up to the count
    schedulecount = m_lines;
}

void Reader::readLine(std::string_view line) {
    ++m_lines; // Quirk: also a line that is dropped below.
    m_fields.split(line);
    if (m_fields.size() < headerFields + legFields) {
        return;
    }
    readHeader();
    readLegs();
    addRecord();
    if (m_sinceProgress >= linesPerProgress) {
        showProgress();
        m_sinceProgress = 0;
    }
}

void Reader::showProgress() {
    showprogressstring(m_progress, m_recnum, m_total,
                       "Loading Data: FS200" + std::to_string(fsmode) + " Flight Plans - " + std::to_string(m_recnum));
}

void Reader::readHeader() {
    m_record = ScheduleRec();
    m_record.recnum = ++m_recnum;
    m_record.acnum = m_fields[0];
    if (const float speed = speedOf(m_record.acnum); speed != notKnown) {
        m_speed = speed;
    }
    if (m_speed <= 0) {
        m_speed = defaultSpeed;
    }
    m_record.tailnumber = m_fields[1];
    m_record.percent = m_fields[2];
    m_record.period = m_fields[3];
    m_record.rules = m_fields[4];
    // Tested on the four characters that were kept, so WEEKLY is weekly and BIWEEK is not.
    m_record.weekly = m_record.period.raw() == "WEEK";
}

// The speed of a code's aircraft, notKnown without one. The table is searched once for each code, but a search with a
// fault is not remembered: each line that causes one tells it.
float Reader::speedOf(const FixedText<10>& acnum) {
    float& known = m_speeds.get(acnum, [] { return notSought; });
    if (known != notSought) {
        return known;
    }
    const std::int64_t actions = actionCount();
    const std::int32_t row = aircraftrecord(extractcode(acnum.raw()));
    const float speed = row == -1 ? notKnown : aircraft[row].cruisespeed;
    if (actionCount() == actions) {
        known = speed;
    }
    return speed;
}

void Reader::readLegs() {
    const std::size_t last = m_fields.size() - 1;
    const std::size_t count = (m_fields.size() - headerFields) / legFields;
    m_record.legs = decltype(m_record.legs)({schedules.legPool().room(count), count});
    std::int16_t n = 1;
    // One field left over is what a trailing comma leaves, and is ignored.
    for (std::size_t at = headerFields; at < last; at += legFields) {
        if (at + legFields > m_fields.size()) {
            throw Error(ErrorCode::TypeMismatch); // a last leg of two to five fields
        }
        LegRec& leg = m_record.legs[n];
        if (n > 1) {
            leg.fromicao = m_record.legs[n - 1].toicao;
        }
        readLeg(leg, at);
        leg.hashindex = hashindex(m_recnum, n);
        ++n;
    }
    m_record.legcount = static_cast<std::int16_t>(n - 1);
    m_record.legs[1].fromicao = m_record.legs[m_record.legcount].toicao; // the loop is closed
    findPoints();
    for (m_leg = 1; m_leg <= m_record.legcount; ++m_leg) {
        deriveLeg(m_record.legs[m_leg]);
    }
}

void Reader::readLeg(LegRec& leg, std::size_t at) {
    const std::string_view departure = m_fields[at];
    leg.depday = m_record.weekly ? dayOf(departure) : std::int16_t{-1};
    leg.dep = m_record.weekly ? behindDay(departure) : departure;
    readArrival(leg, m_fields[at + 1]);
    leg.flightlevel = levelOf(m_fields[at + 2]);
    leg.legtype = m_fields[at + 3];
    leg.flightnum = m_fields[at + 4];
    leg.toicao = m_fields[at + 5];
}

// The places of all legs' ends ahead of their distances: as many waits for memory at once.
void Reader::findPoints() {
    m_points.clear();
    m_points.push_back(m_distances.find(m_record.legs[1].fromicao));
    for (std::int32_t n = 1; n <= m_record.legcount; ++n) {
        m_points.push_back(m_distances.find(m_record.legs[n].toicao));
    }
}

// Nearly all arrivals are a plain time, with a day in a weekly schedule, behind either mark or both in this order.
void Reader::readArrival(LegRec& leg, std::string_view field) {
    constexpr std::string_view touchAndGo = "TNG";
    std::string_view time = field;
    const bool fixed = time.starts_with('@');
    time.remove_prefix(fixed ? 1 : 0);
    const bool touches = time.starts_with(touchAndGo);
    time.remove_prefix(touches ? touchAndGo.size() : 0);
    const bool hasDay = m_record.weekly && time.size() == 10 && time[1] == '/' && time[0] >= '0' && time[0] <= '9';
    if (hasDay) {
        leg.arrday = static_cast<std::int16_t>(time[0] - '0');
        time.remove_prefix(2);
    }
    if (time.size() == 8 && plainMinute(time.data()) >= 0) {
        leg.arr = time;
        leg.atflag = fixed;
        leg.tng = touches;
    } else {
        leg.arrday = 0;
        readMarkedArrival(leg, field);
    }
}

void Reader::readMarkedArrival(LegRec& leg, std::string_view field) {
    std::string arrival(field);
    leg.atflag = std::erase(arrival, '@') > 0;
    leg.tng = contains(arrival, "TNG");
    if (leg.tng) {
        arrival = replaceAll(arrival, "TNG", "");
    }
    while (contains(arrival, "//")) { // left by a mark between slashes; written, it would comment out the line's rest
        arrival = replaceAll(arrival, "//", "/");
    }
    leg.arr = arrival; // its day prefix is taken off when the leg is derived
}

void Reader::deriveLeg(LegRec& leg) const {
    const GlobePoint* const ends = &m_points[static_cast<std::size_t>(m_leg - 1)];
    const FlownWay way = LegDistances::between(leg.fromicao, ends[0], leg.toicao, ends[1], m_speed);
    leg.flighthours = way.hours;
    leg.distance = way.miles;
    if (m_record.weekly) {
        deriveArrivalDay(leg, way.hours);
    }
}

void Reader::deriveArrivalDay(LegRec& leg, std::int16_t hours) const {
    if (leg.arr.minute() < 0) { // it may still have its day
        const std::string_view arrival = leg.arr.raw();
        if (contains(arrival, "/")) {
            leg.arrday = dayOf(arrival);
            leg.arr = behindDay(arrival);
        }
    }
    if (leg.atflag) {
        return;
    }
    // Quirk: whole hours are added to a fraction of a day, so a leg of half an hour and more lands on the next day
    // unless its arrival is fixed. The saved files carry these days.
    const int minute = leg.dep.minute();
    const DateTime departure = minute >= 0 ? timeSerial(0, minute, 0) : parseTime(leg.dep.raw());
    if (hours + departure > 1) {
        leg.arrday = toInt16(leg.depday + 1.0);
        if (leg.arrday == 7) {
            leg.arrday = 0;
        }
    } else {
        leg.arrday = leg.depday;
    }
}

void Reader::addRecord() {
    m_previousTail = m_record.tailnumber;
    schedules.legPool().take(static_cast<std::size_t>(m_record.legs.size()));
    schedules.HashAdd(std::move(m_record)); // the fields of fixed width stay readable for the message
}

std::string Reader::mismatchText() const {
    std::string text = "Error in " + m_name + ".\rFlightplan number " + std::to_string(m_recnum) + " is invalid. ";
    if (m_recnum > 0) {
        const std::string code(m_record.acnum.text());
        text += "\r" + code + " Call sign: " + std::string(m_record.tailnumber.text()) + " aircraft: " + code;
    }
    if (m_leg > 0) {
        const LegRec leg = m_record.legs.has(m_leg) ? m_record.legs[m_leg] : LegRec();
        text += "  Leg: " + std::to_string(m_leg) + " Flight No: " + std::string(leg.flightnum.raw()) +
                " From: " + std::string(leg.fromicao.raw()) + " To: " + std::string(leg.toicao.raw()) +
                " ETD: " + std::string(leg.dep.raw());
    }
    if (m_recnum > 1) {
        text += " Previous call sign: " + std::string(m_previousTail.text());
    }
    return text;
}

} // namespace

void LoadSched(Canvas* progress, std::string_view file) {
    Reader reader(progress, file);
    try {
        reader.read();
    } catch (...) {
        const Error error = currentError();
        schedules.Cover(schedulecount); // the former count stays, and every walk reads up to it
        if (error.is(ErrorCode::Loader)) {
            throw;
        }
        if (error.is(ErrorCode::TypeMismatch)) {
            const std::string text = reader.mismatchText();
            logit(text);
            throw Error(ErrorCode::TypeMismatch, text);
        }
        throw Error(error.number(), error.description() + " in LoadSched");
    }
}

} // namespace vantor
