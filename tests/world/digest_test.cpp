// World: a generated world through the whole logic, held against digests.
// Whoever makes something faster learns here whether a single bit of tables, files, lists or views has changed.
#include "bulk/airport_split.h"
#include "bulk/atc_percentage.h"
#include "bulk/delete_by_airport.h"
#include "bulk/flight_level.h"
#include "core/aircraft_file.h"
#include "core/combo_rows.h"
#include "core/flightplans_writer.h"
#include "core/load_pipeline.h"
#include "core/tables.h"
#include "schedule/list_rows.h"
#include "simulator/missing_aircraft.h"
#include "simulator/traffic_tool.h"
#include "support/fixture.h"
#include "views/gates.h"
#include "views/movement_chart.h"
#include "views/movements.h"
#include "views/route_map.h"
#include "views/timetable.h"
#include "world.h"
#include "world/digest.h"

#include <array>
#include <fstream>
#include <string>
#include <vector>

namespace vantor::test {
namespace {

constexpr std::array airportCodes = {"AAAA", "AABC", "AAKQ", "ZZZZ"};
constexpr std::array aircraftCodes = {"AC#7", "AC#123", "AC#500007", "AC#9999"};

constexpr std::array digestNames = {"aircraft", "airports", "schedules", "saved",
                                    "lists",    "views",    "bulk",      "saved then"};

struct Variant {
    const char* name;
    bool bench::WorldOptions::*option; // none: a plain world
    std::array<const char*, digestNames.size()> digests;
};

// What real files have and a generator doesn't think of.
constexpr std::string_view oddPlans =
    "\r\n   \r\n; a comment\r\n"
    "ac#7,vh-\xE4\xFCx\xFF,5%,weekly,ifr,1/06:00:00,@tng3/08:15,350,fx,12,aaaa,1/23:30:00,00:10:00,3.5e2,f,13,aabc,\r\n"
    "  AC#9999-old, N 1 ,100%,BIWEEK,VFR,6:00,tng@@7:30, +80 ,R,1,AAKQ // at the end\r\n"
    "AC#123,N2,,0.5,IFR,06:00:00,07:00:00,-10,F,a very long number,toolongcode;,F,2,AAAA\r\n"
    "AC#123,N3,1%,24HR,IFR,06:00:00,07:00:00,10,F,2,KXXX\n"
    "AC#123,too,few,fields\r"
    "AC#70,N4,1%,WEEK,IFR,6/00:00:00,@06:00:00,10,,,-1,6/07:00:00,0/09:00:00,10,F,1,\r\n"
    "AC#1,N5,1%,8Hr,IFR,05:00:00,06:00:00,1,F,3,AAAA,07:00:00,08:00:00,2,F,4,AAAA";
constexpr std::string_view oddAircraft =
    "//AC#1,2,x\r\nAC#7,212.5,second of this number\r\nXX#123, 1e2 ,\xC4 title, cut\r\nAC#1,1\r\n";
constexpr std::string_view oddAirports =
    "aabc,N1* 2.3',W4* 5.6',7\r\n;AAKQ,N1* 2.3',W4* 5.6',7\r\n"
    "AABC,S12* 30.59',E179* 59.59',-5,more\r\nKXXX,N9*9,E1.2*3,1.5\r\nAAKR,1,2\r\n";

class Steps final : public LoadSteps {
  public:
    Canvas* progress() override { return &m_canvas; }
    void loadSimulatorAircraft() override {
        // Every third aircraft is there in the simulator.
        for (std::int32_t i = 3; i <= aircraftcount; i += 3) {
            fsaircraft.append(aircraft[i]);
        }
        fsaircraftcount = fsaircraft.size();
    }
    void listMissingAircraft() override { lists.add(checkmissing()); }
    void fillAircraftList() override { lists.addAll(aircraftRows(true), aircraftRows(false)); }
    void fillAirportList() override { lists.add(airportRows()); }

    Digest lists;

  private:
    RecordingCanvas m_canvas;
};

class WorldDigestTest : public Fixture, public ::testing::WithParamInterface<Variant> {
  protected:
    // Writes the variant's files and loads them.
    void load(Steps& steps) const {
        bench::WorldOptions options{.schedules = 2000, .airports = 300, .aircraft = 200};
        if (GetParam().option != nullptr) {
            options.*GetParam().option = true;
        }
        bench::writeWorld(folder(), options);
        append("Flightplans.txt", oddPlans);
        append("Aircraft.txt", oddAircraft);
        append("Airports.txt", oddAirports);
        fsmode = 2;
        fsicaofile = path("FS\\weather\\icao name.cfg");
        aircraftfile = path("Aircraft.txt");
        airportsfile = path("Airports.txt");
        flightplansfile = path("Flightplans.txt");
        loadAllTraffic(steps);
    }

    [[nodiscard]] Digest savedFiles() const {
        savesc(path("saved.txt"));
        writeFile("Aircraft.txt", "");
        saveaircraft();
        Digest digest;
        digest.addAll(readFile("saved.txt"), readFile("Aircraft.txt"));
        return digest;
    }

  private:
    void append(const char* name, std::string_view text) const {
        std::ofstream(folder() / name, std::ios::binary | std::ios::app) << text;
    }
};

Digest digestOfSchedules(Digest digest = {}) {
    digest.add(schedulecount);
    for (std::int32_t recnum = 1; recnum <= schedulecount; ++recnum) {
        digest.add(schedules.peek(recnum));
    }
    return digest;
}

Digest digestOfAircraft() {
    Digest digest;
    digest.addAll(aircraftcount, aircraft);
    return digest;
}

// By slot, and by code: which of two airports of one code is found counts as well.
Digest digestOfAirports() {
    Digest digest;
    digest.add(airportcount);
    for (std::int32_t slot = 1; slot <= airportcount; ++slot) {
        digest.addAll(airports.peek(slot), airports.HashFind(airports.peek(slot).icao.raw()));
    }
    digest.add(airports.HashFind("none"));
    return digest;
}

void addListing(Digest& digest, std::string_view icao, std::string_view ac, bool unique) {
    Listing listing;
    listSchedules(icao, ac, unique, listing);
    digest.addAll(listing.rows, listing.caption.value_or("none"));
}

void addLegListing(Digest& digest, const LegListing& listing) {
    digest.addAll(listing.rows, listing.caption.value_or("none"), listing.enabled.value_or(true), listing.selectFirst,
                  listing.disableButtons);
}

void addLists(Digest& digest) {
    addListing(digest, "", "", false);
    for (const char* const ac : aircraftCodes) {
        addListing(digest, "", ac, false);
        addListing(digest, "", ac, true);
        addLegListing(digest, listLegsOfAircraft(caller, ac, ""));
        addLegListing(digest, listLegsOfAircraft(caller, ac, "AAAA"));
    }
    for (const char* const icao : airportCodes) {
        addListing(digest, icao, "", false);
        addListing(digest, icao, "", true);
        addListing(digest, icao, "AC#7", true);
    }
    for (std::int32_t recnum = 0; recnum <= schedulecount; ++recnum) {
        addLegListing(digest, listLegs(recnum, recnum % 2 == 0 ? "" : "AABC"));
    }
    std::string missing;
    const bool any = airportsmissing(missing);
    digest.addAll(any, missing);
}

void addCounts(Digest& digest, const char* icao) {
    for (std::int16_t day = dailyView; day < 7; ++day) {
        MovementHours departures{};
        MovementHours arrivals{};
        countflights(departures, arrivals, icao, day);
        for (const MovementHours& hours : {departures, arrivals}) {
            for (const std::int16_t count : hours) {
                digest.add(count);
            }
        }
    }
}

void addCalls(Digest& digest, const RecordingCanvas& canvas) {
    for (const CanvasCall& call : canvas.calls) {
        digest.add(call.index());
        if (const auto* line = std::get_if<DrawnLine>(&call)) {
            digest.addAll(line->x1, line->y1, line->x2, line->y2, line->colour);
        } else if (const auto* text = std::get_if<DrawnText>(&call)) {
            digest.addAll(text->x, text->y, text->text);
        } else if (const auto* box = std::get_if<FilledBox>(&call)) {
            digest.addAll(box->x1, box->y1, box->x2, box->y2, box->colour);
        }
    }
}

Digest digestOfViews() {
    Digest digest;
    for (const float offset : {0.0F, -0.25F, 11.0F / 24.0F}) {
        gmtoffset = offset;
        for (const char* const icao : airportCodes) {
            digest.addAll(timetableRows(caller, icao), gateRows(caller, icao));
            addCounts(digest, icao);
        }
    }
    gmtoffset = 0;
    RecordingCanvas canvas;
    for (const char* const icao : airportCodes) {
        drawRouteMap(caller, canvas, icao);
        drawMovementChart(canvas, icao, dailyView);
    }
    addCalls(digest, canvas);
    return digest;
}

// The tables after each of the bulk changes, one on top of the other.
Digest digestOfBulkChanges() {
    Digest digest;
    const LegRec leg = schedules.peek(10).legs[2];
    FlightLevelBoxes level{"333", std::string(leg.fromicao.text()), std::string(leg.toicao.text())};
    digest.add(changeFlightLevel(caller, level).message);
    digest.add(updateAtcPercentage(caller, "42", "AC#7").message);
    digest.add(replaceicao(caller, "AABC", "AAAA", "AAKQ", 30));
    digest.add(replaceicaobyac(caller, "AAKQ", "AABC", "AC#123"));
    digest = digestOfSchedules(digest);
    deleteByAirport(caller, "AABC");
    deleteByAirport(caller, "AAA*");
    return digestOfSchedules(digest);
}

TEST_P(WorldDigestTest, IsTheSameToTheBit) {
    Steps steps;
    load(steps);
    addLists(steps.lists);
    // In this order: the last ones change the tables.
    std::vector<Digest> digests = {digestOfAircraft(), digestOfAirports(), digestOfSchedules(),  savedFiles(),
                                   steps.lists,        digestOfViews(),    digestOfBulkChanges()};
    digests.push_back(savedFiles());
    for (std::size_t i = 0; i < digestNames.size(); ++i) {
        EXPECT_EQ(digests[i].text(), GetParam().digests.at(i)) << digestNames.at(i);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Variants, WorldDigestTest,
    ::testing::Values(Variant{"Mixed",
                              nullptr,
                              {"cbb99068d93d7667", "7f7e8698e1a8d6ca", "8d5d46286f84d0db", "1c81d13e92d5b842",
                               "8e1f705c14bf4d2c", "fa5b51da88c01215", "4e703cc77d25b983", "266834f087b1106b"}},
                      Variant{"AirportsMissing",
                              &bench::WorldOptions::missingAirports,
                              {"cbb99068d93d7667", "7f7e8698e1a8d6ca", "da6a0b19f2dcf640", "8667611b20080c18",
                               "4d0a3279bb193b57", "4d25f385ab899645", "01981a0304013228", "56e8dd9dcdab7e24"}},
                      Variant{"AircraftUnknown",
                              &bench::WorldOptions::unknownAircraft,
                              {"cbb99068d93d7667", "7f7e8698e1a8d6ca", "847d0a60ea5d4d13", "1859cc9d7bb62330",
                               "4cacabeae9a2e543", "9ba4a3e6b8061363", "e1775248da0c334f", "10b9e698d3a59cea"}},
                      Variant{"AircraftReversed",
                              &bench::WorldOptions::reversedAircraft,
                              {"cbb99068d93d7667", "7f7e8698e1a8d6ca", "8d5d46286f84d0db", "1c81d13e92d5b842",
                               "8e1f705c14bf4d2c", "fa5b51da88c01215", "4e703cc77d25b983", "266834f087b1106b"}},
                      Variant{"AirportBusy",
                              &bench::WorldOptions::busyAirport,
                              {"cbb99068d93d7667", "7f7e8698e1a8d6ca", "69740fe7d9c6bb52", "c39624c239cf30fb",
                               "efaa9468ad21ba41", "2bcfe3ce0b5f7adb", "90bc7140b4864abe", "f0bed25c49b2bdff"}}),
    [](const auto& variant) { return std::string(variant.param.name); });

} // namespace
} // namespace vantor::test
