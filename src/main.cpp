// Vantor: editor for the AI traffic of Microsoft Flight Simulator 2002 and 2004.
// The program's start: names, the folder that it stands in, the platform in use, the main window.
#include "foundation/error_report.h"
#include "foundation/host.h"
#include "foundation/log.h"
#include "foundation/native_path.h"
#include "foundation/run_state.h"
#include "platform/code_page.h"
#include "platform/qt_host.h"
#include "platform/window_places.h"
#include "shell/artwork.h"
#include "shell/fSHAREDErrorRpt.h"
#include "shell/frmMain.h"
#include "shell/program_path.h"
#include "shell/rescue_keeper.h"

#include <QApplication>
#include <QStandardPaths>

#include <filesystem>

namespace {

std::filesystem::path nativeFile(const QString& file) {
    return std::filesystem::path(file.toStdU16String());
}

/// The program's file as it was started: a link to the executable counts as the program, so that a link put into a
/// folder of traffic files works there. Windows starts a program by its own file, whatever led to it.
std::filesystem::path programFile([[maybe_unused]] const QString& started) {
#ifdef Q_OS_WIN
    return nativeFile(QCoreApplication::applicationFilePath());
#else
    const bool hasFolder = started.contains(u'/') || started.contains(u'\\');
    return vantor::startedProgram(nativeFile(hasFolder ? started : QStandardPaths::findExecutable(started)),
                                  nativeFile(QCoreApplication::applicationFilePath()));
#endif
}

} // namespace

int main(int argc, char* argv[]) {
    // There are no command-line options, neither the program's nor the toolkit's.
    int count = argc > 0 ? 1 : 0;
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(count, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Vantor"));
    QCoreApplication::setOrganizationName(QStringLiteral("Ostrevane Software"));
    QCoreApplication::setApplicationVersion(vantor::toQString(vantor::AppVersion()));
    QGuiApplication::setDesktopFileName(QStringLiteral("vantor"));
    QApplication::setWindowIcon(vantor::applicationIcon());
    vantor::setProgramFile(programFile(QCoreApplication::arguments().value(0)));

    vantor::startRun();
    vantor::QtHost host;
    vantor::useHost(&host);
    vantor::useErrorReporter(vantor::showErrorReport);
    int result = 0;
    {
        const vantor::WindowPlaces places(vantor::toQtPath(vantor::programFolder() + "\\Vantor2.window"));
        vantor::frmMain window;
        host.setMainWindow(&window);
        window.formLoad();
        window.rescue().start();
        if (!window.ended()) {
            window.show();
            result = QApplication::exec();
        }
    }
    vantor::useErrorReporter({});
    vantor::useHost(nullptr);
    return result;
}
