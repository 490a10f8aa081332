// Test support: the number of the error that a statement raises, and its words.
#pragma once

#include "foundation/error.h"

#include <string>
#include <utility>

namespace vantor::test {

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

} // namespace vantor::test
