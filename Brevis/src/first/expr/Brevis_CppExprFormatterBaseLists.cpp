// The two list passes. Both walk the tokens of a text once and rewrite the white space round each separator that
// stands outside all brackets; they differ in how much is read at a time and in whether items line up.
#include <array>

#include "first/expr/Brevis_CppExprFormatterBase.h"
#include "first/text/Brevis_FirstCharacter.h"
#include "first/text/Brevis_TokenReader.h"

namespace Brevis {

namespace {

namespace Kind = Trn::Kind;

// Depth counters for the four kinds of brackets. A stray closing bracket takes its counter below 0, and then nothing
// behind it stands at depth zero.
class BracketDepth {
public:
    // Counts an open or close token; false for any other.
    bool count(Trn::TokenKind kind) {
        switch (kind) {
            case Kind::OpenParen:
                return step(0, 1);
            case Kind::CloseParen:
                return step(0, -1);
            case Kind::OpenBrace:
                return step(1, 1);
            case Kind::CloseBrace:
                return step(1, -1);
            case Kind::OpenBracket:
                return step(2, 1);
            case Kind::CloseBracket:
                return step(2, -1);
            case Kind::Less:
                return step(3, 1);
            case Kind::Greater:
                return step(3, -1);
            default:
                return false;
        }
    }
    bool isZero() const { return depth_ == std::array<int, 4>{}; }

private:
    bool step(std::size_t bracket, int by) {
        depth_[bracket] += by;
        return true;
    }

    std::array<int, 4> depth_{};
};

// Whether a pass over the text could find anything to do: a separator or a directive.
bool holdsWork(std::string_view text, Trn::TokenKind separator) {
    constexpr std::size_t npos = std::string_view::npos;
    return separator != Kind::Comma || text.find(',') != npos || text.find('#') != npos;
}

}  // namespace

// One run over one text: the token walk, the input cursor behind it and the scratch stream.
class CppExprFormatterBase::ListPass {
public:
    ListPass(const CppExprFormatterBase& writers, std::string_view text, Trn::TokenKind separator,
             const WsProperty& wsBefore, const WsProperty& wsAfter, const IndentStreamSettings& settings)
        : writers_(writers),
          separator_(separator),
          wsBefore_(wsBefore),
          wsAfter_(wsAfter),
          reader_(text, writers.dialect()),
          in_(text, settings.tabSize),
          out_(settings) {}

    std::string around() {
        while (advance()) {
            if (isSeparator())
                writeSeparatorAround();
            else if (!isBracket_)
                copyThrough(in_, out_, reader_.current().last());
        }
        return finish();
    }

    std::string separated() {
        column_ = indentWidth(out_);
        while (advance()) {
            if (isSeparator()) writeItemAndSeparator();
        }
        return finish();
    }

private:
    bool advance() {
        if (!reader_.more()) return false;
        reader_.advance();
        isBracket_ = depth_.count(reader_.current().kind());
        return true;
    }

    bool isSeparator() const { return !isBracket_ && reader_.current().kind() == separator_ && depth_.isZero(); }
    bool breaksAfter() const { return wsAfter_.holdsLineFeed(); }
    // A directive starts a line, whatever the value is.
    std::string_view wsBeforeDirective() const { return breaksAfter() ? std::string_view(wsAfter_.text) : "\n"; }

    void writeSeparatorAround();
    void writeItemAndSeparator();
    std::string readSeparator();
    void writeAligned(std::string_view separator);
    void writeNext();
    void writeNextMultiLine();
    std::string finish();

    const CppExprFormatterBase& writers_;
    Trn::TokenKind separator_;
    const WsProperty& wsBefore_;
    const WsProperty& wsAfter_;
    TokenReader reader_;
    ITextDocStream in_;
    OIndentStream out_;
    BracketDepth depth_;
    bool isBracket_ = false;  // the current token has moved a counter

    // Of `separated`: the column of the first item's first character
    int column_ = 0;
    bool isFirst_ = true;
};

std::string CppExprFormatterBase::formatAround(std::string_view text, Trn::TokenKind kind, const WsProperty& wsBefore,
                                               const WsProperty& wsAfter, const IndentStreamSettings& settings) const {
    if (!holdsWork(text, kind)) return writeOrdinary(text, settings);
    return ListPass(*this, text, kind, wsBefore, wsAfter, settings).around();
}

std::string CppExprFormatterBase::formatSeparated(std::string_view text, Trn::TokenKind kind,
                                                  const WsProperty& wsBefore, const WsProperty& wsAfter,
                                                  const IndentStreamSettings& settings) const {
    if (!holdsWork(text, kind)) return writeOrdinary(text, settings);
    return ListPass(*this, text, kind, wsBefore, wsAfter, settings).separated();
}

// ---- Around

void CppExprFormatterBase::ListPass::writeSeparatorAround() {
    if (wsBefore_.isSet) {
        std::string gap(readBefore(in_, reader_.current().first()));
        trimGapTrailing(gap);
        out_ << gap;
        writeWsVerbatim(out_, wsBefore_.text);
    }
    copyThrough(in_, out_, reader_.current().last());
    if (!wsAfter_.isSet) return;

    const Trn::Token& next = reader_.next();
    switch (next.kind()) {
        case Kind::EndOfInput:
            out_ << trimmedRight(remainderOf(in_));
            writeWsVerbatim(out_, wsAfter_.text);
            break;
        case Kind::LineComment:  // it stays on the separator's line
            copyThrough(in_, out_, next.last());
            break;
        case Kind::BlockComment:
            out_ << readBefore(in_, next.first());
            writeNextMultiLine();
            break;
        case Kind::Directive:
            out_ << trimmedRight(readBefore(in_, next.first()));
            writeWsVerbatim(out_, wsBeforeDirective());
            writeNextMultiLine();
            break;
        default:
            out_ << trimmedRight(readBefore(in_, next.first()));
            writeWsVerbatim(out_, wsAfter_.text);
            copyThrough(in_, out_, next.last());
            break;
    }
}

// ---- Separated

void CppExprFormatterBase::ListPass::writeItemAndSeparator() {
    std::string gap(readBefore(in_, reader_.current().first()));
    if (wsBefore_.isSet) trimGapTrailing(gap);
    std::string_view rest = gap;
    // The other items line up under the first one's first character.
    if (isFirst_ && !gap.empty()) column_ = writeFirstCharacter(out_, rest);
    isFirst_ = false;
    out_ << rest;

    const std::string separator = readSeparator();
    if (wsBefore_.holdsLineFeed() || breaksAfter()) {
        writeAligned(separator);
    } else {
        writeWs(out_, wsBefore_.text);
        out_ << separator;
        if (reader_.next().kind() == Kind::Directive)
            writeNextMultiLine();
        else
            writeNext();
    }
}

// The separator and the gap behind it, with the value at its end.
std::string CppExprFormatterBase::ListPass::readSeparator() {
    const Trn::TokenKind next = reader_.next().kind();
    std::string separator(next == Kind::EndOfInput ? remainderOf(in_) : readBefore(in_, reader_.next().first()));
    if (wsAfter_.isSet && next != Kind::LineComment) {
        trimRight(separator);
        appendWs(separator, next == Kind::Directive ? wsBeforeDirective() : wsAfter_.text);
    }
    return separator;
}

// Writes the values and the next token so that the text behind the separator lands in the items' column.
void CppExprFormatterBase::ListPass::writeAligned(std::string_view separator) {
    int target = column_;
    if (wsBefore_.holdsLineFeed()) {
        std::string line = wsBefore_.text.substr(wsBefore_.text.rfind('\n') + 1);
        line += separator;
        target = columnBefore(line, column_, writers_.scheme_.tabSize);
    }
    const LeadingWsGuard keep(out_, true);
    const IndentStringGuard indent(out_, indentStringFor(out_, target));
    writeWs(out_, wsBefore_.text);
    out_ << separator;
    const Trn::TokenKind next = reader_.next().kind();
    if (next == Kind::Directive || next == Kind::BlockComment)
        writeNextMultiLine();
    else
        writeNext();
}

void CppExprFormatterBase::ListPass::writeNext() {
    if (reader_.more()) out_ << readThrough(in_, reader_.next().last());
}

// ---- Both

// The next token, a comment or a directive, over a small cursor of its own that stands in front of it.
void CppExprFormatterBase::ListPass::writeNextMultiLine() {
    const Trn::Token& next = reader_.next();
    const Position first = next.first();
    ITextDocStream small(readThrough(in_, next.last()), in_.tabSize(), {first.line, first.column - 1});
    if (next.kind() == Kind::Directive)
        writers_.writeDirective(first, next.last(), small, out_);
    else
        writers_.writeMultiLine(first, next.last(), small, out_);
    out_ << remainderOf(small);
}

// Writes what stands behind the last separator, its directives by their own rule.
std::string CppExprFormatterBase::ListPass::finish() {
    const std::string_view tail = remainderOf(in_);
    if (tail.find('#') == std::string_view::npos) {
        out_ << tail;
        return out_.takeStr();
    }
    ITextDocStream cursor(tail, in_.tabSize());
    TokenReader tokens(tail, writers_.dialect());
    while (tokens.more()) {
        tokens.advance();
        const Trn::Token& token = tokens.current();
        if (token.kind() != Kind::Directive) continue;
        copyBefore(cursor, out_, token.first());
        writers_.writeDirective(token.first(), token.last(), cursor, out_);
    }
    out_ << remainderOf(cursor);
    return out_.takeStr();
}

}  // namespace Brevis
