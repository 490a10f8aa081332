// Every control that a key reaches has a name in the accessibility tree, the names of a window tell them apart, and no
// two have one mnemonic.
#include "schedule/frmFind.h"
#include "schedule/frmSchedEdit.h"
#include "shell/fSHAREDAbout.h"
#include "shell/fSHAREDErrorRpt.h"
#include "shell/frmSettings.h"
#include "simulator/frmAircraftSub.h"
#include "support/main_window.h"
#include "views/frmChart.h"
#include "views/frmMap.h"

namespace vantor::test {
namespace {

void expectNames(const QWidget& window) {
    std::set<std::string> names;
    std::set<QChar> letters;
    for (auto* const control : window.findChildren<QWidget*>()) {
        const QString text = control->property("text").toString();
        const qsizetype mark = text.indexOf(u'&');
        if (mark >= 0 && control->isVisibleTo(&window)) {
            EXPECT_TRUE(letters.insert(text.at(mark + 1).toLower()).second) << fromQString(text);
        }
        const bool inner = control->objectName().isEmpty() || control->objectName().startsWith(QLatin1String("qt_"));
        if (inner || control->focusPolicy() == Qt::NoFocus) {
            continue;
        }
        const QGroupBox* frame = nullptr; // two of a name in frames of their own are told apart by these
        for (QWidget* up = control->parentWidget(); up != nullptr && frame == nullptr; up = up->parentWidget()) {
            frame = qobject_cast<QGroupBox*>(up);
        }
        const QAccessibleInterface& node = *QAccessible::queryAccessibleInterface(control);
        QString name = node.text(QAccessible::Name);
        if (const auto* const box = qobject_cast<const ComboBox*>(control)) { // tells its row there
            EXPECT_FALSE(box->isEditable() && box->isVisible() && box->lineEdit()->accessibleName().isEmpty())
                << "the text of " << fromQString(control->objectName());
            const auto labels = node.relations(QAccessible::Label);
            EXPECT_FALSE(labels.isEmpty()) << "all that some screen readers have: " << fromQString(box->objectName());
            const bool named = !control->accessibleName().isEmpty() || labels.isEmpty();
            name = named ? control->accessibleName() : labels.constFirst().first->text(QAccessible::Name);
        }
        EXPECT_FALSE(name.isEmpty()) << fromQString(control->objectName());
        const std::string place = frame == nullptr ? "" : fromQString(frame->objectName());
        EXPECT_TRUE(names.insert(place + " " + fromQString(name)).second) << fromQString(control->objectName());
    }
}

class AccessibilityTest : public MainWindowFixture {};

TEST_F(AccessibilityTest, ControlsHaveNamesOfTheirOwn) {
    expectNames(form());
    for (const char* const group : {"fraPlans", "frameFSMode", "FrameCompile", "fraList1", "fraList2"}) {
        for (const auto* const button : control<QWidget>(form(), group).findChildren<QAbstractButton*>()) {
            EXPECT_FALSE(button->shortcut().isEmpty()) << fromQString(button->objectName());
        }
    }
    expectNames(frmSchedEdit(nullptr, {}, {}));
    expectNames(frmFind(combo("cmbAC"), nullptr));
    expectNames(frmAircraftSub(nullptr, "AC#1", {}));
    expectNames(frmSettings());
    expectNames(frmMap(nullptr));
    expectNames(frmChart(nullptr));
    expectNames(fSHAREDErrorRpt());
    expectNames(fSHAREDAbout());
}

} // namespace
} // namespace vantor::test
