// World: a generated world through the reader of flight plans, which earns its speed by more than plainness, held
// against digests (FNV-1a, 64 bits) of its tables and of what it saves. Not a single bit of them may change.
#include "core/aircraft_file.h"
#include "core/aircraft_table.h"
#include "core/airports_file.h"
#include "core/flightplans_reader.h"
#include "core/flightplans_writer.h"
#include "core/tables.h"
#include "support/test.h"
#include "world.h"

#include <bit>
#include <concepts>
#include <cstdint>

namespace vantor {
namespace {

class Digest {
  public:
    std::uint64_t hash = 14695981039346656037ULL;

    void add(std::integral auto number) {
        const auto bits = static_cast<std::uint64_t>(static_cast<std::int64_t>(number));
        for (int shift = 0; shift < 64; shift += 8) {
            hash = (hash ^ static_cast<unsigned char>(bits >> shift)) * 1099511628211ULL;
        }
    }
    void add(float value) { add(std::bit_cast<std::int32_t>(value)); }
    void add(std::same_as<Flag> auto flag) { add(flag ? -1 : 0); }
    void add(std::string_view text) {
        add(text.size()); // so that neighbours don't run together
        for (const char c : text) {
            hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
        }
    }
    template <std::size_t N>
    void add(const FixedText<N>& text) {
        add(text.raw());
    }
    void addAll(const auto&... values) { (add(values), ...); }
};

struct Variant {
    const char* name;
    bool bench::WorldOptions::*option; // none: a plain world
    std::uint64_t schedules;
    std::uint64_t saved;
};

class WorldDigestTest : public Fixture, public testing::WithParamInterface<Variant> {
  protected:
    // Writes a file of the world with lines behind it that real files have and a generator doesn't think of.
    void append(const char* name, std::string_view text) const { writeFile(name, readFile(name) + std::string(text)); }
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
    LoadAircraft(path("Aircraft.txt"), nullptr);
    SortAircraft();
    LoadAirports(path("Airports.txt"), nullptr);
    LoadSched(nullptr, path("Flightplans.txt"));

    Digest tables;
    tables.add(schedulecount);
    for (std::int32_t slot = 1; slot <= schedulecount; ++slot) {
        const ScheduleRec& record = schedules.peek(slot);
        tables.addAll(record.recnum, record.acnum, record.tailnumber, record.percent, record.period, record.weekly,
                      record.rules, record.legcount, record.deleted, record.legs.size());
        for (const LegRec& leg : record.legs) {
            tables.addAll(leg.hashindex, leg.dep, leg.arr, leg.atflag, leg.depday, leg.arrday, leg.flightlevel,
                          leg.distance, leg.flighthours, leg.legtype, leg.flightnum, leg.toicao, leg.fromicao, leg.tng,
                          leg.deleted);
        }
    }
    EXPECT_EQ(tables.hash, GetParam().schedules);
    savesc(path("saved.txt"));
    saveaircraft();
    Digest saved;
    saved.addAll(readFile("saved.txt"), readFile("Aircraft.txt"));
    EXPECT_EQ(saved.hash, GetParam().saved);
}

INSTANTIATE_TEST_SUITE_P(Variants, WorldDigestTest,
                         testing::Values(Variant{"Mixed", nullptr, 0x8d5d46286f84d0db, 0x1c81d13e92d5b842},
                                         Variant{"AirportsMissing", &bench::WorldOptions::missingAirports,
                                                 0xda6a0b19f2dcf640, 0x8667611b20080c18},
                                         Variant{"AircraftUnknown", &bench::WorldOptions::unknownAircraft,
                                                 0x847d0a60ea5d4d13, 0x1859cc9d7bb62330},
                                         Variant{"AirportBusy", &bench::WorldOptions::busyAirport, 0x69740fe7d9c6bb52,
                                                 0xc39624c239cf30fb}),
                         [](const auto& variant) { return std::string(variant.param.name); });

} // namespace
} // namespace vantor
