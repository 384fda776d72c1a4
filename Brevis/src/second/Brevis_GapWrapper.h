// Breaks lines that are too long: sets gaps to line feeds at the outermost separators, and further inside only where
// that is not enough. Runs behind all other stages, and only if the scheme wraps.
#pragma once

#include <vector>

#include "second/Brevis_GapWriter.h"

namespace Brevis {

// The text, the scheme and the table must outlive the wrapper, which serves once.
class GapWrapper {
public:
    // `places` are those of the tokens as the gaps stand.
    GapWrapper(const GapText& text, const Scheme& scheme, GapTable& gaps, std::vector<LaidPlace> places);

    static bool isWanted(const Scheme& scheme) { return scheme.lineWrap && scheme.rightMargin > 0; }

    // Goes over all lines once. Gives whether it has broken one.
    bool run();

private:
    // Separators from the coarsest to the finest.
    enum class Rung : std::uint8_t {
        Clause,
        Comma,
        Shift,
        Ternary,
        Logic,
        Comparison,
        Bits,
        Sum,
        Product,
        Strings,
        None
    };

    // Tokens in a row that stand on one line of the measured text. What begins a line in them stands below the first
    // one, if the scheme aligns.
    struct Stretch {
        TokenIndex first = 0;
        TokenIndex last = 0;
        int column = 0;  // at which the first one stands now
        int tail = 0;    // the width of what must follow on the line of the last one
    };

    void wrapLine(TokenIndex first, TokenIndex last);
    TokenIndex behindHead(TokenIndex first, TokenIndex last) const;
    // Gives the column behind the last token.
    int lay(const Stretch& stretch);
    int layAtSeparators(const Stretch& stretch, Rung rung);
    int layBrackets(const Stretch& stretch);
    int tailOf(TokenIndex close, const Stretch& stretch) const;
    Rung coarsest(const Stretch& stretch) const;
    Rung rungOf(TokenIndex token) const;
    static Rung rungOfOperator(Trn::TokenKind kind);
    Rung rungOfComma(TokenIndex token) const;
    // The rung of the separator by which a line may begin at the token, which is not the first of its stretch.
    Rung breakOf(TokenIndex token) const;
    int styleOf(Rung rung) const;
    bool fills(Rung rung) const {
        return rung == Rung::Shift || (rung == Rung::Comma && scheme_.listWrapStrategy == 1);
    }
    // What the lines of a stretch that is broken at the rung stand below, if the scheme aligns.
    Stretch alignmentOf(const Stretch& stretch, Rung rung) const;
    void breakAt(TokenIndex token, const Stretch& aligned);
    int columnAfterBreak(TokenIndex token, const Stretch& aligned) const;
    bool hasOwnIndent(TokenIndex token) const;

    TokenIndex behind(TokenIndex token, TokenIndex last) const;
    int width(TokenIndex first, TokenIndex last) const { return endOf(last) - places_[first].column; }
    // The column behind a token in the measured text.
    int endOf(TokenIndex token) const;

    const GapText& text_;
    const Scheme& scheme_;
    GapTable& gaps_;
    std::vector<LaidPlace> places_;
    TokenIndex line_ = 0;  // the first token of the line at hand
    bool hasBroken_ = false;
};

}  // namespace Brevis
