// Shell: the main window, its dialogs and the settings of the application.
// Where the program stands: its folder is that of the link or copy that was started.
#pragma once

#include <filesystem>

namespace vantor {

/// The path that the program was started by, with its folder made canonical, if it leads to the running executable;
/// the executable's own path otherwise. A started path that is itself a link is not followed.
[[nodiscard]] std::filesystem::path startedProgram(const std::filesystem::path& started,
                                                   const std::filesystem::path& executable);

} // namespace vantor
