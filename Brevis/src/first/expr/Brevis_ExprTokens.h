// A text lexed once for the expression formatter: its tokens as offsets, each open bracket with its close. The inside
// of a bracket, cut at token borders, has the tokens of the whole, so nothing is lexed again at each level.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "first/text/Brevis_LeafLexer.h"

namespace Brevis {

struct ExprToken : LeafToken {
    std::uint32_t close = 0;  // of an open bracket: the index of the token that closes it, or `none`
};

class ExprTokens {
public:
    static constexpr std::uint32_t none = UINT32_MAX;

    // `text` must outlive the use of the tokens. Memory is kept from one text to the next.
    void lex(std::string_view text, LeafDialect dialect);
    // To be called when the tokens are no longer used: gives back the memory of a huge text.
    void release();

    std::string_view text() const { return text_; }
    std::uint32_t count() const { return count_; }
    const ExprToken& operator[](std::uint32_t index) const { return tokens_[index]; }

    // Where a list of template arguments ends whose first token looked at is `from`: the index of the first `>` behind
    // as many `<`, the token behind an `&&` or `||` not being looked at. `none` without one.
    std::uint32_t angleClose(std::uint32_t from) const;
    bool hasAngles() const { return !angleCloses_.empty(); }

    // True if the tokens from `first` up to `end` are as they stand in the text, on one line each, without a directive
    // or a backslash in a line comment, and nothing but white space is between them.
    bool arePlain(std::uint32_t first, std::uint32_t end) const;
    // Makes the answer false from now on.
    void setNotPlain() { isPlain_ = false; }
    // The next comma that stands outside all brackets that open at `start` or behind it, or `none`. Each of the four
    // kinds of brackets is counted for itself.
    std::uint32_t nextComma(std::uint32_t start, std::uint32_t from, std::uint32_t end) const;

    // ---- For a change of the last tokens of a stretch (see ExprTailCut)

    // The tokens between two offsets, none of which closes another.
    std::vector<ExprToken> lexed(std::uint32_t begin, std::uint32_t end) const;
    // Exchanges `tokens` for those in their place, from `first` on.
    void exchange(std::uint32_t first, std::vector<ExprToken>& tokens);
    // The number of tokens that can be there: more would move those that are in use.
    std::uint32_t room() const { return static_cast<std::uint32_t>(tokens_.size()); }

private:
    void appendLexed(std::uint32_t begin, std::uint32_t end, std::vector<ExprToken>& tokens) const;
    void noteUnplain();
    void noteUnplain(std::uint32_t index);
    bool isWhiteSpaceFrom(std::uint32_t begin, std::uint32_t end) const;
    bool isPlainToken(const ExprToken& token, bool isOneLine) const;
    void pairBrackets();
    void noteDepths();
    std::uint64_t depthAt(std::uint32_t index) const { return depths_[brackets_[index]]; }
    void findAngleCloses();

    std::string_view text_;
    LeafDialect dialect_;
    std::vector<ExprToken> tokens_;  // with a few empty ones behind the end
    std::uint32_t count_ = 0;
    std::vector<std::uint32_t> angleCloses_;  // by token index; empty in a text without a `<`
    bool isPlain_ = true;
    std::vector<std::uint32_t> unplain_;  // the indexes of the tokens that are not, ascending
    // How many brackets stand in front of a token, and how many of them are open by their number, one digit for each
    // kind. Only of a plain text with brackets.
    std::vector<std::uint16_t> brackets_;
    std::vector<std::uint64_t> depths_;
    std::vector<std::uint32_t> open_[4];  // the brackets that are open, by kind; only used while pairing
};

}  // namespace Brevis
