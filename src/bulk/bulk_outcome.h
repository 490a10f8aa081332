// Bulk: changes applied to many legs or schedules at once.
// What a change tells the panel that asked for it.
#pragma once

#include <string>

namespace vantor {

/// What a bulk change tells the panel that asked for it.
struct BulkOutcome {
    std::string message;      ///< for a message box
    bool setsUnsaved = false; ///< the unsaved-changes flag is set, whether or not anything matched
    bool clearsLists = false; ///< both lists are emptied, behind the message

    friend bool operator==(const BulkOutcome&, const BulkOutcome&) = default;
};

} // namespace vantor
