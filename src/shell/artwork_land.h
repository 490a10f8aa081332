// Shell: the main window, its dialogs and the settings of the application.
// Coarse outlines of the lands that the splash shows.
#pragma once

#include <QList>
#include <QPolygonF>

namespace vantor {

/// Outlines in degrees, x the longitude (east positive) and y the latitude (north positive).
[[nodiscard]] const QList<QPolygonF>& landOutlines();

} // namespace vantor
