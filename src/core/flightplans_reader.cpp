#include "core/flightplans_reader.h"

#include "core/aircraft_table.h"
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
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vantor {

namespace {

constexpr std::size_t maximumFields = 1001;
constexpr std::size_t headerFields = 5;
constexpr std::size_t legFields = 6;
constexpr float defaultSpeed = 250; // knots, where no aircraft tells any
constexpr int linesPerProgress = 500;

using Fields = std::span<const std::string_view>;

// Nearly no line has a comment, and this look at all bytes is one that the compiler takes sixteen at a time.
bool mayHoldComment(std::string_view line) {
    unsigned marks = 0;
    for (std::size_t at = 0; at + 1 < line.size(); ++at) {
        const auto is = [&](std::size_t where, char mark) { return static_cast<unsigned>(line[where] == mark); };
        marks |= (is(at, '/') & is(at + 1, '/')) | is(at, ';');
    }
    return marks != 0 || line.ends_with(';');
}

// The text of a line without comments; blanks ahead of a comment mark stay.
std::string_view withoutComment(std::string_view line) {
    line = trim(line);
    if (!mayHoldComment(line)) {
        return line;
    }
    line = line.substr(0, line.find("//"));
    return line.substr(0, line.find(';'));
}

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
    [[nodiscard]] Fields splitLine(std::string_view line);
    void readHeader(Fields fields);
    void readLegs(Fields fields);
    void readArrival(LegRec& leg, std::string_view field);
    [[nodiscard]] std::optional<float> speedOf(std::string_view acnum);
    void findPoints();
    void deriveLeg(LegRec& leg) const;
    void deriveArrivalDay(LegRec& leg, std::int16_t hours) const;
    void addRecord();

    Canvas* m_progress;
    std::string m_name;
    std::array<std::string_view, maximumFields> m_fields; // reused: no allocation for a line
    std::string m_arrival;
    std::unordered_map<std::string, std::optional<float>> m_speeds; // knots, by the field of the aircraft's code
    LegDistances m_distances;
    std::vector<GlobePoint> m_points; // the origin of leg 1, then the destinations of all legs
    ScheduleRec m_record;
    FixedText<12> m_previousTail; // of the last accepted record, for the message alone
    std::int32_t m_recnum = 0;
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
    const std::int32_t total = LinesInFile(m_name);
    std::int32_t lines = 0;
    int sinceProgress = 0;
    InputFile file(m_name);
    std::string capitals;
    for (std::string_view raw; file.readLine(raw);) {
        ++sinceProgress;
        capitals = raw;
        upperInPlace(capitals);
        const std::string_view line = withoutComment(capitals);
        if (trim(line).empty()) {
            continue;
        }
        ++lines; // Quirk: also a line that is dropped below.
        const Fields fields = splitLine(line);
        if (fields.size() < headerFields + legFields) {
            continue;
        }
        readHeader(fields);
        readLegs(fields);
        addRecord();
        if (sinceProgress >= linesPerProgress) {
            showprogressstring(m_progress, m_recnum, total,
                               "Loading Data: FS200" + std::to_string(fsmode) + " Flight Plans - " +
                                   std::to_string(m_recnum));
            sinceProgress = 0;
        }
    }
    file.close();
    schedules.Cover(lines); // dropped lines count, and every walk reads up to the count
    schedulecount = lines;
}

Fields Reader::splitLine(std::string_view line) {
    std::size_t count = 0;
    std::size_t start = 0;
    const auto endField = [&](std::size_t end) {
        if (count == maximumFields) {
            throw Error(ErrorCode::TypeMismatch);
        }
        m_fields[count++] = line.substr(start, end - start);
        start = end + 1;
    };
    forEachPosition(line, ',', endField);
    endField(line.size());
    return {m_fields.data(), count};
}

void Reader::readHeader(Fields fields) {
    m_record = ScheduleRec();
    m_record.recnum = ++m_recnum;
    m_record.acnum = fields[0];
    m_speed = speedOf(m_record.acnum.raw()).value_or(m_speed);
    if (m_speed <= 0) {
        m_speed = defaultSpeed;
    }
    m_record.tailnumber = fields[1];
    m_record.percent = fields[2];
    m_record.period = fields[3];
    m_record.rules = fields[4];
    // Tested on the four characters that were kept, so WEEKLY is weekly and BIWEEK is not.
    m_record.weekly = contains(m_record.period.raw(), "WEEK");
}

// The speed of a field's aircraft, nothing for an unknown one. The table is searched once for each field's text, but a
// search with a fault is not remembered: each line that causes one tells it.
std::optional<float> Reader::speedOf(std::string_view acnum) {
    std::string code(acnum);
    if (const auto known = m_speeds.find(code); known != m_speeds.end()) {
        return known->second;
    }
    const std::int64_t actions = actionCount();
    std::optional<float> speed;
    if (const std::int32_t row = aircraftrecord(extractcode(acnum)); row != -1) {
        speed = aircraft[row].cruisespeed;
    }
    if (actionCount() == actions) {
        m_speeds.emplace(std::move(code), speed);
    }
    return speed;
}

void Reader::readLegs(Fields fields) {
    const std::size_t last = fields.size() - 1;
    m_record.legs.resize(static_cast<std::int32_t>((fields.size() - headerFields) / legFields));
    std::string_view previous;
    std::int16_t n = 1;
    // One field left over is what a trailing comma leaves, and is ignored.
    for (std::size_t at = headerFields; at < last; at += legFields) {
        if (at + legFields > fields.size()) {
            throw Error(ErrorCode::TypeMismatch); // a last leg of two to five fields
        }
        LegRec& leg = m_record.legs[n];
        leg.fromicao = previous;
        const std::string_view departure = fields[at];
        leg.depday = m_record.weekly ? dayOf(departure) : std::int16_t{-1};
        leg.dep = m_record.weekly ? behindDay(departure) : departure;
        readArrival(leg, fields[at + 1]);
        leg.flightlevel = parseInt16(fields[at + 2]);
        leg.legtype = fields[at + 3];
        leg.flightnum = fields[at + 4];
        leg.toicao = previous = fields[at + 5];
        leg.hashindex = hashindex(m_recnum, n);
        ++n;
    }
    m_record.legs[1].fromicao = previous; // the loop is closed
    m_record.legcount = static_cast<std::int16_t>(n - 1);
    findPoints();
    for (m_leg = 1; m_leg <= m_record.legcount; ++m_leg) {
        deriveLeg(m_record.legs[m_leg]);
    }
}

// The places of all legs' ends ahead of their distances: as many waits for memory at once.
void Reader::findPoints() {
    m_points.clear();
    m_points.push_back(m_distances.find(m_record.legs[1].fromicao));
    for (std::int32_t n = 1; n <= m_record.legcount; ++n) {
        m_points.push_back(m_distances.find(m_record.legs[n].toicao));
    }
}

void Reader::readArrival(LegRec& leg, std::string_view field) {
    // Most arrivals carry no mark, and one look at each character tells so.
    if (std::ranges::any_of(field, [](char c) { return c == '@' || c == 'T'; })) {
        m_arrival = field;
        leg.atflag = std::erase(m_arrival, '@') > 0;
        leg.tng = contains(m_arrival, "TNG");
        if (leg.tng) {
            m_arrival = replaceAll(m_arrival, "TNG", "");
        }
        field = m_arrival;
    }
    while (contains(field, "//")) { // left by a mark between slashes; written, it would comment out the line's rest
        m_arrival = replaceAll(field, "//", "/");
        field = m_arrival;
    }
    leg.arr = field; // its day prefix is taken off when the leg is derived
}

void Reader::deriveLeg(LegRec& leg) const {
    const GlobePoint* const ends = &m_points[static_cast<std::size_t>(m_leg - 1)];
    const double distance = LegDistances::between(leg.fromicao, ends[0], leg.toicao, ends[1], m_speed);
    const std::int16_t hours = toInt16(distance / static_cast<double>(m_speed));
    leg.flighthours = hours;
    leg.distance = static_cast<float>(roundHalfEven(distance));
    if (m_record.weekly) {
        deriveArrivalDay(leg, hours);
    }
}

void Reader::deriveArrivalDay(LegRec& leg, std::int16_t hours) const {
    const std::string_view arrival = leg.arr.raw();
    if (arrival[1] == '/' || contains(arrival, "/")) {
        leg.arrday = dayOf(arrival);
        leg.arr = behindDay(arrival);
    }
    if (leg.atflag) {
        return;
    }
    // Quirk: whole hours are added to a fraction of a day, so a leg of half an hour and more lands on the next day
    // unless its arrival is fixed. The saved files carry these days.
    const DateTime departure = parseTime(leg.dep.raw());
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
