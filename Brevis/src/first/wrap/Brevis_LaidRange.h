// A part of a laid text for the ladder. A rung costs no more than the separators that it finds.
#pragma once

#include <optional>

#include "first/wrap/Brevis_FirstWrapToken.h"
#include "first/wrap/Brevis_LaidText.h"

namespace Brevis {

class LaidRange {
public:
    class Pass;
    struct Piece {
        // `next` must stand right behind this piece.
        void append(const Piece& next) {
            end = next.end;
            tokenCount += next.tokenCount;
        }

        LaidText::Boundary begin = 0;
        LaidText::Boundary end = 0;
        std::size_t tokenCount = 0;
        std::size_t firstToken = 0;
        Trn::TokenKind firstKind = Trn::Kind::EndOfInput;
    };

    // The part begins at `column`, its continuation lines under an indent that reaches `indentColumn`, if any. `laid`
    // must outlive the range.
    LaidRange(LaidText& laid, const LaidText::Part& part, int column, std::optional<int> indentColumn)
        : laid_(laid), part_(part), column_(column), indentColumn_(indentColumn) {}

    bool overflows() const { return laid_.overflows(part_.begin, part_.end, column_); }
    bool overflows(const Piece& piece) const { return laid_.overflows(piece.begin, piece.end, column_); }

private:
    LaidText& laid_;
    LaidText::Part part_;
    int column_;
    std::optional<int> indentColumn_;
};

// Passes over the pieces of a part in order and breaks lines in front of some of them. The operations are those of
// StreamedText::Pass.
class LaidRange::Pass {
public:
    using Piece = LaidRange::Piece;

    // `finder` must outlive the pass.
    Pass(LaidRange& range, FirstWrapToken& finder);
    void finish() {}

    bool atEnd() const { return rest_ == part_.end; }
    Piece cutThrough() { return cut(true); }
    Piece cutBefore() { return cut(false); }

    void trimLeft(Piece& piece) const;
    Piece splitTrailingWs(Piece& piece) const;
    static Piece cutLead(Piece& unit);

    int indentWidth() const;
    int column() const { return columnAt(at_); }
    bool overflows(const Piece& piece) const { return laid_.overflows(piece.begin, piece.end, column()); }
    int columnInFront(const Piece& piece, int column) const {
        return laid_.columnInFront(piece.begin, piece.end, column);
    }

    void write(const Piece& piece);
    int writeFirstChar(const Piece& piece) const;
    void lineFeed() { hasLineFeed_ = true; }
    void writeContinuation(const Piece& piece, int column);
    bool writeLeadingTrivia(Piece& piece);
    void writeLeadingLineToken(Piece& unit);

private:
    using Boundary = LaidText::Boundary;

    Piece cut(bool through);
    void writeFirstToken(Piece& piece);
    int columnAt(Boundary boundary) const { return laid_.columnBehind(part_.begin, boundary, range_.column_); }

    LaidRange& range_;
    LaidText& laid_;
    const LaidText::Part& part_;
    FirstWrapToken& finder_;
    Boundary at_;        // behind what has been written
    Boundary rest_;      // in front of what has not been cut off
    std::size_t token_;  // the first token of the rest
    bool hasLineFeed_ = false;
};

}  // namespace Brevis
