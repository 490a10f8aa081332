// World: a generated world through the whole logic, held against digests (FNV-1a, 64 bits) of its tables and of what it
// saves, of its lists, its views and its bulk changes. Whoever makes something faster learns here what has changed.
#include "bulk/airport_split.h"
#include "bulk/atc_percentage.h"
#include "bulk/delete_by_airport.h"
#include "bulk/flight_level.h"
#include "core/aircraft_file.h"
#include "core/airports_file.h"
#include "core/combo_rows.h"
#include "core/flightplans_reader.h"
#include "core/flightplans_writer.h"
#include "schedule/list_rows.h"
#include "simulator/missing_aircraft.h"
#include "simulator/traffic_tool.h"
#include "support/test.h"
#include "views/gates.h"
#include "views/movement_chart.h"
#include "views/movements.h"
#include "views/route_map.h"
#include "views/timetable.h"
#include "world.h"

namespace vantor {
namespace {

struct Variant {
    const char* name;
    bool bench::WorldOptions::*option; // none: a plain world
    std::array<std::uint64_t, 4> digests;
};

// Values as text, numbers to their last bit, each with a bar behind it.
class Digest {
  public:
    Digest() { m_text << std::hexfloat; }
    void add(const auto&... values) { ((m_text << values << '|'), ...); }
    void add(const ListRows& rows) {
        for (const ListRow& row : rows) {
            add(row.text, row.itemData);
        }
    }
    void add(const LegListing& legs) {
        add(legs.rows);
        add(legs.caption.value_or("none"), legs.enabled.value_or(true), legs.selectFirst, legs.disableButtons);
    }
    void add(const MovementHours& hours) { add(countedHours(hours)); }
    [[nodiscard]] std::uint64_t hash() const {
        std::uint64_t hash = 14695981039346656037ULL;
        for (const char c : m_text.str()) {
            hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
        }
        return hash;
    }

  private:
    std::ostringstream m_text;
};

constexpr std::array airportCodes = {"AAAA", "AABC", "AAKQ", "ZZZZ"};

class WorldDigestTest : public Fixture, public testing::WithParamInterface<Variant> {
  protected:
    // Writes a file of the world with lines behind it that real files have and a generator doesn't think of.
    void append(const char* name, std::string_view text) const { writeFile(name, readFile(name) + std::string(text)); }

    void addSchedules(Digest& digest) const {
        digest.add(schedulecount);
        for (std::int32_t slot = 1; slot <= schedulecount; ++slot) {
            digest.add(textOf(schedules.peek(slot)));
        }
        savesc(path("saved.txt"));
        saveaircraft();
        digest.add(readFile("saved.txt"), readFile("Aircraft.txt"));
    }
    [[nodiscard]] std::uint64_t tables() const {
        Digest digest;
        for (const AircraftRec& record : aircraft) {
            digest.add(record.acnum.raw(), record.cruisespeed, record.title.raw(), record.missing, record.deleted);
        }
        for (std::int32_t slot = 1; slot <= airportcount; ++slot) {
            // Which of two airports of one code is found counts as well.
            for (const AirportRec& record : {airports.peek(slot), airports.HashFind(airports.peek(slot).icao.raw())}) {
                digest.add(record.slot, record.icao.raw(), record.longtext.raw(), record.lattext.raw(), record.longdeg,
                           record.latdeg, record.altitude, record.title.raw());
            }
        }
        addSchedules(digest);
        return digest.hash();
    }
    [[nodiscard]] static std::uint64_t lists() {
        Digest digest;
        const auto add = [&](std::string_view icao, std::string_view ac, bool unique) {
            Listing listing;
            listSchedules(icao, ac, unique, listing);
            digest.add(listing.rows);
            digest.add(listing.caption.value_or("none"));
        };
        digest.add(checkmissing()); // marks what the rows without missing ones leave out
        for (const ListRows& rows : {aircraftRows(true), aircraftRows(false), airportRows()}) {
            digest.add(rows);
        }
        add("", "", false);
        for (const char* const ac : {"AC#7", "AC#123", "AC#500007", "AC#9999"}) {
            add("", ac, false);
            add("", ac, true);
            digest.add(listLegsOfAircraft(caller, ac, ""));
            digest.add(listLegsOfAircraft(caller, ac, "AAAA"));
        }
        for (const char* const icao : airportCodes) {
            add(icao, "", false);
            add(icao, "", true);
            add(icao, "AC#7", true);
        }
        for (std::int32_t recnum = 0; recnum <= schedulecount; ++recnum) {
            digest.add(listLegs(recnum, recnum % 2 == 0 ? "" : "AABC"));
        }
        std::string missing;
        digest.add(airportsmissing(missing) ? missing : "none");
        return digest.hash();
    }
    [[nodiscard]] static std::uint64_t views() {
        Digest digest;
        RecordingCanvas canvas;
        for (const float offset : {-0.25F, 11.0F / 24.0F, 0.0F}) {
            gmtoffset = offset;
            for (const char* const icao : airportCodes) {
                digest.add(timetableRows(caller, icao));
                digest.add(gateRows(caller, icao));
                for (std::int16_t day = dailyView; day < 7; ++day) {
                    MovementHours departures{};
                    MovementHours arrivals{};
                    countflights(departures, arrivals, icao, day);
                    digest.add(departures);
                    digest.add(arrivals);
                }
                drawRouteMap(caller, canvas, icao);
                drawMovementChart(canvas, icao, dailyView);
            }
        }
        for (const DrawnLine& line : canvas.all<DrawnLine>()) {
            digest.add(line.x1, line.y1, line.x2, line.y2, line.colour);
        }
        for (const DrawnText& text : canvas.all<DrawnText>()) {
            digest.add(text.x, text.y, text.text);
        }
        for (const FilledBox& box : canvas.all<FilledBox>()) {
            digest.add(box.x1, box.y1, box.x2, box.y2, box.colour);
        }
        return digest.hash();
    }
    // The tables after each of the bulk changes, one on top of the other.
    [[nodiscard]] std::uint64_t bulkChanges() const {
        Digest digest;
        const LegRec leg = schedules.peek(10).legs[2];
        FlightLevelBoxes level{"333", std::string(leg.fromicao.text()), std::string(leg.toicao.text())};
        digest.add(changeFlightLevel(caller, level).message);
        digest.add(updateAtcPercentage(caller, "42", "AC#7").message);
        digest.add(replaceicao(caller, "AABC", "AAAA", "AAKQ", 30));
        digest.add(replaceicaobyac(caller, "AAKQ", "AABC", "AC#123"));
        addSchedules(digest);
        deleteByAirport(caller, "AABC");
        deleteByAirport(caller, "AAA*");
        addSchedules(digest);
        return digest.hash();
    }
};

TEST_P(WorldDigestTest, IsTheSameToTheBit) {
    bench::WorldOptions options{.schedules = 2000, .airports = 300, .aircraft = 200};
    if (GetParam().option != nullptr) {
        options.*GetParam().option = true;
    }
    bench::writeWorld(folder(), options);
    append("Flightplans.txt",
           "\r\n   \r\n; a comment\r\nac#7,vh-\xE4\xFCx\xFF,5%,weekly,ifr,1/06:00:00,@tng3/08:15,350,fx,12,aaaa,"
           "1/23:30:00,00:10:00,3.5e2,f,13,aabc,\r\n"
           "  AC#9999-old, N 1 ,100%,BIWEEK,VFR,6:00,tng@@7:30, +80 ,R,1,AAKQ // at the end\r\n"
           "AC#123,N2,,0.5,IFR,06:00:00,07:00:00,-10,F,a very long number,toolongcode;,F,2,AAAA\r\n"
           "AC#123,N3,1%,24HR,IFR,06:00:00,07:00:00,10,F,2,KXXX\nAC#123,too,few,fields\r"
           "AC#70,N4,1%,WEEK,IFR,6/00:00:00,@06:00:00,10,,,-1,6/07:00:00,0/09:00:00,10,F,1,\r\n"
           "AC#1,N5,1%,8Hr,IFR,05:00:00,06:00:00,1,F,3,AAAA,07:00:00,08:00:00,2,F,4,AAAA");
    append("Aircraft.txt",
           "//AC#1,2,x\r\nAC#7,212.5,second of this number\r\nXX#123, 1e2 ,\xC4 title, cut\r\nAC#1,1\r\n");
    append("Airports.txt", "aabc,N1* 2.3',W4* 5.6',7\r\n;AAKQ,N1* 2.3',W4* 5.6',7\r\nAABC,S12* 30.59',E179* 59.59',"
                           "-5,more\r\nKXXX,N9*9,E1.2*3,1.5\r\nAAKR,1,2\r\n");
    fsicaofile = path("FS\\weather\\icao name.cfg");
    LoadAircraft(path("Aircraft.txt"), nullptr);
    SortAircraft();
    LoadAirports(path("Airports.txt"), nullptr);
    LoadAirportTitles(nullptr);
    LoadSched(nullptr, path("Flightplans.txt"));
    for (std::int32_t i = 3; i <= aircraftcount; i += 3) {
        addSimulatorAircraft(aircraft[i].title.text()); // every third aircraft is there in the simulator
    }
    // In this order: the lists mark missing aircraft, and bulk changes come last.
    const auto& [tablesNow, listsNow, viewsNow, bulkNow] = GetParam().digests;
    EXPECT_EQ(tables(), tablesNow);
    EXPECT_EQ(lists(), listsNow);
    EXPECT_EQ(views(), viewsNow);
    EXPECT_EQ(bulkChanges(), bulkNow);
}

constexpr std::array<std::uint64_t, 4> plain = {0x4f55cafe1bbd1a1d, 0xe7037c6c1f78598a, 0xc2b87e03bb374266,
                                                0x08fd4eb0923efaf2};
INSTANTIATE_TEST_SUITE_P(
    Variants, WorldDigestTest,
    testing::Values(Variant{"Mixed", nullptr, plain},
                    Variant{"AircraftReversed", &bench::WorldOptions::reversedAircraft, plain},
                    Variant{"AirportsMissing",
                            &bench::WorldOptions::missingAirports,
                            {0xcc83c77f21ec7838, 0x4c5c3a93bb72f52d, 0x60c8161339747305, 0x6df0d43fd2830d50}},
                    Variant{"AircraftUnknown",
                            &bench::WorldOptions::unknownAircraft,
                            {0xa70aa188d9f2f963, 0x3e67381b2c169fd3, 0xf01b1444dd0e6dd2, 0x19428c642fdc4abc}},
                    Variant{"AirportBusy",
                            &bench::WorldOptions::busyAirport,
                            {0xdd505578fb5f8cad, 0xc899faf09da6a51e, 0x77d33e60c5483712, 0x3dc0cf3325b0a773}}),
    [](const auto& variant) { return std::string(variant.param.name); });

} // namespace
} // namespace vantor
