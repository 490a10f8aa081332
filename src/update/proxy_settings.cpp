#include "update/proxy_settings.h"

#include "core/settings_keys.h"
#include "foundation/error.h"
#include "foundation/log.h"
#include "foundation/text.h"
#include "foundation/trap.h"

#include <functional>
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
    // What fails may tell that the control can't be used at all.
    const auto step = [&](auto statement, auto&&... values) {
        trap([&] {
            try {
                std::invoke(statement, control, values...);
            } catch (const Error& error) {
                usable = usable && error.number() != static_cast<int>(TransferError::NotRegistered);
                throw;
            }
        });
    };
    std::int16_t number = keys::proxyType.fallback;
    trap.set(number, setting<std::int16_t>, keys::proxyType);
    const auto type = static_cast<AccessType>(number);
    step(&TransferControl::setAccessType, type);
    step(&TransferControl::setUserName, "");
    step(&TransferControl::setPassword, "");
    if (type == AccessType::NamedProxy || type == AccessType::Direct) {
        step(&TransferControl::setProxy, type == AccessType::NamedProxy ? serverAndPort() : std::string());
    }
    step(logProxy);
    if (type == AccessType::NamedProxy) {
        step(&TransferControl::setUserName, sget(keys::proxyUser).text());
        step(&TransferControl::setPassword, sget(keys::proxyPwd).text());
        trap(logdebug, "Proxy username/password set", "", "");
    }
    return usable;
}

} // namespace vantor
