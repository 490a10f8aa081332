// Bench: measurements, as ratios in one run, on traffic made for them.
// The bulk changes over 1.2 million legs, and new simulator aircraft against a long table.
#include "bulk/airport_split.h"
#include "bulk/atc_percentage.h"
#include "bulk/delete_by_airport.h"
#include "bulk/flight_level.h"
#include "core/tables.h"
#include "simulator/aircraft_changes.h"

#include <benchmark/benchmark.h>
#include <string>

namespace vantor::bench {
namespace {

constexpr int scheduleTotal = 150000;
constexpr std::int16_t legTotal = 8;
constexpr int airportTotal = 2000;

std::string icaoOf(int number) {
    std::string icao = "AAAA";
    for (std::size_t place = icao.size(); place-- > 1; number /= 26) {
        icao[place] = static_cast<char>('A' + number % 26);
    }
    return icao;
}

// The same traffic at every call: loops of eight legs over airports in a fixed pattern.
void fillTables() {
    resetTables();
    schedules.Init();
    for (int i = 0; i < airportTotal; ++i) {
        AirportRec airport;
        airport.icao = icaoOf(i);
        airports.HashAdd(airport);
    }
    for (int r = 1; r <= scheduleTotal; ++r) {
        ScheduleRec schedule;
        schedule.recnum = r;
        schedule.acnum = "AC#" + std::to_string(r % 3000 + 1);
        schedule.legcount = legTotal;
        std::string from = icaoOf((r * 7 + legTotal * 13) % airportTotal);
        for (int i = 1; i <= legTotal; ++i) {
            LegRec leg;
            leg.fromicao = from;
            from = icaoOf((r * 7 + i * 13) % airportTotal);
            leg.toicao = from;
            schedule.legs.append(leg);
        }
        schedules.HashAdd(std::move(schedule));
    }
    schedulecount = scheduleTotal;
}

// Each turn changes tables filled anew, outside the clock.
template <class Change>
void measure(benchmark::State& state, Change&& change) {
    for ([[maybe_unused]] auto turn : state) {
        state.PauseTiming();
        fillTables();
        state.ResumeTiming();
        change();
    }
    resetTables();
    state.SetItemsProcessed(state.iterations() * scheduleTotal * legTotal);
}

void BM_FlightLevel(benchmark::State& state) {
    measure(state, [] {
        FlightLevelBoxes boxes{"310", icaoOf(20), icaoOf(33)};
        benchmark::DoNotOptimize(changeFlightLevel(boxes));
    });
}
void BM_Percentage(benchmark::State& state) {
    measure(state, [] { benchmark::DoNotOptimize(updateAtcPercentage("50", "AC#77")); });
}
void BM_DeleteAirport(benchmark::State& state) {
    measure(state, [] { deleteByAirport(icaoOf(500)); });
}
void BM_DeleteFamily(benchmark::State& state) {
    measure(state, [] { deleteByAirport("AA*"); });
}
void BM_DeleteAll(benchmark::State& state) {
    measure(state, [] { deleteByAirport("*"); });
}
void BM_SplitAirport(benchmark::State& state) {
    measure(state, [] { benchmark::DoNotOptimize(replaceicao(icaoOf(500), icaoOf(1), icaoOf(2), 50)); });
}
void BM_SplitAircraft(benchmark::State& state) {
    measure(state, [] { benchmark::DoNotOptimize(replaceicaobyac(icaoOf(500), icaoOf(1), "AC#77")); });
}

void BM_AddSimulatorAircraft(benchmark::State& state) {
    for ([[maybe_unused]] auto turn : state) {
        state.PauseTiming();
        resetTables();
        resetAircraftNumbers();
        for (int i = 1; i <= 8000; ++i) {
            AircraftRec record;
            record.title = "\"Aircraft with a long title, number " + std::to_string(i) + "\"";
            if (i <= 3000) {
                record.acnum = "AC#" + std::to_string(i * 2);
                aircraft.append(record);
            } else {
                fsaircraft.append(record);
            }
        }
        aircraftcount = aircraft.size();
        fsaircraftcount = fsaircraft.size();
        state.ResumeTiming();
        benchmark::DoNotOptimize(addnewfsaircraft());
    }
    resetTables();
}

BENCHMARK(BM_FlightLevel)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Percentage)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DeleteAirport)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DeleteFamily)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DeleteAll)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SplitAirport)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SplitAircraft)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AddSimulatorAircraft)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace vantor::bench
