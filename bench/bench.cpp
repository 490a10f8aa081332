// Bench: measurements, as ratios in one run, on traffic made for them.
// All that is measured and its limits, printed as one table. Call: vantor_bench [SECONDS UNTIL THE FIRST WINDOW].
#include "bulk/aircraft_swap.h"
#include "bulk/airport_split.h"
#include "bulk/atc_percentage.h"
#include "bulk/delete_by_airport.h"
#include "bulk/flight_level.h"
#include "core/flightplans_reader.h"
#include "core/flightplans_writer.h"
#include "core/tables.h"
#include "floor.h"
#include "peer.h"
#include "platform/picture_box.h"
#include "rounds.h"
#include "schedule/list_rows.h"
#include "simulator/traffic_tool.h"
#include "views/movement_chart.h"
#include "views/route_map.h"
#include "window.h"
#include "world.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <numeric>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace vantor::bench {
namespace {

constexpr int rounds = 5;
constexpr std::array sizes = {10000, 50000, 150000};
constexpr double loadLimit = 1.3;
constexpr double peerLimit = 0.15;
constexpr double wholeLoadLimit = 1.8;
constexpr double saveLimit = 1.0;
constexpr double listLimit = 0.15;
constexpr double memoryLimit = 3.5;
constexpr double firstWindowLimit = 0.5;
constexpr double slopeLimit = 1.2;
constexpr const char* airport = "AABC";
constexpr const char* busiestAirport = "AAAA"; // of a world with one
constexpr const char* plane = "AC#77";
constexpr const char* peer = "sqlite3, .import of the legs into a database file";
constexpr const char* loadSched = "LoadSched";
constexpr auto listedSchedules = static_cast<std::int32_t>(scheduleRowLimit);

// A fresh folder beside the system's other temporary ones, gone with this object.
class Folder {
  public:
    Folder() {
        std::string name = (std::filesystem::temp_directory_path() / "vantor-bench-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) {
            std::perror("mkdtemp");
            std::exit(1);
        }
        m_path = name;
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

  private:
    std::filesystem::path m_path;
};

// Every load starts from empty tables, as after the start of the program.
void dropTraffic() {
    schedules = clsHashSC();
    schedulecount = 0;
}

// The most memory that the program held since the peak was last set back, in bytes.
double peakMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:")) {
            return std::stod(line.substr(6)) * 1024;
        }
    }
    return 0;
}

void resetPeakMemory() {
#ifdef __GLIBC__
    malloc_trim(0);
#endif
    std::ofstream("/proc/self/clear_refs") << 5;
}

void addLists(Rounds& table, Window& window) {
    const auto list = [&](const char* name, const char* icao, const char* ac, bool unique) {
        table.add({name, listLimit, [=, &window] { window.form().displaylist(icao, ac, "", unique, 0); }, {}});
    };
    list("displaylist: all flights", "", "", false);
    list("displaylist: flights of an airport", airport, "", false);
    list("displaylist: flights of an aircraft", "", plane, false);
    list("displaylist: aircraft of an airport", airport, "", true);
    list("displaylist: airports of an aircraft", "", plane, true);
    table.add({"fillsecondlist", listLimit, [&] { window.form().fillsecondlist(plane, ""); }, {}});
}

using NamedWork = std::pair<std::string, Work>;

std::vector<NamedWork> viewsOf(Window& window, PictureBox& box, const char* icao) {
    return {{"timetable", [=, &window] { window.form().displaytimetable(icao); }},
            {"gates", [=, &window] { window.form().displaymaxgates(icao); }},
            {"counts and chart", [=, &box] { drawMovementChart(box, icao, -1); }},
            {"map", [=, &box] { drawRouteMap(box, icao); }}};
}

// They change the tables one after the other, so that they stand last in a round.
void addChanges(Rounds& table) {
    const auto change = [&](const char* name, Work work) { table.add({name, listLimit, std::move(work), {}}); };
    change("airportsmissing", [] {
        std::string list;
        static_cast<void>(airportsmissing(list));
    });
    change("change: flight level between two airports", [] {
        FlightLevelBoxes boxes{"310", airport, "AABD"};
        static_cast<void>(changeFlightLevel(boxes));
    });
    change("change: ATC percentage of an aircraft", [] { static_cast<void>(updateAtcPercentage("50", plane)); });
    change("change: airport of an aircraft", [] { static_cast<void>(replaceicaobyac("AABD", "AABE", plane)); });
    change("change: split of an airport", [] { static_cast<void>(replaceicao("AABF", "AABG", "AABH", 50)); });
    change("change: aircraft of all listed flights", [] {
        std::vector<std::int32_t> recnums(listedSchedules);
        std::iota(recnums.begin(), recnums.end(), 1);
        swapAircraft(recnums, "AC#7 - x");
    });
    change("change: delete by airport", [] { deleteByAirport(airport); });
    change("change: delete by the front of a code", [] { deleteByAirport("AA*"); });
    change("change: delete all", [] { deleteByAirport("*"); });
}

void printAgainstPeer(const Rounds& table) {
    const auto ratio = [&](double Spent::*which) {
        return medianRatio(table.timesOf(loadSched), table.timesOf(peer), which);
    };
    printRow({"LoadSched against sqlite3", 0, ratio(&Spent::wall), "x sqlite3", peerLimit, ratio(&Spent::processor)});
}

// The main table, over the largest mixed world.
void measureAgainstFloor(Window& window) {
    const Folder folder;
    const WorldSize size = writeWorld(folder.path(), {.schedules = sizes.back()});
    writeLegsForPeer(folder.path());
    window.moveTo(folder.path());
    PictureBox box;
    box.resize(800, 600);

    resetPeakMemory();
    window.form().loaddata();
    const double peak = peakMemory();

    const PlainAirports plainAirports = readPlainAirports(folder.path() / "Airports.txt");
    std::vector<PlainSchedule> plain;
    Rounds table({"the floor", 0, [&] { plain = runFloor(folder.path() / "Flightplans.txt", plainAirports); },
                  [&] { plain = {}; }});
    table.add({peer, 0, [&] { importByPeer(folder.path()); }, [&] { removePeerDatabase(folder.path()); }});
    table.add({loadSched, loadLimit, [&] { LoadSched(&box, flightplansfile); }, dropTraffic});
    table.add({"default load, all readers and lists", wholeLoadLimit, [&] { window.form().loaddata(); }, dropTraffic});
    table.add({"savesc", saveLimit, [&] { savesc(flightplansfile + ".saved"); }, {}});
    addLists(table, window);
    for (const auto& [name, view] : viewsOf(window, box, airport)) {
        table.add({name + " of an airport", listLimit, view, {}});
    }
    addChanges(table);
    table.run(rounds);

    std::printf("%d schedules, %lld legs, %.1f MB of text; medians of %d rounds, each time held against the floor run "
                "just before it\n\n",
                sizes.back(), static_cast<long long>(size.legs), static_cast<double>(size.bytes) / 1e6, rounds);
    table.print();
    printAgainstPeer(table);
    printRow({"peak memory of the whole program", 0, peak / static_cast<double>(size.bytes), "x files", memoryLimit});
}

using SizedTimes = std::array<std::vector<Spent>, sizes.size()>;

// Time is a fixed part and a part for each schedule; whether the latter stays the same shows where the sizes' times
// stand on one line: the slope of the upper stretch over that of the lower one.
double slopeRatio(const SizedTimes& times, double Spent::*which) {
    const auto slope = [&](std::size_t from) {
        return (median(times[from + 1], which) - median(times[from], which)) / (sizes[from + 1] - sizes[from]);
    };
    return slope(1) / slope(0);
}

// Works run one after the other in a window of a world of each size; the first of them loads it.
void measureLinearity(Window& window, WorldOptions options, const std::vector<NamedWork>& works) {
    const Folder folder;
    for (const int size : sizes) {
        options.schedules = size;
        const std::filesystem::path world = folder.path() / std::to_string(size);
        std::filesystem::create_directory(world);
        writeWorld(world, options);
    }
    std::vector<SizedTimes> times(works.size());
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < sizes.size(); ++i) {
            window.moveTo(folder.path() / std::to_string(sizes[i]));
            dropTraffic();
            for (std::size_t work = 0; work < works.size(); ++work) {
                times[work][i].push_back(timeOf(works[work].second));
            }
        }
    }
    for (std::size_t work = 0; work < works.size(); ++work) {
        printRow({works[work].first, median(times[work].back(), &Spent::wall), slopeRatio(times[work], &Spent::wall),
                  "slopes", slopeLimit, slopeRatio(times[work], &Spent::processor)});
    }
}

void measureAllLinearity(Window& window) {
    printHeading("Time of a further schedule between 50,000 and 150,000, over that between 10,000 and 50,000");
    const Work load = [&] { window.form().loaddata(); };
    measureLinearity(window, {}, {{"default load, mixed", load}});
    measureLinearity(window, {.missingAirports = true}, {{"default load, all airports missing", load}});
    measureLinearity(window, {.unknownAircraft = true}, {{"default load, all aircraft unknown", load}});
    measureLinearity(window, {.reversedAircraft = true}, {{"default load, aircraft in reverse order", load}});
    PictureBox box;
    box.resize(800, 600);
    std::vector<NamedWork> busy = viewsOf(window, box, busiestAirport);
    for (auto& [name, view] : busy) {
        name += " of that airport";
    }
    busy.insert(busy.begin(), {"default load, one airport busy with every leg", load});
    // Gates: beyond 32,767 aircraft in an hour each further one is a fault in the log, which is where the time goes.
    measureLinearity(window, {.busyAirport = true}, busy);
}

int run(int argc, char** argv) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1); // NOLINT(concurrency-mt-unsafe): there is one thread
    Window window(argc, argv);
    measureAgainstFloor(window);
    if (argc > 1) {
        const double seconds = std::strtod(argv[1], nullptr);
        printRow({"first window of the started program", seconds, seconds, "seconds", firstWindowLimit});
    }
    measureAllLinearity(window);
    return 0;
}

} // namespace
} // namespace vantor::bench

int main(int argc, char** argv) {
    return vantor::bench::run(argc, argv);
}
