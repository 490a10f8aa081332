// Tests of the dialog for picking an aircraft, driven by real clicks and keys.
#include "simulator/frmAircraftSub.h"
#include "support/form_driver.h"

namespace vantor::test {
namespace {

// Lets the user work in the dialog and gives the two answers.
std::string answers(const std::function<void(QDialog&, ListBox&, QLineEdit&)>& user) {
    QtHost host;
    useHost(&host);
    const Expectation dialog = expectDialog("frmAircraftSub", [&](QDialog& form) {
        user(form, control<ListBox>(form, "List1"), control<QLineEdit>(form, "txtFilter"));
    });
    const auto chosen =
        chooseAircraft(nullptr, "AC#9 - \"Gone & lost\"",
                       {{"AC#1 - \"Boeing 737\"", 1}, {"AC#2 - \"Airbus\"", 2}, {"AC#3 - \"BOEING 747\"", 3}});
    useHost(nullptr);
    return chosen ? chosen->substitutetext + "|" + chosen->row : "none";
}

using FrmAircraftSub = Fixture;

TEST_F(FrmAircraftSub, FiltersKeepsWhatIsPickedAndAsksForARow) {
    EXPECT_EQ(answers([](QDialog& form, ListBox& list, QLineEdit& filter) {
                  const std::string all = "AC#1 - \"Boeing 737\"|AC#2 - \"Airbus\"|AC#3 - \"BOEING 747\"||";
                  EXPECT_EQ(rowsOf(list.rows()), all);
                  EXPECT_EQ(fromQString(control<QLabel>(form, "lblCurrent").text()), "AC#9 - \"Gone & lost\"");
                  EXPECT_EQ(form.focusWidget(), &filter);
                  typeOver(filter, "boeing");
                  EXPECT_EQ(rowsOf(list.rows()), "AC#1 - \"Boeing 737\"|AC#3 - \"BOEING 747\"|");
                  click(form, "cmdClear");
                  EXPECT_EQ(rowsOf(list.rows()), all);
                  filter.setText(QStringLiteral("air")); // as code or a paste by the mouse may leave it
                  click(form, "cmdApply");
                  EXPECT_EQ(rowsOf(list.rows()), "AC#2 - \"Airbus\"|");
                  const Expectation boxes = answerBoxes({{"Please click a substitute aircraft in the list box"}});
                  click(form, "cmdOK");
                  EXPECT_TRUE(form.isVisible());
                  clickRow(list, 0);
                  click(form, "cmdClear"); // it stays picked while it is listed
                  EXPECT_EQ(list.currentRow(), 1);
                  typeOver(filter, "airb");
                  click(form, "cmdOK");
              }),
              "AC#9 - \"Airbus\"|AC#2 - \"Airbus\"");
}

TEST_F(FrmAircraftSub, EachWayOutGivesItsAnswer) {
    using User = std::function<void(QDialog&, ListBox&, QLineEdit&)>;
    for (const auto& [user, answer] : std::vector<std::pair<User, std::string>>{
             {[](QDialog&, ListBox&list, QLineEdit&) { doubleClickRow(list, 1); },
              "AC#9 - \"Airbus\"|AC#2 - \"Airbus\""},
             {[](QDialog&form, ListBox&list, QLineEdit&filter) { // keys alone
                  typeOver(filter, "boeing");
                  pressKey(filter, Qt::Key_Return);
                  EXPECT_EQ(form.focusWidget(), &list);
                  pressKey(list, Qt::Key_Down);
                  pressKey(list, Qt::Key_Return);
              },
              "AC#9 - \"BOEING 747\"|AC#3 - \"BOEING 747\""},
             {[](QDialog&form, ListBox&list, QLineEdit&) {
                  clickRow(list, 3); // the closing row
                  click(form, "cmdOK");
              },
              "AC#9 - |"},
             {[](QDialog&form, ListBox&list, QLineEdit&) {
                  clickRow(list, 0);
                  click(form, "cmdCancel");
              },
              "none"},
             {[](QDialog&form, ListBox&, QLineEdit&) { pressKey(form, Qt::Key_Escape); }, "none"},
             {[](QDialog&form, ListBox&, QLineEdit&) { form.close(); }, "none"}}) {
        EXPECT_EQ(answers(user), answer);
    }
}

} // namespace
} // namespace vantor::test
