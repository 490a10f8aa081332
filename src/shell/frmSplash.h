// Shell: the main window, its dialogs and the settings of the application.
// The progress window of a load: the program's picture, its title and the bar.
#pragma once

#include <QWidget>

#include <memory>

namespace vantor {

class Canvas;

namespace Ui {
class frmSplash;
}

/// Shown beside whatever runs, in the middle of its owner, or of the screen while that is not shown: it takes neither
/// the focus nor any event from the window behind it.
class frmSplash : public QWidget {
    Q_OBJECT

  public:
    explicit frmSplash(QWidget* parent = nullptr);
    ~frmSplash() override;

    /// The picture box of the bar, for as long as the splash lives.
    [[nodiscard]] Canvas* progress();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void Form_Load();
    void centre();

    std::unique_ptr<Ui::frmSplash> m_ui;
};

} // namespace vantor
