// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// The keys of the settings file, each once, with the default and the unit of its value.
#pragma once

#include "foundation/settings_store.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vantor::keys {

/// The display offset of times against GMT, a signed fraction of a day.
inline constexpr SettingKey<float> gmtOffset{"GMTOffset", 0.0F};
/// The simulator mode: 2 for FS2002, 4 for FS2004; 0 stands for none chosen yet.
inline constexpr SettingKey<std::int16_t> fsMode{"FSMode", 2};
/// The simulators' folders, with their trailing backslash.
inline constexpr SettingKey<std::string_view> fs2k2Path{"FS2k2Path", R"(C:\Program Files\Microsoft Games\FS2002\)"};
inline constexpr SettingKey<std::string_view> fs2k4Path{"FS2k4Path",
                                                        R"(C:\Program Files\Microsoft Games\Flight Simulator 9\)"};

/// The paths of the traffic files: the key of a mode is `forMode(aircraftTxt, mode)`. The defaults are the mode's files
/// in the program's folder.
inline constexpr std::string_view aircraftTxt = "AircraftTxt2k";
inline constexpr std::string_view airportsTxt = "AirportsTxt2k";
inline constexpr std::string_view flightplansTxt = "FlightplansTxt2k";
[[nodiscard]] inline std::string forMode(std::string_view key, int mode) {
    return std::string(key) + std::to_string(mode);
}

/// Whether updates are looked for only when the user asks.
inline constexpr SettingKey<bool> disableAutoUpdateCheck{"DisableAutoUpdateCheck", true};
/// The day of the last check for updates, as a date ("01/Jun/2004") or a day number; without one a check is due.
inline constexpr SettingKey<std::string_view> lastUpdateCheck{"LastUpdateCheck", ""};
/// How transfers reach the net: 0 as the system says, 1 directly, 2 by the proxy below.
inline constexpr SettingKey<std::int16_t> proxyType{"ProxyType", 1};
/// The proxy's name or address, its port, and the user's name and password for it.
inline constexpr SettingKey<std::string_view> proxyServer{"ProxyServer", ""};
inline constexpr SettingKey<std::string_view> proxyPort{"ProxyPort", ""};
inline constexpr SettingKey<std::string_view> proxyUser{"ProxyUser", ""};
inline constexpr SettingKey<std::string_view> proxyPwd{"ProxyPwd", ""};

} // namespace vantor::keys
