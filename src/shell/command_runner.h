// Shell: the main window, its dialogs and the settings of the application.
// The guard of the window's commands: one at a time, each under a trap in its own name.
#pragma once

#include "core/undo.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "platform/combo_box.h"
#include "platform/list_box.h"

#include <QAbstractButton>

#include <functional>
#include <string>

namespace vantor {

/// Runs the commands of a window. A command is refused while another one runs, and a close waits for its end.
class CommandRunner {
  public:
    /// Gives back what it did, in a few words for the user; empty when there is nothing to tell.
    using Command = std::function<std::string(const StandardTrap&)>;

    /// The window that closes behind its commands; it must outlive the runner.
    explicit CommandRunner(QWidget& window) : m_window(window) {}
    CommandRunner(const CommandRunner&) = delete;
    CommandRunner& operator=(const CommandRunner&) = delete;

    /// A command that runs. They may stand one inside the other.
    class Running {
      public:
        explicit Running(CommandRunner& runner) : m_runner(runner) { ++m_runner.m_running; }
        ~Running();
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;

      private:
        CommandRunner& m_runner;
    };

    /// Called at the end of each command with what it did, and the fault that it met last; each may be empty.
    std::function<void(const std::string& did, const std::string& fault)> ended;

    /// Whether a command runs.
    [[nodiscard]] bool busy() const noexcept { return m_running > 0; }
    /// How many commands have begun: two equal counts tell that none did in between.
    [[nodiscard]] int begun() const noexcept { return m_begun; }
    /// Whether a close that comes now must wait; the window is then closed behind the command that runs.
    [[nodiscard]] bool holdsClose() noexcept;

    /// Runs a command unless one runs already; false when it was refused. The trap it is handed is also the last resort
    /// for what it lets out.
    bool run(Procedure procedure, const Command& command);

    /// Gives a button its command: a member of a group, which must outlive the button's clicks. What it changes in the
    /// tables is one step of the journal, named by what it did, or else by the button's caption.
    template <class Group>
    void command(QAbstractButton* button, Procedure procedure, Group* group,
                 std::string (Group::*handler)(const StandardTrap&)) {
        QObject::connect(button, &QAbstractButton::clicked, button, [this, button, procedure, group, handler] {
            run(procedure, [&](const StandardTrap& trap) {
                const Step step{fromQString(button->text().remove(u'&'))};
                std::string did = std::invoke(handler, group, trap);
                if (!did.empty()) {
                    nameStep(did);
                }
                return did;
            });
        });
    }
    /// Gives the clicks on the rows of a box their handler. They are never refused: commands click rows themselves.
    template <class Box, class Group>
    static void rowClick(Box* box, Procedure procedure, Group* group, void (Group::*handler)(const StandardTrap&)) {
        QObject::connect(box, &Box::rowClicked, box, [procedure, group, handler] {
            const StandardTrap trap{procedure};
            trap(handler, group, trap);
        });
    }

  private:
    QWidget& m_window;
    int m_running = 0;
    int m_begun = 0;
    bool m_closeWaits = false;
};

} // namespace vantor
