// Update: asks the update server for newer versions and fetches the setup program.
// A request as options of libcurl: what is asked for, and the way through the proxies.
#pragma once

#include "update/curl_handle.h"
#include "update/system_proxy.h"
#include "update/transfer_control.h"

#include <string>

namespace vantor {

struct CurlRequest {
    std::string url;
    bool secure = false;      ///< began with https, and stays there
    bool folderOnly = false;  ///< of a file server: nothing is sent, and the connection stays open for the file
    std::string certificates; ///< a file of certificates to trust; empty for those of the system
    AccessType accessType = AccessType::SystemDefault;
    std::string proxy;       ///< of a named proxy
    ProxyAnswer systemProxy; ///< that of the user; nothing: the library reads the environment
    std::string userName;    ///< told only to a proxy that asks; empty for none
    std::string password;
};

/// Sets the options of a request on a handle that has none. Error 339 for one that the library doesn't know.
void setUpRequest(CurlHandle& curl, const CurlRequest& request);

} // namespace vantor
