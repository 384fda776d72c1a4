// A pane that is never narrower than the page in it, so that only heights have to be scrolled.
#pragma once

#include <QScrollArea>
#include <QScrollBar>

namespace BrevisUI {

class PageScroller : public QScrollArea {
    Q_OBJECT

public:
    explicit PageScroller(QWidget* page, QWidget* parent = nullptr) : QScrollArea(parent) {
        setWidget(page);
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        // The page takes the focus, control by control.
        setFocusPolicy(Qt::NoFocus);
    }

    QSize minimumSizeHint() const override {
        const int width = widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width();
        return {width, QScrollArea::minimumSizeHint().height()};
    }
    QSize sizeHint() const override { return {minimumSizeHint().width(), widget()->sizeHint().height()}; }
};

}  // namespace BrevisUI
