#include "update/transfer_states.h"

#include "core/settings_keys.h"
#include "foundation/disk.h"
#include "foundation/error.h"
#include "foundation/host.h"
#include "foundation/log.h"
#include "foundation/path_text.h"
#include "foundation/progress.h"
#include "foundation/text.h"
#include "foundation/trap.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

namespace vantor {

namespace {

constexpr int requestTimeout = 10; // seconds
constexpr int mostIdleSeconds = 60;
constexpr int mostRetries = 3;
constexpr std::string_view downloadCancelled = "Download cancelled";

// The host of an address of a file server, and the rest of it from the "/" behind the host on.
std::pair<std::string, std::string> splitFileServerAddress(std::string_view address) {
    std::size_t begin = 0;
    if (!equalNoCase(address.substr(0, 4), "FTP.")) {
        const std::size_t scheme = address.find("//");
        if (scheme == std::string_view::npos) {
            return {};
        }
        begin = scheme + 2;
    }
    const std::size_t end = std::min(address.find('/', begin), address.size());
    return {std::string(address.substr(begin, end - begin)), std::string(address.substr(end))};
}

} // namespace

fSHAREDInternet::fSHAREDInternet(std::unique_ptr<TransferControl> control) : m_control(std::move(control)) {
    m_control->onStateChanged([this](TransferState state) { stateChanged(state); });
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
    m_timer.restart();
    m_timerRuns = true;
}

// What loops on the stack wait for is over. A file that is not complete goes.
void fSHAREDInternet::finish() noexcept {
    ++m_run;
    m_timerRuns = false;
    m_file.reset();
}

void fSHAREDInternet::fail(std::string_view text) noexcept {
    const StandardTrap trap{"sub fail", moduleName};
    finish();
    m_received.clear(); // part of a reply is none
    trap([&] { m_control->cancel(); });
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
    trap([&] { m_control->cancel(); });
}

bool fSHAREDInternet::Connected() const noexcept {
    const StandardTrap trap{"property get connected", moduleName};
    bool connected = false;
    trap([&] { connected = m_control->stillExecuting(); });
    return connected;
}

void fSHAREDInternet::Cancel() noexcept {
    const StandardTrap trap{"sub cancel", moduleName};
    trap([&] { m_control->cancel(); });
    finish();
    m_received.clear();
    raise(ProgressText, downloadCancelled, 0);
}

void fSHAREDInternet::CancelDownload() noexcept {
    const StandardTrap trap{"sub canceldownload", moduleName};
    finish();
    trap([&] { m_control->cancel(); });
    EraseFile(m_localFile);
    raise(DownloadError, downloadCancelled);
}

std::string fSHAREDInternet::OpenURL(std::string_view url, bool show) noexcept {
    const StandardTrap trap{"function openurl", moduleName};
    if (m_noControl) {
        raise(NoInternet);
        return {};
    }
    quietAll = !show;
    trap([&] { begin(url); });
    const std::uint32_t mine = m_request;
    get();
    while (m_request == mine && m_timerRuns) {
        wait(100);
    }
    return m_request == mine ? std::exchange(m_received, {}) : std::string();
}

void fSHAREDInternet::DownloadFile(std::string_view url, std::string_view local, bool sizeflag) noexcept {
    const StandardTrap trap{"sub downloadfile", moduleName};
    if (m_noControl) {
        EraseFile(local);
        raise(DownloadFinished); // without a file: whoever waits goes on, and it is meant
        raise(NoInternet);
        return;
    }
    trap([&] { begin(url); });
    m_sizeFlag = sizeflag;
    m_save = true;
    // At each download, after ApplyProxy too: this is meant.
    trap([&] { m_control->setAccessType(AccessType::SystemDefault); });
    EraseFile(local);
    trap([&] { m_localFile = local; });
    trap([&] { m_control->setRequestTimeout(requestTimeout); });
    if (equalNoCase(url.substr(0, 3), "FTP")) {
        downloadFromFileServer();
    } else {
        get();
    }
}

void fSHAREDInternet::downloadFromFileServer() noexcept {
    const StandardTrap trap{"sub downloadfile", moduleName};
    const std::uint32_t mine = m_request;
    std::string host;
    std::array<std::string, 3> commands;
    trap([&] {
        std::string path;
        std::tie(host, path) = splitFileServerAddress(replaceAll(trim(m_url), "\\", "/"));
        // A blank would end the name inside the command.
        const std::string file = replaceAll(fileonly(path), " ", "%20");
        commands = {"CD " + pathonly(path), "GET " + file + " " + m_localFile, "CLOSE"};
    });
    if (host.empty()) {
        fail("No address specified");
        return;
    }
    m_ftp = true;
    for (const std::string& command : commands) {
        runCommand("FTP://" + host, command);
        if (m_request != mine || !m_timerRuns) {
            return; // failed or cancelled
        }
    }
    finish();
    raise(DownloadFinished);
}

// The control takes a command only when the one before is through.
void fSHAREDInternet::runCommand(std::string_view host, std::string_view command) noexcept {
    const std::uint32_t run = ++m_run;
    const std::string fault = sorted("sub downloadfile", [&] { m_control->execute(host, command); });
    if (!fault.empty() && m_run == run) {
        fail(fault);
    }
    while (m_run == run && Connected()) {
        wait(100);
    }
}

// A request that can't even be made would leave everybody waiting for its end.
void fSHAREDInternet::get() noexcept {
    const std::uint32_t run = ++m_run;
    m_file.reset(); // of an earlier try
    m_received.clear();
    const std::string fault = sorted("sub get", [&] { m_control->execute(trim(m_url), "GET"); });
    if (!fault.empty() && m_run == run) {
        fail(fault);
    }
}

void fSHAREDInternet::wait(int milliseconds) noexcept {
    const StandardTrap trap{"sub wait", moduleName};
    // A progress bar between two of these must not pump without input: keys that such a pump puts by may stay there
    // until the window system has other news.
    trap([] { pumpEverything(); });
    timerTick();
    sorted("sub wait", [&] { m_control->advance(milliseconds); });
}

void fSHAREDInternet::timerTick() noexcept {
    if (!m_timerRuns || !m_timer.ticked()) {
        return;
    }
    ++m_idleTicks;
    if (m_idleTicks > mostIdleSeconds) {
        fail("Transfer timed out");
    }
}

std::string fSHAREDInternet::ProxyUser() {
    return sget(keys::proxyUser).text();
}

std::string fSHAREDInternet::ProxyPassword() {
    return sget(keys::proxyPwd).text();
}

void fSHAREDInternet::ApplyProxy() noexcept {
    const StandardTrap trap{"sub applyproxy", moduleName};
    const auto step = [&](auto&& statement) {
        trap([&] {
            try {
                statement();
            } catch (const Error& error) {
                m_noControl = m_noControl || error.number() == static_cast<int>(TransferError::NotRegistered);
                throw;
            }
        });
    };
    auto type = AccessType::Direct;
    step([&] { type = static_cast<AccessType>(sget(keys::proxyType).int16()); });
    step([&] { m_control->setAccessType(type); });
    step([&] { m_control->setUserName(""); });
    step([&] { m_control->setPassword(""); });
    if (type == AccessType::NamedProxy) {
        step([&] {
            const std::string server(trim(sget(keys::proxyServer).text()));
            const std::string port(trim(sget(keys::proxyPort).text()));
            // Half a proxy is none, though the type says that there is one: it is meant.
            m_control->setProxy(server.empty() || port.empty() ? std::string() : server + ":" + port);
        });
    } else if (type == AccessType::Direct) {
        step([&] { m_control->setProxy(""); });
    }
    step([&] {
        logit("Proxy set to: " + std::to_string(static_cast<int>(m_control->accessType())) + " " + m_control->proxy());
    });
    if (type == AccessType::NamedProxy) {
        step([&] { m_control->setUserName(ProxyUser()); });
        step([&] { m_control->setPassword(ProxyPassword()); });
        step([] { logdebug("Proxy username/password set", "", ""); });
    }
}

} // namespace vantor
