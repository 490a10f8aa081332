// Foundation: what the whole program stands on and that knows nothing of traffic.
// Paths as texts with backslashes, without a look at the disk.
#pragma once

#include <string>
#include <string_view>

namespace vantor {

/// `path` with a "\" added unless it is empty or ends in one.
[[nodiscard]] std::string addbackslash(std::string_view path);
/// Up to and including the last separator ("/" counts as one), or ".\" without any.
[[nodiscard]] std::string pathonly(std::string_view name);
/// Behind the last separator, or the whole name; every "/" in the result is a "\".
[[nodiscard]] std::string fileonly(std::string_view name);
/// The same as fileonly.
[[nodiscard]] std::string fileexpath(std::string_view name);
/// Before the last "." of the whole text with its folder: a dot in a folder's name counts.
[[nodiscard]] std::string filewithoutext(std::string_view name);
/// The same as filewithoutext.
[[nodiscard]] std::string fileroot(std::string_view name);
/// The text up to its first zero character, trimmed.
[[nodiscard]] std::string stripnull(std::string_view text);

} // namespace vantor
