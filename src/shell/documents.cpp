#include "shell/documents.h"

#include "foundation/host.h"
#include "foundation/log.h"
#include "foundation/native_path.h"
#include "foundation/trap.h"
#include "platform/code_page.h"
#include "shipped_licences.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

namespace vantor {

namespace {

// Where Debian keeps what it says of the libraries that the program loads there, and the licences named in it.
constexpr struct {
    const char* name;
    const char* file;
} systemTexts[] = {
    {"Qt", "/usr/share/doc/libqt6core6/copyright"},         {"libcurl", "/usr/share/doc/libcurl4/copyright"},
    {"GCC", "/usr/share/doc/libstdc++6/copyright"},         {"GNU C Library", "/usr/share/doc/libc6/copyright"},
    {"LGPL-3", "/usr/share/common-licenses/LGPL-3"},        {"GPL-3", "/usr/share/common-licenses/GPL-3"},
    {"GPL-2", "/usr/share/common-licenses/GPL-2"},          {"LGPL-2.1", "/usr/share/common-licenses/LGPL-2.1"},
    {"Apache-2.0", "/usr/share/common-licenses/Apache-2.0"}};

void addFile(std::vector<Licence>& texts, const QString& name, const QString& path) {
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) {
        texts.push_back({name, QString::fromUtf8(file.readAll())});
    }
}

} // namespace

std::string manualFile() {
    const QString inSystem = QCoreApplication::applicationDirPath() + QStringLiteral("/../../share/doc/vantor/");
    for (const QString& folder : {toQtPath(programFolder() + "\\Vantor-manual\\"), inSystem}) {
        const QString file = QDir::cleanPath(folder + QStringLiteral("manual.html"));
        if (QFile::exists(file)) {
            return fromQtPath(file);
        }
    }
    return {};
}

void showLog() noexcept {
    const StandardTrap trap{"sub showlog", "frmMain"};
    trap(dumpactions); // the latest may not have reached it yet
    trap(&Host::viewTextFile, host(), programFolder() + "\\log.txt");
}

std::vector<Licence> licences() {
    std::vector<Licence> texts{{QStringLiteral("Vantor"), QString::fromUtf8(vantorLicence)},
                               {QStringLiteral("Natural Earth"), QString::fromUtf8(naturalEarthLicence)}};
    const QDir shipped(toQtPath(programFolder() + "\\Vantor-licences"));
    for (const QFileInfo& file : shipped.entryInfoList({QStringLiteral("*.txt")}, QDir::Files, QDir::Name)) {
        if (file.completeBaseName() != texts[0].name && file.completeBaseName() != texts[1].name) {
            addFile(texts, file.completeBaseName(), file.filePath());
        }
    }
    if (!shipped.exists()) {
        for (const auto& text : systemTexts) {
            addFile(texts, QLatin1String(text.name), QLatin1String(text.file));
        }
    }
    return texts;
}

} // namespace vantor
