// Foundation: what the whole program stands on and that knows nothing of traffic.
// What the program asks of the disk: existence, attributes, dates, folders. All paths are texts with backslashes.
#pragma once

#include "foundation/clock.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vantor {

/// Whether a search for `path` (wildcards * and ? work in its last part) first meets something that is no folder.
[[nodiscard]] bool FileExists(std::string_view path) noexcept;
/// Whether a search for `path`, less one "\" at its end, first meets a folder. A bare drive ("C:", "C:\") is taken for
/// granted.
[[nodiscard]] bool FolderExists(std::string_view path) noexcept;
/// Whether the file (or folder) is there and nobody may write to it.
[[nodiscard]] bool isReadOnly(std::string_view path) noexcept;
/// Takes the read-only mark off an existing file; false when there is none or that failed.
bool MakeReadWrite(std::string_view path) noexcept;
/// Modification time, 0 for a missing file. Nothing calls it yet.
[[nodiscard]] DateTime FileDate(std::string_view path) noexcept;
/// Length in bytes. Raises 53 for a missing file.
[[nodiscard]] std::uintmax_t FileLength(std::string_view path);
/// Size and time of a file in a text that differs once either does; empty for a missing file.
[[nodiscard]] std::string fileStamp(std::string_view path);
/// Deletes a file if it exists, read-only or not. Failures go to the ring.
void EraseFile(std::string_view path) noexcept;

/// Appends the immediate subfolders of `folder`, each name followed by "\", ascending without regard to case. A
/// folder that can't be searched gives nothing.
void listsubfolders(std::string_view folder, std::vector<std::string>& list) noexcept;

} // namespace vantor
