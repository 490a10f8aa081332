// Platform: the Qt side of the program.
// Colours that carry a meaning, made legible on light and on dark palettes.
#pragma once

#include <QColor>

class QPalette;

namespace vantor {

/// How well a colour stands out from another: 1 (not at all) to 21 (black on white). Contrast ratio of WCAG 2.1.
[[nodiscard]] double contrast(const QColor& one, const QColor& other);

/// Text contrast that is told to be legible, by the same source.
inline constexpr double legibleContrast = 4.5;

/// A colour as it is told for light palettes, for text on `background`. On a dark background it gets lighter until it
/// is legible; a light one leaves it alone.
[[nodiscard]] QColor legible(const QColor& told, const QColor& background);

/// The colours of marks that warn, that tell of a fault and that tell that all is well, as text on the palette's base.
[[nodiscard]] QColor warningColour(const QPalette& palette);
[[nodiscard]] QColor faultColour(const QPalette& palette);
[[nodiscard]] QColor fineColour(const QPalette& palette);

/// The warning colour for text on any background, dark or light, to legibleContrast.
[[nodiscard]] QColor warningColourOn(const QColor& background);
/// A palette for a progress bar, on whose light green only dark text can be read.
[[nodiscard]] QPalette progressPalette(QPalette palette);

/// Background and text of a selected row.
struct SelectionColours {
    QColor background;
    QColor text;
};
/// With the focus the palette's own. Without it those of the inactive palette; where these can't be told from the base
/// or from a list with the focus, a fainter tone of the focused ones.
[[nodiscard]] SelectionColours selectionColours(const QPalette& palette, bool focused);

} // namespace vantor
