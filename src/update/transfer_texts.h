// Update: asks the update server for newer versions and fetches the setup program.
// What is said of a transfer: its states, and how much of it has come.
#pragma once

#include "update/transfer_control.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vantor {

/// The status text of a state; empty for one without.
[[nodiscard]] std::string_view stateText(TransferState state) noexcept;

/// How much of a file has come, in percent, rounded; above 100 where the count overshoots. `size` is above 0.
[[nodiscard]] double percentage(std::int64_t bytes, std::int32_t size);
/// "{bytes}kb", in kilobytes with up to 2 decimals.
[[nodiscard]] std::string downloadedText(std::int64_t bytes);
/// "{bytes} kb of {size} kb ({percent}%)", in whole kilobytes.
[[nodiscard]] std::string partText(std::int64_t bytes, std::int32_t size);
/// "{bytes} kb downloaded", in whole kilobytes.
[[nodiscard]] std::string countText(std::int64_t bytes);
/// What a file server's download tells; a size below 1 is unknown.
[[nodiscard]] std::string savedText(std::int64_t bytes, std::int32_t size);
/// "Downloaded {bytes} kb (100%)", with 2 decimals.
[[nodiscard]] std::string completeText(std::int64_t bytes);

} // namespace vantor
