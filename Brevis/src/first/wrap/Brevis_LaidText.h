// A text whose gaps between tokens are changed while all else stays, so that a line break costs nothing but itself. It
// knows the width of every line without a look at it.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "first/wrap/Brevis_LexedText.h"
#include "first/wrap/Brevis_LineSpan.h"
#include "first/wrap/Brevis_SegmentTree.h"
#include "first/wrap/Brevis_WrapPlace.h"
#include "first/wrap/Brevis_WrapValues.h"

namespace Brevis {

// The text is a row of pieces: the gap in front of a token, the token, the gap in front of the next one. White space
// at the end of a token, such as the line feed of a line comment, counts as part of the gap behind it. The last
// character of the last token is a piece of its own, because the inside of a group that isn't closed ends in front of
// it.
class LaidText {
public:
    // A place between two pieces, or at an end.
    using Boundary = std::size_t;
    struct Part {
        Boundary begin, end;
        std::size_t firstToken, endToken;
    };
    // The indent of a line that goes on: `column` is where its text stands, under an indent that reaches
    // `indentColumn`, if any.
    struct Continuation {
        int column = 0;
        std::optional<int> indentColumn{};
    };

    // All must outlive the object, which works only for texts that are suited.
    LaidText(const LexedText& lexed, const WrapPlace& place, const WrapValues& values);
    // Whether breaks in gaps are all that wrapping can do to the text: it has no token that is laid out anew, nothing
    // that a convert mode changes, and no white space that has to stay.
    static bool isSuited(const LexedText& lexed, const WrapPlace& place, const WrapValues& values);

    const LexedText& lexed() const { return lexed_; }
    static Boundary beforeGap(std::size_t token) { return 2 * token; }
    static Boundary beforeToken(std::size_t token) { return 2 * token + 1; }
    bool isGap(std::size_t piece) const;
    Part whole() const { return {0, lastPiece() + 3, 0, lexed_.count()}; }
    // The inside of the group that the token at `open` opens.
    Part inside(std::size_t open) const;

    // The column behind the stretch, if it begins at `column`.
    int columnBehind(Boundary begin, Boundary end, int column);
    bool overflows(Boundary begin, Boundary end, int column) const {
        return spans_.overflows(widths_.sum(begin, end), column, values_.rightMargin);
    }
    // The column from which the first line of the stretch reaches `column`.
    int columnInFront(Boundary begin, Boundary end, int column) const;
    bool gapBreaksLine(std::size_t token) const { return widths_.sum(2 * token, 2 * token + 1).last >= 0; }
    int indentWidth() const { return indentWidth_; }

    // Puts a line feed and a new indent in the place of the gap in front of the token.
    void breakLine(std::size_t token, const Continuation& continuation);
    // The same behind the white space that stands there. Without `lineFeed` that white space ends in one.
    void breakLineBehindGap(std::size_t token, bool lineFeed, const Continuation& continuation);

    // Tells that the text needs what can't be done here; its result is void.
    void giveUp() { hasGivenUp_ = true; }
    bool hasGivenUp() const { return hasGivenUp_; }
    // The text as it stands now.
    std::string text() const;

private:
    struct Gap {
        bool isBroken = false;
        Continuation continuation{};
    };

    std::size_t lastPiece() const { return 2 * lexed_.count() - 1; }  // the last token without its last character
    std::size_t gapBegin(std::size_t token) const;
    std::string_view sourcePiece(std::size_t piece) const;
    std::string pieceText(std::size_t piece) const;
    std::string gapText(std::size_t token) const;
    std::string frontOf(std::size_t token) const;
    std::string indentText(const Continuation& continuation) const;
    std::int64_t indentTextWidth(const Continuation& continuation) const;
    std::vector<LineSpan> sourceSpans() const;

    const LexedText& lexed_;
    const WrapValues& values_;
    const IndentStreamSettings& settings_;
    int indentWidth_;
    LineSpans spans_;
    SegmentTree<LineSpan, LineSpans> widths_;  // by piece
    std::vector<Gap> gaps_;                    // by the token behind it
    std::map<std::size_t, std::string>
        fronts_;  // of broken gaps that have more in front of the indent than a line feed
    bool hasGivenUp_ = false;
};

}  // namespace Brevis
