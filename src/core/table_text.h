// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// What the files of aircraft and airports have in common: their comments.
#pragma once

#include "foundation/text.h"

#include <string_view>

namespace vantor {

/// Whether a line is a comment. The marks are recognised in the first column only, wherever in it they stand.
[[nodiscard]] inline bool isComment(std::string_view firstColumn) noexcept {
    return contains(firstColumn, "//") || contains(firstColumn, ";");
}

} // namespace vantor
