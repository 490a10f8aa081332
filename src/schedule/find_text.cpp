#include "schedule/find_text.h"

#include "foundation/numbers.h"

namespace vantor {

FindResult findtext(const ListRows& rows, std::string_view text, std::int16_t& lastfound) {
    const int count = static_cast<int>(rows.size());
    if (lastfound + 1 == count - 1) {
        return FindResult::AtEnd;
    }
    for (int row = lastfound + 1; row < count; ++row) {
        const std::string& rowText = rows[static_cast<std::size_t>(row)].text;
        if (!rowText.empty() && containsNoCase(rowText, text)) {
            lastfound = toInt16(row);
            return FindResult::Found;
        }
    }
    return FindResult::NoMore;
}

} // namespace vantor
