#include "foundation/error.h"
#include "foundation/settings_store.h"
#include "foundation/trap.h"

#include <optional>

namespace vantor {

namespace {

constexpr std::string_view globalModule = "mSHAREDSettingsGetSet";

Error noStore() {
    return {91, "Object variable or With block variable not set"};
}

} // namespace

void LoadSettings(std::string_view file) noexcept {
    const StandardTrap trap{"sub loadsettings", globalModule};
    trap([&] {
        if (!globalSettings()) {
            globalSettings().emplace();
        }
        globalSettings()->LoadSettings(file);
    });
}

void savesettings(std::string_view file) noexcept {
    const StandardTrap trap{"sub savesettings", globalModule};
    trap([&] {
        if (globalSettings()) {
            globalSettings()->SaveSettings(file);
        }
    });
}

SettingValue sget(std::string_view key, const SettingValue& fallback) noexcept {
    const StandardTrap trap{"function sget", globalModule};
    SettingValue result = fallback;
    trap([&] {
        if (!globalSettings()) {
            throw noStore();
        }
        result = globalSettings()->RetrieveSetting(key, fallback);
    });
    return result;
}

void sset(std::string_view key, const SettingValue& value) noexcept {
    const StandardTrap trap{"sub sset", globalModule};
    trap([&] {
        if (!globalSettings()) {
            throw noStore();
        }
        globalSettings()->StoreSetting(key, value);
    });
}

std::optional<cSHAREDSettings>& globalSettings() noexcept {
    static std::optional<cSHAREDSettings> store;
    return store;
}

} // namespace vantor
