#include "bulk/airport_split.h"
#include "support/fixture.h"
#include "support/traffic.h"

#include <gtest/gtest.h>

namespace vantor::test {
namespace {

const std::string unknown = " is not a recognised airport code.  Add the airport to Airports.txt before using it.";

class AirportSplitTest : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        for (const char* icao : {"EGLL", "EGKK", "EGSS", "LFPG"}) {
            addAirport(icao, icao);
        }
        addAircraft("AC#1", "\"One\"");
        addAircraft("AC#2", "\"Two\"");
    }

    static std::string chainOf(std::int32_t recnum) {
        std::string chain;
        for (const LegRec& leg : schedules.peek(recnum).legs) {
            chain += chain.empty() ? "" : " ";
            chain += std::string(leg.fromicao.text()) + "-" + std::string(leg.toicao.text());
        }
        return chain;
    }
};

// The shares of a cycle of 21 legs, dealt out over schedules of different lengths: the counter runs on.
TEST_F(AirportSplitTest, DealsOutTheSharesOfTheTable) {
    struct Share {
        std::int16_t percent;
        int first;
    };
    for (const Share share : {Share{0, 0}, {5, 1}, {30, 6}, {50, 10}, {95, 19}, {100, 20}}) {
        schedules.Init();
        schedulecount = 0;
        std::string expected;
        std::string dealt;
        for (int i = 0; i < 28; ++i) { // 42 legs: two cycles
            addLegs(i % 2 == 0 ? loopOver({"EGLL", "LFPG"}) : loopOver({"LFPG", "EGLL", "KSEA", "EGLL"}));
        }
        EXPECT_EQ(replaceicao("EGLL", "EGKK", "EGSS", share.percent),
                  "Changed " + std::to_string(2 * share.first) + " EGLL to EGKK and " +
                      std::to_string(42 - 2 * share.first) + " EGLL to EGSS");
        for (int cycle = 0; cycle < 2; ++cycle) {
            expected += std::string(static_cast<std::size_t>(share.first), '1') +
                        std::string(static_cast<std::size_t>(21 - share.first), '2');
        }
        for (std::int32_t r = 1; r <= schedulecount; ++r) {
            for (const LegRec& leg : schedules.peek(r).legs) {
                dealt += leg.toicao.text() == "EGKK" ? "1" : leg.toicao.text() == "EGSS" ? "2" : "";
            }
        }
        EXPECT_EQ(dealt, expected) << share.percent;
    }
}

TEST_F(AirportSplitTest, TheNextLegStartsAtTheNewAirport) {
    addLegs(loopOver({"LFPG", "EGLL", "KSEA", "EGLL"}));
    addLegs(loopOver({"LFPG", "egll"}));
    changeSchedule(1, [](ScheduleRec& schedule) { schedule.legs[2].deleted = true; });
    SplitBoxes boxes{" egll", "egkk ", " egss", "50%"};
    EXPECT_EQ(splitAirport(boxes),
              (BulkOutcome{"Changed 2  egll to EGKK and 0  egll to EGSS", true, true})); // as typed
    EXPECT_EQ(boxes.icao1, "EGKK");
    EXPECT_EQ(boxes.icao2, "EGSS");
    EXPECT_EQ(boxes.icao, " egll");
    EXPECT_EQ(chainOf(1), "EGKK-LFPG LFPG-EGKK EGKK-KSEA KSEA-EGKK");
    EXPECT_EQ(chainOf(2), "egll-LFPG LFPG-egll"); // the record's side counts as stored
}

TEST_F(AirportSplitTest, RunsWithAnyAirportToTakeFrom) {
    addLegs(loopOver({"LFPG", "EGLL"}));
    SplitBoxes boxes{"", "EGKK", "EGSS", "5%"};
    EXPECT_EQ(splitAirport(boxes), (BulkOutcome{"Changed 0  to EGKK and 0  to EGSS", true, true}));
    boxes = {"EGLL", "EGLL", "EGLL", "0%"};
    EXPECT_EQ(splitAirport(boxes).message, "Changed 0 EGLL to EGLL and 1 EGLL to EGLL");
    EXPECT_EQ(chainOf(1), "EGLL-LFPG LFPG-EGLL");
}

TEST_F(AirportSplitTest, RefusesAndLeavesTheTrafficAlone) {
    addLegs(loopOver({"LFPG", "EGLL"}));
    const auto refusal = [](SplitBoxes boxes) {
        const BulkOutcome outcome = splitAirport(boxes);
        EXPECT_FALSE(outcome.setsUnsaved || outcome.clearsLists);
        return outcome.message;
    };
    EXPECT_EQ(refusal({"EGLL", " ", "", "5%"}), "Please specify the first 'Split' ICAO");
    EXPECT_EQ(refusal({"EGLL", "XXXX", "", "5%"}), "Please specify the second 'Split' ICAO");
    EXPECT_EQ(refusal({"EGLL", "xxxx", "yyyy", "5%"}), "XXXX" + unknown);
    EXPECT_EQ(refusal({"EGLL", "EGKK", "-1", "5%"}), "-1" + unknown);
    EXPECT_EQ(chainOf(1), "EGLL-LFPG LFPG-EGLL");
}

TEST_F(AirportSplitTest, MovesOneAircraft) {
    addLegs(loopOver({"EGLL", "LFPG", "EGSS"}));
    addSchedule("AC#2,N2,100%,24HR,IFR", loopOver({"EGLL", "LFPG"}));
    addSchedule("AC#1,N3,100%,24HR,IFR", {makeLeg("EGLL", "LFPG"), makeLeg("LFPG", "KSEA")}); // an origin alone
    addSchedule("AC#1,N4,100%,24HR,IFR", {makeLeg("EGLL", "EGLL"), makeLeg("EGLL", "LFPG")});
    SplitAircraftBoxes boxes{" ac#1", "egkk", "egll "};
    EXPECT_EQ(splitAircraft(boxes), (BulkOutcome{"Changed 2 flights by AC#1 from EGLL to EGKK", true, true}));
    EXPECT_EQ(boxes.aircraftCode, "AC#1");
    EXPECT_EQ(boxes.newIcao, "EGKK");
    EXPECT_EQ(boxes.oldIcao, "EGLL");
    EXPECT_EQ(chainOf(1), "EGSS-EGKK EGKK-LFPG LFPG-EGSS");
    EXPECT_EQ(chainOf(2), "LFPG-EGLL EGLL-LFPG");
    EXPECT_EQ(chainOf(3), "EGKK-LFPG LFPG-KSEA");
    EXPECT_EQ(chainOf(4), "EGLL-EGKK EGKK-LFPG"); // one leg changes at one end only
    // With only origins left to change nothing counts, and they change all the same.
    EXPECT_EQ(splitAircraft(boxes), (BulkOutcome{"No matching flights found", true, true}));
    EXPECT_EQ(chainOf(4), "EGKK-EGKK EGKK-LFPG");
}

TEST_F(AirportSplitTest, RefusesToMoveInTheOrderOfItsChecks) {
    const auto refusal = [](SplitAircraftBoxes boxes) {
        const BulkOutcome outcome = splitAircraft(boxes);
        EXPECT_FALSE(outcome.setsUnsaved || outcome.clearsLists);
        return outcome.message;
    };
    EXPECT_EQ(refusal({" ", "", ""}), "Please specify the aircraft");
    EXPECT_EQ(refusal({"AC#9", "", ""}), "Please specify the current ICAO");
    EXPECT_EQ(refusal({"AC#9", "", "XXXX"}), "Please specify the new ICAO");
    EXPECT_EQ(refusal({"AC#9", "yyyy", "xxxx"}), "XXXX" + unknown);
    EXPECT_EQ(refusal({"AC#9", "yyyy", "EGLL"}), "YYYY" + unknown);
    EXPECT_EQ(refusal({"ac#9", "EGKK", "EGLL"}),
              "AC#9 is not a recognised aircraft code.  Add the aircraft before using it.");
    // The search is by number, the change by the whole code.
    SplitAircraftBoxes boxes{"XX#1", "EGKK", "EGLL"};
    EXPECT_EQ(splitAircraft(boxes), (BulkOutcome{"No matching flights found", true, true}));
}

} // namespace
} // namespace vantor::test
