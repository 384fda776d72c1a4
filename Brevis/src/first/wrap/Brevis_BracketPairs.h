// Which brackets of a text belong together, found in one sweep.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "first/text/Brevis_LeafLexer.h"

namespace Brevis {

// Parentheses, braces and square brackets are each counted for themselves, so that a stray one of another kind does no
// harm. A pair depends on nothing but the tokens between its two, so it is the same in every part of the text that
// holds both.
class BracketPairs {
public:
    // `tokens` ends with an end token, whose index stands for a partner that is missing.
    explicit BracketPairs(const std::vector<LeafToken>& tokens);

    // The partner of the opening parenthesis, brace or square bracket, or of the `<` that finds its `>` before any `;`,
    // `&&` or `||`.
    std::size_t closeOf(std::size_t open) const { return closes_[open]; }
    // Whether walks see the pairs as they are. A named cast without its `<` hides what stands in front of the next one.
    bool areShown() const { return areShown_; }
    // Whether a walk that counts brackets may step over the closed group at `open`, because all its counts will be the
    // same behind it; `angle` is its count of angle brackets in front of it.
    bool isSealed(std::size_t open, int angle) const { return areShown_ && seals_[open] > (angle > 0 ? 1 : 0); }
    // The last opening parenthesis in front of the closing one at `close`.
    std::size_t lastOpenParen(std::size_t close) const { return lastOpens_[close]; }
    // Whether no pair of parentheses crosses a pair of square brackets.
    bool areParensNested() const { return areParensNested_; }

private:
    enum Kind { Parens, Braces, Squares };
    struct Open {
        void take(const Open& inner);

        std::size_t index;
        std::array<int, 3> counts;  // of each kind of bracket, behind the open one
        std::size_t reach = 0;      // the furthest partner of a `<` inside
        bool holdsAngle = false;
    };

    void pairAngles(const std::vector<LeafToken>& tokens);
    void pairBrackets(const std::vector<LeafToken>& tokens);
    void noteAngle(const std::vector<LeafToken>& tokens, std::size_t index);
    void sealAngles(Trn::TokenKind kind, std::size_t index);
    void open(Kind kind, std::size_t index);
    void close(Kind kind, Kind crossing, std::size_t index);

    std::vector<std::size_t> closes_;
    std::vector<std::size_t> lastOpens_;
    std::vector<char> seals_;  // 2 sealed, 1 sealed only while no angle bracket is open, 0 not
    bool areShown_ = true;
    bool areParensNested_ = true;

    // While pairing, by kind of bracket; and the `<` that have a partner
    std::array<std::vector<Open>, 3> open_;
    std::vector<Open> openAngles_;
    std::array<int, 3> counts_{};
    std::size_t lastOpenParen_ = 0;
};

}  // namespace Brevis
