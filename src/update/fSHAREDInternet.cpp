#include "update/fSHAREDInternet.h"

#include "core/settings_keys.h"
#include "foundation/disk.h"
#include "foundation/error.h"
#include "foundation/host.h"
#include "foundation/progress.h"
#include "foundation/text.h"
#include "foundation/trap.h"
#include "update/proxy_settings.h"

#include <utility>

namespace vantor {

namespace {

constexpr int requestTimeout = 10; // seconds
constexpr int mostIdleSeconds = 60;
constexpr int mostRetries = 3;
constexpr int newsWait = 20;    // milliseconds that a turn of a waiting loop waits for the network
constexpr int timerPeriod = 50; // milliseconds from one step to the next in another one's event loop
constexpr std::string_view downloadCancelled = "Download cancelled";

} // namespace

fSHAREDInternet::fSHAREDInternet(std::unique_ptr<TransferControl> control) : m_control(std::move(control)) {
    m_control->onStateChanged([this](TransferState state) { stateChanged(state); });
}

// ---- Begin and end --------------------------------------------------------------------------------------------------

void fSHAREDInternet::begin(std::string_view url) {
    finish();
    if (m_control->stillExecuting()) {
        m_control->cancel();
    }
    ++m_request;
    m_url = url;
    m_localFile.clear();
    m_expectedFilesize = 0;
    m_received.clear();
    m_save = false;
    m_sizeFlag = false;
    m_ftp = false;
    m_repeated = false;
    m_retries = 0;
    m_idleTicks = 0;
    m_seconds.restart();
    m_timer = host().every(timerPeriod, [this] {
        if (!m_stepping) {
            step(0);
        }
    });
}

// What loops on the stack wait for is over. A file that is not complete goes.
void fSHAREDInternet::finish() noexcept {
    ++m_run;
    m_timer.reset();
    m_fetching = false;
    m_file.reset();
}

void fSHAREDInternet::fail(std::string_view text) noexcept {
    const StandardTrap trap{"sub fail", moduleName};
    finish();
    m_received.clear(); // part of a reply is none
    trap(&TransferControl::cancel, m_control);
    raise(DownloadError, text);
}

void fSHAREDInternet::unload() noexcept {
    const StandardTrap trap{"sub form_unload", moduleName};
    StatusText = nullptr;
    ProgressText = nullptr;
    DownloadFinished = nullptr;
    DownloadError = nullptr;
    Receiving = nullptr;
    NoInternet = nullptr;
    finish();
    m_received.clear();
    trap(&TransferControl::cancel, m_control);
}

bool fSHAREDInternet::Connected() const noexcept {
    const StandardTrap trap{"property get connected", moduleName};
    bool connected = false;
    trap.set(connected, &TransferControl::stillExecuting, m_control);
    return connected;
}

void fSHAREDInternet::Cancel() noexcept {
    const StandardTrap trap{"sub cancel", moduleName};
    trap(&TransferControl::cancel, m_control);
    finish();
    m_received.clear();
    raise(ProgressText, downloadCancelled, 0);
}

void fSHAREDInternet::CancelDownload() noexcept {
    const StandardTrap trap{"sub canceldownload", moduleName};
    finish();
    trap(&TransferControl::cancel, m_control);
    EraseFile(m_localFile);
    raise(DownloadError, downloadCancelled);
}

// ---- Requests -------------------------------------------------------------------------------------------------------

std::string fSHAREDInternet::OpenURL(std::string_view url, bool show) noexcept {
    const StandardTrap trap{"function openurl", moduleName};
    if (m_noControl) {
        raise(NoInternet);
        return {};
    }
    quietAll = !show;
    trap(&fSHAREDInternet::begin, this, url);
    const std::uint32_t mine = m_request;
    get();
    while (m_request == mine && underWay()) {
        wait();
    }
    return m_request == mine ? std::exchange(m_received, {}) : std::string();
}

void fSHAREDInternet::DownloadFile(std::string_view url, std::string_view local, bool sizeflag) noexcept {
    const StandardTrap trap{"sub downloadfile", moduleName};
    if (m_noControl) {
        EraseFile(local);
        raise(DownloadFinished); // Quirk: without a file; whoever waits goes on.
        raise(NoInternet);
        return;
    }
    trap(&fSHAREDInternet::begin, this, url);
    m_sizeFlag = sizeflag;
    m_save = true;
    // Quirk: the system's proxy at each download, after ApplyProxy too.
    trap(&TransferControl::setAccessType, m_control, AccessType::SystemDefault);
    EraseFile(local);
    m_localFile = local;
    trap(&TransferControl::setRequestTimeout, m_control, requestTimeout);
    m_ftp = equalNoCase(url.substr(0, 3), "FTP");
    if (!m_ftp) {
        get();
        return;
    }
    m_nextCommand = 0;
    trap.set(m_commands, fileServerCommands, m_url, m_localFile);
    if (m_commands.host.empty()) {
        fail("No address specified");
    } else {
        nextCommand();
    }
}

void fSHAREDInternet::get() noexcept {
    m_received.clear();
    execute(trim(m_url), "GET", "sub get");
}

// The control takes a command of a file server only when the one before has ended.
void fSHAREDInternet::nextCommand() noexcept {
    if (m_nextCommand < m_commands.commands.size()) {
        execute(m_commands.host, m_commands.commands.at(m_nextCommand++), "sub downloadfile");
    } else {
        finish();
        raise(DownloadFinished);
    }
}

// A request that can't even be made would leave everybody waiting for its end.
void fSHAREDInternet::execute(std::string_view url, std::string_view verb, std::string_view procedure) noexcept {
    const std::uint32_t run = ++m_run;
    m_fetching = false;
    m_file.reset(); // of an earlier try
    const std::string fault = sorted(procedure, [&] { m_control->execute(url, verb); });
    if (!fault.empty() && m_run == run) {
        fail(fault);
    }
}

// ---- Going on -------------------------------------------------------------------------------------------------------

void fSHAREDInternet::wait() noexcept {
    const StandardTrap trap{"sub wait", moduleName};
    // A progress bar between two of these must not pump without input: keys that such a pump puts by may stay there
    // until the window system has other news.
    trap(pumpEverything);
    step(newsWait);
}

// All that a transfer does by itself. Handlers of its events may pump, but the timer does nothing inside them.
void fSHAREDInternet::step(int milliseconds) noexcept {
    const bool outer = std::exchange(m_stepping, true);
    countSecond();
    sorted("sub wait", [&] { m_control->advance(milliseconds); });
    takeResponse();
    if (m_ftp && underWay() && !Connected()) {
        nextCommand();
    }
    m_stepping = outer;
}

void fSHAREDInternet::countSecond() noexcept {
    if (!underWay() || !m_seconds.ticked()) {
        return;
    }
    ++m_idleTicks;
    if (m_idleTicks > mostIdleSeconds) {
        fail("Transfer timed out");
    }
}

// Runs a statement that the control may fail in. Its own errors are sorted by number, any other is recorded as usual;
// the description of such a one is the result.
std::string fSHAREDInternet::sorted(std::string_view procedure, const std::function<void()>& statement) noexcept {
    const StandardTrap trap{procedure, moduleName};
    std::string fault;
    trap([&] {
        try {
            statement();
        } catch (...) {
            const Error error = currentError();
            if (!sortError(error.number())) {
                fault = error.description();
                throw;
            }
        }
    });
    return fault;
}

// False for an error that is to be recorded.
bool fSHAREDInternet::sortError(int number) {
    switch (static_cast<TransferError>(number)) {
    case TransferError::StillExecuting:
    case TransferError::TimedOut: {
        m_control->cancel();
        const std::uint32_t run = m_run;
        normalmouse(); // timers run, and one may begin another transfer
        if (m_run == run) {
            fail(number == static_cast<int>(TransferError::TimedOut) ? "Download timed out. Please try again."
                                                                     : downloadFailed);
        }
        return true;
    }
    case TransferError::CannotComplete:
        m_control->cancel();
        if (m_ftp || ++m_retries > mostRetries) { // it may fail for ever, and commands can't be repeated by a GET
            fail(downloadFailed);
            return false;
        }
        m_sizeFlag = false;
        get();
        return true;
    default:
        return false;
    }
}

// ---- The proxy ------------------------------------------------------------------------------------------------------

void fSHAREDInternet::ApplyProxy() noexcept {
    if (!applyProxySettings(*m_control)) {
        m_noControl = true;
    }
}

std::string fSHAREDInternet::ProxyUser() {
    return sget(keys::proxyUser).text();
}

std::string fSHAREDInternet::ProxyPassword() {
    return sget(keys::proxyPwd).text();
}

} // namespace vantor
