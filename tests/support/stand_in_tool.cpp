// Test support: a console program for Windows that stands in for the traffic tool.
// It does what the script of stand_in_tool.h does, in the folder of its own file.
#include <cstdio>
#include <filesystem>
#include <string>
#include <windows.h>

namespace {

std::filesystem::path ownFolder() {
    std::wstring file(MAX_PATH, L'\0');
    file.resize(GetModuleFileNameW(nullptr, file.data(), MAX_PATH));
    return std::filesystem::path(file).parent_path();
}

void append(const std::filesystem::path& file, const std::string& text, const wchar_t* mode) {
    if (std::FILE* open = _wfopen(file.c_str(), mode)) {
        std::fwrite(text.data(), 1, text.size(), open);
        std::fclose(open);
    }
}

} // namespace

int main(int argc, char** argv) {
    const std::filesystem::path folder = ownFolder();
    std::string call = std::filesystem::current_path().string();
    for (int i = 1; i < argc; ++i) {
        call.append(" [").append(argv[i]).append("]");
    }
    append(folder / "calls.txt", call + "\n", L"ab");
    for (const char* const name : {"Aircraft", "Airports", "Flightplans"}) {
        append(folder / (std::string(name) + ".txt"), "new " + std::string(name) + "\r\n", L"wb");
    }
    return 7;
}
