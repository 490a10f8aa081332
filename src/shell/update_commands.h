// Shell: the main window, its dialogs and the settings of the application.
// Newer versions of the program, asked for by a button and once a week by itself.
#pragma once

#include "foundation/trap.h"

#include <functional>
#include <memory>

class QAbstractButton;
class QTimer;
class QWidget;

namespace vantor {

class CommandRunner;
class Life;
class TransferControl;
class fSHAREDUpdater;
struct Workspace;

/// Checks for updates and hands over to the installer.
class UpdateCommands {
  public:
    /// Connects the button and makes the timer of the automatic check. All of these must outlive the commands.
    UpdateCommands(QWidget& window, QAbstractButton& cmdCheckUpdate, Workspace& workspace, CommandRunner& runner,
                   Life& life);

    /// Lets the automatic check come some seconds from now.
    void start();
    /// Ends what the updater does.
    void stop() noexcept;

    /// What the updater's transfers go through, asked for once at the first need; empty for the program's own control.
    std::function<std::unique_ptr<TransferControl>()> transferControl;

  private:
    [[nodiscard]] fSHAREDUpdater& updater();
    void begin(bool silent);
    void check() noexcept;
    void checkByItself() noexcept;
    [[nodiscard]] bool restartForInstall() noexcept;

    QWidget& m_window;
    Workspace& m_workspace;
    CommandRunner& m_runner;
    Life& m_life;
    QTimer* m_timer3;                    // the window's child
    fSHAREDUpdater* m_updater = nullptr; // the window's child, from the first need on
    // The commands that had begun when the user agreed to lose changes to an update. Who did so did not agree to lose
    // what a later one may add.
    int m_agreedAt = -1;
};

} // namespace vantor
