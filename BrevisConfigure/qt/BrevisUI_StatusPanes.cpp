// Lays out the panes and draws the lamps.
#include "qt/BrevisUI_StatusPanes.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>

#include "qt/BrevisUI_ElidedLabel.h"

namespace BrevisUI {

namespace {

constexpr int lampSize = 16;
constexpr double lampMargin = 3.0, lampRim = 1.5;

// A lamp that is on or off, in the colours of the palette, so that it can be seen on a dark window too.
QPixmap lampImage(bool isOn, const QPalette& palette, qreal ratio) {
    QPixmap image(QSize(lampSize, lampSize) * ratio);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette.color(QPalette::WindowText), lampRim));
    painter.setBrush(isOn ? QColor(0x2e, 0xb8, 0x4c) : palette.color(QPalette::Window));
    painter.setOpacity(isOn ? 1.0 : 0.5);
    const double side = lampSize - 2 * lampMargin;
    painter.drawEllipse(QRectF(lampMargin, lampMargin, side, side));
    return image;
}

}  // namespace

StatusPanes::StatusPanes(QWidget* parent)
    : QStatusBar(parent), text_(new ElidedLabel), barPane_(new QWidget), idleLamp_(nullptr), busyLamp_(nullptr) {
    // A help text hides the pane and needs its room.
    QSizePolicy policy = text_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    text_->setSizePolicy(policy);
    addWidget(text_, 1);
    barPane_->setLayout(new QHBoxLayout);
    barPane_->layout()->setContentsMargins(0, 0, 0, 0);
    addPermanentWidget(barPane_, 1);
    idleLamp_ = addLamp(tr("Idle"));
    busyLamp_ = addLamp(tr("Busy"));
    setReady();
}

void StatusPanes::setBusy() {
    if (!bar_) {
        bar_ = new QProgressBar;
        bar_->setAccessibleName(tr("Overall progress"));
        bar_->setTextVisible(false);
        barPane_->layout()->addWidget(bar_);
    }
    bar_->show();
    showLamps(true);
}

void StatusPanes::setReady() {
    setText(tr("Ready to format!"));
    if (bar_) bar_->hide();
    showLamps(false);
}

void StatusPanes::setText(const QString& text) { text_->setText(text); }

void StatusPanes::setRange(int count) {
    if (!bar_) return;
    // A bar without a range would show that something goes on.
    bar_->setRange(0, count > 0 ? count : 1);
    bar_->setValue(0);
}

void StatusPanes::advance() {
    if (bar_) bar_->setValue(bar_->value() + 1);
}

void StatusPanes::changeEvent(QEvent* event) {
    QStatusBar::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && busyLamp_) showLamps(isBusy_);
}

QLabel* StatusPanes::addLamp(const QString& name) {
    auto* const lamp = new QLabel;
    lamp->setToolTip(name);
    lamp->setAccessibleName(name);
    addPermanentWidget(lamp);
    return lamp;
}

void StatusPanes::showLamps(bool isBusy) {
    isBusy_ = isBusy;
    const auto light = [this](QLabel* lamp, bool isOn) {
        lamp->setPixmap(lampImage(isOn, palette(), devicePixelRatioF()));
        lamp->setAccessibleDescription(isOn ? tr("on") : tr("off"));
    };
    light(idleLamp_, !isBusy);
    light(busyLamp_, isBusy);
}

}  // namespace BrevisUI
