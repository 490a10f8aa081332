#include "explorer/leg_sort.h"

#include "core/aircraft_table.h"
#include "core/code_map.h"
#include "core/tables.h"
#include "foundation/code_page.h"
#include "foundation/numbers.h"
#include "foundation/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>
#include <string_view>
#include <utility>

namespace vantor {

namespace {

constexpr std::uint64_t noValue = std::numeric_limits<std::uint64_t>::max();

// A number as a key: larger numbers have larger keys. Thousandths are told apart.
std::uint64_t keyOf(double number) {
    constexpr double middle = 4e15;
    return static_cast<std::uint64_t>(std::clamp(std::round(number * 1000.0), -middle, middle) + middle);
}

// The front of a text in capitals, as many bytes as a number holds.
template <std::size_t N>
std::uint64_t keyOf(const FixedText<N>& text) {
    static_assert(N <= 8);
    std::uint64_t key = 0;
    for (const char c : text.raw()) {
        key = key << 8U | static_cast<unsigned char>(upperChar(c));
    }
    return text.text().empty() ? noValue : key;
}

// Texts of twelve characters as keys: numbers come first, by their value, then the others by their rank among all,
// which is known when all are.
class TextKeys {
  public:
    std::uint64_t add(const FixedText<12>& field) {
        const std::string_view text = field.text();
        if (text.empty()) {
            return noValue;
        }
        if (text.find_first_not_of("0123456789") == std::string_view::npos) {
            return std::accumulate(text.begin(), text.end(), std::uint64_t{0}, [](std::uint64_t sum, char digit) {
                return sum * 10 + static_cast<std::uint64_t>(digit - '0');
            });
        }
        std::array<char, 12> capitals{};
        std::ranges::transform(field.raw(), capitals.begin(), upperChar);
        const std::string_view all(capitals.data(), capitals.size());
        return isRank | m_found.get(FixedText<12>(all), [&] {
            m_texts.emplace_back(all);
            return m_texts.size() - 1;
        });
    }

    void rank(std::vector<std::uint64_t>& keys) const {
        std::vector<std::uint32_t> order(m_texts.size());
        std::iota(order.begin(), order.end(), 0U);
        std::ranges::sort(order, {}, [&](std::uint32_t at) { return m_texts[at].raw(); });
        std::vector<std::uint32_t> ranks(order.size());
        for (std::uint32_t rank = 0; rank < order.size(); ++rank) {
            ranks[order[rank]] = rank;
        }
        for (std::uint64_t& key : keys) {
            if (key != noValue && (key & isRank) != 0) {
                key = isRank | ranks[static_cast<std::size_t>(key & ~isRank)];
            }
        }
    }

  private:
    static constexpr std::uint64_t isRank = 1ULL << 62U;
    CodeMap<12, std::size_t> m_found;
    std::vector<FixedText<12>> m_texts;
};

// The keys of all rows for one column, in the order of the tables.
class ColumnKeys {
  public:
    explicit ColumnKeys(LegColumn column) : m_column(column) {}

    std::uint64_t of(const ScheduleRec& schedule, const LegRec* leg, bool folded) {
        switch (m_column) {
        case LegColumn::Aircraft:
            return m_aircraft.get(schedule.acnum, [&] { return keyOf(trueacnum(schedule.acnum.text())); });
        case LegColumn::CallSign:
            return m_texts.add(schedule.tailnumber);
        case LegColumn::Repeat: {
            const double hours = repeatHours(schedule);
            return hours == 0 ? noValue : keyOf(hours);
        }
        case LegColumn::Percent:
            return keyOf(val(schedule.percent.raw()));
        case LegColumn::Rules:
            return keyOf(schedule.rules);
        case LegColumn::Status:
            return statesOf(schedule, leg, folded);
        default:
            return folded ? ofAll(schedule) : leg == nullptr ? noValue : ofLeg(schedule, *leg);
        }
    }

    void finish(std::vector<std::uint64_t>& keys) const { m_texts.rank(keys); }

  private:
    std::uint64_t ofLeg(const ScheduleRec& schedule, const LegRec& leg) {
        switch (m_column) {
        case LegColumn::Flight:
            return m_texts.add(leg.flightnum);
        case LegColumn::From:
            return keyOf(leg.fromicao);
        case LegColumn::To:
            return keyOf(leg.toicao);
        case LegColumn::Departure:
        case LegColumn::Arrival: {
            const int minute = m_shown(m_column == LegColumn::Departure ? leg.dep : leg.arr);
            return minute < 0 ? noValue : static_cast<std::uint64_t>(minute);
        }
        case LegColumn::Days:
            return schedule.weekly && leg.depday >= 0 && leg.depday <= 6 ? static_cast<std::uint64_t>(leg.depday)
                                                                         : noValue;
        case LegColumn::Distance:
            return keyOf(static_cast<double>(leg.distance));
        default:
            return keyOf(leg.flightlevel);
        }
    }

    // A schedule's row goes by what it shows.
    std::uint64_t ofAll(const ScheduleRec& schedule) {
        if (m_column == LegColumn::Flight) {
            return keyOf(schedule.legcount);
        }
        const std::span<const LegRec> legs = numberedLegs(schedule);
        if (legs.empty()) {
            return noValue;
        }
        std::uint64_t days = 0;
        double miles = 0;
        std::int16_t level = legs.front().flightlevel;
        for (const LegRec& leg : legs) {
            days |=
                schedule.weekly && leg.depday >= 0 && leg.depday <= 6 ? 64ULL >> static_cast<unsigned>(leg.depday) : 0;
            miles += static_cast<double>(leg.distance);
            level = std::max(level, leg.flightlevel);
        }
        switch (m_column) {
        case LegColumn::Days:
            return days == 0 ? noValue : 127 - days; // those of a Sunday first
        case LegColumn::Distance:
            return keyOf(miles);
        case LegColumn::Level:
            return keyOf(level);
        case LegColumn::Arrival:
            return ofLeg(schedule, legs.back());
        default:
            return ofLeg(schedule, legs.front());
        }
    }

    std::uint64_t statesOf(const ScheduleRec& schedule, const LegRec* leg, bool folded) {
        unsigned states = recordStates(schedule, folded ? nullptr : leg);
        states |= m_states.get(schedule.acnum, [&] { return aircraftStates(schedule.acnum.text()); });
        const auto addAirports = [&](const LegRec& flown) {
            states |= m_known.get(flown.fromicao, [&] { return airportKnown(flown.fromicao.text()); }) &&
                              m_known.get(flown.toicao, [&] { return airportKnown(flown.toicao.text()); })
                          ? 0U
                          : row_state::unknownAirport;
        };
        if (folded) {
            std::ranges::for_each(numberedLegs(schedule), addAirports);
        } else if (leg != nullptr) {
            addAirports(*leg);
        }
        // The state that is told first weighs most.
        std::uint64_t key = 0;
        for (unsigned bit = 0; bit < 6; ++bit) {
            key = key << 1U | (states >> bit & 1U);
        }
        return key == 0 ? noValue : 63 - key;
    }

    LegColumn m_column;
    ShownMinutes m_shown;
    TextKeys m_texts;
    CodeMap<10, std::uint64_t> m_aircraft;
    CodeMap<10, unsigned> m_states;
    CodeMap<6, bool> m_known;
};

// Calls visit(schedule, leg, number) for all rows; the leg is null where a row is a schedule.
template <class Visit>
void eachRow(RowKind kind, const Visit& visit) {
    const std::int32_t count = std::min(schedulecount, mostSchedulesNumbered);
    for (std::int32_t recnum = 1; recnum <= count; ++recnum) {
        const ScheduleRec* const schedule = scheduleOf(legNumber({recnum, 0}));
        if (schedule == nullptr) {
            continue;
        }
        if (kind == RowKind::Schedules) {
            visit(*schedule, nullptr, legNumber({recnum, 0}));
            continue;
        }
        LegId id{recnum, 0};
        for (const LegRec& leg : numberedLegs(*schedule)) {
            ++id.leg;
            visit(*schedule, &leg, legNumber(id));
        }
    }
}

struct Keyed {
    std::uint64_t key;
    std::uint32_t row; // in the order of the tables
};

// A radix sort, which is stable, by the bytes that differ at all: of a million times of day these are two.
void sortByKey(std::vector<Keyed>& rows, std::vector<Keyed>& spare) {
    std::uint64_t differing = 0;
    for (const Keyed& row : rows) {
        differing |= row.key ^ rows.front().key;
    }
    for (unsigned shift = 0; shift < 64; shift += 8) {
        if ((differing >> shift & 0xFFU) == 0) {
            continue;
        }
        std::array<std::size_t, 257> starts{};
        for (const Keyed& row : rows) {
            ++starts[(row.key >> shift & 0xFFU) + 1];
        }
        std::partial_sum(starts.begin(), starts.end(), starts.begin());
        for (const Keyed& row : rows) {
            spare[starts[row.key >> shift & 0xFFU]++] = row;
        }
        rows.swap(spare);
    }
}

} // namespace

std::vector<LegNumber> sortedRows(RowKind kind, std::span<const SortKey> keys) {
    std::vector<LegNumber> numbers;
    eachRow(kind, [&](const ScheduleRec&, const LegRec*, LegNumber number) { numbers.push_back(number); });
    std::vector<Keyed> rows(numbers.size());
    for (std::uint32_t row = 0; row < rows.size(); ++row) {
        rows[row].row = row;
    }
    std::vector<Keyed> spare(rows.size());
    std::vector<std::uint64_t> values;
    values.reserve(rows.size());
    // The least important key first: later sorts keep the order of what is equal.
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) {
        ColumnKeys column(key->column);
        values.clear();
        eachRow(kind, [&](const ScheduleRec& schedule, const LegRec* leg, LegNumber) {
            values.push_back(column.of(schedule, leg, kind == RowKind::Schedules));
        });
        column.finish(values);
        for (Keyed& row : rows) {
            const std::uint64_t value = values[row.row];
            row.key = key->descending && value != noValue ? noValue - 1 - value : value;
        }
        sortByKey(rows, spare);
    }
    std::vector<LegNumber> sorted(rows.size());
    std::ranges::transform(rows, sorted.begin(), [&](const Keyed& row) { return numbers[row.row]; });
    return sorted;
}

} // namespace vantor
