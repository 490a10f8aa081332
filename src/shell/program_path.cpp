#include "shell/program_path.h"

#include <system_error>

namespace vantor {

std::filesystem::path startedProgram(const std::filesystem::path& started,
                                     const std::filesystem::path& executable) noexcept {
    std::error_code failure;
    if (!started.empty() && std::filesystem::equivalent(started, executable, failure)) {
        std::filesystem::path whole = std::filesystem::absolute(started, failure);
        if (!failure) {
            return whole.lexically_normal();
        }
    }
    return executable;
}

} // namespace vantor
