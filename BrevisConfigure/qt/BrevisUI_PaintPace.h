// Keeps something that changes hundreds of times a second from being drawn as often: it is drawn at once if the last
// time was long ago, and soon otherwise. So a run isn't slowed down by drawing what nobody can see.
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

namespace BrevisUI {

class PaintPace {
public:
    // The widget must outlive the object.
    explicit PaintPace(QWidget& widget) : widget_(widget) {
        soon_.setSingleShot(true);
        QObject::connect(&soon_, &QTimer::timeout, &soon_, [this] { paintNow(); });
    }

    // To be called in front of a change and behind it. Nothing is drawn in between, nor scrolled on the screen.
    void begin() { widget_.setUpdatesEnabled(false); }
    void end() {
        if (!last_.isValid() || last_.elapsed() >= interval) {
            paintNow();
        } else if (!soon_.isActive()) {
            soon_.start(interval);
        }
    }

private:
    static constexpr int interval = 16;  // milliseconds

    void paintNow() {
        soon_.stop();
        widget_.setUpdatesEnabled(true);
        widget_.repaint();
        last_.start();
    }

    QWidget& widget_;
    QTimer soon_;
    QElapsedTimer last_;
};

}  // namespace BrevisUI
