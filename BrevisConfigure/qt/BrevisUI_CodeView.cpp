// Font, tab stops and marks of the pane.
#include "qt/BrevisUI_CodeView.h"

#include <QEvent>
#include <QFontDatabase>
#include <QScrollBar>
#include <algorithm>

#include "qt/BrevisUI_Tint.h"

namespace BrevisUI {

namespace {

// Each mark is looked at for each line that is drawn; more than these nobody reads.
constexpr std::size_t mostMarks = 500;

}  // namespace

CodeView::CodeView(QWidget* parent) : QPlainTextEdit(parent), highlighter_(document(), palette()) {
    setReadOnly(true);
    // With the keyboard too a text can be scrolled, selected and copied.
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setLineWrapMode(NoWrap);
    setUndoRedoEnabled(false);
    setCodeFont({});
}

void CodeView::setCodeFont(const PreviewFont& font) {
    const QString face = QString::fromStdString(font.face);
    QFont codeFont = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (QFontDatabase::hasFamily(face)) codeFont = QFont(face);
    codeFont.setPointSize(static_cast<int>(std::clamp<std::uint32_t>(font.size, 1, 200)));
    setFont(codeFont);
    placeTabStops();
}

void CodeView::setTabColumns(int columns) {
    tabColumns_ = columns;
    placeTabStops();
}

// Zero columns would let a tab vanish.
void CodeView::placeTabStops() {
    setTabStopDistance(fontMetrics().horizontalAdvance(u' ') * static_cast<double>(std::max(tabColumns_, 1)));
}

void CodeView::showCode(const QString& text, const std::vector<Stretch>& marked) {
    const int down = verticalScrollBar()->value(), right = horizontalScrollBar()->value();
    setPlainText(text);
    marked_ = marked;
    paintMarks();
    verticalScrollBar()->setValue(down);
    horizontalScrollBar()->setValue(right);
}

void CodeView::paintMarks() {
    constexpr int yellow = 48;
    QTextCharFormat format;
    format.setBackground(washFor(palette(), yellow));
    QList<QTextEdit::ExtraSelection> selections;
    for (std::size_t i = 0; i < std::min(marked_.size(), mostMarks); ++i) {
        QTextCursor cursor(document());
        cursor.setPosition(marked_[i].begin);
        cursor.setPosition(marked_[i].begin + marked_[i].length, QTextCursor::KeepAnchor);
        selections.append({cursor, format});
    }
    setExtraSelections(selections);
}

void CodeView::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        highlighter_.setPalette(palette());
        paintMarks();
    } else if (event->type() == QEvent::FontChange) {
        placeTabStops();
    }
}

}  // namespace BrevisUI
