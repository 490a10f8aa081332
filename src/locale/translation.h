// Locale: the translation of what the user reads.
// The calls that every translatable text and form goes through. No language can be chosen yet: all of them give back
// what they got.
#pragma once

#include <string>
#include <string_view>

class QWidget;

namespace vantor {

/// The translation of a text, or the text itself: there is no table of phrases yet.
[[nodiscard]] std::string gettranslation(std::string_view text);

/// A line of the table of phrases reads {original}||{translation}; these give its trimmed halves. A line without the
/// break is an original without a translation.
[[nodiscard]] std::string_view beforebreak(std::string_view line) noexcept;
[[nodiscard]] std::string_view afterbreak(std::string_view line) noexcept;

/// Translates the texts of a form's controls in place, then gives them the language's font. Without a language every
/// text stays as it stands, so the form is not even looked at and Qt is not needed here.
void translateform(QWidget& form) noexcept;
/// Gives the form's controls the font of the language. There is none: nothing changes.
void ChangeFont(QWidget& form) noexcept;

} // namespace vantor
