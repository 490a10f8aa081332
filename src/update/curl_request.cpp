#include "update/curl_request.h"

namespace vantor {

namespace {

constexpr long serverAnswerSeconds = 10; // of a file server, also to the last command
constexpr const char* allProtocols = "http,https,ftp";
constexpr const char* secureProtocols = "https";

void setUpProxy(CurlHandle& curl, const CurlRequest& request) {
    const auto use = [&curl](const std::string& proxy) {
        curl.set(CURLOPT_PROXY, proxy.c_str());
        curl.set(CURLOPT_NOPROXY, ""); // whatever the environment excepts
    };
    switch (request.accessType) {
    case AccessType::SystemDefault:
        if (request.systemProxy) {
            use(*request.systemProxy);
        } // else the library reads the environment
        break;
    case AccessType::Direct:
        use("");
        break;
    case AccessType::NamedProxy:
        use(request.proxy);
        break;
    }
    if (!request.userName.empty()) {
        curl.set(CURLOPT_PROXYUSERNAME, request.userName.c_str());
        curl.set(CURLOPT_PROXYPASSWORD, request.password.c_str());
        curl.set(CURLOPT_PROXYAUTH, CURLAUTH_ANY); // told only to a proxy that asks
    }
}

} // namespace

void setUpRequest(CurlHandle& curl, const CurlRequest& request) {
    curl.set(CURLOPT_PROTOCOLS_STR, request.secure ? secureProtocols : allProtocols);
    curl.set(CURLOPT_DEFAULT_PROTOCOL, "http");
    curl.set(CURLOPT_URL, request.url.c_str());
    curl.set(CURLOPT_NOSIGNAL, 1L);
    curl.set(CURLOPT_QUICK_EXIT, 1L); // a name that is being resolved does not hold up a cancel
    curl.set(CURLOPT_SERVER_RESPONSE_TIMEOUT, serverAnswerSeconds);
    curl.set(CURLOPT_FTP_FILEMETHOD, CURLFTPMETHOD_SINGLECWD);
    curl.set(CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    curl.set(CURLOPT_NOBODY, request.folderOnly ? 1L : 0L);
    // The file goes over the connection of CD, and over no other: one that stays open would have to be closed later,
    // and a dead server would never answer that.
    curl.set(CURLOPT_FORBID_REUSE, request.folderOnly ? 0L : 1L);
    if (!request.certificates.empty()) {
        curl.set(CURLOPT_CAINFO, request.certificates.c_str());
    }
    setUpProxy(curl, request);
}

} // namespace vantor
