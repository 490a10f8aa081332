// Re-entry: a user whose keys, clicks and closes wait in the window system's queue.
// Each event pump decides by itself what it lets through; keys and clicks of Qt's own test support would not wait.
#pragma once

#include "support/form_driver.h"

#include <qpa/qwindowsysteminterface.h>

namespace vantor::test {

// What puts a click on a control into the queue.
inline std::function<void()> clickOn(const QWidget& target) {
    QWindow* const window = target.window()->windowHandle();
    const QPoint centre = target.rect().center();
    return [window, local = target.mapTo(target.window(), centre), global = target.mapToGlobal(centre)] {
        static unsigned long timestamp = 1000000;
        timestamp += 1000; // so far apart that two are no double click
        for (const bool down : {true, false}) {
            QWindowSystemInterface::handleMouseEvent(window, timestamp, local, global,
                                                     down ? Qt::LeftButton : Qt::NoButton, Qt::LeftButton,
                                                     down ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease);
        }
    };
}

inline void queueKey(const QWidget& target, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QWindowSystemInterface::handleKeyEvent(target.window()->windowHandle(), type, key, modifiers);
    }
}

// A host whose pumps find the user at work.
class BusyUserHost : public QtHost {
  public:
    std::function<void(int)> beforePump; // gets the number of the pump
    std::function<void()> afterPump;
    int pumps = 0;

    void pumpEvents(Pump what) override {
        const auto after = afterPump;
        if (beforePump) {
            beforePump(pumps);
        }
        ++pumps;
        QtHost::pumpEvents(what);
        if (after) {
            after();
        }
    }
    void viewTextFile(std::string_view /*path*/) override {}
    void openFile(std::string_view /*path*/, std::function<void()> /*failed*/) override {}
};

inline void queueClose(const QWidget& window) {
    QWindowSystemInterface::handleCloseEvent(window.windowHandle());
}

} // namespace vantor::test
