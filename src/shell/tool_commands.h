// Shell: the main window, its dialogs and the settings of the application.
// The simulator: which one is meant, its outside tool, the report on its aircraft folders, and the settings.
#pragma once

#include "foundation/trap.h"

#include <cstdint>
#include <string>

class QRadioButton;
class QAbstractButton;
class QGroupBox;
class QWidget;

namespace vantor {

namespace Ui {
class CompileBox;
class MissingAircraftBox;
class ModeBox;
} // namespace Ui
class CommandRunner;
class ListBox;
class Lists;
class StatusLine;
struct Workspace;

/// Chooses the mode and runs what works on the simulator's files.
class ToolCommands {
  public:
    /// What they read, fill and press in the window.
    struct Controls {
        Ui::ModeBox& mode;
        Ui::CompileBox& compile;
        Ui::MissingAircraftBox& missing;
        QGroupBox* FrameFSAC;
        QAbstractButton* cmdSettings;
        ListBox* List1;
    };

    /// Connects options and buttons. `owner` is the parent of the dialogs; all of these must outlive the commands.
    ToolCommands(QWidget& owner, const Controls& ui, Workspace& workspace, CommandRunner& runner, Lists& lists,
                 StatusLine& status);

    /// Options, tool buttons and captions for fsmode as it stands.
    void setupformwithcurrentmode() noexcept;
    /// Makes another mode the current one, as its option does.
    void chooseMode(std::int16_t mode);

  private:
    std::string compile(const StandardTrap& trap);
    std::string decompile(const StandardTrap& trap);
    std::string report(const StandardTrap& trap);
    std::string settings(const StandardTrap& trap);

    void runTool(const StandardTrap& trap, const std::string& command);
    void connectMode(QRadioButton* option, Procedure procedure, std::int16_t mode, CommandRunner& runner);
    void markMode();

    QWidget& m_owner;
    Controls m_ui;
    Workspace& m_workspace;
    Lists& m_lists;
    StatusLine& m_status;
};

} // namespace vantor
