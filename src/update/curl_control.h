// Update: asks the update server for newer versions and fetches the setup program.
// The transfer control of the program: web and file servers through libcurl, on the program's one thread.
#pragma once

#include "update/system_proxy.h"
#include "update/transfer_control.h"

#include <memory>
#include <string>

namespace vantor {

/// What a control takes from the system that it runs on.
struct CurlSurroundings {
    SystemProxy proxy = systemProxy();
    std::string certificates = {}; ///< a file of certificates to trust; empty for those of the system
};

/// A control for HTTP, HTTPS and FTP, through proxies too. Redirects are followed within these three, from an address
/// of HTTPS to others of HTTPS alone. Where the library can't be used, the control raises 339 from all that reaches for
/// it.
[[nodiscard]] std::unique_ptr<TransferControl> makeCurlControl(CurlSurroundings surroundings = {});

} // namespace vantor
