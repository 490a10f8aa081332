#include "platform/colours.h"

#include <QPalette>

#include <algorithm>
#include <cmath>

namespace vantor {

namespace {

// Relative luminance as WCAG 2.1 defines it.
double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

bool isDark(const QColor& background) {
    return contrast(background, Qt::white) > contrast(background, Qt::black);
}

QColor mixed(const QColor& one, const QColor& other, double share) {
    const auto part = [share](double a, double b) { return static_cast<float>(a * share + b * (1 - share)); };
    return QColor::fromRgbF(part(one.redF(), other.redF()), part(one.greenF(), other.greenF()),
                            part(one.blueF(), other.blueF()));
}

// A colour mixed with another as far as the background asks for.
QColor movedAway(const QColor& told, const QColor& other, const QColor& background) {
    constexpr double step = 0.05;
    QColor colour = told;
    for (double share = 1.0 - step; contrast(colour, background) < legibleContrast && share > 0; share -= step) {
        colour = mixed(told, other, share);
    }
    return colour;
}

constexpr QColor warning(176, 80, 0);

} // namespace

double contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor legible(const QColor& told, const QColor& background) {
    return isDark(background) ? movedAway(told, Qt::white, background) : told;
}

QColor warningColour(const QPalette& palette) {
    return legible(warning, palette.color(QPalette::Base));
}

QColor warningColourOn(const QColor& background) {
    return movedAway(warning, isDark(background) ? Qt::white : Qt::black, background);
}

QPalette progressPalette(QPalette palette) {
    palette.setColor(QPalette::Window, QColor(236, 241, 248));
    palette.setColor(QPalette::ButtonText, Qt::black);
    return palette;
}

QColor faultColour(const QPalette& palette) {
    return legible(QColor(192, 0, 0), palette.color(QPalette::Base));
}

QColor fineColour(const QPalette& palette) {
    return legible(QColor(0, 128, 0), palette.color(QPalette::Base));
}

SelectionColours selectionColours(const QPalette& palette, bool focused) {
    constexpr double visible = 1.3; // faint, but the eye finds it in a list
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    SelectionColours active{palette.color(QPalette::Active, QPalette::Highlight),
                            palette.color(QPalette::Active, QPalette::HighlightedText)};
    if (focused) {
        return active;
    }
    QColor background = palette.color(QPalette::Inactive, QPalette::Highlight);
    if (background == active.background || contrast(background, base) < visible) {
        background = mixed(active.background, base, 0.35);
    }
    QColor text = palette.color(QPalette::Inactive, QPalette::HighlightedText);
    if (contrast(text, background) < legibleContrast) {
        text = isDark(background) ? Qt::white : Qt::black;
    }
    return {background, text};
}

} // namespace vantor
