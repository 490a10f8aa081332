// Platform: the Qt side of the program.
// A window of our own for text files, for systems where no program opens them.
#pragma once

#include <QDialog>

#include <memory>
#include <string_view>

namespace vantor {

namespace Ui {
class TextWindow;
}

/// Shows a file's text to be read and copied. A file that can't be read shows why instead.
class TextWindow : public QDialog {
    Q_OBJECT
  public:
    /// `file` is a path of the program.
    TextWindow(QWidget* owner, std::string_view file);
    ~TextWindow() override;

  private:
    std::unique_ptr<Ui::TextWindow> m_ui;
};

} // namespace vantor
