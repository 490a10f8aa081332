// Platform: the Qt side of the program.
// The Host of the running program: message boxes, the pointer, event pumps, the locale and the desktop.
#pragma once

#include "foundation/host.h"

#include <QLocale>
#include <QMessageBox>
#include <QPointer>
#include <QString>
#include <QTime>
#include <QUrl>
#include <QWidget>

#include <functional>
#include <string_view>

namespace vantor {

/// A message as a box shows it: its lines end in CR, which Qt's labels would run over.
[[nodiscard]] QString boxText(std::string_view text);
/// A time in the locale's long form, without the time zone and what stands around it.
[[nodiscard]] QString longTime(const QLocale& locale, QTime time);
/// An address or mail request as a URL. One that was cut in the middle of an escape keeps all its other escapes.
[[nodiscard]] QUrl addressUrl(std::string_view address);

/// Needs a QApplication while it is in use. Tests find its boxes by the object names "messageBox" and "questionBox".
class QtHost : public Host {
  public:
    QtHost() = default;
    ~QtHost() override;

    /// The window that boxes belong to while no window is active.
    void setMainWindow(QWidget* window) { m_mainWindow = window; }

    void message(std::string_view text) override;
    /// Escape and the closing of the box give No, which is also the default button.
    bool askYesNo(std::string_view text) override;
    void setPointer(Pointer pointer) override;
    void pumpEvents(Pump what) override;
    bool pumping() override { return m_pumps > 0; }
    /// On Windows what the system tells. Elsewhere it can't be asked, and the answer is yes: one pump more than needed
    /// does no harm, one fewer freezes the window.
    bool inputPending() override;
    void sleepFor(int milliseconds) override;
    std::shared_ptr<void> every(int milliseconds, std::function<void()> tick) override;

    std::string shortDate(const Date& date) override;
    std::string generalDateTime(DateTime value) override;
    std::string weekdayName(int day) override;
    std::string booleanWord(bool value) override;

    std::optional<SystemVersion> systemVersion() override;

    void viewTextFile(std::string_view path) override;
    void openFile(std::string_view path, std::function<void()> failed) override;
    void openAddress(std::string_view address) override;
    void startProgram(std::string_view program, std::string_view arguments) override;

  private:
    [[nodiscard]] QWidget* owner() const;
    /// Shows a box with the normal arrow, whatever the pointer was, and brings the pointer back.
    int show(QMessageBox& box);
    void showPointer(Pointer pointer);

    QPointer<QWidget> m_mainWindow;
    Pointer m_pointer = Pointer::Normal;
    int m_pumps = 0;           // one inside the other
    bool m_overridden = false; // our one entry on the application's stack of pointers
};

} // namespace vantor
