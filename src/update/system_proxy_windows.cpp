#include "foundation/text.h"
#include "update/system_proxy.h"

// The second needs the first.
#include <memory>
#include <windows.h>
#include <winhttp.h>

namespace vantor {

namespace {

struct GlobalText {
    void operator()(wchar_t* text) const noexcept { GlobalFree(text); }
};
using OwnedText = std::unique_ptr<wchar_t, GlobalText>;
struct SessionEnd {
    void operator()(void* session) const noexcept { WinHttpCloseHandle(session); }
};

std::wstring wide(std::string_view text) {
    return {text.begin(), text.end()}; // addresses are ASCII
}

std::string narrow(const OwnedText& text) {
    std::string result;
    for (const wchar_t* at = text.get(); at != nullptr && *at != L'\0'; ++at) {
        result += static_cast<char>(*at);
    }
    return result;
}

// What a script says, that of the network or the one named; nothing when there is none that can be asked.
ProxyAnswer askScript(const std::string& url, bool detect, wchar_t* script) {
    const std::unique_ptr<void, SessionEnd> session(
        WinHttpOpen(L"Vantor", WINHTTP_ACCESS_TYPE_NO_PROXY, WINHTTP_NO_PROXY_NAME, WINHTTP_NO_PROXY_BYPASS, 0));
    if (!session) {
        return std::nullopt;
    }
    WINHTTP_AUTOPROXY_OPTIONS options{};
    options.dwFlags = detect ? WINHTTP_AUTOPROXY_AUTO_DETECT : WINHTTP_AUTOPROXY_CONFIG_URL;
    options.dwAutoDetectFlags = detect ? WINHTTP_AUTO_DETECT_TYPE_DHCP | WINHTTP_AUTO_DETECT_TYPE_DNS_A : 0;
    options.lpszAutoConfigUrl = detect ? nullptr : script;
    WINHTTP_PROXY_INFO info{};
    BOOL answered = WinHttpGetProxyForUrl(session.get(), wide(url).c_str(), &options, &info);
    if (answered == 0 && GetLastError() == ERROR_WINHTTP_LOGIN_FAILURE) {
        options.fAutoLogonIfChallenged = TRUE; // asked first without, since it is slower
        answered = WinHttpGetProxyForUrl(session.get(), wide(url).c_str(), &options, &info);
    }
    if (answered == 0) {
        return std::nullopt;
    }
    const OwnedText proxy(info.lpszProxy);
    const OwnedText exceptions(info.lpszProxyBypass);
    const bool direct = info.dwAccessType != WINHTTP_ACCESS_TYPE_NAMED_PROXY || isException(narrow(exceptions), url);
    return direct ? std::string() : proxyOfList(narrow(proxy), url);
}

ProxyAnswer askWindows(const std::string& address) {
    WINHTTP_CURRENT_USER_IE_PROXY_CONFIG settings{};
    if (WinHttpGetIEProxyConfigForCurrentUser(&settings) == 0) {
        return std::string();
    }
    const OwnedText script(settings.lpszAutoConfigUrl);
    const OwnedText proxy(settings.lpszProxy);
    const OwnedText exceptions(settings.lpszProxyBypass);
    const std::string url = contains(address, "://") ? address : "http://" + address;
    // In the order in which Windows itself goes by them.
    ProxyAnswer answer;
    if (settings.fAutoDetect != 0) {
        answer = askScript(url, true, nullptr);
    }
    if (!answer && script) {
        answer = askScript(url, false, script.get());
    }
    if (answer) {
        return answer;
    }
    return isException(narrow(exceptions), url) ? std::string() : proxyOfList(narrow(proxy), url);
}

} // namespace

SystemProxy systemProxy() {
    return askWindows;
}

} // namespace vantor
