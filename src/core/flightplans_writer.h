// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// Writer of the flight plan file.
#pragma once

#include <string_view>

namespace vantor {

/// Writes the schedules that are not deleted, without their deleted legs. The tables stay as they are. Faults go to the
/// ring; after a failed write the old file stands as it was.
void savesc(std::string_view file) noexcept;

} // namespace vantor
