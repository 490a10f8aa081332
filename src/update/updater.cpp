#include "update/updater.h"

#include "core/settings_keys.h"
#include "foundation/busy_pointer.h"
#include "foundation/clock.h"
#include "foundation/disk.h"
#include "foundation/error.h"
#include "foundation/host.h"
#include "foundation/log.h"
#include "foundation/native_path.h"
#include "foundation/progress.h"
#include "foundation/text.h"
#include "foundation/text_files.h"
#include "foundation/trap.h"
#include "locale/translation.h"
#include "update/automatic_check.h"
#include "update/curl_control.h"
#include "update/status_text.h"

#include <utility>

namespace vantor {

namespace {

constexpr std::string_view module = "fSharedUpdater";
constexpr std::string_view homePage = VANTOR_HOME_PAGE;

// The trap of the check: it notes a fault the other way round than the standard one, and goes on as that does.
class CheckTrap : public Trap<CheckTrap> {
  public:
    constexpr explicit CheckTrap(std::string_view procedure) noexcept : m_procedure(procedure) {}

    void noteCurrent() const noexcept {
        const Error error = currentError();
        const StandardTrap trap{m_procedure, module};
        trap(logaction, std::to_string(error.number()) + "-" + error.description(), m_procedure, module);
    }

  private:
    std::string_view m_procedure;
};

std::string homePageText(std::string_view before, std::string_view behind) {
    return std::string(before).append(homePage).append(behind);
}

// What the form tells of a version, in lines that end with CR LF.
std::string detailsOf(const std::string& reply) {
    // Only a page with both words counts as the server's own about a missing file.
    const bool missing = containsNoCase(reply, "html") && containsNoCase(reply, "404");
    return reply.empty() || missing
               ? "Unable to read data from server. Please check your internet settings and try again."
               : replaceAll(replaceAll(reply, "\r\n", "\n"), "\n", "\r\n");
}

} // namespace

// Marks that something runs: all other commands are out of reach until its end.
class Updater::Running {
  public:
    explicit Running(Updater& updater) : m_updater(updater) {
        if (m_updater.m_running++ == 0) {
            m_updater.m_stopped = false;
            m_updater.m_form.enableCommands(false);
        }
    }
    ~Running() { finish(); }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    void finish() {
        if (!std::exchange(m_finished, true) && --m_updater.m_running == 0) {
            m_updater.m_form.enableCommands(true);
        }
    }

  private:
    Updater& m_updater;
    bool m_finished = false;
};

Updater::Updater(UpdaterForm& form, std::unique_ptr<TransferControl> control)
    : m_form(form), m_internet(control ? std::move(control) : makeCurlControl()) {
    m_internet.Progress = [this](double value, std::string_view text) { cInternet_Progress(value, text); };
    m_internet.Status = [this](std::string_view text) { cInternet_Status(text); };
    m_internet.NoInternet = [this] { cInternet_NoInternet(); };
}

Updater::~Updater() {
    m_stopped = true;
}

void Updater::cInternet_Progress(double value, std::string_view text) noexcept {
    if (m_checking || m_stopped) {
        return;
    }
    m_connecting = false;
    if (value == 100) {
        // Quirk: the text begins with that word already, which is so read twice.
        showStatus("Downloaded " + std::string(text));
    } else {
        m_statusText = text;
        showprogressstring(&m_form.picStatus(), value, 100, text);
    }
}

void Updater::cInternet_Status(std::string_view text) noexcept {
    if (m_connecting && !m_stopped) {
        showStatus(text);
    }
}

void Updater::cInternet_NoInternet() noexcept {
    m_noInternet = true;
}

void Updater::showStatus(std::string_view text) noexcept {
    const StandardTrap trap{"sub showstatus", module};
    m_statusText = text;
    redrawStatus();
    if (events.status) {
        trap(events.status, text);
    }
}

void Updater::redrawStatus() noexcept {
    const StandardTrap trap{"sub redrawstatus", module};
    trap(printStatusText, m_form.picStatus(), m_statusText);
}

void Updater::storeAutoCheck() noexcept {
    sset(keys::disableAutoUpdateCheck, m_form.disableAutoUpdate());
}

void Updater::StopAll() noexcept {
    const StandardTrap trap{"sub stopall", module};
    m_stopped = true;
    m_internet.Cancel();
    if (!m_form.isShown()) {
        return;
    }
    storeAutoCheck();
    if (events.closed) {
        trap(events.closed);
    }
    trap(&UpdaterForm::unload, m_form);
}

// ---- The check ------------------------------------------------------------------------------------------------------

bool Updater::CheckForUpdate(bool silent, const UpdateSource& source, std::string_view version) noexcept {
    const CheckTrap trap{"sub checkforupdate"};
    if (m_checking) {
        return false;
    }
    Running running(*this);
    m_checking = true;
    m_silent = silent;
    std::string finalText;
    bool autoCheckOff = true; // also where the store holds no flag
    trap(&UpdaterForm::load, m_form);
    if (!version.empty()) {
        trap(&UpdaterForm::setProgram, m_form, "Version " + std::string(version));
    }
    const Version own = ExtractVersion(version.empty() ? AppVersion() : std::string(version)).version;
    if (!silent) {
        trap(&UpdaterForm::showForm, m_form);
        trap(&Host::pumpEvents, host(), Pump::PaintAndTimers);
    }
    trap.set(autoCheckOff, setting<bool>, keys::disableAutoUpdateCheck);
    trap(&UpdaterForm::setDisableAutoUpdate, m_form, autoCheckOff);
    m_source = source;
    const std::string reply = askServer();
    m_checking = false;
    if (m_stopped) {
        return false; // closed meanwhile: there is nobody left to tell
    }
    bool newer = false;
    if (reply.empty() || containsNoCase(reply, "<HTML")) {
        finalText = tellFailure();
    } else {
        running.finish(); // a form that comes up now must be of use
        newer = tellAnswer(reply, own, finalText);
    }
    showStatus(finalText); // empty when a newer version was found
    trap(logdebug, finalText, "sub checkforupdate", module);
    running.finish();
    if (events.checkFinished) {
        trap(events.checkFinished);
    }
    return newer;
}

std::string Updater::askServer() noexcept {
    m_noInternet = false;
    m_internet.Cancel();
    showStatus("Checking for update");
    m_internet.ApplyProxy();
    std::string reply;
    if (!m_stopped) { // each pump may have closed the form
        reply = m_internet.OpenURL(m_source.currenturl, !m_silent);
    }
    return reply;
}

std::string Updater::tellFailure() noexcept {
    const CheckTrap trap{"sub checkforupdate"};
    const auto note = [&](const std::string& text) { trap(logaction, text, "sub checkforupdate", module); };
    trap(&UpdaterForm::setUpdate, m_form, gettranslation("Could not retrieve update status"), updateFailedColour);
    note("Could not retrieve information from the update server.");
    if (m_noInternet) {
        note("MSINET control is missing or outdated");
        return homePageText("The internet control (MSINET.OCX) is missing or outdated. Visit the Runtimes page on ",
                            " to download an updated version.");
    }
    note(homePageText("Please visit ", " to see if an update is available."));
    return homePageText("Update check failed. Visit ", " to update this program manually.");
}

bool Updater::tellAnswer(std::string_view reply, const Version& own, std::string& finalText) noexcept {
    const CheckTrap trap{"sub checkforupdate"};
    showStatus("Data retrieved");
    const VersionFile file = ExtractVersion(reply);
    m_setupurl = file.url;
    if (file.url.empty()) {
        trap(&UpdaterForm::setUpdate, m_form, gettranslation("Could not read update status from file"), std::nullopt);
        finalText = "Update check failed, could not read download filename";
        return false;
    }
    if (!isNewer(file.version, own)) {
        tellUpToDate(file.version.text());
        finalText = "Latest available version is " + file.version.text();
        return false;
    }
    tellNewer(file.version.text());
    return true;
}

void Updater::tellNewer(const std::string& version) noexcept {
    const CheckTrap trap{"sub checkforupdate"};
    // A date text here and a day number below: both are told apart when they are read.
    sset(keys::lastUpdateCheck, checkDateText(today()));
    trap(&UpdaterForm::setUpdate, m_form,
         gettranslation("Version") + " " + version + " " + gettranslation("is available!"), updateFoundColour);
    bool view = false;
    if (m_silent) {
        trap.set(view, &Host::askYesNo, host(),
                 gettranslation("An update is available. Would you like to view the details now?"));
    }
    if (view) {
        trap(&UpdaterForm::showModally, m_form);
    }
}

void Updater::tellUpToDate(const std::string& version) noexcept {
    const CheckTrap trap{"sub checkforupdate"};
    sset(keys::lastUpdateCheck, today());
    trap(logit, "Already up to date (Available version is " + version + ")");
    // Quirk: red, as a failure is.
    trap(&UpdaterForm::setUpdate, m_form, gettranslation("You're up to date!"), updateFailedColour);
}

void Updater::ShowandCheck(const UpdateSource& source, std::string_view version) noexcept {
    const CheckTrap trap{"sub showandcheck"};
    if (isRunning()) {
        m_silent = false; // a silent check becomes one that the user asked for
        if (!m_stopped) {
            trap(&UpdaterForm::showForm, m_form);
        }
        return;
    }
    const bool newer = CheckForUpdate(false, source, version);
    if (!newer && !m_stopped) {
        trap(&UpdaterForm::showModally, m_form);
    }
}

void Updater::checkAgain() noexcept {
    if (!isRunning()) {
        CheckForUpdate(false, UpdateSource(m_source));
    }
}

void Updater::showDetails() noexcept {
    const StandardTrap trap{"sub cmdshowdetail_click", module};
    if (isRunning()) {
        return;
    }
    const Running running(*this);
    const BusyPointer busy{trap};
    trap(&UpdaterForm::setDetails, m_form, "Retrieving info...");
    trap(&Host::pumpEvents, host(), Pump::PaintAndTimers);
    std::string reply;
    if (!m_stopped) {
        reply = m_internet.OpenURL(m_source.detailsurl, true);
    }
    if (!m_stopped) {
        trap(&UpdaterForm::setDetails, m_form, detailsOf(reply));
    }
}

// ---- The download ---------------------------------------------------------------------------------------------------

void Updater::download() noexcept {
    if (isRunning()) {
        return;
    }
    const Running running(*this);
    if (fetchSetup()) {
        showSaved();
    }
}

void Updater::downloadAndInstall() noexcept {
    const StandardTrap trap{"sub cmddownloadinstall_click", module};
    if (isRunning()) {
        return;
    }
    const Running running(*this);
    if (!fetchSetup() || m_stopped) {
        return;
    }
    bool install = m_install;
    if (!install) {
        trap.set(install, &Host::askYesNo, host(), "The update has been downloaded. Do you want to install it now?");
    }
    bool leaving = false;
    if (install) {
        trap(&Host::pumpEvents, host(), Pump::PaintAndTimers);
        if (events.restart) {
            trap.set(leaving, events.restart);
        }
    }
    if (!leaving) {
        showSaved();
    } else if (!m_install) {
        StopAll();
    }
}

void Updater::DownloadAndInstall(std::string_view name) noexcept {
    m_install = true;
    m_source.setupname = name;
    downloadAndInstall();
}

std::string Updater::setupFile() const {
    return programFolder() + "\\" + m_source.setupname;
}

void Updater::showSaved() noexcept {
    showStatus("File saved to " + setupFile());
}

bool Updater::fetchSetup() noexcept {
    if (m_setupurl.empty()) {
        CheckForUpdate(false, UpdateSource(m_source));
    }
    // Without an address, the check has told what is wrong.
    return !m_setupurl.empty() && !m_stopped && getsetup(m_setupurl, setupFile());
}

bool Updater::getsetup(const std::string& setupurl, const std::string& local) noexcept {
    const StandardTrap trap{"sub getsetup", module};
    m_internet.ApplyProxy();
    const BusyPointer busy{trap};
    trap(logit, "Trying to download " + local);
    m_connecting = true;
    bool result = false;
    if (!m_stopped && m_internet.GetFile(setupurl, local, true, false, false)) {
        result = isSetup(local);
    } else if (m_stopped) {
        trap(logit, "Download cancelled");
    } else {
        showStatus("Error - Download failed.");
    }
    m_connecting = false;
    return result;
}

bool Updater::isSetup(const std::string& local) noexcept {
    const StandardTrap trap{"sub getsetup", module};
    const std::int32_t expected = m_internet.ExpectedFilesize();
    std::uintmax_t length = 0;
    trap.set(length, FileLength, local);
    if (expected > 0 && length != static_cast<std::uintmax_t>(expected)) {
        showStatus("Error - Downloaded file is incomplete. Please retry");
        EraseFile(local);
        return false;
    }
    if (length >= leastSetupBytes) {
        return true;
    }
    std::string text;
    trap(LoadTextFile, local, text);
    if (containsNoCase(text, "<HTML>")) {
        EraseFile(local);
        showStatus("Error - File not found on server.");
    } else {
        showStatus("Error - Download failed."); // too short for a setup file, whatever it is
    }
    return false;
}

} // namespace vantor
