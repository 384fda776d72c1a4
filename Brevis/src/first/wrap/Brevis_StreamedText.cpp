#include "first/wrap/Brevis_StreamedText.h"

#include "first/text/Brevis_TokenReader.h"
#include "first/wrap/Brevis_ColumnFold.h"

namespace Brevis {

using namespace Trn::Kind;
using Pass = StreamedText::Pass;
using Piece = Pass::Piece;

Pass::Pass(StreamedText& text, FirstWrapToken& finder)
    : text_(text), lexed_(text.text_, text.tools_.writers.dialect()), rest_(lexed_, finder), out_(text.place_) {}

void Pass::trimLeft(Piece& piece) { piece.text = trimmedLeft(piece.text); }

Piece Pass::splitTrailingWs(Piece& piece) {
    const std::size_t length = trimmedRight(piece.text).size();
    const Piece tail{piece.text.substr(length)};
    piece.text = piece.text.substr(0, length);
    return tail;
}

Piece Pass::cutLead(Piece& unit) const {
    TokenReader reader(unit.text, text_.tools_.writers.dialect());
    reader.advance();
    Piece lead = unit;
    if (reader.more()) {
        ITextDocStream in(unit.text);
        lead.text = readBefore(in, reader.next().first());
    }
    unit.text.remove_prefix(lead.text.size());
    return lead;
}

bool Pass::overflows(std::string_view text) const {
    return Brevis::overflows(text, out_.column(), out_.tabSize(), text_.tools_.values.rightMargin);
}

int Pass::columnInFront(const Piece& piece, int column) {
    const std::string_view line = piece.text.substr(0, piece.text.find('\n'));
    const int target = columnBefore(line, column, out_.tabSize());
    if (out_.fold() != nullptr) out_.fold()->noteMove(column, target);
    return target;
}

void Pass::writeContinuation(const Piece& piece, int column) {
    const WrapValues& values = text_.tools_.values;
    if (values.wrapStyle == 0) return out_.raw(piece.text);
    const std::string_view first = piece.text.substr(0, piece.text.find('\n'));
    const bool aligns = values.wrapStyle == 1;
    OIndentStream& stream = out_.stream();
    std::string indent = indentStringFor(stream, column);
    if (!aligns && !values.noExtraIndent) indent += values.wrapIndent;
    {
        const LeadingWsGuard keep(stream, aligns);
        const IndentStringGuard under(stream, std::move(indent));
        stream << first;
    }
    out_.raw(piece.text.substr(first.size()));
}

bool Pass::writeLeadingTrivia(Piece& piece) {
    if (piece.tokenCount < 2 || !Trn::isTrivia(piece.firstKind)) return true;
    TokenReader reader(piece.text, text_.tools_.writers.dialect());
    reader.advance();
    const Trn::Token& token = reader.current();
    ITextDocStream in(piece.text);
    if (token.kind() == LineComment) {
        out_.raw(readThrough(in, token.last()));
    } else if (token.kind() == BlockComment) {
        text_.tools_.writers.writeMultiLine(token.first(), token.last(), in, out_.stream());
    } else {
        out_.lineFeed();
        text_.tools_.writers.writeDirective(token.first(), token.last(), in, out_.stream());
    }
    piece.text = remainderOf(in);
    return !Trn::isLineToken(token.kind());
}

void Pass::writeLeadingLineToken(Piece& unit) {
    if (unit.tokenCount < 2 || !Trn::isLineToken(unit.firstKind)) return;
    TokenReader reader(unit.text, text_.tools_.writers.dialect());
    reader.advance();
    const Trn::Token& token = reader.current();
    ITextDocStream in(unit.text);
    if (token.kind() == LineComment) {
        // The line feed of the comment stays at the front of the unit.
        out_.raw(readBefore(in, token.last()));
    } else {
        out_.raw(readBefore(in, token.first()));
        out_.lineFeed();
        text_.tools_.writers.writeDirective(token.first(), token.last(), in, out_.stream());
    }
    unit.text = remainderOf(in);
}

}  // namespace Brevis
