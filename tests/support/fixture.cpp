#include "support/fixture.h"

#include "core/tables.h"
#include "foundation/code_page.h"
#include "foundation/log.h"
#include "foundation/native_path.h"
#include "foundation/run_state.h"
#include "foundation/text.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>

namespace vantor::test {

namespace {

constexpr std::size_t textColumn = 28; // characters ahead of a log line's text

std::filesystem::path makeFolder() {
    std::random_device random;
    for (;;) {
        const std::filesystem::path folder =
            std::filesystem::temp_directory_path() / ("vantor-test-" + std::to_string(random()));
        if (std::filesystem::create_directory(folder)) {
            return folder;
        }
    }
}

std::filesystem::path within(const std::filesystem::path& folder, std::string_view name) {
    std::string slashed = toUtf8(name);
    std::ranges::replace(slashed, '\\', '/');
    return folder / std::filesystem::path(std::u8string(slashed.begin(), slashed.end()));
}

} // namespace

void resetGlobals() {
    startRun();
    traffic = {};
    session = {};
}

void forgetActions() {
    actionRing() = ActionRing(dumpactions);
}

void Fixture::prepare() {
    resetGlobals();
    useClock(&clock);
    useHost(&recorder);
    m_folder = makeFolder();
    m_startFolder = std::filesystem::current_path();
    std::filesystem::current_path(m_folder);
    setProgramFile(m_folder / "Vantor");
}

void Fixture::cleanUp() {
    resetGlobals();
    std::error_code ignored;
    std::filesystem::current_path(m_startFolder, ignored);
    std::filesystem::remove_all(m_folder, ignored);
}

std::string Fixture::path(std::string_view name) const {
    return programPath(m_folder) + "\\" + std::string(name);
}

void Fixture::writeFile(std::string_view name, std::string_view bytes) const {
    const std::filesystem::path native = within(m_folder, name);
    std::filesystem::create_directories(native.parent_path());
    std::ofstream file(native, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    ASSERT_TRUE(file) << "can't write " << native;
}

std::string Fixture::readFile(std::string_view name) const {
    const std::filesystem::path native = within(m_folder, name);
    std::ifstream file(native, std::ios::binary);
    if (!file) {
        ADD_FAILURE() << "can't read " << native;
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool Fixture::exists(std::string_view name) const {
    return std::filesystem::exists(within(m_folder, name));
}

std::vector<std::string> Fixture::logLines() const {
    std::vector<std::string> lines;
    if (exists("log.txt")) {
        const std::string text = readFile("log.txt");
        for (const std::string_view line : split(text, "\r\n")) {
            lines.emplace_back(line);
        }
        EXPECT_EQ(lines.back(), "") << "the log's last line has no end";
        lines.pop_back();
    }
    return lines;
}

std::vector<std::string> Fixture::logTexts() const {
    std::vector<std::string> texts = logLines();
    for (std::string& line : texts) {
        line.erase(0, textColumn);
    }
    return texts;
}

} // namespace vantor::test
