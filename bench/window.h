// Bench: measurements, as ratios in one run, on traffic made for them.
// The main window over generated folders, without a screen: what is measured is what its user waits for.
#pragma once

#include "platform/qt_host.h"
#include "shell/file_commands.h"
#include "shell/frmMain.h"
#include "shell/lists.h"
#include "shell/view_commands.h"

#include <QApplication>

#include <filesystem>

namespace vantor::bench {

class Window {
  public:
    Window(int& argc, char** argv);
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    /// Makes a folder the program's own, as if the window had been started there.
    void moveTo(const std::filesystem::path& folder);
    [[nodiscard]] frmMain& form() { return *m_form; }

  private:
    QApplication m_application;
    QtHost m_host;
    std::unique_ptr<frmMain> m_form;
};

} // namespace vantor::bench
