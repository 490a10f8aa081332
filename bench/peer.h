// Bench: measurements, as ratios in one run, on traffic made for them.
// The peer that people know: sqlite3 imports the same legs into a table of a new database file.
#pragma once

#include <filesystem>

namespace vantor::bench {

/// Writes the legs of a flight plan file into legs.csv beside it: the schedule's number, the leg's number, and the six
/// columns of the leg as they stand.
void writeLegsForPeer(const std::filesystem::path& folder);
/// Runs sqlite3's .import of that file as people do it, into a database of the folder. It must not exist yet.
void importByPeer(const std::filesystem::path& folder);
void removePeerDatabase(const std::filesystem::path& folder);

} // namespace vantor::bench
