// Where a window is put back from the settings. Pure functions of their arguments.
#pragma once

#include <QList>
#include <QRect>

#include "settings/BrevisUI_Settings.h"

namespace BrevisUI {

// `right` and `bottom` of a position lie just outside of the window.
QRect rectOf(const WindowPosition& position);
WindowPosition positionOf(const QRect& rect);

// The rectangle moved and made smaller, as far as need be, so that all of it lies on the screen that shows most of it.
// If no screen shows any of it, since its screen is gone, that is the first. `screens` are the free areas.
QRect fitToScreens(QRect rect, const QList<QRect>& screens);

}  // namespace BrevisUI
