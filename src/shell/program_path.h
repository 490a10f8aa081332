// Shell: the main window, its dialogs and the settings of the application.
// Where the program stands: its folder is that of the link or copy that was started.
#pragma once

#include <filesystem>

namespace vantor {

/// The path that the program was started by, made absolute, if it leads to the running executable (through links
/// or not); the executable's own path otherwise. The last component is not followed when it is a link.
[[nodiscard]] std::filesystem::path startedProgram(const std::filesystem::path& started,
                                                   const std::filesystem::path& executable) noexcept;

} // namespace vantor
