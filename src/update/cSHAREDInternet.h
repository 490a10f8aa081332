// Update: asks the update server for newer versions and fetches the setup program.
// cSHAREDInternet: fetches an address into a text or a file and waits for it, with the window alive.
#pragma once

#include "update/transfer_control.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace vantor {

/// One transfer at a time, in blocking calls that let all events run: a button can cancel a transfer, start another
/// (the earlier one then ends as a failure) or destroy the object. Nothing is ever raised to the caller; faults stand
/// in the ring of recent actions.
class cSHAREDInternet {
  public:
    /// With the program's own control, or with the one given.
    cSHAREDInternet();
    explicit cSHAREDInternet(std::unique_ptr<TransferControl> control);
    cSHAREDInternet(const cSHAREDInternet&) = delete;
    cSHAREDInternet& operator=(const cSHAREDInternet&) = delete;
    /// Cancels any transfer; a call that still waits for it returns its failure.
    ~cSHAREDInternet();

    // The events, raised inside the calls below.
    std::function<void(std::string_view text)> Status;
    std::function<void(double value, std::string_view text)> Progress; ///< the value in percent
    std::function<void()> NoInternet;                                  ///< the control can't be used

    /// Holds back progress and byte counts.
    void SuppressAllButDLAndErrors(bool suppress) noexcept;
    /// Holds back the texts of the states too.
    void SuppressAllButErrors(bool suppress) noexcept;
    /// Takes the proxy from the settings ProxyType, ProxyServer, ProxyPort, ProxyUser and ProxyPwd.
    void ApplyProxy() noexcept;
    void Cancel() noexcept;
    /// Downloads into `local`, replacing it. `sizeflag` asks the server for the length. True when all of it is there;
    /// after an error or a cancel there is no such file.
    [[nodiscard]] bool GetFile(std::string_view url, std::string_view local, bool sizeflag, bool quietprogress,
                               bool quietall) noexcept;
    /// Length that the server told, in bytes: 0 before its response, -1 when unknown.
    [[nodiscard]] std::int32_t ExpectedFilesize() const noexcept;
    /// The reply as a text; empty when it failed, was cancelled, or is longer than a megabyte.
    [[nodiscard]] std::string OpenURL(std::string_view url, bool show) noexcept;
    /// Whether a request is still running.
    [[nodiscard]] bool Connected() const noexcept;

  private:
    struct State;
    std::shared_ptr<State> m_state; // kept by every call on the way, which may outlive the object
};

} // namespace vantor
