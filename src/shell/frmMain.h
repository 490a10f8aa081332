// Shell: the main window, its dialogs and the settings of the application.
// frmMain, the one main window: its life and its size. Its commands stand in groups of their own.
#pragma once

#include "shell/command_runner.h"
#include "shell/life.h"
#include "shell/workspace.h"

#include <QMainWindow>

#include <cstdint>
#include <memory>
#include <string_view>

namespace vantor {

namespace Ui {
class frmMain;
}
class Actions;
class AircraftCommands;
class ExplorerWindow;
class FileCommands;
class Lists;
class RescueKeeper;
class RescueOffer;
class ScheduleCommands;
class ToolCommands;
class UndoCommands;
class StatusLine;
class UpdateCommands;
class UtilityCommands;
class ViewCommands;
struct WindowBoxes;

class frmMain : public QMainWindow, public Life {
    Q_OBJECT
  public:
    explicit frmMain(QWidget* parent = nullptr);
    ~frmMain() override;

    /// Form_Load: a new log, the settings, and the window set up for the mode. No traffic is loaded.
    void formLoad();

    /// Loads the changes that are offered, unless the user wants to keep those that are there.
    void restoreKept();

    /// Shows the message, logs it and ends the program.
    void errorexit(std::string_view message) noexcept;
    void exitprog() noexcept override;
    void giveUpChanges() noexcept override;
    void endProcess(int code) noexcept override;
    [[nodiscard]] bool ended() const noexcept override { return m_ended; }

    [[nodiscard]] Workspace& workspace() noexcept { return m_workspace; }
    [[nodiscard]] Lists& lists() noexcept { return *m_lists; }
    [[nodiscard]] ViewCommands& views() noexcept { return *m_views; }
    [[nodiscard]] FileCommands& files() noexcept { return *m_files; }
    [[nodiscard]] RescueKeeper& rescue() noexcept { return *m_rescue; }
    [[nodiscard]] UpdateCommands& updates() noexcept { return *m_updates; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void setUpBoxes();
    void makeGroups();
    void fitPanel();
    void showAbout();
    void connectStatus();

    std::unique_ptr<Ui::frmMain> ui;
    std::unique_ptr<WindowBoxes> m_boxes;
    StatusLine* m_status;
    Workspace m_workspace;
    CommandRunner m_runner{*this};
    std::unique_ptr<RescueKeeper> m_rescue;
    RescueOffer* m_offer;
    std::unique_ptr<Lists> m_lists;
    std::unique_ptr<ScheduleCommands> m_schedules;
    std::unique_ptr<ViewCommands> m_views;
    std::unique_ptr<UtilityCommands> m_utilities;
    std::unique_ptr<AircraftCommands> m_aircraft;
    std::unique_ptr<ToolCommands> m_tools;
    std::unique_ptr<FileCommands> m_files;
    std::unique_ptr<UpdateCommands> m_updates;
    std::unique_ptr<UndoCommands> m_undo;
    std::unique_ptr<ExplorerWindow> m_explorer;
    std::unique_ptr<Actions> m_actions;
    bool m_opened = false;
    bool m_ended = false;
};

} // namespace vantor
