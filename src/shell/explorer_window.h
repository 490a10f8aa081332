// Shell: the main window, its dialogs and the settings of the application.
// The explorer beside the main window: what opens it, what it lets the user change, and when it looks again.
#pragma once

#include "core/records.h"
#include "foundation/trap.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class QWidget;

namespace vantor {

class ComboBox;
class CommandRunner;
class ListBox;
class frmExplorer;
class Lists;
class UndoCommands;
struct Workspace;

/// Its commands are those of the main window, for the rows that are selected in it.
class ExplorerWindow {
  public:
    /// What they read, fill and press in the window.
    struct Controls {
        ListBox* List1;
        ListBox* List2;
        ComboBox* cmbICAO;
    };

    /// `window` is the main window; all of these must outlive this.
    ExplorerWindow(QWidget& window, const Controls& ui, Workspace& workspace, CommandRunner& runner, Lists& lists,
                   UndoCommands& undo);
    ~ExplorerWindow();
    ExplorerWindow(const ExplorerWindow&) = delete;
    ExplorerWindow& operator=(const ExplorerWindow&) = delete;

    /// Brings it up; a filter that is not empty takes the place of the one it has.
    void open(std::string_view filter = {});
    /// Looks whether a command that has ended changed what it shows.
    void commandEnded();
    void close();

  private:
    // What tells that the tables, or what is shown of them, are other ones.
    struct Seen {
        std::int64_t state = 0;
        std::int32_t airports = 0;
        float offset = 0;
        friend bool operator==(const Seen&, const Seen&) = default;
    };

    [[nodiscard]] frmExplorer& form();
    std::string edit(const StandardTrap& trap, LegId id);
    std::string remove(const StandardTrap& trap, const std::vector<LegId>& rows);
    std::string swap(const StandardTrap& trap, const std::vector<LegId>& rows);
    std::string copy(const StandardTrap& trap, const std::vector<LegId>& rows);
    void goThrough(std::size_t count, const std::function<void(std::size_t)>& step);
    void refresh(const StandardTrap& trap);

    QWidget& m_window;
    Controls m_ui;
    Workspace& m_workspace;
    CommandRunner& m_runner;
    Lists& m_lists;
    UndoCommands& m_undo;
    std::unique_ptr<frmExplorer> m_form; // made when it is opened first
    Seen m_seen;
};

} // namespace vantor
