// Bench: measurements, as ratios in one run, on traffic made for them.
// The views of one airport, at three sizes of traffic and for an airport that a hundred thousand legs use.
#include "core/tables.h"
#include "foundation/canvas.h"
#include "views/gates.h"
#include "views/movement_chart.h"
#include "views/route_map.h"
#include "views/timetable.h"

#include <benchmark/benchmark.h>
#include <string>

namespace vantor::bench {
namespace {

constexpr int legsOfSchedule = 8;
constexpr int airportsBeside = 900;

std::string codeOf(int number) {
    return {static_cast<char>('B' + number / 676 % 25), static_cast<char>('A' + number / 26 % 26),
            static_cast<char>('A' + number % 26), 'X'};
}

// Schedules of eight legs among hundreds of airports. AAAA is used by a hundred thousand of 1.2 million legs when
// `busy`, else by one in four thousand.
void makeTraffic(int count, bool busy) {
    resetTables();
    AirportRec airport;
    for (int i = 0; i <= airportsBeside; ++i) {
        airport.icao = i == 0 ? std::string("AAAA") : codeOf(i);
        airport.title = "Name of an airport";
        airport.latdeg = static_cast<float>(i % 170 - 85);
        airport.longdeg = static_cast<float>(i % 350 - 175);
        airports.HashAdd(airport);
        ++airportcount;
    }
    for (int s = 1; s <= count; ++s) {
        ScheduleRec schedule;
        schedule.recnum = s;
        schedule.acnum = "AC#1";
        schedule.period = s % 2 == 0 ? "24HR" : "12HR";
        schedule.legcount = legsOfSchedule;
        for (int i = 0; i < legsOfSchedule; ++i) {
            LegRec leg;
            const bool ours = i == 3 && (busy ? s % 3 == 0 : s % 1000 == 0);
            leg.toicao = ours ? std::string("AAAA") : codeOf(1 + (s * 7 + i * 31) % airportsBeside);
            leg.fromicao = i == 0 ? std::string("BAAX") : std::string(schedule.legs[i].toicao.text());
            leg.dep = std::string(s % 24 < 10 ? "0" : "") + std::to_string(s % 24) + ":50:00";
            leg.arr = std::string(s % 24 < 10 ? "0" : "") + std::to_string(s % 24) + ":10:00";
            leg.flightnum = "123";
            schedule.legs.append(leg);
        }
        schedules.HashAdd(std::move(schedule));
    }
    schedulecount = count;
}

// A canvas that takes everything and shows nothing.
class NullCanvas final : public Canvas {
  public:
    double innerWidth() const override { return 12000; }
    double innerHeight() const override { return 9000; }
    double outerWidth() const override { return 12030; }
    double outerHeight() const override { return 9030; }
    void clear() override {}
    void fillBox(double, double, double, double, Colour) override { ++calls; }
    void drawLine(double, double, double, double, Colour) override { ++calls; }
    void drawText(double, double, std::string_view) override { ++calls; }
    double textWidth(std::string_view text) const override { return 90.0 * static_cast<double>(text.size()); }
    double textHeight(std::string_view) const override { return 200; }
    void setFontSize(double) override {}
    void setTextColour(Colour) override {}
    void setBackColour(Colour) override {}
    void useSystemColours() override {}
    int calls = 0;
};

template <class View>
void measure(benchmark::State& state, const View& view) {
    makeTraffic(static_cast<int>(state.range(0)), state.range(1) != 0);
    for ([[maybe_unused]] auto turn : state) {
        view();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0) * legsOfSchedule);
    resetTables();
}

void BM_Timetable(benchmark::State& state) {
    measure(state, [] { benchmark::DoNotOptimize(timetableRows("AAAA")); });
}
void BM_Gates(benchmark::State& state) {
    measure(state, [] { benchmark::DoNotOptimize(gateRows("AAAA")); });
}
void BM_Chart(benchmark::State& state) {
    NullCanvas canvas;
    measure(state, [&] { drawMovementChart(canvas, "AAAA", -1); });
}
void BM_Map(benchmark::State& state) {
    NullCanvas canvas;
    measure(state, [&] { drawRouteMap(canvas, "AAAA"); });
}

const auto sizes = [](benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"schedules", "busy"});
    for (const int schedules : {10000, 50000, 150000}) {
        bench->Args({schedules, 0});
    }
    bench->Args({150000, 1})->Unit(benchmark::kMillisecond);
};

BENCHMARK(BM_Timetable)->Apply(sizes);
BENCHMARK(BM_Gates)->Apply(sizes);
BENCHMARK(BM_Chart)->Apply(sizes);
BENCHMARK(BM_Map)->Apply(sizes);

} // namespace
} // namespace vantor::bench
