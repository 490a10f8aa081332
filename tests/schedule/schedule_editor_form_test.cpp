// Tests of looking at schedules and changing them.
// The schedule editor, driven with clicks and keys on a small world.
#include "core/combo_rows.h"
#include "core/tables.h"
#include "foundation/log.h"
#include "platform/code_page.h"
#include "platform/qt_host.h"
#include "schedule/frmSchedEdit.h"
#include "support/fixture.h"
#include "support/form_driver.h"
#include "support/traffic.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <gtest/gtest.h>

namespace vantor::test {
namespace {

// Rows of the airport boxes.
enum Airport { A, B, C, D };

class ScheduleEditorTest : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        useHost(&qtHost);
        for (const char* const icao : {"AAAA", "BBBB", "CCCC", "DDDD"}) {
            addAirport(icao, "Town");
        }
        addAircraft("AC#1", "Jet");
        addAircraft("AC#12", "Prop");
        addAircraft("AC#123", "Glider");
        addSchedule("AC#12,G-ONE,50%,24HR,VFR", loopOver({"AAAA", "BBBB", "CCCC"})); // C-A A-B B-C
    }

    void TearDown() override {
        editor.reset();
        Fixture::TearDown();
    }

    frmSchedEdit& open(std::int32_t recnum = 1) {
        const EditorRows rows{aircraftRows(true), airportRows()};
        editor = std::make_unique<frmSchedEdit>(nullptr, schedules.HashGetSlot(recnum), rows);
        editor->show();
        return *editor;
    }
    [[nodiscard]] ScheduleRec edited() const { return editor->edited().value(); }

    template <class Widget>
    Widget& at(std::string_view name) {
        return control<Widget>(*editor, name);
    }
    ListBox& list() { return at<ListBox>("List1"); }
    ComboBox& combo(std::string_view name) { return at<ComboBox>(name); }
    std::string field(std::string_view name) { return fromQString(at<QLineEdit>(name).text()); }
    void type(std::string_view name, std::string_view text) { typeOver(at<QLineEdit>(name), text); }

    // The list, its current row marked: "CCCC-AAAA *AAAA-BBBB".
    std::string legs() {
        std::string text;
        for (int row = 0; row < list().rowCount(); ++row) {
            text += (row == 0 ? "" : " ") + std::string(row == list().currentRow() ? "*" : "") +
                    replaceAll(list().rowText(row), " - ", "-");
        }
        return text;
    }
    // What the frame of the leg shows: airports; departure with its day, arrival with its day and mark; level, number,
    // touch and go, distance. A day that can't be picked is "-".
    std::string frame() {
        std::string text = combo("cmbAirport0").text().substr(0, 4) + "-" + combo("cmbAirport1").text().substr(0, 4);
        text += " " + (combo("cmbDay0").isEnabled() ? combo("cmbDay0").text() : "-") + "/" + field("txtTime");
        text += " " + (combo("cmbDay1").isVisible() ? combo("cmbDay1").text() : "-") + "/";
        text += (at<QLineEdit>("txtETA").isEnabled() ? "@" : "") + field("txtETA") + " " + field("txtAltitude");
        text += (at<QLineEdit>("txtFlightNum").isEnabled() ? " F" : " R") + field("txtFlightNum");
        text += at<QCheckBox>("chkTNG").isChecked() ? " TNG " : " ";
        return text + fromQString(at<QLabel>("lblDistance").text());
    }
    // The warning of a leg that is too long: colour and tooltip.
    std::string warning() {
        const auto& label = at<QLabel>("lblDistance");
        return fromQString(label.palette().color(QPalette::WindowText).name()) + " " + fromQString(label.toolTip());
    }

    QtHost qtHost;
    std::unique_ptr<frmSchedEdit> editor;
};

TEST_F(ScheduleEditorTest, ShowsTheScheduleAndItsFirstLeg) {
    changeSchedule(1, [](ScheduleRec& record) {
        record.legs[1].dep = "22:30:15";
        record.legs[1].flighthours = 24;
        record.legs[1].tng = true;
    });
    gmtoffset = 0.25F;
    open();
    EXPECT_EQ(combo("cmbAircraft").text(), "AC#12 - Prop"); // and not AC#123, nor row 0
    EXPECT_EQ(field("txtRego") + " " + field("txtPercent"), "G-ONE 50");
    EXPECT_EQ(combo("cmbRepeat").text(), "24h");
    EXPECT_TRUE(at<QRadioButton>("optVFR").isChecked());
    EXPECT_EQ(at<QLabel>("lblGMT").text(), QStringLiteral("(GMT+6)"));
    EXPECT_EQ(legs(), "*CCCC-AAAA AAAA-BBBB BBBB-CCCC");
    EXPECT_EQ(frame(), "CCCC-AAAA -/04:30:15 -/18:00:00 200 F1 TNG 100 NM");
    EXPECT_EQ(warning(), "#c00000 This leg is over 24 hours long!");
    clickRow(list(), 1);
    EXPECT_EQ(frame(), "AAAA-BBBB -/18:00:00 -/18:00:00 200 F1 100 NM");
    EXPECT_EQ(warning(), "#008000 ");
}

TEST_F(ScheduleEditorTest, OkHandsBackEveryField) {
    open();
    pickRow(combo("cmbAircraft"), 2);
    type("txtRego", "1234567890123");
    type("txtPercent", "1000");
    click(*editor, "optIFR");
    type("txtTime", "9:05");
    type("txtAltitude", "310");
    type("txtFlightNum", "77");
    click(*editor, "chkTNG");
    click(*editor, "chkUseRego");
    EXPECT_EQ(frame(), "CCCC-AAAA -/9:05 -/12:00:00 310 R77 TNG 100 NM");
    pressKey(at<QLineEdit>("txtAltitude"), Qt::Key_Return); // OK is the default button
    ASSERT_FALSE(editor->isVisible());
    // Legs that were never visited are never computed.
    EXPECT_EQ(textOf(edited()), "1 AC#123 123456789012 1000 24h IFR"
                                " | CCCC-AAAA -1/09:05:00 TNG0/09:21:00 310 R77 0nm 0.00h 1001"
                                " | AAAA-BBBB -1/12:00:00 0/12:00:00 200 F1 100nm 0.00h 1002"
                                " | BBBB-CCCC -1/12:00:00 0/12:00:00 200 F1 100nm 0.00h 1003");
}

TEST_F(ScheduleEditorTest, ChangesBothAirportsOfALeg) {
    open();
    clickRow(list(), 1);
    pickRow(combo("cmbAirport0"), D);
    const auto dialogs = expectDialog("frmFind", [](QDialog& dialog) {
        typeOver(control<QLineEdit>(dialog, "txtSearchString"), "aaaa");
        click(dialog, "cmdFirst");
        click(dialog, "cmdOK");
    });
    click(*editor, "cmdFind2"); // moves the box of the destinations
    EXPECT_EQ(legs(), "CCCC-DDDD *DDDD-AAAA AAAA-CCCC");
    EXPECT_EQ(frame(), "DDDD-AAAA -/12:00:00 -/12:16:00 200 F1 0 NM");
    typeOver(combo("cmbAirport1"), "BBBB - Town"); // typing reaches no leg
    EXPECT_EQ(combo("cmbAirport1").toolTip(), QStringLiteral("Pick a row of the list"));
    EXPECT_EQ(legs(), "CCCC-DDDD *DDDD-AAAA AAAA-CCCC");
    QAbstractItemView& completions = *combo("cmbAirport1").findChild<QCompleter*>()->popup();
    pressKey(completions, Qt::Key_Down);
    pressKey(completions, Qt::Key_Return);
    EXPECT_EQ(legs(), "CCCC-DDDD *DDDD-BBBB BBBB-CCCC");
    EXPECT_EQ(combo("cmbAirport1").toolTip(), QString());
    EXPECT_EQ(newestAction(), "");
}

TEST_F(ScheduleEditorTest, AddsAndInsertsLegs) {
    addSchedule("AC#1,ONE,100%,6Hr,IFR", {makeLeg("AAAA", "BBBB", "08:00:00")});
    open(2);
    type("txtAltitude", "111");
    click(*editor, "cmdAddLeg");
    // Setting the row again is a click, which stores the leg that was shown.
    EXPECT_EQ(legs(), "*AAAA-BBBB BBBB-AAAA");
    EXPECT_TRUE(list().hasFocus());
    EXPECT_EQ(edited().legs[1].flightlevel, 111);
    click(*editor, "cmdInsertLeg");
    // The store of the old leg 1 hits the new one, which now has that number.
    EXPECT_EQ(legs(), "*AAAA-AAAA AAAA-BBBB BBBB-AAAA");
    EXPECT_EQ(edited().period.text(), "6Hr"); // the default row is no change and no click
}

TEST_F(ScheduleEditorTest, StartsFromNoLegsAtAll) {
    addSchedule("AC#1,ONE,100%,6h,IFR", {});
    open(2);
    EXPECT_EQ(legs(), "");
    EXPECT_EQ(field("txtTime"), "00:00");
    click(*editor, "cmdDeleteLeg");
    click(*editor, "cmdInsertLeg");
    EXPECT_EQ(legs(), "-");
    EXPECT_EQ(list().currentRow(), -1);
    click(*editor, "cmdInsertLeg"); // with a row but none current: ahead of the last
    EXPECT_EQ(legs(), "- -");
    click(*editor, "cmdDeleteLeg"); // no row is current: nothing goes
    EXPECT_EQ(legs(), "*- -");
    click(*editor, "cmdOK");
    EXPECT_FALSE(editor->isVisible());
    EXPECT_EQ(edited().legcount, 2);
}

TEST_F(ScheduleEditorTest, DeletingKeepsItsTwoOffsets) {
    addSchedule("AC#1,ONE,100%,6h,IFR", loopOver({"AAAA", "BBBB", "CCCC", "DDDD"})); // D-A A-B B-C C-D
    open(2);
    clickRow(list(), 3);
    click(*editor, "cmdDeleteLeg");
    EXPECT_EQ(legs(), "DDDD-AAAA AAAA-BBBB *BBBB-CCCC");
    EXPECT_EQ(frame().substr(0, 9), "AAAA-BBBB"); // leg 2, two above the one deleted
    clickRow(list(), 1);
    click(*editor, "cmdDeleteLeg");
    EXPECT_EQ(legs(), "*DDDD-AAAA BBBB-CCCC");
    // Leg 0: a blank code is the start of the first row, and times that are none leave what stood there.
    EXPECT_EQ(frame(), "AAAA-AAAA -/12:00:00 -/12:16:00 0 F 0 NM");
    click(*editor, "cmdDeleteLeg");
    EXPECT_EQ(legs(), "*BBBB-CCCC");
    pickRow(combo("cmbAirport1"), D); // without a current leg a destination goes to leg 0 and to the start of leg 1
    EXPECT_EQ(legs(), "*DDDD-CCCC");
    click(*editor, "cmdDeleteLeg");
    EXPECT_EQ(legs(), "");
    EXPECT_EQ(frame().substr(0, 9), "AAAA-AAAA"); // leg 0 is blank again
    click(*editor, "cmdOK");
    EXPECT_EQ(edited().legcount, 0);
}

TEST_F(ScheduleEditorTest, ABadTimeKeepsTheLegInTheFrame) {
    open();
    type("txtTime", "abc");
    type("txtRego", "NEW");
    const std::string message(invalidTimeText);
    const auto boxes = answerBoxes({{message}, {message}, {message}});
    clickRow(list(), 2);
    EXPECT_EQ(legs(), "CCCC-AAAA AAAA-BBBB *BBBB-CCCC");
    EXPECT_EQ(frame(), "CCCC-AAAA -/abc -/12:00:00 200 F1 100 NM");
    click(*editor, "cmdOK");
    type("txtTime", "1:00");
    type("txtAltitude", "high"); // has no words of its own
    click(*editor, "cmdOK");
    EXPECT_TRUE(editor->isVisible());
    EXPECT_EQ(field("txtRego") + " " + frame(), "NEW CCCC-AAAA -/1:00 -/12:00:00 high F1 100 NM");
    type("txtAltitude", "99");
    clickRow(list(), 1);
    EXPECT_EQ(textOf(edited().legs[1]), "CCCC-AAAA -1/01:00:00 0/01:16:00 99 F1 0nm 0.00h 1001");
    EXPECT_EQ(frame().substr(0, 9), "AAAA-BBBB");
    click(*editor, "cmdOK");
    EXPECT_FALSE(editor->isVisible());
}

TEST_F(ScheduleEditorTest, AWeeklyScheduleGetsItsDays) {
    open();
    pickRow(combo("cmbRepeat"), 7);
    click(*editor, "chkFix");
    EXPECT_TRUE(at<QLabel>("lblDay2").isVisible());
    pickRow(combo("cmbDay1"), 3);
    type("txtETA", "23:45");
    type("txtTime", "x");
    const auto boxes = answerBoxes({{std::string(invalidTimeText)}});
    clickRow(list(), 1); // the departure without a day jumps to Sunday, whatever the time
    EXPECT_EQ(combo("cmbDay0").text(), "Sun");
    type("txtTime", "12:00");
    clickRow(list(), 1);
    EXPECT_EQ(textOf(edited().legs[1]), "CCCC-AAAA 0/12:00:00 @2/23:45:00 200 F1 0nm 0.00h 1001");
    EXPECT_FALSE(combo("cmbDay1").isVisible());
    pressKey(list(), Qt::Key_Up);
    EXPECT_EQ(frame(), "CCCC-AAAA Sun/12:00:00 Tue/@23:45:00 200 F1 0 NM");
    EXPECT_TRUE(combo("cmbDay1").isEnabled());
    pickRow(combo("cmbRepeat"), 3);
    EXPECT_FALSE(edited().weekly);
    EXPECT_FALSE(combo("cmbDay0").isEnabled());
    EXPECT_EQ(edited().legs[1].arrday, 2); // days of legs not visited again stay
}

// What OK hands back must be a line of the file that can be read again.
TEST_F(ScheduleEditorTest, LegsThatWereNeverShownAreComplete) {
    markDeleted(2);
    open();
    pickRow(combo("cmbRepeat"), 7);
    click(*editor, "cmdOK");
    EXPECT_EQ(edited().acnum.text(), "AC#1"); // a deleted aircraft gives way to the first row
    EXPECT_EQ(edited().percent.text(), "50%");
    for (const LegRec& leg : OneBased<LegRec>(edited().legs)) {
        EXPECT_EQ(leg.depday, 0) << leg.fromicao.text();
    }
    open();
    for (int row = 0; row < 3; ++row) {
        clickRow(list(), 0);
        click(*editor, "cmdDeleteLeg");
    }
    click(*editor, "cmdAddLeg"); // takes after no leg at all
    click(*editor, "cmdAddLeg");
    click(*editor, "cmdOK");
    for (const LegRec& leg : OneBased<LegRec>(edited().legs)) {
        EXPECT_FALSE(leg.dep.text().empty());
    }
}

TEST_F(ScheduleEditorTest, FieldsTakeNothingThatWouldPartTheLine) {
    open();
    type("txtRego", "G,-/A;//B/");
    type("txtPercent", ",7;5//");
    type("txtFlightNum", "1;2,3/4");
    QApplication::clipboard()->setText(QStringLiteral("X\r\nY"));
    pressKey(at<QLineEdit>("txtFlightNum"), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field("txtRego"), "G-/A/B/");
    EXPECT_EQ(field("txtPercent"), "75/");
    EXPECT_EQ(field("txtFlightNum"), "123/4");
}

TEST_F(ScheduleEditorTest, CancelEscapeAndTheCloseBoxCancel) {
    const std::vector<std::function<void()>> ways = {
        [&] { click(*editor, "cmdCancel"); },
        [&] { pressKey(at<QPushButton>("cmdCancel"), Qt::Key_Return); }, // Enter presses the button it stands on
        [&] { pressKey(at<QLineEdit>("txtTime"), Qt::Key_Escape); },
        [&] { editor->close(); },
    };
    for (const auto& leave : ways) {
        open();
        type("txtTime", "bad");
        leave();
        EXPECT_FALSE(editor->isVisible());
        EXPECT_FALSE(editor->edited());
    }
}

} // namespace
} // namespace vantor::test
