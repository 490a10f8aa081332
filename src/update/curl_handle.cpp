#include "update/curl_handle.h"

#include "foundation/error.h"
#include "foundation/text.h"
#include "update/transfer_control.h"

namespace vantor {

namespace {

// The library's global state, for the whole run.
class Library {
  public:
    [[nodiscard]] static bool isReady() {
        static const Library library;
        return library.m_ready;
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() { curl_global_cleanup(); }

  private:
    Library() : m_ready(curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK) {}
    bool m_ready;
};

} // namespace

CurlHandle::CurlHandle() {
    if (Library::isReady()) {
        m_multi.reset(curl_multi_init());
        m_easy.reset(curl_easy_init());
    }
}

void CurlHandle::check(CURLcode code) {
    if (code != CURLE_OK) {
        throw transferError(TransferError::NotRegistered, "The transfer library lacks what is needed");
    }
}

void CurlHandle::clear() {
    curl_easy_reset(m_easy.get());
}

void CurlHandle::begin() {
    if (curl_multi_add_handle(m_multi.get(), m_easy.get()) != CURLM_OK) {
        throw transferError(TransferError::CannotComplete, "Unable to complete request");
    }
    m_running = true;
}

void CurlHandle::end() noexcept {
    if (m_running) {
        m_running = false;
        curl_multi_remove_handle(m_multi.get(), m_easy.get());
    }
}

std::optional<CURLcode> CurlHandle::turn() {
    int active = 0;
    curl_multi_perform(m_multi.get(), &active);
    int left = 0;
    while (const CURLMsg* const message = curl_multi_info_read(m_multi.get(), &left)) {
        if (message->msg == CURLMSG_DONE) {
            const CURLcode code = message->data.result;
            end();
            return code; // there is one request at a time
        }
    }
    return std::nullopt;
}

void CurlHandle::poll(int milliseconds) {
    curl_multi_poll(m_multi.get(), nullptr, 0, milliseconds, nullptr);
}

void CurlHandle::unpause() {
    curl_easy_pause(m_easy.get(), CURLPAUSE_CONT);
}

void CurlHandle::closeConnections() {
    m_multi.reset();
    m_multi.reset(curl_multi_init());
}

std::string CurlHandle::header(std::string_view name) const {
    curl_header* found = nullptr;
    if (m_easy && curl_easy_header(m_easy.get(), std::string(name).c_str(), 0, CURLH_HEADER, -1, &found) == CURLHE_OK) {
        return found->value;
    }
    curl_off_t length = -1;
    if (m_easy && equalNoCase(name, "Content-Length") &&
        curl_easy_getinfo(m_easy.get(), CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &length) == CURLE_OK && length >= 0) {
        return std::to_string(length);
    }
    return {};
}

bool CurlHandle::isRedirect() const {
    constexpr long firstRedirect = 300;
    constexpr long firstError = 400;
    long status = 0;
    curl_easy_getinfo(m_easy.get(), CURLINFO_RESPONSE_CODE, &status);
    return status >= firstRedirect && status < firstError && !header("Location").empty();
}

std::string CurlHandle::redirectUrl() const {
    char* url = nullptr;
    curl_easy_getinfo(m_easy.get(), CURLINFO_REDIRECT_URL, &url);
    return url == nullptr ? std::string() : url;
}

} // namespace vantor
