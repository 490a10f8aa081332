#include "foundation/settings_store.h"

#include "foundation/disk.h"
#include "foundation/error.h"
#include "foundation/error_report.h"
#include "foundation/host.h"
#include "foundation/locale_words.h"
#include "foundation/text.h"
#include "foundation/text_files.h"
#include "foundation/trap.h"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

namespace vantor {

namespace {

constexpr std::string_view storeModule = "cSHAREDSettings";

std::string withoutCommas(std::string_view key) {
    return replaceAll(key, ",", "");
}

// The words for true and false, English or the locale's, become flags; any other value stays what it is.
SettingValue withWordsRead(const SettingValue& value) {
    const std::string word = upper(trim(value.text()));
    if (word == "FALSE" || word == getfalsestring()) {
        return false;
    }
    if (word == "TRUE" || word == gettruestring()) {
        return true;
    }
    return value;
}

bool equalsZero(const SettingValue& value) {
    try {
        return value.number() == 0;
    } catch (const Error&) {
        return false; // a text that is no number
    }
}

std::string driveOf(std::string_view file) {
    return std::string(file.starts_with('\\') ? file : file.substr(0, 1));
}

// One attempt to save. Its trap sorts by error number: statement() tells whether the save goes on.
class SaveAttempt {
  public:
    enum class Outcome { Ended, Again };

    explicit SaveAttempt(std::string_view file) noexcept : m_file(file) {}

    [[nodiscard]] Outcome run(const std::vector<cSHAREDSetting>& settings) noexcept {
        if (!statement([&] { m_output = createoutputfile(m_file); }) || !m_output) {
            return m_outcome;
        }
        std::string previous;
        for (const cSHAREDSetting& setting : settings) {
            const bool goesOn = statement([&] {
                std::string name = upper(withoutCommas(setting.KeyName));
                if (name != previous) {
                    m_output->write(std::string(name).append(",").append(setting.KeyValue.written()).append("\r\n"));
                }
                previous = std::move(name);
            });
            if (!goesOn) {
                return m_outcome;
            }
        }
        statement([&] { m_output->commit(); });
        return m_outcome;
    }

  private:
    template <class Statement>
    bool statement(Statement&& body) noexcept {
        try {
            body();
            return true;
        } catch (...) {
            return handled(currentError());
        }
    }

    bool handled(const Error& error) noexcept {
        const StandardTrap trap{"sub savesettings", storeModule};
        if (error.is(ErrorCode::BadFileName) || error.is(ErrorCode::PathFileAccess)) {
            trap(&Host::message, host(), "Unable to write to settings file - possibly read-only?");
            return false;
        }
        if (error.is(ErrorCode::DiskFull)) {
            m_output.reset();
            m_outcome = Outcome::Again;
            trap(&Host::message, host(),
                 "You've run out of disk space on drive " + driveOf(m_file) +
                     ":\rPlease clear some space and then click OK to attempt to save again.");
            return false;
        }
        showerr(std::to_string(error.number()) + " - " + error.description() + " in SaveSettings", "");
        return true;
    }

    std::string_view m_file;
    std::unique_ptr<ReplacingFile> m_output;
    Outcome m_outcome = Outcome::Ended;
};

std::string nameAt(const std::vector<cSHAREDSetting>& settings, std::int32_t index) {
    return settings.at(static_cast<std::size_t>(index) - 1).KeyName;
}

} // namespace

std::int32_t cSHAREDSettings::SettingsCount() const noexcept {
    return static_cast<std::int32_t>(m_settings.size());
}

std::string cSHAREDSettings::SettingNameByIndex(std::int32_t index) const noexcept {
    const StandardTrap trap{"property get settingnamebyindex", storeModule};
    std::string name;
    trap.set(name, nameAt, m_settings, index);
    return name;
}

void cSHAREDSettings::sSet(std::string_view key, const SettingValue& value) noexcept {
    StoreSetting(key, value);
}

void cSHAREDSettings::StoreSetting(std::string_view key, const SettingValue& value) noexcept {
    const StandardTrap trap{"sub storesetting", storeModule};
    trap(&cSHAREDSettings::addsetting, this, upper(key), value);
}

SettingValue cSHAREDSettings::RetrieveWithDefault(std::string_view key, const SettingValue& fallback) const noexcept {
    const StandardTrap trap{"function retrievewithdefault", storeModule};
    SettingValue result = fallback;
    trap([&] {
        const SettingValue found = RetrieveSetting(key, fallback);
        if (!equalsZero(found)) {
            result = found;
        }
    });
    return result;
}

void cSHAREDSettings::DeleteAllSettings() noexcept {
    m_settings.clear();
}

SettingValue cSHAREDSettings::sGet(std::string_view key, const SettingValue& fallback) const noexcept {
    return RetrieveSetting(key, fallback);
}

SettingValue cSHAREDSettings::RetrieveSetting(std::string_view key, const SettingValue& fallback) const noexcept {
    const StandardTrap trap{"function retrievesetting", storeModule};
    SettingValue result = fallback;
    trap([&] {
        const Found found = findsetting(upper(key));
        if (found.index > 0) {
            result = withWordsRead(m_settings[static_cast<std::size_t>(found.index) - 1].KeyValue);
        }
    });
    return result;
}

void cSHAREDSettings::SaveSettings(std::string_view file) noexcept {
    while (SaveAttempt(file).run(m_settings) == SaveAttempt::Outcome::Again) {
    }
}

void cSHAREDSettings::LoadSettings(std::string_view file) noexcept {
    std::string_view line;
    const auto statement = [&](auto&& body) noexcept {
        try {
            body();
        } catch (...) {
            showerr("Error " + std::to_string(currentError().number()) +
                        " in setting file. Line: " + std::string(line) + " of " + std::string(file),
                    "");
        }
    };
    DeleteAllSettings();
    if (!FileExists(file)) {
        return;
    }
    std::string text;
    std::vector<std::string_view> lines;
    statement([&] { ReadWholeFile(file, text); });
    statement([&] { lines = splitLines(text); });
    // Kept sorted aside: a file in any order, of any length, is read in one pass.
    std::map<std::string, SettingValue, std::less<>> read;
    std::string key;
    for (const std::string_view current : lines) {
        line = current;
        statement([&] {
            const std::string previous = std::exchange(key, std::string());
            const std::size_t comma = line.find(',');
            if (comma == std::string_view::npos) {
                return;
            }
            key = line.substr(0, comma);
            const SettingValue value = withWordsRead(line.substr(comma + 1));
            // Quirk: of lines of one key right behind each other the first holds; otherwise the later one does.
            if (!trim(key).empty() && upper(trim(key)) != upper(trim(previous))) {
                read.insert_or_assign(key, value);
            }
        });
    }
    statement([&] {
        m_settings.reserve(read.size());
        for (auto& [name, value] : read) {
            m_settings.push_back({name, std::move(value)});
        }
    });
    sortsettings();
}

void cSHAREDSettings::DeleteSettingByName(std::string_view key) noexcept {
    const StandardTrap trap{"sub deletesettingbyname", storeModule};
    trap([&] {
        Found found = findsetting(key);
        if (found.index < 0) {
            found = findsetting(upper(key));
        }
        if (found.index > 0) {
            DeleteSetting(found.index);
        }
    });
}

void cSHAREDSettings::DeleteSetting(std::int32_t index) noexcept {
    const StandardTrap trap{"sub deletesetting", storeModule};
    trap([&] {
        if (index < 1 || index > SettingsCount()) {
            throw Error(ErrorCode::SubscriptOutOfRange);
        }
        m_settings.erase(m_settings.begin() + (index - 1));
    });
}

cSHAREDSettings::Found cSHAREDSettings::findsetting(std::string_view key) const {
    const std::string name = withoutCommas(key);
    const auto at = std::ranges::lower_bound(m_settings, name, {}, &cSHAREDSetting::KeyName);
    const auto before = static_cast<std::int32_t>(at - m_settings.begin());
    if (at != m_settings.end() && at->KeyName == name) {
        return {before + 1, before + 2};
    }
    return {-1, m_settings.empty() ? 0 : before + 1};
}

void cSHAREDSettings::addsetting(std::string_view key, const SettingValue& value) {
    const Found found = findsetting(key);
    if (found.index > 0) {
        m_settings[static_cast<std::size_t>(found.index) - 1].KeyValue = value;
    } else if (found.position == 0 || found.position > SettingsCount()) {
        m_settings.push_back({withoutCommas(key), value});
    } else {
        m_settings.insert(m_settings.begin() + (found.position - 1), {withoutCommas(key), value});
    }
}

void cSHAREDSettings::sortsettings() noexcept {
    if (!std::ranges::is_sorted(m_settings, {}, &cSHAREDSetting::KeyName)) {
        std::ranges::stable_sort(m_settings, {}, &cSHAREDSetting::KeyName);
    }
}

} // namespace vantor
