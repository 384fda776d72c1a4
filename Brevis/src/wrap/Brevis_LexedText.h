// A text lexed once, its tokens as byte offsets, for the walkers and finders of the line wrapper.
//
// A token that stands in the text begins the rest of the text from there as well, so a walk that is to begin anew in
// the middle needs no second lexer: it begins at a token's index.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "Trn_TokenKind.h"

namespace Brevis {

class LexedText {
public:
    struct Token {
        Trn::TokenKind kind = Trn::Kind::EndOfInput;
        std::size_t begin = 0;  // offset of its first character
        std::size_t end = 0;    // offset behind its last character
    };

    // `text` must outlive the object.
    explicit LexedText(std::string_view text);

    std::string_view text() const { return text_; }
    // The number of tokens. The end token stands at this index, its offsets round the last character of the last token.
    std::size_t count() const { return tokens_.size() - 1; }
    const Token& operator[](std::size_t index) const { return tokens_[index]; }
    // True for the tokens that a walk makes current: all but the last one of the text.
    bool isWalked(std::size_t index) const { return index + 1 < count(); }

    // The index of the token that closes the parenthesis, brace or bracket at `open`; count() without one.
    std::size_t closeOf(std::size_t open) const;
    // Whether the `<` at `less` finds its `>` before any `;`, `&&` or `||`.
    bool opensArguments(std::size_t less) const;
    // False if no finder can find anything in the group that the parenthesis or brace at `open` opens, and nothing at
    // its front would be written otherwise than it stands. Nested groups of the same kind are left out, as finders do;
    // only the finders of casts look into braces.
    bool mayBreakInside(std::size_t open) const;

private:
    void pairBrackets() const;
    void pairAngles() const;
    void findBreaks() const;
    bool cutMakesOtherTokens() const;

    std::string_view text_;
    std::vector<Token> tokens_;
    // Filled at the first question, by token index
    mutable std::vector<std::size_t> closes_;
    mutable std::vector<bool> opensArguments_;
    mutable std::vector<bool> breaksInside_;
    mutable bool endBreaks_ = false;
};

// The highest nesting of parentheses; those inside square brackets don't count.
int maxParenDepth(const LexedText& text);
// The highest nesting of braces.
int maxBraceDepth(const LexedText& text);

}  // namespace Brevis
