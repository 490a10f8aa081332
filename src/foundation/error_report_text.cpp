#include "foundation/error_report_text.h"

#include "foundation/log.h"
#include "foundation/text.h"

namespace vantor {

namespace {

constexpr std::string_view title = "Vantor";
constexpr std::string_view mailbox = VANTOR_BUG_MAILBOX;
constexpr std::string_view lineBreak = "\r\n";
constexpr std::string_view twoLineBreaks = "\r\n\r\n";
constexpr std::string_view encodedLineBreak = "%0D%0A";

std::string twice(std::string_view text) {
    return std::string(text).append(text);
}

// The first words of mail and preview. They are not encoded.
std::string heading() {
    return "Error Report: " + std::string(title) + " " + AppVersion() + ", " + fosname();
}

} // namespace

std::string encodeForMail(std::string_view text) {
    std::string result = replaceAll(text, "%", "%25"); // first, as all others put a % in
    result = replaceAll(result, "?", "%3F");
    result = replaceAll(result, "&", "%26");
    result = replaceAll(result, "#", "%23");
    result = replaceAll(result, "\n", "\r");
    result = replaceAll(result, "\r\r", "\r");
    return replaceAll(result, "\r", encodedLineBreak);
}

std::string mailBody(const ErrorReport& report) {
    std::string details;
    if (report.comments) {
        details.append("User: ").append(*report.comments).append(lineBreak);
    }
    details += report.error;
    std::string body = heading() + " (Please click Attach and add the log.txt file)" + twice(encodedLineBreak) +
                       encodeForMail(details) + twice(encodedLineBreak) + encodeForMail(report.log);
    if (body.size() > mailBodyLimit) {
        body.resize(mailBodyLimit);
    }
    return body;
}

std::string mailRequest(const ErrorReport& report) {
    const std::string subject = "Bug Report (" + std::string(title) + " - " + AppVersion() + ")";
    // Quirk: the attachment is never filled in, and is part of the request all the same.
    return "mailto:" + std::string(mailbox) + "?subject=" + replaceAll(subject, " ", "%20") +
           "&body=" + mailBody(report) + "&attachment=\"\"";
}

std::string reportPreview(const ErrorReport& report) {
    std::string text = heading().append(twoLineBreaks).append(report.error);
    if (report.comments) {
        text.append(twoLineBreaks).append(*report.comments);
    }
    text.append(twoLineBreaks).append(report.log);
    // Quirk: counted on the plain text, unlike the mail's own cut.
    if (text.size() > mailBodyLimit) {
        text.insert(mailBodyLimit, " *Email will truncate here* ");
    }
    return "If the 'submit report' button doesn't work on your system, open an email to '" + std::string(mailbox) +
           "' and paste the following text into it.  Your reports are appreciated." + std::string(twoLineBreaks) + text;
}

} // namespace vantor
