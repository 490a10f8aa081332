#include "bulk/aircraft_swap.h"
#include "bulk/atc_percentage.h"
#include "bulk/flight_level.h"
#include "foundation/log.h"
#include "support/fixture.h"
#include "support/traffic.h"

#include <gtest/gtest.h>

namespace vantor::test {
namespace {

class FlightLevelTest : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        addLegs(loopOver({"KSEA", "KLAX", "KSEA", "KLAX"}));
        addSchedule("AC#2,N2,100%,24HR,IFR", loopOver({"EGLL", "LFPG"}));
        changeSchedule(1, [](ScheduleRec& schedule) {
            schedule.deleted = true; // deleted ones change like others
            schedule.legs[2].fromicao = "ksea";
            schedule.legs[2].toicao = " klax";
        });
    }

    static std::vector<int> levels(std::int32_t recnum) {
        std::vector<int> all;
        for (const LegRec& leg : schedules.peek(recnum).legs) {
            all.push_back(leg.flightlevel);
        }
        return all;
    }
};

TEST_F(FlightLevelTest, SetsOneDirectionWhateverTheCase) {
    FlightLevelBoxes boxes{"310 feet", " ksea ", "klax"};
    EXPECT_EQ(changeFlightLevel(boxes), (BulkOutcome{.message = "Updated 2 legs.", .setsUnsaved = true}));
    EXPECT_EQ(boxes.icao1, "KSEA");
    EXPECT_EQ(boxes.icao2, "KLAX");
    EXPECT_EQ(levels(1), (std::vector<int>{200, 310, 200, 310}));
    EXPECT_EQ(levels(2), (std::vector<int>{200, 200}));
    EXPECT_EQ(schedules.peek(1).legs[2].toicao.raw(), " klax ");

    boxes = {"100", "klax", "egll"};
    EXPECT_EQ(changeFlightLevel(boxes),
              (BulkOutcome{.message = "Couldn't find any legs from KLAX to EGLL", .setsUnsaved = true}));
}

TEST_F(FlightLevelTest, RoundsHalvesToEvenAndStoresSixteenBits) {
    const auto levelFor = [](const std::string& text) {
        FlightLevelBoxes boxes{text, "EGLL", "LFPG"};
        EXPECT_EQ(changeFlightLevel(boxes).message, "Updated 1 legs.") << text;
        return levels(2).at(1);
    };
    EXPECT_EQ(levelFor("-5"), -5);
    EXPECT_EQ(levelFor("230.5"), 230);
    EXPECT_EQ(levelFor("231.5"), 232);
    EXPECT_EQ(levelFor("70000"), 70000 - 65536);
    EXPECT_EQ(levelFor("32768"), -32768);
    EXPECT_EQ(levelFor("65536"), 0);
    EXPECT_EQ(levelFor("2147483647"), -1);
}

TEST_F(FlightLevelTest, RefusesZeroAndLevelsBeyondThirtyTwoBits) {
    const BulkOutcome refused{.message = "Please enter a valid Flight Level first"};
    for (const std::string text : {"0", "abc", "", "0.5", "-0.4", "2147483648", "1E99"}) {
        FlightLevelBoxes boxes{text, " egll ", "lfpg"};
        EXPECT_EQ(changeFlightLevel(boxes), refused) << text;
        EXPECT_EQ(boxes.icao1, " egll "); // nothing is rewritten
    }
    EXPECT_EQ(levels(2), (std::vector<int>{200, 200}));
    EXPECT_EQ(newestAction(), "Overflow(6) in sub cmdchangefl_click of module frmMain");
}

TEST_F(FlightLevelTest, VisitsSlotsBehindTheCountOfLines) {
    schedulecount = 0;
    FlightLevelBoxes boxes{"100", "LFPG", "EGLL"};
    EXPECT_EQ(changeFlightLevel(boxes).message, "Updated 1 legs.");
}

TEST_F(FlightLevelTest, ABrokenScheduleStopsNoOther) {
    changeSchedule(1, [](ScheduleRec& schedule) { schedule.legcount = 9; });
    FlightLevelBoxes boxes{"100", "EGLL", "LFPG"};
    EXPECT_EQ(changeFlightLevel(boxes).message, "Updated 1 legs.");
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub cmdchangefl_click of module frmMain");
}

class AtcPercentageTest : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        for (const char* code : {"AC#5", "AC#50", "ac#5", "AC#5"}) {
            addSchedule(std::string(code) + ",N1,20%,24HR,IFR", loopOver({"KSEA", "KLAX"}));
        }
        countDroppedLine();
    }

    static std::vector<std::string> percentages() {
        std::vector<std::string> all;
        for (std::int32_t r = 1; r <= 4; ++r) {
            all.emplace_back(schedules.peek(r).percent.text());
        }
        return all;
    }
};

TEST_F(AtcPercentageTest, ReachesTheWholeCodeAlone) {
    EXPECT_EQ(updateAtcPercentage("100.4", "ac#5 "),
              (BulkOutcome{.message = "Updated 2 flights containing aircraft AC#5", .setsUnsaved = true}));
    EXPECT_EQ(percentages(), (std::vector<std::string>{"100%", "20%", "20%", "100%"}));
    EXPECT_EQ(updateAtcPercentage("1", "AC#05"),
              (BulkOutcome{.message = "Couldn't find any flights by aircraft AC#05", .setsUnsaved = true}));
}

TEST_F(AtcPercentageTest, RefusesInTheOrderOfItsChecks) {
    const BulkOutcome range{.message = "Please enter a percentage from 1 to 100"};
    for (const char* text : {"0", "0.4", "0.5", "100.6", "101", "-1", "x", "1E300"}) {
        EXPECT_EQ(updateAtcPercentage(text, "5"), range) << text;
    }
    // The flag is set before the aircraft is looked at.
    EXPECT_EQ(updateAtcPercentage("50", "5"),
              (BulkOutcome{.message = "Please specify the full aircraft code, including AC#.  E.g. AC#100",
                           .setsUnsaved = true}));
    EXPECT_EQ(percentages(), (std::vector<std::string>(4, "20%")));
}

TEST_F(AtcPercentageTest, SwapGivesPickedSchedulesAnotherAircraft) {
    changeSchedule(2, [](ScheduleRec& schedule) { schedule.deleted = true; });
    swapAircraft({2, 4, 150001}, "ac#77 - \"Boeing 737-400\"");
    EXPECT_EQ(schedules.peek(1).acnum.text(), "AC#5");
    EXPECT_EQ(schedules.peek(2).acnum.text(), "AC#77");
    EXPECT_TRUE(schedules.peek(2).deleted);
    EXPECT_EQ(schedules.peek(4).acnum.text(), "AC#77");
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub cmdswapac_click of module frmMain");
}

} // namespace
} // namespace vantor::test
