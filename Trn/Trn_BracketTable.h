// The partners of all brackets of a text, so that a look ahead passes over what a bracket holds in one step.
#pragma once

#include <cstdint>
#include <vector>

#include "Trn_TokenBuffer.h"

namespace Trn {

// Made in one pass over the tokens. Brackets are `( [ {`. A `<` gets a partner too where a `>` at its own depth could
// close it, with no `;` between the two; whether the two are brackets is for the grammar to say. The buffer is needed
// only while the table is made.
class BracketTable {
public:
    explicit BracketTable(const TokenBuffer& buffer);

    // The token that closes the bracket `open`, or opens the bracket `close`; 0 for a `<` or `>` without a partner.
    TokenIndex partner(TokenIndex bracket) const { return entries_[number(bracket)].partner; }
    // Whether a `;` stands between the bracket `open` and its partner, outside of other brackets.
    bool holdsSemicolon(TokenIndex open) const { return entries_[number(open)].holdsSemicolon; }
    // Whether `&&` or `||` stands there, for a `<`.
    bool holdsLogic(TokenIndex open) const { return entries_[number(open)].holdsLogic; }

    // The first bracket without a partner, or 0 if all match.
    TokenIndex unmatched() const { return unmatched_; }

private:
    struct Entry {
        TokenIndex partner : 30 = 0;
        TokenIndex holdsSemicolon : 1 = 0;
        TokenIndex holdsLogic : 1 = 0;
    };

    // Of the token's entry, or of an empty one.
    std::size_t number(TokenIndex token) const { return blocks_[token / blockSize] + inBlock_[token]; }
    void enter(TokenIndex token);
    void add(TokenIndex token, TokenKind kind);
    void open(TokenIndex token, TokenKind kind);
    void join(TokenIndex token);
    void close(TokenIndex token, TokenKind opening);
    void closeAngle(TokenIndex token);
    void noteLogic();
    void dropAngles();
    TokenKind topKind() const { return open_.empty() ? TokenKind{Kind::EndOfInput} : open_.back().kind; }
    Entry& top() { return entries_[open_.back().entry]; }

    struct Open {
        TokenIndex token;
        std::uint32_t entry;
        TokenKind kind;
    };

    // Brackets alone have entries, in their order. The first entry of a block of tokens is an empty one; a token knows
    // the number of its own behind that, 0 for none.
    static constexpr TokenIndex blockSize = 128;
    std::vector<Entry> entries_;
    std::vector<std::uint8_t> inBlock_;
    std::vector<std::uint32_t> blocks_;  // the numbers of their first entries
    TokenIndex unmatched_ = 0;

    // While it is made
    std::vector<Open> open_;
    TokenKind previous_ = Kind::EndOfInput;
};

}  // namespace Trn
