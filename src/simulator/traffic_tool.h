// Simulator: what the traffic needs of the simulator's own files.
// The outside tool that compiles the text files into the simulator's traffic and back.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace vantor {

/// Whether the origin of any leg that is not deleted, in any schedule that is not deleted, is an unknown airport. Each
/// such code is added once to `list` with a blank behind it, in the order of first meeting; a code that stands inside
/// the list already, be it as the tail of a longer one, is not added.
[[nodiscard]] bool airportsmissing(std::string& list) noexcept;

/// The command line that makes `tool` compile the files of the family plansuffix for the simulator fsmode.
[[nodiscard]] std::string compileCommand(std::string_view tool);
/// The command line that makes `tool` extract the files of the family plansuffix.
[[nodiscard]] std::string decompileCommand(std::string_view tool);

/// Runs a command line to its end, calling `meanwhile` over and over, and gives the exit code. A tool that doesn't
/// start is no error and gives 0xFFFFFFFF. Any fault passes to the caller, who traps it; `meanwhile` must not throw.
std::uint32_t ExecCmd(const std::string& command, const std::function<void()>& meanwhile = {});

} // namespace vantor
