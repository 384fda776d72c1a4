// A text lexed once, its tokens as byte offsets, for the walkers and finders of the line wrapper.
//
// A token that stands in the text begins the rest of the text from there as well, so a walk that is to begin anew in
// the middle needs no second lexer: it begins at a token's index.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include "first/text/Brevis_LeafDialect.h"
#include "first/wrap/Brevis_BracketPairs.h"
#include "first/text/Brevis_LeafLexer.h"
#include "first/wrap/Brevis_ParenLevels.h"

namespace Brevis {

class LexedText {
public:
    using Token = LeafToken;

    // `text` must outlive the object.
    explicit LexedText(std::string_view text, LeafDialect dialect = {});
    // What stands behind `offset` in a text, where a token must end.
    LexedText(const LexedText& text, std::size_t offset);

    std::string_view text() const { return text_; }
    // The number of tokens. The end token stands at this index, its offsets round the last character of the last token.
    std::size_t count() const { return tokens_.size() - 1; }
    const Token& operator[](std::size_t index) const { return tokens_[index]; }
    // True for the tokens that a walk makes current: all but the last one of the text.
    bool isWalked(std::size_t index) const { return index + 1 < count(); }

    const BracketPairs& pairs() const;
    // The index of the token that closes the parenthesis, brace or bracket at `open`; count() without one.
    std::size_t closeOf(std::size_t open) const { return pairs().closeOf(open); }
    const ParenLevels& parenLevels() const;
    // The indices of all walked tokens of a kind.
    const std::vector<std::size_t>& walked(Trn::TokenKind kind) const;
    // False if no finder can find anything in the group that the parenthesis or brace at `open` opens, and nothing at
    // its front would be written otherwise than it stands. Nested groups of the same kind are left out, as finders do;
    // only the finders of casts look into braces.
    bool mayBreakInside(std::size_t open) const;
    // Whether the tokens from `begin` up to `end` hold a named cast, or a parenthesis that may close a C-style cast.
    bool holdsNamedCast(std::size_t begin, std::size_t end) const;
    bool holdsOldCast(std::size_t begin, std::size_t end) const;
    // Whether the text without its last character would end in another token. The inside of a group that isn't closed
    // ends in front of that character.
    bool cutMakesOtherTokens() const;

private:
    void findBreaks() const;

    std::string_view text_;
    LeafDialect dialect_;
    std::vector<Token> tokens_;
    // Filled at the first question
    mutable std::optional<BracketPairs> pairs_;
    mutable std::optional<ParenLevels> parenLevels_;
    mutable std::map<Trn::TokenKind, std::vector<std::size_t>> walked_;
    mutable std::vector<bool> breaksInside_;  // by token index
    mutable bool endBreaks_ = false;
    mutable std::vector<std::size_t> namedCasts_;  // ascending
    mutable std::vector<std::size_t> oldCastEnds_;
};

// The highest nesting of parentheses; those inside square brackets don't count.
int maxParenDepth(const LexedText& text);
// The highest nesting of braces.
int maxBraceDepth(const LexedText& text);

}  // namespace Brevis
