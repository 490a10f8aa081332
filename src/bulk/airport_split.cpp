#include "bulk/airport_split.h"

#include "core/aircraft_table.h"
#include "core/codes.h"
#include "core/schedule_walk.h"
#include "foundation/numbers.h"
#include "foundation/text.h"

namespace vantor {

namespace {

std::string unknownAirport(const std::string& code) {
    return code + " is not a recognised airport code.  Add the airport to Airports.txt before using it.";
}

std::string refusalOf(const SplitBoxes& boxes) {
    if (boxes.icao1.empty()) {
        return "Please specify the first 'Split' ICAO";
    }
    if (boxes.icao2.empty()) {
        return "Please specify the second 'Split' ICAO";
    }
    for (const std::string& code : {boxes.icao1, boxes.icao2}) {
        if (knownAirport(code) == nullptr) {
            return unknownAirport(code);
        }
    }
    return {};
}

std::string refusalOf(const SplitAircraftBoxes& boxes) {
    if (boxes.aircraftCode.empty()) {
        return "Please specify the aircraft";
    }
    if (boxes.oldIcao.empty()) {
        return "Please specify the current ICAO";
    }
    if (boxes.newIcao.empty()) {
        return "Please specify the new ICAO";
    }
    for (const std::string& code : {boxes.oldIcao, boxes.newIcao}) {
        if (knownAirport(code) == nullptr) {
            return unknownAirport(code);
        }
    }
    if (aircraftrecord(boxes.aircraftCode) == -1) {
        return boxes.aircraftCode + " is not a recognised aircraft code.  Add the aircraft before using it.";
    }
    return {};
}

// Shares legs between two airports. Its count runs on from one schedule to the next.
// Quirk: the shares are approximate, and 100% leaves one leg in 21 to the second airport.
class SharingCounter {
  public:
    explicit SharingCounter(std::int16_t percent) : m_threshold(percent / 10.0) {}

    [[nodiscard]] bool nextIsFirst() {
        m_counter += 0.5;
        if (m_counter <= m_threshold) {
            return true;
        }
        if (m_counter > 10) {
            m_counter = 0;
        }
        return false;
    }

  private:
    double m_counter = 0;
    double m_threshold;
};

} // namespace

std::string remainingShare(std::string_view percent) {
    return generalNumber(100 - val(percent)) + "%";
}

BulkOutcome splitAirport(const StandardTrap& trap, SplitBoxes& boxes) {
    boxes.icao1 = upper(trim(boxes.icao1));
    boxes.icao2 = upper(trim(boxes.icao2));
    std::int16_t percent = 0;
    trap.set(percent, valInt16, boxes.percent);
    if (std::string refusal = refusalOf(boxes); !refusal.empty()) {
        return {.message = std::move(refusal)};
    }
    return {.message = replaceicao(trap.of("sub replaceicao"), boxes.icao, boxes.icao1, boxes.icao2, percent),
            .setsUnsaved = true,
            .clearsLists = true};
}

std::string replaceicao(const StandardTrap& trap, std::string_view source, std::string_view first,
                        std::string_view second, std::int16_t percent) {
    const std::string from{trim(upper(source))};
    const std::string firstCode{trim(upper(first))};
    const std::string secondCode{trim(upper(second))};
    SharingCounter counter(percent);
    std::int32_t firstCount = 0;
    std::int32_t secondCount = 0;
    changeSchedules(
        trap, schedulecount,
        [&](const ScheduleRec& schedule) {
            return anyLeg(schedule, [&](const LegRec& leg) { return leg.toicao.text() == from; });
        },
        [&](ScheduleRec& schedule) {
            for (std::int32_t i = 1; i <= schedule.legcount; ++i) {
                LegRec& leg = schedule.legs[i];
                if (leg.toicao.text() != from) {
                    continue;
                }
                const bool toFirst = counter.nextIsFirst();
                leg.toicao = toFirst ? firstCode : secondCode;
                ++(toFirst ? firstCount : secondCount);
                schedule.legs[schedule.next(i)].fromicao = leg.toicao.raw();
            }
        });
    const std::string shown{source};
    return "Changed " + std::to_string(firstCount) + " " + shown + " to " + std::string(first) + " and " +
           std::to_string(secondCount) + " " + shown + " to " + std::string(second);
}

BulkOutcome splitAircraft(const StandardTrap& trap, SplitAircraftBoxes& boxes) {
    for (std::string* const box : {&boxes.aircraftCode, &boxes.newIcao, &boxes.oldIcao}) {
        *box = upper(trim(*box));
    }
    if (std::string refusal = refusalOf(boxes); !refusal.empty()) {
        return {.message = std::move(refusal)};
    }
    return {.message =
                replaceicaobyac(trap.of("sub replaceicaobyac"), boxes.oldIcao, boxes.newIcao, boxes.aircraftCode),
            .setsUnsaved = true,
            .clearsLists = true};
}

std::string replaceicaobyac(const StandardTrap& trap, std::string_view oldIcao, std::string_view newIcao,
                            std::string_view aircraftCode) {
    const std::string from{trim(upper(oldIcao))};
    const std::string to{trim(upper(newIcao))};
    std::int32_t count = 0;
    changeSchedules(
        trap, schedulecount,
        [&](const ScheduleRec& schedule) {
            return schedule.acnum.text() == aircraftCode && anyLeg(schedule, [&](const LegRec& leg) {
                       return leg.toicao.text() == from || leg.fromicao.text() == from;
                   });
        },
        [&](ScheduleRec& schedule) {
            for (LegRec& leg : schedule.flown()) {
                if (leg.toicao.text() == from) {
                    leg.toicao = to;
                    ++count;
                } else if (leg.fromicao.text() == from) {
                    leg.fromicao = to; // Quirk: an origin alone is not counted.
                }
            }
        });
    return count > 0 ? "Changed " + std::to_string(count) + " flights by " + std::string(aircraftCode) + " from " +
                           std::string(oldIcao) + " to " + std::string(newIcao)
                     : "No matching flights found";
}

} // namespace vantor
