// Platform: the Qt side of the program.
// Asking the user for a file or a folder. All paths are the program's own, with backslashes.
#include "platform/file_dialogs.h"

#include "foundation/native_path.h"
#include "foundation/path_text.h"
#include "foundation/trap.h"
#include "platform/code_page.h"

#include <QApplication>
#include <QFileDialog>

namespace vantor {

namespace {

constexpr std::string_view folderHint = "Select path then click OPEN";

void dropTrailingBackslash(std::string& path) {
    if (path.size() > 1 && path.back() == '\\') {
        path.pop_back();
    }
}

// A pattern as the desktop's dialog takes it. Some tell "*.TXT" from "*.txt"; Windows doesn't, and knows no brackets.
QString nameFilter(std::string_view pattern) {
    const QString shown = toQString(pattern);
#ifdef Q_OS_WIN
    return shown;
#else
    QString blind;
    for (const QChar letter : shown) {
        blind += letter.isLetter() ? u'[' + letter.toUpper() + letter.toLower() + u']' : QString(letter);
    }
    return shown + QStringLiteral(" (") + blind + u')';
#endif
}

// The system's own dialog needs a screen.
void withoutScreen(QFileDialog& dialog) {
    const QString platform = QGuiApplication::platformName();
    if (platform == QStringLiteral("offscreen") || platform == QStringLiteral("minimal")) {
        dialog.setOption(QFileDialog::DontUseNativeDialog);
    }
}

// The suffix of the first of a filter's patterns, as png of "PNG picture (*.png)".
QString suffixOf(const QString& filter) {
    const auto from = filter.indexOf(QStringLiteral("*.")) + 2;
    auto to = from;
    while (to < filter.size() && filter[to].isLetterOrNumber()) {
        ++to;
    }
    return from < 2 ? QString() : filter.mid(from, to - from);
}

} // namespace

void cSharedFileSel::SetCaption(std::string_view title) {
    m_caption = title;
}

void cSharedFileSel::DefaultPath(std::string_view folder) {
    m_defaultPath = folder;
    if (m_defaultPath.size() > 2 && m_defaultPath.ends_with("\\\\")) {
        m_defaultPath.pop_back();
    }
}

void cSharedFileSel::Filepattern(std::string_view pattern) {
    m_pattern = pattern;
}

void cSharedFileSel::GetPath() noexcept {
    const StandardTrap trap{"sub getpath", "cSHAREDFileSel"};
    trap(&cSharedFileSel::DisplayDialog, this, Kind::Folder);
}

void cSharedFileSel::GetFilename() noexcept {
    const StandardTrap trap{"sub getfilename", "cSHAREDFileSel"};
    trap(&cSharedFileSel::DisplayDialog, this, Kind::File);
}

void cSharedFileSel::GetExistingFilename() noexcept {
    const StandardTrap trap{"sub getfilename", "cSHAREDFileSel"};
    trap(&cSharedFileSel::DisplayDialog, this, Kind::ExistingFile);
}

void cSharedFileSel::DisplayDialog(Kind kind) {
    m_cancelled = true; // until the dialog says otherwise, so that a fault counts as a cancel
    m_filename.clear();
    m_path.clear();

    QFileDialog dialog(QApplication::activeWindow(), toQString(m_caption));
    dialog.setObjectName(QStringLiteral("fileDialog"));
    withoutScreen(dialog);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    if (kind == Kind::Folder) {
        dialog.setFileMode(QFileDialog::Directory);
        dialog.setOption(QFileDialog::ShowDirsOnly, false);
        dialog.setLabelText(QFileDialog::FileName, toQString(folderHint));
        dialog.setLabelText(QFileDialog::Accept, QStringLiteral("&Open"));
    } else {
        dialog.setFileMode(kind == Kind::ExistingFile ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    }
    if (!m_pattern.empty()) {
        dialog.setOption(QFileDialog::HideNameFilterDetails);
        dialog.setNameFilter(nameFilter(m_pattern));
    }
    dialog.setDirectory(toQtPath(m_defaultPath.empty() ? programFolder() : m_defaultPath));

    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return;
    }
    const std::string reply = fromQtPath(dialog.selectedFiles().constFirst());
    if (kind == Kind::Folder) {
        m_path = reply;
    } else {
        m_filename = fileexpath(reply);
        m_path = pathonly(reply);
    }
    dropTrailingBackslash(m_path);
    m_cancelled = false;
}

std::string askforFilename(std::string_view title, std::string_view startFile, std::string_view pattern) noexcept {
    std::string result;
    cSharedFileSel chooser;
    if (!pattern.empty()) {
        chooser.Filepattern(pattern);
    }
    chooser.DefaultPath(pathonly(startFile));
    chooser.SetCaption(title);
    chooser.GetFilename();
    if (!chooser.Cancelled()) {
        result = chooser.Path() + "\\" + chooser.Filename();
    }
    return result;
}

std::string askforSaveFilename(std::string_view title, std::string_view startFile, std::string_view patterns) noexcept {
    const StandardTrap trap{"function askforsavefilename", "mSHAREDFileSelect"};
    std::string result;
    trap([&] {
        QFileDialog dialog(QApplication::activeWindow(), toQString(title));
        dialog.setObjectName(QStringLiteral("fileDialog"));
        withoutScreen(dialog);
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setNameFilter(toQString(patterns));
        dialog.setDefaultSuffix(suffixOf(dialog.selectedNameFilter()));
        QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                         [&](const QString& filter) { dialog.setDefaultSuffix(suffixOf(filter)); });
        dialog.setDirectory(toQtPath(pathonly(startFile)));
        dialog.selectFile(toQString(fileexpath(startFile)));
        if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
            result = fromQtPath(dialog.selectedFiles().constFirst());
        }
    });
    return result;
}

} // namespace vantor
