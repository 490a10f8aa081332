#include "explorer/filter.h"

#include "foundation/clock.h"
#include "foundation/error.h"
#include "foundation/host.h"
#include "foundation/numbers.h"
#include "foundation/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace vantor {

namespace {

constexpr double minutesPerDay = 1440;
constexpr double hoursPerWeek = 168;

// How the value of a field is read.
enum class ValueKind { Text, Code, Exact, Day, State, Number, Time, Hours };

struct FieldName {
    std::string_view name;
    FilterField field;
    ValueKind kind;
};

constexpr std::array fieldNames{
    FieldName{"AC", FilterField::Aircraft, ValueKind::Exact},
    FieldName{"TAIL", FilterField::CallSign, ValueKind::Text},
    FieldName{"FLIGHT", FilterField::Flight, ValueKind::Exact},
    FieldName{"FROM", FilterField::From, ValueKind::Code},
    FieldName{"TO", FilterField::To, ValueKind::Code},
    FieldName{"AT", FilterField::AnyEnd, ValueKind::Code},
    FieldName{"TYPE", FilterField::Type, ValueKind::Text},
    FieldName{"DAY", FilterField::Day, ValueKind::Day},
    FieldName{"RULES", FilterField::Rules, ValueKind::Code},
    FieldName{"IS", FilterField::State, ValueKind::State},
    FieldName{"DIST", FilterField::Distance, ValueKind::Number},
    FieldName{"DEP", FilterField::Departure, ValueKind::Time},
    FieldName{"ARR", FilterField::Arrival, ValueKind::Time},
    FieldName{"LEVEL", FilterField::Level, ValueKind::Number},
    FieldName{"REPEAT", FilterField::Repeat, ValueKind::Hours},
    FieldName{"PERCENT", FilterField::Percent, ValueKind::Number},
};

constexpr std::array<std::pair<std::string_view, LegState>, 7> stateNames{{
    {"DELETED", LegState::Deleted},
    {"MISSING", LegState::Missing},
    {"NOAIRCRAFT", LegState::UnknownAircraft},
    {"NOAIRPORT", LegState::UnknownAirport},
    {"WEEKLY", LegState::Weekly},
    {"FIXED", LegState::Fixed},
    {"TNG", LegState::TouchAndGo},
}};

// The pieces of the text between blanks that stand outside of quotes, quotes and all.
std::vector<std::string_view> pieces(std::string_view text) {
    std::vector<std::string_view> result;
    std::size_t start = 0;
    bool quoted = false;
    for (std::size_t at = 0; at <= text.size(); ++at) {
        if (at == text.size() || (text[at] == ' ' && !quoted)) {
            if (at > start) {
                result.push_back(text.substr(start, at - start));
            }
            start = at + 1;
        } else if (text[at] == '"') {
            quoted = !quoted;
        }
    }
    return result;
}

std::string withoutQuotes(std::string_view text) {
    return replaceAll(text, "\"", "");
}

// The relation at the front of what follows a field's name, which is taken off.
std::optional<FilterRelation> takeRelation(std::string_view& rest) {
    constexpr std::array<std::pair<std::string_view, FilterRelation>, 6> signs{{
        {"<=", FilterRelation::AtMost},
        {">=", FilterRelation::AtLeast},
        {"<", FilterRelation::Less},
        {">", FilterRelation::Greater},
        {"=", FilterRelation::Equals},
        {":", FilterRelation::Holds},
    }};
    for (const auto& [sign, relation] : signs) {
        if (rest.starts_with(sign)) {
            rest.remove_prefix(sign.size());
            return relation;
        }
    }
    return std::nullopt;
}

std::optional<double> numberOf(std::string_view text) {
    try {
        return parseNumber(text.ends_with('%') ? text.substr(0, text.size() - 1) : text);
    } catch (const Error&) {
        return std::nullopt;
    }
}

// 22:00, 2200 and 22 are one time, in minutes.
std::optional<double> minutesOf(std::string_view text) {
    try {
        return std::round(parseTime(text) * minutesPerDay);
    } catch (const Error&) {
        const auto digits = std::ranges::count_if(text, [](char c) { return c >= '0' && c <= '9'; });
        if (digits == 0 || static_cast<std::size_t>(digits) != text.size() || digits > 4) {
            return std::nullopt;
        }
    }
    const auto number = static_cast<int>(val(text));
    const int hours = text.size() > 2 ? number / 100 : number;
    const int minutes = text.size() > 2 ? number % 100 : 0;
    return hours > 24 || minutes > 59 ? std::nullopt : std::optional(hours * 60.0 + minutes);
}

std::optional<double> hoursOf(std::string_view text) {
    if (text.starts_with("WEEK")) {
        return hoursPerWeek;
    }
    const std::size_t behind = text.find_first_not_of("0123456789.");
    const std::string_view unit = behind == std::string_view::npos ? std::string_view() : text.substr(behind);
    return unit.empty() || std::string_view("HR").starts_with(unit) ? numberOf(text.substr(0, behind)) : std::nullopt;
}

// A day by its number (0 is Sunday) or the front of its English or local name: the number it has in the files.
std::optional<double> dayOf(std::string_view text) {
    constexpr std::array<std::string_view, 7> english{"SUNDAY",   "MONDAY", "TUESDAY", "WEDNESDAY",
                                                      "THURSDAY", "FRIDAY", "SATURDAY"};
    for (int day = 0; day < 7; ++day) {
        if (upper(host().weekdayName(day + 1)).starts_with(text) ||
            english.at(static_cast<std::size_t>(day)).starts_with(text) || text == std::to_string(day)) {
            return day;
        }
    }
    return std::nullopt;
}

// Takes a text as the value; false when the field can't stand to it so.
bool takeText(FilterTerm& term, ValueKind kind, std::string_view value) {
    if (term.relation != FilterRelation::Holds && term.relation != FilterRelation::Equals) {
        return false;
    }
    term.text = value;
    if (value.ends_with('*')) {
        term.text.pop_back();
        term.relation = FilterRelation::Begins;
    } else if (term.relation == FilterRelation::Holds && kind == ValueKind::Code) {
        term.relation = FilterRelation::Begins;
    } else if (kind == ValueKind::Exact) {
        term.relation = FilterRelation::Equals;
    }
    // A bare number is the usual way to name an aircraft.
    if (term.field == FilterField::Aircraft && value.find_first_not_of("0123456789*") == std::string_view::npos) {
        term.text.insert(0, "AC#");
    }
    return true;
}

bool takeState(FilterTerm& term, std::string_view value) {
    const auto* const state = std::ranges::find_if(
        stateNames, [&](std::string_view name) { return name.starts_with(value); },
        [](const auto& named) { return named.first; });
    if (state == stateNames.end() ||
        (term.relation != FilterRelation::Holds && term.relation != FilterRelation::Equals)) {
        return false;
    }
    term.state = state->second;
    term.relation = FilterRelation::Equals;
    return true;
}

bool takeNumber(FilterTerm& term, const std::optional<double>& number) {
    if (!number) {
        return false;
    }
    term.number = *number;
    term.relation = term.relation == FilterRelation::Holds ? FilterRelation::Equals : term.relation;
    return true;
}

bool takeValue(FilterTerm& term, ValueKind kind, std::string_view value) {
    switch (kind) {
    case ValueKind::State:
        return takeState(term, value);
    case ValueKind::Number:
        return takeNumber(term, numberOf(value));
    case ValueKind::Time:
        return takeNumber(term, minutesOf(value));
    case ValueKind::Hours:
        return takeNumber(term, hoursOf(value));
    case ValueKind::Day:
        return takeNumber(term, dayOf(value));
    default:
        return takeText(term, kind, value);
    }
}

// A term that names its field. None is a plain text; a term of the field Anything without text narrows nothing.
std::optional<FilterTerm> fieldTerm(std::string_view piece) {
    FilterTerm term;
    term.typed = piece;
    std::string capitals = upper(piece);
    std::string_view rest = capitals;
    if (rest.starts_with('-')) {
        term.negated = true;
        rest.remove_prefix(1);
    }
    const std::size_t nameEnd = rest.find_first_of(":=<>");
    const auto* const named = std::ranges::find(fieldNames, rest.substr(0, nameEnd), &FieldName::name);
    if (nameEnd == std::string_view::npos || named == fieldNames.end()) {
        return std::nullopt;
    }
    rest.remove_prefix(nameEnd);
    term.relation = *takeRelation(rest);
    const std::string value = withoutQuotes(rest);
    if (value.empty()) {
        return FilterTerm{};
    }
    term.field = named->field;
    return takeValue(term, named->kind, value) ? std::optional(term) : std::nullopt;
}

std::optional<FilterTerm> termOf(std::string_view piece) {
    FilterTerm term =
        fieldTerm(piece).value_or(FilterTerm{.text = upper(withoutQuotes(piece)), .typed = std::string(piece)});
    const bool narrowsNothing = term.field == FilterField::Anything && term.text.empty();
    return narrowsNothing ? std::nullopt : std::optional(std::move(term));
}

} // namespace

Filter::Filter(std::string_view text) {
    for (const std::string_view piece : pieces(text)) {
        std::optional<FilterTerm> term = termOf(piece);
        if (term && m_terms.size() < mostTerms) {
            m_terms.push_back(std::move(*term));
        }
    }
}

std::string narrowedFilter(std::string_view text, std::string_view terms) {
    std::string result(trim(text));
    const std::vector<std::string_view> present = pieces(text);
    for (const std::string_view term : pieces(terms)) {
        if (std::ranges::none_of(present, [&](std::string_view piece) { return equalNoCase(piece, term); })) {
            result.append(result.empty() ? "" : " ").append(term);
        }
    }
    return result;
}

std::string filterWithout(std::string_view text, std::size_t index) {
    std::string result;
    for (const std::string_view piece : pieces(text)) {
        if (!termOf(piece) || index-- != 0) {
            result.append(result.empty() ? "" : " ").append(piece);
        }
    }
    return result;
}

} // namespace vantor
