// Shell: the main window, its dialogs and the settings of the application.
// The window's actions beside its buttons: keys, context menus and double clicks, all from one table.
#pragma once

#include <QAbstractButton>
#include <QKeySequence>

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

class QMenu;
class QWidget;

namespace vantor {

class ComboBox;
class CommandRunner;
class ExplorerWindow;
class ListBox;
class Lists;
class StatusLine;
class UndoCommands;
class ViewCommands;
struct WindowBoxes;

/// Stands for buttons by pressing them, so that a disabled command stays out of reach, and has some of its own.
class Actions {
  public:
    /// Makes keys and menus. All of these must outlive the actions.
    Actions(QWidget& window, WindowBoxes& boxes, CommandRunner& runner, Lists& lists, ViewCommands& views,
            UndoCommands& undo, ExplorerWindow& explorer, StatusLine& status);

  private:
    /// What a key does, in the whole window or while a control has the focus. A button is pressed, if it can be.
    struct KeyAction {
        QKeySequence keys;
        QWidget* where; ///< null: anywhere in the window
        QAbstractButton* button;
        std::function<void()> own;
    };
    [[nodiscard]] std::vector<KeyAction> keyTable();
    void connectKeys();
    void connectLists();
    void connectBoxes();
    void openManual();

    void offerMenu(ListBox& list, const QPoint& place);
    void addUndo(QMenu& menu);
    /// Shows the menu of a row in a box's list that is dropped down.
    static void offerOverList(QMenu& menu, ComboBox& box, int row, const QPoint& place);
    /// Entries that press buttons; their data is true.
    static void addButtons(QMenu& menu, const std::vector<QAbstractButton*>& buttons);
    /// Of an aircraft, or else of an airport with its map, and both in the explorer; nothing for neither.
    void addFlights(QMenu& menu, std::string_view aircraftCode, std::string_view airportCode);
    static void addTexts(QMenu& menu, ListBox& list);

    QWidget& m_window;
    WindowBoxes& m_boxes;
    CommandRunner& m_runner;
    Lists& m_lists;
    ViewCommands& m_views;
    UndoCommands& m_undo;
    ExplorerWindow& m_explorer;
    StatusLine& m_status;
    std::unique_ptr<QObject> m_everywhere; // keys of all windows; the watch over the focus ends with it
    bool m_airportLast = false;            // which of the two boxes had the focus last, for Find
};

} // namespace vantor
