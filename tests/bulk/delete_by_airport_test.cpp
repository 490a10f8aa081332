#include "bulk/delete_by_airport.h"
#include "support/fixture.h"
#include "support/traffic.h"

#include <gtest/gtest.h>

namespace vantor::test {
namespace {

class DeleteByAirportTest : public Fixture {
  protected:
    static std::int32_t addLoop(std::initializer_list<std::string_view> icaos) { return addLegs(loopOver(icaos)); }

    // As in "x KLAX-KSEA" for a deleted leg; a deleted schedule starts with "X".
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

TEST_F(DeleteByAirportTest, AsksWithTheTextInCapitals) {
    std::string box = " eg* ";
    const AirportDeletion asked = prepareAirportDeletion(box);
    EXPECT_TRUE(asked.valid);
    EXPECT_EQ(asked.message, "About to delete all flights matching 'EG*'.  Are you sure?");
    EXPECT_EQ(box, "EG*");

    box = "   ";
    const AirportDeletion refused = prepareAirportDeletion(box);
    EXPECT_FALSE(refused.valid);
    EXPECT_EQ(refused.message, "Please enter an ICAO");
    EXPECT_EQ(box, "");
}

TEST_F(DeleteByAirportTest, MarksLegsAndWholeSchedules) {
    addLoop({"KSFO", "KLAX"});         // every leg touches it
    addLoop({"KLAX", "KSFO", "KSEA"}); // by destination and by origin
    addLoop({"KSEA", "KPDX", "KLAX", "KSFO"});
    addLoop({"KSEA", "KPDX"});
    addLoop({"KLAX", "KSFO", "KSEA", "KLAX", "KSFO"});
    deleteByAirport("KLAX");
    EXPECT_EQ(stateOf(1), "X xKLAX-KSFO xKSFO-KLAX");
    EXPECT_EQ(stateOf(2), "xKSEA-KLAX xKLAX-KSFO KSFO-KSEA");
    EXPECT_EQ(stateOf(3), "KSFO-KSEA KSEA-KPDX xKPDX-KLAX xKLAX-KSFO");
    EXPECT_EQ(stateOf(4), "KPDX-KSEA KSEA-KPDX");
    EXPECT_EQ(stateOf(5), "xKSFO-KLAX xKLAX-KSFO KSFO-KSEA xKSEA-KLAX xKLAX-KSFO");
}

TEST_F(DeleteByAirportTest, RepairsTheLegBefore) {
    // In a chain that an earlier change has broken, the leg before a deleted one flies on to where that one began.
    const std::int32_t before =
        addLegs({makeLeg("KPDX", "KSEA"), makeLeg("KSFO", "KLAX"), makeLeg("LFPG", "EGLL"), makeLeg("EGKK", "KSFO")});
    // Leg 1 is deleted by its destination, and its origin goes into the last leg, which no longer matches by its own
    // destination but stands still afterwards and goes in the second pass.
    const std::int32_t last = addLegs({makeLeg("KSEA", "KLAX"), makeLeg("KSFO", "KPDX"), makeLeg("KSEA", "KLAX")});
    const std::int32_t two = addLegs({makeLeg("KSEA", "KLAX"), makeLeg("KPDX", "LFPG")}); // get no repair
    deleteByAirport("KLAX");
    EXPECT_EQ(stateOf(before), "KPDX-KSFO xKSFO-KLAX LFPG-EGLL EGKK-KSFO");
    EXPECT_EQ(stateOf(last), "xKSEA-KLAX KSFO-KPDX xKSEA-KSEA");
    EXPECT_EQ(stateOf(two), "xKSEA-KLAX KPDX-LFPG");
}

TEST_F(DeleteByAirportTest, LegsThatStandStillGoOnlyBesideAMatch) {
    const std::int32_t first = addLegs({makeLeg("EGLL", "EGLL"), makeLeg("EGLL", "LFPG"), makeLeg("LFPG", "EGLL")});
    deleteByAirport("KLAX");
    EXPECT_EQ(stateOf(first), "EGLL-EGLL EGLL-LFPG LFPG-EGLL");
    deleteByAirport("LFPG");
    EXPECT_EQ(stateOf(first), "xEGLL-EGLL xEGLL-LFPG xLFPG-EGLL");
}

TEST_F(DeleteByAirportTest, PatternsMatchTheFirstCharacters) {
    addLoop({"EGLL", "EGKK", "LFPG"});
    addLoop({"eglc", "LFPG"}); // the record's side counts as stored
    addLoop({"XEGX", "LFPG"}); // only from the front
    deleteByAirport("E*L");    // a star elsewhere is a plain character
    EXPECT_EQ(stateOf(1), "LFPG-EGLL EGLL-EGKK EGKK-LFPG");
    deleteByAirport("EG"); // no star is needed
    EXPECT_EQ(stateOf(1), "X xLFPG-EGLL xEGLL-EGKK xEGKK-LFPG");
    deleteByAirport("EG*");
    EXPECT_EQ(stateOf(2), "LFPG-eglc eglc-LFPG");
    EXPECT_EQ(stateOf(3), "LFPG-XEGX XEGX-LFPG");
}

TEST_F(DeleteByAirportTest, AShortDestinationEndsTheMatter) {
    const std::int32_t r = addLegs({makeLeg("KLAX", "L52"), makeLeg("L52", "KLAX")});
    deleteByAirport("KLAX");
    EXPECT_EQ(stateOf(r), "KLAX-L52 xL52-KLAX");
    deleteByAirport("KLAXXXXXX"); // longer than any code
    EXPECT_EQ(stateOf(r), "KLAX-L52 xL52-KLAX");
}

TEST_F(DeleteByAirportTest, AStarAloneMarksSchedulesAndNoLegs) {
    addLoop({"EGLL", "EGKK"});
    addLoop({"KSEA", "KPDX", "KLAX"});
    countDroppedLine();
    deleteByAirport("*");
    EXPECT_EQ(stateOf(1), "X EGKK-EGLL EGLL-EGKK");
    EXPECT_EQ(stateOf(2), "X KLAX-KSEA KSEA-KPDX KPDX-KLAX");
}

} // namespace
} // namespace vantor::test
