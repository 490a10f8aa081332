// Update: asks the update server for newer versions and fetches the setup program.
// The updater without its window: the check, the download of the setup file, and what is shown of both.
#pragma once

#include "foundation/canvas.h"
#include "update/cSHAREDInternet.h"
#include "update/version_file.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vantor {

/// Colours of what a check found.
inline constexpr Colour updateFailedColour = 192;  ///< red
inline constexpr Colour updateFoundColour = 32768; ///< green

/// A setup file is at least this long; what is shorter may be the server's page that tells of an error.
inline constexpr std::uintmax_t leastSetupBytes = 25000;

/// Where a newer version is asked for, and the name that its setup file gets in the program's folder.
struct UpdateSource {
    std::string currenturl; ///< address of the version file
    std::string detailsurl; ///< address of the text about the version
    std::string setupname;
};

/// The updater's form, as far as the updater needs it.
class UpdaterForm {
  public:
    UpdaterForm() = default;
    UpdaterForm(const UpdaterForm&) = delete;
    UpdaterForm& operator=(const UpdaterForm&) = delete;
    virtual ~UpdaterForm() = default;

    /// Gives the controls their start values, unless that was done since the latest unload.
    virtual void load() = 0;
    /// Shows the form and returns at once.
    virtual void showForm() = 0;
    /// Shows the form until the user closes it, other windows out of reach.
    virtual void showModally() = 0;
    /// Takes the form off the screen.
    virtual void unload() = 0;
    [[nodiscard]] virtual bool isShown() const = 0;

    /// The version that the user has.
    virtual void setProgram(std::string_view text) = 0;
    /// What a check found. Without a colour it is the label's own.
    virtual void setUpdate(std::string_view text, std::optional<Colour> colour) = 0;
    /// What the server tells about a version, in lines that end with CR LF.
    virtual void setDetails(std::string_view text) = 0;
    /// The tick that switches the automatic check off.
    virtual void setDisableAutoUpdate(bool value) = 0;
    [[nodiscard]] virtual bool disableAutoUpdate() const = 0;
    /// Check, details and downloads: all out of reach while one of them runs.
    virtual void enableCommands(bool enabled) = 0;
    /// The status bar, there for as long as the form.
    [[nodiscard]] virtual Canvas& picStatus() = 0;
};

/// What the updater tells its owner. Each may be left empty.
struct UpdaterEvents {
    std::function<void(std::string_view)> status; ///< a text came up in the status bar
    std::function<void()> checkFinished;
    /// The setup file is there and the user wants it installed. False when the program stays up all the same.
    std::function<bool()> restart;
    std::function<void()> closed;
};

/// One check or transfer runs at a time, on the window's thread: the calls block with the window alive, and StopAll
/// may come at any moment in between.
class Updater {
  public:
    /// Transfers go through the control given, or through the program's own. The form must outlive the updater.
    explicit Updater(UpdaterForm& form, std::unique_ptr<TransferControl> control = nullptr);
    Updater(const Updater&) = delete;
    Updater& operator=(const Updater&) = delete;
    ~Updater();

    UpdaterEvents events;

    /// The form closes: stores its box, and cancels what runs, which then tells nothing.
    void StopAll() noexcept;
    /// Stores whether the automatic check is switched off, as the form's box tells.
    void storeAutoCheck() noexcept;
    /// Asks the server and shows what it answered; true if there is a newer version. `version` is the program's own
    /// when empty. A silent check shows nothing, and asks when it found something.
    bool CheckForUpdate(bool silent, const UpdateSource& source, std::string_view version = {}) noexcept;
    /// The check as the user asks for it, with the form. While something runs, it brings the form up and no more.
    void ShowandCheck(const UpdateSource& source, std::string_view version = {}) noexcept;
    /// Downloads and hands over without a question. `name` is that of the setup file.
    void DownloadAndInstall(std::string_view name) noexcept;
    /// A transfer's progress in percent, drawn into the status bar; passed over during a check and once closed.
    void cInternet_Progress(double value, std::string_view text) noexcept;
    /// A transfer's state, shown while a download has no progress yet.
    void cInternet_Status(std::string_view text) noexcept;
    /// The transfer control can't be used: the check that runs fails for that reason.
    void cInternet_NoInternet() noexcept;

    // The form's commands. Each does nothing while something runs.
    /// Checks with the addresses of the latest check.
    void checkAgain() noexcept;
    /// Fetches the text about the available version into the form.
    void showDetails() noexcept;
    /// Downloads the setup file into the program's folder, after a check while no address is known.
    void download() noexcept;
    /// The same, then asks whether to install, and hands over.
    void downloadAndInstall() noexcept;
    /// Draws the status bar again, as after a change of its size.
    void redrawStatus() noexcept;
    /// Whether a check or a transfer runs.
    [[nodiscard]] bool isRunning() const noexcept { return m_running > 0; }

  private:
    class Running;

    [[nodiscard]] std::string askServer() noexcept;
    [[nodiscard]] std::string tellFailure() noexcept;
    [[nodiscard]] bool tellAnswer(std::string_view reply, const Version& own, std::string& finalText) noexcept;
    void tellNewer(const std::string& version) noexcept;
    void tellUpToDate(const std::string& version) noexcept;
    void showStatus(std::string_view text) noexcept;
    [[nodiscard]] bool fetchSetup() noexcept;
    [[nodiscard]] bool getsetup(const std::string& setupurl, const std::string& local) noexcept;
    [[nodiscard]] bool isSetup(const std::string& local) noexcept;
    [[nodiscard]] std::string setupFile() const;
    void showSaved() noexcept;

    UpdaterForm& m_form;
    UpdateSource m_source;
    std::string m_setupurl;
    std::string m_statusText;
    int m_running = 0;
    bool m_checking = false;
    bool m_silent = false;
    bool m_stopped = false; // since the latest call began
    bool m_noInternet = false;
    bool m_connecting = false;  // a download has no progress yet: states are shown
    bool m_install = false;     // hand over without a question
    cSHAREDInternet m_internet; // goes first: its end may raise an event
};

} // namespace vantor
