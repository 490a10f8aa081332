// The list box: what counts as a click, by mouse, by key and by code, what is selected when it is told, and how that
// looks. The colours that carry a meaning.
#include "platform/colours.h"
#include "support/form_driver.h"

namespace vantor {
namespace {

using test::clickRow;
using test::pressKey;

ListRows numberedRows(int count) {
    ListRows rows;
    for (int i = 0; i < count; ++i) {
        rows.push_back({"row " + std::to_string(i), 100 + i});
    }
    return rows;
}

// A list of eight rows in a dialog with a default button.
class ListBoxTest : public testing::Test {
  protected:
    ListBoxTest() {
        auto* layout = new QVBoxLayout(&dialog);
        layout->addWidget(&list);
        layout->addWidget(&button);
        button.setDefault(true);
        list.setFixedSize(220, 300);
        list.setRows(numberedRows(8));
        dialog.show();
        dialog.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        QObject::connect(&button, &QPushButton::clicked, &button, [this] { ++presses; });
        QObject::connect(&list, &ListBox::rowClicked, &list, [this] {
            ++clicks;
            atClick = state();
        });
    }
    ~ListBoxTest() override {
        list.setParent(nullptr);
        button.setParent(nullptr);
    }

    // The current row and those selected, as in "4 of 2 4".
    [[nodiscard]] std::string state() const {
        std::string text = std::to_string(list.currentRow()) + " of";
        for (int row = 0; row < list.rowCount(); ++row) {
            text += list.isRowSelected(row) ? " " + std::to_string(row) : "";
        }
        return text;
    }

    // A step, and the clicks told with the state that stood already then; without a click, the state.
    struct Step {
        std::function<void()> act;
        const char* told;
    };
    void walk(std::initializer_list<Step> steps) {
        int number = 0;
        for (const Step& step : steps) {
            clicks = 0;
            step.act();
            EXPECT_EQ(std::to_string(clicks) + ": " + state(), step.told) << "step " << number;
            EXPECT_TRUE(clicks == 0 || atClick == state()) << "step " << number << " told at " << atClick;
            ++number;
        }
    }
    auto set(int row) {
        return [this, row] { list.setCurrentRow(row); };
    }
    auto select(int row) {
        return [this, row] { list.selectRow(row); };
    }
    auto remove(int row) {
        return [this, row] { list.removeRow(row); };
    }
    auto mode(QAbstractItemView::SelectionMode mode) {
        return [this, mode] { list.setSelectionMode(mode); };
    }
    auto click(int row, Qt::KeyboardModifiers with = {}) {
        return [=, this] { clickRow(list, row, with); };
    }
    auto key(Qt::Key key, Qt::KeyboardModifiers with = {}) {
        return [=, this] { pressKey(list, key, with); };
    }
    [[nodiscard]] QRect place(int row) const { return list.visualRect(list.model()->index(row, 0)); }

    QDialog dialog;
    ListBox list;
    QPushButton button;
    int clicks = 0;
    int presses = 0;
    std::string atClick;
};

TEST_F(ListBoxTest, CodeClicksOnlyWhenTheCurrentRowChanges) {
    const QAbstractItemModelTester tester(list.model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(list.currentText() + std::to_string(list.currentItemData()), "0");
    list.addRow("Z\xFCrich", 7);
    walk({{set(8), "1: 8 of 8"},
          {set(8), "0: 8 of 8"},
          {set(4), "1: 4 of 4 8"}, // joins those selected before
          {set(9), "0: 4 of 4 8"},
          {set(-2), "0: 4 of 4 8"},
          {set(-1), "0: -1 of 4 8"},
          {select(4), "1: 4 of 4"},
          {select(4), "1: 4 of 4"},
          {select(9), "0: 4 of 4"},
          {mode(QAbstractItemView::SingleSelection), "0: 4 of 4"},
          {set(1), "1: 1 of 1"},
          {set(3), "1: 3 of 3"},
          {set(-1), "0: -1 of"},
          {[&] { list.setEnabled(false); }, "0: -1 of"}, // it still shows a current row
          {set(0), "1: 0 of 0"},
          {remove(0), "0: -1 of"},
          {mode(QAbstractItemView::ExtendedSelection), "0: -1 of"},
          {set(3), "1: 3 of 3"},
          {remove(1), "0: 2 of 2"},
          {remove(2), "0: -1 of"},
          {remove(99), "0: -1 of"},
          {set(5), "1: 5 of 5"}});
    EXPECT_EQ(list.currentText() + std::to_string(list.currentItemData()), "Z\xFCrich" + std::to_string(7));
    EXPECT_EQ(list.rowText(6) + std::to_string(list.itemData(6)), "0");
    walk({{[&] { list.setRows(numberedRows(500)); }, "0: -1 of"},
          {set(400), "1: 400 of 400"},
          {[&] { list.setRows(numberedRows(300)); }, "0: -1 of"}});
    EXPECT_EQ(list.verticalScrollBar()->value(), 0);
    walk({{set(0), "1: 0 of 0"}, // row 0 of the new rows is another row
          {[&] { list.clear(); }, "0: -1 of"}});
}

TEST_F(ListBoxTest, MouseAndKeysCountOncePerAction) {
    const QPoint below(20, place(7).bottom() + 20);
    walk({{click(2), "1: 2 of 2"},
          {click(2), "1: 2 of 2"},
          {click(4, Qt::ShiftModifier), "1: 4 of 2 3 4"},
          {click(3, Qt::ControlModifier), "1: 3 of 2 4"},
          {click(4), "1: 4 of 4"}, // alone at once
          {[&] { QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, below); }, "0: 4 of 4"},
          {[&] { QTest::mousePress(list.viewport(), Qt::LeftButton, {}, place(1).center()); }, "1: 1 of 1"}});
    // QTest's own move carries no pressed button on this platform.
    for (const int row : {2, 3}) {
        const QPoint at = place(row).center();
        QMouseEvent move(QEvent::MouseMove, at, list.viewport()->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(list.viewport(), &move);
    }
    walk({{[&] { QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, place(3).center()); }, "1: 3 of 1 2 3"},
          {[&] { list.setRows(numberedRows(8)); }, "0: -1 of"},
          {[&] { button.setFocus(); }, "0: -1 of"},
          {[&] { pressKey(button, Qt::Key_Tab); }, "0: -1 of"}, // the focus alone picks none
          {key(Qt::Key_Down), "1: 0 of 0"},
          {key(Qt::Key_Up), "0: 0 of 0"},
          {key(Qt::Key_End), "1: 7 of 7"},
          {key(Qt::Key_Home, Qt::ShiftModifier), "1: 0 of 0 1 2 3 4 5 6 7"},
          {key(Qt::Key_PageDown), "1: 7 of 7"},
          {key(Qt::Key_A, Qt::ControlModifier), "1: 7 of 0 1 2 3 4 5 6 7"}});
    EXPECT_TRUE(list.hasFocus());
    QObject::connect(&list, &ListBox::rowClicked, &list, [this] {
        if (list.currentRow() == 2) {
            list.setRows(numberedRows(5)); // as a command that refills the list it was called from
            list.setCurrentRow(1);
        }
    });
    walk({{click(2), "2: 1 of 1"}}); // the user's and the code's; the release of the button adds none
}

TEST_F(ListBoxTest, DoubleClickAndEnterActivateWhereSomeoneListens) {
    list.setCurrentRow(0);
    pressKey(list, Qt::Key_Return);
    EXPECT_EQ(presses, 1); // the default button's
    int activations = 0;
    QObject::connect(&list, &ListBox::rowActivated, &list, [&] { ++activations; });
    walk({{[&] { test::doubleClickRow(list, 3); }, "1: 3 of 3"},
          {key(Qt::Key_Return), "0: 3 of 3"},
          {key(Qt::Key_Enter), "0: 3 of 3"},
          {set(-1), "0: -1 of 3"},
          {key(Qt::Key_Return), "0: -1 of 3"}});
    EXPECT_EQ(activations, 3);
    EXPECT_EQ(presses, 2);
}

TEST_F(ListBoxTest, CopiesTheSelectedRowsAsText) {
    walk({{click(4), "1: 4 of 4"},
          {click(1, Qt::ControlModifier), "1: 1 of 1 4"},
          {key(Qt::Key_C, Qt::ControlModifier), "0: 1 of 1 4"}});
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("row 1\nrow 4"));
    list.clear();
    list.copySelectedRows();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("row 1\nrow 4"));
}

TEST_F(ListBoxTest, ScrollsSidewaysToTheWidestRowOfMany) {
    ListRows rows = numberedRows(32731);
    rows[30000].text = std::string(200, 'W');
    list.setRows(std::move(rows));
    ASSERT_TRUE(test::waitFor([&] { return list.horizontalScrollBar()->maximum() > 0; }));
    list.setCurrentRow(32730);
    EXPECT_TRUE(list.viewport()->rect().intersects(list.visualRect(list.currentIndex())));
}

TEST_F(ListBoxTest, ShowsWhetherAKeyWouldReachIt) {
    QPalette colours = list.palette();
    colours.setColor(QPalette::Active, QPalette::Highlight, Qt::blue);
    colours.setColor(QPalette::Inactive, QPalette::Highlight, Qt::gray);
    list.setPalette(colours);
    const auto shown = [&] { return list.grab().toImage().pixelColor(place(1).right(), place(1).center().y()); };
    list.setFocus();
    EXPECT_EQ(list.grab().toImage().pixelColor(0, 0), QColor(Qt::blue)) << "no row tells it yet, but the frame does";
    list.setCurrentRow(1);
    EXPECT_EQ(shown(), QColor(Qt::blue));
    button.setFocus();
    EXPECT_EQ(shown(), QColor(Qt::gray));
    colours.setColor(QPalette::Inactive, QPalette::Highlight, Qt::blue); // as some desktops have it
    list.setPalette(colours);
    EXPECT_NE(shown(), QColor(Qt::blue));
    EXPECT_GT(contrast(shown(), Qt::white), 1.3);
}

TEST(ColoursTest, AreLegibleOnDarkAndAsToldOnLight) {
    QPalette colours;
    colours.setColor(QPalette::Base, Qt::white);
    EXPECT_EQ(faultColour(colours), QColor(192, 0, 0));
    EXPECT_EQ(fineColour(colours), QColor(0, 128, 0));
    EXPECT_GE(contrast(warningColour(colours), Qt::white), legibleContrast);
    for (const QColor dark : {QColor(0, 0, 0), QColor(35, 38, 41), QColor(60, 60, 60)}) {
        colours.setColor(QPalette::Base, dark);
        for (const QColor& colour : {faultColour(colours), fineColour(colours), warningColour(colours)}) {
            EXPECT_GE(contrast(colour, dark), legibleContrast);
        }
    }
}

} // namespace
} // namespace vantor
