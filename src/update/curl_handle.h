// Update: asks the update server for newer versions and fetches the setup program.
// libcurl's handles: one request at a time, made by options and turned without a thread.
#pragma once

#include <curl/curl.h>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vantor {

/// Where the library can't be used, `isReady` is false and nothing else may be called but `end` and `header`.
class CurlHandle {
  public:
    CurlHandle();
    CurlHandle(const CurlHandle&) = delete;
    CurlHandle& operator=(const CurlHandle&) = delete;
    ~CurlHandle() { end(); }

    [[nodiscard]] bool isReady() const noexcept { return m_multi && m_easy; }

    /// Forgets all options.
    void clear();
    /// Sets an option of the request to come; error 339 when the library doesn't know it.
    template <class Value>
    void set(CURLoption option, Value value) {
        check(curl_easy_setopt(m_easy.get(), option, value));
    }
    /// Begins the request; error 35756 when that fails.
    void begin();
    /// Ends the request, if one runs.
    void end() noexcept;
    /// Lets the request go on; its result once it is over, with which it has ended.
    [[nodiscard]] std::optional<CURLcode> turn();
    /// Waits for news from the network.
    void poll(int milliseconds);
    /// Goes on with a body that was held back.
    void unpause();
    /// Closes what connections are kept.
    void closeConnections();

    /// A header of the latest response. The length of a file server's file, which stands in no header, is given too.
    [[nodiscard]] std::string header(std::string_view name) const;
    /// Whether the latest response, whose headers are there, sends elsewhere.
    [[nodiscard]] bool isRedirect() const;
    /// Where it sends, once the request is over.
    [[nodiscard]] std::string redirectUrl() const;

  private:
    struct EasyCleanup {
        void operator()(CURL* easy) const noexcept { curl_easy_cleanup(easy); }
    };
    struct MultiCleanup {
        void operator()(CURLM* multi) const noexcept { curl_multi_cleanup(multi); }
    };
    static void check(CURLcode code);

    std::unique_ptr<CURLM, MultiCleanup> m_multi; // made before the easy handle and destroyed after it
    std::unique_ptr<CURL, EasyCleanup> m_easy;
    bool m_running = false;
};

} // namespace vantor
