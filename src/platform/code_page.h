// Platform: the Qt side of the program.
// Texts of the program (bytes of the code page) and its paths, to and from Qt's.
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace vantor {

/// A text of the code page as Qt takes it.
[[nodiscard]] QString toQString(std::string_view text);
/// A text of Qt in bytes of the code page; '?' stands for what the code page lacks.
[[nodiscard]] std::string fromQString(const QString& text);

/// A path of the program (backslashes) as Qt takes it: the native path with slashes.
[[nodiscard]] QString toQtPath(std::string_view path);
/// A path from Qt as a path of the program.
[[nodiscard]] std::string fromQtPath(const QString& path);

} // namespace vantor
