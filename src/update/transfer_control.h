// Update: asks the update server for newer versions and fetches the setup program.
// The transfer control: what the transfer asks of the platform's client for the web and for file servers.
#pragma once

#include "foundation/error.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace vantor {

/// The states that a control goes through. Any other number is progress of a download that the control saves itself.
enum class TransferState : int {
    Progress = 0,
    ResolvingHost = 1,
    HostResolved = 2,
    Connecting = 3,
    Connected = 4,
    Requesting = 5,
    RequestSent = 6,
    ReceivingResponse = 7,
    ResponseReceived = 8,
    Disconnecting = 9,
    Disconnected = 10,
    Error = 11,
    ResponseCompleted = 12, ///< the response can be fetched in chunks
};

/// How a control reaches the network.
enum class AccessType : int { SystemDefault = 0, Direct = 1, NamedProxy = 2 };

/// Numbers of the errors that a control raises (as Error).
enum class TransferError : int {
    NotRegistered = 339,    ///< the control can't be used on this system
    CannotComplete = 35756, ///< worth another try
    TimedOut = 35761,
    StillExecuting = 35764,
};

/// One of these as an error to be raised.
[[nodiscard]] inline Error transferError(TransferError number, std::string_view description) {
    return {static_cast<int>(number), std::string(description)};
}

/// One client that runs one request at a time. Nothing happens by itself: a request goes on, and states are told, only
/// inside advance. Every function may raise an Error with one of the numbers above.
class TransferControl {
  public:
    using StateListener = std::function<void(TransferState)>;

    TransferControl() = default;
    TransferControl(const TransferControl&) = delete;
    TransferControl& operator=(const TransferControl&) = delete;
    virtual ~TransferControl() = default;

    /// Starts a request and returns. The verb is "GET" for any address; for "FTP://{host}" alone it may be
    /// "CD {folder}", "GET {file} {local file}" or "CLOSE". Raises 35764 while another one runs.
    virtual void execute(std::string_view url, std::string_view verb) = 0;
    /// Ends the request, if any, without another state.
    virtual void cancel() = 0;
    /// Lets the request go on: waits up to `milliseconds` for news from the network and tells the states that were
    /// reached. The listener may call anything of the control, this function included.
    virtual void advance(int milliseconds) = 0;
    /// The next bytes of the response, at most `most`; empty at its end, nothing while they have not arrived.
    [[nodiscard]] virtual std::optional<std::string> nextChunk(std::size_t most) = 0;
    /// The value of a response header; empty without one.
    [[nodiscard]] virtual std::string header(std::string_view name) = 0;
    /// What went wrong, after the state Error.
    [[nodiscard]] virtual std::string responseText() = 0;
    [[nodiscard]] virtual bool stillExecuting() = 0;
    /// Bytes that the control itself has written to a local file (the "GET {file} {local file}" of a file server).
    [[nodiscard]] virtual std::int64_t bytesSaved() { return 0; }

    [[nodiscard]] virtual AccessType accessType() = 0;
    /// Raises 380 for a number that is no AccessType.
    virtual void setAccessType(AccessType type) = 0;
    /// The proxy as "{server}:{port}", or empty.
    [[nodiscard]] virtual std::string proxy() = 0;
    virtual void setProxy(std::string_view proxy) = 0;
    /// What a proxy that asks for it is told.
    virtual void setUserName(std::string_view name) = 0;
    virtual void setPassword(std::string_view password) = 0;
    /// Seconds until a response must have begun, else 35761 is raised from advance; 0 for no limit (the start value).
    virtual void setRequestTimeout(int seconds) = 0;

    /// Who is told of the states; one listener, an empty one for none.
    void onStateChanged(StateListener listener) { m_listener = std::move(listener); }

  protected:
    /// Tells the listener, which may call back.
    void tellState(TransferState state) const {
        if (const StateListener listener = m_listener) {
            listener(state);
        }
    }

  private:
    StateListener m_listener;
};

} // namespace vantor
