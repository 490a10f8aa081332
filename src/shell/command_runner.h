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

namespace vantor {

/// Runs the commands of a window. A command is refused while another one runs, and a close waits for its end.
class CommandRunner {
  public:
    using Command = std::function<void(const StandardTrap&)>;

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
    /// tables is one step of the journal, under the button's caption unless the command names it better.
    template <class Group>
    void command(QAbstractButton* button, Procedure procedure, Group* group,
                 void (Group::*handler)(const StandardTrap&)) {
        QObject::connect(button, &QAbstractButton::clicked, button, [this, button, procedure, group, handler] {
            run(procedure, [&](const StandardTrap& trap) {
                const Step step{fromQString(button->text().remove(u'&'))};
                std::invoke(handler, group, trap);
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
