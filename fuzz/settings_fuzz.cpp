// The settings file: read, converted, written and read again.
#include "foundation/error_report.h"
#include "foundation/settings_store.h"
#include "foundation/text.h"
#include "fuzz.h"

namespace vantor::fuzz {

namespace {

std::string saved(cSHAREDSettings& store) {
    store.SaveSettings(folder().path("saved.ini"));
    return folder().get("saved.ini");
}

std::string reloaded(cSHAREDSettings& store, const std::string& bytes) {
    folder().put("Vantor2.ini", bytes);
    store.LoadSettings(folder().path("Vantor2.ini"));
    return saved(store);
}

} // namespace

void check(std::string_view input) {
    useErrorReporter([](std::string_view, std::string_view) { require(false, "no text is a fault"); });
    cSHAREDSettings store;
    const std::string first = reloaded(store, std::string(input));
    std::string previous;
    for (std::int32_t i = 1; i <= store.SettingsCount(); ++i) {
        const std::string name = store.SettingNameByIndex(i);
        require(i == 1 || previous < name, "names are sorted, each once");
        previous = name;
        const SettingValue value = store.RetrieveSetting(name, "none");
        for (const auto convert : {+[](const SettingValue& v) { static_cast<void>(v.int16()); },
                                   +[](const SettingValue& v) { static_cast<void>(v.single()); },
                                   +[](const SettingValue& v) { static_cast<void>(v.flag()); }}) {
            errorOf({ErrorCode::Overflow, ErrorCode::TypeMismatch}, [&] { convert(value); });
        }
    }
    // Keys of one name in other letters come to stand side by side with the first reload, and fall together with the
    // second.
    const std::string third = reloaded(store, reloaded(store, first));
    require(reloaded(store, third) == third, "saved settings stay as they are");
}

} // namespace vantor::fuzz
