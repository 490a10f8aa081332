// Update: asks the update server for newer versions and fetches the setup program.
// The proxy of the settings, handed to the transfer control.
#pragma once

#include "update/transfer_control.h"

namespace vantor {

/// Sets access, proxy, user and password of the control from the keys ProxyType, ProxyServer, ProxyPort, ProxyUser and
/// ProxyPwd. Faults go to the ring; false when one of them tells that the control can't be used (error 339).
[[nodiscard]] bool applyProxySettings(TransferControl& control) noexcept;

} // namespace vantor
