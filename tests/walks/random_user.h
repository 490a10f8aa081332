// Random walks: a user who does whatever the windows offer.
// One action at a time, drawn from a seed, so that a walk can be walked again.
#pragma once

#include "platform/picture_box.h"
#include "support/form_driver.h"

namespace vantor::test {

/// How often a control is taken, where it isn't ten: the ways out and what empties the tables come seldom.
inline const std::map<std::string, int> weights = {
    {"cmdExit", 1},           {"cmdGetFS2k2Path", 1}, {"cmdGetFS2k4Path", 1}, {"cmdReload", 3},
    {"cmdLoadFlightPlan", 3}, {"cmdSaveAircraft", 3}, {"cmdDeleteAC", 3},     {"cmdDecompile", 3},
    {"cmdCheckUpdate", 3},    {"cmdDeleteByICAO", 6}, {"cmdAddLeg", 20},      {"cmdInsertLeg", 20},
    {"cmdDeleteLeg", 20},     {"cmdListall", 30},     {"cmdCopy", 40},        {"cmdSwapAC", 40},
    {"cmdEditLeg", 40},       {"List1", 60},          {"List2", 60},          {"cmdEditSchedule", 80}};

/// What makes sense in a box, and nearly does, parted by bars. Boxes of other names get airports.
inline const std::map<std::string, std::string> sensibleTexts = {
    {"txtNewFL", "230|-5|0|100.5|99999|1E400"},
    {"txtATCPercent", "1|100|50|0.4|100.4|-3|101"},
    {"txtATCAircraft", "AC#1|ac#2|AC#12|AC#99|AC"},
    {"txtSplitACSource", "AC#1|ac#2|AC#3 - x|AC#7 "},
    {"cmbAC", "AC#1|ac#2|AC#3 - x|AC#12|AC#99"},
    {"txtPercent", "5|100|1000|-1"},
    {"txtTime", "10:00|23:44|12:34:56| 6:30 |25:00|9"},
    {"txtETA", "10:00|0:00|23:59:59|25:00|"},
    {"txtAltitude", "350|-10|99999|12.5|0"},
    {"txtFilter", "type|7|AC#1|zz|at:AAAA -is:deleted|dep>12"},
    {"txtGMTHour", "00|+2|-5|12|13|-12"},
    {"txtGMTMin", "00|30|5|60|-1"}};
inline const std::string airportTexts = "AAAA|aaab|AAAC|AAAD |AAAE - Airport 4|ZZZZ|AAA*|A*|";
/// What nobody expects in any box. Two lines, with letters that the code page lacks, are pasted with each.
inline const std::string oddTexts = "| |*|-|//|;|a,b|@TNG|%s%n|\xE9\xFC\xDF|\t|\"|1,2;3//|&File|-0-|1e9|0x1F|"
                                    "WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW";

class RandomUser {
  public:
    explicit RandomUser(unsigned seed) : m_random(seed) {}

    /// The latest things that were done, dialogs included.
    std::deque<std::string> history;

    /// A number from 0 to `count` - 1.
    [[nodiscard]] int below(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }

    /// Does one thing to one control of the window, or to the window itself, and tells what.
    std::string act(QWidget& window) {
        std::vector<QWidget*> targets(3, &window);
        for (auto* const widget : window.findChildren<QWidget*>()) {
            // Controls of other windows, of scroll bars and of combo boxes are no targets of their own.
            const std::string name = fromQString(widget->objectName());
            if (widget->window() == &window && widget->isVisible() && widget->isEnabled() && !name.empty() &&
                !name.starts_with("qt_")) {
                const auto weight = weights.find(name);
                targets.insert(targets.end(), weight == weights.end() ? 10U : static_cast<unsigned>(weight->second),
                               widget);
            }
        }
        QWidget& target = *oneOf(targets);
        std::string did = target.isWindow() ? "window" : fromQString(target.objectName());
        history.push_back(did); // ahead of the dialogs that it opens
        use(target);
        while (QWidget* const popup = QApplication::activePopupWidget()) {
            popup->close(); // a list of completions goes with the next click elsewhere
        }
        while (history.size() > 20) {
            history.pop_front();
        }
        return did;
    }

    /// Does some things in a dialog and leaves it. Whatever the dialog is, it is closed afterwards.
    void serve(QDialog& dialog) {
        if (auto* const box = qobject_cast<QMessageBox*>(&dialog)) {
            const QList<QAbstractButton*> buttons = box->buttons();
            const int button = below(static_cast<int>(buttons.size()) + 1);
            history.push_back(fromQString(box->text()).substr(0, 60) + " " + std::to_string(button));
            button == 0 ? pressKey(*box, Qt::Key_Escape) : QTest::mouseClick(buttons[button - 1], Qt::LeftButton);
        } else if (auto* const files = qobject_cast<QFileDialog*>(&dialog)) {
            const bool folders = files->fileMode() == QFileDialog::Directory;
            auto& name = control<QLineEdit>(dialog, "fileNameEdit");
            const bool save = files->acceptMode() == QFileDialog::AcceptSave;
            name.setText(toQString(oneOf(split(folders ? "FS|FS/weather"
                                               : save  ? "list.csv|map.png|map.svg|FS"
                                                       : "Flightplans.txt|Flightplans030528.txt|none",
                                               "|"))));
            pressKey(name, below(3) == 0 ? Qt::Key_Escape : Qt::Key_Return);
        } else if (dialog.objectName() == QLatin1String("printDialog")) {
            pressKey(dialog, below(2) == 0 ? Qt::Key_Return : Qt::Key_Escape);
        } else {
            for (int left = 1 + below(15); left > 0 && dialog.isVisible(); --left) {
                act(dialog);
            }
        }
        // By OK where there is one, or else by the close box.
        auto* const ok = dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"));
        if (dialog.isVisible() && ok != nullptr && ok->isEnabled() && below(4) != 0) {
            history.emplace_back("leave by OK");
            click(*ok);
        }
        if (dialog.isVisible()) {
            dialog.close();
        }
    }

  private:
    template <class List>
    [[nodiscard]] typename List::value_type oneOf(const List& list) {
        return list[static_cast<std::size_t>(below(static_cast<int>(std::size(list))))];
    }

    void use(QWidget& target) {
        if (auto* const button = qobject_cast<QAbstractButton*>(&target)) {
            click(*button);
        } else if (auto* const list = qobject_cast<ListBox*>(&target)) {
            useList(*list);
        } else if (auto* const combo = qobject_cast<ComboBox*>(&target)) {
            if (combo->rowCount() > 0 && (below(2) == 0 || !combo->isEditable())) {
                below(4) == 0 ? pressKey(*combo, Qt::Key_Down) : pickRow(*combo, below(combo->rowCount()));
            } else if (combo->isEditable()) {
                paste(*combo);
            }
        } else if (qobject_cast<QLineEdit*>(&target) != nullptr) {
            paste(target);
        } else if (auto* const table = qobject_cast<QTableView*>(&target)) {
            useTable(*table);
        } else if (auto* const pages = qobject_cast<QTabWidget*>(&target)) {
            pages->setCurrentIndex(below(pages->count()));
        } else if (qobject_cast<PictureBox*>(&target) != nullptr || target.objectName() == QLatin1String("map")) {
            QTest::mousePress(&target, Qt::LeftButton, Qt::NoModifier, placeIn(target));
            QTest::mouseMove(&target, placeIn(target));
            QTest::mouseRelease(&target, Qt::LeftButton, Qt::NoModifier, placeIn(target));
        } else if (target.isWindow()) {
            useWindow(target);
        }
    }
    [[nodiscard]] QPoint placeIn(const QWidget& widget) {
        const int x = below(1 + widget.width());
        return {x, below(1 + widget.height())};
    }
    // By the clipboard, since the test's keyboard has no accented letters.
    void paste(QWidget& field) {
        const auto sensible = sensibleTexts.find(fromQString(field.objectName()));
        const bool odd = below(4) == 0;
        const std::string& texts = odd ? oddTexts : sensible == sensibleTexts.end() ? airportTexts : sensible->second;
        const std::string text(oneOf(split(texts, "|")));
        history.back() += " \"" + text + "\"";
        QApplication::clipboard()->setText(toQString(text) + (odd ? QStringLiteral("\u20AC\u0416\r\nX") : QString()));
        field.setFocus();
        QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    }
    void useList(ListBox& list) {
        static const std::vector keys = {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up,     Qt::Key_End,
                                         Qt::Key_Home, Qt::Key_A,    Qt::Key_Delete, Qt::Key_Return};
        const int what = below(12);
        if (list.rowCount() == 0 || what < 4) {
            const Qt::Key key = oneOf(keys);
            history.back() += " key " + std::to_string(key);
            list.setFocus();
            pressKey(list, key, key == Qt::Key_A ? Qt::ControlModifier : Qt::NoModifier);
            return;
        }
        const int row = below(list.rowCount() + 1); // or below the rows
        history.back() += " row " + std::to_string(row);
        list.scrollTo(list.model()->index(row, 0));
        const QRect place = list.visualRect(list.model()->index(row, 0)) & list.viewport()->rect();
        const QPoint point = place.isEmpty() ? QPoint(3, list.viewport()->height() - 2) : place.center();
        const auto modifiers = what == 4 ? Qt::ControlModifier : what == 5 ? Qt::ShiftModifier : Qt::NoModifier;
        QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers, point);
        if (what == 6) {
            QTest::mouseDClick(list.viewport(), Qt::LeftButton, modifiers, point);
        }
    }
    void useTable(QTableView& table) {
        static const std::vector keys = {Qt::Key_A, Qt::Key_C, Qt::Key_Delete, Qt::Key_Return, Qt::Key_End};
        table.selectRow(below(table.model()->rowCount() + 1));
        table.setFocus();
        const Qt::Key key = oneOf(keys);
        history.back() += " key " + std::to_string(key);
        pressKey(table, key, key == Qt::Key_A || key == Qt::Key_C ? Qt::ControlModifier : Qt::NoModifier);
    }
    void useWindow(QWidget& window) {
        static const std::vector keys = {QKeyCombination(Qt::Key_Tab), QKeyCombination(Qt::Key_Escape),
                                         QKeyCombination(Qt::Key_Return), QKeyCombination(Qt::Key_F5),
                                         Qt::ControlModifier | Qt::Key_S};
        const int what = below(8);
        if (what < 5) {
            const QKeyCombination key = keys[static_cast<std::size_t>(what)];
            history.back() += " key " + std::to_string(key.key());
            pressKey(window, key.key(), key.keyboardModifiers());
        } else if (what == 5 && below(4) == 0) {
            history.back() += " close";
            window.close();
        } else {
            window.resize(400 + below(1000), 300 + below(700));
        }
    }

    std::mt19937 m_random;
};

} // namespace vantor::test
