// The filling of lines with the elements of a list, and the two things that every text undergoes: adjacent string
// literals and directives get lines of their own.
#include <algorithm>
#include <optional>

#include "first/text/Brevis_TokenReader.h"
#include "first/wrap/Brevis_CppExprLineWrapper.h"
#include "first/wrap/Brevis_FindFirstElem.h"

namespace Brevis {

using namespace Trn::Kind;
using Pass = StreamedText::Pass;
using Piece = Pass::Piece;

// Puts as many elements on a line as fit.
std::string CppExprLineWrapper::fillLines(std::string text, const WrapPlace& place) const {
    if (values_.rightMargin < 1 || values_.commaWrapStyle == 0) return text;
    StreamedText filled(std::move(text), place, tools());
    if (!filled.overflows()) return filled.take();
    FindFirstElem commaFinder(WrapTokens::commaOp);
    Pass pass(filled, commaFinder);
    if (values_.commaWrapStyle == 2) {
        fillBehind(pass);
    } else {
        fillInFront(pass);
    }
    pass.finish();
    return filled.take();
}

void CppExprLineWrapper::fillBehind(Pass& pass) const {
    int column = pass.indentWidth();
    Piece first = pass.cutThrough();
    if (values_.wrapStyle == 1) column = pass.writeFirstChar(first);
    pass.write(first);
    while (!pass.atEnd()) {
        Piece unit = pass.cutThrough();
        pass.writeLeadingLineToken(unit);
        if (pass.overflows(unit)) {
            if (pass.column() > 0) pass.lineFeed();
            pass.trimLeft(unit);
            pass.writeContinuation(unit, column);
        } else {
            pass.write(unit);
        }
    }
}

void CppExprLineWrapper::fillInFront(Pass& pass) const {
    int column = pass.indentWidth();
    Piece first = pass.cutBefore();
    Piece tail = pass.splitTrailingWs(first);
    if (values_.wrapStyle == 1) column = pass.writeFirstChar(first);
    pass.write(first);
    while (!pass.atEnd()) {
        Piece unit = pass.cutThrough();
        unit.append(pass.cutBefore());
        pass.writeLeadingLineToken(unit);
        if (pass.overflows(tail, unit)) {
            pass.trimLeft(unit);
            tail = pass.splitTrailingWs(unit);
            const Piece lead = pass.cutLead(unit);
            if (pass.column() > 0) pass.lineFeed();
            // The comma hangs to the left, so that the element behind it stands at the column.
            pass.writeContinuation(lead, values_.wrapStyle == 1 ? pass.columnInFront(lead, column) : column);
            pass.stream() << unit.text;
        } else {
            pass.write(tail);
            tail = pass.splitTrailingWs(unit);
            pass.write(unit);
        }
    }
    pass.write(tail);
}

std::string CppExprLineWrapper::alignStrings(std::string text, const IndentStreamSettings& settings) const {
    const bool mayHoldPair = std::count(text.begin(), text.end(), '"') > 2;
    if (!mayHoldPair) return rewritten(std::move(text), settings);
    const LexedText lexed(text, dialect());
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
    TokenReader reader(text, dialect());
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
    if (isPlainText(text, settings)) return text;
    WrapStream out{WrapPlace(settings)};
    out.raw(text);
    return out.takeText();
}

}  // namespace Brevis
