// Shell: the main window, its dialogs and the settings of the application.
// A label that shows a path of any length in the room that it has.
#pragma once

#include <QLabel>

namespace vantor {

/// Keeps a whole path as its text and shows it elided in the middle, with the whole of it as the tooltip.
class PathLabel : public QLabel {
    Q_OBJECT

  public:
    explicit PathLabel(QWidget* parent = nullptr);

    /// Takes a path as it stands; "&" and markup in it mean nothing.
    void setPath(const QString& path);
    /// What of the path fits into the label as it stands.
    [[nodiscard]] QString shownText() const;

    /// Room for a usual path; a longer one does not widen the form.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QRect textRect() const;
    [[nodiscard]] QSize sizeForCharacters(int characters) const;
};

} // namespace vantor
