// Platform: the Qt side of the program.
// A push button as narrow as its text: the main window stands many of them side by side.
#pragma once

#include <QPushButton>

namespace vantor {

/// A push button without the style's minimum width, which would not leave room for five in a row.
class CommandButton : public QPushButton {
    Q_OBJECT
  public:
    explicit CommandButton(QWidget* parent = nullptr) : QPushButton(parent) {}

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
};

} // namespace vantor
