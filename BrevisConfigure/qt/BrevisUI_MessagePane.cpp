// A plain text edit without undo, to which adding a line costs the same however many there are.
#include "qt/BrevisUI_MessagePane.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QTextBlock>

namespace BrevisUI {

MessagePane::MessagePane(QWidget* parent) : QPlainTextEdit(parent), pace_(*viewport()) {
    setReadOnly(true);
    setUndoRedoEnabled(false);
    // A caret can be moved and text be marked by keys alone.
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    // Files dropped here are the window's.
    setAcceptDrops(false);
    setAccessibleName(tr("Messages"));
}

void MessagePane::addMessage(const QString& text) {
    pace_.begin();
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    // The empty document has a line already.
    if (count_ > 0) cursor.insertBlock();
    const int first = cursor.blockNumber();
    cursor.insertText(text);
    for (QTextBlock block = document()->findBlockByNumber(first); block.isValid(); block = block.next()) {
        block.setUserState(count_);
    }
    ++count_;
    setTextCursor(cursor);
    ensureCursorVisible();
    pace_.end();
}

void MessagePane::clearMessages() {
    clear();
    count_ = 0;
}

void MessagePane::mouseDoubleClickEvent(QMouseEvent* event) {
    QPlainTextEdit::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton) activate(cursorForPosition(event->position().toPoint()));
}

void MessagePane::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        activate(textCursor());
    } else {
        QPlainTextEdit::keyPressEvent(event);
    }
}

void MessagePane::activate(const QTextCursor& cursor) {
    if (const int number = cursor.block().userState(); number >= 0) Q_EMIT messageActivated(number);
}

}  // namespace BrevisUI
