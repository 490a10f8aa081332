// Foundation: what the whole program stands on and that knows nothing of traffic.
// The texts of an error report: the mail request and the preview.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vantor {

/// The most characters of a mail's body; mail programs refuse longer requests.
inline constexpr std::size_t mailBodyLimit = 400;

/// What a report tells. Texts are bytes of the code page; line ends of any kind may stand in them.
struct ErrorReport {
    std::string error;
    std::optional<std::string> comments; ///< the user's own words, none when they were never touched
    std::string log;                     ///< the whole log file
};

/// `text` as it stands in a mail request: the marks %, ?, & and # and the line ends encoded, nothing else. A line end
/// is %0D%0A, and two lone ones of a kind in a row count once.
[[nodiscard]] std::string encodeForMail(std::string_view text);
/// The body of the mail, encoded and cut to mailBodyLimit characters; the cut may go through an escape.
[[nodiscard]] std::string mailBody(const ErrorReport& report);
/// The whole request, with "mailto:", to the mailbox of the build.
[[nodiscard]] std::string mailRequest(const ErrorReport& report);
/// The report as a text for the user, with a mark where the mail will be cut.
[[nodiscard]] std::string reportPreview(const ErrorReport& report);

} // namespace vantor
