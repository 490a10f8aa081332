// Tests of the dialog for picking an aircraft, driven by real clicks and keys.
#include "platform/code_page.h"
#include "platform/qt_host.h"
#include "simulator/frmAircraftSub.h"
#include "support/fixture.h"
#include "support/form_driver.h"

#include <QLabel>
#include <QLineEdit>

namespace vantor::test {
namespace {

class FrmAircraftSub : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        useHost(&m_host);
    }

    // Shows the dialog, lets the user work in it, and gives the two answers.
    std::string answers(const std::function<void(QDialog&)>& user) {
        const Expectation dialog = expectDialog("frmAircraftSub", user);
        const auto chosen =
            chooseAircraft(nullptr, "AC#9 - \"Gone & lost\"",
                           {{"AC#1 - \"Boeing 737\"", 1}, {"AC#2 - \"Airbus\"", 2}, {"AC#3 - \"BOEING 747\"", 3}});
        return chosen ? chosen->substitutetext + "|" + chosen->row : "none";
    }

    static std::string offered(const QDialog& dialog) { return rowsOf(control<ListBox>(dialog, "List1").rows()); }

  private:
    QtHost m_host;
};

TEST_F(FrmAircraftSub, OffersFiltersAndAsksForARow) {
    EXPECT_EQ(answers([](QDialog& dialog) {
                  const std::string all = offered(dialog);
                  EXPECT_EQ(all, "AC#1 - \"Boeing 737\"|AC#2 - \"Airbus\"|AC#3 - \"BOEING 747\"||");
                  EXPECT_EQ(fromQString(control<QLabel>(dialog, "lblCurrent").text()), "AC#9 - \"Gone & lost\"");
                  EXPECT_FALSE(control<ListBox>(dialog, "List2").isVisible());
                  auto& filter = control<QLineEdit>(dialog, "txtFilter");
                  typeOver(filter, "boeing");
                  EXPECT_EQ(offered(dialog), "AC#1 - \"Boeing 737\"|AC#3 - \"BOEING 747\"|");
                  click(dialog, "cmdClear");
                  EXPECT_TRUE(filter.text().isEmpty());
                  EXPECT_EQ(offered(dialog), all);
                  filter.setText(QStringLiteral("air")); // as code or a paste by the mouse may leave it
                  click(dialog, "cmdApply");
                  EXPECT_EQ(offered(dialog), "AC#2 - \"Airbus\"|");
                  const Expectation boxes = answerBoxes({{"Please click a substitute aircraft in the list box"}});
                  click(dialog, "cmdOK");
                  EXPECT_TRUE(dialog.isVisible());
                  clickRow(control<ListBox>(dialog, "List1"), 0);
                  click(dialog, "cmdClear"); // it stays picked while it is listed
                  EXPECT_EQ(control<ListBox>(dialog, "List1").currentRow(), 1);
                  typeOver(filter, "airb");
                  click(dialog, "cmdOK");
              }),
              "AC#9 - \"Airbus\"|AC#2 - \"Airbus\"");
}

TEST_F(FrmAircraftSub, ADoubleClickAcceptsARowAndSoDoKeysAlone) {
    EXPECT_EQ(answers([](QDialog& dialog) { doubleClickRow(control<ListBox>(dialog, "List1"), 1); }),
              "AC#9 - \"Airbus\"|AC#2 - \"Airbus\"");
    EXPECT_EQ(answers([](QDialog& dialog) {
                  typeOver(control<QLineEdit>(dialog, "txtFilter"), "boeing");
                  pressKey(control<QLineEdit>(dialog, "txtFilter"), Qt::Key_Return);
                  EXPECT_TRUE(dialog.isVisible());
                  auto& list = control<ListBox>(dialog, "List1");
                  EXPECT_EQ(dialog.focusWidget(), &list);
                  pressKey(list, Qt::Key_Down);
                  pressKey(list, Qt::Key_Return);
              }),
              "AC#9 - \"BOEING 747\"|AC#3 - \"BOEING 747\"");
}

TEST_F(FrmAircraftSub, LeavingAnswersNothingAndTheClosingRowAnEmptyTitle) {
    const auto pickAndPress = [](int row, const char* button) {
        return [row, button](QDialog& dialog) {
            clickRow(control<ListBox>(dialog, "List1"), row);
            click(dialog, button);
        };
    };
    EXPECT_EQ(answers(pickAndPress(0, "cmdCancel")), "none");
    EXPECT_EQ(answers([](QDialog& dialog) { pressKey(dialog, Qt::Key_Escape); }), "none");
    EXPECT_EQ(answers([](QDialog& dialog) { dialog.close(); }), "none");
    EXPECT_EQ(answers(pickAndPress(3, "cmdOK")), "AC#9 - |");
}

} // namespace
} // namespace vantor::test
