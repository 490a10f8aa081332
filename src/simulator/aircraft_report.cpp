#include "simulator/aircraft_report.h"

#include "core/tables.h"
#include "foundation/channels.h"
#include "foundation/disk.h"
#include "foundation/native_path.h"
#include "foundation/path_text.h"
#include "foundation/progress.h"
#include "foundation/text.h"
#include "simulator/folders.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantor {

namespace {

std::string withoutBackslashes(std::string_view text) {
    std::string result(text);
    std::erase(result, '\\');
    return result;
}

// What stands behind the first `key` anywhere in a text that has one.
std::optional<std::string_view> behind(std::string_view text, std::string_view key) {
    const std::size_t position = text.find(key);
    return position == std::string_view::npos ? std::nullopt : std::optional(text.substr(position + key.size()));
}

// One aircraft folder of the simulator.
class AircraftCheck {
  public:
    AircraftCheck(OutputFile& report, std::string folder) : m_report(report), m_folder(std::move(folder)) {}

    void run(const std::string& cfg) {
        findVariants();
        readConfiguration(cfg);
        reportUnused();
    }

  private:
    void write(std::string_view line) { m_report.write(std::string(line) + "\r\n"); }

    // Quirk: the search is over the whole path. A folder above that holds "texture." shifts the names.
    void findVariants() {
        std::vector<std::string> subfolders;
        fillfolders(m_folder, subfolders, false);
        for (const std::string& subfolder : subfolders) {
            const std::string capitals = upper(subfolder);
            if (const auto name = behind(capitals, "TEXTURE.")) {
                m_variants.push_back(withoutBackslashes(*name));
            }
        }
    }

    // Quirk: sections and comment marks mean nothing. A line counts wherever it stands.
    void readConfiguration(const std::string& cfg) {
        InputFile input(cfg);
        std::string_view line;
        while (input.readLine(line)) {
            const std::string capitals = upper(line);
            if (const auto texture = behind(capitals, "TEXTURE=")) {
                checkTexture(withoutBackslashes(trim(*texture)));
            }
            if (const auto model = behind(capitals, "SIM=")) {
                checkModel(std::string(trim(*model)));
            }
        }
    }

    void checkTexture(const std::string& name) {
        if (name.empty()) {
            return; // the default folder
        }
        if (std::ranges::find(m_variants, name) != m_variants.end()) {
            m_used.push_back(name);
        } else {
            // Quirk: "textures." with an s, unlike the folder's own name, and a blank behind the path.
            write(m_folder + " texture folder 'textures." + lower(name) + "' is missing.");
        }
    }

    void checkModel(const std::string& name) {
        if (!FileExists(m_folder + "\\" + name + ".AIR")) {
            write(m_folder + " air file " + name + ".AIR is missing.");
        }
    }

    void reportUnused() {
        for (const std::string& used : m_used) {
            std::erase(m_variants, used);
        }
        for (const std::string& variant : m_variants) {
            // Quirk: no blank behind the path here.
            write(m_folder + "texture." + lower(variant) + " folder found but " + variant +
                  " variant not in AIRCRAFT.CFG file.");
        }
        if (!m_variants.empty()) {
            write("");
        }
    }

    OutputFile& m_report;
    std::string m_folder; // with its trailing backslash
    std::vector<std::string> m_variants;
    std::vector<std::string> m_used; // one entry per occurrence
};

void writeReport(Canvas* progress) {
    OutputFile report(programFolder() + "\\ACLOG.TXT");
    std::vector<std::string> files;
    fillfolders(fsaircraftpath, files, true);
    for (std::size_t looked = 0; const std::string& cfg : files) {
        if (FileExists(cfg)) {
            AircraftCheck(report, pathonly(cfg)).run(cfg);
        }
        if (progress != nullptr) {
            showprogressstring(progress, static_cast<double>(++looked), static_cast<double>(files.size()), "");
        }
    }
    report.close();
}

} // namespace

void modACReport(Canvas* progress) noexcept {
    try {
        writeReport(progress);
    } catch (...) { // NOLINT(bugprone-empty-catch): the report ends where it is, and its files are closed
    }
}

} // namespace vantor
