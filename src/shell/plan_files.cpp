#include "shell/plan_files.h"

#include "foundation/disk.h"
#include "foundation/native_path.h"
#include "foundation/path_text.h"
#include "platform/code_page.h"

#include <QApplication>
#include <QDropEvent>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QSettings>
#include <QUrl>

namespace vantor {

namespace {

constexpr int mostFiles = 8;

QString listKey() {
    return QStringLiteral("flightplans");
}

QSettings listFile() {
    return {toQtPath(programFolder() + "\\Vantor2.recent"), QSettings::IniFormat};
}

// The one text file that is dragged; empty for anything else.
std::string draggedFile(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    if (urls.size() != 1 || !urls.constFirst().isLocalFile()) {
        return {};
    }
    const QFileInfo file(urls.constFirst().toLocalFile());
    const bool isText = file.isFile() && file.suffix().compare(QStringLiteral("txt"), Qt::CaseInsensitive) == 0;
    return isText ? fromQtPath(file.absoluteFilePath()) : std::string();
}

} // namespace

PlanFiles::PlanFiles(QWidget& window, QWidget& button, std::function<void(const std::string&)> load)
    : m_load(std::move(load)) {
    window.setAcceptDrops(true);
    window.installEventFilter(this);
    for (QLineEdit* const box : window.findChildren<QLineEdit*>()) {
        box->installEventFilter(this); // a dropped file would be taken for a text there
    }
    button.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&button, &QWidget::customContextMenuRequested, this,
            [this, &button](const QPoint& place) { offerLatest(button, place); });
}

void PlanFiles::remember(const std::string& file) {
    QSettings kept = listFile();
    QStringList files = kept.value(listKey()).toStringList();
    const QString added = toQString(file);
    files.removeIf([&](const QString& one) { return one.compare(added, Qt::CaseInsensitive) == 0; });
    files.prepend(added);
    kept.setValue(listKey(), QStringList(files.mid(0, mostFiles)));
}

std::vector<std::string> PlanFiles::latest() {
    std::vector<std::string> files;
    for (const QString& file : listFile().value(listKey()).toStringList().mid(0, mostFiles)) {
        files.push_back(fromQString(file));
    }
    return files;
}

bool PlanFiles::eventFilter(QObject* /*watched*/, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) {
        return false;
    }
    auto& drag = *static_cast<QDropEvent*>(event);
    const std::string file = draggedFile(*drag.mimeData());
    if (file.empty() || QApplication::activeModalWidget() != nullptr) {
        return false;
    }
    drag.setDropAction(Qt::CopyAction); // the file stays where it is
    drag.accept();
    if (type == QEvent::Drop) {
        // Behind the drop: whoever dragged the file waits for its end.
        QMetaObject::invokeMethod(
            this, [this, file] { m_load(file); }, Qt::QueuedConnection);
    }
    return true;
}

void PlanFiles::offerLatest(QWidget& button, const QPoint& place) {
    QMenu menu(&button);
    menu.setObjectName(QStringLiteral("latestPlans"));
    menu.setToolTipsVisible(true);
    int number = 0;
    for (const std::string& file : latest()) {
        const QString name = toQString(fileexpath(file)).replace(u'&', QStringLiteral("&&"));
        const QString folder = toQString(pathonly(file)).replace(u'&', QStringLiteral("&&"));
        QAction* const entry = menu.addAction(QStringLiteral("&%1  %2   %3").arg(++number).arg(name, folder), &button,
                                              [this, file] { m_load(file); });
        entry->setToolTip(toQString(file).toHtmlEscaped());
        entry->setEnabled(FileExists(file));
    }
    if (number == 0) {
        menu.addAction(QStringLiteral("No flight plans were loaded yet"))->setEnabled(false);
    }
    menu.exec(button.mapToGlobal(place));
}

} // namespace vantor
