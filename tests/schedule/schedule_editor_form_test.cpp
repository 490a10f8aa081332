// The schedule editor, driven with clicks and keys on a small world.
#include "core/combo_rows.h"
#include "schedule/frmSchedEdit.h"
#include "support/form_driver.h"

namespace vantor::test {
namespace {

class ScheduleEditorTest : public Fixture {
  protected:
    void SetUp() override {
        useHost(&qtHost);
        for (const char* const icao : {"AAAA", "BBBB", "CCCC", "DDDD"}) {
            addAirport(icao, "Town");
        }
        addAircraft("AC#1", "Jet");
        addAircraft("AC#12", "Prop");
        addAircraft("AC#123", "Glider");
        addSchedule("AC#12,G-ONE,50%,24HR,VFR", loopOver({"AAAA", "BBBB", "CCCC"})); // C-A A-B B-C
    }

    void TearDown() override { editor.reset(); }

    // Opens the editor and works it.
    void open(std::int32_t recnum = 1, std::initializer_list<std::string_view> steps = {}) {
        const EditorRows rows{aircraftRows(true), airportRows()};
        editor = std::make_unique<frmSchedEdit>(nullptr, schedules.HashGetSlot(recnum), rows);
        editor->show();
        play(*editor, steps);
    }
    void user(std::initializer_list<std::string_view> steps) { play(*editor, steps); }
    // After OK: what goes back.
    ScheduleRec accepted() {
        user({"cmdOK"});
        EXPECT_FALSE(editor->isVisible());
        return edited();
    }
    [[nodiscard]] ScheduleRec edited() const { return editor->edited().value(); }
    template <class Widget>
    Widget& at(std::string_view name) {
        return control<Widget>(*editor, name);
    }
    std::string combo(std::string_view name) { return at<ComboBox>(name).text(); }
    std::string field(std::string_view name) { return fromQString(at<QLineEdit>(name).text()); }

    // The list, its current row marked: "CCCC-AAAA *AAAA-BBBB".
    std::string legs() {
        const auto& list = at<ListBox>("List1");
        std::string text;
        for (int row = 0; row < list.rowCount(); ++row) {
            text += (row == 0 ? "" : " ") + std::string(row == list.currentRow() ? "*" : "") +
                    replaceAll(list.rowText(row), " - ", "-");
        }
        return text;
    }
    // What the frame of the leg shows: airports; departure with its day, arrival with its day and mark; level, number,
    // touch and go, distance. A day that can't be picked is "-".
    std::string frame() {
        std::string text = combo("cmbAirport0").substr(0, 4) + "-" + combo("cmbAirport1").substr(0, 4) + " ";
        text += (at<ComboBox>("cmbDay0").isEnabled() ? combo("cmbDay0") : "-") + "/" + field("txtTime") + " ";
        text += (at<ComboBox>("cmbDay1").isVisible() ? combo("cmbDay1") : "-") + "/";
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

TEST_F(ScheduleEditorTest, ShowsTheScheduleAndItsLegs) {
    changeSchedule(1, [](ScheduleRec& record) {
        record.legs[1].dep = "22:30:15";
        record.legs[1].flighthours = 24;
        record.legs[1].tng = true;
    });
    gmtoffset = 0.25F;
    open();
    EXPECT_EQ(combo("cmbAircraft"), "AC#12 - Prop"); // and not AC#123, nor row 0
    EXPECT_EQ(field("txtRego") + " " + field("txtPercent") + " " + combo("cmbRepeat"), "G-ONE 50 24h");
    EXPECT_TRUE(at<QRadioButton>("optVFR").isChecked());
    EXPECT_EQ(at<QLabel>("lblGMT").text(), QStringLiteral("(GMT+6)"));
    EXPECT_EQ(legs(), "*CCCC-AAAA AAAA-BBBB BBBB-CCCC");
    EXPECT_EQ(frame(), "CCCC-AAAA -/04:30:15 -/18:00:00 200 F1 TNG 100 NM");
    EXPECT_EQ(warning(), "#c00000 This leg is over 24 hours long!");
    user({"List1:1"});
    EXPECT_EQ(frame(), "AAAA-BBBB -/18:00:00 -/18:00:00 200 F1 100 NM");
    EXPECT_EQ(warning(), "#008000 ");
}

TEST_F(ScheduleEditorTest, OkHandsBackEveryFieldAndItCancelsInFourWays) {
    open(1, {"cmbAircraft:2", "txtRego=1234567890123", "txtPercent=1000", "optIFR", "txtTime=9:05", "txtAltitude=310",
             "txtFlightNum=77", "chkTNG", "chkUseRego"});
    EXPECT_EQ(frame(), "CCCC-AAAA -/9:05 -/12:00:00 310 R77 TNG 100 NM");
    pressKey(at<QLineEdit>("txtAltitude"), Qt::Key_Return); // OK is the default button
    ASSERT_FALSE(editor->isVisible());
    // Legs that were never visited are never computed.
    EXPECT_EQ(textOf(edited()), "1 AC#123 123456789012 1000 24h IFR"
                                " | CCCC-AAAA -1/09:05:00 TNG0/09:21:00 310 R77 0nm 0.00h 1001"
                                " | AAAA-BBBB -1/12:00:00 0/12:00:00 200 F1 100nm 0.00h 1002"
                                " | BBBB-CCCC -1/12:00:00 0/12:00:00 200 F1 100nm 0.00h 1003");
    for (const auto& leave : std::vector<std::function<void()>>{
             [&] { user({"cmdCancel"}); },
             [&] { pressKey(at<QPushButton>("cmdCancel"), Qt::Key_Return); }, // Enter presses the button it stands on
             [&] { pressKey(at<QLineEdit>("txtTime"), Qt::Key_Escape); }, [&] { editor->close(); }}) {
        open(1, {"txtTime=bad"});
        leave();
        EXPECT_FALSE(editor->isVisible());
        EXPECT_FALSE(editor->edited());
    }
}

TEST_F(ScheduleEditorTest, AnAirportIsPickedFoundOrCompletedAndItsNeighbourFollows) {
    open(1, {"List1:1", "cmbAirport0:3"});
    const auto dialogs = expectDialog("frmFind", [](QDialog& dialog) {
        play(dialog, {"txtSearchString=aaaa", "cmdFirst", "cmdOK"});
    });
    user({"cmdFind2"}); // moves the box of the destinations
    EXPECT_EQ(legs(), "CCCC-DDDD *DDDD-AAAA AAAA-CCCC");
    EXPECT_EQ(frame(), "DDDD-AAAA -/12:00:00 -/12:16:00 200 F1 0 NM");
    user({"cmbAirport1=BBBB - Town"}); // typing reaches no leg
    EXPECT_EQ(at<ComboBox>("cmbAirport1").toolTip(), QStringLiteral("Pick a row of the list"));
    EXPECT_EQ(legs(), "CCCC-DDDD *DDDD-AAAA AAAA-CCCC");
    QAbstractItemView& completions = *at<ComboBox>("cmbAirport1").findChild<QCompleter*>()->popup();
    pressKey(completions, Qt::Key_Down);
    pressKey(completions, Qt::Key_Return);
    EXPECT_EQ(legs(), "CCCC-DDDD *DDDD-BBBB BBBB-CCCC");
    EXPECT_EQ(at<ComboBox>("cmbAirport1").toolTip(), QString());
    EXPECT_EQ(newestAction(), "");
}

TEST_F(ScheduleEditorTest, LegsAreAddedInsertedAndDeletedWithTheirOffsets) {
    addSchedule("AC#1,ONE,100%,6Hr,IFR", {makeLeg("AAAA", "BBBB", "08:00:00")});
    open(2, {"txtAltitude=111", "cmdAddLeg"});
    // Setting the row again is a click, which stores the leg that was shown.
    EXPECT_EQ(legs(), "*AAAA-BBBB BBBB-AAAA");
    EXPECT_TRUE(at<ListBox>("List1").hasFocus());
    EXPECT_EQ(edited().legs[1].flightlevel, 111);
    user({"cmdInsertLeg"}); // the store of the old leg 1 hits the new one, which now has that number
    EXPECT_EQ(legs(), "*AAAA-AAAA AAAA-BBBB BBBB-AAAA");
    EXPECT_EQ(edited().period.text(), "6Hr"); // the default row is no change and no click

    addSchedule("AC#1,ONE,100%,6h,IFR", loopOver({"AAAA", "BBBB", "CCCC", "DDDD"})); // D-A A-B B-C C-D
    open(3, {"List1:3", "cmdDeleteLeg"});
    EXPECT_EQ(legs(), "DDDD-AAAA AAAA-BBBB *BBBB-CCCC");
    EXPECT_EQ(frame().substr(0, 9), "AAAA-BBBB"); // leg 2, two above the one deleted
    EXPECT_TRUE(at<ListBox>("List1").hasFocus());
    user({"List1:1", "cmdDeleteLeg"});
    EXPECT_EQ(legs(), "*DDDD-AAAA BBBB-CCCC");
    // Leg 0: a blank code is the start of the first row, and times that are none leave what stood there.
    EXPECT_EQ(frame(), "AAAA-AAAA -/12:00:00 -/12:16:00 0 F 0 NM");
    user({"cmdDeleteLeg"});
    EXPECT_EQ(legs(), "*BBBB-CCCC");
    user({"cmbAirport1:3"}); // without a current leg a destination goes to leg 0 and to the start of leg 1
    EXPECT_EQ(legs(), "*DDDD-CCCC");
    user({"cmdDeleteLeg"});
    EXPECT_EQ(legs(), "");
    EXPECT_EQ(frame().substr(0, 9), "AAAA-AAAA"); // leg 0 is blank again
    EXPECT_EQ(accepted().legcount, 0);
}

TEST_F(ScheduleEditorTest, ABadTimeKeepsTheLegInTheFrame) {
    const std::string message(invalidTimeText);
    const auto boxes = answerBoxes({{message}, {message}, {message}});
    open(1, {"txtTime=abc", "txtRego=NEW", "List1:2"});
    EXPECT_EQ(legs(), "CCCC-AAAA AAAA-BBBB *BBBB-CCCC");
    EXPECT_EQ(frame(), "CCCC-AAAA -/abc -/12:00:00 200 F1 100 NM");
    user({"cmdOK", "txtTime=1:00", "txtAltitude=high", "cmdOK"}); // a level has no words of its own
    EXPECT_TRUE(editor->isVisible());
    EXPECT_EQ(field("txtRego") + " " + frame(), "NEW CCCC-AAAA -/1:00 -/12:00:00 high F1 100 NM");
    user({"txtAltitude=99", "List1:1"});
    EXPECT_EQ(textOf(edited().legs[1]), "CCCC-AAAA -1/01:00:00 0/01:16:00 99 F1 0nm 0.00h 1001");
    EXPECT_EQ(frame().substr(0, 9), "AAAA-BBBB");
    accepted();
}

TEST_F(ScheduleEditorTest, AWeeklyScheduleGetsItsDays) {
    open(1, {"cmbRepeat:7", "chkFix", "cmbDay1:3", "txtETA=23:45", "txtTime=x"});
    EXPECT_TRUE(at<QLabel>("lblDay2").isVisible());
    const auto boxes = answerBoxes({{std::string(invalidTimeText)}});
    user({"List1:1"}); // the departure without a day jumps to Sunday, whatever the time
    EXPECT_EQ(combo("cmbDay0"), "Sun");
    user({"txtTime=12:00", "List1:1"});
    EXPECT_EQ(textOf(edited().legs[1]), "CCCC-AAAA 0/12:00:00 @2/23:45:00 200 F1 0nm 0.00h 1001");
    EXPECT_FALSE(at<ComboBox>("cmbDay1").isVisible());
    pressKey(at<ListBox>("List1"), Qt::Key_Up);
    EXPECT_EQ(frame(), "CCCC-AAAA Sun/12:00:00 Tue/@23:45:00 200 F1 0 NM");
    EXPECT_TRUE(at<ComboBox>("cmbDay1").isEnabled());
    user({"cmbRepeat:3"});
    EXPECT_FALSE(edited().weekly);
    EXPECT_FALSE(at<ComboBox>("cmbDay0").isEnabled());
    EXPECT_EQ(edited().legs[1].arrday, 2); // days of legs not visited again stay
}

// What OK hands back must be a line of the file that can be read again.
TEST_F(ScheduleEditorTest, LegsThatWereNeverShownAreCompleteAndFieldsTakeNothingThatWouldPartTheLine) {
    markDeleted(2);
    open(1, {"cmbRepeat:7"});
    const ScheduleRec weekly = accepted();
    EXPECT_EQ(weekly.acnum.text(), "AC#1"); // a deleted aircraft gives way to the first row
    EXPECT_EQ(weekly.percent.text(), "50%");
    for (const LegRec& leg : weekly.legs) {
        EXPECT_EQ(leg.depday, 0) << leg.fromicao.text();
    }
    open(1, {"List1:0", "cmdDeleteLeg", "List1:0", "cmdDeleteLeg", "List1:0", "cmdDeleteLeg"});
    user({"cmdAddLeg", "cmdAddLeg"}); // they take after no leg at all
    for (const ScheduleRec anew = accepted(); const LegRec& leg : anew.legs) {
        EXPECT_FALSE(leg.dep.text().empty());
    }
    open(1, {"txtRego=G,-/A;//B/", "txtPercent=,7;5//", "txtFlightNum=1;2,3/4"});
    QApplication::clipboard()->setText(QStringLiteral("X\r\nY"));
    pressKey(at<QLineEdit>("txtFlightNum"), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field("txtRego") + " " + field("txtPercent") + " " + field("txtFlightNum"), "G-/A/B/ 75/ 123/4");
}

} // namespace
} // namespace vantor::test
