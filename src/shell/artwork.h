// Shell: the main window, its dialogs and the settings of the application.
// The program's own pictures, drawn in code so that they are sharp at every scale.
#pragma once

#include <QIcon>
#include <QPixmap>
#include <QSize>

class QFontMetrics;

namespace vantor {

/// The icon of the application, in the sizes that desktops ask for.
[[nodiscard]] QIcon applicationIcon();

/// Size of the splash in device-independent pixels, for a form that writes in the font of `metrics`.
[[nodiscard]] QSize splashSize(const QFontMetrics& metrics);
/// The splash: a map at night with great-circle routes, calm at the foot, where the title and the bar stand. `size` is
/// in device-independent pixels, `ratio` the screen's pixels to one of them.
[[nodiscard]] QPixmap splashPicture(QSize size, qreal ratio);

/// The small picture on the main window that opens the about box.
[[nodiscard]] QPixmap clunkPicture(QSize size, qreal ratio);

} // namespace vantor
