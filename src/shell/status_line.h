// Shell: the main window, its dialogs and the settings of the application.
// The line at the window's foot: what happened last, what is loaded, shown and not saved yet, and the explorer's
// button.
#pragma once

#include <QWidget>

#include <cstdint>
#include <string>
#include <vector>

class QLabel;
class QToolButton;

namespace vantor {

class Canvas;
class ListBox;
class PathLabel;
class PictureBox;
struct Workspace;

/// Knows no command: it is told what happened, and looks at the rest when it is refreshed.
class StatusLine : public QWidget {
    Q_OBJECT
  public:
    explicit StatusLine(QWidget* parent = nullptr);

    /// What a command did. It stays until the next one tells something.
    void tell(const std::string& text);
    /// A fault of the ring, "{description}({number}) in {procedure} of module {module}". A click on it opens the log.
    void tellFault(const std::string& action);
    /// Shows what is loaded and not saved as it stands, for which it walks the schedules.
    void showState(const Workspace& workspace);
    /// Shows how many rows a list has and how many are selected.
    void showRows(const ListBox& list);

    /// A long command tells here what it does and how far it is while this lives; then the line is as it was.
    class Work {
      public:
        Work(StatusLine& line, const std::string& what);
        ~Work();
        Work(const Work&) = delete;
        Work& operator=(const Work&) = delete;

        void say(const std::string& what);
        /// Shows a bar, to be drawn by showprogress.
        [[nodiscard]] Canvas* bar() const;

      private:
        StatusLine& m_line;
        QString m_text; // what stood there
        QString m_toolTip;
    };

    /// Narrower windows than all of it show less.
    [[nodiscard]] QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// The explorer's button was pressed.
    void explorerWanted();

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void makeRoom();
    void colourWarnings();

    PathLabel* m_happened;
    PictureBox* m_bar;
    QLabel* m_loaded;
    QLabel* m_rows;
    QLabel* m_file;
    QLabel* m_mode;
    QLabel* m_unsaved;
    QLabel* m_offset;
    QToolButton* m_explorer;
    std::vector<QLabel*> m_leastWantedFirst;
    bool m_fault = false;
};

} // namespace vantor
