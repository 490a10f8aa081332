#include "shell/actions.h"

#include "core/codes.h"
#include "core/tables.h"
#include "core/undo.h"
#include "foundation/host.h"
#include "foundation/text.h"
#include "platform/code_page.h"
#include "schedule/list_rows.h"
#include "shell/command_runner.h"
#include "shell/documents.h"
#include "shell/explorer_window.h"
#include "shell/lists.h"
#include "shell/status_line.h"
#include "shell/undo_commands.h"
#include "shell/view_commands.h"
#include "shell/window_boxes.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QShortcut>

namespace vantor {

namespace {

constexpr std::string_view module = "frmMain";

// A code shows as it is: an ampersand in it is no mnemonic.
QString menuText(const std::string& text) {
    return toQString(text).replace(u'&', QStringLiteral("&&"));
}

// Makes the row that keys stand on a clicked one.
void clickCurrent(ListBox& list) {
    list.selectRow(list.currentRow());
}

// Keys that every window of the program has, dialogs and lists that drop down as well: F1 is the manual, and Shift+F10
// the context menu of what has the focus, as the menu key is.
class KeysEverywhere : public QObject {
  public:
    explicit KeysEverywhere(std::function<void()> manual) : m_manual(std::move(manual)) {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) {
            return false;
        }
        const auto& pressed = *static_cast<QKeyEvent*>(event);
        if (pressed.key() == Qt::Key_F1 && pressed.modifiers() == Qt::NoModifier) {
            m_manual();
            return true;
        }
        if (pressed.key() == Qt::Key_F10 && pressed.modifiers() == Qt::ShiftModifier) {
            auto& widget = *static_cast<QWidget*>(watched);
            const QPoint place = widget.inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
            QContextMenuEvent menu(QContextMenuEvent::Keyboard, place, widget.mapToGlobal(place));
            QCoreApplication::sendEvent(&widget, &menu);
            return true;
        }
        return false;
    }

  private:
    std::function<void()> m_manual;
};

} // namespace

Actions::Actions(QWidget& window, WindowBoxes& boxes, CommandRunner& runner, Lists& lists, ViewCommands& views,
                 UndoCommands& undo, ExplorerWindow& explorer, StatusLine& status)
    : m_window(window), m_boxes(boxes), m_runner(runner), m_lists(lists), m_views(views), m_undo(undo),
      m_explorer(explorer), m_status(status), m_everywhere(std::make_unique<KeysEverywhere>([this] { openManual(); })) {
    connectKeys();
    connectLists();
    connectBoxes();
}

std::vector<Actions::KeyAction> Actions::keyTable() {
    const auto focus = [](QWidget* widget) { return [widget] { widget->setFocus(Qt::ShortcutFocusReason); }; };
    const auto find = [this] { (m_airportLast ? m_boxes.airport.cmdFind1 : m_boxes.aircraft.cmdFind0)->click(); };
    const auto row = [](ListBox* list) { return [list] { clickCurrent(*list); }; };
    return {{Qt::Key_F5, nullptr, m_boxes.traffic.cmdReload, {}},
            {Qt::CTRL | Qt::Key_S, nullptr, m_boxes.traffic.cmdSaveFlights, {}},
            {Qt::CTRL | Qt::SHIFT | Qt::Key_S, nullptr, m_boxes.traffic.cmdSaveAircraft, {}},
            {Qt::CTRL | Qt::Key_L, nullptr, m_boxes.traffic.cmdListall, {}},
            {Qt::CTRL | Qt::Key_M, nullptr, m_boxes.airport.cmdMap, {}},
            {Qt::CTRL | Qt::Key_P, nullptr, m_boxes.legs.cmdPrint, {}},
            {Qt::CTRL | Qt::Key_F, nullptr, nullptr, find},
            {Qt::CTRL | Qt::Key_T, nullptr, nullptr, [this] { m_explorer.open(); }},
            // A text box that has something to undo takes these three for itself.
            {Qt::CTRL | Qt::Key_Z, nullptr, nullptr, [this] { m_undo.undo(); }},
            {Qt::CTRL | Qt::Key_Y, nullptr, nullptr, [this] { m_undo.redo(); }},
            {Qt::CTRL | Qt::SHIFT | Qt::Key_Z, nullptr, nullptr, [this] { m_undo.redo(); }},
            {Qt::CTRL | Qt::Key_1, nullptr, nullptr, focus(m_boxes.schedules.List1)},
            {Qt::CTRL | Qt::Key_2, nullptr, nullptr, focus(m_boxes.legs.List2)},
            {Qt::CTRL | Qt::Key_3, nullptr, nullptr, focus(m_boxes.missing.List3)},
            {Qt::Key_Delete, m_boxes.schedules.List1, m_boxes.schedules.cmdDeleteSchedule, {}},
            {Qt::Key_Delete, m_boxes.legs.List2, m_boxes.legs.cmdDeleteLeg, {}},
            {Qt::Key_Space, m_boxes.schedules.List1, nullptr, row(m_boxes.schedules.List1)},
            {Qt::Key_Space, m_boxes.legs.List2, nullptr, row(m_boxes.legs.List2)},
            {Qt::Key_Space, m_boxes.missing.List3, nullptr, row(m_boxes.missing.List3)}};
}

void Actions::connectKeys() {
    for (const KeyAction& action : keyTable()) {
        auto* const shortcut = new QShortcut(action.keys, action.where != nullptr ? action.where : &m_window);
        shortcut->setContext(action.where != nullptr ? Qt::WidgetShortcut : Qt::WindowShortcut);
        if (action.button != nullptr) {
            QObject::connect(shortcut, &QShortcut::activated, action.button, &QAbstractButton::click);
        } else {
            QObject::connect(shortcut, &QShortcut::activated, &m_window, action.own);
        }
    }
    QObject::connect(
        qApp, &QApplication::focusChanged, m_everywhere.get(), [this](const QWidget* /*old*/, const QWidget* now) {
            const auto inBoxOf = [now](const QWidget* control) { return control->parentWidget()->isAncestorOf(now); };
            m_airportLast = inBoxOf(m_boxes.airport.cmbICAO) || (m_airportLast && !inBoxOf(m_boxes.aircraft.cmbAC));
        });
}

void Actions::connectLists() {
    // Enter can come before any click, and then does first what the click would do. A double click has clicked already.
    const auto activates = [](ListBox* list, QAbstractButton* button) {
        QObject::connect(list, &ListBox::rowActivated, button, [list, button] {
            if (!button->isEnabled() && list->selectedRowCount() <= 1) {
                clickCurrent(*list);
            }
            button->click();
        });
    };
    activates(m_boxes.schedules.List1, m_boxes.schedules.cmdEditSchedule);
    activates(m_boxes.legs.List2, m_boxes.legs.cmdEditLeg);
    for (ListBox* const list : {m_boxes.schedules.List1, m_boxes.legs.List2, m_boxes.missing.List3}) {
        list->setContextMenuPolicy(Qt::CustomContextMenu);
        QObject::connect(list, &QWidget::customContextMenuRequested, list,
                         [this, list](const QPoint& place) { offerMenu(*list, place); });
    }
}

void Actions::connectBoxes() {
    const auto enter = [](ComboBox* box, QAbstractButton* button) {
        // Behind the pick of a completion, which the same key may be.
        QObject::connect(box->lineEdit(), &QLineEdit::returnPressed, button, &QAbstractButton::click,
                         Qt::QueuedConnection);
    };
    enter(m_boxes.aircraft.cmbAC, m_boxes.aircraft.cmdListACnum);
    enter(m_boxes.airport.cmbICAO, m_boxes.airport.cmdListICAO);
    const auto menu = [this](ComboBox* box, std::vector<QAbstractButton*> buttons) {
        QWidget* const rows = box->view();
        rows->setContextMenuPolicy(Qt::CustomContextMenu);
        QObject::connect(rows, &QWidget::customContextMenuRequested, box, [=, this](const QPoint& place) {
            QMenu shown(&m_window);
            addUndo(shown);
            addButtons(shown, buttons);
            const int row = box->view()->indexAt(place).row();
            const std::string code = extractcode(box->rowText(row));
            addFlights(shown, box == m_boxes.aircraft.cmbAC ? code : "", box == m_boxes.aircraft.cmbAC ? "" : code);
            offerOverList(shown, *box, row, rows->mapToGlobal(place));
        });
    };
    menu(m_boxes.aircraft.cmbAC,
         {m_boxes.aircraft.cmdFind0, m_boxes.aircraft.cmdListACnum, m_boxes.aircraft.cmdListUniqueAC,
          m_boxes.aircraft.cmdAddFS, m_boxes.aircraft.cmdDeleteAC});
    menu(m_boxes.airport.cmbICAO,
         {m_boxes.airport.cmdFind1, m_boxes.airport.cmdListICAO, m_boxes.airport.cmdListUniqueICAO,
          m_boxes.airport.cmdTimeTable, m_boxes.airport.cmdGates, m_boxes.airport.cmdChart, m_boxes.airport.cmdMap});
}

void Actions::offerOverList(QMenu& menu, ComboBox& box, int row, const QPoint& place) {
    for (QAction* const entry : menu.actions()) {
        entry->blockSignals(true); // they wait until the list is out of the way
    }
    if (QAction* const taken = menu.exec(place); taken != nullptr) {
        box.hidePopup();
        if (taken->data().toBool() && row >= 0) {
            box.setCurrentRow(row); // the buttons act on what stands in the box
        }
        taken->blockSignals(false);
        taken->trigger();
    }
}

void Actions::openManual() {
    const StandardTrap trap{"sub manual_click", module};
    trap([this] {
        const std::string file = manualFile();
        if (file.empty()) {
            m_status.tell("The manual is missing: it belongs into the folder Vantor-manual beside Vantor");
            return;
        }
        m_status.tell("Opening the manual");
        host().openFile(file, [status = QPointer(&m_status), file] {
            if (status) {
                status->tell("No program opens the manual, " + file);
            }
        });
    });
}

namespace {

// The schedule that a row leads to; null where there is none.
const ScheduleRec* scheduleAt(std::int32_t recnum) {
    return recnum >= 1 && recnum <= schedules.RecordCount() ? &schedules.peek(recnum) : nullptr;
}

} // namespace

void Actions::offerMenu(ListBox& list, const QPoint& place) {
    QMenu menu(&m_window);
    menu.setObjectName(QStringLiteral("contextMenu"));
    addUndo(menu);
    const std::int32_t id = list.currentItemData();
    if (&list == m_boxes.schedules.List1) {
        addButtons(menu, {m_boxes.schedules.cmdAddSchedule, m_boxes.schedules.cmdEditSchedule,
                          m_boxes.schedules.cmdCopy, m_boxes.schedules.cmdDeleteSchedule, m_boxes.schedules.cmdSwapAC});
        const ScheduleListRow kind = kindOfRow(id, list.currentText());
        if (const ScheduleRec* const schedule = scheduleAt(id); kind == ScheduleListRow::schedule && schedule) {
            addFlights(menu, upper(schedule->acnum.text()), ""); // its row may begin with a mark
        } else if (kind == ScheduleListRow::aircraftRow || kind == ScheduleListRow::airportRow) {
            const std::string code = extractcode(list.currentText());
            const bool ofAirport = kind == ScheduleListRow::airportRow;
            addFlights(menu, ofAirport ? "" : code, ofAirport ? code : "");
        }
    } else if (&list == m_boxes.legs.List2) {
        addButtons(menu, {m_boxes.legs.cmdEditLeg, m_boxes.legs.cmdDeleteLeg, m_boxes.legs.cmdPrint});
        // A row can lead to a leg that is not there, as after a leg ahead of it was deleted in the editor.
        const LegId leg = extractindexes(id).value_or(LegId{});
        if (const ScheduleRec* const schedule = scheduleAt(leg.recnum); schedule && schedule->legs.has(leg.leg)) {
            const LegRec& flight = schedule->legs[leg.leg];
            addFlights(menu, "", flight.fromicao.text());
            addFlights(menu, "", flight.toicao.text());
        }
    } else {
        addButtons(menu, {m_boxes.missing.cmdSubAC});
        addFlights(menu, extractcode(list.currentText()), "");
    }
    addTexts(menu, list);
    menu.exec(list.viewport()->mapToGlobal(place));
}

void Actions::addUndo(QMenu& menu) {
    menu.addAction(menuText(UndoCommands::undoCaption()), &m_window, [this] { m_undo.undo(); })
        ->setEnabled(!undoName().empty());
    menu.addAction(menuText(UndoCommands::redoCaption()), &m_window, [this] { m_undo.redo(); })
        ->setEnabled(!redoName().empty());
    menu.addSeparator();
}

void Actions::addButtons(QMenu& menu, const std::vector<QAbstractButton*>& buttons) {
    for (QAbstractButton* const button : buttons) {
        QAction* const entry = menu.addAction(button->text(), button, &QAbstractButton::click);
        entry->setEnabled(button->isEnabled());
        entry->setData(true);
    }
    menu.addSeparator();
}

void Actions::addFlights(QMenu& menu, std::string_view aircraftCode, std::string_view airportCode) {
    const std::string code(aircraftCode.empty() ? airportCode : aircraftCode);
    if (code.empty()) {
        return;
    }
    const bool ofAirport = aircraftCode.empty();
    menu.addAction(menuText("Flights of " + code), &m_window, [this, code, ofAirport] {
        m_runner.run({"sub menuflights_click", module}, [&](const StandardTrap&) {
            m_lists.displaylist(ofAirport ? code : "", ofAirport ? "" : code, false, 0);
            m_boxes.schedules.List1->setFocus();
            return std::string();
        });
    });
    if (ofAirport) {
        menu.addAction(menuText("Map of " + code), &m_window, [this, code] {
            m_runner.run({"sub menumap_click", module}, [&](const StandardTrap&) {
                m_views.showMapOf(code);
                return std::string();
            });
        });
    }
    menu.addAction(menuText("Flights of " + code + " in the explorer"), &m_window,
                   [this, term = (ofAirport ? "at=" : "ac:") + code] { m_explorer.open(term); });
}

void Actions::addTexts(QMenu& menu, ListBox& list) {
    // By the list's own keys, which count as a user's.
    const auto key = [&list](Qt::Key pressed) {
        return [&list, pressed] {
            QKeyEvent event(QEvent::KeyPress, pressed, Qt::ControlModifier);
            QCoreApplication::sendEvent(&list, &event);
        };
    };
    menu.addSeparator();
    menu.addAction(QStringLiteral("Copy text"), &list, key(Qt::Key_C))->setEnabled(list.selectedRowCount() > 0);
    menu.addAction(QStringLiteral("Select all"), &list, key(Qt::Key_A))->setEnabled(list.rowCount() > 0);
}

} // namespace vantor
