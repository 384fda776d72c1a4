// The tokens of a line and their colours.
#include "qt/BrevisUI_CppHighlighter.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "Cpp_Keywords.h"
#include "qt/BrevisUI_Tint.h"

namespace BrevisUI {

namespace {

// Those that the formatter has no need to know.
constexpr std::string_view otherKeywords[] = {
    "alignas",  "alignof", "char16_t",  "char32_t",  "char8_t",       "co_await",     "co_return",
    "co_yield", "concept", "consteval", "constexpr", "constinit",     "decltype",     "final",
    "noexcept", "nullptr", "override",  "requires",  "static_assert", "thread_local",
};

bool isKeyword(const QString& word) {
    const std::string text = word.toStdString();
    return Cpp::keywordTable.kindOf(text) != Trn::Kind::Identifier ||
           std::find(std::begin(otherKeywords), std::end(otherKeywords), text) != std::end(otherKeywords);
}

bool isWordPart(QChar c) { return c.isLetterOrNumber() || c == u'_'; }

bool isDirective(const QString& line) {
    const auto first = std::find_if_not(line.begin(), line.end(), [](QChar c) { return c.isSpace(); });
    return first != line.end() && *first == u'#';
}

}  // namespace

CppHighlighter::CppHighlighter(QTextDocument* document, const QPalette& palette) : QSyntaxHighlighter(document) {
    setPalette(palette);
}

void CppHighlighter::setPalette(const QPalette& palette) {
    constexpr int blue = 215, green = 120, red = 5, violet = 285, brown = 30;
    formats_.keyword.setForeground(inkFor(palette, blue));
    formats_.keyword.setFontWeight(QFont::Bold);
    formats_.comment.setForeground(inkFor(palette, green));
    formats_.literal.setForeground(inkFor(palette, red));
    formats_.number.setForeground(inkFor(palette, violet));
    formats_.directive.setForeground(inkFor(palette, brown));
    rehighlight();
}

void CppHighlighter::highlightBlock(const QString& line) {
    setCurrentBlockState(Plain);
    const bool directive =
        previousBlockState() == InDirective || (previousBlockState() != InComment && isDirective(line));
    int at = previousBlockState() == InComment ? comment(line, 0, 0) : 0;
    if (directive) setFormat(0, static_cast<int>(line.size()), formats_.directive);
    while (at < line.size()) {
        const QChar c = line[at], next = at + 1 < line.size() ? line[at + 1] : QChar();
        if (c == u'/' && next == u'*') {
            at = comment(line, at, at + 2);
        } else if (c == u'/' && next == u'/') {
            setFormat(at, static_cast<int>(line.size()) - at, formats_.comment);
            return;
        } else if (c == u'"' || c == u'\'') {
            at = literal(line, at);
        } else if (c.isDigit()) {
            at = number(line, at);
        } else if (isWordPart(c)) {
            at = word(line, at, directive ? formats_.directive : formats_.keyword);
        } else {
            ++at;
        }
    }
    if (directive && line.endsWith(u'\\')) setCurrentBlockState(InDirective);
}

int CppHighlighter::comment(const QString& line, int begin, int from) {
    const auto close = line.indexOf(QLatin1String("*/"), from);
    if (close < 0) setCurrentBlockState(InComment);
    const int end = static_cast<int>(close < 0 ? line.size() : close + 2);
    setFormat(begin, end - begin, formats_.comment);
    return end;
}

int CppHighlighter::literal(const QString& line, int begin) {
    int end = begin + 1;
    while (end < line.size() && line[end] != line[begin]) end += line[end] == u'\\' ? 2 : 1;
    end = std::min(end + 1, static_cast<int>(line.size()));
    setFormat(begin, end - begin, formats_.literal);
    return end;
}

int CppHighlighter::word(const QString& line, int begin, const QTextCharFormat& keyword) {
    int end = begin;
    while (end < line.size() && isWordPart(line[end])) ++end;
    if (isKeyword(line.mid(begin, end - begin))) setFormat(begin, end - begin, keyword);
    return end;
}

// A quote inside is a separator of digits.
int CppHighlighter::number(const QString& line, int begin) {
    int end = begin;
    while (end < line.size() && (isWordPart(line[end]) || line[end] == u'.' || line[end] == u'\'')) ++end;
    setFormat(begin, end - begin, formats_.number);
    return end;
}

}  // namespace BrevisUI
