#include "foundation/error.h"
#include "foundation/numbers.h"
#include "foundation/settings_store.h"
#include "foundation/text.h"

#include <limits>
#include <utility>

namespace vantor {

namespace {

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>; // clang 14 deduces no aggregates

} // namespace

std::string SettingValue::text() const {
    return std::visit(Overloaded{[](const std::string& value) { return value; },
                                 [](bool value) { return std::string(value ? "True" : "False"); },
                                 [](std::int32_t value) { return std::to_string(value); },
                                 [](float value) { return shortestSingle(value); }},
                      m_value);
}

double SettingValue::number() const {
    return std::visit(Overloaded{[](const std::string& value) { return parseNumber(value); },
                                 [](bool value) { return value ? -1.0 : 0.0; },
                                 [](std::int32_t value) { return static_cast<double>(value); },
                                 [](float value) { return double{value}; }},
                      m_value);
}

std::int16_t SettingValue::int16() const {
    return toInt16(number());
}

float SettingValue::single() const {
    if (const auto* value = std::get_if<std::string>(&m_value)) {
        return parseSingle(*value);
    }
    return static_cast<float>(number());
}

bool SettingValue::flag() const {
    if (const auto* value = std::get_if<std::string>(&m_value)) {
        const std::string_view word = trim(*value);
        if (equalNoCase(word, "True")) {
            return true;
        }
        if (equalNoCase(word, "False")) {
            return false;
        }
    }
    return number() != 0;
}

std::string SettingValue::written() const {
    return std::visit(Overloaded{[](const std::string& value) { return value; },
                                 [](bool value) { return std::string(value ? "True" : "False"); },
                                 [](std::int32_t value) { return printNumber(value); },
                                 [](float value) { return (value < 0 ? "" : " ") + shortestSingle(value) + " "; }},
                      m_value);
}

} // namespace vantor
