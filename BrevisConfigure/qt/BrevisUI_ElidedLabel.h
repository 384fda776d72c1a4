// A label of one or several lines that leaves out the middle of a line that doesn't fit, so that a long path neither
// widens its window nor loses its end.
#pragma once

#include <QLabel>

namespace BrevisUI {

class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    // `lines` is the number of lines that the label has room for.
    explicit ElidedLabel(int lines = 1, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const int lines_;
};

}  // namespace BrevisUI
