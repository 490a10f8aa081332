// Undo and Redo by their keys, with what the window shows afterwards.
#include "support/main_window.h"

namespace vantor::test {
namespace {

class UndoCommandsTest : public MainWindowFixture {
  protected:
    void key(Qt::Key key) {
        form().activateWindow(); // keys of a window work in the active one
        ASSERT_TRUE(waitFor([this] { return form().isActiveWindow(); }));
        pressKey(form(), key, Qt::ControlModifier);
    }
    [[nodiscard]] bool unsaved() const { return form().workspace().unsavedchanges; }
    [[nodiscard]] std::string names() const { return undoName() + "/" + redoName(); }
};

TEST_F(UndoCommandsTest, TakesSchedulesBackAndShowsThem) {
    press("cmdListall");
    clickRow(list("List1"), 1);
    clickRow(list("List1"), 3, Qt::ControlModifier);
    press("cmdDeleteSchedule");
    EXPECT_EQ(names(), "Delete 2 schedules/");
    clickRow(list("List1"), 0);
    key(Qt::Key_Z);
    EXPECT_EQ(names(), "/Delete 2 schedules");
    EXPECT_FALSE(unsaved()) << "it is what was loaded";
    EXPECT_EQ(list("List1").selectedRowCount(), 2);
    EXPECT_EQ(list("List1").currentText(), "AC#2 - \"Gone\" GBBB (IFR,2 legs)");
    EXPECT_EQ(list("List2").itemData(0), 2001) << "the legs of the first of them";
    key(Qt::Key_Y);
    EXPECT_TRUE(unsaved());
    EXPECT_TRUE(schedules.peek(4).deleted);
    saveAndReload();
    EXPECT_EQ(names(), "/") << "a load empties the journal";
}

TEST_F(UndoCommandsTest, TakesAircraftBackWithTheirBoxes) {
    for (std::int32_t row = 1; row <= aircraftcount; ++row) { // as behind a load that broke off
        AircraftRec record = aircraft[row];
        record.missing = false;
        aircraft.put(row, record);
    }
    const std::string missing = rowsOf(list("List3").rows());
    const std::string offered = rowsOf(combo("cmbAC").rows());
    combo("cmbAC").setText("AC#5 - \"Lost\"");
    press("cmdDeleteAC", {{"Are you sure?  This will also delete all schedules for this aircraft.", QMessageBox::Yes}});
    press("cmdAddFS", {{"This will add any new FS Aircraft to AIRCRAFT.TXT.  Are you sure?", QMessageBox::Yes}});
    EXPECT_EQ(names(), "Add 1 aircraft/");
    key(Qt::Key_Z);
    key(Qt::Key_Z);
    EXPECT_EQ(names(), "/Delete AC#5");
    EXPECT_EQ(rowsOf(list("List3").rows()), missing);
    EXPECT_EQ(rowsOf(combo("cmbAC").rows()), offered);
    EXPECT_EQ(aircraftcount, 4);
}

} // namespace
} // namespace vantor::test
