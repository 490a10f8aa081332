// Foundation: what the whole program stands on and that knows nothing of traffic.
// The way to the error report dialog.
#pragma once

#include <functional>
#include <string_view>

namespace vantor {

/// Shows a failure to the user: the text, and a help topic.
using ErrorReporter = std::function<void(std::string_view text, std::string_view topic)>;

/// Puts a dialog in charge of failures; without one they are shown in a plain message box.
void useErrorReporter(ErrorReporter reporter);
/// Shows a failure to the user. Whatever happens in the dialog, control comes back.
void showerr(std::string_view text, std::string_view topic) noexcept;

} // namespace vantor
