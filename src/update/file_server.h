// Update: asks the update server for newer versions and fetches the setup program.
// The commands that fetch a file from a file server.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace vantor {

/// What the transfer control is told, one command after another.
struct FileServerCommands {
    std::string host; ///< "FTP://{host}", with user and port if there are any; empty when the address names none
    std::array<std::string, 3> commands;
};

/// The commands for an address that begins with a scheme or with "ftp.", in which "\" counts as "/". `local` is the
/// file to be written.
[[nodiscard]] FileServerCommands fileServerCommands(std::string_view url, std::string_view local);

} // namespace vantor
