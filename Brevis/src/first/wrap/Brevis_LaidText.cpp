#include "first/wrap/Brevis_LaidText.h"

#include <algorithm>

#include "Vellum_WhiteSpace.h"
#include "first/text/Brevis_Columns.h"
#include "first/wrap/Brevis_WrapMeasure.h"

namespace Brevis {

using namespace Trn::Kind;

namespace {

bool isTabsAndBlanks(std::string_view indent) { return indent.find_first_not_of(" \t") == std::string_view::npos; }

// Whether a backslash stands at the end of a line, so that white space has to stay there.
bool hasSplice(const LexedText& lexed) {
    const std::string_view text = lexed.text();
    for (std::size_t at = text.find('\\'); at != text.npos; at = text.find('\\', at + 1)) {
        const std::string_view rest = trimmedLeft(text.substr(at + 1));
        const std::string_view gap = text.substr(at + 1, text.size() - at - 1 - rest.size());
        if (rest.empty() || gap.find('\n') != gap.npos) return true;
    }
    return false;
}

bool isSimple(Trn::TokenKind kind, std::string_view token) {
    // The lexer gives an empty name between a template's arguments and an operator's keyword. A line break behind a
    // backslash would be spliced to it.
    if (token.empty() || token.back() == '\\') return false;
    switch (kind) {
        case Directive:
        case Defective:
            return false;
        case BlockComment:
            return token.find('\n') == token.npos;
        case LineComment:
            return trimmedRight(token).size() + 1 >= token.size();
        default:
            return true;
    }
}

bool areTokensSimple(const LexedText& lexed) {
    const std::string_view text = lexed.text();
    std::size_t end = 0;
    for (std::size_t i = 0; i < lexed.count(); ++i) {
        const LeafToken& token = lexed[i];
        if (!Vellum::isBlank(text.substr(end, token.begin - end))) return false;
        if (!isSimple(token.kind, text.substr(token.begin, token.end - token.begin))) return false;
        end = token.end;
    }
    return Vellum::isBlank(text.substr(end));
}

}  // namespace

bool LaidText::isSuited(const LexedText& lexed, const WrapPlace& place, const WrapValues& values) {
    const IndentStreamSettings& settings = *place.settings;
    if (lexed.count() < 2 || values.rightMargin < 1 || settings.tabSize < 1 || place.column < 0) return false;
    if (place.behindBackslash || !isTabsAndBlanks(settings.indent) || !isTabsAndBlanks(values.wrapIndent)) return false;
    return isPlainText(lexed.text(), settings) && !hasSplice(lexed) && areTokensSimple(lexed);
}

LaidText::LaidText(const LexedText& lexed, const WrapPlace& place, const WrapValues& values)
    : lexed_(lexed),
      values_(values),
      settings_(*place.settings),
      indentWidth_(place.indentWidth()),
      spans_(settings_.tabSize),
      widths_(sourceSpans(), spans_),
      gaps_(lexed.count()) {}

// ---- The pieces

std::vector<LineSpan> LaidText::sourceSpans() const {
    std::vector<LineSpan> spans(lastPiece() + 3);
    for (std::size_t piece = 0; piece < spans.size(); ++piece) spans[piece] = spans_.of(sourcePiece(piece));
    return spans;
}

bool LaidText::isGap(std::size_t piece) const {
    return piece < lastPiece() ? piece % 2 == 0 : piece == lastPiece() + 2;
}

LaidText::Part LaidText::inside(std::size_t open) const {
    const std::size_t close = lexed_.closeOf(open);
    if (close < lexed_.count()) return {beforeGap(open + 1), beforeToken(close), open + 1, close};
    const bool isLastGone = lexed_[close - 1].end - lexed_[close - 1].begin == 1;
    return {beforeGap(open + 1), lastPiece() + (isLastGone ? 0 : 1), open + 1, isLastGone ? close - 1 : close};
}

std::size_t LaidText::gapBegin(std::size_t token) const {
    if (token == 0) return 0;
    const LeafToken& before = lexed_[token - 1];
    return before.begin + trimmedRight(lexed_.text().substr(before.begin, before.end - before.begin)).size();
}

std::string_view LaidText::sourcePiece(std::size_t piece) const {
    const std::size_t end = lexed_[lexed_.count() - 1].end;
    const auto between = [this](std::size_t from, std::size_t to) { return lexed_.text().substr(from, to - from); };
    const std::size_t token = piece / 2;
    if (piece == lastPiece() + 2) return lexed_.text().substr(end);
    if (piece == lastPiece() + 1) return between(end - 1, end);
    if (piece == lastPiece()) return between(lexed_[token].begin, end - 1);
    return piece % 2 == 0 ? between(gapBegin(token), lexed_[token].begin)
                          : between(lexed_[token].begin, gapBegin(token + 1));
}

// ---- Widths

int LaidText::columnBehind(Boundary begin, Boundary end, int column) {
    constexpr std::int64_t highest = 1 << 30;
    const std::int64_t behind = spans_.columnBehind(widths_.sum(begin, end), column);
    if (behind > highest) giveUp();
    return static_cast<int>(std::min(behind, highest));
}

int LaidText::columnInFront(Boundary begin, Boundary end, int column) const {
    const LineSpan span = widths_.sum(begin, end);
    if (span.behindTab < 0) return static_cast<int>(std::max<std::int64_t>(column - span.head, 0));
    std::string text;
    while (begin < end) text += pieceText(begin++);
    return columnBefore(text.substr(0, text.find('\n')), column, settings_.tabSize);
}

std::int64_t LaidText::indentTextWidth(const Continuation& continuation) const {
    if (values_.wrapStyle == 0) return 0;
    const int column = std::max(continuation.column, 0);
    const bool isIndented = values_.wrapStyle == 2 && !values_.noExtraIndent;
    return isIndented ? columnAfter(values_.wrapIndent, column, settings_.tabSize) : column;
}

// ---- Breaking lines

void LaidText::breakLine(std::size_t token, const Continuation& continuation) {
    fronts_.erase(token);
    gaps_[token] = {true, continuation};
    LineSpan span;
    span.last = indentTextWidth(continuation);
    span.isEmpty = false;
    widths_.set(beforeGap(token), span);
}

void LaidText::breakLineBehindGap(std::size_t token, bool lineFeed, const Continuation& continuation) {
    const std::string front = gapText(token) + (lineFeed ? "\n" : "");
    if (front.empty() || front.back() != '\n') return giveUp();
    breakLine(token, continuation);
    if (front.size() == 1) return;
    fronts_[token] = front;
    const LineSpan indent = widths_.sum(beforeGap(token), beforeToken(token));
    widths_.set(beforeGap(token), spans_(spans_.of(front.substr(0, front.size() - 1)), indent));
}

// ---- The text

std::string LaidText::indentText(const Continuation& continuation) const {
    if (values_.wrapStyle == 0) return {};
    if (settings_.convertMode == 1) return std::string(static_cast<std::size_t>(indentTextWidth(continuation)), ' ');
    IndentStreamSettings settings = settings_;
    settings.column = 0;
    settings.behindBackslash = false;
    OIndentStream stream(settings);
    if (continuation.indentColumn) stream.setIndent(indentStringFor(stream, *continuation.indentColumn));
    std::string indent = indentStringFor(stream, continuation.column);
    if (values_.wrapStyle == 2 && !values_.noExtraIndent) indent += values_.wrapIndent;
    if (settings.convertMode == 0) return indent;
    stream.setIndent(std::move(indent));
    stream << '|';
    std::string line = stream.takeStr();
    line.pop_back();
    return line;
}

std::string LaidText::frontOf(std::size_t token) const {
    const auto front = fronts_.find(token);
    return front == fronts_.end() ? "\n" : front->second;
}

std::string LaidText::gapText(std::size_t token) const {
    const Gap& gap = gaps_[token];
    return gap.isBroken ? frontOf(token) + indentText(gap.continuation) : std::string(sourcePiece(beforeGap(token)));
}

std::string LaidText::pieceText(std::size_t piece) const {
    return piece < lastPiece() && isGap(piece) ? gapText(piece / 2) : std::string(sourcePiece(piece));
}

std::string LaidText::text() const {
    std::string result;
    std::size_t copied = 0;
    for (std::size_t token = 0; token < gaps_.size(); ++token) {
        if (!gaps_[token].isBroken) continue;
        result += lexed_.text().substr(copied, gapBegin(token) - copied);
        copied = lexed_[token].begin;
        const auto width = static_cast<std::size_t>(indentTextWidth(gaps_[token].continuation));
        checkGrowth(result.size() + width, lexed_.text().size());
        result += gapText(token);
    }
    result += lexed_.text().substr(copied);
    return result;
}

}  // namespace Brevis
