// A pane that shows source code to read: with its colours, the tab stops of a scheme and marks on stretches of it. It
// knows nothing of where the text comes from.
#pragma once

#include <QPlainTextEdit>
#include <vector>

#include "qt/BrevisUI_CppHighlighter.h"
#include "settings/BrevisUI_EditorSettings.h"

namespace BrevisUI {

class CodeView : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit CodeView(QWidget* parent = nullptr);

    // Takes the font, or the system's own of fixed width if that face isn't there.
    void setCodeFont(const PreviewFont& font);
    void setTabColumns(int columns);
    int tabColumns() const { return tabColumns_; }

    // Characters of the text.
    struct Stretch {
        int begin = 0, length = 0;
    };
    // Shows another text, scrolled as the last one was, with these stretches marked.
    void showCode(const QString& text, const std::vector<Stretch>& marked = {});

protected:
    void changeEvent(QEvent* event) override;

private:
    void placeTabStops();
    void paintMarks();

    CppHighlighter highlighter_;
    int tabColumns_ = 8;
    std::vector<Stretch> marked_;
};

}  // namespace BrevisUI
