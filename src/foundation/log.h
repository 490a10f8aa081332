// Foundation: what the whole program stands on and that knows nothing of traffic.
// The log file and the system's name.
#pragma once

#include "foundation/action_ring.h"

#include <string>
#include <string_view>

namespace vantor {

/// The log's path; empty until the first line is written.
[[nodiscard]] std::string& logFile() noexcept;
/// Sets the log's path to "log.txt" in the program's folder.
void setlogfile();
/// Appends one line to the log. Raises what the file raises.
void logit(std::string_view text);
/// Begins a new log, with its header and then this line. Raises what the file raises.
void beginLog(std::string_view text);
/// The writer behind logit: opens the file for this one line. A log that can't be erased is appended to.
void writelogline(std::string_view path, std::string_view text, bool create);
/// Writes the ring of actions to the log, oldest first. The ring keeps its entries.
void dumpactions();
/// The name of the operating system, as in "WinXP"; empty where the table has none.
[[nodiscard]] std::string fosname();
/// The program's version as {major}.{minor}.{revision}.
[[nodiscard]] std::string AppVersion();

} // namespace vantor
