#include "foundation/log.h"
#include "schedule/list_rows.h"
#include "support/fixture.h"
#include "support/traffic.h"

#include <gtest/gtest.h>

namespace vantor::test {
namespace {

class LegListTest : public Fixture {
  protected:
    // The row of one leg of an otherwise plain schedule.
    static std::string row(const LegRec& leg, std::string_view period = "24HR") {
        const std::int32_t recnum = addSchedule("AC#1,A,100%," + std::string(period) + ",IFR", {leg});
        const ScheduleRec& schedule = schedules.peek(recnum);
        return legRow(schedule, schedule.legs[1]);
    }
};

TEST_F(LegListTest, ShowsALegOfARepeatingSchedule) {
    EXPECT_EQ(row(makeLeg("YPPH", "YPEA", "12:00:00", "123", 1234), "6h"),
              "FL#123 - YPPH to YPEA (1234 nm) dpt 12:00:00 every 6h");
    EXPECT_EQ(row(makeLeg("YPPH", "YPEA", "9:05", " 7 ", 0)), "FL#7 - YPPH to YPEA (0 nm) dpt 09:05:00 every 24HR");
    EXPECT_EQ(row(makeLeg("A", "B", "12:00:00", "1", 150000)), "FL#1 - A to B (150000 nm) dpt 12:00:00 every 24HR");
    // A distance of the editor need not be whole; the 32-bit value is shown at its full width.
    EXPECT_EQ(row(makeLeg("A", "B", "12:00:00", "1", 112.5F)), "FL#1 - A to B (112.5 nm) dpt 12:00:00 every 24HR");
}

TEST_F(LegListTest, ShowsDaysMarksAndTouchAndGo) {
    LegRec leg = makeWeeklyLeg(1, "KSEA", "KPDX", "06:30:00");
    leg.flightnum = "9";
    leg.distance = 112;
    leg.tng = true;
    leg.deleted = true;
    EXPECT_EQ(row(leg, "WEEK"), "(DEL) FL#9 - KSEA to KPDX (112 nm) dpt 06:30:00 Mondays TNG ");
    EXPECT_EQ(row(makeWeeklyLeg(0, "A", "B"), "Week"), "FL#1 - A to B (100 nm) dpt 12:00:00 Sundays");
    EXPECT_EQ(row(makeWeeklyLeg(6, "A", "B"), "WEEK"), "FL#1 - A to B (100 nm) dpt 12:00:00 Saturdays");
    EXPECT_THROW(row(makeWeeklyLeg(7, "A", "B"), "WEEK"), Error);
    EXPECT_THROW(row(makeWeeklyLeg(-1, "A", "B"), "WEEK"), Error);
}

TEST_F(LegListTest, ShiftsTimesToTheConfiguredZoneAndShowsAnUnreadableOneAsItStands) {
    const auto shown = [](std::string_view dep) { return row(makeLeg("A", "B", dep)).substr(27); };
    EXPECT_EQ(shown(""), "             every 24HR");
    gmtoffset = 0.25F;
    EXPECT_EQ(shown("12:00:00"), "18:00:00 every 24HR");
    EXPECT_EQ(shown("23:30:00"), "05:30:00 every 24HR");
    EXPECT_EQ(shown("25:00:00"), "25:00:00     every 24HR");
    gmtoffset = -2.0F / 24.0F;
    EXPECT_EQ(shown("01:00:00"), "23:00:00 every 24HR");
}

TEST_F(LegListTest, ListsTheLegsOfASchedule) {
    addSchedule("AC#1,A,100%,24HR,IFR", loopOver({"KSEA", "KPDX", "KLAX"}));
    changeSchedule(1, [](ScheduleRec& record) {
        record.legs[2].deleted = true;
        record.legs[3].hashindex = 0;
    });
    const LegListing listing = listLegs(1, "");
    EXPECT_EQ(listing.rows, (ListRows{{"FL#1 - KLAX to KSEA (100 nm) dpt 12:00:00 every 24HR", 1001},
                                      {"(DEL) FL#1 - KSEA to KPDX (100 nm) dpt 12:00:00 every 24HR", 1002},
                                      {"FL#1 - KPDX to KLAX (100 nm) dpt 12:00:00 every 24HR", 0}}));
    EXPECT_EQ(listing.caption, "Legs in flight #1");
    EXPECT_EQ(listing.enabled, true);
    EXPECT_TRUE(listing.selectFirst);
    EXPECT_FALSE(listing.disableButtons);

    // With an airport: the legs to it and from it, under the aircraft's title.
    addAircraft("AC#1", "Boeing");
    changeSchedule(1, [](ScheduleRec& record) { record.deleted = true; });
    const LegListing filtered = listLegs(1, "KPDX");
    ASSERT_EQ(filtered.rows.size(), 2U);
    EXPECT_EQ(filtered.rows[0].itemData, 1002);
    EXPECT_EQ(filtered.caption, "Flights to/from KPDX by Boeing");
    EXPECT_EQ(filtered.enabled, false);
}

TEST_F(LegListTest, LeavesTheListAsItIsWithoutASchedule) {
    const LegListing listing = listLegs(0, "");
    EXPECT_TRUE(listing.rows.empty());
    EXPECT_EQ(listing.caption, std::nullopt);
    EXPECT_EQ(listing.enabled, std::nullopt);
    EXPECT_FALSE(listing.selectFirst);
    EXPECT_TRUE(listing.disableButtons);
}

TEST_F(LegListTest, EndsAtAWeekdayThatIsNone) {
    addSchedule("AC#1,A,100%,WEEK,IFR",
                {makeWeeklyLeg(1, "A", "B"), makeWeeklyLeg(9, "B", "C"), makeWeeklyLeg(2, "C", "A")});
    const LegListing listing = listLegs(1, "");
    ASSERT_EQ(listing.rows.size(), 1U);
    EXPECT_EQ(listing.caption, "Legs in flight #1");
    EXPECT_FALSE(listing.selectFirst); // the fault ends it ahead of that step
    EXPECT_TRUE(listing.disableButtons);
    EXPECT_EQ(newestAction(), "");

    ListRows rows;
    EXPECT_THROW(appendLegRows(1, "", rows), Error);
    EXPECT_EQ(rows, listing.rows);
}

TEST_F(LegListTest, GathersTheLegsOfAnAircraft) {
    addSchedule("AC#1,A,100%,24HR,IFR", loopOver({"KSEA", "KPDX"}));
    addSchedule("AC#2,B,100%,24HR,IFR", loopOver({"KSEA", "KPDX"}));
    addSchedule("AC#1,C,100%,24HR,IFR", loopOver({"KLAX"}));
    changeSchedule(3, [](ScheduleRec& record) { record.deleted = true; });
    const LegListing listing = listLegsOfAircraft("AC#1", "");
    ASSERT_EQ(listing.rows.size(), 3U);
    EXPECT_EQ(listing.rows[1].itemData, 1002);
    EXPECT_EQ(listing.rows[2].itemData, 3001);
    // The last schedule gives the caption, though with an airport it may give no rows.
    EXPECT_EQ(listing.caption, "Legs in flight #3");
    EXPECT_EQ(listing.enabled, false);
    EXPECT_EQ(listLegsOfAircraft("AC#1", "KPDX").rows.size(), 2U);
    EXPECT_EQ(listLegsOfAircraft("AC#1", "KPDX").enabled, false);

    // Row 0 is clicked by the first schedule; the second disables the buttons and clicks nothing.
    EXPECT_TRUE(listing.selectFirst);
    EXPECT_TRUE(listing.disableButtons);
    EXPECT_FALSE(listLegsOfAircraft("AC#2", "").disableButtons);

    const LegListing none = listLegsOfAircraft("AC#3", "");
    EXPECT_TRUE(none.rows.empty());
    EXPECT_EQ(none.caption, std::nullopt);
    EXPECT_FALSE(none.disableButtons);
}

TEST_F(LegListTest, SaysWhatALegAllows) {
    addSchedule("AC#1,A,100%,24HR,IFR", loopOver({"KSEA", "KPDX"}));
    changeSchedule(1, [](ScheduleRec& record) { record.legs[2].deleted = true; });
    const auto allowed = [](std::int32_t itemData) {
        const LegButtons buttons = legButtons(itemData);
        return (buttons.enable ? "+ " : "- ") + std::string(buttons.deleteCaption.value_or("as it was"));
    };
    EXPECT_EQ(allowed(0), "- as it was");
    EXPECT_EQ(allowed(1001), "+ Delete");
    EXPECT_EQ(allowed(1002), "+ Undelete");
    EXPECT_EQ(allowed(1000), "+ as it was"); // a record, but no leg
    EXPECT_EQ(allowed(1003), "+ as it was"); // a leg that is gone leaves a word in the ring
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub enablelegbuttons of module frmMain");
}

} // namespace
} // namespace vantor::test
