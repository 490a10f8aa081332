// Update: asks the update server for newer versions and fetches the setup program.
// The transfer control of the program: web and file servers through libcurl, on the program's one thread.
#pragma once

#include "update/transfer_control.h"

#include <memory>

namespace vantor {

/// A control for HTTP, HTTPS and FTP, through proxies too; redirects are followed within these three. Where the library
/// can't be used, the control raises 339 from all that reaches for it.
[[nodiscard]] std::unique_ptr<TransferControl> makeCurlControl();

} // namespace vantor
