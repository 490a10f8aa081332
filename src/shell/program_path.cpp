#include "shell/program_path.h"

#include <system_error>

namespace vantor {

std::filesystem::path startedProgram(const std::filesystem::path& started, const std::filesystem::path& executable) {
    std::error_code failure;
    if (!started.empty() && std::filesystem::equivalent(started, executable, failure)) {
        const std::filesystem::path folder =
            std::filesystem::canonical(std::filesystem::absolute(started, failure).parent_path(), failure);
        if (!failure) {
            return folder / started.filename();
        }
    }
    return executable;
}

} // namespace vantor
