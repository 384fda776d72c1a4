// Decides when something that changes many times a second is drawn at once: at most about sixty times a second. What is
// left out comes with the next event, so that a run isn't slowed down by drawing what nobody can see.
#pragma once

#include <QElapsedTimer>
#include <QWidget>

namespace BrevisUI {

class PaintPace {
public:
    // Draws the widget now, or has it drawn with the events that wait.
    void paint(QWidget& widget) {
        if (last_.isValid() && last_.elapsed() < interval) {
            widget.update();
        } else {
            widget.repaint();
            last_.start();
        }
    }

private:
    static constexpr int interval = 16;  // milliseconds

    QElapsedTimer last_;
};

}  // namespace BrevisUI
