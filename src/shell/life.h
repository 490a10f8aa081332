// Shell: the main window, its dialogs and the settings of the application.
// What commands may ask of the program's life.
#pragma once

namespace vantor {

/// The ways out of the program. The main window is the one that knows them.
class Life {
  public:
    Life() = default;
    Life(const Life&) = delete;
    Life& operator=(const Life&) = delete;
    virtual ~Life() = default;

    /// Saves the settings, asks about unsaved changes, and on Yes (or without any) ends the program.
    virtual void exitprog() noexcept = 0;
    /// The user agreed to lose all changes.
    virtual void giveUpChanges() noexcept = 0;
    /// Ends the program with an exit code; nothing is asked or told.
    virtual void endProcess(int code) noexcept = 0;
    /// Whether the program has ended, or is about to once the events at hand have run.
    [[nodiscard]] virtual bool ended() const noexcept = 0;
};

} // namespace vantor
