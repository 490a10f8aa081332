// Tests of the Qt side of the program.
// The combo box: picking is a click, typing and completing are not, with and without typing.
#include "platform/colours.h"
#include "platform/combo_box.h"
#include "support/form_driver.h"

#include <QCompleter>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace vantor {
namespace {

using test::pickRow;
using test::pressKey;
using test::typeOver;

class ComboBoxTest : public testing::TestWithParam<bool> {
  protected:
    ComboBoxTest() {
        auto* layout = new QVBoxLayout(&form);
        layout->addWidget(&combo);
        layout->addWidget(&other);
        combo.setRows({{"EDDF - Frankfurt", 1}, {"EGLL - London", 2}, {"YPPH - Perth", 3}});
        combo.setProperty("editable", GetParam()); // as a layout file does
        combo.setCurrentRow(-1);
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        other.setFocus();
        QObject::connect(&combo, &ComboBox::rowClicked, &combo, [this] { ++clicks; });
    }
    ~ComboBoxTest() override {
        combo.setParent(nullptr);
        other.setParent(nullptr);
    }

    void wheelDown() {
        const QPointF at = combo.rect().center();
        QWheelEvent wheel(at, combo.mapToGlobal(at), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&combo, &wheel);
    }

    // The clicks since the last look, the current row and the text.
    std::string told() {
        return std::to_string(std::exchange(clicks, 0)) + " clicks, " + std::to_string(combo.currentRow()) + " '" +
               combo.text() + "'";
    }

    [[nodiscard]] QAbstractItemView* completions() const { return combo.findChild<QCompleter*>()->popup(); }

    QWidget form;
    ComboBox combo;
    QPushButton other;
    int clicks = 0;
};

INSTANTIATE_TEST_SUITE_P(Typing, ComboBoxTest, testing::Bool(),
                         [](const auto& typing) { return typing.param ? "Editable" : "ListOnly"; });

TEST_P(ComboBoxTest, FillingNeverPicksARow) {
    combo.clear();
    combo.addRow("first", 1);
    combo.addRow("second", 2);
    EXPECT_EQ(told(), "0 clicks, -1 ''");
    EXPECT_EQ(combo.rowText(2), "");
    EXPECT_EQ(combo.itemData(1), 2);
    combo.setCurrentRow(1);
    combo.setRows({{"new", 9}});
    EXPECT_EQ(told(), "1 clicks, -1 ''");
    combo.clear();
    EXPECT_EQ(combo.rowCount(), 0);
}

TEST_P(ComboBoxTest, CodeClicksOnlyByAnotherCurrentRow) {
    combo.setCurrentRow(1);
    EXPECT_EQ(told(), "1 clicks, 1 'EGLL - London'");
    EXPECT_EQ(combo.currentItemData(), 2);
    combo.setCurrentRow(1);
    combo.setCurrentRow(3);
    EXPECT_EQ(told(), "0 clicks, 1 'EGLL - London'");
    combo.setRowText(1, "EGKK - Gatwick");
    combo.setRowText(0, "EDDM - Munich");
    EXPECT_EQ(told(), "0 clicks, 1 'EGKK - Gatwick'");
    EXPECT_EQ(combo.rows(), (ListRows{{"EDDM - Munich", 1}, {"EGKK - Gatwick", 2}, {"YPPH - Perth", 3}}));
    combo.setCurrentRow(-1);
    EXPECT_EQ(told(), "0 clicks, -1 ''");
    combo.setText("YPPH - Perth");
    EXPECT_EQ(told(), "0 clicks, 2 'YPPH - Perth'");
    combo.setText("nowhere");
    EXPECT_EQ(told(), GetParam() ? "0 clicks, -1 'nowhere'" : "0 clicks, 2 'YPPH - Perth'");
}

TEST_P(ComboBoxTest, APickFromTheListIsAClickAlsoOnTheCurrentRow) {
    for (int i = 0; i < 2; ++i) {
        pickRow(combo, 2);
        EXPECT_EQ(told(), "1 clicks, 2 'YPPH - Perth'");
    }
    combo.showPopup();
    pressKey(*combo.view(), Qt::Key_Escape);
    EXPECT_EQ(told(), "0 clicks, 2 'YPPH - Perth'");
}

TEST_P(ComboBoxTest, ArrowKeysAndTheWheelPickOnlyWithTheFocus) {
    combo.setCurrentRow(0);
    wheelDown();
    EXPECT_EQ(told(), "1 clicks, 0 'EDDF - Frankfurt'");
    combo.setFocus();
    pressKey(combo, Qt::Key_Down);
    EXPECT_EQ(told(), "1 clicks, 1 'EGLL - London'");
    wheelDown();
    EXPECT_EQ(told(), "1 clicks, 2 'YPPH - Perth'");
}

class EditableComboTest : public ComboBoxTest {};
INSTANTIATE_TEST_SUITE_P(Typing, EditableComboTest, testing::Values(true));

TEST_P(EditableComboTest, TypingEnterAndLeavingAreNoClicks) {
    combo.setCurrentRow(0);
    clicks = 0;
    typeOver(combo, "YPPH - Perth");
    EXPECT_EQ(told(), "0 clicks, -1 'YPPH - Perth'");
    pressKey(combo, Qt::Key_Return);
    other.setFocus();
    EXPECT_EQ(told(), "0 clicks, -1 'YPPH - Perth'");
    EXPECT_EQ(combo.rowCount(), 3);
    combo.setCurrentRow(0); // typed over, so this is a change
    EXPECT_EQ(told(), "1 clicks, 0 'EDDF - Frankfurt'");
}

TEST_P(EditableComboTest, ACompletionIsPickedLikeARow) {
    typeOver(combo, "per"); // in the title, small letters
    QAbstractItemView* popup = completions();
    ASSERT_TRUE(popup->isVisible());
    ASSERT_EQ(popup->model()->rowCount(), 1);
    pressKey(*popup, Qt::Key_Down);
    EXPECT_EQ(told(), "0 clicks, -1 'per'"); // passing one is no pick
    pressKey(*popup, Qt::Key_Return);
    EXPECT_FALSE(popup->isVisible());
    EXPECT_EQ(told(), "1 clicks, 2 'YPPH - Perth'");
    typeOver(combo, "egl");
    ASSERT_TRUE(popup->isVisible());
    QTest::mouseClick(popup->viewport(), Qt::LeftButton, {}, popup->visualRect(popup->model()->index(0, 0)).center());
    EXPECT_EQ(told(), "1 clicks, 1 'EGLL - London'");
}

TEST_P(EditableComboTest, AClickBesideTheCompletionsDoesWhatItWasAimedAt) {
    form.resize(300, 400); // the completions leave the button free
    QSignalSpy presses(&other, &QPushButton::clicked);
    typeOver(combo, "e");
    ASSERT_TRUE(completions()->isVisible());
    const QPoint at = other.mapToGlobal(other.rect().center());
    QTest::mousePress(completions(), Qt::LeftButton, {}, completions()->mapFromGlobal(at)); // as it holds the mouse
    EXPECT_TRUE(test::waitFor([&] { return presses.count() == 1; }));
    EXPECT_FALSE(completions()->isVisible());
    EXPECT_TRUE(other.hasFocus());
    EXPECT_EQ(told(), "0 clicks, -1 'e'");
}

TEST_P(EditableComboTest, ATypedTextIsMarkedUntilARowIsPickedOrTheOldTextIsBack) {
    const auto marked = [&] {
        const bool hint = combo.toolTip() == QStringLiteral("Pick a row of the list");
        EXPECT_EQ(combo.lineEdit()->palette().color(QPalette::Text) == warningColour(combo.palette()), hint);
        return hint;
    };
    combo.setMarksTypedText();
    combo.setCurrentRow(0);
    EXPECT_FALSE(marked());
    typeOver(combo, "YPPH - Perth");
    EXPECT_TRUE(marked());
    pickRow(combo, 2);
    EXPECT_FALSE(marked());
    pressKey(combo, Qt::Key_End);
    pressKey(combo, Qt::Key_Backspace);
    EXPECT_TRUE(marked());
    QTest::keyClicks(&combo, QStringLiteral("h"));
    EXPECT_FALSE(marked());
}

TEST_P(EditableComboTest, TypedTextSurvivesChangesOfTheRows) {
    combo.setCurrentRow(1);
    typeOver(combo, "kse");
    pressKey(*completions(), Qt::Key_Escape);
    combo.addRow("KSEA - Seattle", 4);
    combo.setRowText(1, "EGLC - London City");
    EXPECT_EQ(told(), "1 clicks, -1 'kse'");
}

TEST_P(EditableComboTest, NineThousandRowsCompleteAndOpen) {
    ListRows rows;
    for (int i = 0; i < 9000; ++i) {
        rows.push_back({"A" + std::to_string(i) + " - Airport number " + std::to_string(i), i});
    }
    combo.setRows(std::move(rows));
    typeOver(combo, "airport number 899");
    QAbstractItemView* popup = completions();
    EXPECT_EQ(popup->model()->rowCount(), 11); // 899 and 8990 to 8999
    EXPECT_GE(popup->width(), popup->fontMetrics().horizontalAdvance(QStringLiteral("A8990 - Airport number 8990")));
    pressKey(*popup, Qt::Key_Escape);
    pickRow(combo, 8999);
    EXPECT_EQ(told(), "1 clicks, 8999 'A8999 - Airport number 8999'");
}

} // namespace
} // namespace vantor
