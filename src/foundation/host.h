// Foundation: what the whole program stands on and that knows nothing of traffic.
// The Host: what the logic asks of the window system and of the user's desktop.
#pragma once

#include "foundation/clock.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vantor {

/// Shapes of the screen's mouse pointer.
enum class Pointer { Normal, Busy, SizeAll };

/// What an event pump lets through.
enum class Pump {
    PaintAndTimers, ///< the window repaints and timers run; keys and clicks wait
    Everything,     ///< keys and clicks as well, for waits that can be cancelled
    DropInput,      ///< the window repaints and timers run; keys and clicks are lost
};

/// The system's version record. Platform 1 is the 9x line, 2 the NT line, 0 anything else.
struct SystemVersion {
    int platform = 0;
    int major = 0;
    int minor = 0;
};

/// What the logic needs of the platform. The program puts one in use at its start, each test its own.
class Host {
  public:
    Host() = default;
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    virtual ~Host() = default;

    /// A plain message box with an OK button.
    virtual void message(std::string_view text) = 0;
    /// A plain message box with Yes and No; true for Yes, false for No or any other way out.
    [[nodiscard]] virtual bool askYesNo(std::string_view text) = 0;
    virtual void setPointer(Pointer pointer) = 0;
    /// Lets pending events run, and returns.
    virtual void pumpEvents(Pump what) = 0;
    /// Whether an event pump runs now, inside a command.
    [[nodiscard]] virtual bool pumping() = 0;
    /// Whether keys or clicks wait to be handled.
    [[nodiscard]] virtual bool inputPending() = 0;
    /// Puts the thread to sleep.
    virtual void sleepFor(int milliseconds) = 0;
    /// Calls `tick` every so often from whatever event loop runs, a dialog's too, until the result goes, which is never
    /// null.
    [[nodiscard]] virtual std::shared_ptr<void> every(int milliseconds, std::function<void()> tick) = 0;

    /// How the user's locale writes things: the short date, a date and time in the general form, the full name of
    /// weekday 1 (Sunday) to 7, and the words for true and false.
    [[nodiscard]] virtual std::string shortDate(const Date& date) = 0;
    [[nodiscard]] virtual std::string generalDateTime(DateTime value) = 0;
    [[nodiscard]] virtual std::string weekdayName(int day) = 0;
    [[nodiscard]] virtual std::string booleanWord(bool value) = 0;

    /// The system's version; empty when the system would not tell.
    [[nodiscard]] virtual std::optional<SystemVersion> systemVersion() = 0;

    /// Shows a text file (a path of the program) in the user's text viewer, without waiting. No viewer is no error.
    virtual void viewTextFile(std::string_view path) = 0;
    /// Opens a file or a folder (a path of the program) with the program that the desktop has for it, without waiting.
    /// `failed` is called, now or from the event loop, when none opens it.
    virtual void openFile(std::string_view path, std::function<void()> failed) = 0;
    /// Opens an address (web or mail) with the system's own program, without waiting.
    virtual void openAddress(std::string_view address) = 0;
    /// Starts a program of a command line "{program path} {arguments}", without waiting.
    virtual void startProgram(std::string_view program, std::string_view arguments) = 0;
};

/// The host in use. Until one is put in use it is one that shows nothing, answers No and speaks English.
[[nodiscard]] Host& host() noexcept;
/// Puts a host in use; nullptr brings the silent one back. The host must outlive its use.
void useHost(Host* host) noexcept;

/// The hourglass, then pending events run.
void busymouse();
/// The normal pointer, then pending events run.
void normalmouse();
/// Opens a web address or a mail request by the system's shell; the result is not looked at.
void websitevisit(std::string_view address);

} // namespace vantor
