// Test support: files of the system that fail in a known way, to show what the program makes of a fault.
// Tests for Windows run under Wine, which shows the whole system as drive Z:.
#pragma once

#include <string>
#include <string_view>

namespace vantor::test {

#ifdef _WIN32
inline constexpr std::string_view systemRoot = "Z:";
inline constexpr int unreadableError = 52; ///< Wine has its own word for the fault
#else
inline constexpr std::string_view systemRoot;
inline constexpr int unreadableError = 57;
#endif

/// The program's path of a file of the system, such as "\\dev\\full".
inline std::string systemFile(std::string_view path) {
    return std::string(systemRoot).append(path);
}

/// Writes end with a full disk, sooner or later.
inline const std::string fullDevice = systemFile("\\dev\\full");
/// Opens well and can't be read at its beginning.
inline const std::string unreadable = systemFile("\\proc\\self\\mem");
/// Read-only, and no one can change that: not even an administrator.
inline const std::string unwritable = systemFile("\\proc\\self\\environ");

} // namespace vantor::test
