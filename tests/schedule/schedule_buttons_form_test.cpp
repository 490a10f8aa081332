// Tests of looking at schedules and changing them.
// The buttons under the main window's lists, driven with clicks from list to editor and back.
#include "core/tables.h"
#include "platform/qt_host.h"
#include "schedule/list_rows.h"
#include "shell/frmMain.h"
#include "support/fixture.h"
#include "support/form_driver.h"
#include "support/traffic.h"

#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

namespace vantor::test {
namespace {

class ScheduleButtonsTest : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        useHost(&qtHost);
        for (const char* const icao : {"AAAA", "BBBB", "CCCC", "DDDD"}) {
            addAirport(icao, "Town");
        }
        addAircraft("AC#1", "Jet");
        addAircraft("AC#2", "Prop");
        addSchedule("AC#1,ONE,50%,6h,IFR", loopOver({"AAAA", "BBBB", "CCCC"})); // C-A A-B B-C
        addSchedule("AC#2,TWO,50%,6h,IFR", loopOver({"CCCC", "DDDD"}));
        addSchedule("AC#1,TRE,50%,6h,VFR", loopOver({"AAAA", "BBBB"}));
        window = std::make_unique<frmMain>();
        combo("cmbAC").setRows(aircraftRows(true));
        combo("cmbAC").setCurrentRow(0);
        combo("cmbICAO").setRows(airportRows());
        combo("cmbICAO").setCurrentRow(0);
        window->resize(1000, 700);
        window->show();
        window->displaylist("", "", "", false, 0);
    }

    void TearDown() override {
        window->hide();
        window.reset();
        Fixture::TearDown();
    }

    ListBox& list(std::string_view name) { return control<ListBox>(*window, name); }
    ComboBox& combo(std::string_view name) { return control<ComboBox>(*window, name); }
    QPushButton& button(std::string_view name) { return control<QPushButton>(*window, name); }
    void press(std::string_view name) { click(button(name)); }
    void pressWith(std::string_view name, const std::function<void(QDialog&)>& user) {
        const auto dialogs = expectDialog("frmSchedEdit", user);
        press(name);
    }
    // Captions carry the mark of their key.
    std::string caption(std::string_view name) { return button(name).text().remove(QChar(u'&')).toStdString(); }
    static bool deleted(std::int32_t recnum) { return schedules.peek(recnum).deleted; }

    QtHost qtHost;
    std::unique_ptr<frmMain> window;
};

TEST_F(ScheduleButtonsTest, EditsAScheduleOfAFilteredList) {
    window->displaylist("", "AC#1", "", false, 0);
    clickRow(list("List1"), 1);
    pressWith("cmdEditSchedule", [](QDialog& dialog) {
        EXPECT_EQ(control<ListBox>(dialog, "List1").rowCount(), 2);
        typeOver(control<QLineEdit>(dialog, "txtRego"), "NEW");
        click(dialog, "cmdOK");
    });
    EXPECT_TRUE(window->unsavedchanges);
    EXPECT_EQ(schedules.peek(3).tailnumber.text(), "NEW");
    EXPECT_EQ(list("List1").currentText(), "AC#1 - Jet NEW (VFR,2 legs)");
    EXPECT_EQ(list("List2").rowCount(), 2);
}

TEST_F(ScheduleButtonsTest, CancelLeavesTheTablesAlone) {
    const ScheduleRec before = schedules.peek(2);
    clickRow(list("List1"), 1);
    pressWith("cmdEditSchedule", [](QDialog& dialog) {
        click(dialog, "cmdDeleteLeg");
        pressKey(dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(schedules.peek(2), before);
    EXPECT_FALSE(window->unsavedchanges);
    clickRow(list("List1"), 1);
    clickRow(list("List2"), 1);
    pressWith("cmdEditLeg", [](QDialog& dialog) {
        EXPECT_EQ(control<ListBox>(dialog, "List1").currentRow(), 1);
        click(dialog, "cmdCancel");
    });
    EXPECT_EQ(schedules.peek(2), before);
    EXPECT_TRUE(window->unsavedchanges); // set before the editor opens
}

TEST_F(ScheduleButtonsTest, EditLegGoesByTheRowOnAFilteredList) {
    window->displaylist("BBBB", "", "", true, 0); // aircraft that visit BBBB
    combo("cmbICAO").setCurrentRow(1);
    clickRow(list("List1"), 0);
    // Legs to or from BBBB of both schedules of AC#1: two of three, then two of two.
    ASSERT_EQ(list("List2").rowCount(), 4);
    clickRow(list("List2"), 2);
    pressWith("cmdEditLeg", [](QDialog& dialog) {
        // More rows than the schedule has legs: the editor stays on the first leg.
        EXPECT_EQ(control<ListBox>(dialog, "List1").rowCount(), 2);
        EXPECT_EQ(control<ListBox>(dialog, "List1").currentRow(), 0);
        click(dialog, "cmdCancel");
    });
    window->displaylegs(true, 1, "BBBB");
    ASSERT_EQ(list("List2").rowCount(), 2);
    clickRow(list("List2"), 0); // leg 2 of the schedule stands in row 0
    pressWith("cmdEditLeg", [](QDialog& dialog) {
        EXPECT_EQ(control<ListBox>(dialog, "List1").currentRow(), 0);
        typeOver(control<QLineEdit>(dialog, "txtFlightNum"), "55");
        click(dialog, "cmdOK");
    });
    EXPECT_EQ(schedules.peek(1).legs[1].flightnum.text(), "55");
}

TEST_F(ScheduleButtonsTest, AddShowsTheNewScheduleOfTheChosenAircraft) {
    combo("cmbAC").setCurrentRow(1);
    window->displaylist("", "AC#1", "", false, 0);
    pressWith("cmdAddSchedule", [](QDialog& dialog) {
        EXPECT_EQ(control<ComboBox>(dialog, "cmbAircraft").text(), "AC#2 - Prop");
        EXPECT_EQ(control<ListBox>(dialog, "List1").rowText(1), "YPPH - YPEA");
        click(dialog, "cmdOK");
    });
    EXPECT_EQ(schedulecount, 4);
    EXPECT_EQ(list("List1").rowCount(), 3); // the filter leaves it out
    ASSERT_EQ(list("List2").rowCount(), 2);
    EXPECT_EQ(list("List2").itemData(0), 3001); // points at the schedule before
    press("cmdDeleteLeg");
    EXPECT_TRUE(schedules.peek(3).legs[1].deleted);
    EXPECT_FALSE(schedules.peek(4).legs[1].deleted);

    window->unsavedchanges = false;
    pressWith("cmdAddSchedule", [](QDialog& dialog) { click(dialog, "cmdCancel"); });
    EXPECT_EQ(schedulecount, 4);
    EXPECT_FALSE(window->unsavedchanges);
}

TEST_F(ScheduleButtonsTest, CopyStaysOnTheSource) {
    clickRow(list("List1"), 0);
    press("cmdCopy");
    EXPECT_EQ(schedulecount, 4);
    EXPECT_EQ(list("List1").rowCount(), 5);
    EXPECT_EQ(list("List1").currentRow(), 0);
    clickRow(list("List1"), 3);
    EXPECT_EQ(list("List2").itemData(0), 1001); // the copy's legs act on the source
    EXPECT_TRUE(window->unsavedchanges);
}

TEST_F(ScheduleButtonsTest, DeleteTogglesEachSelectedSchedule) {
    clickRow(list("List1"), 0);
    press("cmdDeleteSchedule");
    EXPECT_TRUE(deleted(1));
    EXPECT_EQ(list("List1").currentText(), "(DEL) AC#1 - Jet ONE (IFR,3 legs)");
    EXPECT_EQ(caption("cmdDeleteSchedule"), "Undelete");
    EXPECT_FALSE(list("List2").isEnabled());
    EXPECT_EQ(list("List2").rowCount(), 3);

    clickRow(list("List1"), 1, Qt::ShiftModifier);
    EXPECT_FALSE(button("cmdEditSchedule").isEnabled());
    press("cmdDeleteSchedule"); // one deleted and one not: they swap
    EXPECT_FALSE(deleted(1));
    EXPECT_TRUE(deleted(2));
}

TEST_F(ScheduleButtonsTest, DeleteLegTogglesEachSelectedLeg) {
    changeSchedule(1, [](ScheduleRec& record) { record.legs[2].hashindex = 0; }); // as one added in the editor
    clickRow(list("List1"), 0);
    clickRow(list("List2"), 0);
    press("cmdDeleteLeg");
    EXPECT_TRUE(schedules.peek(1).legs[1].deleted);
    EXPECT_EQ(caption("cmdDeleteLeg"), "Undelete");
    // Selected behind another one, a row without number toggles that one's leg back.
    clickRow(list("List2"), 0);
    clickRow(list("List2"), 1, Qt::ShiftModifier);
    press("cmdDeleteLeg");
    EXPECT_TRUE(schedules.peek(1).legs[1].deleted);
    EXPECT_FALSE(schedules.peek(1).legs[2].deleted);
    EXPECT_EQ(schedules.peek(1).legcount, 3);
}

TEST_F(ScheduleButtonsTest, FindMovesTheAirportBox) {
    const auto dialogs = expectDialog("frmFind", [](QDialog& dialog) {
        typeOver(control<QLineEdit>(dialog, "txtSearchString"), "ccc");
        click(dialog, "cmdFirst");
        click(dialog, "cmdOK");
    });
    press("cmdFind1");
    EXPECT_EQ(combo("cmbICAO").text(), "CCCC - Town");
    EXPECT_EQ(control<QLineEdit>(*window, "txtICAO1").text(), QStringLiteral("CCCC")); // it is a click
}

} // namespace
} // namespace vantor::test
