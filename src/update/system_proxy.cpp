#include "update/system_proxy.h"

#include "foundation/text.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>
#include <utility>
#include <vector>

namespace vantor {

namespace {

// What an address tells of its server.
struct Server {
    std::string scheme;
    std::string host;
    std::string port; // empty for the scheme's own
};

Server serverOf(std::string_view url) {
    Server server{"http", {}, {}};
    if (const std::size_t end = url.find("://"); end != std::string_view::npos) {
        server.scheme = lower(url.substr(0, end));
        url.remove_prefix(end + 3);
    }
    url = url.substr(0, url.find_first_of("/?#\\"));
    if (const std::size_t user = url.rfind('@'); user != std::string_view::npos) {
        url.remove_prefix(user + 1);
    }
    const std::size_t bracket = url.find(']'); // an address with colons stands in brackets
    const std::size_t port = url.find(':', bracket == std::string_view::npos ? 0 : bracket);
    server.host = lower(url.substr(0, port));
    server.port = port == std::string_view::npos ? std::string_view() : url.substr(port + 1);
    return server;
}

std::vector<std::string> entriesOf(std::string_view list) {
    std::string blanks(list);
    std::ranges::replace_if(
        blanks, [](char letter) { return letter == ';' || letter == ',' || letter == '\t'; }, ' ');
    std::vector<std::string> entries;
    for (const std::string_view entry : split(blanks, " ")) {
        if (!entry.empty()) {
            entries.push_back(lower(entry));
        }
    }
    return entries;
}

bool matches(std::string_view pattern, std::string_view text) {
    if (pattern.empty()) {
        return text.empty();
    }
    if (pattern.front() == '*') {
        return matches(pattern.substr(1), text) || (!text.empty() && matches(pattern, text.substr(1)));
    }
    return !text.empty() && pattern.front() == text.front() && matches(pattern.substr(1), text.substr(1));
}

} // namespace

std::string proxyOfList(std::string_view list, std::string_view url) {
    const Server server = serverOf(url);
    std::string forAll;
    std::string socks;
    for (const std::string& entry : entriesOf(list)) {
        const std::size_t equals = entry.find('=');
        const std::string address = entry.substr(equals + 1); // all of it without one
        if (equals == std::string::npos) {
            forAll = forAll.empty() ? address : forAll;
        } else if (entry.substr(0, equals) == server.scheme) {
            return address;
        } else if (entry.starts_with("socks=") && socks.empty()) {
            socks = contains(address, "://") ? address : "socks4://" + address;
        }
    }
    return forAll.empty() ? socks : forAll;
}

bool isException(std::string_view list, std::string_view url) {
    const Server server = serverOf(url);
    const std::string port = !server.port.empty()       ? server.port
                             : server.scheme == "https" ? "443"
                             : server.scheme == "ftp"   ? "21"
                                                        : "80";
    return std::ranges::any_of(entriesOf(list), [&](std::string entry) {
        if (entry == "<local>") {
            return !contains(server.host, ".") && !contains(server.host, ":");
        }
        if (const std::size_t scheme = entry.find("://"); scheme != std::string::npos) {
            if (entry.substr(0, scheme) != server.scheme) {
                return false;
            }
            entry.erase(0, scheme + 3);
        }
        return matches(entry, server.host) || matches(entry, server.host + ":" + port);
    });
}

ProxyQuestion::ProxyQuestion(SystemProxy proxy, std::string url) {
    std::promise<ProxyAnswer> promise;
    m_answer = promise.get_future();
    // The thread shares nothing with us but the answer, and may outlive us.
    std::thread([proxy = std::move(proxy), url = std::move(url), promise = std::move(promise)]() mutable {
        try {
            promise.set_value(proxy(url));
        } catch (...) {
            promise.set_exception(std::current_exception());
        }
    }).detach();
}

bool ProxyQuestion::isAnswered() const {
    return m_answer.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

#ifndef _WIN32
SystemProxy systemProxy() {
    return {};
}
#endif

} // namespace vantor
