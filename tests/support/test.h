// Test support: one include for every test of the logic.
#pragma once

#include "core/codes.h"
#include "core/tables.h"
#include "foundation/error.h"
#include "foundation/log.h"
#include "foundation/numbers.h"
#include "foundation/settings_store.h"
#include "foundation/text.h"
#include "support/fixture.h"
#include "support/traffic.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <numeric>
#include <random>
#include <set>
#include <sstream>
#include <tuple>
#include <utility>

namespace vantor {
using namespace test; // a test reads as the room that it stands in
} // namespace vantor

namespace vantor::test {

using Texts = std::vector<std::string>;

/// What a function makes of each input, each with a bar behind it: a table of cases in two lists.
template <class Input, class Function>
std::string each(Function&& function, std::initializer_list<Input> inputs) {
    std::ostringstream results;
    for (const Input& input : inputs) {
        results << function(input) << '|';
    }
    return results.str();
}

/// The number of the error raised by `statement`; 0 when it raises none.
template <class Statement>
int errorOf(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return 0;
    } catch (...) {
        return currentError().number();
    }
}

/// Number and words of the error raised by `statement`, as in "13 Type mismatch"; "none" when it raises none.
template <class Statement>
std::string faultOf(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return "none";
    } catch (const Error& error) {
        return std::to_string(error.number()) + " " + error.description();
    }
}

// Files of the system that fail in a known way. Tests for Windows run under Wine, which shows the system as drive Z:.
#ifdef _WIN32
inline const std::string systemRoot = "Z:";
inline constexpr int unreadableError = 52; ///< Wine has its own word for the fault
#else
inline const std::string systemRoot;
inline constexpr int unreadableError = 57;
#endif
/// Writes end with a full disk, sooner or later.
inline const std::string fullDevice = systemRoot + "\\dev\\full";
/// Opens well and can't be read at its beginning.
inline const std::string unreadable = systemRoot + "\\proc\\self\\mem";
/// Read-only, and no one can change that: not even an administrator.
inline const std::string unwritable = systemRoot + "\\proc\\self\\environ";

} // namespace vantor::test
