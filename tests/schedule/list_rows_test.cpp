#include "core/combo_rows.h"
#include "schedule/list_rows.h"
#include "support/test.h"

namespace vantor::test {
namespace {

void add(std::string_view acnum, std::initializer_list<std::string_view> icaos) {
    addSchedule(std::string(acnum) + ",A,100%,24HR,IFR", loopOver(icaos));
}

class ScheduleListTest : public Fixture {
  protected:
    // The caption and the rows, those of schedules by their numbers: "Listing all flights: 1|2||".
    static std::string list(std::string_view icao, std::string_view ac, bool unique = false) {
        Listing listing;
        listSchedules(icao, ac, unique, listing);
        std::string text = listing.caption.value_or("as it was") + ": ";
        for (const ListRow& row : listing.rows) {
            text += (row.itemData == 0 ? row.text : std::to_string(row.itemData)) + "|";
        }
        return text;
    }
};

TEST_F(ScheduleListTest, ShowsASchedule) {
    addAircraft("AC#12", "Boeing 737-400");
    addSchedule("AC#12, VH-ABC ,100%,24HR,ifr", loopOver({"YPPH", "YPEA", "YMML", "YSSY"}));
    addSchedule("AC#7,X,100%,24HR,IFR", loopOver({"YPPH", "YPEA"}));
    addSchedule("AC#12,V,50%,WEEK,VF", loopOver({"YPPH"}));
    addLegs({}); // no legs: never shown
    countDroppedLine();
    changeSchedule(2, [](ScheduleRec& record) { record.deleted = true; });
    Listing listing;
    listSchedules("", "", false, listing);
    // An unknown aircraft shows its code twice, and short rules keep their padding.
    EXPECT_EQ(listing.rows, (ListRows{{"AC#12 - Boeing 737-400 VH-ABC (IFR,4 legs)", 1},
                                      {"(DEL) AC#7 - AC#7 X (IFR,2 legs)", 2},
                                      {"AC#12 - Boeing 737-400 V (VF ,1 legs)", 3},
                                      {"", 0}}));
}

TEST_F(ScheduleListTest, FiltersByAirportAndByAircraft) {
    add("AC#1", {"KSEA", "KPDX"});
    add("AC#2", {"KSFO", "KLAX"});
    add("ac#1", {"KSEA", "KLAX"});
    add("AC#1", {"ksea", "KOAK"});
    // Case counts in both; each list ends with its empty row.
    EXPECT_EQ(list("", ""), "Listing all flights: 1|2|3|4||");
    EXPECT_EQ(list("KSEA", ""), "Showing all flights in or out of KSEA: 1|3||");
    EXPECT_EQ(list("", "AC#1"), "Showing all flights by AC#1: 1|4||");
    EXPECT_EQ(list("KSEA", "AC#1"), "Showing all flights in or out of KSEA: 1||");
    EXPECT_EQ(list("KXXX", ""), "Showing all flights in or out of KXXX: |");
}

TEST_F(ScheduleListTest, StopsAtItsLimit) {
    for (int i = 0; i < 32730; ++i) {
        add("AC#1", {"KSEA"});
    }
    EXPECT_TRUE(list("", "").ends_with("|32729|32730||"));
    // A schedule of another aircraft does not reach the limit's test; one without a match for the airport does.
    add("AC#2", {"KPDX"});
    EXPECT_TRUE(list("", "AC#1").ends_with("|32730||"));
    EXPECT_TRUE(list("KSEA", "").ends_with("|32730|... Listbox limit reached||"));
    add("AC#1", {"KSEA"});
    EXPECT_TRUE(list("", "").ends_with("|32730|... Listbox limit reached||"));
}

TEST_F(ScheduleListTest, ListsEachAircraftOnceInOrderOfVisitAndEachAirportSorted) {
    addAircraft("AC#1", "Boeing");
    addAirport("KSEA", "Seattle");
    addAirport("kaaa", "");
    add("AC#9", {"KSEA", "KPDX", "KSEA"});
    add("AC#1", {"KSEA", "LFPG", "KSEA"});
    add("AC#1", {"kaaa", "LFPG"});
    add("AC#9", {"KSEA", "KPDX"});
    EXPECT_EQ(list("KSEA", "", true), "Aircraft which visit KSEA: AC#9 - AC#9|AC#1 - Boeing||");
    EXPECT_EQ(list("", "AC#1", true), "Airports visited by AC#1: kaaa - |KSEA - Seattle|LFPG - LFPG||");
    // With both filters the airport's own legs give the aircraft, the others give airports.
    EXPECT_EQ(list("LFPG", "AC#1", true), "Airports visited by AC#1: AC#1 - Boeing|kaaa - |KSEA - Seattle||");
    EXPECT_EQ(list("", "", true), "as it was: |");
}

TEST_F(ScheduleListTest, TellsOddCodesApartByTheirText) {
    // Between two codes the text of those seen reads "*A**B*": there a blank code is found, and "A**B" as well.
    add("AC#1", {"A", "B", "", "A**B", "*", "C"});
    EXPECT_EQ(list("", "AC#1", true), "Airports visited by AC#1: * - *|A - A|B - B|C - C||");
    traffic = {};
    add("AC#1", {"A", "", "A", "B"});
    EXPECT_EQ(list("", "AC#1", true), "Airports visited by AC#1:  - |A - A|B - B||");
}

TEST_F(ScheduleListTest, TellsWhereAFaultHappened) {
    add("AC#1", {"KSEA", "KPDX"});
    add("AC#1", {"KSEA", "KPDX"});
    changeSchedule(2, [](ScheduleRec& record) { record.legcount = 3; });
    Listing listing;
    EXPECT_EQ(faultOf([&] { listSchedules("KLAX", "", false, listing); }),
              "9 Error 'Subscript out of range' showing leg 3 of schedule 2");
    EXPECT_TRUE(listing.rows.empty());

    // What was listed ahead of the fault stays, without the closing row.
    changeSchedule(2, [](ScheduleRec& record) { record.legcount = 2; });
    schedulecount = schedules.RecordCount() + 1;
    EXPECT_THROW(listSchedules("", "", false, listing), ListingFault);
    EXPECT_EQ(listing.rows.size(), 2U);
    EXPECT_EQ(listing.caption, "Listing all flights");
}

TEST_F(ScheduleListTest, FillsTheComboBoxes) {
    addAircraft("AC#1", " Boeing ");
    addAircraft("AC#2", "Gone");
    addAircraft("AC#3", "Missing");
    markDeleted(2);
    changeAircraft(3, [](AircraftRec& record) { record.missing = true; });
    EXPECT_EQ(aircraftRows(true), (ListRows{{"AC#1 - Boeing", 1}, {"AC#3 - Missing", 3}}));
    EXPECT_EQ(aircraftRows(false), (ListRows{{"AC#1 - Boeing", 1}}));
    addAirport("KSEA", "Seattle");
    addAirport("EDDF", "");
    EXPECT_EQ(airportRows(), (ListRows{{"KSEA - Seattle", 1}, {"EDDF - ", 2}}));
}

TEST_F(ScheduleListTest, SaysWhatARowIsAndAllows) {
    add("AC#1", {"KSEA"});
    add("XX1", {"KSEA"});
    changeSchedule(2, [](ScheduleRec& record) { record.deleted = true; });
    // The states of Edit, Copy, Delete and Swap Aircraft, and the caption of Delete.
    const auto allowed = [](std::size_t selected, std::int32_t recnum, std::string_view row) {
        const ScheduleButtons buttons = scheduleButtons(caller, selected, recnum, row);
        std::string states;
        for (const bool state : {buttons.editSchedule, buttons.copy, buttons.deleteSchedule, buttons.swapAircraft}) {
            states += state ? '+' : '-';
        }
        return states + " " + std::string(buttons.deleteCaption.value_or("as it was"));
    };
    EXPECT_EQ(allowed(1, 0, "AC#1 - Boeing"), "---- as it was");
    EXPECT_EQ(allowed(1, 1, scheduleRow(schedules.peek(1))), "++++ Delete");
    EXPECT_EQ(allowed(2, 1, scheduleRow(schedules.peek(1))), "--++ Delete");
    EXPECT_EQ(allowed(1, 2, scheduleRow(schedules.peek(2))), "+++- Undelete"); // no AC# code in its row

    EXPECT_EQ(kindOfRow(12, ""), ScheduleListRow::schedule);
    EXPECT_EQ(kindOfRow(0, "AC#1 - Boeing"), ScheduleListRow::aircraftRow);
    EXPECT_EQ(kindOfRow(0, "... Listbox limit reached"), ScheduleListRow::airportRow);
    EXPECT_EQ(kindOfRow(0, ""), ScheduleListRow::nothing);
}

class LegListTest : public Fixture {
  protected:
    // The row of one leg of an otherwise plain schedule.
    static std::string row(const LegRec& leg, std::string_view period = "24HR") {
        const std::int32_t recnum = addSchedule("AC#1,A,100%," + std::string(period) + ",IFR", {leg});
        const ScheduleRec& schedule = schedules.peek(recnum);
        return legRow(schedule, schedule.legs[1]);
    }

    // The caption, whether the list may be picked in, the click on row 0 and the disabled buttons, and the legs'
    // numbers: "Legs in flight #1, on, click: 1001 1002 ".
    static std::string told(const LegListing& listing) {
        std::string text = listing.caption.value_or("as it was");
        text += !listing.enabled ? "" : *listing.enabled ? ", on" : ", off";
        text += std::string(listing.selectFirst ? ", click" : "") + (listing.disableButtons ? ", disable: " : ": ");
        for (const ListRow& row : listing.rows) {
            text += std::to_string(row.itemData) + " ";
        }
        return text;
    }
};

TEST_F(LegListTest, ShowsALeg) {
    EXPECT_EQ(row(makeLeg("YPPH", "YPEA", "9:05", " 7 ", 150000), "6h"),
              "FL#7 - YPPH to YPEA (150000 nm) dpt 09:05:00 every 6h");
    // A distance of the editor need not be whole; the 32-bit value is shown at its full width.
    EXPECT_EQ(row(makeLeg("A", "B", "12:00:00", "1", 112.5F)), "FL#1 - A to B (112.5 nm) dpt 12:00:00 every 24HR");

    LegRec leg = makeWeeklyLeg(1, "KSEA", "KPDX", "06:30:00");
    leg.tng = true;
    leg.deleted = true;
    EXPECT_EQ(row(leg, "WEEK"), "(DEL) FL#1 - KSEA to KPDX (100 nm) dpt 06:30:00 Mondays TNG ");
    EXPECT_TRUE(row(makeWeeklyLeg(6, "A", "B"), "WEEK").ends_with(" Saturdays"));
    EXPECT_THROW(row(makeWeeklyLeg(7, "A", "B"), "WEEK"), Error);
    EXPECT_THROW(row(makeWeeklyLeg(-1, "A", "B"), "WEEK"), Error);

    // Times are those of the configured zone, and an unreadable one shows as it stands.
    const auto shown = [](std::string_view dep) { return row(makeLeg("A", "B", dep)).substr(27); };
    EXPECT_EQ(shown(""), "             every 24HR");
    gmtoffset = 0.25F;
    EXPECT_EQ(shown("23:30:00"), "05:30:00 every 24HR");
    EXPECT_EQ(shown("25:00:00"), "25:00:00     every 24HR");
}

TEST_F(LegListTest, ListsTheLegsOfASchedule) {
    addAircraft("AC#1", "Boeing");
    addPlan("24HR", "KLAX-KSEA, xKSEA-KPDX, KPDX-KLAX");
    changeSchedule(1, [](ScheduleRec& record) { record.legs[3].hashindex = 0; });
    EXPECT_EQ(told(listLegs(1, "")), "Legs in flight #1, on, click: 1001 1002 0 ");
    EXPECT_EQ(listLegs(1, "").rows[1].text, "(DEL) FL#1 - KSEA to KPDX (100 nm) dpt 12:00:00 every 24HR");
    changeSchedule(1, [](ScheduleRec& record) { record.deleted = true; });
    // With an airport: the legs to it and from it, under the aircraft's title.
    EXPECT_EQ(told(listLegs(1, "KPDX")), "Flights to/from KPDX by Boeing, off, click: 1002 0 ");
    EXPECT_EQ(told(listLegs(0, "")), "as it was, disable: ");

    // A weekday that is none ends the list without a word, ahead of the click.
    addSchedule("AC#1,A,100%,WEEK,IFR", {makeWeeklyLeg(1, "A", "B"), makeWeeklyLeg(9, "B", "A")});
    EXPECT_EQ(told(listLegs(2, "")), "Legs in flight #2, on, disable: 2001 ");
    EXPECT_EQ(newestAction(), "");
}

TEST_F(LegListTest, GathersTheLegsOfAnAircraft) {
    add("AC#1", {"KSEA", "KPDX"});
    add("AC#2", {"KSEA", "KPDX"});
    addPlan("x24HR", "KLAX-KLAX");
    // Row 0 is clicked by the first schedule; the second disables the buttons and clicks nothing.
    EXPECT_EQ(told(listLegsOfAircraft(caller, "AC#1", "")), "Legs in flight #3, off, click, disable: 1001 1002 3001 ");
    EXPECT_EQ(told(listLegsOfAircraft(caller, "AC#2", "")), "Legs in flight #2, on, click: 2001 2002 ");
    // The last schedule gives caption and state, though with an airport it may give no rows.
    EXPECT_EQ(told(listLegsOfAircraft(caller, "AC#1", "KPDX")),
              "Flights to/from KPDX by AC#1, off, click, disable: 1001 1002 ");
    EXPECT_EQ(told(listLegsOfAircraft(caller, "AC#3", "")), "as it was: ");
}

TEST_F(LegListTest, SaysWhatALegAllows) {
    addPlan("24HR", "KPDX-KSEA, xKSEA-KPDX");
    const auto allowed = [](std::int32_t itemData) {
        const LegButtons buttons = legButtons(caller, itemData);
        return (buttons.enable ? "+ " : "- ") + std::string(buttons.deleteCaption.value_or("as it was"));
    };
    EXPECT_EQ(allowed(0), "- as it was");
    EXPECT_EQ(allowed(1001), "+ Delete");
    EXPECT_EQ(allowed(1002), "+ Undelete");
    EXPECT_EQ(allowed(1000), "+ as it was"); // a record, but no leg
    EXPECT_EQ(allowed(1003), "+ as it was"); // a leg that is gone leaves a word in the ring
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub caller of module test");
}

} // namespace
} // namespace vantor::test
