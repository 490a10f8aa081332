// Explorer: all flights in one table, on a world map, and checked.
// Rows of the list as text, for the clipboard and for files.
#pragma once

#include "explorer/leg_number.h"
#include "explorer/leg_values.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace vantor {

/// Calls `progress` every thousand rows with the number that is written, 0 to rows.size(); false ends the work.
using ExportProgress = std::function<bool(std::size_t)>;

/// One line of titles and one for each row, cells apart by tabs, lines ended by CR LF. Bytes of the code page.
[[nodiscard]] std::string rowsAsText(std::span<const LegNumber> rows, std::span<const LegColumn> columns);
/// Writes the same as CSV in UTF-8 with a header (RFC 4180): cells apart by commas, those with a comma, a quote or a
/// line end in quotes. The file is replaced as a whole; false when `progress` ended it, with the old file untouched.
/// Raises as ReplacingFile does.
bool exportCsv(std::string_view path, std::span<const LegNumber> rows, std::span<const LegColumn> columns,
               const ExportProgress& progress);

} // namespace vantor
