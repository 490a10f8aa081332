#include "core/combo_rows.h"
#include "schedule/list_rows.h"
#include "support/expect_error.h"
#include "support/fixture.h"
#include "support/traffic.h"

#include <gtest/gtest.h>

namespace vantor::test {
namespace {

class ScheduleListTest : public Fixture {
  protected:
    static Listing list(std::string_view icao, std::string_view ac, bool unique = false) {
        Listing listing;
        listSchedules(icao, ac, unique, listing);
        return listing;
    }

    static std::vector<std::string> texts(const ListRows& rows) {
        std::vector<std::string> result;
        for (const ListRow& row : rows) {
            result.push_back(row.text);
        }
        return result;
    }
};

using Texts = std::vector<std::string>;

TEST_F(ScheduleListTest, ShowsASchedule) {
    addAircraft("AC#12", "Boeing 737-400");
    addSchedule("AC#12, VH-ABC ,100%,24HR,ifr", loopOver({"YPPH", "YPEA", "YMML", "YSSY"}));
    addSchedule("AC#7,X,100%,24HR,IFR", loopOver({"YPPH", "YPEA"}));
    addSchedule("AC#12,V,50%,WEEK,VF", loopOver({"YPPH"}));
    addLegs({}); // no legs: never shown
    countDroppedLine();
    changeSchedule(2, [](ScheduleRec& record) { record.deleted = true; });
    // An unknown aircraft shows its code twice, and short rules keep their padding.
    EXPECT_EQ(list("", "").rows, (ListRows{{"AC#12 - Boeing 737-400 VH-ABC (IFR,4 legs)", 1},
                                           {"(DEL) AC#7 - AC#7 X (IFR,2 legs)", 2},
                                           {"AC#12 - Boeing 737-400 V (VF ,1 legs)", 3},
                                           {"", 0}}));
}

TEST_F(ScheduleListTest, FiltersByAirportAndByAircraft) {
    addSchedule("AC#1,A,100%,24HR,IFR", loopOver({"KSEA", "KPDX"}));
    addSchedule("AC#2,B,100%,24HR,IFR", loopOver({"KSFO", "KLAX"}));
    addSchedule("ac#1,C,100%,24HR,IFR", loopOver({"KSEA", "KLAX"}));
    addSchedule("AC#1,D,100%,24HR,IFR", loopOver({"ksea", "KOAK"}));
    // What is listed: the frame's caption, and the records' numbers.
    const auto listed = [](std::string_view icao, std::string_view ac) {
        const Listing listing = list(icao, ac);
        std::string result = std::string(listing.caption.value_or("")) + ":";
        for (const ListRow& row : listing.rows) {
            result += " " + std::to_string(row.itemData);
        }
        return result;
    };
    // Case counts in both; each list ends with its empty row.
    EXPECT_EQ(listed("", ""), "Listing all flights: 1 2 3 4 0");
    EXPECT_EQ(listed("KSEA", ""), "Showing all flights in or out of KSEA: 1 3 0");
    EXPECT_EQ(listed("", "AC#1"), "Showing all flights by AC#1: 1 4 0");
    EXPECT_EQ(listed("KSEA", "AC#1"), "Showing all flights in or out of KSEA: 1 0");
    EXPECT_EQ(listed("KXXX", ""), "Showing all flights in or out of KXXX: 0");
}

TEST_F(ScheduleListTest, StopsAtItsLimit) {
    const std::vector<LegRec> loop = loopOver({"KSEA"});
    for (int i = 0; i < 32730; ++i) {
        addSchedule("AC#1,A,100%,24HR,IFR", loop);
    }
    ListRows rows = list("", "").rows;
    ASSERT_EQ(rows.size(), 32731U);
    EXPECT_EQ(rows[32729].itemData, 32730);
    EXPECT_EQ(rows[32730], ListRow{});

    // A schedule of another aircraft does not reach the limit's test; one without a match for the airport does.
    addSchedule("AC#2,A,100%,24HR,IFR", loopOver({"KPDX"}));
    EXPECT_EQ(list("", "AC#1").rows.size(), 32731U);
    EXPECT_EQ(list("KSEA", "").rows[32730].text, "... Listbox limit reached");
    addSchedule("AC#1,A,100%,24HR,IFR", loop);
    rows = list("", "").rows;
    ASSERT_EQ(rows.size(), 32732U);
    EXPECT_EQ(rows[32729].itemData, 32730);
    EXPECT_EQ(rows[32730], (ListRow{"... Listbox limit reached", 0}));
    EXPECT_EQ(rows[32731], ListRow{});
}

TEST_F(ScheduleListTest, ListsTheAircraftOfAnAirportInOrderOfVisit) {
    addAircraft("AC#1", "Boeing");
    addSchedule("AC#9,A,100%,24HR,IFR", loopOver({"KSEA", "KPDX", "KSEA"}));
    addSchedule("AC#1,B,100%,24HR,IFR", loopOver({"KSEA", "KPDX"}));
    addSchedule("AC#9,C,100%,24HR,IFR", loopOver({"KSEA", "KPDX"}));
    addSchedule("AC#3,D,100%,24HR,IFR", loopOver({"KLAX", "KPDX"}));
    EXPECT_EQ(list("KSEA", "", true).rows, (ListRows{{"AC#9 - AC#9", 0}, {"AC#1 - Boeing", 0}, {"", 0}}));
    EXPECT_EQ(list("KSEA", "", true).caption, "Aircraft which visit KSEA");
    EXPECT_EQ(list("", "", true).rows, (ListRows{{"", 0}}));
    EXPECT_EQ(list("", "", true).caption, std::nullopt);
}

TEST_F(ScheduleListTest, ListsTheAirportsOfAnAircraftSorted) {
    addAirport("KSEA", "Seattle");
    addAirport("kaaa", "");
    addSchedule("AC#1,A,100%,24HR,IFR", loopOver({"KSEA", "LFPG", "KSEA"}));
    addSchedule("AC#1,B,100%,24HR,IFR", loopOver({"kaaa", "LFPG"}));
    addSchedule("AC#2,C,100%,24HR,IFR", loopOver({"EDDF"}));
    EXPECT_EQ(list("", "AC#1", true).rows,
              (ListRows{{"kaaa - ", 0}, {"KSEA - Seattle", 0}, {"LFPG - LFPG", 0}, {"", 0}}));
    EXPECT_EQ(list("", "AC#1", true).caption, "Airports visited by AC#1");
    // With both filters the airport's own legs give the aircraft, the others give airports.
    EXPECT_EQ(texts(list("LFPG", "AC#1", true).rows), (Texts{"AC#1 - AC#1", "kaaa - ", "KSEA - Seattle", ""}));
    EXPECT_EQ(list("LFPG", "AC#1", true).caption, "Airports visited by AC#1");
}

TEST_F(ScheduleListTest, TellsOddCodesApartByTheirText) {
    // Between two codes the text of those seen reads "*A**B*": there a blank code is found, and "A**B" as well.
    addSchedule("AC#1,A,100%,24HR,IFR", loopOver({"A", "B", "", "A**B", "*", "C"}));
    EXPECT_EQ(texts(list("", "AC#1", true).rows), (Texts{"* - *", "A - A", "B - B", "C - C", ""}));
    resetTables();
    addSchedule("AC#1,A,100%,24HR,IFR", loopOver({"A", "", "A", "B"}));
    EXPECT_EQ(texts(list("", "AC#1", true).rows), (Texts{" - ", "A - A", "B - B", ""}));
}

TEST_F(ScheduleListTest, TellsWhereAFaultHappened) {
    addSchedule("AC#1,A,100%,24HR,IFR", loopOver({"KSEA", "KPDX"}));
    addSchedule("AC#1,B,100%,24HR,IFR", loopOver({"KSEA", "KPDX"}));
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
    aircraft[2].deleted = true;
    aircraft[3].missing = true;
    EXPECT_EQ(aircraftRows(true), (ListRows{{"AC#1 - Boeing", 1}, {"AC#3 - Missing", 3}}));
    EXPECT_EQ(aircraftRows(false), (ListRows{{"AC#1 - Boeing", 1}}));
    addAirport("KSEA", "Seattle");
    addAirport("EDDF", "");
    EXPECT_EQ(airportRows(), (ListRows{{"KSEA - Seattle", 1}, {"EDDF - ", 2}}));
    resetTables();
    EXPECT_TRUE(aircraftRows(true).empty());
    EXPECT_TRUE(airportRows().empty());
}

TEST_F(ScheduleListTest, SaysWhatARowAllows) {
    addSchedule("AC#1,A,100%,24HR,IFR", loopOver({"KSEA"}));
    addSchedule("XX1,B,100%,24HR,IFR", loopOver({"KSEA"}));
    changeSchedule(2, [](ScheduleRec& record) { record.deleted = true; });

    // The states of Edit, Copy, Delete and Swap Aircraft, and the caption of Delete.
    const auto allowed = [](std::size_t selected, std::int32_t recnum, std::string_view row) {
        const ScheduleButtons buttons = scheduleButtons(selected, recnum, row);
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
}

TEST_F(ScheduleListTest, TellsTheKindsOfRowsApart) {
    EXPECT_EQ(kindOfRow(12, ""), ScheduleListRow::schedule);
    EXPECT_EQ(kindOfRow(0, "AC#1 - Boeing"), ScheduleListRow::aircraftRow);
    EXPECT_EQ(kindOfRow(0, "ac#1 - Boeing"), ScheduleListRow::airportRow);
    EXPECT_EQ(kindOfRow(0, "... Listbox limit reached"), ScheduleListRow::airportRow);
    EXPECT_EQ(kindOfRow(0, ""), ScheduleListRow::nothing);
}

} // namespace
} // namespace vantor::test
