#include "first/wrap/Brevis_LaidRange.h"

namespace Brevis {

LaidRange::Pass::Pass(LaidRange& range, FirstWrapToken& finder)
    : range_(range),
      laid_(range.laid_),
      part_(range.part_),
      finder_(finder),
      at_(part_.begin),
      rest_(part_.begin),
      token_(part_.firstToken) {}

LaidRange::Piece LaidRange::Pass::cut(bool through) {
    const std::size_t separator = finder_.find(laid_.lexed(), token_, part_.endToken);
    const bool isFound = separator < part_.endToken;
    Piece piece{rest_, part_.end, part_.endToken - token_, token_, laid_.lexed()[token_].kind};
    if (isFound) {
        piece.end = through ? LaidText::beforeGap(separator + 1) : LaidText::beforeToken(separator);
        piece.tokenCount = separator - token_ + (through ? 1 : 0);
    }
    rest_ = piece.end;
    token_ += piece.tokenCount;
    return piece;
}

void LaidRange::Pass::trimLeft(Piece& piece) const {
    if (piece.begin < piece.end && laid_.isGap(piece.begin)) ++piece.begin;
}

LaidRange::Piece LaidRange::Pass::splitTrailingWs(Piece& piece) const {
    const Boundary end = piece.end;
    if (piece.begin < end && laid_.isGap(end - 1)) --piece.end;
    return {.begin = piece.end, .end = end};
}

LaidRange::Piece LaidRange::Pass::cutLead(Piece& unit) {
    Piece lead = unit;
    if (unit.tokenCount > 1) lead.end = LaidText::beforeToken(unit.firstToken + 1);
    unit.begin = lead.end;
    return lead;
}

int LaidRange::Pass::indentWidth() const {
    return range_.indentColumn_ ? std::max(0, *range_.indentColumn_) : laid_.indentWidth();
}

void LaidRange::Pass::write(const Piece& piece) {
    if (piece.begin < piece.end) at_ = piece.end;
}

int LaidRange::Pass::writeFirstChar(const Piece& piece) const {
    return piece.tokenCount == 0 ? 0 : columnAt(LaidText::beforeToken(piece.firstToken));
}

void LaidRange::Pass::writeContinuation(const Piece& piece, int column) {
    const LaidText::Continuation continuation{column, range_.indentColumn_};
    const bool keepsGap = at_ == LaidText::beforeToken(piece.firstToken);
    if (keepsGap) {
        laid_.breakLineBehindGap(piece.firstToken, hasLineFeed_, continuation);
    } else {
        laid_.breakLine(piece.firstToken, continuation);
    }
    hasLineFeed_ = false;
    at_ = piece.end;
}

bool LaidRange::Pass::writeLeadingTrivia(Piece& piece) {
    if (piece.tokenCount < 2 || !Trn::isComment(piece.firstKind)) return true;
    const bool endsLine = piece.firstKind == Trn::Kind::LineComment;
    // At the start of a line the comment would be indented anew.
    if (!endsLine && (laid_.gapBreaksLine(piece.firstToken) || column() == 0)) laid_.giveUp();
    writeFirstToken(piece);
    return !endsLine;
}

void LaidRange::Pass::writeLeadingLineToken(Piece& unit) {
    if (unit.tokenCount > 1 && unit.firstKind == Trn::Kind::LineComment) writeFirstToken(unit);
}

void LaidRange::Pass::writeFirstToken(Piece& piece) {
    piece.begin = at_ = LaidText::beforeGap(++piece.firstToken);
    --piece.tokenCount;
}

}  // namespace Brevis
