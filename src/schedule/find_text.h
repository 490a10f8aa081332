// Schedule: looking at schedules and changing them one at a time.
// The search for a text in the rows of a combo box.
#pragma once

#include "foundation/list_row.h"

#include <cstdint>
#include <string_view>

namespace vantor {

/// What a search came to.
enum class FindResult {
    AtEnd,  ///< the last hit was the last real row: nothing happens
    Found,  ///< `lastfound` is the new row
    NoMore, ///< no further row matches; `lastfound` stays
};

/// Looks for `text` in the rows behind `lastfound`, anywhere in a row and without regard to case. The last row is the
/// empty closing row; it and any other empty row are never hits. An empty text matches the next row. A hit beyond
/// 16 bits is error 6.
[[nodiscard]] FindResult findtext(const ListRows& rows, std::string_view text, std::int16_t& lastfound);

} // namespace vantor
