// Test support: the number of the error that a statement raises.
#pragma once

#include "foundation/error.h"

#include <utility>

namespace vantor::test {

/// The number of the error raised by `statement`; 0 when it raises none.
template <class Statement>
int errorOf(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return 0;
    } catch (const Error& error) {
        return error.number();
    } catch (...) {
        return currentError().number();
    }
}

} // namespace vantor::test
