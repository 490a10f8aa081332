// Explorer: the window, its filter and its pages, by keys and clicks.
#include "core/undo.h"
#include "explorer/frmChecks.h"
#include "explorer/frmExplorer.h"
#include "explorer/frmFlightsModel.h"
#include "support/main_window.h"

namespace vantor::test {
namespace {

class ExplorerFormTest : public MainWindowFixture {
  protected:
    void SetUp() override {
        MainWindowFixture::SetUp();
        form().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form()));
        pressKey(form(), Qt::Key_T, Qt::ControlModifier);
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            m_explorer = m_explorer != nullptr ? m_explorer : qobject_cast<frmExplorer*>(widget);
        }
        ASSERT_NE(m_explorer, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_explorer));
        m_tester = std::make_unique<QAbstractItemModelTester>(table().model(),
                                                              QAbstractItemModelTester::FailureReportingMode::Fatal);
    }
    void TearDown() override {
        m_tester.reset();
        MainWindowFixture::TearDown();
    }

    template <class Widget>
    [[nodiscard]] Widget& of(std::string_view name) const {
        return control<Widget>(*m_explorer, name);
    }
    [[nodiscard]] QTableView& table() const { return of<QTableView>("tblFlights"); }
    [[nodiscard]] static std::string textsOf(const QAbstractItemModel& model, LegColumn column) {
        std::string text;
        for (int row = 0; row < model.rowCount(); ++row) {
            text += fromQString(model.index(row, static_cast<int>(column)).data().toString()) + "|";
        }
        return text;
    }
    [[nodiscard]] std::string column(LegColumn column) const { return textsOf(*table().model(), column); }
    void filter(std::string_view text) const { typeOver(of<QLineEdit>("txtFilter"), text); }

    frmExplorer* m_explorer = nullptr;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

TEST_F(ExplorerFormTest, FilterNarrowsAsItIsTypedAndEscClearsIt) {
    EXPECT_EQ(column(LegColumn::To), "LFPG|EGLL|EGSS|LFPG|LFPG|EGLL|EGLL|EGKK|");
    filter("from:lfpg ac:2");
    EXPECT_EQ(column(LegColumn::CallSign), "GBBB|GCCC|");
    EXPECT_EQ(fromQString(of<QLabel>("lblCount").text()), "2 legs");
    const QList<QToolButton*> chips = of<QWidget>("terms").findChildren<QToolButton*>();
    ASSERT_EQ(chips.size(), 2);
    click(*chips[1]);
    EXPECT_EQ(fromQString(of<QLineEdit>("txtFilter").text()), "from:lfpg");
    EXPECT_EQ(table().model()->rowCount(), 3);
    pressKey(of<QLineEdit>("txtFilter"), Qt::Key_Down); // into the table, whose Esc goes for the whole window
    EXPECT_TRUE(table().hasFocus());
    pressKey(table(), Qt::Key_Escape);
    EXPECT_EQ(table().model()->rowCount(), 8);
    EXPECT_TRUE(of<QLineEdit>("txtFilter").hasFocus());
}

TEST_F(ExplorerFormTest, HeaderSortsAndFoldingListsSchedules) {
    QHeaderView& header = *table().horizontalHeader();
    const auto clickHeader = [&](LegColumn column) {
        const int section = static_cast<int>(column);
        const QPoint at(header.sectionViewportPosition(section) + 10, header.height() / 2);
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, at);
    };
    clickHeader(LegColumn::From);
    EXPECT_EQ(column(LegColumn::From), "EGKK|EGLL|EGLL|EGLL|EGSS|LFPG|LFPG|LFPG|");
    clickHeader(LegColumn::From);
    EXPECT_EQ(column(LegColumn::From), "LFPG|LFPG|LFPG|EGSS|EGLL|EGLL|EGLL|EGKK|");
    filter("at:egss");
    EXPECT_EQ(column(LegColumn::From), "LFPG|EGSS|");
    click(of<QCheckBox>("chkFold"));
    EXPECT_EQ(column(LegColumn::To), "EGSS LFPG|");
    EXPECT_EQ(column(LegColumn::Flight), "2 legs|");
}

TEST_F(ExplorerFormTest, RowsGoToTheClipboardAndIntoAFile) {
    filter("at:egkk");
    pressKey(of<QLineEdit>("txtFilter"), Qt::Key_Down);
    pressKey(table(), Qt::Key_C, Qt::ControlModifier);
    const std::string copied = fromQString(QGuiApplication::clipboard()->text());
    EXPECT_EQ(copied.substr(copied.find('\n') + 1),
              "AC#3 - \"Airbus\"\tGDDD\t1\tEGKK\tEGLL\t06:00\t07:00\t\t22\t200\t24HR\t100%\tIFR\t\r\n");
    const Expectation dialog =
        expectDialog("fileDialog", [&](QDialog& chooser) { enterFileName(chooser, QStringLiteral("list.csv")); });
    click(*m_explorer, "cmdExport");
    EXPECT_TRUE(readFile("list.csv")
                    .starts_with("Aircraft,Call sign,Flight,From,To,Departure,Arrival,Days,NM,Level,"
                                 "Repeat,Percent,Rules,Status\r\n\"AC#3 - \"\"Airbus\"\"\",GDDD,1,EGKK,"));
}

TEST_F(ExplorerFormTest, CommandsChangeTheSelectedRowsAndAreUndone) {
    filter("tail:gbbb");
    pressKey(of<QLineEdit>("txtFilter"), Qt::Key_Down);
    pressKey(table(), Qt::Key_Delete);
    EXPECT_TRUE(schedules.peek(2).legs[1].deleted);
    EXPECT_TRUE(form().workspace().unsavedchanges);
    EXPECT_TRUE(waitFor([&] { return column(LegColumn::Status) == "deleted, missing aircraft|missing aircraft|"; }));
    EXPECT_EQ(table().currentIndex().row(), 0);
    EXPECT_EQ(undoName(), "Delete 1 leg");
    pressKey(table(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(waitFor([&] { return column(LegColumn::Status) == "missing aircraft|missing aircraft|"; }));

    pressKey(table(), Qt::Key_Down);
    {
        const Expectation editor = expectDialog("frmSchedEdit", [&](QDialog& dialog) {
            EXPECT_EQ(control<ListBox>(dialog, "List1").currentRow(), 1); // on that leg
            dialog.reject();
        });
        pressKey(table(), Qt::Key_Return);
    }
    click(*m_explorer, "cmdCopy");
    EXPECT_EQ(schedulecount, 5);
    EXPECT_TRUE(waitFor([&] { return table().model()->rowCount() == 4; }));
    const Expectation chooser = expectDialog("frmAircraftSub", [&](QDialog& dialog) { dialog.reject(); });
    click(*m_explorer, "cmdSwap");
}

TEST_F(ExplorerFormTest, ChecksListWhatTheFilterLeaves) {
    auto& page = *m_explorer->findChild<frmChecks*>();
    of<QTabWidget>("tabs").setCurrentWidget(&page);
    const auto& list = of<QListWidget>("lstKinds");
    auto& findings = *of<QTableView>("tblFindings").model();
    QAbstractItemModelTester tester(&findings, QAbstractItemModelTester::FailureReportingMode::Fatal);
    click(*m_explorer, "cmdCheck");
    ASSERT_TRUE(waitFor([&] { return page.isChecked(); }));
    EXPECT_EQ(fromQString(list.currentItem()->text()), "Aircraft missing from the simulator  (2)");
    ASSERT_EQ(findings.rowCount(), 2);
    EXPECT_EQ(fromQString(findings.index(1, 3).data().toString()), "The simulator has no \"Gone\"");
    filter("tail:gccc");
    EXPECT_EQ(findings.rowCount(), 1);
    const Expectation editor = expectDialog("frmSchedEdit", [&](QDialog& dialog) {
        EXPECT_EQ(fromQString(control<QLineEdit>(dialog, "txtRego").text()), "GCCC");
        dialog.reject();
    });
    of<QTableView>("tblFindings").selectRow(0);
    of<QTableView>("tblFindings").setFocus();
    pressKey(of<QTableView>("tblFindings"), Qt::Key_Return);
    const Expectation dialog =
        expectDialog("fileDialog", [&](QDialog& chooser) { enterFileName(chooser, QStringLiteral("report.txt")); });
    click(*m_explorer, "cmdSaveReport");
    EXPECT_TRUE(contains(readFile("report.txt"), "Aircraft missing from the simulator (2)\r\n  2  AC#2 GBBB  The"));
}

} // namespace
} // namespace vantor::test
