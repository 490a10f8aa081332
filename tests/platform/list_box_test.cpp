// Tests of the Qt side of the program.
// The model of rows, and the list box: what counts as a click, by mouse, by key and by code, and what is selected when
// it is told.
#include "platform/colours.h"
#include "platform/list_box.h"
#include "platform/row_width.h"
#include "support/form_driver.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace vantor {
namespace {

using test::clickRow;
using test::doubleClickRow;
using test::pressKey;

TEST(RowModelTest, EveryChangeKeepsTheModelInOrder) {
    RowModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    model.setRows({{"one", 1}, {"two", 2}, {"three", 3}});
    EXPECT_EQ(resets.count(), 1);
    model.append({"four", 4});
    model.remove(1);
    model.setText(0, "ONE");
    for (const int row : {-1, 3, 1000}) { // outside the rows nothing changes
        model.remove(row);
        model.setText(row, "x");
        EXPECT_EQ(model.text(row), "");
        EXPECT_EQ(model.itemData32(row), 0);
    }
    EXPECT_EQ(model.rows(), (ListRows{{"ONE", 1}, {"three", 3}, {"four", 4}}));
    ASSERT_TRUE(model.insertRows(1, 2, {}));
    ASSERT_TRUE(model.setData(model.index(1), QStringLiteral(u"n\u00E9"), Qt::EditRole));
    ASSERT_TRUE(model.setData(model.index(1), 7, Qt::UserRole));
    EXPECT_EQ(model.rows().at(1), (ListRow{"n\xE9", 7}));
    EXPECT_FALSE(model.insertRows(6, 1, {}));
    EXPECT_FALSE(model.removeRows(0, 6, {}));
    EXPECT_FALSE(model.setData(model.index(0), 1, Qt::CheckStateRole));
    EXPECT_FALSE(model.data(model.index(0), Qt::DecorationRole).isValid());
    ASSERT_TRUE(model.removeRows(0, 4, {}));
    EXPECT_EQ(model.rows(), (ListRows{{"four", 4}}));
}

TEST(RowWidthTest, TheWidestRowIsNotTheLongestText) {
    RowModel model;
    const QFontMetrics metrics{QFont()};
    EXPECT_EQ(widestRow(model, metrics), 0);
    model.setRows({{"iiiiiiiiiiii", 0}, {"WWWWWWWWWW", 0}, {"", 0}});
    EXPECT_GE(widestRow(model, metrics), metrics.horizontalAdvance(QStringLiteral("WWWWWWWWWW")));
}

ListRows numberedRows(int count) {
    ListRows rows;
    for (int i = 0; i < count; ++i) {
        rows.push_back({"row " + std::to_string(i), 100 + i});
    }
    return rows;
}

class ListBoxTest : public testing::Test {
  protected:
    ListBoxTest() {
        list.resize(220, 300);
        list.setRows(numberedRows(8));
        list.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&list));
        QObject::connect(&list, &ListBox::rowClicked, &list, [this] {
            ++clicks;
            atClick = state();
        });
        QObject::connect(&list, &ListBox::rowActivated, &list, [this] { ++activations; });
    }

    // The current row and those selected, as in "4 of 2 4".
    [[nodiscard]] std::string state() const {
        std::string text = std::to_string(list.currentRow()) + " of";
        for (int row = 0; row < list.rowCount(); ++row) {
            text += list.isRowSelected(row) ? " " + std::to_string(row) : "";
        }
        return text;
    }

    // What was told since the last look, as in "1 click at 4 of 2 4"; the state must be the same ever since.
    [[nodiscard]] std::string told() {
        const int count = std::exchange(clicks, 0);
        if (count == 0) {
            return "nothing";
        }
        EXPECT_EQ(atClick, state());
        return std::to_string(count) + (count == 1 ? " click at " : " clicks at ") + atClick;
    }

    ListBox list;
    int clicks = 0;
    int activations = 0;
    std::string atClick;
};

TEST_F(ListBoxTest, CodeClicksOnlyWhenTheCurrentRowChanges) {
    EXPECT_EQ(state(), "-1 of");
    EXPECT_EQ(list.currentItemData(), 0);
    EXPECT_EQ(list.currentText(), "");
    list.addRow("Z\xFCrich", 7);
    list.setCurrentRow(8);
    EXPECT_EQ(told(), "1 click at 8 of 8");
    EXPECT_EQ(list.currentText(), "Z\xFCrich");
    EXPECT_EQ(list.currentItemData(), 7);
    list.setCurrentRow(8);
    EXPECT_EQ(told(), "nothing");
    list.setCurrentRow(4);
    EXPECT_EQ(told(), "1 click at 4 of 4 8"); // the row joins those selected before
    list.setCurrentRow(9);
    list.setCurrentRow(-2);
    EXPECT_EQ(list.currentRow(), 4);
    list.setCurrentRow(-1);
    EXPECT_EQ(list.currentRow(), -1);
    EXPECT_EQ(told(), "nothing");
    list.selectRow(4);
    list.selectRow(4);
    EXPECT_EQ(told(), "2 clicks at 4 of 4");

    list.setSelectionMode(QAbstractItemView::SingleSelection);
    list.setCurrentRow(1);
    list.setCurrentRow(3);
    EXPECT_EQ(told(), "2 clicks at 3 of 3");
    list.setCurrentRow(-1);
    EXPECT_EQ(state(), "-1 of");
    EXPECT_EQ(told(), "nothing");
    list.setEnabled(false); // a disabled list still shows its current row
    list.setCurrentRow(0);
    EXPECT_EQ(told(), "1 click at 0 of 0");
}

TEST_F(ListBoxTest, CopiesTheSelectedRowsAsText) {
    clickRow(list, 4);
    clickRow(list, 1, Qt::ControlModifier);
    pressKey(list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("row 1\nrow 4"));
    list.clear();
    list.copySelectedRows();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("row 1\nrow 4"));
}

TEST(SelectionTest, ShowsWhetherAKeyWouldReachTheList) {
    QWidget form;
    ListBox list(&form);
    QPushButton other(&form);
    list.setRows(numberedRows(3));
    QPalette colours = list.palette();
    for (const auto& [group, colour] : {std::pair{QPalette::Active, Qt::blue}, {QPalette::Inactive, Qt::gray}}) {
        colours.setColor(group, QPalette::Highlight, colour);
    }
    list.setPalette(colours);
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    list.setFocus();
    list.setCurrentRow(1);
    const auto selection = [&] {
        const QRect row = list.visualRect(list.currentIndex());
        return QColor(list.viewport()->grab().toImage().pixel(row.right() - 3, row.center().y()));
    };
    EXPECT_EQ(selection(), QColor(Qt::blue));
    other.setFocus();
    EXPECT_EQ(selection(), QColor(Qt::gray));
    colours.setColor(QPalette::Inactive, QPalette::Highlight, Qt::blue); // as some desktops have it
    EXPECT_NE(selectionColours(colours, false).background, QColor(Qt::blue));
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

TEST_F(ListBoxTest, RefillsDropCurrentRowSelectionAndScrollingSilently) {
    list.setRows(numberedRows(500));
    list.setCurrentRow(400);
    EXPECT_GT(list.verticalScrollBar()->value(), 0);
    list.setRows(numberedRows(300));
    EXPECT_EQ(state(), "-1 of");
    EXPECT_EQ(list.verticalScrollBar()->value(), 0);
    clicks = 0;
    list.setCurrentRow(0);
    EXPECT_EQ(told(), "1 click at 0 of 0"); // row 0 of the new rows is another row
    list.clear();
    EXPECT_EQ(list.rowCount(), 0);
    EXPECT_EQ(told(), "nothing");
}

TEST_F(ListBoxTest, RemovingTheCurrentRowLeavesNone) {
    list.setCurrentRow(3);
    list.removeRow(1);
    EXPECT_EQ(list.currentItemData(), 103);
    for (const auto mode : {QAbstractItemView::ExtendedSelection, QAbstractItemView::SingleSelection}) {
        list.setSelectionMode(mode);
        list.setCurrentRow(2);
        clicks = 0;
        list.removeRow(2);
        EXPECT_EQ(state(), "-1 of");
    }
    list.removeRow(99);
    EXPECT_EQ(list.rowCount(), 5);
    EXPECT_EQ(told(), "nothing");
}

TEST_F(ListBoxTest, MouseClicksCountOnceAlsoOnTheCurrentRow) {
    for (int i = 0; i < 2; ++i) {
        clickRow(list, 2);
        EXPECT_EQ(told(), "1 click at 2 of 2");
    }
    clickRow(list, 4, Qt::ShiftModifier);
    EXPECT_EQ(told(), "1 click at 4 of 2 3 4");
    clickRow(list, 3, Qt::ControlModifier);
    EXPECT_EQ(told(), "1 click at 3 of 2 4");
    clickRow(list, 4); // one of several selected rows: alone at once, and told once
    EXPECT_EQ(told(), "1 click at 4 of 4");
    const QPoint below(20, list.visualRect(list.model()->index(7, 0)).bottom() + 20);
    ASSERT_TRUE(list.viewport()->rect().contains(below));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, below);
    EXPECT_EQ(told(), "nothing");
    EXPECT_EQ(state(), "4 of 4");
}

TEST_F(ListBoxTest, DraggingOverRowsIsToldAtItsEnd) {
    const auto centre = [&](int row) { return list.visualRect(list.model()->index(row, 0)).center(); };
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, centre(1));
    EXPECT_EQ(told(), "1 click at 1 of 1");
    // QTest's own move carries no pressed button on this platform.
    for (const int row : {2, 3}) {
        QMouseEvent move(QEvent::MouseMove, centre(row), list.viewport()->mapToGlobal(centre(row)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(list.viewport(), &move);
    }
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, centre(3));
    EXPECT_EQ(told(), "1 click at 3 of 1 2 3");
}

TEST_F(ListBoxTest, KeysCountWhenTheyMoveOrSelect) {
    struct Press {
        Qt::Key key;
        Qt::KeyboardModifier modifier;
        const char* told;
    };
    list.setFocus();
    for (const Press& press : {Press{Qt::Key_Down, Qt::NoModifier, "1 click at 0 of 0"}, // the focus alone picks none
                               Press{Qt::Key_Up, Qt::NoModifier, "nothing"},             // already at the top
                               Press{Qt::Key_End, Qt::NoModifier, "1 click at 7 of 7"},
                               Press{Qt::Key_Home, Qt::ShiftModifier, "1 click at 0 of 0 1 2 3 4 5 6 7"},
                               Press{Qt::Key_PageDown, Qt::NoModifier, "1 click at 7 of 7"},
                               Press{Qt::Key_A, Qt::ControlModifier, "1 click at 7 of 0 1 2 3 4 5 6 7"},
                               Press{Qt::Key_Shift, Qt::NoModifier, "nothing"}}) {
        pressKey(list, press.key, press.modifier);
        EXPECT_EQ(told(), press.told) << press.key;
    }
}

TEST_F(ListBoxTest, WhatAHandlerChangesByCodeIsNoUsersClick) {
    QObject::connect(&list, &ListBox::rowClicked, &list, [this] {
        if (list.currentRow() == 2) {
            list.setRows(numberedRows(5)); // as a command that refills the list it was called from
            list.setCurrentRow(1);
        }
    });
    clickRow(list, 2);
    EXPECT_EQ(told(), "2 clicks at 1 of 1"); // the user's and the code's; the release of the button adds none
}

TEST_F(ListBoxTest, DoubleClickAndEnterActivate) {
    doubleClickRow(list, 3);
    EXPECT_EQ(told(), "1 click at 3 of 3");
    EXPECT_EQ(activations, 1);
    pressKey(list, Qt::Key_Return);
    pressKey(list, Qt::Key_Enter);
    EXPECT_EQ(activations, 3);
    list.setCurrentRow(-1);
    pressKey(list, Qt::Key_Return);
    EXPECT_EQ(activations, 3);
}

TEST(ListBoxInDialogTest, TabAndEnterLeaveTheDialogItsManners) {
    QDialog dialog;
    QPushButton button(&dialog);
    ListBox list(&dialog);
    button.setDefault(true);
    int presses = 0;
    QObject::connect(&button, &QPushButton::clicked, &button, [&] { ++presses; });
    list.setRows(numberedRows(2));
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    button.setFocus();
    pressKey(button, Qt::Key_Tab);
    ASSERT_TRUE(list.hasFocus());
    EXPECT_EQ(list.currentRow(), -1) << "the focus alone makes no row current";

    // Enter presses the default button, but where the list takes it.
    list.setCurrentRow(0);
    pressKey(list, Qt::Key_Return);
    QObject::connect(&list, &ListBox::rowActivated, &list, [] {});
    pressKey(list, Qt::Key_Return);
    EXPECT_EQ(presses, 1);
}

TEST_F(ListBoxTest, ScrollsSidewaysToTheWidestRowOfMany) {
    ListRows rows = numberedRows(32731);
    rows[30000].text = std::string(200, 'W');
    list.setRows(std::move(rows));
    ASSERT_TRUE(test::waitFor([&] { return list.horizontalScrollBar()->maximum() > 0; }));
    list.setCurrentRow(32730);
    EXPECT_TRUE(list.viewport()->rect().intersects(list.visualRect(list.currentIndex())));
}

} // namespace
} // namespace vantor
