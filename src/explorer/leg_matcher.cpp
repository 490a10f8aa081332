#include "explorer/leg_matcher.h"

#include "core/aircraft_table.h"
#include "core/codes.h"
#include "core/tables.h"
#include "foundation/host.h"
#include "foundation/numbers.h"
#include "foundation/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace vantor {

namespace {

using Bits = std::uint64_t;

constexpr Bits known = Bits{1} << 63U; // the bits of this schedule or flight number were worked out

Bits bitOf(std::size_t term) {
    return Bits{1} << term;
}

// Whether a field meets a term's text, which is in capitals.
bool textMeets(std::string_view field, const FilterTerm& term) {
    switch (term.relation) {
    case FilterRelation::Begins:
        return equalNoCase(field.substr(0, term.text.size()), term.text);
    case FilterRelation::Equals:
        return equalNoCase(field, term.text);
    default:
        return containsNoCase(field, term.text);
    }
}

bool numberMeets(double number, const FilterTerm& term) {
    switch (term.relation) {
    case FilterRelation::Less:
        return number < term.number;
    case FilterRelation::AtMost:
        return number <= term.number;
    case FilterRelation::Greater:
        return number > term.number;
    case FilterRelation::AtLeast:
        return number >= term.number;
    default:
        return number == term.number;
    }
}

bool statesHold(unsigned states, std::string_view text) {
    return states != 0 && containsNoCase(statesText(states), text);
}

// Whether a schedule's own fields meet a term; what its aircraft adds is told elsewhere.
bool scheduleMeets(const FilterTerm& term, const ScheduleRec& schedule) {
    switch (term.field) {
    case FilterField::Anything:
        return containsNoCase(schedule.tailnumber.text(), term.text) ||
               containsNoCase(schedule.period.text(), term.text) ||
               containsNoCase(schedule.percent.text(), term.text) || containsNoCase(schedule.rules.text(), term.text) ||
               statesHold(recordStates(schedule, nullptr), term.text);
    case FilterField::CallSign:
        return textMeets(schedule.tailnumber.text(), term);
    case FilterField::Rules:
        return textMeets(schedule.rules.text(), term);
    case FilterField::Repeat:
        return numberMeets(repeatHours(schedule), term);
    case FilterField::Percent:
        return numberMeets(val(schedule.percent.raw()), term);
    case FilterField::State:
        return (term.state == LegState::Deleted && schedule.deleted) ||
               (term.state == LegState::Weekly && schedule.weekly);
    default:
        return false;
    }
}

bool aircraftMeets(const FilterTerm& term, std::string_view code, std::string_view title, unsigned states) {
    switch (term.field) {
    case FilterField::Anything: // as the cell shows it
        return containsNoCase(std::string(code) + " - " + std::string(title), term.text) ||
               statesHold(states, term.text);
    case FilterField::Aircraft:
        return textMeets(code, term);
    case FilterField::Type:
        return textMeets(title, term);
    case FilterField::State:
        return (term.state == LegState::Missing && (states & row_state::missing) != 0) ||
               (term.state == LegState::UnknownAircraft && (states & row_state::unknownAircraft) != 0);
    default:
        return false;
    }
}

bool looksAtPlaces(const FilterTerm& term) {
    switch (term.field) {
    case FilterField::Anything:
    case FilterField::From:
    case FilterField::To:
    case FilterField::AnyEnd:
        return true;
    default:
        return term.field == FilterField::State && term.state == LegState::UnknownAirport;
    }
}

// A text with a letter is no number and no time; nearly all are such.
bool isDigits(const std::string& text) {
    return text.find_first_not_of("0123456789:-") == std::string::npos;
}

// Whether a leg's own numbers, times or flags may meet a term; its words are looked at apart.
bool looksAtLegs(const FilterTerm& term) {
    switch (term.field) {
    case FilterField::Day:
    case FilterField::Distance:
    case FilterField::Departure:
    case FilterField::Arrival:
    case FilterField::Level:
        return true;
    case FilterField::Anything:
        return isDigits(term.text);
    default:
        return term.field == FilterField::State &&
               (term.state == LegState::Deleted || term.state == LegState::Fixed || term.state == LegState::TouchAndGo);
    }
}

bool holdsNumber(double number, std::string_view text) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<long long>(number)).ptr;
    return contains({digits.data(), static_cast<std::size_t>(end - digits.data())}, text);
}

bool holdsTime(int minute, std::string_view stored, std::string_view text) {
    if (minute < 0) {
        return containsNoCase(trim(stored), text);
    }
    const auto digit = [](int number) { return static_cast<char>('0' + number % 10); };
    const std::array<char, 5> shown{digit(minute / 600), digit(minute / 60 % 10), ':', digit(minute % 60 / 10),
                                    digit(minute % 10)};
    return contains({shown.data(), shown.size()}, text);
}

} // namespace

LegMatcher::LegMatcher(const Filter& filter) : m_terms(filter.terms()) {
    for (std::size_t i = 0; i < m_terms.size(); ++i) {
        m_all |= bitOf(i);
        m_negated |= m_terms[i].negated ? bitOf(i) : 0;
        m_places = m_places || looksAtPlaces(m_terms[i]);
        prepareWords(i);
        if (looksAtLegs(m_terms[i])) {
            m_legTerms.push_back(i);
        }
    }
}

void LegMatcher::prepareWords(std::size_t term) {
    const std::string& text = m_terms[term].text;
    m_words = m_words || m_terms[term].field == FilterField::Flight;
    if (m_terms[term].field != FilterField::Anything) {
        return;
    }
    m_words = true;
    for (unsigned states = 0; states < m_recordStates.size(); ++states) {
        m_recordStates[states] |= statesHold(states, text) ? bitOf(term) : 0;
    }
    for (std::int16_t day = 0; day < 7 && !isDigits(text); ++day) {
        m_days[static_cast<std::size_t>(day)] |= containsNoCase(host().weekdayName(day + 1), text) ? bitOf(term) : 0;
    }
}

bool LegMatcher::matches(std::int32_t recnum, const ScheduleRec& schedule, const LegRec& leg) {
    if (m_all == 0) {
        return true;
    }
    Bits met = scheduleBits(recnum, schedule);
    if (m_places) {
        met |= m_airports.get(leg.fromicao, [&] { return bitsOfAirport(leg.fromicao); }).from;
        met |= m_airports.get(leg.toicao, [&] { return bitsOfAirport(leg.toicao); }).to;
    }
    if (m_words) {
        met |= wordBits(schedule, leg);
    }
    for (const std::size_t i : m_legTerms) {
        if ((met & bitOf(i)) == 0 && meets(m_terms[i], schedule, leg)) {
            met |= bitOf(i);
        }
    }
    return ((met ^ m_negated) & m_all) == m_all;
}

bool LegMatcher::matches(std::int32_t recnum, const ScheduleRec& schedule) {
    return m_all == 0 || ((scheduleBits(recnum, schedule) ^ m_negated) & m_all) == m_all;
}

Bits LegMatcher::scheduleBits(std::int32_t recnum, const ScheduleRec& schedule) {
    const auto at = static_cast<std::size_t>(recnum);
    if (m_schedules.size() <= at) {
        m_schedules.resize(std::max(at + 1, static_cast<std::size_t>(schedulecount) + 1));
    }
    Bits& bits = m_schedules[at];
    if (bits == 0) {
        bits = known | bitsOfSchedule(schedule);
    }
    return bits;
}

Bits LegMatcher::wordBits(const ScheduleRec& schedule, const LegRec& leg) {
    const std::size_t at = leg.flightnum.number();
    if (m_flights.size() <= at) {
        m_flights.resize(2 * at + 1);
    }
    Bits& flight = m_flights[at];
    if (flight == 0) {
        flight = known;
        for (std::size_t i = 0; i < m_terms.size(); ++i) {
            const FilterTerm& term = m_terms[i];
            const bool met = term.field == FilterField::Anything
                                 ? containsNoCase(leg.flightnum.text(), term.text)
                                 : term.field == FilterField::Flight && textMeets(leg.flightnum.text(), term);
            flight |= met ? bitOf(i) : 0;
        }
    }
    const bool hasDay = schedule.weekly && leg.depday >= 0 && leg.depday <= 6;
    return flight | m_recordStates[recordStates(schedule, &leg)] |
           (hasDay ? m_days[static_cast<std::size_t>(leg.depday)] : 0);
}

Bits LegMatcher::bitsOfSchedule(const ScheduleRec& schedule) {
    Bits bits = m_aircraft.get(schedule.acnum, [&] { return bitsOfAircraft(schedule.acnum); });
    for (std::size_t i = 0; i < m_terms.size(); ++i) {
        bits |= scheduleMeets(m_terms[i], schedule) ? bitOf(i) : 0;
    }
    return bits;
}

Bits LegMatcher::bitsOfAircraft(const FixedText<10>& code) const {
    const std::string title = aircrafttitle(code.text());
    const unsigned states = aircraftStates(code.text());
    Bits bits = 0;
    for (std::size_t i = 0; i < m_terms.size(); ++i) {
        bits |= aircraftMeets(m_terms[i], code.text(), title, states) ? bitOf(i) : 0;
    }
    return bits;
}

LegMatcher::PlaceBits LegMatcher::bitsOfAirport(const FixedText<6>& code) const {
    const std::string title = airporttitle(code.text());
    const unsigned states = airportKnown(code.text()) ? 0U : row_state::unknownAirport;
    PlaceBits bits;
    for (std::size_t i = 0; i < m_terms.size(); ++i) {
        const FilterTerm& term = m_terms[i];
        const auto set = [&](bool met, bool from, bool to) {
            bits.from |= met && from ? bitOf(i) : 0;
            bits.to |= met && to ? bitOf(i) : 0;
        };
        if (term.field == FilterField::Anything) {
            set(containsNoCase(code.text(), term.text) || containsNoCase(title, term.text) ||
                    statesHold(states, term.text),
                true, true);
        } else if (term.field == FilterField::State) {
            set(term.state == LegState::UnknownAirport && states != 0, true, true);
        } else if (looksAtPlaces(term)) {
            set(textMeets(code.text(), term), term.field != FilterField::To, term.field != FilterField::From);
        }
    }
    return bits;
}

bool LegMatcher::meets(const FilterTerm& term, const ScheduleRec& schedule, const LegRec& leg) const {
    switch (term.field) {
    case FilterField::Anything:
        return holdsDigits(term.text, leg);
    case FilterField::Day:
        return schedule.weekly && numberMeets(leg.depday, term);
    case FilterField::Distance:
        return numberMeets(static_cast<double>(leg.distance), term);
    case FilterField::Departure:
    case FilterField::Arrival: {
        const int minute = m_shown(term.field == FilterField::Departure ? leg.dep : leg.arr);
        return minute >= 0 && numberMeets(minute, term);
    }
    case FilterField::Level:
        return numberMeets(leg.flightlevel, term);
    default:
        return (term.state == LegState::Deleted && leg.deleted) || (term.state == LegState::Fixed && leg.atflag) ||
               (term.state == LegState::TouchAndGo && leg.tng);
    }
}

bool LegMatcher::holdsDigits(const std::string& text, const LegRec& leg) const {
    return holdsNumber(static_cast<double>(leg.distance), text) || holdsNumber(leg.flightlevel, text) ||
           holdsTime(m_shown(leg.dep), leg.dep.raw(), text) || holdsTime(m_shown(leg.arr), leg.arr.raw(), text);
}

} // namespace vantor
