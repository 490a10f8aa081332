// Tests of looking at schedules and changing them.
// The buttons under the main window's lists, driven with clicks from list to editor and back.
#include "core/combo_rows.h"
#include "core/tables.h"
#include "schedule/list_rows.h"
#include "schedule/schedule_commands.h"
#include "support/main_window.h"
#include "support/traffic.h"

#include <QPushButton>

#include <gtest/gtest.h>

namespace vantor::test {
namespace {

class ScheduleButtonsTest : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        for (const char* const icao : {"AAAA", "BBBB", "CCCC", "DDDD"}) {
            addAirport(icao, "Town");
        }
        addAircraft("AC#1", "Jet");
        addAircraft("AC#2", "Prop");
        addSchedule("AC#1,ONE,50%,6h,IFR", loopOver({"AAAA", "BBBB", "CCCC"})); // C-A A-B B-C
        addSchedule("AC#2,TWO,50%,6h,IFR", loopOver({"CCCC", "DDDD"}));
        addSchedule("AC#1,TRE,50%,6h,VFR", loopOver({"AAAA", "BBBB"}));
        open();
        combo("cmbAC").setRows(aircraftRows(true));
        combo("cmbAC").setCurrentRow(0);
        combo("cmbICAO").setRows(airportRows());
        combo("cmbICAO").setCurrentRow(0);
        form().resize(1000, 700);
        form().show();
        form().displaylist("", "", "", false, 0);
    }

    // Presses a button that opens the editor, which `user` must close.
    void edit(std::string_view button, std::function<void(QDialog&)> user) const {
        press(button, "frmSchedEdit", std::move(user));
    }
    // The caption without the mark of its key.
    [[nodiscard]] std::string caption(std::string_view name) const {
        return control<QPushButton>(form(), name).text().remove(QChar(u'&')).toStdString();
    }
    static const ScheduleRec& schedule(std::int32_t recnum) { return schedules.peek(recnum); }
};

TEST_F(ScheduleButtonsTest, EditsAScheduleOfAFilteredList) {
    form().displaylist("", "AC#1", "", false, 0);
    clickRow(list("List1"), 1);
    edit("cmdEditSchedule", [](QDialog& dialog) {
        EXPECT_EQ(control<ListBox>(dialog, "List1").rowCount(), 2);
        typeOver(control<QLineEdit>(dialog, "txtRego"), "NEW");
        click(dialog, "cmdOK");
    });
    EXPECT_TRUE(form().unsavedchanges);
    EXPECT_EQ(schedule(3).tailnumber.text(), "NEW");
    EXPECT_EQ(list("List1").currentText(), "AC#1 - Jet NEW (VFR,2 legs)");
    EXPECT_EQ(list("List2").rowCount(), 2);
}

TEST_F(ScheduleButtonsTest, CancelLeavesTheTablesAlone) {
    const ScheduleRec before = schedule(2);
    clickRow(list("List1"), 1);
    edit("cmdEditSchedule", [](QDialog& dialog) {
        click(dialog, "cmdDeleteLeg");
        pressKey(dialog, Qt::Key_Escape);
    });
    edit("cmdAddSchedule", [](QDialog& dialog) { click(dialog, "cmdCancel"); });
    EXPECT_EQ(schedulecount, 3);
    EXPECT_FALSE(form().unsavedchanges);
    clickRow(list("List1"), 1);
    clickRow(list("List2"), 1);
    edit("cmdEditLeg", [](QDialog& dialog) {
        EXPECT_EQ(control<ListBox>(dialog, "List1").currentRow(), 1);
        click(dialog, "cmdCancel");
    });
    EXPECT_EQ(schedule(2), before);
    EXPECT_TRUE(form().unsavedchanges); // set before the editor opens
}

TEST_F(ScheduleButtonsTest, EditLegGoesByTheRowOnAFilteredList) {
    form().displaylist("BBBB", "", "", true, 0); // aircraft that visit BBBB
    combo("cmbICAO").setCurrentRow(1);
    clickRow(list("List1"), 0);
    // Legs to or from BBBB of both schedules of AC#1: two of three, then two of two.
    ASSERT_EQ(list("List2").rowCount(), 4);
    clickRow(list("List2"), 2);
    edit("cmdEditLeg", [](QDialog& dialog) {
        // More rows than the schedule has legs: the editor stays on the first leg.
        EXPECT_EQ(control<ListBox>(dialog, "List1").rowCount(), 2);
        EXPECT_EQ(control<ListBox>(dialog, "List1").currentRow(), 0);
        click(dialog, "cmdCancel");
    });
    form().displaylegs(true, 1, "BBBB");
    ASSERT_EQ(list("List2").rowCount(), 2);
    clickRow(list("List2"), 0); // leg 2 of the schedule stands in row 0
    edit("cmdEditLeg", [](QDialog& dialog) {
        EXPECT_EQ(control<ListBox>(dialog, "List1").currentRow(), 0);
        typeOver(control<QLineEdit>(dialog, "txtFlightNum"), "55");
        click(dialog, "cmdOK");
    });
    EXPECT_EQ(schedule(1).legs[1].flightnum.text(), "55");
}

TEST_F(ScheduleButtonsTest, EditLegStopsWhereItsNumberLeadsToNoSchedule) {
    countDroppedLine();
    countDroppedLine();
    addschedule(defaultschedule("AC#1"), "test"); // its legs carry the number of the line before
    form().displaylist("", "", "", false, 0);
    clickRow(list("List1"), 3);
    press("cmdEditLeg"); // no dialog
    EXPECT_EQ(schedule(5), ScheduleRec());
}

TEST_F(ScheduleButtonsTest, AddShowsTheNewScheduleOfTheChosenAircraft) {
    combo("cmbAC").setCurrentRow(1);
    form().displaylist("", "AC#1", "", false, 0);
    edit("cmdAddSchedule", [](QDialog& dialog) {
        EXPECT_EQ(control<ComboBox>(dialog, "cmbAircraft").text(), "AC#2 - Prop");
        EXPECT_EQ(control<ListBox>(dialog, "List1").rowText(1), "YPPH - YPEA");
        click(dialog, "cmdOK");
    });
    EXPECT_EQ(schedulecount, 4);
    EXPECT_TRUE(form().unsavedchanges);
    EXPECT_EQ(list("List1").rowCount(), 3); // the filter leaves it out
    ASSERT_EQ(list("List2").rowCount(), 2);
    EXPECT_EQ(list("List2").itemData(0), 3001); // points at the schedule before
    press("cmdDeleteLeg");
    EXPECT_TRUE(schedule(3).legs[1].deleted);
    EXPECT_FALSE(schedule(4).legs[1].deleted);
}

TEST_F(ScheduleButtonsTest, CopyStaysOnTheSource) {
    clickRow(list("List1"), 0);
    press("cmdCopy");
    EXPECT_TRUE(form().unsavedchanges);
    EXPECT_EQ(schedulecount, 4);
    EXPECT_EQ(list("List1").rowCount(), 5);
    EXPECT_EQ(list("List1").currentRow(), 0);
    clickRow(list("List1"), 3);
    EXPECT_EQ(list("List2").itemData(0), 1001); // the copy's legs act on the source
}

TEST_F(ScheduleButtonsTest, DeleteTogglesEachSelectedSchedule) {
    clickRow(list("List1"), 0);
    press("cmdDeleteSchedule");
    EXPECT_TRUE(schedule(1).deleted);
    EXPECT_EQ(list("List1").currentText(), "(DEL) AC#1 - Jet ONE (IFR,3 legs)");
    EXPECT_EQ(caption("cmdDeleteSchedule"), "Undelete");
    EXPECT_FALSE(list("List2").isEnabled());
    EXPECT_EQ(list("List2").rowCount(), 3);

    clickRow(list("List1"), 1, Qt::ShiftModifier);
    press("cmdDeleteSchedule"); // one deleted and one not: they swap
    EXPECT_FALSE(schedule(1).deleted);
    EXPECT_TRUE(schedule(2).deleted);
}

TEST_F(ScheduleButtonsTest, DeleteLegTogglesEachSelectedLeg) {
    changeSchedule(1, [](ScheduleRec& record) { record.legs[2].hashindex = 0; }); // as one added in the editor
    clickRow(list("List1"), 0);
    clickRow(list("List2"), 0);
    press("cmdDeleteLeg");
    EXPECT_TRUE(schedule(1).legs[1].deleted);
    EXPECT_EQ(caption("cmdDeleteLeg"), "Undelete");
    // Selected behind another one, a row without number toggles that one's leg back.
    clickRow(list("List2"), 0);
    clickRow(list("List2"), 1, Qt::ShiftModifier);
    press("cmdDeleteLeg");
    EXPECT_TRUE(schedule(1).legs[1].deleted);
    EXPECT_FALSE(schedule(1).legs[2].deleted);
    EXPECT_EQ(schedule(1).legcount, 3);
}

TEST_F(ScheduleButtonsTest, FindMovesTheAirportBox) {
    press("cmdFind1", "frmFind", [](QDialog& dialog) {
        typeOver(control<QLineEdit>(dialog, "txtSearchString"), "ccc");
        click(dialog, "cmdFirst");
        click(dialog, "cmdOK");
    });
    EXPECT_EQ(combo("cmbICAO").text(), "CCCC - Town");
    EXPECT_EQ(box("txtICAO1"), "CCCC"); // it is a click
}

} // namespace
} // namespace vantor::test
