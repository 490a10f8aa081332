// Platform: the Qt side of the program.
// Texts of the program (bytes of the code page) and its paths, to and from Qt's.
#include "platform/code_page.h"

#include "foundation/code_page.h"
#include "foundation/native_path.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <filesystem>

namespace vantor {

QString toQString(std::string_view text) {
    const auto length = static_cast<qsizetype>(text.size());
    // Nearly every row is plain ASCII, and lists hold tens of thousands of rows.
    if (std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; })) {
        return QString::fromLatin1(text.data(), length);
    }
    const std::string utf8 = toUtf8(text);
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string fromQString(const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    return fromUtf8({utf8.constData(), static_cast<std::size_t>(utf8.size())});
}

QString toQtPath(std::string_view path) {
    const std::filesystem::path native = nativePath(path);
#ifdef Q_OS_WIN
    return QDir::fromNativeSeparators(QString::fromStdWString(native.native()));
#else
    return QFile::decodeName(native.c_str());
#endif
}

std::string fromQtPath(const QString& path) {
    const QString native = QDir::toNativeSeparators(path);
#ifdef Q_OS_WIN
    return programPath(std::filesystem::path(native.toStdWString()));
#else
    return programPath(std::filesystem::path(QFile::encodeName(native).toStdString()));
#endif
}

} // namespace vantor
