// The Find dialog over combo boxes, driven with clicks and keys.
#include "schedule/frmFind.h"
#include "support/form_driver.h"

namespace vantor::test {
namespace {

class FindTest : public Fixture {
  protected:
    void SetUp() override {
        useHost(&qtHost);
        box.setRows({{"KSEA - Seattle"}, {"KPDX - Portland"}, {""}, {"ESSA - Stockholm"}, {"LOWW - Wien"}});
        box.setCurrentRow(1);
        QObject::connect(&box, &ComboBox::rowClicked, [this] { ++clicks; });
    }

    // Hands the dialog over `box` to the user, and tells how often that was clicked and where it stands then.
    std::string find(const std::function<void(QDialog&)>& user) {
        clicks = 0;
        const auto dialogs = expectDialog("frmFind", user);
        findstring(box, nullptr);
        return std::to_string(clicks) + ": " + box.text();
    }
    std::string find(std::initializer_list<std::string_view> steps) {
        return find([&](QDialog& dialog) { play(dialog, steps); });
    }
    // Presses a button, or Enter in the text box for "", and gives the row found.
    static std::string found(QDialog& dialog, std::string_view button) {
        if (button.empty()) {
            control<QLineEdit>(dialog, "txtSearchString").setFocus();
            pressKey(control<QLineEdit>(dialog, "txtSearchString"), Qt::Key_Return);
        } else {
            click(dialog, button);
        }
        return control<ComboBox>(dialog, "cmbList").text().substr(0, 4);
    }

    QtHost qtHost;
    ComboBox box;
    int clicks = 0;
};

TEST_F(FindTest, GoesFromHitToHitByButtonsOrEnterAndMovesTheBox) {
    EXPECT_EQ(find([](QDialog& dialog) {
                  EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Find"));
                  EXPECT_EQ(dialog.focusWidget(), &control<QWidget>(dialog, "txtSearchString"));
                  EXPECT_EQ(control<ComboBox>(dialog, "cmbList").rowCount(), 6);
                  play(dialog, {"txtSearchString=s"});
                  EXPECT_EQ(found(dialog, "cmdNext"), "ESSA"); // before any First it misses row 0
                  EXPECT_EQ(found(dialog, "cmdFirst"), "KSEA");
                  EXPECT_EQ(found(dialog, ""), "ESSA");
                  const auto boxes = answerBoxes({{"No more matches"}, {"No more matches"}});
                  EXPECT_EQ(found(dialog, ""), "ESSA");
                  EXPECT_EQ(found(dialog, "cmdNext"), "ESSA"); // the same rest again
                  play(dialog, {"txtSearchString=k"});
                  EXPECT_EQ(found(dialog, ""), "KSEA"); // another text: from the top
                  play(dialog, {"txtSearchString="});   // matches all but empty rows
                  EXPECT_EQ(found(dialog, "cmdNext"), "KPDX");
                  EXPECT_EQ(found(dialog, "cmdNext"), "ESSA");
                  play(dialog, {"txtSearchString=wien"});
                  EXPECT_EQ(found(dialog, "cmdNext"), "LOWW");
                  EXPECT_EQ(found(dialog, "cmdNext"), "LOWW"); // the last real row was the hit: no word
                  control<ComboBox>(dialog, "cmbList").setFocus();
                  pressKey(control<ComboBox>(dialog, "cmbList"), Qt::Key_Return); // elsewhere OK is the default button
              }),
              "1: LOWW - Wien");
}

TEST_F(FindTest, OkTakesTheRowThatStandsThereAndAllOtherWaysLeaveNone) {
    EXPECT_EQ(find({"cmdOK"}), "0: KPDX - Portland"); // the same row is no click
    EXPECT_EQ(find({"txtSearchString=wien", "cmdFirst", "cmdExit"}), "0: KPDX - Portland");
    EXPECT_EQ(find([](QDialog& dialog) { pressKey(dialog, Qt::Key_Escape); }), "0: KPDX - Portland");
    EXPECT_EQ(find([](QDialog& dialog) { dialog.close(); }), "0: KPDX - Portland");
    EXPECT_EQ(find({"cmbList:3", "cmdOK"}), "1: ESSA - Stockholm"); // by hand
    box.setCurrentRow(-1);
    EXPECT_EQ(find({"cmdOK"}), "1: KSEA - Seattle"); // without a current row it starts on the first
}

} // namespace
} // namespace vantor::test
