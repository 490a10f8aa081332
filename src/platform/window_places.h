// Platform: the Qt side of the program.
// Where windows stand, how large they are and the columns of their tables: kept on the screens that are there, and
// remembered.
#pragma once

#include <QObject>
#include <QSettings>

class QWidget;

namespace vantor {

/// Watches all windows and dialogs of the program while it lives, but for message boxes. One that opens takes the size
/// and place that it had when it was last closed, or its own at the first time; no larger than the screen has room. The
/// same goes for the order, widths and choice of columns that the user can move.
class WindowPlaces : public QObject {
  public:
    /// Remembers in this file (the system's own path). One that is missing, broken or out of reach means the windows'
    /// own sizes.
    explicit WindowPlaces(const QString& file);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QSettings m_file;
};

} // namespace vantor
