// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// The save that both writers share: whatever fails, the old file stands and the caller is told why. What a run
// overwrites for the first time is kept as a backup, since comments and letter case don't survive a save.
#pragma once

#include "foundation/error.h"
#include "foundation/replacing_file.h"
#include "foundation/trap.h"

#include <optional>
#include <string_view>

namespace vantor {

/// Fills a file by write(put), where put(text) writes to it, and puts it in the place of the old one. Faults go to the
/// ring; the one that kept the old file in its place is given back, nothing when the new one stands.
template <class Write>
std::optional<Error> saveFile(const StandardTrap& trap, std::string_view path, const Write& write) noexcept {
    std::optional<Error> failure;
    const auto keepFailure = [&](const auto& step) {
        try {
            step();
        } catch (...) {
            failure = currentError();
            throw;
        }
    };
    trap(keepFailure, [&] {
        ReplacingFile file(path);
        write([&](std::string_view text) { keepFailure([&] { file.write(text); }); });
        file.commit(OldFile::Backup); // after a failed write it leaves the old file as it is
    });
    return failure;
}

} // namespace vantor
