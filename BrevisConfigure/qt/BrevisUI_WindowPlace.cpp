// Rectangles of windows and screens.
#include "qt/BrevisUI_WindowPlace.h"

#include <algorithm>

namespace BrevisUI {

namespace {

int area(const QRect& rect) { return rect.isEmpty() ? 0 : rect.width() * rect.height(); }

}  // namespace

QRect rectOf(const WindowPosition& position) {
    return {position.left, position.top, position.right - position.left, position.bottom - position.top};
}

WindowPosition positionOf(const QRect& rect) {
    return {rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height()};
}

QRect fitToScreens(QRect rect, const QList<QRect>& screens) {
    if (screens.isEmpty()) return rect;
    const QRect screen = *std::ranges::max_element(
        screens, {}, [&rect](const QRect& candidate) { return area(candidate.intersected(rect)); });
    rect.setSize(rect.size().boundedTo(screen.size()));
    rect.moveLeft(std::clamp(rect.left(), screen.left(), screen.left() + screen.width() - rect.width()));
    rect.moveTop(std::clamp(rect.top(), screen.top(), screen.top() + screen.height() - rect.height()));
    return rect;
}

}  // namespace BrevisUI
