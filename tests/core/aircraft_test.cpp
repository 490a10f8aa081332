// The aircraft file and table.
#include "core/aircraft_file.h"
#include "core/aircraft_table.h"
#include "core/flightplans_writer.h"
#include "core/tables.h"
#include "foundation/native_path.h"
#include "support/disk_faults.h"
#include "support/expect_error.h"
#include "support/fixture.h"
#include "support/traffic.h"

#include <cerrno>
#include <string>

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

#ifdef __linux__
TEST_F(AircraftTest, BothSavesTellWhatKeptTheOldFile) {
    load("AC#1,250,b\r\n");
    const auto description = [](const std::optional<Error>& failure) { return failure ? failure->description() : ""; };
    EXPECT_EQ(description(savesc(path("nowhere\\Flightplans.txt"))), "Path not found");
    {
        const test::DiskFault full(test::DiskCall::Write, 1, ENOSPC);
        EXPECT_EQ(description(saveaircraft()), "Disk full");
    }
    EXPECT_EQ(description(saveaircraft()), "");
}
#endif

} // namespace
} // namespace vantor
