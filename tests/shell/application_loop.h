// Tests of the main window.
// The application's own event loop round what a user does, for commands that end the program.
#pragma once

#include <QCoreApplication>
#include <QTimer>

#include <functional>

namespace vantor::test {

/// What exitCodeOf gives when the program went on.
inline constexpr int stillRuns = 99;

/// Runs the application's event loop, lets the user act in it, and gives the program's exit code.
inline int exitCodeOf(const std::function<void()>& user) {
    QTimer act;
    act.setSingleShot(true);
    QTimer after;
    after.setSingleShot(true);
    QObject::connect(&after, &QTimer::timeout, qApp, [] { QCoreApplication::exit(stillRuns); });
    QObject::connect(&act, &QTimer::timeout, qApp, [&] {
        user();
        after.start(0); // behind all that the user's act has posted
    });
    act.start(0);
    return QCoreApplication::exec();
}

} // namespace vantor::test
