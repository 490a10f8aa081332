// Foundation: what the whole program stands on and that knows nothing of traffic.
// Running an outside program to its end.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string_view>

namespace vantor {

/// What runToEnd gives when the program did not start: the value of the system's failed wait.
inline constexpr std::uint32_t waitFailed = 0xFFFFFFFFU;

/// Runs a command line to its end and gives the exit code. The calling thread stands still meanwhile, or calls
/// `meanwhile`, which must not throw, over and over with a short rest in between. The program's path stands in front,
/// with or without quotes, and may hold blanks: the system splits it off. Working folder, environment and standard
/// files are those of this process. A program that doesn't start is no error: the result is waitFailed.
///
/// Elsewhere than on Windows a file that begins with "MZ" runs through wine if that is installed, any other executable
/// as it is, and one that was ended by a signal gives 128 and the signal's number.
[[nodiscard]] std::uint32_t runToEnd(std::string_view command, const std::function<void()>& meanwhile = {});

/// Whether a file begins as the programs of Windows do, with "MZ".
[[nodiscard]] bool isWindowsProgram(const std::filesystem::path& program);

} // namespace vantor
