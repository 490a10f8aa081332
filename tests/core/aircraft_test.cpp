// The aircraft file and table.
#include "core/aircraft_file.h"
#include "core/aircraft_table.h"
#include "core/tables.h"
#include "foundation/log.h"
#include "foundation/native_path.h"
#include "support/disk_faults.h"
#include "support/expect_error.h"
#include "support/fixture.h"

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
    static std::string codes() {
        std::string all;
        for (std::int32_t i = 1; i <= aircraftcount; ++i) {
            all += std::string(aircraft[i].acnum.text()) + " ";
        }
        return all;
    }
};

TEST_F(AircraftTest, SkipsCommentsAndShortLinesAndKeepsWidths) {
    load("// head\r\n;AC#1,100,x\r\nAC#1//old,100,x\r\nAC#1,100\r\n\r\n"
         "AC#10,212.5,\"Boeing 737, Extra\"\r\nAC#9, 90 ,t // y\r\nAC#1234567890123,1," +
         std::string(90, 't'));
    ASSERT_EQ(aircraftcount, 3);
    EXPECT_EQ(codes(), "AC#9 AC#10 AC#123456789 ");
    EXPECT_EQ(aircraft[1].title.text(), "t // y");
    EXPECT_EQ(aircraft[1].cruisespeed, 90.0F);
    EXPECT_EQ(aircraft[2].title.text(), "\"Boeing 737");
    EXPECT_EQ(aircraft[3].title.text(), std::string(80, 't'));
}

TEST_F(AircraftTest, SortsByNumberAndStably) {
    load("AC#2,1,b\r\nAC#1,1,a\r\nXX#2,1,c\r\nAC#12X,1,d\r\nnone,1,e\r\n");
    EXPECT_EQ(codes(), "none AC#1 AC#2 XX#2 AC#12X ");
    EXPECT_EQ(aircraftrecord("ZZ#1"), 2);
    EXPECT_EQ(aircraftrecord("AC#7"), -1);
    EXPECT_EQ(aircrafttitle("AC#12"), "d");
    EXPECT_EQ(aircrafttitle("AC#7"), "AC#7");
}

TEST_F(AircraftTest, EmptyAndMissingFilesTellTheSame) {
    const std::string expected = path("Aircraft.txt") + " missing or empty.   Please run this program in the "
                                                        "TrafficTools path AFTER you have decompiled Traffic.BGL";
    for (const bool present : {false, true}) {
        if (present) {
            writeFile("Aircraft.txt", "");
        }
        EXPECT_EQ(test::faultOf([&] { LoadAircraft(path("Aircraft.txt"), nullptr); }), "23000 " + expected);
    }
    EXPECT_EQ(aircraftrecord("AC#1"), -1);
    load("// nothing else\r\n");
    EXPECT_EQ(aircraftcount, 0);
}

TEST_F(AircraftTest, BadSpeedStopsTheLoadWithTheLineCountLeft) {
    writeFile("Aircraft.txt", "AC#1,100,x\r\nAC#2,abc,y\r\nAC#3,100,z\r\n");
    EXPECT_EQ(test::faultOf([&] { LoadAircraft(path("Aircraft.txt"), nullptr); }), "13 Type mismatch in LoadAircraft");
    EXPECT_EQ(aircraftcount, 3);
    EXPECT_EQ(aircraft[1].acnum.text(), "AC#1");
}

#ifdef __linux__ // where disks are made to fail
TEST_F(AircraftTest, RowsThatCountAreThereWhenTheirFileCantBeRead) {
    writeFile("Aircraft.txt", "AC#1,1,a\r\nAC#2,2,b\r\n");
    const test::DiskFault fault(test::DiskCall::Open, 2, EACCES); // they are counted by then
    EXPECT_EQ(test::errorOf([&] { LoadAircraft(path("Aircraft.txt"), nullptr); }), 75);
    EXPECT_EQ(aircraftcount, 2);
    EXPECT_EQ(aircraft.size(), 2);
}
#endif

TEST_F(AircraftTest, LoneLineEndsCountAsLinesButDoNotSplit) {
    load("AC#1,100,x\nAC#2,100,y\rAC#3,100,z\r\n");
    EXPECT_EQ(aircraftcount, 1); // one piece between CR LF pairs: its third column runs to the next comma
    EXPECT_EQ(aircraft[1].title.text(), "x\nAC#2");
}

TEST_F(AircraftTest, SaveWritesTheFixedNameWithoutDeletedRows) {
    writeFile("Other.txt", "AC#3, 212.50 , title  \r\n//c\r\nAC#1,250.0,b\r\nAC#2,1,gone\r\n");
    LoadAircraft(path("Other.txt"), nullptr);
    SortAircraft();
    aircraft[2].deleted = true;
    saveaircraft();
    EXPECT_EQ(readFile("Aircraft.txt"), "AC#1,250,b\r\nAC#3,212.5,title\r\n");
    aircraft[1].deleted = true;
    aircraft[3].deleted = true;
    saveaircraft();
    EXPECT_EQ(readFile("Aircraft.txt"), "");
}

TEST_F(AircraftTest, SaveGoesToTheCurrentFolder) {
    load("AC#1,250,b\r\n");
    setProgramFile(folder() / "program" / "Vantor");
    std::filesystem::create_directory(folder() / "elsewhere");
    std::filesystem::current_path(folder() / "elsewhere");
    aircraft[1].title = "changed";
    saveaircraft();
    EXPECT_EQ(readFile("elsewhere\\Aircraft.txt"), "AC#1,250,changed\r\n");
    EXPECT_EQ(readFile("Aircraft.txt"), "AC#1,250,b\r\n");
}

TEST_F(AircraftTest, SaveToAReadOnlyFileKeepsItAndIsAFaultInTheRing) {
    load("AC#1,250,b\r\n");
    std::filesystem::permissions(folder() / "Aircraft.txt", std::filesystem::perms::owner_read);
    aircraft[1].title = "changed";
    saveaircraft();
    EXPECT_EQ(readFile("Aircraft.txt"), "AC#1,250,b\r\n");
    EXPECT_EQ(newestAction(), "Path/File access error(75) in sub saveaircraft of module modAircraftSave");
}

} // namespace
} // namespace vantor
