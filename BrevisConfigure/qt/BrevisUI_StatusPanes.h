// The four panes of the main window's status bar: a text, the overall progress of a run, and two lamps. Help texts of
// menu rows take the place of the first while they are shown.
#pragma once

#include <QStatusBar>

class QLabel;
class QProgressBar;

namespace BrevisUI {

class ElidedLabel;

class StatusPanes : public QStatusBar {
    Q_OBJECT

public:
    explicit StatusPanes(QWidget* parent = nullptr);

    void setBusy();
    void setReady();
    void setText(const QString& text);
    // The bar runs from 0 to `count` and stands at 0.
    void setRange(int count);
    void advance();

protected:
    void changeEvent(QEvent* event) override;

private:
    QLabel* addLamp(const QString& name);
    void showLamps(bool isBusy);

    ElidedLabel* text_;
    QWidget* barPane_;
    QProgressBar* bar_ = nullptr;  // made for the first run
    QLabel* idleLamp_;
    QLabel* busyLamp_;
    bool isBusy_ = false;
};

}  // namespace BrevisUI
