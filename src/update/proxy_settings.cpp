#include "update/proxy_settings.h"

#include "core/settings_keys.h"
#include "foundation/error.h"
#include "foundation/log.h"
#include "foundation/text.h"
#include "foundation/trap.h"

#include <string>

namespace vantor {

namespace {

std::string serverAndPort() {
    const std::string server(trim(sget(keys::proxyServer).text()));
    const std::string port(trim(sget(keys::proxyPort).text()));
    // Quirk: half a proxy is none, though the type says that there is one.
    return server.empty() || port.empty() ? std::string() : server + ":" + port;
}

void logProxy(TransferControl& control) {
    logit("Proxy set to: " + std::to_string(static_cast<int>(control.accessType())) + " " + control.proxy());
}

} // namespace

bool applyProxySettings(TransferControl& control) noexcept {
    const StandardTrap trap{"sub applyproxy", "fSHAREDInternet"};
    bool usable = true;
    const auto step = [&](auto&& statement) {
        trap([&] {
            try {
                statement();
            } catch (const Error& error) {
                usable = usable && error.number() != static_cast<int>(TransferError::NotRegistered);
                throw;
            }
        });
    };
    auto type = AccessType::Direct;
    step([&] { type = static_cast<AccessType>(sget(keys::proxyType).int16()); });
    step([&] { control.setAccessType(type); });
    step([&] { control.setUserName(""); });
    step([&] { control.setPassword(""); });
    if (type == AccessType::NamedProxy || type == AccessType::Direct) {
        step([&] { control.setProxy(type == AccessType::NamedProxy ? serverAndPort() : std::string()); });
    }
    step([&] { logProxy(control); });
    if (type == AccessType::NamedProxy) {
        step([&] { control.setUserName(sget(keys::proxyUser).text()); });
        step([&] { control.setPassword(sget(keys::proxyPwd).text()); });
        step([] { logdebug("Proxy username/password set", "", ""); });
    }
    return usable;
}

} // namespace vantor
