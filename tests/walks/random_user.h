// Random walks: a user who does whatever the windows offer.
// One action at a time, drawn from a seed, so that a walk can be walked again.
#pragma once

#include "foundation/text.h"
#include "platform/code_page.h"
#include "platform/combo_box.h"
#include "platform/list_box.h"
#include "platform/picture_box.h"
#include "support/form_driver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QTimer>

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace vantor::test {

using Texts = std::vector<std::string>;

/// How often buttons are pressed: the ways out and what empties the tables come seldom. Others have ten.
inline const std::vector<std::pair<int, Texts>> buttonWeights = {
    {1, {"cmdExit", "cmdGetFS2k2Path", "cmdGetFS2k4Path"}},
    {3, {"cmdReload", "cmdLoadFlightPlan", "cmdSaveAircraft", "cmdDeleteAC", "cmdDecompile", "cmdChart", "cmdMap"}},
    {3, {"cmdCancel", "cmdCheckUpdate", "cmdProxy"}},
    {6, {"cmdSaveFlights", "cmdSettings", "cmdPrint", "cmdDeleteByICAO"}},
    {20, {"cmdDeleteSchedule", "cmdAddLeg", "cmdInsertLeg", "cmdDeleteLeg"}},
    {40, {"cmdCopy", "cmdSwapAC", "cmdEditLeg"}},
    {80, {"cmdEditSchedule"}}};

inline const Texts airportTexts = {"EGLL", "lfpg", "EGKK", "EGSS ",           "KSEA", "KPDX",
                                   "ZZZZ", "EG*",  "K*",   "KJFK - New York", ""};
inline const Texts aircraftTexts = {"AC#1", "ac#2", "AC#3 - x", "AC#12", "AC#7 ", "AC#99", "AC", ""};
inline const Texts timeTexts = {"10:00", "23:44", "0:00", "12:34:56", "23:59:59", " 6:30 ", "25:00", "9", ""};
/// What makes sense in a box, and nearly does. Others get airports.
inline const std::map<std::string, Texts> sensibleTexts = {
    {"txtNewFL", {"230", "-5", "0", "100.5", "99999", "1E400"}},
    {"txtATCPercent", {"1", "100", "50", "0.4", "100.4", "-3", "101"}},
    {"txtPercent", {"5", "100", "1000", "-1"}},
    {"txtATCAircraft", aircraftTexts},
    {"txtSplitACSource", aircraftTexts},
    {"cmbAC", aircraftTexts},
    {"txtRego", {"N123AB", "vh-xyz", "Speedbird Concorde"}},
    {"txtTime", timeTexts},
    {"txtETA", timeTexts},
    {"txtAltitude", {"350", "-10", "99999", "12.5", "0"}},
    {"txtFlightNum", {"101", "BA 1", "12/3"}},
    {"txtFilter", {"boeing", "7", "AC#1", "zz"}},
    {"txtSearchString", {"a", "EG", "new york", "zz"}},
    {"txtGMTHour", {"00", "+2", "-5", "12", "13", "-12"}},
    {"txtGMTMin", {"00", "30", "5", "60", "-1"}}};
/// What nobody expects in any box, parted by bars.
inline constexpr std::string_view oddTexts =
    "| |*|-|//|;|a,b|@TNG|%s%n|\xE9\xFC\xDF|\t|\"|1,2;3//|&File|-0-|1e9|0x1F|"
    "WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW";
inline const Texts fileTexts = {
    "Flightplans.txt", "Flightplans.txt", "Flightplans030528.txt", "Flightplans030528.txt", "Aircraft.txt",
    "Airports.txt",    "nofile.txt"};

class RandomUser {
  public:
    /// `afterDialogAction` runs behind each action in a dialog.
    RandomUser(unsigned seed, std::function<void()> afterDialogAction)
        : m_random(seed), m_afterDialogAction(std::move(afterDialogAction)) {}

    /// Answers to the next boxes in place of random ones: true presses Yes or OK.
    std::deque<bool> answers;
    /// What is typed into the next file dialog in place of a random name.
    std::string fileName;
    /// How many things were done, dialogs included, and the latest of them.
    int actions = 0;
    std::deque<std::string> history;

    /// A number from 0 to `count` - 1.
    [[nodiscard]] int below(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }

    /// Does one thing to one control of the window, or to the window itself, and tells what.
    std::string act(QWidget& window) {
        m_offers.clear();
        for (QWidget* const widget : window.findChildren<QWidget*>()) {
            // Controls of other windows, of scroll bars and of combo boxes are no targets of their own.
            m_name = fromQString(widget->objectName());
            if (widget->window() == &window && widget->isVisible() && widget->isEnabled() && !m_name.empty() &&
                !m_name.starts_with("qt_")) {
                offerControl(*widget);
            }
        }
        m_name = "window";
        offerWindow(window);
        int sum = 0;
        for (const Offer& one : m_offers) {
            sum += one.weight;
        }
        int draw = below(sum);
        const auto drawn = std::ranges::find_if(m_offers, [&](const Offer& one) { return (draw -= one.weight) < 0; });
        const Offer chosen = *drawn; // a dialog offers things of its own meanwhile
        note(chosen.what);
        chosen.run();
        while (QWidget* const popup = QApplication::activePopupWidget()) {
            popup->close(); // a list of completions goes with the next click elsewhere
        }
        return chosen.what;
    }

    /// Does some things in a dialog and leaves it. Whatever the dialog is, it is closed afterwards.
    void serve(QDialog& dialog) {
        if (auto* const box = qobject_cast<QMessageBox*>(&dialog)) {
            answerBox(*box);
        } else if (auto* const files = qobject_cast<QFileDialog*>(&dialog)) {
            answerFileDialog(*files);
        } else if (dialog.objectName() == QLatin1String("printDialog")) {
            const bool print = below(2) == 0;
            note(print ? "print" : "don't print");
            pressKey(dialog, print ? Qt::Key_Return : Qt::Key_Escape);
        } else {
            for (int left = 1 + below(15); left > 0 && dialog.isVisible(); --left) {
                act(dialog);
                m_afterDialogAction();
            }
        }
        // By OK where there is one, or else by the close box.
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

  private:
    struct Offer {
        int weight;
        std::string what;
        std::function<void()> run;
    };

    void note(const std::string& what) {
        ++actions;
        history.push_back(what);
        if (history.size() > 20) {
            history.pop_front();
        }
    }
    template <class List>
    [[nodiscard]] auto oneOf(const List& list) {
        return list[static_cast<std::size_t>(below(static_cast<int>(std::size(list))))];
    }
    [[nodiscard]] std::string textFor(const std::string& control) {
        if (below(4) == 0) {
            return std::string(oneOf(split(oddTexts, "|")));
        }
        const auto found = sensibleTexts.find(control);
        return oneOf(found == sensibleTexts.end() ? airportTexts : found->second);
    }

    void offer(int weight, const std::string& what, std::function<void()> run) {
        m_offers.push_back({weight, m_name + ": " + what, std::move(run)});
    }
    void offerKey(QWidget& widget, int weight, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        offer(weight, "key " + fromQString(QKeySequence(key | modifiers).toString()), [&widget, key, modifiers] {
            widget.setFocus();
            pressKey(widget, key, modifiers);
        });
    }

    void offerControl(QWidget& widget) {
        if (auto* button = qobject_cast<QAbstractButton*>(&widget)) {
            const auto found = std::ranges::find_if(
                buttonWeights, [&](const auto& one) { return std::ranges::count(one.second, m_name) > 0; });
            offer(found == buttonWeights.end() ? 10 : found->first, "click", [button] { click(*button); });
        } else if (auto* box = qobject_cast<QLineEdit*>(&widget)) {
            offerTyping(*box);
            offer(1, "paste two lines", [box, text = textFor(m_name)] { paste(*box, text); });
        } else if (auto* list = qobject_cast<ListBox*>(&widget)) {
            offerList(*list);
        } else if (auto* combo = qobject_cast<ComboBox*>(&widget)) {
            if (combo->rowCount() > 0) {
                const int row = below(combo->rowCount());
                offer(8, "pick row " + std::to_string(row), [combo, row] { pickRow(*combo, row); });
                offerKey(*combo, 2, Qt::Key_Down);
            }
            if (combo->isEditable()) {
                offerTyping(*combo);
            }
        } else if (auto* picture = qobject_cast<PictureBox*>(&widget)) {
            const auto place = [&] { return QPoint(below(1 + picture->width()), below(1 + picture->height())); };
            const QPoint from = place();
            const QPoint to = place();
            offer(1, "drag", [picture, from, to] {
                QTest::mousePress(picture, Qt::LeftButton, Qt::NoModifier, from);
                QTest::mouseMove(picture, to);
                QTest::mouseRelease(picture, Qt::LeftButton, Qt::NoModifier, to);
            });
        }
    }

    void offerTyping(QWidget& field) {
        const std::string text = textFor(m_name);
        // The test's keyboard has no accented letters: they come by the clipboard.
        const bool plain = std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
        offer(8, "type \"" + text.substr(0, 30) + "\"",
              [&field, text, plain] { plain ? typeOver(field, text) : paste(field, text); });
    }
    // Two lines, with letters that keys and the code page lack.
    static void paste(QWidget& field, const std::string& text) {
        QApplication::clipboard()->setText(toQString(text) + QStringLiteral("\u20AC\u0416\r\nX"));
        field.setFocus();
        QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    }

    void offerList(ListBox& list) {
        if (list.rowCount() > 0) {
            const int row = below(list.rowCount());
            const auto press = [&](int weight, const char* what, Qt::KeyboardModifiers modifiers, bool twice = false) {
                offer(weight, what + std::to_string(row), [&list, row, modifiers, twice] {
                    list.scrollTo(list.model()->index(row, 0));
                    const QRect place = list.visualRect(list.model()->index(row, 0)) & list.viewport()->rect();
                    if (!place.isEmpty()) { // a row of a list without height is out of reach
                        QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers, place.center());
                        if (twice) {
                            QTest::mouseDClick(list.viewport(), Qt::LeftButton, modifiers, place.center());
                        }
                    }
                });
            };
            press(30, "click row ", Qt::NoModifier);
            press(8, "ctrl click row ", Qt::ControlModifier);
            press(8, "shift click row ", Qt::ShiftModifier);
            press(2, "double click row ", Qt::NoModifier, true);
        }
        offerKey(list, 15,
                 oneOf(std::vector{Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_End, Qt::Key_Home,
                                   Qt::Key_Delete, Qt::Key_Return}));
        offerKey(list, 1, Qt::Key_A, Qt::ControlModifier);
        offer(1, "click below the rows", [&list] {
            QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                              QPoint(3, list.viewport()->height() - 2));
        });
    }

    void offerWindow(QWidget& window) {
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Escape, Qt::Key_Return}) {
            offer(1, "key " + std::to_string(key), [&window, key] { pressKey(window, key); });
        }
        const QSize size(400 + below(1000), 300 + below(700));
        offer(1, "resize", [&window, size] { window.resize(size); });
        if (qobject_cast<QMainWindow*>(&window) != nullptr) {
            offerKey(window, 1, Qt::Key_F5);
            offerKey(window, 2, Qt::Key_S, Qt::ControlModifier);
            offerKey(window, 6, Qt::Key_L, Qt::ControlModifier);
            offer(1, "close", [&window] { window.close(); });
            offer(1, "wait for the automatic check", [&window] {
                control<QTimer>(window, "Timer3").start(0);
                QCoreApplication::processEvents();
            });
        }
    }

    void answerBox(QMessageBox& box) {
        bool yes = below(2) == 0;
        bool escape = below(5) == 0;
        if (!answers.empty()) {
            yes = answers.front();
            answers.pop_front();
            escape = false;
        }
        note(fromQString(box.text()).substr(0, 60) + (escape ? "... Escape" : yes ? "... Yes" : "... No"));
        QAbstractButton* const button = box.button(yes ? QMessageBox::Yes : QMessageBox::No);
        if (escape) {
            pressKey(box, Qt::Key_Escape);
        } else {
            QTest::mouseClick(button != nullptr ? button : box.buttons().front(), Qt::LeftButton);
        }
    }

    void answerFileDialog(QFileDialog& dialog) {
        std::string name = std::exchange(fileName, {});
        if (name.empty() && below(3) == 0) {
            note("file dialog: Escape");
            pressKey(dialog, Qt::Key_Escape);
            return;
        }
        if (name.empty()) {
            name = oneOf(dialog.fileMode() == QFileDialog::Directory ? Texts{"FS", "FS/weather"} : fileTexts);
        }
        note("file dialog: " + name);
        auto& edit = control<QLineEdit>(dialog, "fileNameEdit");
        edit.setText(toQString(name));
        pressKey(edit, Qt::Key_Return);
        if (dialog.isVisible()) {
            pressKey(edit, Qt::Key_Return); // the first one may go to the list of completions
        }
    }

    std::mt19937 m_random;
    std::function<void()> m_afterDialogAction;
    std::vector<Offer> m_offers;
    std::string m_name; // of the control that offers
};

} // namespace vantor::test
