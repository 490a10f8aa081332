// Update: asks the update server for newer versions and fetches the setup program.
// The transfer control of the program: web and file servers through libcurl, on the program's one thread.
#pragma once

#include "update/transfer_control.h"

#include <memory>

namespace vantor {

/// HTTP, HTTPS and FTP, proxies included; redirects are followed within these three. A response is held back while
/// 64 kilobytes of it wait to be fetched. Raises 339 from all that sets it up when the client can't be used.
class CurlControl final : public TransferControl {
  public:
    CurlControl();
    ~CurlControl() override;

    void execute(std::string_view url, std::string_view verb) override;
    void cancel() override;
    void advance(int milliseconds) override;
    [[nodiscard]] std::optional<std::string> nextChunk(std::size_t most) override;
    [[nodiscard]] std::string header(std::string_view name) override;
    [[nodiscard]] std::string responseText() override;
    [[nodiscard]] bool stillExecuting() override;
    [[nodiscard]] std::int64_t bytesSaved() override;
    [[nodiscard]] AccessType accessType() override;
    void setAccessType(AccessType type) override;
    [[nodiscard]] std::string proxy() override;
    void setProxy(std::string_view proxy) override;
    void setUserName(std::string_view name) override;
    void setPassword(std::string_view password) override;
    void setRequestTimeout(int seconds) override;

  private:
    class Client;
    std::unique_ptr<Client> m_client;
};

} // namespace vantor
