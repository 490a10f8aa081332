// End-to-end test on Windows: starts a program on the desktop where it runs itself, and tells what a user sees there.
// Usage: desktop_watch PROGRAM WINDOWS EXIT. Until the program ends, the file WINDOWS has one line for each visible
// window: left, top, width, height, title (in UTF-8), the one with the focus first. Then EXIT gets the exit code.
#include <cstdio>
#include <string>
#include <windows.h>

namespace {

std::string utf8(const std::wstring& text) {
    std::string result(text.size() * 3, '\0');
    result.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                                               result.data(), static_cast<int>(result.size()), nullptr,
                                                               nullptr)));
    return result;
}

BOOL CALLBACK addWindow(HWND window, LPARAM list) {
    if (IsWindowVisible(window) != 0) {
        std::wstring title(256, L'\0');
        title.resize(static_cast<std::size_t>(GetWindowTextW(window, title.data(), static_cast<int>(title.size()))));
        RECT place{};
        GetWindowRect(window, &place);
        auto& text = *reinterpret_cast<std::string*>(list);
        for (const LONG value : {place.left, place.top, place.right - place.left, place.bottom - place.top}) {
            text += std::to_string(value) + " ";
        }
        text += utf8(title) + "\n";
    }
    return TRUE;
}

std::string windows() {
    std::string list;
    if (const HWND front = GetForegroundWindow(); front != nullptr) {
        addWindow(front, reinterpret_cast<LPARAM>(&list));
    }
    EnumWindows(addWindow, reinterpret_cast<LPARAM>(&list));
    return list;
}

// Puts a whole new file in the place of the old, so that nobody reads half of it.
void write(const std::wstring& file, const std::string& text) {
    const std::wstring fresh = file + L".new";
    if (std::FILE* open = _wfopen(fresh.c_str(), L"wb")) {
        std::fwrite(text.data(), 1, text.size(), open);
        std::fclose(open);
        MoveFileExW(fresh.c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING);
    }
}

} // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc != 4) {
        return 2;
    }
    std::wstring line = L"\"" + std::wstring(argv[1]) + L"\"";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process) == 0) {
        write(argv[3], "did not start");
        return 1;
    }
    constexpr DWORD pause = 100; // milliseconds
    while (WaitForSingleObject(process.hProcess, pause) == WAIT_TIMEOUT) {
        write(argv[2], windows());
    }
    DWORD code = 0;
    GetExitCodeProcess(process.hProcess, &code);
    write(argv[3], std::to_string(code));
    return 0;
}
