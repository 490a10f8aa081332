// The combo box: picking is a click, typing is not, with and without typing.
#include "platform/colours.h"
#include "support/form_driver.h"

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
        form.resize(300, 400); // the completions leave the button free
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

    // A step of the user or of code, and what the box tells then: clicks, current row and text.
    struct Step {
        std::function<void()> act;
        const char* told;
    };
    void walk(std::initializer_list<Step> steps) {
        int number = 0;
        for (const Step& step : steps) {
            step.act();
            EXPECT_EQ(std::to_string(std::exchange(clicks, 0)) + ": " + std::to_string(combo.currentRow()) + " '" +
                          combo.text() + "'",
                      step.told)
                << "step " << number;
            ++number;
        }
    }
    auto set(int row) {
        return [this, row] { combo.setCurrentRow(row); };
    }
    auto text(const char* text) {
        return [this, text] { combo.setText(text); };
    }
    auto pick(int row) {
        return [this, row] { pickRow(combo, row); };
    }
    auto type(const char* typed) {
        return [this, typed] { typeOver(combo, typed); };
    }
    auto key(Qt::Key key) {
        return [this, key] { pressKey(completions().isVisible() ? completions() : static_cast<QWidget&>(combo), key); };
    }
    void wheel() {
        const QPointF at = combo.rect().center();
        QWheelEvent turn(at, combo.mapToGlobal(at), {}, QPoint(0, -120), Qt::NoButton, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&combo, &turn);
    }
    [[nodiscard]] QAbstractItemView& completions() const { return *combo.findChild<QCompleter*>()->popup(); }

    QWidget form;
    ComboBox combo;
    QPushButton other;
    int clicks = 0;
};

INSTANTIATE_TEST_SUITE_P(Typing, ComboBoxTest, testing::Bool(),
                         [](const auto& typing) { return typing.param ? "Editable" : "ListOnly"; });

TEST_P(ComboBoxTest, PicksAndOtherRowsByCodeAreClicks) {
    walk({{set(1), "1: 1 'EGLL - London'"},
          {set(1), "0: 1 'EGLL - London'"},
          {set(3), "0: 1 'EGLL - London'"},
          {[&] { combo.setRowText(1, "EGKK - Gatwick"); }, "0: 1 'EGKK - Gatwick'"},
          {[&] { combo.setRowText(0, "EDDM - Munich"); }, "0: 1 'EGKK - Gatwick'"},
          {[&] { combo.addRow("KSEA - Seattle", 4); }, "0: 1 'EGKK - Gatwick'"},
          {set(-1), "0: -1 ''"},
          {text("YPPH - Perth"), "0: 2 'YPPH - Perth'"},
          {text("nowhere"), GetParam() ? "0: -1 'nowhere'" : "0: 2 'YPPH - Perth'"},
          {pick(2), "1: 2 'YPPH - Perth'"},
          {pick(2), "1: 2 'YPPH - Perth'"}, // also on the current row
          {[&] {
               combo.showPopup();
               pressKey(*combo.view(), Qt::Key_Escape);
           },
           "0: 2 'YPPH - Perth'"},
          {set(0), "1: 0 'EDDM - Munich'"},
          {[&] { other.setFocus(); }, "0: 0 'EDDM - Munich'"},
          {[&] { wheel(); }, "0: 0 'EDDM - Munich'"}, // without the focus
          {[&] { combo.setFocus(); }, "0: 0 'EDDM - Munich'"},
          {key(Qt::Key_Down), "1: 1 'EGKK - Gatwick'"},
          {[&] { wheel(); }, "1: 2 'YPPH - Perth'"}});
    EXPECT_EQ(combo.rows(),
              (ListRows{{"EDDM - Munich", 1}, {"EGKK - Gatwick", 2}, {"YPPH - Perth", 3}, {"KSEA - Seattle", 4}}));
    EXPECT_EQ(combo.currentItemData(), 3);
    EXPECT_EQ(combo.rowText(4), "");
    walk({{[&] {
               combo.setRows({{"new", 9}});
           },
           "0: -1 ''"},
          {[&] { combo.clear(); }, "0: -1 ''"},
          {[&] { combo.addRow("first", 1); }, "0: -1 ''"}});
}

class EditableComboTest : public ComboBoxTest {};
INSTANTIATE_TEST_SUITE_P(Typing, EditableComboTest, testing::Values(true));

TEST_P(EditableComboTest, TypingIsNoClickAndACompletionIsPickedLikeARow) {
    walk({{set(0), "1: 0 'EDDF - Frankfurt'"},
          {type("YPPH - Perth"), "0: -1 'YPPH - Perth'"},
          {key(Qt::Key_Escape), "0: -1 'YPPH - Perth'"},
          {key(Qt::Key_Return), "0: -1 'YPPH - Perth'"},
          {[&] { other.setFocus(); }, "0: -1 'YPPH - Perth'"},
          {set(0), "1: 0 'EDDF - Frankfurt'"}, // typed over, so this is a change
          {type("per"), "0: -1 'per'"},        // in the title, small letters
          {key(Qt::Key_Down), "0: -1 'per'"},  // passing one is no pick
          {key(Qt::Key_Return), "1: 2 'YPPH - Perth'"},
          {type("egl"), "0: -1 'egl'"},
          {[&] {
               const QRect row = completions().visualRect(completions().model()->index(0, 0));
               QTest::mouseClick(completions().viewport(), Qt::LeftButton, {}, row.center());
           },
           "1: 1 'EGLL - London'"},
          {type("kse"), "0: -1 'kse'"},
          {[&] { combo.addRow("KSEA - Seattle", 4); }, "0: -1 'kse'"},
          {[&] { combo.setRowText(1, "EGLC - London City"); }, "0: -1 'kse'"}});
    EXPECT_EQ(combo.rowCount(), 4);
}

TEST_P(EditableComboTest, AClickBesideTheCompletionsDoesWhatItWasAimedAt) {
    QSignalSpy presses(&other, &QPushButton::clicked);
    typeOver(combo, "e");
    ASSERT_TRUE(completions().isVisible());
    const QString widest = QStringLiteral("EDDF - Frankfurt");
    EXPECT_GE(completions().width(), completions().fontMetrics().horizontalAdvance(widest));
    const QPoint at = other.mapToGlobal(other.rect().center());
    QTest::mousePress(&completions(), Qt::LeftButton, {}, completions().mapFromGlobal(at)); // it holds the mouse
    EXPECT_TRUE(test::waitFor([&] { return presses.count() == 1; }));
    EXPECT_FALSE(completions().isVisible());
    EXPECT_TRUE(other.hasFocus());
    EXPECT_EQ(combo.text(), "e");
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

} // namespace
} // namespace vantor
