// Tests of looking at schedules and changing them.
// The buttons under the main window's lists, driven with clicks from list to editor and back.
#include "schedule/schedule_commands.h"
#include "support/main_window.h"
#include "support/traffic.h"

#include <QGroupBox>
#include <QPushButton>

#include <gtest/gtest.h>

namespace vantor::test {
namespace {

class ScheduleButtonsTest : public MainWindowFixture {
  protected:
    void SetUp() override {
        MainWindowFixture::SetUp();
        press("cmdListall");
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
    form().lists().displaylist("", "AC#2", false, 0);
    clickRow(list("List1"), 1);
    edit("cmdEditSchedule", [](QDialog& dialog) {
        typeOver(control<QLineEdit>(dialog, "txtRego"), "NEW");
        click(dialog, "cmdOK");
    });
    EXPECT_TRUE(form().workspace().unsavedchanges);
    EXPECT_EQ(schedule(3).tailnumber.text(), "NEW");
    EXPECT_EQ(list("List1").currentText(), "AC#2 - \"Gone\" NEW (IFR,2 legs)");
    EXPECT_EQ(list("List2").itemData(0), 3001);
}

TEST_F(ScheduleButtonsTest, CancelLeavesTheTablesAlone) {
    const ScheduleRec before = schedule(2);
    clickRow(list("List1"), 1);
    edit("cmdEditSchedule", [](QDialog& dialog) {
        click(dialog, "cmdDeleteLeg");
        pressKey(dialog, Qt::Key_Escape);
    });
    edit("cmdAddSchedule", [](QDialog& dialog) { click(dialog, "cmdCancel"); });
    EXPECT_EQ(schedulecount, 4);
    EXPECT_FALSE(form().workspace().unsavedchanges);
    clickRow(list("List1"), 1);
    clickRow(list("List2"), 1);
    edit("cmdEditLeg", [](QDialog& dialog) {
        EXPECT_EQ(control<ListBox>(dialog, "List1").currentRow(), 1);
        click(dialog, "cmdCancel");
    });
    EXPECT_EQ(schedule(2), before);
    EXPECT_TRUE(form().workspace().unsavedchanges); // set before the editor opens
}

TEST_F(ScheduleButtonsTest, EditLegGoesByTheRowOnAFilteredList) {
    form().lists().displaylist("LFPG", "", true, 0); // aircraft that visit LFPG
    combo("cmbICAO").setCurrentRow(1);
    clickRow(list("List1"), 1);
    ASSERT_EQ(list("List2").rowCount(), 4); // legs of two schedules of AC#2
    clickRow(list("List2"), 1);
    edit("cmdEditLeg", [](QDialog& dialog) {
        // More rows than the schedule has legs: the editor stays on the first leg.
        EXPECT_EQ(control<QLineEdit>(dialog, "txtRego").text(), QStringLiteral("GBBB"));
        EXPECT_EQ(control<ListBox>(dialog, "List1").currentRow(), 0);
        click(dialog, "cmdCancel");
    });
    addLegs(loopOver({"EGLL", "LFPG", "EGKK"}));
    form().lists().displaylegs(5, "LFPG");
    ASSERT_EQ(list("List2").itemData(0), 5002); // leg 2 of the schedule stands in row 0
    edit("cmdEditLeg", [](QDialog& dialog) {
        EXPECT_EQ(control<ListBox>(dialog, "List1").currentRow(), 0);
        typeOver(control<QLineEdit>(dialog, "txtFlightNum"), "55");
        click(dialog, "cmdOK");
    });
    EXPECT_EQ(schedule(5).legs[1].flightnum.text(), "55");
}

TEST_F(ScheduleButtonsTest, EditLegStopsWhereItsNumberLeadsToNoSchedule) {
    countDroppedLine();
    countDroppedLine();
    addschedule(caller, defaultschedule("AC#1")); // its legs carry the number of the line before
    press("cmdListall");
    clickRow(list("List1"), 4);
    press("cmdEditLeg"); // no dialog
    EXPECT_EQ(schedule(6), ScheduleRec());
}

TEST_F(ScheduleButtonsTest, AddShowsTheNewScheduleOfTheChosenAircraft) {
    combo("cmbAC").setCurrentRow(1);
    form().lists().displaylist("", "AC#1", false, 0);
    edit("cmdAddSchedule", [](QDialog& dialog) {
        EXPECT_EQ(control<ComboBox>(dialog, "cmbAircraft").text(), "AC#2 - \"Gone\""); // missing ones too
        EXPECT_EQ(control<ListBox>(dialog, "List1").rowText(1), "YPPH - YPEA");
        click(dialog, "cmdOK");
    });
    EXPECT_EQ(schedulecount, 5);
    EXPECT_TRUE(form().workspace().unsavedchanges);
    EXPECT_EQ(list("List1").rowCount(), 2); // the filter leaves it out
    EXPECT_EQ(list("List2").rowCount(), 2);
    EXPECT_EQ(list("List2").itemData(0), 4001); // points at the schedule before
    press("cmdDeleteLeg");
    EXPECT_TRUE(schedule(4).legs[1].deleted);
    EXPECT_FALSE(schedule(5).legs[1].deleted);
}

TEST_F(ScheduleButtonsTest, CopyStaysOnTheSource) {
    clickRow(list("List1"), 0);
    press("cmdCopy");
    EXPECT_TRUE(form().workspace().unsavedchanges);
    EXPECT_EQ(list("List1").rowCount(), 6);
    EXPECT_EQ(list("List1").currentRow(), 0);
    EXPECT_EQ(control<QGroupBox>(form(), "fraList2").title(), QStringLiteral("Legs in flight #1"));
    clickRow(list("List1"), 4);
    EXPECT_EQ(list("List2").itemData(0), 1001); // the copy's legs act on the source
}

TEST_F(ScheduleButtonsTest, DeleteTogglesEachSelectedSchedule) {
    clickRow(list("List1"), 0);
    press("cmdDeleteSchedule");
    EXPECT_TRUE(form().workspace().unsavedchanges);
    EXPECT_TRUE(schedule(1).deleted);
    EXPECT_EQ(list("List1").currentText(), "(DEL) AC#1 - \"Boeing 737\" GAAA (IFR,2 legs)");
    EXPECT_EQ(caption("cmdDeleteSchedule"), "Undelete");
    EXPECT_FALSE(list("List2").isEnabled());
    EXPECT_EQ(list("List2").rowCount(), 2);

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
    EXPECT_TRUE(form().workspace().unsavedchanges);
    EXPECT_TRUE(schedule(1).legs[1].deleted);
    EXPECT_EQ(caption("cmdDeleteLeg"), "Undelete");
    // Selected behind another one, a row without number toggles that one's leg back.
    clickRow(list("List2"), 0);
    clickRow(list("List2"), 1, Qt::ShiftModifier);
    press("cmdDeleteLeg");
    EXPECT_TRUE(schedule(1).legs[1].deleted);
    EXPECT_FALSE(schedule(1).legs[2].deleted);
}

TEST_F(ScheduleButtonsTest, FindMovesTheAirportBox) {
    press("cmdFind1", "frmFind", [](QDialog& dialog) {
        typeOver(control<QLineEdit>(dialog, "txtSearchString"), "egss");
        click(dialog, "cmdFirst");
        click(dialog, "cmdOK");
    });
    EXPECT_EQ(combo("cmbICAO").currentRow(), 3);
    EXPECT_EQ(box("txtICAO1"), "EGSS"); // it is a click
}

} // namespace
} // namespace vantor::test
