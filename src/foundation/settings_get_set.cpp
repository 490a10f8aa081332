#include "foundation/error.h"
#include "foundation/settings_store.h"
#include "foundation/trap.h"

#include <optional>

namespace vantor {

namespace {

constexpr std::string_view globalModule = "mSHAREDSettingsGetSet";

std::optional<cSHAREDSettings>& globalStore() {
    static std::optional<cSHAREDSettings> store;
    return store;
}

Error noStore() {
    return {91, "Object variable or With block variable not set"};
}

} // namespace

void LoadSettings(std::string_view file) noexcept {
    const StandardTrap trap{"sub loadsettings", globalModule};
    trap([&] {
        if (!globalStore()) {
            globalStore().emplace();
        }
        globalStore()->LoadSettings(file);
    });
}

void savesettings(std::string_view file) noexcept {
    const StandardTrap trap{"sub savesettings", globalModule};
    trap([&] {
        if (globalStore()) {
            globalStore()->SaveSettings(file);
        }
    });
}

SettingValue sget(std::string_view key, const SettingValue& fallback) noexcept {
    const StandardTrap trap{"function sget", globalModule};
    SettingValue result = fallback;
    trap([&] {
        if (!globalStore()) {
            throw noStore();
        }
        result = globalStore()->RetrieveSetting(key, fallback);
    });
    return result;
}

void sset(std::string_view key, const SettingValue& value) noexcept {
    const StandardTrap trap{"sub sset", globalModule};
    trap([&] {
        if (!globalStore()) {
            throw noStore();
        }
        globalStore()->StoreSetting(key, value);
    });
}

void resetSettings() {
    globalStore().reset();
}

} // namespace vantor
