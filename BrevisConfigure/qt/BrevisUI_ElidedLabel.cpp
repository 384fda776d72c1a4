// Draws the lines of a label.
#include "qt/BrevisUI_ElidedLabel.h"

#include <QPainter>
#include <QStringList>
#include <QStyle>

namespace BrevisUI {

namespace {

constexpr int fewestCharacters = 12;

}  // namespace

ElidedLabel::ElidedLabel(int lines, QWidget* parent) : QLabel(parent), lines_(lines) { setTextFormat(Qt::PlainText); }

QSize ElidedLabel::sizeHint() const { return minimumSizeHint(); }

QSize ElidedLabel::minimumSizeHint() const {
    const QMargins margins = contentsMargins();
    return {fontMetrics().averageCharWidth() * fewestCharacters + margins.left() + margins.right(),
            fontMetrics().lineSpacing() * lines_ + margins.top() + margins.bottom()};
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRect room = contentsRect();
    QStringList lines = text().split(QLatin1Char('\n'));
    for (QString& line : lines) line = fontMetrics().elidedText(line, Qt::ElideMiddle, room.width());
    style()->drawItemText(&painter, room, static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter), palette(), isEnabled(),
                          lines.join(QLatin1Char('\n')), foregroundRole());
}

}  // namespace BrevisUI
