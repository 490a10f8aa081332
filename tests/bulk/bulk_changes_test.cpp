// Tests of the bulk changes: what each makes of the traffic, what it tells, and what it refuses.
#include "bulk/aircraft_swap.h"
#include "bulk/airport_split.h"
#include "bulk/atc_percentage.h"
#include "bulk/delete_by_airport.h"
#include "bulk/flight_level.h"
#include "support/test.h"

namespace vantor::test {
namespace {

class BulkTest : public Fixture {
  protected:
    static std::int32_t addLoop(std::initializer_list<std::string_view> icaos) { return addLegs(loopOver(icaos)); }

    // As in "xKLAX-KSEA KSEA-KLAX" with an x at a deleted leg; a deleted schedule starts with "X".
    static std::string stateOf(std::int32_t recnum) {
        const ScheduleRec& schedule = schedules.peek(recnum);
        std::string state = schedule.deleted ? "X" : "";
        for (const LegRec& leg : schedule.legs) {
            state += state.empty() ? "" : " ";
            state += (leg.deleted ? "x" : "") + std::string(leg.fromicao.text()) + "-" + std::string(leg.toicao.text());
        }
        return state;
    }
};

TEST_F(BulkTest, AFlightLevelGoesToOneDirectionWhateverTheCase) {
    addPlan("x24HR", "KLAX-KSEA, ksea-klax, KLAX-KSEA, KSEA-KLAX"); // deleted ones change like others
    addLoop({"EGLL", "LFPG"});
    schedulecount = 0; // slots behind the count are visited
    FlightLevelBoxes boxes{"310 feet", " ksea ", "klax"};
    EXPECT_EQ(changeFlightLevel(caller, boxes), (BulkOutcome{.message = "Updated 2 legs.", .setsUnsaved = true}));
    EXPECT_EQ(boxes.icao1 + boxes.icao2, "KSEAKLAX");
    std::string levels;
    for (const LegRec& leg : schedules.peek(1).legs) {
        levels += std::to_string(leg.flightlevel) + " ";
    }
    EXPECT_EQ(levels, "200 310 200 310 ");
    boxes = {"100", "klax", "egll"};
    EXPECT_EQ(changeFlightLevel(caller, boxes),
              (BulkOutcome{.message = "Couldn't find any legs from KLAX to EGLL", .setsUnsaved = true}));
    // Halves go to even, and 16 bits are stored unless the level is zero or beyond 32.
    constexpr int refused = 200; // the level stays
    for (const auto& [text, level] : std::initializer_list<std::pair<std::string, int>>{{"abc", refused},
                                                                                        {"0.5", refused},
                                                                                        {"2147483648", refused},
                                                                                        {"1E99", refused},
                                                                                        {"-5", -5},
                                                                                        {"230.5", 230},
                                                                                        {"231.5", 232},
                                                                                        {"32768", -32768},
                                                                                        {"65536", 0},
                                                                                        {"2147483647", -1}}) {
        SCOPED_TRACE(text);
        boxes = {text, " egll ", "lfpg"};
        EXPECT_EQ(changeFlightLevel(caller, boxes),
                  level == refused ? BulkOutcome{.message = "Please enter a valid Flight Level first"}
                                   : (BulkOutcome{.message = "Updated 1 legs.", .setsUnsaved = true}));
        EXPECT_EQ(boxes.icao1, level == refused ? " egll " : "EGLL") << "rewritten when the level is right";
        EXPECT_EQ(schedules.peek(2).legs[2].flightlevel, level);
    }
    EXPECT_EQ(newestAction(), "Overflow(6) in sub caller of module test");
    changeSchedule(1, [](ScheduleRec& schedule) { schedule.legcount = 9; }); // a broken one stops no other
    EXPECT_EQ(changeFlightLevel(caller, boxes).message, "Updated 1 legs.");
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub caller of module test");
}

class PerAircraftTest : public BulkTest {
  protected:
    void SetUp() override {
        for (const char* code : {"AC#5", "AC#50", "ac#5", "AC#5"}) {
            addSchedule(std::string(code) + ",N1,20%,24HR,IFR", loopOver({"KSEA", "KLAX"}));
        }
        countDroppedLine();
    }
    static std::string allOf(const auto& field) {
        std::string all;
        for (std::int32_t r = 1; r <= 4; ++r) {
            all.append((schedules.peek(r).*field).text()).append(" ");
        }
        return all;
    }
};

TEST_F(PerAircraftTest, APercentageReachesTheWholeCodeAlone) {
    const BulkOutcome range{.message = "Please enter a percentage from 1 to 100"};
    for (const char* text : {"0.5", "100.6", "-1", "x", "1E300"}) {
        EXPECT_EQ(updateAtcPercentage(caller, text, "5"), range) << text;
    }
    // The flag is set before the aircraft is looked at.
    EXPECT_EQ(updateAtcPercentage(caller, "50", "5"),
              (BulkOutcome{.message = "Please specify the full aircraft code, including AC#.  E.g. AC#100",
                           .setsUnsaved = true}));
    EXPECT_EQ(updateAtcPercentage(caller, "1", "AC#05"),
              (BulkOutcome{.message = "Couldn't find any flights by aircraft AC#05", .setsUnsaved = true}));
    EXPECT_EQ(allOf(&ScheduleRec::percent), "20% 20% 20% 20% ");
    EXPECT_EQ(updateAtcPercentage(caller, "100.4", "ac#5 "),
              (BulkOutcome{.message = "Updated 2 flights containing aircraft AC#5", .setsUnsaved = true}));
    EXPECT_EQ(allOf(&ScheduleRec::percent), "100% 20% 20% 100% ");
}

TEST_F(PerAircraftTest, ASwapGivesPickedSchedulesAnotherAircraft) {
    changeSchedule(2, [](ScheduleRec& schedule) { schedule.deleted = true; });
    swapAircraft(caller, {2, 150001, 4}, "ac#77 - \"Boeing 737-400\"");
    EXPECT_EQ(allOf(&ScheduleRec::acnum), "AC#5 AC#77 ac#5 AC#77 ");
    EXPECT_TRUE(schedules.peek(2).deleted);
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub caller of module test");
}

using DeleteByAirportTest = BulkTest;

TEST_F(DeleteByAirportTest, MarksLegsAndRepairsTheirNeighbours) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"KLAX-KSFO, KSFO-KLAX", "X xKLAX-KSFO xKSFO-KLAX"},
        {"KSEA-KLAX, KLAX-KSFO, KSFO-KSEA", "xKSEA-KLAX xKLAX-KSFO KSFO-KSEA"},
        {"KSFO-KSEA, KSEA-KPDX, KPDX-KLAX, KLAX-KSFO", "KSFO-KSEA KSEA-KPDX xKPDX-KLAX xKLAX-KSFO"},
        {"KPDX-KSEA, KSEA-KPDX", "KPDX-KSEA KSEA-KPDX"},
        // In a chain that an earlier change has broken, the leg before a deleted one flies on to where that one began.
        {"KPDX-KSEA, KSFO-KLAX, LFPG-EGLL, EGKK-KSFO", "KPDX-KSFO xKSFO-KLAX LFPG-EGLL EGKK-KSFO"},
        // Leg 1 is deleted by its destination, and its origin goes into the last leg, which no longer matches by its
        // own destination but stands still afterwards and goes in the second pass.
        {"KSEA-KLAX, KSFO-KPDX, KSEA-KLAX", "xKSEA-KLAX KSFO-KPDX xKSEA-KSEA"},
        {"KSEA-KLAX, KPDX-LFPG", "xKSEA-KLAX KPDX-LFPG"}, // two get no repair
        // A destination shorter than the pattern ends the matter, whatever the origin is.
        {"KLAX-L52, L52-KLAX", "KLAX-L52 xL52-KLAX"},
        // Legs that stand still go only beside a match.
        {"EGLL-EGLL, EGLL-LFPG", "EGLL-EGLL EGLL-LFPG"},
        {"EGLL-EGLL, EGLL-KLAX", "xEGLL-EGLL xEGLL-KLAX"}};
    for (const auto& [legs, state] : cases) {
        addPlan("24HR", legs);
    }
    deleteByAirport(caller, "KLAXXXXXX"); // longer than any code
    EXPECT_EQ(stateOf(1), "KLAX-KSFO KSFO-KLAX");
    deleteByAirport(caller, "KLAX");
    for (std::size_t i = 0; i < cases.size(); ++i) {
        EXPECT_EQ(stateOf(static_cast<std::int32_t>(i + 1)), cases[i].second);
    }
}

TEST_F(DeleteByAirportTest, PatternsMatchTheFirstCharactersAndAStarAloneEverySchedule) {
    addLoop({"EGLL", "EGKK", "LFPG"});
    addLoop({"eglc", "LFPG"}); // the record's side counts as stored
    addLoop({"XEGX", "LFPG"}); // only from the front
    countDroppedLine();
    deleteByAirport(caller, "E*L"); // a star elsewhere is a plain character
    EXPECT_EQ(stateOf(1), "LFPG-EGLL EGLL-EGKK EGKK-LFPG");
    deleteByAirport(caller, "EG"); // no star is needed
    EXPECT_EQ(stateOf(1), "X xLFPG-EGLL xEGLL-EGKK xEGKK-LFPG");
    deleteByAirport(caller, "EG*");
    EXPECT_EQ(stateOf(2), "LFPG-eglc eglc-LFPG");
    EXPECT_EQ(stateOf(3), "LFPG-XEGX XEGX-LFPG");
    deleteByAirport(caller, "*");
    EXPECT_EQ(stateOf(2), "X LFPG-eglc eglc-LFPG") << "no leg is marked";
    EXPECT_EQ(stateOf(3), "X LFPG-XEGX XEGX-LFPG");
}

class AirportSplitTest : public BulkTest {
  protected:
    void SetUp() override {
        for (const char* icao : {"EGLL", "EGKK", "EGSS", "LFPG"}) {
            addAirport(icao, icao);
        }
        addAircraft("AC#1", "\"One\"");
        addAircraft("AC#2", "\"Two\"");
    }
    static constexpr std::string_view unknown =
        " is not a recognised airport code.  Add the airport to Airports.txt before using it.";
};

// Of each 21 legs, over schedules of different lengths: the counter runs on.
TEST_F(AirportSplitTest, DealsOutTheSharesOfACycle) {
    for (const auto& [percent, first] :
         std::initializer_list<std::pair<std::int16_t, int>>{{0, 0}, {5, 1}, {30, 6}, {50, 10}, {95, 19}, {100, 20}}) {
        schedules.Init();
        schedulecount = 0;
        for (int i = 0; i < 14; ++i) { // 42 legs: two cycles
            addLoop({"EGLL", "LFPG"});
            addLoop({"LFPG", "EGLL", "KSEA", "EGLL"});
        }
        EXPECT_EQ(replaceicao(caller, "EGLL", "EGKK", "EGSS", percent),
                  "Changed " + std::to_string(2 * first) + " EGLL to EGKK and " + std::to_string(42 - 2 * first) +
                      " EGLL to EGSS");
        std::string dealt;
        for (std::int32_t r = 1; r <= schedulecount; ++r) {
            for (const LegRec& leg : schedules.peek(r).legs) {
                dealt += leg.toicao.text() == "EGKK" ? "1" : leg.toicao.text() == "EGSS" ? "2" : "";
            }
        }
        const std::string cycle =
            std::string(static_cast<std::size_t>(first), '1') + std::string(static_cast<std::size_t>(21 - first), '2');
        EXPECT_EQ(dealt, cycle + cycle) << percent;
    }
}

TEST_F(AirportSplitTest, TheNextLegStartsAtTheNewAirport) {
    addLoop({"LFPG", "EGLL", "KSEA", "EGLL"});
    addLoop({"LFPG", "egll"}); // the record's side counts as stored
    changeSchedule(1, [](ScheduleRec& schedule) { schedule.legs[2].deleted = true; });
    SplitBoxes boxes{" egll", "egkk ", " egss", "50%"};
    EXPECT_EQ(splitAirport(caller, boxes),
              (BulkOutcome{"Changed 2  egll to EGKK and 0  egll to EGSS", true, true})); // as typed
    EXPECT_EQ(boxes.icao + "," + boxes.icao1 + "," + boxes.icao2, " egll,EGKK,EGSS");
    EXPECT_EQ(stateOf(1), "EGKK-LFPG xLFPG-EGKK EGKK-KSEA KSEA-EGKK");
    EXPECT_EQ(stateOf(2), "egll-LFPG LFPG-egll");
    // Any airport to take from will do, none too.
    boxes = {"", "EGKK", "EGSS", "5%"};
    EXPECT_EQ(splitAirport(caller, boxes), (BulkOutcome{"Changed 0  to EGKK and 0  to EGSS", true, true}));
    boxes = {"KSEA", "EGLL", "EGLL", "0%"};
    EXPECT_EQ(splitAirport(caller, boxes).message, "Changed 0 KSEA to EGLL and 1 KSEA to EGLL");
}

TEST_F(AirportSplitTest, MovesOneAircraft) {
    addLoop({"EGLL", "LFPG", "EGSS"});
    addSchedule("AC#2,N2,100%,24HR,IFR", loopOver({"EGLL", "LFPG"}));
    addLegs({makeLeg("EGLL", "LFPG"), makeLeg("LFPG", "KSEA")}); // an origin alone
    addLegs({makeLeg("EGLL", "EGLL"), makeLeg("EGLL", "LFPG")});
    SplitAircraftBoxes boxes{" ac#1", "egkk", "egll "};
    EXPECT_EQ(splitAircraft(caller, boxes), (BulkOutcome{"Changed 2 flights by AC#1 from EGLL to EGKK", true, true}));
    EXPECT_EQ(boxes.aircraftCode + "," + boxes.newIcao + "," + boxes.oldIcao, "AC#1,EGKK,EGLL");
    EXPECT_EQ(stateOf(1), "EGSS-EGKK EGKK-LFPG LFPG-EGSS");
    EXPECT_EQ(stateOf(2), "LFPG-EGLL EGLL-LFPG");
    EXPECT_EQ(stateOf(3), "EGKK-LFPG LFPG-KSEA");
    EXPECT_EQ(stateOf(4), "EGLL-EGKK EGKK-LFPG"); // one leg changes at one end only
    // With only origins left to change nothing counts, and they change all the same.
    EXPECT_EQ(splitAircraft(caller, boxes), (BulkOutcome{"No matching flights found", true, true}));
    EXPECT_EQ(stateOf(4), "EGKK-EGKK EGKK-LFPG");
    // The search is by number, the change by the whole code.
    boxes = {"XX#1", "EGLL", "EGKK"};
    EXPECT_EQ(splitAircraft(caller, boxes), (BulkOutcome{"No matching flights found", true, true}));
    EXPECT_EQ(stateOf(3), "EGKK-LFPG LFPG-KSEA");
}

TEST_F(AirportSplitTest, RefusesInTheOrderOfItsChecksAndLeavesTheTrafficAlone) {
    addLoop({"LFPG", "EGLL"});
    addAirport("-1", "called like a miss");
    const auto refused = [](std::string message) { return BulkOutcome{.message = std::move(message)}; };
    for (auto [boxes, message] : std::vector<std::pair<SplitBoxes, std::string>>{
             {{"EGLL", " ", "", "5%"}, "Please specify the first 'Split' ICAO"},
             {{"EGLL", "XXXX", "", "5%"}, "Please specify the second 'Split' ICAO"},
             {{"EGLL", "xxxx", "yyyy", "5%"}, "XXXX" + std::string(unknown)},
             {{"EGLL", "EGKK", "-1", "5%"}, "-1" + std::string(unknown)}}) {
        EXPECT_EQ(splitAirport(caller, boxes), refused(message));
    }
    for (auto [boxes, message] : std::vector<std::pair<SplitAircraftBoxes, std::string>>{
             {{" ", "", ""}, "Please specify the aircraft"},
             {{"AC#9", "", ""}, "Please specify the current ICAO"},
             {{"AC#9", "", "XXXX"}, "Please specify the new ICAO"},
             {{"AC#9", "yyyy", "xxxx"}, "XXXX" + std::string(unknown)},
             {{"AC#9", "yyyy", "EGLL"}, "YYYY" + std::string(unknown)},
             {{"ac#9", "EGKK", "EGLL"},
              "AC#9 is not a recognised aircraft code.  Add the aircraft before using it."}}) {
        EXPECT_EQ(splitAircraft(caller, boxes), refused(message));
    }
    EXPECT_EQ(stateOf(1), "EGLL-LFPG LFPG-EGLL");
}

} // namespace
} // namespace vantor::test
