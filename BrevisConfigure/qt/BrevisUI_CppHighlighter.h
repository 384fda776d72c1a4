// Colours the syntax of C++ in a text document. It looks at one line at a time and knows tokens only; the colours suit
// the palette, light or dark.
#pragma once

#include <QPalette>
#include <QSyntaxHighlighter>
#include <QTextCharFormat>

namespace BrevisUI {

class CppHighlighter : public QSyntaxHighlighter {
public:
    CppHighlighter(QTextDocument* document, const QPalette& palette);

    // Colours the text anew for another palette.
    void setPalette(const QPalette& palette);

protected:
    void highlightBlock(const QString& line) override;

private:
    // What a line hands to the next one.
    enum LineState { Plain = 0, InComment = 1, InDirective = 2 };

    struct Formats {
        QTextCharFormat keyword, comment, literal, number, directive;
    };

    // Each gives the place behind what it has coloured.
    int comment(const QString& line, int begin, int from);
    int literal(const QString& line, int begin);
    int word(const QString& line, int begin, const QTextCharFormat& keyword);
    int number(const QString& line, int begin);

    Formats formats_;
};

}  // namespace BrevisUI
