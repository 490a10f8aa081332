#include "fuzz.h"

#include "foundation/native_path.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace vantor::fuzz {

namespace {

class Bar final : public Canvas {
  public:
    [[nodiscard]] double innerWidth() const override { return 3000; }
    [[nodiscard]] double innerHeight() const override { return 300; }
    [[nodiscard]] double outerWidth() const override { return 3030; }
    [[nodiscard]] double outerHeight() const override { return 330; }
    void clear() override {}
    void fillBox(double, double, double, double, Colour) override {}
    void drawLine(double, double, double, double, Colour) override {}
    void drawText(double, double, std::string_view) override {}
    [[nodiscard]] double textWidth(std::string_view) const override { return 0; }
    [[nodiscard]] double textHeight(std::string_view) const override { return 0; }
    void setFontSize(double) override {}
    void setTextColour(Colour) override {}
    void setBackColour(Colour) override {}
    void useSystemColours() override {}
};

} // namespace

void finding(std::string_view what) {
    std::fprintf(stderr, "Finding: %.*s\n", static_cast<int>(what.size()), what.data());
    std::abort();
}

Folder::Folder() : m_native("/dev/shm/vantor-fuzz-" + std::to_string(::getpid())) {
    std::filesystem::remove_all(m_native); // of an earlier process that ended in a finding
    std::filesystem::create_directories(m_native);
    std::filesystem::create_symlink("/dev/null", m_native / "log.txt");
    setProgramFile(m_native / "Vantor");
}

Folder::~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_native, ignored);
}

std::string Folder::path(std::string_view name) const {
    return programPath(m_native) + "\\" + std::string(name);
}

void Folder::makeFolder(const std::string& name) const {
    std::filesystem::create_directories(m_native / name);
}

void Folder::put(const std::string& name, std::string_view bytes) const {
    std::FILE* const file = std::fopen((m_native / name).c_str(), "wb");
    require(file != nullptr, "a file can be made");
    std::fwrite(bytes.data(), 1, bytes.size(), file);
    require(std::fclose(file) == 0, "a file can be written");
}

std::string Folder::get(const std::string& name) const {
    std::string bytes;
    if (std::FILE* const file = std::fopen((m_native / name).c_str(), "rb"); file != nullptr) {
        std::array<char, 4096> buffer{};
        while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file)) {
            bytes.append(buffer.data(), count);
        }
        std::fclose(file);
    }
    return bytes;
}

const Folder& folder() {
    static const Folder here;
    return here;
}

Canvas* bar() {
    static Bar nowhere;
    return &nowhere;
}

} // namespace vantor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static_cast<void>(vantor::fuzz::folder());
    vantor::fuzz::check({reinterpret_cast<const char*>(data), size});
    return 0;
}
