// Test support: what the tests of all rooms share.
// An executable that stands in for an outside tool: it records how it was called and rewrites the traffic files. On
// Windows it is a program, elsewhere a script that does the same.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace vantor::test {

/// Writes an executable file, folders on its way included.
inline void writeExecutable(const std::filesystem::path& file, std::string_view text) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
}

#ifdef VANTOR_STAND_IN_TOOL
/// Puts the stand-in of stand_in_tool.cpp, a Windows program, down as `file`.
inline void copyStandInTool(const std::filesystem::path& file) {
    std::filesystem::create_directories(file.parent_path());
    std::filesystem::copy_file(VANTOR_STAND_IN_TOOL, file, std::filesystem::copy_options::overwrite_existing);
}
#endif

/// Puts the stand-in down as `file`. Each run appends its working folder and its arguments, each in brackets, to
/// calls.txt beside it, rewrites the three traffic files there, and ends with exit code 7.
inline void writeStandInTool(const std::filesystem::path& file) {
#ifdef _WIN32
    copyStandInTool(file);
#else
    writeExecutable(file, R"sh(#!/bin/sh
here=$(dirname "$0")
printf '%s' "$(pwd -P)" >> "$here/calls.txt"
for argument in "$@"; do printf ' [%s]' "$argument" >> "$here/calls.txt"; done
printf '\n' >> "$here/calls.txt"
for name in Aircraft Airports Flightplans; do printf 'new %s\r\n' "$name" > "$here/$name.txt"; done
exit 7
)sh");
#endif
}

/// What the stand-in in `folder` recorded; empty when it never ran.
inline std::string recordedCalls(const std::filesystem::path& folder) {
    std::ifstream file(folder / "calls.txt", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The record of one call in the working folder of the tests; `arguments` are what the system passes.
inline std::string oneCall(std::string_view arguments) {
    return std::filesystem::canonical(".").string() + std::string(arguments) + "\n";
}

} // namespace vantor::test
