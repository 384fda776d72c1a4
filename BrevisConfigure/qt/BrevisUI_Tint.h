// Colours of one's own that can be read on the palette in use, light or dark.
#pragma once

#include <QColor>
#include <QPalette>

namespace BrevisUI {

inline bool isDark(const QPalette& palette) { return palette.color(QPalette::Base).lightnessF() < 0.5F; }

// A colour for text on the palette's base. `hue` is in degrees.
inline QColor inkFor(const QPalette& palette, int hue) {
    return isDark(palette) ? QColor::fromHsl(hue, 170, 175) : QColor::fromHsl(hue, 200, 85);
}

// A colour to lay behind text on the palette's base.
inline QColor washFor(const QPalette& palette, int hue) {
    return isDark(palette) ? QColor::fromHsl(hue, 150, 70) : QColor::fromHsl(hue, 255, 205);
}

}  // namespace BrevisUI
