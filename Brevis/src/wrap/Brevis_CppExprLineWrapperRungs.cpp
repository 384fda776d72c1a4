// The ladder of the expression line wrapper: the rungs, the filling of lines, and the writers of broken lines.
#include <algorithm>
#include <optional>

#include "text/Brevis_TokenReader.h"
#include "wrap/Brevis_ColumnFold.h"
#include "wrap/Brevis_CppExprLineWrapper.h"
#include "wrap/Brevis_FindFirstBinaryOp.h"
#include "wrap/Brevis_FindFirstCast.h"
#include "wrap/Brevis_FindFirstElem.h"
#include "wrap/Brevis_FindFirstOldCast.h"

namespace Brevis {

using namespace Trn::Kind;
using Piece = PieceReader::Piece;

namespace {

// Cuts the white space at the end of `text` off and gives it back.
std::string_view splitTrailingWs(std::string_view& text) {
    const std::size_t length = trimmedRight(text).size();
    const std::string_view tail = text.substr(length);
    text = text.substr(0, length);
    return tail;
}

// Cuts the text up to the second token off and gives it back: a separator with the gap behind it.
std::string_view cutLead(std::string_view& unit) {
    TokenReader reader(unit);
    reader.advance();
    std::size_t length = unit.size();
    if (reader.more()) {
        ITextDocStream in(unit);
        length = readBefore(in, reader.next().first()).size();
    }
    const std::string_view lead = unit.substr(0, length);
    unit.remove_prefix(length);
    return lead;
}

}  // namespace

std::string CppExprLineWrapper::wrapAtBreaks(std::string text, const WrapPlace& place) const {
    if (!overflows(text, place)) return text;
    FindFirstElem commaFinder(WrapTokens::commaOp);
    text = breakAll(text, place, commaFinder, commaWrapStyle_ == 2);
    if (overflows(text, place)) text = wrapShifts(text, place);
    if (overflows(text, place)) {
        FindFirstElem logicalFinder(WrapTokens::logicalOps);
        text = breakAll(text, place, logicalFinder, scheme().exprWrapStyle == 2);
    }
    if (overflows(text, place)) {
        FindFirstBinaryOp binaryFinder;
        text = breakAll(text, place, binaryFinder, scheme().exprWrapStyle == 2);
    }
    if (overflows(text, place)) {
        FindFirstCast castFinder;
        text = breakAll(text, place, castFinder, true);
        FindFirstOldCast oldCastFinder;
        text = breakAll(text, place, oldCastFinder, true);
    }
    return text;
}

std::string CppExprLineWrapper::breakAll(const std::string& text, const WrapPlace& place, FirstWrapToken& finder,
                                         bool breakAfter) const {
    if (!scheme().lineWrap || scheme().rightMargin < 1) return text;
    const LexedText lexed(text);
    PieceReader rest(lexed, finder);
    WrapStream out(place);
    if (breakAfter) {
        breakBehind(rest, finder, out);
    } else {
        breakInFront(rest, out);
    }
    return out.takeText();
}

// Pieces end at a separator.
void CppExprLineWrapper::breakBehind(PieceReader& rest, FirstWrapToken& finder, WrapStream& out) const {
    int column = out.indentWidth();
    bool isFirst = true;
    while (!rest.empty()) {
        std::string_view piece = rest.cut(rest.textThrough()).text;
        TokenReader reader(piece);
        reader.advance();
        const bool needsBreak = writeLeadingTrivia(out, reader, piece);
        // Two separators in a row don't give an empty line.
        if (reader.more() && finder.isWrapToken(reader.current().kind())) {
            out.raw(piece);
        } else if (isFirst) {
            isFirst = false;
            if (scheme().wrapStyle == 1) column = out.writeFirstChar(piece);
            out.raw(piece);
        } else {
            if (needsBreak) out.lineFeed();
            writeContinuation(out, trimmedLeft(piece), column, true);
        }
    }
}

// Pieces begin at a separator; the white space in front of it goes.
void CppExprLineWrapper::breakInFront(PieceReader& rest, WrapStream& out) const {
    int column = out.indentWidth();
    std::string_view piece = rest.cut(rest.textBefore()).text;
    std::string_view tail = splitTrailingWs(piece);
    if (scheme().wrapStyle == 1) column = out.writeFirstChar(piece);
    out.raw(piece);
    while (!rest.empty()) {
        Piece unit = rest.cut(rest.textThrough());
        Piece next = rest.textBefore();
        if (next.tokenCount == 0) {
            // The separator is followed at once by another: the two stay together.
            unit.append(rest.cut(next));
            unit.append(rest.cut(rest.textThrough()));
            next = rest.textBefore();
        }
        unit.append(rest.cut(next));
        std::string_view text = trimmedLeft(unit.text);
        tail = splitTrailingWs(text);
        const std::string_view lead = cutLead(text);
        out.lineFeed();
        writeContinuation(out, lead, column, false);
        out.raw(text);
    }
    out.raw(tail);
}

// The rung for `<<` and `>>` breaks only where a further operand doesn't fit.
std::string CppExprLineWrapper::wrapShifts(const std::string& text, const WrapPlace& place) const {
    if (scheme().shiftWrapStyle == 0) return text;
    FindFirstElem shiftFinder(WrapTokens::shiftOps);
    const LexedText lexed(text);
    PieceReader rest(lexed, shiftFinder);
    WrapStream out(place);
    std::string_view head = rest.cut(rest.textBefore()).text;
    const int column = out.writeFirstChar(head);
    out.raw(head);
    if (scheme().shiftWrapStyle == 1) {
        wrapInFrontOfShifts(rest, column, out);
    } else {
        wrapBehindShifts(rest, place, column, out);
    }
    return out.takeText();
}

void CppExprLineWrapper::wrapInFrontOfShifts(PieceReader& rest, int column, WrapStream& out) const {
    std::string_view op = rest.cut(rest.textThrough()).text;
    std::string_view next = rest.cut(rest.textBefore()).text;
    std::string_view tail = splitTrailingWs(next);
    // Later operators stand under this one.
    if (scheme().wrapStyle == 1) column = out.writeFirstChar(op);
    out.raw(op);
    out.raw(next);
    while (!rest.empty()) {
        Piece piece = rest.cut(rest.textThrough());
        piece.append(rest.cut(rest.textBefore()));
        std::string_view unit = piece.text;
        leadingLineTokens(out, unit);
        if (overflows(unit, out)) {
            unit = trimmedLeft(unit);
            tail = splitTrailingWs(unit);
            if (out.column() != 0) out.lineFeed();
            writeContinuation(out, unit, column, true);
        } else {
            out.raw(tail);
            tail = splitTrailingWs(unit);
            out.raw(unit);
        }
    }
    out.raw(tail);
}

void CppExprLineWrapper::wrapBehindShifts(PieceReader& rest, const WrapPlace& place, int column,
                                          WrapStream& out) const {
    Piece op = rest.cut(rest.textThrough());
    const Piece next = rest.cut(rest.textBefore());
    const std::string_view tail = splitTrailingWs(op.text);
    if (scheme().wrapStyle == 1) column = out.writeFirstChar(op.text);
    out.raw(op.text);
    // The second operand is measured from where the whole text began.
    if (overflows(std::string(tail) + std::string(next.text), place)) {
        out.lineFeed();
        writeContinuation(out, trimmedLeft(next.text), column, false);
    } else {
        out.raw(tail);
        out.raw(next.text);
    }
    while (!rest.empty()) {
        std::string_view unit = rest.cut(rest.textThrough()).text;
        leadingLineTokens(out, unit);
        if (overflows(unit, out)) {
            if (out.column() != 0) out.lineFeed();
            writeContinuation(out, trimmedLeft(unit), column, true);
        } else {
            out.raw(unit);
        }
    }
}

std::string CppExprLineWrapper::wrapFill(std::string text, const WrapPlace& place) const {
    if (!overflows(text, place)) return text;
    FindFirstElem commaFinder(WrapTokens::commaOp);
    return fillLines(text, place, commaFinder);
}

// Puts as many elements on a line as fit.
std::string CppExprLineWrapper::fillLines(const std::string& text, const WrapPlace& place,
                                          FirstWrapToken& finder) const {
    if (!scheme().lineWrap || scheme().rightMargin < 1 || commaWrapStyle_ == 0) return text;
    const LexedText lexed(text);
    PieceReader rest(lexed, finder);
    WrapStream out(place);
    if (commaWrapStyle_ == 2) {
        fillBehind(rest, out);
    } else {
        fillInFront(rest, out);
    }
    return out.takeText();
}

void CppExprLineWrapper::fillBehind(PieceReader& rest, WrapStream& out) const {
    int column = out.indentWidth();
    std::string_view first = rest.cut(rest.textThrough()).text;
    if (scheme().wrapStyle == 1) column = out.writeFirstChar(first);
    out.raw(first);
    while (!rest.empty()) {
        std::string_view unit = rest.cut(rest.textThrough()).text;
        leadingLineTokens(out, unit);
        if (overflows(unit, out)) {
            if (out.column() > 0) out.lineFeed();
            writeContinuation(out, trimmedLeft(unit), column, true);
        } else {
            out.raw(unit);
        }
    }
}

void CppExprLineWrapper::fillInFront(PieceReader& rest, WrapStream& out) const {
    int column = out.indentWidth();
    std::string_view first = rest.cut(rest.textBefore()).text;
    std::string_view tail = splitTrailingWs(first);
    if (scheme().wrapStyle == 1) column = out.writeFirstChar(first);
    out.raw(first);
    while (!rest.empty()) {
        Piece piece = rest.cut(rest.textThrough());
        piece.append(rest.cut(rest.textBefore()));
        std::string_view unit = piece.text;
        leadingLineTokens(out, unit);
        if (overflows(std::string(tail) + std::string(unit), out)) {
            unit = trimmedLeft(unit);
            tail = splitTrailingWs(unit);
            const std::string_view lead = cutLead(unit);
            if (out.column() > 0) out.lineFeed();
            writeContinuation(out, lead, column, false);
            out.stream() << unit;
        } else {
            out.raw(tail);
            tail = splitTrailingWs(unit);
            out.raw(unit);
        }
    }
    out.raw(tail);
}

void CppExprLineWrapper::writeContinuation(WrapStream& out, std::string_view text, int column, bool breakAfter) const {
    const std::string_view first = text.substr(0, text.find('\n'));
    const std::string_view more = text.substr(first.size());
    if (scheme().wrapStyle == 0) {
        out.raw(text);
        return;
    }
    const bool aligns = scheme().wrapStyle == 1;
    // A separator hangs to the left, so that the operand behind it stands at the column.
    if (aligns && !breakAfter) {
        const int target = columnBefore(first, column, out.tabSize());
        if (out.fold() != nullptr) out.fold()->noteMove(column, target);
        column = target;
    }
    OIndentStream& stream = out.stream();
    std::string indent = indentStringFor(stream, column);
    if (!aligns && !noExtraIndent_) indent += scheme().wrapIndent.text;
    {
        const LeadingWsGuard keep(stream, aligns);
        const IndentStringGuard under(stream, std::move(indent));
        stream << first;
    }
    out.raw(more);
}

bool CppExprLineWrapper::writeLeadingTrivia(WrapStream& out, const TokenReader& reader, std::string_view& piece) const {
    const Trn::Token& token = reader.current();
    if (!reader.more() || !Trn::isTrivia(token.kind())) return true;
    ITextDocStream in(piece);
    if (token.kind() == LineComment) {
        out.raw(readThrough(in, token.last()));
    } else if (token.kind() == BlockComment) {
        writeMultiLine(token.first(), token.last(), in, out.stream());
    } else {
        out.lineFeed();
        writeDirective(token.first(), token.last(), in, out.stream());
    }
    piece = remainderOf(in);
    return !Trn::isLineToken(token.kind());
}

void CppExprLineWrapper::leadingLineTokens(WrapStream& out, std::string_view& unit) const {
    TokenReader reader(unit);
    reader.advance();
    const Trn::Token& token = reader.current();
    if (!reader.more() || !Trn::isLineToken(token.kind())) return;
    ITextDocStream in(unit);
    if (token.kind() == LineComment) {
        // The line feed of the comment stays at the front of the unit.
        out.raw(readBefore(in, token.last()));
    } else {
        out.raw(readBefore(in, token.first()));
        out.lineFeed();
        writeDirective(token.first(), token.last(), in, out.stream());
    }
    unit = remainderOf(in);
}

std::string CppExprLineWrapper::alignStrings(std::string text, const IndentStreamSettings& settings) const {
    const bool mayHoldPair = std::count(text.begin(), text.end(), '"') > 2;
    if (!mayHoldPair) return rewritten(std::move(text), settings);
    const LexedText lexed(text);
    const std::string_view all = text;
    WrapStream out{WrapPlace(settings)};
    std::optional<int> column;  // taken at the first pair, it serves every later one
    std::size_t copied = 0;
    for (std::size_t i = 0; lexed.isWalked(i); ++i) {
        if (lexed[i].kind != StringLiteral || lexed[i + 1].kind != StringLiteral) continue;
        if (!column) {
            out.raw(all.substr(0, lexed[i].begin));
            std::string_view literal = all.substr(lexed[i].begin, lexed[i].end - lexed[i].begin);
            column = out.writeFirstChar(literal);
            out.raw(literal);
        } else {
            out.raw(all.substr(copied, lexed[i].end - copied));
        }
        // Without the last character of the next literal, which the next copy carries.
        copied = lexed[i + 1].end - 1;
        const std::string_view next = trimmedLeft(all.substr(lexed[i].end, copied - lexed[i].end));
        OIndentStream& stream = out.stream();
        const LeadingWsGuard keep(stream, true);
        const IndentStringGuard under(stream, indentStringFor(stream, *column));
        stream << '\n' << next;
    }
    out.raw(all.substr(copied));
    return out.takeText();
}

std::string CppExprLineWrapper::placeDirectives(std::string text, const IndentStreamSettings& settings) const {
    const bool mayHoldDirective = text.find('#') != std::string::npos;
    if (!mayHoldDirective) return rewritten(std::move(text), settings);
    TokenReader reader(text);
    ITextDocStream in(text);
    WrapStream out{WrapPlace(settings)};
    for (reader.advance(); reader.more(); reader.advance()) {
        const Trn::Token& token = reader.current();
        if (token.kind() != Directive) continue;
        out.raw(trimmedRight(readBefore(in, token.first())));
        out.lineFeed();
        writeDirective(token.first(), token.last(), in, out.stream());
    }
    out.raw(remainderOf(in));
    return out.takeText();
}

// The text as a stream at that place writes it: the convert mode has acted on it.
std::string CppExprLineWrapper::rewritten(std::string text, const IndentStreamSettings& settings) const {
    if (settings.convertMode != 1 && settings.convertMode != 2) return text;
    WrapStream out{WrapPlace(settings)};
    out.raw(text);
    return out.takeText();
}

}  // namespace Brevis
