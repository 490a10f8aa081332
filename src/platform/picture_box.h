// Platform: the Qt side of the program.
// The picture box: a Canvas that keeps what was drawn on it, 15 twips to a device-independent pixel.
#pragma once

#include "foundation/canvas.h"

#include <QFont>
#include <QFontMetricsF>
#include <QFrame>
#include <QPainter>
#include <QPixmap>

#include <optional>
#include <string_view>

namespace vantor {

/// Drawing calls go to a pixmap of the inner size, at the resolution of the screen, and show with the next repaint.
/// The border is the frame's: its frame shape may be set in the form's layout file.
class PictureBox : public QFrame, public Canvas {
    Q_OBJECT
  public:
    explicit PictureBox(QWidget* parent = nullptr);
    ~PictureBox() override;

    [[nodiscard]] double innerWidth() const override;
    [[nodiscard]] double innerHeight() const override;
    [[nodiscard]] double outerWidth() const override;
    [[nodiscard]] double outerHeight() const override;

    void clear() override;
    /// Fills the box between two corners, in any order. A box without height or width shows nothing.
    void fillBox(double x1, double y1, double x2, double y2, Colour colour) override;
    void drawLine(double x1, double y1, double x2, double y2, Colour colour) override;
    void drawText(double x, double y, std::string_view text) override;
    [[nodiscard]] double textWidth(std::string_view text) const override;
    [[nodiscard]] double textHeight(std::string_view text) const override;
    void setFontSize(double points) override;
    void setTextColour(Colour colour) override;
    void setBackColour(Colour colour) override;
    /// The palette's window and button text. The surface is wiped with it, so that a bar's next text does not stand
    /// on its last.
    void useSystemColours() override;

    /// Shows a picture, scaled to the inner size, in place of what is drawn; a null pixmap takes it away.
    void setPicture(const QPixmap& picture);
    /// What was drawn so far.
    [[nodiscard]] QPixmap surface();

  Q_SIGNALS:
    /// The mouse button was released on the box, or Space or Enter pressed where the box takes the focus.
    void clicked();
    /// The inner size changed. What was drawn stands in the top left corner; the owner draws it again.
    void resized();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void paintPicture(QPainter& screen, const QRect& inner) const;
    [[nodiscard]] QFont drawingFont() const;
    [[nodiscard]] QFontMetricsF metrics() const;
    [[nodiscard]] QColor backColour() const;
    [[nodiscard]] QColor textColour() const;
    /// Makes the pixmap fit the inner size and the screen.
    void fitSurface();
    /// A painter on the surface, held open over a run of drawing calls and closed by the next repaint.
    [[nodiscard]] QPainter& painter();
    void endPainting();
    void changed();

    QPixmap m_surface;
    QPixmap m_picture;
    std::optional<QPainter> m_painter;
    double m_points = 0.0; // 0: the widget's own font size
    std::optional<QColor> m_back;
    std::optional<QColor> m_text;
    bool m_updatePending = false;
};

} // namespace vantor
