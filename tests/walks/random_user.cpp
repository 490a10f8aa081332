#include "walks/random_user.h"

#include "foundation/text.h"
#include "platform/code_page.h"
#include "support/form_driver.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QMainWindow>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include <algorithm>
#include <map>
#include <numeric>
#include <string_view>
#include <utility>

namespace vantor::test {

namespace {

using Texts = std::vector<std::string>;

constexpr std::size_t remembered = 20;
constexpr int ordinary = 10;

// Buttons that are pressed more or less often than others: the ways out and what empties the tables come seldom.
struct Share {
    int weight;
    Texts buttons;
};
const std::vector<Share> shares = {
    {1, {"cmdExit", "cmdGetFS2k2Path", "cmdGetFS2k4Path"}},
    {3, {"cmdReload", "cmdLoadFlightPlan", "cmdSaveAircraft", "cmdDeleteAC", "cmdDecompile", "cmdChart", "cmdMap"}},
    {3, {"cmdCancel", "cmdCheckUpdate", "cmdProxy"}},
    {6, {"cmdSaveFlights", "cmdSettings", "cmdPrint", "cmdDeleteByICAO"}},
    {20, {"cmdDeleteSchedule", "cmdAddLeg", "cmdInsertLeg", "cmdDeleteLeg"}},
    {40, {"cmdCopy", "cmdSwapAC", "cmdEditLeg"}},
    {80, {"cmdEditSchedule"}},
};

int weightOf(const std::string& button) {
    for (const Share& share : shares) {
        if (std::ranges::find(share.buttons, button) != share.buttons.end()) {
            return share.weight;
        }
    }
    return ordinary;
}

const Texts airports = {"EGLL", "lfpg", "EGKK", "EGSS ", "KSEA", "KPDX", "ZZZZ", "KJFK - New York", "EG*", "K*", ""};
const Texts aircraftCodes = {"AC#1", "ac#2", "AC#3 - x", "AC#12", "AC#7 ", "AC#99", "AC", ""};
const Texts times = {"10:00", "23:44", "0:00", "12:34:56", "23:59:59", " 6:30 ", "25:00", "9", ""};

// What makes sense in a box, and nearly does. Others get airports.
const std::map<std::string, Texts> sensible = {
    {"txtNewFL", {"230", "-5", "0", "100.5", "99999", "1E400"}},
    {"txtATCPercent", {"1", "100", "50", "0.4", "100.4", "-3", "101"}},
    {"txtPercent", {"5", "100", "1000", "-1"}},
    {"txtATCAircraft", aircraftCodes},
    {"txtSplitACSource", aircraftCodes},
    {"cmbAC", aircraftCodes},
    {"txtRego", {"N123AB", "vh-xyz", "Speedbird Concorde"}},
    {"txtTime", times},
    {"txtETA", times},
    {"txtAltitude", {"350", "-10", "99999", "12.5", "0"}},
    {"txtFlightNum", {"101", "BA 1", "12/3"}},
    {"txtFilter", {"boeing", "7", "AC#1", "zz"}},
    {"txtSearchString", {"a", "EG", "new york", "zz"}},
    {"txtGMTHour", {"00", "+2", "-5", "12", "13", "-12"}},
    {"txtGMTMin", {"00", "30", "5", "60", "-1"}},
};

// What nobody expects in any box, parted by bars.
constexpr std::string_view odd = "| |*|-|//|;|a,b|@TNG|%s%n|\xE9\xFC\xDF|\t|\"|1,2;3//|&File|-0-|1e9|0x1F|"
                                 "WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW";

const Texts files = {
    "Flightplans.txt", "Flightplans.txt", "Flightplans030528.txt", "Flightplans030528.txt", "Aircraft.txt",
    "Airports.txt",    "nofile.txt"};
const Texts folders = {"FS", "FS/weather"};
const std::vector<Qt::Key> listKeys = {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down,   Qt::Key_Up,
                                       Qt::Key_End,  Qt::Key_Home, Qt::Key_Delete, Qt::Key_Return};

std::string nameOf(const QObject& object) {
    return fromQString(object.objectName());
}

// Controls of other windows, of scroll bars and of combo boxes are no targets of their own.
bool isReachable(const QWidget& widget, const QWidget& window) {
    return widget.window() == &window && widget.isVisible() && widget.isEnabled() && !widget.objectName().isEmpty() &&
           !widget.objectName().startsWith(QLatin1String("qt_"));
}

// A row that stays out of sight in a list without height is out of reach.
void clickRowAt(ListBox& list, int row, Qt::KeyboardModifiers modifiers, bool twice = false) {
    list.scrollTo(list.model()->index(row, 0));
    const QRect place = list.visualRect(list.model()->index(row, 0)).intersected(list.viewport()->rect());
    if (!place.isEmpty()) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers, place.center());
        if (twice) {
            QTest::mouseDClick(list.viewport(), Qt::LeftButton, modifiers, place.center());
        }
    }
}

// Two lines, with letters that keys and the code page lack.
void paste(QWidget& field, const std::string& text) {
    QApplication::clipboard()->setText(toQString(text) + QStringLiteral("\u20AC\u0416\r\nX"));
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
}

// The test's keyboard has no accented letters: they come by the clipboard.
void type(QWidget& field, const std::string& text) {
    if (std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; })) {
        typeOver(field, text);
    } else {
        paste(field, text);
    }
}

} // namespace

void RandomUser::note(const std::string& what) {
    ++m_actions;
    m_history.push_back(what);
    if (m_history.size() > remembered) {
        m_history.pop_front();
    }
}

std::string RandomUser::textFor(const std::string& control) {
    if (below(4) == 0) {
        return std::string(oneOf(split(odd, "|")));
    }
    const auto found = sensible.find(control);
    return oneOf(found == sensible.end() ? airports : found->second);
}

void RandomUser::offerButton(Actions& actions, QAbstractButton& button) {
    actions.push_back({weightOf(nameOf(button)), "click", [&] { click(button); }});
}

void RandomUser::offerTextBox(Actions& actions, QLineEdit& box) {
    const std::string name = nameOf(box);
    const std::string text = textFor(name);
    actions.push_back({8, "type \"" + text.substr(0, 30) + "\"", [&box, text] { type(box, text); }});
    actions.push_back({1, "paste two lines", [&box, text] { paste(box, text); }});
}

void RandomUser::offerList(Actions& actions, ListBox& list) {
    if (list.rowCount() > 0) {
        const int row = below(list.rowCount());
        const std::string at = " row " + std::to_string(row);
        actions.push_back({30, "click" + at, [&list, row] { clickRowAt(list, row, Qt::NoModifier); }});
        actions.push_back({8, "ctrl click" + at, [&list, row] { clickRowAt(list, row, Qt::ControlModifier); }});
        actions.push_back({8, "shift click" + at, [&list, row] { clickRowAt(list, row, Qt::ShiftModifier); }});
        actions.push_back({2, "double click" + at, [&list, row] { clickRowAt(list, row, Qt::NoModifier, true); }});
    }
    const Qt::Key key = oneOf(listKeys);
    actions.push_back({15, "key " + std::to_string(key), [&list, key] {
                           list.setFocus();
                           pressKey(list, key);
                       }});
    actions.push_back({1, "select all", [&list] { pressKey(list, Qt::Key_A, Qt::ControlModifier); }});
    actions.push_back({1, "click below the rows", [&list] {
                           QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                                             QPoint(3, list.viewport()->height() - 2));
                       }});
}

void RandomUser::offerCombo(Actions& actions, ComboBox& combo) {
    if (combo.rowCount() > 0) {
        const int row = below(combo.rowCount());
        actions.push_back({8, "pick row " + std::to_string(row), [&combo, row] { pickRow(combo, row); }});
        actions.push_back({2, "key down", [&combo] { pressKey(combo, Qt::Key_Down); }});
    }
    if (combo.isEditable()) {
        const std::string text = textFor(nameOf(combo));
        actions.push_back({8, "type \"" + text.substr(0, 30) + "\"", [&combo, text] { type(combo, text); }});
    }
}

void RandomUser::offerPicture(Actions& actions, PictureBox& picture) {
    const QPoint from(below(std::max(picture.width(), 1)), below(std::max(picture.height(), 1)));
    const QPoint to(below(std::max(picture.width(), 1)), below(std::max(picture.height(), 1)));
    actions.push_back({1, "drag", [&picture, from, to] {
                           QTest::mousePress(&picture, Qt::LeftButton, Qt::NoModifier, from);
                           QTest::mouseMove(&picture, to);
                           QTest::mouseRelease(&picture, Qt::LeftButton, Qt::NoModifier, to);
                       }});
}

void RandomUser::offerWindow(Actions& actions, QWidget& window) {
    const auto key = [&](int weight, const char* what, Qt::Key code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        actions.push_back({weight, what, [&window, code, modifiers] { pressKey(window, code, modifiers); }});
    };
    key(1, "Tab", Qt::Key_Tab);
    key(1, "Escape", Qt::Key_Escape);
    key(1, "Enter", Qt::Key_Return);
    const QSize size(400 + below(1000), 300 + below(700));
    actions.push_back({1, "resize", [&window, size] { window.resize(size); }});
    if (qobject_cast<QMainWindow*>(&window) != nullptr) {
        key(1, "F5", Qt::Key_F5);
        key(2, "Ctrl+S", Qt::Key_S, Qt::ControlModifier);
        key(6, "Ctrl+L", Qt::Key_L, Qt::ControlModifier);
        actions.push_back({1, "close", [&window] { window.close(); }});
        actions.push_back({1, "wait for the automatic check", [&window] {
                               control<QTimer>(window, "Timer3").start(0);
                               QCoreApplication::processEvents();
                           }});
    }
}

void RandomUser::offer(Actions& actions, QWidget& widget) {
    if (auto* button = qobject_cast<QAbstractButton*>(&widget)) {
        offerButton(actions, *button);
    } else if (auto* box = qobject_cast<QLineEdit*>(&widget)) {
        offerTextBox(actions, *box);
    } else if (auto* list = qobject_cast<ListBox*>(&widget)) {
        offerList(actions, *list);
    } else if (auto* combo = qobject_cast<ComboBox*>(&widget)) {
        offerCombo(actions, *combo);
    } else if (auto* picture = qobject_cast<PictureBox*>(&widget)) {
        offerPicture(actions, *picture);
    }
}

std::string RandomUser::act(QWidget& window) {
    Actions actions;
    const auto under = [&](const std::string& name, std::size_t from) {
        for (std::size_t i = from; i < actions.size(); ++i) {
            actions[i].what = name + ": " + actions[i].what;
        }
    };
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
        if (isReachable(*widget, window)) {
            const std::size_t from = actions.size();
            offer(actions, *widget);
            under(nameOf(*widget), from);
        }
    }
    const std::size_t from = actions.size();
    offerWindow(actions, window);
    under("window", from);
    std::string done = run(actions);
    while (QWidget* const popup = QApplication::activePopupWidget()) {
        popup->close(); // a list of completions goes with the next click elsewhere
    }
    return done;
}

std::string RandomUser::run(const Actions& actions) {
    int draw = below(std::accumulate(actions.begin(), actions.end(), 0,
                                     [](int sum, const Action& action) { return sum + action.weight; }));
    for (const Action& action : actions) {
        draw -= action.weight;
        if (draw < 0) {
            note(action.what);
            action.run();
            return action.what;
        }
    }
    return {};
}

void RandomUser::answerBox(QDialog& dialog) {
    auto& box = dynamic_cast<QMessageBox&>(dialog);
    const QList<QAbstractButton*> buttons = box.buttons();
    bool yes = below(2) == 0;
    bool escape = below(5) == 0;
    if (!answers.empty()) {
        yes = std::exchange(answers.front(), false);
        answers.pop_front();
        escape = false;
    }
    QAbstractButton* button = box.button(yes ? QMessageBox::Yes : QMessageBox::No);
    if (button == nullptr) {
        button = buttons.front();
    }
    const std::string what = fromQString(box.text()).substr(0, 60) + "... ";
    note(what + (escape ? "Escape" : fromQString(button->text())));
    if (escape) {
        pressKey(box, Qt::Key_Escape);
    } else {
        QTest::mouseClick(button, Qt::LeftButton);
    }
}

void RandomUser::answerFileDialog(QDialog& dialog) {
    auto& edit = control<QLineEdit>(dialog, "fileNameEdit");
    std::string name;
    if (!fileNames.empty()) {
        name = fileNames.front();
        fileNames.pop_front();
    } else if (below(3) == 0) {
        note("file dialog: Escape");
        pressKey(dialog, Qt::Key_Escape);
        return;
    } else {
        const bool folder = dynamic_cast<QFileDialog&>(dialog).fileMode() == QFileDialog::Directory;
        name = oneOf(folder ? folders : files);
    }
    note("file dialog: " + name);
    edit.setText(toQString(name));
    pressKey(edit, Qt::Key_Return);
    if (dialog.isVisible()) {
        pressKey(edit, Qt::Key_Return); // the first one may go to the list of completions
    }
}

void RandomUser::answerPrintDialog(QDialog& dialog) {
    const bool print = below(2) == 0;
    note(print ? "print dialog: Enter" : "print dialog: Escape");
    pressKey(dialog, print ? Qt::Key_Return : Qt::Key_Escape);
}

// By OK where there is one, or else by the close box.
void RandomUser::leave(QDialog& dialog) {
    auto* const ok = dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"));
    if (dialog.isVisible() && ok != nullptr && ok->isEnabled() && below(4) != 0) {
        note("leave by OK");
        click(*ok);
    }
    if (dialog.isVisible()) {
        note("leave by the close box");
        dialog.close();
    }
}

void RandomUser::serve(QDialog& dialog) {
    const std::string name = nameOf(dialog);
    if (qobject_cast<QMessageBox*>(&dialog) != nullptr) {
        answerBox(dialog);
    } else if (name == "fileDialog") {
        answerFileDialog(dialog);
    } else if (name == "printDialog") {
        answerPrintDialog(dialog);
    } else {
        for (int left = 1 + below(15); left > 0 && dialog.isVisible(); --left) {
            act(dialog);
            m_afterDialogAction();
        }
    }
    leave(dialog);
}

} // namespace vantor::test
