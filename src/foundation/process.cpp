#include "foundation/process.h"

#include "foundation/code_page.h"
#include "foundation/native_path.h"
#include "foundation/text.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#else
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace vantor {

namespace {
constexpr int restBetweenLooks = 10; // milliseconds from one look at a running program to the next
} // namespace

bool isWindowsProgram(const std::filesystem::path& program) {
    std::ifstream file(program, std::ios::binary);
    return file.get() == 'M' && file.get() == 'Z';
}

#ifdef _WIN32

std::uint32_t runToEnd(std::string_view command, const std::function<void()>& meanwhile) {
    std::string line(command);
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, NORMAL_PRIORITY_CLASS, nullptr, nullptr, &start,
                   &process);
    // With no process the handles are null, and both calls fail, which does no harm.
    DWORD code = WaitForSingleObject(process.hProcess, meanwhile ? restBetweenLooks : INFINITE);
    while (code == WAIT_TIMEOUT) {
        meanwhile();
        code = WaitForSingleObject(process.hProcess, restBetweenLooks);
    }
    GetExitCodeProcess(process.hProcess, &code);
    if (process.hThread != nullptr) {
        CloseHandle(process.hThread);
    }
    if (process.hProcess != nullptr) {
        CloseHandle(process.hProcess);
    }
    return code;
}

#else

namespace {

// A command line taken apart.
struct Invocation {
    std::filesystem::path program;
    std::string_view arguments;
};

std::optional<std::filesystem::path> programAt(std::string_view path) {
    const auto regular = [](const std::filesystem::path& native) {
        std::error_code ignored;
        return std::filesystem::is_regular_file(native, ignored);
    };
    std::filesystem::path native = nativePath(path);
    if (regular(native)) {
        return native;
    }
    // A name without an extension stands for one with ".exe".
    if (!path.empty() && path.find('.', path.find_last_of("\\/") + 1) == std::string_view::npos) {
        native = nativePath(std::string(path) + ".exe");
        if (regular(native)) {
            return native;
        }
    }
    return std::nullopt;
}

// Splits off the program as the system does: what stands in quotes, or the shortest front part, ending at a blank,
// that names a file.
std::optional<Invocation> takeApart(std::string_view command) {
    command = trim(command);
    if (command.starts_with('"')) {
        const std::size_t end = std::min(command.find('"', 1), command.size());
        if (auto program = programAt(command.substr(1, end - 1))) {
            return Invocation{std::move(*program), command.substr(std::min(end + 1, command.size()))};
        }
        return std::nullopt;
    }
    for (std::size_t end = 0; end < command.size();) {
        end = std::min(command.find(' ', end + 1), command.size());
        if (auto program = programAt(command.substr(0, end))) {
            return Invocation{std::move(*program), command.substr(end)};
        }
    }
    return std::nullopt;
}

// The arguments of a command line, which stand between blanks; one in quotes may hold some.
std::vector<std::string> splitArguments(std::string_view text) {
    std::vector<std::string> arguments;
    std::string one;
    bool open = false;
    bool quoted = false;
    const auto finish = [&] {
        if (open) {
            arguments.push_back(toUtf8(one));
        }
        one.clear();
        open = false;
    };
    for (const char c : text) {
        if (c == '"') {
            quoted = !quoted;
            open = true;
        } else if (!quoted && (c == ' ' || c == '\t')) {
            finish();
        } else {
            one += c;
            open = true;
        }
    }
    finish();
    return arguments;
}

std::uint32_t waitFor(pid_t process, const std::function<void()>& meanwhile) {
    int status = 0;
    for (pid_t ended = 0; ended != process;) {
        ended = waitpid(process, &status, meanwhile ? WNOHANG : 0);
        if (ended == -1 && errno != EINTR) {
            return waitFailed;
        }
        if (ended == 0) {
            meanwhile();
            std::this_thread::sleep_for(std::chrono::milliseconds(restBetweenLooks));
        }
    }
    constexpr int signalBase = 128; // as shells tell it
    return static_cast<std::uint32_t>(WIFEXITED(status) ? WEXITSTATUS(status) : signalBase + WTERMSIG(status));
}

} // namespace

std::uint32_t runToEnd(std::string_view command, const std::function<void()>& meanwhile) {
    const std::optional<Invocation> invocation = takeApart(command);
    if (!invocation) {
        return waitFailed;
    }
    std::vector<std::string> words;
    if (isWindowsProgram(invocation->program)) {
        words.emplace_back("wine");
    }
    words.push_back(std::filesystem::absolute(invocation->program).string());
    for (std::string& argument : splitArguments(invocation->arguments)) {
        words.push_back(std::move(argument));
    }
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    // A path with a slash is taken as it is; "wine" alone is searched for where the user's programs are.
    pid_t process = 0;
    if (posix_spawnp(&process, words.front().c_str(), nullptr, nullptr, pointers.data(), environ) != 0) {
        return waitFailed;
    }
    return waitFor(process, meanwhile);
}

#endif

} // namespace vantor
