// A pane that is never narrower than the page in it, so that only heights have to be scrolled.
#pragma once

#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>

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
    // A window that opens fits a common screen, however long its longest page is.
    QSize sizeHint() const override {
        constexpr int mostLines = 36;
        const int mostHeight = mostLines * fontMetrics().height();
        return {minimumSizeHint().width(), std::min(widget()->sizeHint().height(), mostHeight)};
    }
};

}  // namespace BrevisUI
