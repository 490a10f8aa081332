// Update: asks the update server for newer versions and fetches the setup program.
// fSHAREDInternet: turns the states of the transfer control into texts, byte counts and a file. It shows no window.
#pragma once

#include "foundation/clock.h"
#include "foundation/replacing_file.h"
#include "foundation/trap.h"
#include "update/file_server.h"
#include "update/second_ticker.h"
#include "update/transfer_control.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

namespace vantor {

/// The longest reply that OpenURL takes, in bytes; a longer one is a failed transfer.
inline constexpr std::int64_t longestReply = std::int64_t{1024} * 1024;
/// The longest file that is downloaded, in bytes.
inline constexpr std::int64_t longestDownload = std::int64_t{1024} * 1024 * 1024;

/// One transfer at a time. It goes on from any event loop, a dialog's too, by a timer of the host; who waits for it
/// turns `wait`. Nothing is ever raised to the caller; faults stand in the ring of recent actions.
class fSHAREDInternet {
  public:
    explicit fSHAREDInternet(std::unique_ptr<TransferControl> control);

    // The events, raised inside the calls below and by the timer.
    std::function<void(std::string_view text)> StatusText;
    std::function<void(std::string_view text, double value)> ProgressText;
    std::function<void()> DownloadFinished;
    std::function<void(std::string_view text)> DownloadError;
    std::function<void()> Receiving;
    std::function<void()> NoInternet;

    bool quietProgress = false; ///< holds back progress and byte counts
    bool quietAll = false;      ///< holds back the texts of the states too; errors still come through

    /// 0 before the response, -1 when unknown, else bytes.
    [[nodiscard]] std::int32_t ExpectedFilesize() const noexcept { return m_expectedFilesize; }
    /// Ends the transfer, if any, and tells so as a progress of 0.
    void Cancel() noexcept;
    /// Waits for the reply, with the window alive; `show` lets the texts of the states through.
    [[nodiscard]] std::string OpenURL(std::string_view url, bool show) noexcept;
    /// Ends the transfer, erases its file and tells so as an error.
    void CancelDownload() noexcept;
    /// Starts a download and returns. One that is longer than longestDownload fails.
    void DownloadFile(std::string_view url, std::string_view local, bool sizeflag) noexcept;
    /// Whether a request is still running.
    [[nodiscard]] bool Connected() const noexcept;
    /// Takes the proxy from the settings. A control that turns out to be unusable (error 339) counts as that from then
    /// on: later transfers are over at once, with NoInternet.
    void ApplyProxy() noexcept;
    /// The settings ProxyUser and ProxyPwd, empty where there are none.
    [[nodiscard]] static std::string ProxyUser();
    [[nodiscard]] static std::string ProxyPassword();
    /// The bytes as a text of the code page, up to the first zero character.
    [[nodiscard]] static std::string_view ByteArrayToString(std::string_view bytes) noexcept;

    /// One turn of a loop that waits: events run, and the transfer goes on, waiting a moment for news of it.
    void wait() noexcept;
    /// Whether a transfer is under way: its timer runs.
    [[nodiscard]] bool underWay() const noexcept { return m_timer != nullptr; }
    /// Ends the transfer and forgets who listens, as its owner goes.
    void unload() noexcept;

  private:
    void begin(std::string_view url);
    void finish() noexcept;
    void fail(std::string_view text) noexcept;
    void get() noexcept;
    void execute(std::string_view url, std::string_view verb, std::string_view procedure) noexcept;
    void nextCommand() noexcept;

    std::string sorted(std::string_view procedure, const std::function<void()>& statement) noexcept;
    bool sortError(int number);

    void step(int milliseconds) noexcept;
    void countSecond() noexcept;
    void stateChanged(TransferState state) noexcept;
    void responseReceived();
    void responseCompleted() noexcept;
    void beginResponse();
    void takeResponse() noexcept;
    void takeChunks();
    void keepChunk(const std::string& chunk);
    void endResponse();
    void reportChunks();
    void reportProgress(std::string_view text, double value) noexcept;
    void reportSaved();
    void failedState() noexcept;
    void showStatus(std::string_view text) const noexcept;

    // Raises an event: the handler may replace itself, and what it throws is a fault in the ring.
    template <class... Values>
    static void raise(const std::function<void(Values...)>& event, std::type_identity_t<Values>... values) noexcept {
        const StandardTrap trap{"sub raiseevent", moduleName};
        if (const auto handler = event) {
            trap(handler, values...);
        }
    }

    static constexpr std::string_view moduleName = "fSHAREDInternet";
    static constexpr std::string_view downloadFailed = "Download failed. Please try again.";

    std::unique_ptr<TransferControl> m_control;
    std::unique_ptr<ReplacingFile> m_file; // appears under its name when all of it is there
    std::shared_ptr<void> m_timer;         // runs while a transfer is under way
    SecondTicker m_seconds;
    bool m_stepping = false;
    std::int16_t m_idleTicks = 0;
    std::uint32_t m_request = 0; // counts transfers, and with m_run what is on the stack must see
    std::uint32_t m_run = 0;     // counts executions and ends
    int m_retries = 0;
    std::int32_t m_expectedFilesize = 0;
    std::string m_received;
    std::int64_t m_count = 0; // bytes of the response, in whole chunks
    bool m_fetching = false;  // the response is there, or on its way
    bool m_save = false;
    bool m_sizeFlag = false;
    bool m_ftp = false;
    FileServerCommands m_commands;
    std::size_t m_nextCommand = 0;
    bool m_repeated = false; // the second GET is out
    bool m_noControl = false;
    std::string m_localFile;
    std::string m_url;
    DateTime m_lastReport = 0;
};

} // namespace vantor
