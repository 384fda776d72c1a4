// The pane with the messages of runs: read-only text at whose end new messages appear. It keeps the number of each
// message with its lines and knows nothing of what a message says.
#pragma once

#include <QPlainTextEdit>

#include "qt/BrevisUI_PaintPace.h"

namespace BrevisUI {

class MessagePane : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit MessagePane(QWidget* parent = nullptr);

    // Shows the message behind all others, with the caret behind it, at once. It may have several lines.
    void addMessage(const QString& text);
    // The next message has the number 0 again.
    void clearMessages();

Q_SIGNALS:
    // A double click on the message with this number, or the enter key in it.
    void messageActivated(int number);

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void activate(const QTextCursor& cursor);

    int count_ = 0;
    PaintPace pace_;
};

}  // namespace BrevisUI
