// Platform: the Qt side of the program.
// The Host of the running program: message boxes, the pointer, event pumps, the locale and the desktop.
#include "platform/qt_host.h"

#include "foundation/native_path.h"
#include "foundation/process.h"
#include "platform/code_page.h"
#include "platform/text_window.h"

#include <QApplication>
#include <QCursor>
#include <QDate>
#include <QDesktopServices>
#include <QLocale>
#include <QProcess>
#include <QRegularExpression>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <utility>

#ifdef Q_OS_WIN
#include <QDir>
#include <qt_windows.h>
// Needs the system's header before it.
#include <shellapi.h>
#else
#include <unistd.h>
#endif

namespace vantor {

namespace {

QString programTitle() {
    return QStringLiteral("Vantor");
}

Qt::CursorShape shapeOf(Pointer pointer) {
    switch (pointer) {
    case Pointer::Busy:
        return Qt::WaitCursor;
    case Pointer::SizeAll:
        return Qt::SizeAllCursor;
    case Pointer::Normal:
        break;
    }
    return Qt::ArrowCursor;
}

// Swallows keys and clicks for as long as it filters the application's events.
class InputDropper : public QObject {
  public:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::ContextMenu: // its menu would wait for keys that are swallowed
        case QEvent::Drop:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
            return true;
        default:
            return false;
        }
    }
};

// Takes the place of a viewer that does not start.
void showOwnWindow(QWidget* owner, const std::string& path) {
    auto* const window = new TextWindow(owner, path);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
}

void startDetached(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.startDetached(); // a program that is missing is no error
}

} // namespace

QString boxText(std::string_view text) {
    QString shown = toQString(text);
    shown.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    shown.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return shown;
}

QString longTime(const QLocale& locale, QTime time) {
    static const QRegularExpression zone(QStringLiteral(R"([,\s]*[(\[]?t+[)\]]?)"));
    QString format = locale.timeFormat(QLocale::LongFormat);
    format.remove(zone);
    return locale.toString(time, format.trimmed());
}

QUrl addressUrl(std::string_view address) {
    // One lone percent sign, and the URL would take all of them for plain ones.
    static const QRegularExpression lonePercent(QStringLiteral("%(?![0-9A-Fa-f]{2})"));
    QString text = toQString(address);
    text.replace(lonePercent, QStringLiteral("%25"));
    return QUrl::fromEncoded(text.toUtf8(), QUrl::TolerantMode);
}

QtHost::~QtHost() {
    if (QCoreApplication::instance() != nullptr) {
        showPointer(Pointer::Normal);
    }
}

void QtHost::message(std::string_view text) {
    QMessageBox box(QMessageBox::NoIcon, programTitle(), boxText(text), QMessageBox::Ok, owner());
    box.setObjectName(QStringLiteral("messageBox"));
    show(box);
}

bool QtHost::askYesNo(std::string_view text) {
    QMessageBox box(QMessageBox::NoIcon, programTitle(), boxText(text), QMessageBox::Yes | QMessageBox::No, owner());
    box.setObjectName(QStringLiteral("questionBox"));
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return show(box) == QMessageBox::Yes;
}

QWidget* QtHost::owner() const {
    if (QWidget* modal = QApplication::activeModalWidget()) {
        return modal;
    }
    if (QWidget* active = QApplication::activeWindow()) {
        return active;
    }
    return m_mainWindow;
}

int QtHost::show(QMessageBox& box) {
    box.setTextFormat(Qt::PlainText);
    showPointer(Pointer::Normal);
    const int answer = box.exec();
    showPointer(m_pointer);
    return answer;
}

void QtHost::setPointer(Pointer pointer) {
    m_pointer = pointer;
    showPointer(pointer);
}

void QtHost::showPointer(Pointer pointer) {
    if (pointer == Pointer::Normal) {
        if (std::exchange(m_overridden, false)) {
            QGuiApplication::restoreOverrideCursor();
        }
    } else if (m_overridden) {
        QGuiApplication::changeOverrideCursor(shapeOf(pointer));
    } else {
        QGuiApplication::setOverrideCursor(shapeOf(pointer));
        m_overridden = true;
    }
}

void QtHost::pumpEvents(Pump what) {
    ++m_pumps;
    InputDropper dropper;
    if (what == Pump::DropInput) {
        qApp->installEventFilter(&dropper);
    }
    QCoreApplication::processEvents(what == Pump::PaintAndTimers ? QEventLoop::ExcludeUserInputEvents
                                                                 : QEventLoop::AllEvents);
    --m_pumps;
}

bool QtHost::inputPending() {
#ifdef Q_OS_WIN
    return GetInputState() != 0;
#else
    return true;
#endif
}

void QtHost::sleepFor(int milliseconds) {
    QThread::msleep(static_cast<unsigned long>(std::max(milliseconds, 0)));
}

std::shared_ptr<void> QtHost::every(int milliseconds, std::function<void()> tick) {
    auto timer = std::make_shared<QTimer>();
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(), std::move(tick));
    timer->start(milliseconds);
    return timer;
}

std::string QtHost::shortDate(const Date& date) {
    return fromQString(QLocale::system().toString(QDate(date.year, date.month, date.day), QLocale::ShortFormat));
}

std::string QtHost::generalDateTime(DateTime value) {
    const int seconds = secondsOfDay(value);
    // The last half second of a day shows as midnight, which belongs to the next one.
    const DateTime day = seconds == 0 ? std::nearbyint(value) : std::trunc(value);
    const bool hasDate = day != 0.0;
    std::string result = hasDate ? shortDate(dateOf(day)) : std::string();
    // The general form leaves out a date of day 0 and a time of midnight, but never both.
    if (seconds != 0 || !hasDate) {
        const std::string time = fromQString(longTime(QLocale::system(), QTime(0, 0).addSecs(seconds)));
        result += result.empty() ? time : " " + time;
    }
    return result;
}

std::string QtHost::weekdayName(int day) {
    const int monday1 = day == 1 ? 7 : day - 1;
    return fromQString(QLocale::system().standaloneDayName(monday1, QLocale::LongFormat));
}

std::string QtHost::booleanWord(bool value) {
    return value ? "True" : "False";
}

std::optional<SystemVersion> QtHost::systemVersion() {
#ifdef Q_OS_WIN
    OSVERSIONINFOA info{};
    info.dwOSVersionInfoSize = sizeof info;
    if (GetVersionExA(&info) == 0) { // the true version, since the manifest names Windows 10
        return std::nullopt;
    }
    return SystemVersion{static_cast<int>(info.dwPlatformId), static_cast<int>(info.dwMajorVersion),
                         static_cast<int>(info.dwMinorVersion)};
#else
    return std::nullopt;
#endif
}

void QtHost::viewTextFile(std::string_view path) {
#ifdef Q_OS_WIN
    if (!QProcess::startDetached(QStringLiteral("notepad"), {QDir::toNativeSeparators(toQtPath(path))})) {
        showOwnWindow(owner(), std::string(path));
    }
#else
    openFile(path, [owner = QPointer<QWidget>(owner()), file = std::string(path)] { showOwnWindow(owner, file); });
#endif
}

void QtHost::openFile(std::string_view path, std::function<void()> failed) {
#ifdef Q_OS_WIN
    const std::wstring file = QDir::toNativeSeparators(toQtPath(path)).toStdWString();
    constexpr INT_PTR lastFailure = 32;
    if (reinterpret_cast<INT_PTR>(ShellExecuteW(nullptr, L"open", file.c_str(), nullptr, nullptr, SW_SHOWNORMAL)) <=
        lastFailure) {
        failed();
    }
#else
    // Not detached: that no program opens such files shows in the exit code alone. The process object is let go when
    // the opener has ended, and not at the program's end, which would take the opener along.
    auto* const opener = new QProcess;
    const auto fail = [opener, failed = std::move(failed)] {
        failed();
        opener->deleteLater();
    };
    QObject::connect(opener, &QProcess::errorOccurred, opener, [fail](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            fail();
        }
    });
    QObject::connect(opener, &QProcess::finished, opener,
                     [opener, fail](int code) { code == 0 ? opener->deleteLater() : fail(); });
    opener->setProcessChannelMode(QProcess::ForwardedChannels);
    opener->setChildProcessModifier([] { ::setsid(); });
    opener->start(QStringLiteral("xdg-open"), {toQtPath(path)});
#endif
}

void QtHost::openAddress(std::string_view address) {
#ifdef Q_OS_WIN
    const std::string text(address);
    ShellExecuteA(nullptr, "open", text.c_str(), nullptr, "c:\\", SW_SHOWNORMAL);
#else
    QDesktopServices::openUrl(addressUrl(address));
#endif
}

void QtHost::startProgram(std::string_view program, std::string_view arguments) {
#ifdef Q_OS_WIN
    QProcess process;
    process.setProgram(toQtPath(program));
    process.setNativeArguments(toQString(arguments)); // the line as the program wants it, with its quotes
    process.startDetached();
#else
    QStringList words = QProcess::splitCommand(toQString(arguments));
    QString file = toQtPath(program);
    if (isWindowsProgram(nativePath(program))) {
        words.prepend(file);
        file = QStringLiteral("wine");
    }
    startDetached(file, words);
#endif
}

} // namespace vantor
