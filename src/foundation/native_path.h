// Foundation: what the whole program stands on and that knows nothing of traffic.
// The one module that turns the program's paths (texts with backslashes) into native ones.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace vantor {

/// The native path of a path of the program. On Windows it is taken as it stands. Elsewhere backslashes become
/// slashes, a drive letter goes through the user's Wine prefix (dosdevices), and a component that does not exist as
/// spelled is looked up without regard to case. The path need not exist; nothing is raised.
[[nodiscard]] std::filesystem::path nativePath(std::string_view path);

/// The program's own form of a native path: bytes of the code page, backslashes.
[[nodiscard]] std::string programPath(const std::filesystem::path& native);

/// The program's folder, the folder of the executable, without a trailing backslash.
[[nodiscard]] const std::string& programFolder();
/// The program file's name without folder and extension.
[[nodiscard]] const std::string& programName();
/// Set once at the start of the program from the executable's native path, and by tests.
void setProgramFile(const std::filesystem::path& executable);

} // namespace vantor
