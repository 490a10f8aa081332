// Foundation: what the whole program stands on and that knows nothing of traffic.
// The log file, the ring of recent actions and the system's name.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vantor {

/// Entries of the ring of recent actions.
inline constexpr int recentActions = 40;

/// Sets the log's path to "log.txt" in the program's folder.
void setlogfile();
/// Appends one line to the log; with `create` a new log with its header is begun. Raises what the file raises.
void logit(std::string_view text, bool create = false);
/// The writer behind logit: opens the file for this one line. A log that can't be erased is appended to.
void writelogline(std::string_view path, std::string_view text, bool create);
/// Puts an entry into the ring. When the ring is full it is dumped to the log first, which may raise.
void logaction(std::string_view text, std::string_view procedure, std::string_view module);
/// As logaction, marked "DBG: "; a full ring is overwritten without a dump.
void logdebug(std::string_view text, std::string_view procedure, std::string_view module);
/// Writes the ring to the log, oldest first. The ring keeps its entries.
void dumpactions();
/// The name of the operating system, as in "WinXP"; empty where the table has none.
[[nodiscard]] std::string fosname();
/// The program's version as {major}.{minor}.{revision}.
[[nodiscard]] std::string AppVersion();

/// The newest text of the ring, and the text of any of its places (1 to 40); empty where none was written.
[[nodiscard]] std::string newestAction();
[[nodiscard]] std::string actionText(int index);
/// How many entries the ring has taken: two equal counts tell that nothing failed in between.
[[nodiscard]] std::int64_t actionCount();
/// Empties the ring and forgets the log's path, as at the start of a run. For tests.
void resetLogging();

} // namespace vantor
