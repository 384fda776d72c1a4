// The ladder: a text that is too long is broken at the coarsest separators first: commas, then shift operators, then
// `&&` and `||`, then other binary operators, and last casts. Each rung breaks at every separator of its kind at
// nesting depth zero, and runs only if some line is still too long.
#pragma once

#include <utility>

#include "first/wrap/Brevis_FindFirstBinaryOp.h"
#include "first/wrap/Brevis_FindFirstCast.h"
#include "first/wrap/Brevis_FindFirstElem.h"
#include "first/wrap/Brevis_FindFirstOldCast.h"
#include "first/wrap/Brevis_WrapValues.h"

namespace Brevis {

// `Text` is a text with its place: StreamedText, which is written anew by each rung, or LaidRange, whose gaps alone are
// changed. A rung makes a `Text::Pass`, which takes the text apart at the separators of a finder and writes the pieces
// in order; a piece that is neither written nor put off by the rung is white space that goes.
template <class Text>
class Ladder {
public:
    // Both must outlive the ladder.
    Ladder(const WrapValues& values, Text& text) : values_(values), text_(text) {}

    void climb() {
        if (!text_.overflows()) return;
        breakAll(FindFirstElem(WrapTokens::commaOp), values_.commaWrapStyle == 2);
        if (text_.overflows()) wrapShifts();
        if (text_.overflows()) breakAll(FindFirstElem(WrapTokens::logicalOps), values_.exprWrapStyle == 2);
        if (text_.overflows()) breakAll(FindFirstBinaryOp(), values_.exprWrapStyle == 2);
        if (text_.overflows()) {
            breakAll(FindFirstCast(), true);
            breakAll(FindFirstOldCast(), true);
        }
    }

    // Breaks at every separator that the finder finds.
    template <class Finder>
    void breakAll(Finder finder, bool breakAfter) {
        if (!values_.lineWrap || values_.rightMargin < 1) return;
        Pass pass(text_, finder);
        if (breakAfter) {
            breakBehind(pass, finder);
        } else {
            breakInFront(pass);
        }
        pass.finish();
    }

private:
    using Pass = typename Text::Pass;
    using Piece = typename Pass::Piece;

    // Pieces end at a separator.
    void breakBehind(Pass& pass, const FirstWrapToken& finder) {
        int column = pass.indentWidth();
        bool isFirst = true;
        while (!pass.atEnd()) {
            Piece piece = pass.cutThrough();
            // Two separators in a row don't give an empty line.
            const bool staysOnLine = piece.tokenCount > 1 && finder.isWrapToken(piece.firstKind);
            const bool needsBreak = pass.writeLeadingTrivia(piece);
            if (staysOnLine) {
                pass.write(piece);
            } else if (std::exchange(isFirst, false)) {
                if (values_.wrapStyle == 1) column = pass.writeFirstChar(piece);
                pass.write(piece);
            } else {
                if (needsBreak) pass.lineFeed();
                pass.trimLeft(piece);
                continueLine(pass, piece, column, true);
            }
        }
    }

    // Pieces begin at a separator; the white space in front of it goes.
    void breakInFront(Pass& pass) {
        int column = pass.indentWidth();
        Piece piece = pass.cutBefore();
        Piece tail = pass.splitTrailingWs(piece);
        if (values_.wrapStyle == 1) column = pass.writeFirstChar(piece);
        pass.write(piece);
        while (!pass.atEnd()) {
            Piece unit = pass.cutThrough();
            Piece next = pass.cutBefore();
            if (next.tokenCount == 0) {
                // The separator is followed at once by another: the two stay together.
                unit.append(next);
                unit.append(pass.cutThrough());
                next = pass.cutBefore();
            }
            unit.append(next);
            pass.trimLeft(unit);
            tail = pass.splitTrailingWs(unit);
            const Piece lead = pass.cutLead(unit);
            pass.lineFeed();
            continueLine(pass, lead, column, false);
            pass.write(unit);
        }
        pass.write(tail);
    }

    // The rung for `<<` and `>>` breaks only where a further operand doesn't fit.
    void wrapShifts() {
        if (values_.shiftWrapStyle == 0) return;
        FindFirstElem shiftFinder(WrapTokens::shiftOps);
        Pass pass(text_, shiftFinder);
        Piece head = pass.cutBefore();
        const int column = pass.writeFirstChar(head);
        pass.write(head);
        if (values_.shiftWrapStyle == 1) {
            wrapInFrontOfShifts(pass, column);
        } else {
            wrapBehindShifts(pass, column);
        }
        pass.finish();
    }

    void wrapInFrontOfShifts(Pass& pass, int column) {
        Piece op = pass.cutThrough();
        Piece next = pass.cutBefore();
        Piece tail = pass.splitTrailingWs(next);
        // Later operators stand under this one.
        if (values_.wrapStyle == 1) column = pass.writeFirstChar(op);
        pass.write(op);
        pass.write(next);
        while (!pass.atEnd()) {
            Piece unit = pass.cutThrough();
            unit.append(pass.cutBefore());
            pass.writeLeadingLineToken(unit);
            if (pass.overflows(unit)) {
                pass.trimLeft(unit);
                tail = pass.splitTrailingWs(unit);
                if (pass.column() != 0) pass.lineFeed();
                continueLine(pass, unit, column, true);
            } else {
                pass.write(tail);
                tail = pass.splitTrailingWs(unit);
                pass.write(unit);
            }
        }
        pass.write(tail);
    }

    void wrapBehindShifts(Pass& pass, int column) {
        Piece op = pass.cutThrough();
        Piece next = pass.cutBefore();
        if (values_.wrapStyle == 1) column = pass.writeFirstChar(op);
        pass.write(op);
        // The second operand is measured from where the whole text began.
        if (text_.overflows(next)) {
            pass.lineFeed();
            pass.trimLeft(next);
            continueLine(pass, next, column, false);
        } else {
            pass.write(next);
        }
        while (!pass.atEnd()) {
            Piece unit = pass.cutThrough();
            pass.writeLeadingLineToken(unit);
            if (pass.overflows(unit)) {
                if (pass.column() != 0) pass.lineFeed();
                pass.trimLeft(unit);
                continueLine(pass, unit, column, true);
            } else {
                pass.write(unit);
            }
        }
    }

    // One continuation line; `column` is where its text belongs. A separator hangs to the left of it, so that the
    // operand behind it stands there.
    void continueLine(Pass& pass, const Piece& piece, int column, bool breakAfter) {
        if (values_.wrapStyle == 1 && !breakAfter) column = pass.columnInFront(piece, column);
        pass.writeContinuation(piece, column);
    }

    const WrapValues& values_;
    Text& text_;
};

}  // namespace Brevis
