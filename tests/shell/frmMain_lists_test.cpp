// The main window: its lists, the boxes that choose what they show, and the buttons under them. What rows say and which
// buttons they allow is tested without the window.
#include "schedule/schedule_commands.h"
#include "support/main_window.h"

namespace vantor::test {
namespace {

class ListsTest : public MainWindowFixture {
  protected:
    [[nodiscard]] std::string titles() const {
        return fromQString(control<QGroupBox>(form(), "fraList1").title() + u'|' +
                           control<QGroupBox>(form(), "fraList2").title());
    }
    [[nodiscard]] std::string caption(std::string_view button) const {
        return fromQString(control<QPushButton>(form(), button).text().remove(u'&'));
    }
    /// Presses a button that opens the editor, and ends it by the button `end` behind what `user` does.
    void edit(std::string_view button, std::string_view end, const std::function<void(QDialog&)>& user = {}) const {
        press(button, "frmSchedEdit", [&](QDialog& dialog) {
            if (user) {
                user(dialog);
            }
            click(dialog, end);
        });
    }
    [[nodiscard]] std::string focus() const { return fromQString(form().focusWidget()->objectName()); }
};

TEST_F(ListsTest, ListingsAndClicksOnTheirRows) {
    play({{"cmdListall", "[1] 2 3 4 .||------"}, // no legs until a click
          {"List1:3", "1 2 3 [4] .|[4001] 4002|++++++"},
          {"List1+1", "1 [2] 3 (4) .|[2001] 2002|--++++"},
          {"List1:4", "1 2 3 4 [.]|[2001] 2002|------"}, // the closing row leaves the legs
          {"cmbAC:1", "1 2 3 4 [.]|[2001] 2002|------"},
          {"cmdListACnum", "[2] 3 .||------"},
          {"cmbAC=ac#3", "[2] 3 .||------"},
          {"cmdListACnum", "[4] .||------"},
          {"cmbICAO:0", "[4] .||------"},
          {"cmbICAO:3", "[4] .||------"},
          {"cmdListICAO", "[2] .||------"},
          {"cmbICAO=egll", "[2] .||------"},
          {"cmdListICAO", "[1] 3 4 .||------"},
          {"cmdListUniqueICAO", "[AC#1] AC#2 AC#3 .||------"},
          {"List1:1", "AC#1 [AC#2] AC#3 .|[3001] 3002|----++"}}); // of its four legs those at the airport
    EXPECT_EQ(titles(), "Aircraft which visit EGLL|Flights to/from EGLL by \"Gone\"");
    EXPECT_EQ(combo("cmbAC").text(), "AC#2 - \"Gone\"");
    EXPECT_EQ(box("txtATCAircraft") + box("txtDelByICAO"), "AC#2EGSS") << "neither typing nor a text set is a click";
    EXPECT_EQ(box("txtICAO1") + box("txtSplitICAO") + box("txtSplitIcao1") + box("txtSplitACICAO"), "EGSSEGSSEGSSEGSS");
    play({{"cmdListUniqueAC", "[EGLL] EGSS LFPG .||----++"}, // the legs' buttons stay
          {"List1:1", "EGLL [EGSS] LFPG .|[2001] 2002|------"},
          {"List1:3", "EGLL EGSS LFPG [.]|[2001] 2002|------"}});
    EXPECT_EQ(combo("cmbICAO").text() + box("txtICAO1") + box("txtDelByICAO"), "EGSS - EGSSEGSSEGSS");
}

TEST_F(ListsTest, AFaultOfTheListingIsToldAndHidesTheListsUntilTheNext) {
    changeSchedule(2, [](ScheduleRec& schedule) { schedule.legcount = 3; });
    const std::string fault = "Error 'Subscript out of range' showing leg 3 of schedule 2";
    play({{"cmbICAO=egkk", "||------"},
          {"cmdListICAO", "hidden |hidden |------", {{fault}}},
          {"cmdListall", "[1] 2 3 4 .||------"}});
    EXPECT_EQ(logTexts().back(), fault);
}

TEST_F(ListsTest, SchedulesAreChangedAndTheFocusReturnsToTheirList) {
    play({{"cmdListall", "[1] 2 3 4 .||------"}, {"List1:1", "1 [2] 3 4 .|[2001] 2002|++++++"}});
    const ScheduleRec before = schedules.peek(2);
    edit("cmdEditSchedule", "cmdCancel", [](QDialog& dialog) { click(dialog, "cmdDeleteLeg"); });
    EXPECT_EQ(seen() + focus(), "1 [2] 3 4 .|[2001] 2002|----++List1");
    edit("cmdAddSchedule", "cmdCancel");
    EXPECT_EQ(seen() + focus(), "1 [2] 3 4 .|[2001] 2002|----++List1");
    play({{"List1:1", "1 [2] 3 4 .|[2001] 2002|++++++"}, {"List2:1", "1 [2] 3 4 .|2001 [2002]|++++++"}});
    edit("cmdEditLeg", "cmdCancel",
         [](QDialog& dialog) { EXPECT_EQ(control<ListBox>(dialog, "List1").currentRow(), 1); });
    EXPECT_EQ(seen() + focus(), "*1 [2] 3 4 .|[2001] 2002|++++++List2") << "the flag is set ahead of the editor";
    EXPECT_EQ(schedules.peek(2), before);

    form().workspace().unsavedchanges = false;
    play({{"cmbAC:1", "1 [2] 3 4 .|[2001] 2002|++++++"},
          {"cmdListACnum", "[2] 3 .||----++"},
          {"List1:1", "2 [3] .|[3001] 3002|++++++"}});
    edit("cmdEditSchedule", "cmdOK", [](QDialog& dialog) { typeOver(control<QWidget>(dialog, "txtRego"), "NEW"); });
    EXPECT_EQ(seen() + focus(), "*2 [3] .|[3001] 3002|----++List1");
    EXPECT_EQ(list("List1").currentText(), "AC#2 - \"Gone\" NEW (IFR,2 legs)");
    combo("cmbAC").setCurrentRow(2);
    edit("cmdAddSchedule", "cmdOK", [](QDialog& dialog) {
        EXPECT_EQ(control<ComboBox>(dialog, "cmbAircraft").text(), "AC#3 - \"Airbus\"");
        EXPECT_EQ(control<ListBox>(dialog, "List1").rowText(1), "YPPH - YPEA");
    });
    EXPECT_EQ(seen() + focus(), "*2 [3] .|[4001] 4002|----++List1") << "its legs point at the schedule before";
    EXPECT_EQ(fromQString(control<QGroupBox>(form(), "fraList2").title()), "Legs in flight #5");
}

TEST_F(ListsTest, SchedulesAndLegsAreCopiedAndDeletedBySelection) {
    play({{"cmdListall", "[1] 2 3 4 .||------"},
          {"List1:0", "[1] 2 3 4 .|[1001] 1002|++++++"},
          {"cmdCopy", "*[1] 2 3 4 5 .|[1001] 1002|----++"},
          {"List1:4", "*1 2 3 4 [5] .|[1001] 1002|++++++"}, // the copy's legs stand for the source's
          {"List1:5", "*1 2 3 4 5 [.]|[1001] 1002|------"}});
    control<QPushButton>(form(), "cmdCopy").setEnabled(true); // as the click of a row behind the list's change left it
    control<QPushButton>(form(), "cmdEditSchedule").setEnabled(true);
    play({{"cmdCopy", "*1 2 3 4 5 [.]|[1001] 1002|-+----"}, // what it disables is Edit
          {"List1:0", "*[1] 2 3 4 5 .|[1001] 1002|++++++"},
          {"cmdDeleteSchedule", "*[x1] 2 3 4 5 .|off [1001] 1002|++++++"}});
    EXPECT_EQ(caption("cmdDeleteSchedule") + focus(), "UndeleteList1");
    play({{"List1+1", "*(x1) [2] 3 4 5 .|[2001] 2002|--++++"}, // one deleted and one not: they swap
          {"cmdDeleteSchedule", "*1 [x2] 3 4 5 .|off [2001] 2002|++++++"}});

    changeSchedule(1, [](ScheduleRec& record) { record.legs[2].hashindex = 0; }); // as one added in the editor
    play({{"List1:0", "*[1] x2 3 4 5 .|[1001] FL#2|++++++"}, {"cmdDeleteLeg", "*[1] x2 3 4 5 .|[x1001] FL#2|++++++"}});
    EXPECT_EQ(caption("cmdDeleteLeg") + focus(), "UndeleteList2");
    play({{"List2+1", "*[1] x2 3 4 5 .|(x1001) [FL#2]|++++++"}, // a row without number toggles the one's before it
          {"cmdDeleteLeg", "*[1] x2 3 4 5 .|[x1001] FL#2|++++++"}});
}

TEST_F(ListsTest, EditLegGoesByTheRowAndStopsWhereItsNumberLeadsToNoSchedule) {
    form().lists().displaylist("LFPG", "", true, 0); // aircraft that visit LFPG
    combo("cmbICAO").setCurrentRow(1);
    play({{"List1:1", "AC#1 [AC#2] .|[2001] 2002 3001 3002|------"},
          {"List2:1", "AC#1 [AC#2] .|2001 [2002] 3001 3002|----++"}});
    edit("cmdEditLeg", "cmdCancel", [](QDialog& dialog) {
        // More rows than the schedule has legs: the editor stays on the first leg.
        EXPECT_EQ(control<QLineEdit>(dialog, "txtRego").text(), QStringLiteral("GBBB"));
        EXPECT_EQ(control<ListBox>(dialog, "List1").currentRow(), 0);
    });
    addLegs(loopOver({"EGLL", "LFPG", "EGKK"}));
    form().lists().displaylegs(5, "LFPG");
    ASSERT_EQ(list("List2").itemData(0), 5002); // leg 2 of the schedule stands in row 0
    edit("cmdEditLeg", "cmdOK", [](QDialog& dialog) { typeOver(control<QWidget>(dialog, "txtFlightNum"), "55"); });
    EXPECT_EQ(schedules.peek(5).legs[1].flightnum.text(), "55");

    countDroppedLine();
    countDroppedLine();
    addschedule(caller, defaultschedule("AC#1")); // its legs carry the number of the line before
    play({{"cmdListall", "*[1] 2 3 4 5 6 .||------"},
          {"List1:5", "*1 2 3 4 5 [6] .|[7001] 7002|++++++"},
          {"cmdEditLeg", "*1 2 3 4 5 [6] .|[7001] 7002|++++++"}}); // no dialog
    EXPECT_EQ(schedules.peek(7), ScheduleRec());
}

TEST_F(ListsTest, FindMovesItsBoxAsAClickDoesAndTheViewsShowTheChosenAirport) {
    for (const auto& [button, text] :
         {std::pair{"cmdFind0", "txtSearchString=lost"}, {"cmdFind1", "txtSearchString=egss"}}) {
        press(button, "frmFind", [typed = text](QDialog& dialog) { test::play(dialog, {typed, "cmdFirst", "cmdOK"}); });
    }
    EXPECT_EQ(combo("cmbAC").text() + box("txtATCAircraft"), "AC#5 - \"Lost\"AC#5");
    EXPECT_EQ(combo("cmbICAO").text() + box("txtICAO1"), "EGSS - EGSSEGSS");
    press("cmdChart", "frmChart", [](QDialog& dialog) {
        EXPECT_EQ(control<QLabel>(dialog, "lblTraffic").text(), QStringLiteral("EGSS - EGSS"));
        click(dialog, "cmdExit");
    });
    press("cmdMap", "frmMap", [](QDialog& dialog) {
        EXPECT_EQ(control<ComboBox>(dialog, "cmbAirports").text(), "EGSS - EGSS");
        click(dialog, "cmdExit");
    });
    press("cmdSettings", "frmSettings", [](QDialog& dialog) { click(dialog, "cmdCancel"); });
}

} // namespace
} // namespace vantor::test
