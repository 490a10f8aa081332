// Tests of looking at schedules and changing them.
// The Find dialog over combo boxes, driven with clicks and keys.
#include "platform/qt_host.h"
#include "schedule/frmFind.h"
#include "support/fixture.h"
#include "support/form_driver.h"

#include <QLineEdit>

#include <gtest/gtest.h>

namespace vantor::test {
namespace {

class FindTest : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        useHost(&qtHost);
        box.setRows({{"KSEA - Seattle"}, {"KPDX - Portland"}, {""}, {"ESSA - Stockholm"}, {"LOWW - Wien"}});
        box.setCurrentRow(1);
        QObject::connect(&box, &ComboBox::rowClicked, [this] { ++clicks; });
        clicks = 0;
    }

    void find(const std::function<void(QDialog&)>& user) {
        const auto dialogs = expectDialog("frmFind", user);
        findstring(box, nullptr);
    }
    static std::string shown(QDialog& dialog) { return control<ComboBox>(dialog, "cmbList").text(); }
    static void sought(QDialog& dialog, std::string_view text) {
        typeOver(control<QLineEdit>(dialog, "txtSearchString"), text);
    }

    QtHost qtHost;
    ComboBox box;
    int clicks = 0;
};

TEST_F(FindTest, FindsFromHitToHitAndMovesTheBox) {
    find([](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Find"));
        EXPECT_EQ(control<ComboBox>(dialog, "cmbList").rowCount(), 6);
        EXPECT_EQ(shown(dialog), "KPDX - Portland");
        sought(dialog, "STO");
        click(dialog, "cmdFirst");
        EXPECT_EQ(shown(dialog), "ESSA - Stockholm");
        const auto boxes = answerBoxes({{"No more matches"}, {"No more matches"}});
        click(dialog, "cmdNext");
        click(dialog, "cmdNext"); // the same rest again
        EXPECT_EQ(shown(dialog), "ESSA - Stockholm");
        sought(dialog, "wien");
        click(dialog, "cmdNext");
        click(dialog, "cmdNext"); // the last real row was the hit: no word
        EXPECT_EQ(shown(dialog), "LOWW - Wien");
        click(dialog, "cmdOK");
    });
    EXPECT_EQ(box.currentRow(), 4);
    EXPECT_EQ(clicks, 1);
}

TEST_F(FindTest, EnterSearchesAndSearchesOn) {
    find([](QDialog& dialog) {
        auto& text = control<QLineEdit>(dialog, "txtSearchString");
        sought(dialog, "s");
        for (const char* const row : {"KSEA - Seattle", "ESSA - Stockholm"}) {
            pressKey(text, Qt::Key_Return);
            EXPECT_EQ(shown(dialog), row);
        }
        sought(dialog, "k");
        pressKey(text, Qt::Key_Return); // another text: from the top
        EXPECT_EQ(shown(dialog), "KSEA - Seattle");
        control<ComboBox>(dialog, "cmbList").setFocus();
        pressKey(control<ComboBox>(dialog, "cmbList"), Qt::Key_Return); // elsewhere OK is the default button
    });
    EXPECT_EQ(box.currentRow(), 0);
}

TEST_F(FindTest, NextBeforeFirstMissesTheFirstRow) {
    find([](QDialog& dialog) {
        sought(dialog, "s");
        click(dialog, "cmdNext");
        EXPECT_EQ(shown(dialog), "ESSA - Stockholm");
        click(dialog, "cmdFirst");
        EXPECT_EQ(shown(dialog), "KSEA - Seattle");
        sought(dialog, ""); // matches all but empty rows
        click(dialog, "cmdNext");
        EXPECT_EQ(shown(dialog), "KPDX - Portland");
        click(dialog, "cmdNext");
        EXPECT_EQ(shown(dialog), "ESSA - Stockholm");
        click(dialog, "cmdExit");
    });
    EXPECT_EQ(box.currentRow(), 1);
    EXPECT_EQ(clicks, 0);
}

TEST_F(FindTest, OkTakesTheRowThatStandsThereAndAllOtherWaysLeaveNone) {
    find([](QDialog& dialog) { click(dialog, "cmdOK"); });
    EXPECT_EQ(clicks, 0); // the same row is no click
    for (const auto& leave : std::vector<std::function<void(QDialog&)>>{
             [](QDialog& dialog) { pressKey(dialog, Qt::Key_Escape); }, [](QDialog& dialog) { dialog.close(); }}) {
        find([&](QDialog& dialog) {
            pickRow(control<ComboBox>(dialog, "cmbList"), 4);
            leave(dialog);
        });
        EXPECT_EQ(box.currentRow(), 1);
    }
    find([](QDialog& dialog) {
        pickRow(control<ComboBox>(dialog, "cmbList"), 3); // by hand
        click(dialog, "cmdOK");
    });
    EXPECT_EQ(box.currentRow(), 3);
    box.setCurrentRow(-1); // without a current row the dialog starts on the first
    find([](QDialog& dialog) { click(dialog, "cmdOK"); });
    EXPECT_EQ(box.currentRow(), 0);
}

} // namespace
} // namespace vantor::test
