// Shell: the main window, its dialogs and the settings of the application.
// Ways to a flight plan file beside the dialog: dropped on the window, or picked among those loaded last.
#pragma once

#include <QObject>

#include <functional>
#include <string>
#include <vector>

class QMimeData;
class QWidget;

namespace vantor {

/// Takes text files that are dropped on a window, and offers the last ones loaded in a button's context menu.
class PlanFiles : public QObject {
  public:
    /// `load` is handed the path of a file (of the program). The window must outlive this.
    PlanFiles(QWidget& window, QWidget& button, std::function<void(const std::string&)> load);

    /// A file was loaded: it is the latest from now on. They are kept in `Vantor2.recent` beside the program; where
    /// that can't be written they are forgotten.
    static void remember(const std::string& file);
    /// The files loaded last, at most eight, latest first; some may be gone.
    [[nodiscard]] static std::vector<std::string> latest();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void offerLatest(QWidget& button, const QPoint& place);

    std::function<void(const std::string&)> m_load;
};

} // namespace vantor
