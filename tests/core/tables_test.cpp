// The aircraft file and table, the airports file and the simulator's names of airports; rows, codes, leg numbers and
// the time zone; the keyed tables: slots, chains, growth and misses.
#include "core/aircraft_file.h"
#include "core/aircraft_table.h"
#include "core/airports_file.h"
#include "foundation/native_path.h"
#include "support/disk_faults.h"
#include "support/test.h"

#include <cerrno>

namespace vantor {
namespace {

class AircraftTest : public test::Fixture {
  protected:
    void load(std::string_view bytes) {
        writeFile("Aircraft.txt", bytes);
        LoadAircraft(path("Aircraft.txt"), nullptr);
        SortAircraft();
    }
    std::string fault() {
        return test::faultOf([&] { LoadAircraft(path("Aircraft.txt"), nullptr); });
    }
    std::string saved() {
        saveaircraft();
        return readFile("Aircraft.txt");
    }
};

TEST_F(AircraftTest, SkipsCommentsAndShortLinesAndKeepsWidths) {
    const std::string wide(80, 't');
    load("// head\r\n;AC#1,100,x\r\nAC#1//old,100,x\r\nAC#1,100\r\n\r\nAC#10,212.50,\"Boeing 737, Extra\"\r\n"
         "AC#9, 90 ,t // y  \r\nAC#1234567890123,1,"
         // Between CR LF pairs is one line: its third column runs to the next comma.
         + wide + "t\r\nAC#5,1,x\nAC#2,100,y\rAC#3,100,z\r\n");
    EXPECT_EQ(saved(),
              "AC#5,1,x\nAC#2\r\nAC#9,90,t // y\r\nAC#10,212.5,\"Boeing 737\r\nAC#123456789,1," + wide + "\r\n");
    load("// nothing else\r\n");
    EXPECT_EQ(aircraftcount, 0);
    load("AC#5,1,x\nAC#2,100,y\rAC#3,100,z\n\n"); // no CR LF at all: each end is one
    EXPECT_EQ(saved(), "AC#2,100,y\r\nAC#3,100,z\r\nAC#5,1,x\r\n");
}

TEST_F(AircraftTest, SortsByNumberAndStably) {
    EXPECT_EQ(aircraftrecord("AC#1"), -1);
    load("AC#2,1,b\r\nAC#1,1,a\r\nXX#2,1,c\r\nAC#12X,1,d\r\nnone,1,e\r\n");
    EXPECT_EQ(aircraftrecord("ZZ#1"), 2);
    EXPECT_EQ(aircraftrecord("AC#7"), -1);
    EXPECT_EQ(aircrafttitle("AC#12"), "d");
    EXPECT_EQ(aircrafttitle("AC#7"), "AC#7");
    test::markDeleted(2);
    EXPECT_EQ(aircrafttitle("AC#1"), "a") << "found until the next load";
    EXPECT_EQ(saved(), "none,1,e\r\nAC#2,1,b\r\nXX#2,1,c\r\nAC#12X,1,d\r\n");
}

TEST_F(AircraftTest, EmptyAndMissingFilesTellTheSame) {
    const std::string expected = "23000 " + path("Aircraft.txt") +
                                 " missing or empty.   Please run this program in the TrafficTools path AFTER you have "
                                 "decompiled Traffic.BGL";
    EXPECT_EQ(fault(), expected);
    load("AC#1,1,a\r\n");
    test::markDeleted(1);
    EXPECT_EQ(saved(), "");
    EXPECT_EQ(fault(), expected);
}

TEST_F(AircraftTest, AFaultStopsTheLoadWithTheLineCountLeft) {
    writeFile("Aircraft.txt", "AC#1,100,x\r\nAC#2,abc,y\r\nAC#3,100,z\r\n");
    EXPECT_EQ(fault(), "13 Type mismatch in LoadAircraft");
    EXPECT_EQ(aircraftcount, 3);
    EXPECT_EQ(aircraft[1].acnum.text(), "AC#1");
#ifdef __linux__                                                       // where disks are made to fail
    const test::DiskFault unreadable(test::DiskCall::Open, 2, EACCES); // the lines are counted by then
    EXPECT_EQ(fault(), "75 Path/File access error in LoadAircraft");
    EXPECT_EQ(aircraftcount, 3);
    EXPECT_EQ(aircraft.size(), 3) << "every row that counts is there";
#endif
}

TEST_F(AircraftTest, SaveGoesToTheFixedNameInTheCurrentFolder) {
    writeFile("Other.txt", "AC#1,250.0,changed\r\n");
    writeFile("elsewhere\\Aircraft.txt", "");
    load("AC#1,250,b\r\n");
    LoadAircraft(path("Other.txt"), nullptr);
    setProgramFile(folder() / "program" / "Vantor");
    std::filesystem::current_path(folder() / "elsewhere");
    EXPECT_EQ(saved(), "AC#1,250,b\r\n");
    EXPECT_EQ(readFile("elsewhere\\Aircraft.txt"), "AC#1,250,changed\r\n");
}

class AirportsTest : public test::Fixture {
  protected:
    void load(std::string_view bytes) {
        writeFile("Airports.txt", bytes);
        LoadAirports(path("Airports.txt"), nullptr);
    }
    std::string fault(std::string_view bytes) {
        return test::faultOf([&] { load(bytes); });
    }
};

constexpr std::string_view threeAirports =
    "; comment\r\nKSEA,N47* 26.56',W122* 18.34',429\r\nshort,N1* 1.1',E1* 1.1'\r\na//b,N1* 1.1',E1* 1.1',5\r\n"
    "YPPHXYZ,S31* 56.40',E115* 58.1', 67 ,extra\r\nksea,N1* 1.1',E1* 1.1',5\r\n";

TEST_F(AirportsTest, ReadsPositionsAndWidths) {
    load(threeAirports);
    ASSERT_EQ(airportcount, 3);
    const AirportRec seattle = airports.HashGetSlot(1);
    EXPECT_EQ(seattle.lattext.text(), "N47* 26.56'");
    EXPECT_EQ(seattle.longtext.text(), "W122* 18.34'");
    EXPECT_EQ(seattle.latdeg, static_cast<float>(47 + 26 / 60.0 + 56 / 3600.0));
    EXPECT_EQ(seattle.longdeg, static_cast<float>(-(122 + 18 / 60.0 + 34 / 3600.0)));
    EXPECT_EQ(seattle.altitude, 429);
    EXPECT_EQ(airports.HashFind("YPPHXY").altitude, 67);
    load(replaceAll(threeAirports, "\r\n", "\n"));
    EXPECT_EQ(airportcount, 3);
}

TEST_F(AirportsTest, FaultsCountTheAcceptedLines) {
    EXPECT_EQ(fault(""), "23000 " + path("Airports.txt") +
                             " missing or empty.  Please run this program in the TrafficTools path AFTER you have "
                             "decompiled Traffic.BGL in line 0 of airports.txt.  Error on: ");
    EXPECT_EQ(fault("KSEA,N1* 1.1',E1* 1.1',5\r\n//x,a,b,c\r\nKPDX,N1* 1.1',E1* 1.1',40000\r\n"),
              "6 Overflow in line 2 of airports.txt.  Error on: ");
    EXPECT_EQ(airports.HashFind("KSEA").slot, 1) << "what was added before the fault stays";
    EXPECT_EQ(fault("KSEA,N1* 1.1',E1* 1.1',high\r\n" + std::string(30000, '\n')),
              "13 Type mismatch in line 1 of airports.txt.  Error on: ");
    EXPECT_EQ(airports.peek(airportcount).icao.text(), "") << "every slot that counts can be read";
}

TEST_F(AirportsTest, NamesComeFromTheSimulatorsFileElseFromTheCode) {
    load(threeAirports);
    fsicaofile = path("icao name.cfg");
    LoadAirportTitles(nullptr);
    EXPECT_EQ(airporttitle("KSEA"), "KSEA");
    EXPECT_EQ(airports.HashGetSlot(4).title.text(), "");

    load(threeAirports);
    writeFile("icao name.cfg", "no equals\r\n ksea =Seattle=Tacoma\nXXXX=unknown\rYPPHXY=" + std::string(70, 'n'));
    LoadAirportTitles(nullptr);
    EXPECT_EQ(airporttitle(" KSEA "), "Seattle=Tacoma");
    EXPECT_EQ(airporttitle("YPPHXY"), std::string(60, 'n'));
    EXPECT_EQ(airporttitle("ksea"), "") << "in small letters it can't be named";
    EXPECT_EQ(airporttitle(" KPDX "), "KPDX") << "unknown";
}

using CodesTest = test::Fixture;

TEST_F(CodesTest, RowsSplitAtTheFirstHyphen) {
    for (const auto& [row, code, title] : {std::tuple{"ksea - seattle - tacoma", "KSEA", "seattle - tacoma"},
                                           {" se a ", "SE A", " se a "},
                                           {"-x y", "-X Y", "-x y"},
                                           {"x-", "X", ""},
                                           {"m\xFCnchen - x", "M\xDCNCHEN", "x"}}) {
        EXPECT_EQ(extractcode(row), code);
        EXPECT_EQ(extracttitle(row), title);
    }
}

TEST_F(CodesTest, AircraftCodeEndsAtABlankOrIsAFault) {
    EXPECT_EQ(extractaircraft("Boeing AC#12 - x"), "AC#12");
    EXPECT_EQ(extractaircraft("Boeing ac#12 - x"), "");
    EXPECT_EQ(newestAction(), "");
    EXPECT_EQ(extractaircraft("x AC#12-y"), "AC#12-y");
    EXPECT_EQ(newestAction(), "Invalid procedure call or argument(5) in function extractaircraft of module modSubs");
}

TEST_F(CodesTest, IndexesOfALegAndOfARowWithoutOne) {
    EXPECT_EQ(hashindex(12, 3), 12003);
    EXPECT_EQ(extractindexes(0), std::nullopt);
    EXPECT_EQ(extractindexes(12003), (LegId{12, 3}));
    EXPECT_EQ(extractindexes(13000), (LegId{13, 0}));
}

TEST_F(CodesTest, ZoneLabelAndShiftedTimes) {
    // A wrap below zero is brought back to the same day, one above is not.
    for (const auto& [hours, label, time, result, onTheSameDay] : {std::tuple{0.0, "GMT", "12:00", "12:00:00", true},
                                                                   {-6, "(GMT-6)", "06:00", "00:00:00", true},
                                                                   {-0.5, "(GMT-0:30)", "00:10", "23:40:00", true},
                                                                   {6.5, "(GMT+6:30)", "10:00", "16:30:00", true},
                                                                   {2, "(GMT+2)", "23:00", "01:00:00", false}}) {
        SCOPED_TRACE(label);
        gmtoffset = static_cast<float>(hours / 24);
        EXPECT_EQ(gmtstring(), label);
        const DateTime shifted = applygmtoffset(38139 + parseTime(time));
        EXPECT_EQ(formatHHMMSS(shifted), result);
        EXPECT_EQ(shifted < 1.0, onTheSameDay);
        EXPECT_GE(shifted, 0);
    }
}

using HashTableTest = test::Fixture;

TEST_F(HashTableTest, FindsByTrimmedKeyWithCaseAndHandsOutCopies) {
    test::addAirport("KSEA", "Seattle"); // the first one makes the table by itself
    test::addAirport("KPDX", "Portland");
    AirportRec found = airports.HashFind("  KPDX ");
    EXPECT_EQ(found.slot, 2);
    EXPECT_EQ(found.title.text(), "Portland");
    found.title = "changed";
    EXPECT_EQ(airports.HashFind("KPDX").title.text(), "Portland");
    airports.HashPutSlot(2, found);
    EXPECT_EQ(airports.HashFind("KPDX").title.text(), "changed");
    test::addAirport("KPDX", "newest"); // of equal keys it is found, and both keep their slots
    EXPECT_EQ(airports.HashFind("KPDX").slot, 3);
    EXPECT_EQ(airports.HashGetSlot(2).title.text(), "changed");

    const AirportRec miss = airports.HashFind("kpdx");
    EXPECT_EQ(miss.slot, -1);
    EXPECT_EQ(miss.icao.text(), "-1");
    EXPECT_EQ(airports.findInPlace("kpdx"), nullptr);
}

TEST_F(HashTableTest, GrowsByHalfAndKeepsEverySlot) {
    schedules.Init();
    EXPECT_EQ(schedules.RecordCount(), 150000);
    ScheduleRec schedule;
    for (schedule.recnum = 1; schedule.recnum <= 150001; ++schedule.recnum) {
        schedules.HashAdd(schedule);
    }
    EXPECT_EQ(schedules.RecordCount(), 225000);
    for (const std::int32_t number : {1, 777, 149999, 150000, 150001}) {
        EXPECT_EQ(schedules.HashGetSlot(number).recnum, number);
        EXPECT_EQ(schedules.HashFind(std::to_string(number)).recnum, number);
    }
    EXPECT_EQ(schedules.HashGetSlot(150002).recnum, 0);
    for (const std::int32_t outside : {0, 225001}) {
        EXPECT_EQ(test::errorOf([&] { static_cast<void>(schedules.HashGetSlot(outside)); }), 9);
        EXPECT_EQ(test::errorOf([&] { schedules.HashPutSlot(outside, {}); }), 9);
    }
    schedules.Init();
    EXPECT_EQ(schedules.HashGetSlot(1).recnum, 0);
}

TEST_F(HashTableTest, DeleteFreesTheSlotForTheNextAdd) {
    for (const char* const code : {"AAAA", "BBBB", "CCCC", "BBBB"}) {
        test::addAirport(code, code);
    }
    airports.HashDelete("BBBB ");
    EXPECT_EQ(airports.HashFind("BBBB").slot, 2) << "the newest of two goes";
    airports.HashDelete("BBBB");
    EXPECT_EQ(airports.HashGetSlot(2).icao.text(), "");
    test::addAirport("DDDD", "");
    EXPECT_EQ(airports.HashFind("DDDD").slot, 2);
    EXPECT_EQ(airports.HashFind("AAAA").slot, 1);
    EXPECT_EQ(airports.HashFind("CCCC").slot, 3);
    EXPECT_EQ(test::faultOf([] { airports.HashDelete("BBBB"); }), "-2147220991 Key not found: cHashSC.Delete ");
    airports.HashClear();
    EXPECT_EQ(airports.findInPlace("AAAA"), nullptr);
    EXPECT_EQ(test::errorOf([] { static_cast<void>(airports.peek(1)); }), 9);
}

} // namespace
} // namespace vantor
