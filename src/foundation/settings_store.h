// Foundation: what the whole program stands on and that knows nothing of traffic.
// The settings store: sorted keys with values of any simple type, in memory and in one text file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

namespace vantor {

/// A value of a setting: text, true/false, whole number or 32-bit float, convertible to what a caller wants.
class SettingValue {
  public:
    SettingValue() : m_value(std::string()) {}
    SettingValue(std::string value) : m_value(std::move(value)) {}
    SettingValue(std::string_view value) : m_value(std::string(value)) {}
    SettingValue(const char* value) : m_value(std::string(value)) {}
    SettingValue(bool value) : m_value(value) {}
    SettingValue(std::int32_t value) : m_value(value) {}
    SettingValue(std::int16_t value) : m_value(std::int32_t{value}) {}
    SettingValue(float value) : m_value(value) {}

    /// The value as text, without the blanks of number printing: "2", "0.25", "True".
    [[nodiscard]] std::string text() const;
    /// The value as a number; true is -1. Error 13 for a text that is no number.
    [[nodiscard]] double number() const;
    /// The number in a narrower type, whole numbers with halves to even. Error 13 as number, 6 beyond the type.
    [[nodiscard]] std::int16_t int16() const;
    [[nodiscard]] float single() const;
    /// The value as a flag: a number is true unless 0. Error 13 for any other text.
    [[nodiscard]] bool flag() const;
    /// The value as it is written into the file: numbers with a blank ahead (or a minus) and one behind.
    [[nodiscard]] std::string written() const;

    friend bool operator==(const SettingValue&, const SettingValue&) = default;

  private:
    std::variant<std::string, bool, std::int32_t, float> m_value;
};

/// One entry of the store.
class cSHAREDSetting {
  public:
    std::string KeyName; ///< in capitals, without commas
    SettingValue KeyValue;
};

/// The store, sorted ascending by KeyName without duplicates. Nothing here calls its index, deletions, sSet and sGet.
class cSHAREDSettings {
  public:
    [[nodiscard]] std::int32_t SettingsCount() const noexcept;
    /// The name of entry 1 upward; empty (and a fault in the ring) outside.
    [[nodiscard]] std::string SettingNameByIndex(std::int32_t index) const noexcept;
    /// Adds or updates an entry; the key goes into capitals and loses its commas.
    void sSet(std::string_view key, const SettingValue& value) noexcept;
    void StoreSetting(std::string_view key, const SettingValue& value) noexcept;
    /// As RetrieveSetting, but a value equal to 0 also gives the default. Nothing calls it yet.
    [[nodiscard]] SettingValue RetrieveWithDefault(std::string_view key, const SettingValue& fallback) const noexcept;
    void DeleteAllSettings() noexcept;
    /// The value of a key in any case, a word for true or false as the flag; the default as it is for a missing key.
    [[nodiscard]] SettingValue sGet(std::string_view key, const SettingValue& fallback) const noexcept;
    [[nodiscard]] SettingValue RetrieveSetting(std::string_view key, const SettingValue& fallback) const noexcept;
    /// Writes the file, whole or not at all. The user is told of failures, but for a read-only file (a line in the
    /// log); a full disk is tried again until there is room.
    void SaveSettings(std::string_view file) noexcept;
    /// Replaces the store from the file; a missing file empties it. The user is told of failures.
    void LoadSettings(std::string_view file) noexcept;
    /// Removes the entry with this key, as it stands or else in capitals; a missing one is no fault.
    void DeleteSettingByName(std::string_view key) noexcept;
    /// Removes entry 1 upward; outside is a fault in the ring.
    void DeleteSetting(std::int32_t index) noexcept;

  private:
    struct Found {
        std::int32_t index = -1; ///< 1 upward, -1 for none
        std::int32_t position = 0;
    };

    [[nodiscard]] Found findsetting(std::string_view key) const;
    void addsetting(std::string_view key, const SettingValue& value);
    void sortsettings() noexcept;

    std::vector<cSHAREDSetting> m_settings;
};

/// The one global store: created by the first LoadSettings.
void LoadSettings(std::string_view file) noexcept;
/// Does nothing while no store exists.
void savesettings(std::string_view file) noexcept;
/// A key of the settings file with the default of its value. Call it `sget(key)`, or by its name with another default.
template <class Value>
struct SettingKey {
    std::string_view name;
    Value fallback{};
    constexpr operator std::string_view() const noexcept { return name; }
};

/// The value of a key, or the default. On a store that was never created: a fault in the ring, and the default.
[[nodiscard]] SettingValue sget(std::string_view key, const SettingValue& fallback) noexcept;
template <class Value>
[[nodiscard]] SettingValue sget(const SettingKey<Value>& key) noexcept {
    return sget(key.name, key.fallback);
}
/// The value of a key in the type of its default, or the default. Raises what the conversion raises.
template <class Value>
[[nodiscard]] Value setting(const SettingKey<Value>& key) {
    const SettingValue value = sget(key);
    if constexpr (std::is_same_v<Value, bool>) {
        return value.flag();
    } else if constexpr (std::is_same_v<Value, std::int16_t>) {
        return value.int16();
    } else {
        return value.single();
    }
}
/// Stores a value in memory; the file is written by savesettings. On a store that was never created: a fault in the
/// ring.
void sset(std::string_view key, const SettingValue& value) noexcept;
/// The store behind these four; none until the first LoadSettings.
[[nodiscard]] std::optional<cSHAREDSettings>& globalSettings() noexcept;

} // namespace vantor
