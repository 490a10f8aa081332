// Update: asks the update server for newer versions and fetches the setup program.
// The system's own settings for proxies: how they say that an address is reached.
#pragma once

#include <functional>
#include <future>
#include <optional>
#include <string>
#include <string_view>

namespace vantor {

/// "{server}:{port}", with a scheme where it is no web proxy; empty for the direct way; nothing where the system keeps
/// no such settings, and the environment's variables count.
using ProxyAnswer = std::optional<std::string>;

/// Tells the way to an address. It is called on a thread of its own, since some settings take seconds to be asked.
using SystemProxy = std::function<ProxyAnswer(const std::string& url)>;

/// The settings of the user's account on Windows (fixed address, exceptions, script, detection); empty elsewhere.
[[nodiscard]] SystemProxy systemProxy();

/// The proxy for an address in a list as Windows writes it: "proxy:80", or
/// "http=proxy:80;ftp=other:21;socks=third:1080". Of several the first; empty when none is for the address's scheme.
[[nodiscard]] std::string proxyOfList(std::string_view list, std::string_view url);
/// Whether a list of exceptions names an address's host: names with "*" for any characters, a scheme ahead or a port
/// behind them or not, and "<local>" for all names without a dot.
[[nodiscard]] bool isException(std::string_view list, std::string_view url);

/// One question to the system, answered in the background. Its end does not wait for the answer.
class ProxyQuestion {
  public:
    ProxyQuestion(SystemProxy proxy, std::string url);
    [[nodiscard]] bool isAnswered() const;
    /// The answer; to be asked once.
    [[nodiscard]] ProxyAnswer answer() { return m_answer.get(); }

  private:
    std::future<ProxyAnswer> m_answer;
};

} // namespace vantor
