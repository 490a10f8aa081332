// Foundation: what the whole program stands on and that knows nothing of traffic.
// Whole text files: read in one go, written through the one way to open a file for output.
#pragma once

#include "foundation/replacing_file.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace vantor {

/// A new file for output in place of `path`, or null when it is read-only and can't be made writable: then one line
/// "{path} is read only, can't change it to read write, can't update it" stands in the log. Raises as ReplacingFile.
[[nodiscard]] std::unique_ptr<ReplacingFile> createoutputfile(std::string_view path);
/// Writes `text` exactly as it stands through createoutputfile. Failures go to the ring.
void WriteTextFile(std::string_view path, std::string_view text) noexcept;

/// The number of lines of a text file, by reading through them; 0 if it doesn't exist. Raises as InputFile does.
[[nodiscard]] std::int32_t LinesInFile(std::string_view path);
/// The whole file as one text; empty if it doesn't exist. Raises what opening and reading meet, with an empty text.
void LoadTextFile(std::string_view path, std::string& text);
/// The same as LoadTextFile.
void ReadWholeFile(std::string_view path, std::string& text);

} // namespace vantor
