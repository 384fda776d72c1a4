// The text of a run as tokens and the gaps between them: where each token stands, what it is, and what the source has
// in front of it. Nothing changes it once it is made.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "Cpp_TokenTable.h"
#include "second/Brevis_LineColumns.h"

namespace Brevis {

using Trn::TokenIndex;

// A token without the line feed that a line comment or a directive owns: that belongs to the gap behind it.
struct GapToken {
    std::uint32_t begin = 0;  // offsets in the text
    std::uint32_t end = 0;
    std::int8_t kind = Trn::Kind::EndOfInput;
    Cpp::Role role = Cpp::Role::None;
    std::uint8_t lineFeeds = 0;  // in the gap in front of it, 255 for more
    bool isFixed : 1 = false;    // the gap in front of it holds more than white space
    bool holdsLines : 1 = false;
    bool isBracket : 1 = false;
    bool isNarrow : 1 = false;  // known to take one column a byte
    std::uint8_t free : 4 = 0;
};
static_assert(sizeof(GapToken) == 12);

// Tokens count from 1, as those of the table, up to `size`, which is no token: its gap is the end of the text.
class GapText {
public:
    // `source`, which must outlive this, has line feeds as line ends.
    GapText(std::string_view source, Cpp::TokenTable table);
    // The tokens of `text` in `laid`, which differs from it in nothing but white space.
    GapText(std::string_view laid, const GapText& text);

    TokenIndex size() const { return static_cast<TokenIndex>(tokens_.size() - 1); }
    const GapToken& token(TokenIndex index) const { return tokens_[index]; }
    Trn::TokenKind kind(TokenIndex index) const { return tokens_[index].kind; }
    Cpp::Role role(TokenIndex index) const { return tokens_[index].role; }
    std::string_view text(TokenIndex index) const { return slice(tokens_[index].begin, tokens_[index].end); }
    // The white space in front of a token.
    std::string_view gap(TokenIndex index) const { return slice(tokens_[index - 1].end, tokens_[index].begin); }
    int lineFeeds(TokenIndex index) const { return tokens_[index].lineFeeds; }
    bool startsLine(TokenIndex index) const { return tokens_[index].lineFeeds > 0 || index == 1; }
    bool endsLine(TokenIndex index) const { return startsLine(index + 1) || index + 1 == size(); }
    bool isWord(TokenIndex index, std::string_view word) const {
        return kind(index) == Trn::Kind::Identifier && text(index) == word;
    }
    // A name whose parts stand on several lines, with nothing but white space between them.
    bool isNameOverLines(TokenIndex index) const {
        return tokens_[index].holdsLines && kind(index) == Trn::Kind::Identifier &&
               text(index).find_first_of("\\/") == std::string_view::npos;
    }
    bool isTrivia(TokenIndex index) const { return Trn::isTrivia(kind(index)); }
    bool isComment(TokenIndex index) const { return Trn::isComment(kind(index)); }
    // A comment that a tool reads: `///`, `//!`, `/**` or `/*!`.
    bool isDocumentation(TokenIndex index) const {
        const std::string_view text = this->text(index);
        const bool isBegun = isComment(index) && text.size() > 2 && (text[2] == '!' || text[2] == text[1]);
        return isBegun && (text.size() == 3 || (text[3] != text[2] && text != "/**/"));
    }

    // The partner of a bracket; of a `<` or `>` only where the two are template brackets. 0 for none.
    TokenIndex partner(TokenIndex index) const { return tokens_[index].isBracket ? brackets_.partner(index) : 0; }
    bool isBracket(TokenIndex index) const { return tokens_[index].isBracket; }
    bool isOpening(TokenIndex index) const { return partner(index) > index; }
    // The next token that is no comment and no directive, and the last one in front.
    TokenIndex next(TokenIndex index) const {
        if (index >= size()) return size();
        do ++index;
        while (isTrivia(index));
        return index;
    }
    TokenIndex previous(TokenIndex index) const {
        do --index;
        while (isTrivia(index));
        return index;
    }
    // Whether nothing stands between a comma and the comma or the bracket `end` behind it.
    bool isEmptyArgument(TokenIndex end) const {
        return (kind(end) == Trn::Kind::Comma || kind(end) == Trn::Kind::CloseParen) &&
               kind(previous(end)) == Trn::Kind::Comma;
    }
    // Whether the author has no tab in front of an operator, so that none is wanted there.
    bool hasBlanksBeforeOperator(TokenIndex token) const {
        const Cpp::Role here = role(token);
        return (here == Cpp::Role::Binary || here == Cpp::Role::Comparison) && lineFeeds(token) == 0 &&
               gap(token).find('\t') == std::string_view::npos;
    }
    // Whether the two begin on one line.
    bool isOnOneLine(TokenIndex a, TokenIndex b) const {
        return b == a + 1 ? !beginsOtherLine(b) : isStretchOnOneLine(a, b);
    }

    // Whether a token and the one in front of it would become others with nothing in between.
    bool wouldJoin(TokenIndex index) const {
        return !standsAlone(tokens_[index]) && !standsAlone(tokens_[index - 1]) && joins(index);
    }

    // The column behind the token, of one line, if it begins in `column`.
    int columnBehind(TokenIndex index, int column, int tabSize) const {
        const GapToken& token = tokens_[index];
        if (token.isNarrow) return column + static_cast<int>(token.end - token.begin);
        return Brevis::columnBehind(text(index), column, tabSize);
    }
    // The column, from 0, at which the token stands in the source. Reads the line up to there.
    int column(TokenIndex index, int tabSize) const;

    // Comments and directives, in their order.
    const std::vector<TokenIndex>& trivia() const { return trivia_; }
    const std::vector<Cpp::OutlineItem>& items() const { return outline_.items(); }
    std::string_view source() const { return source_; }
    // Whether any gap holds more than white space.
    bool hasFixed() const { return hasFixed_; }

private:
    // A bit for each token, whether it begins on another line than the one in front of it.
    static constexpr std::size_t wordBits = 64;
    void noteLine(TokenIndex index) { newLines_[index / wordBits] |= std::uint64_t{1} << index % wordBits; }
    bool beginsOtherLine(TokenIndex index) const { return (newLines_[index / wordBits] >> index % wordBits & 1) != 0; }
    bool isStretchOnOneLine(TokenIndex a, TokenIndex b) const;
    // Whether it is a bracket, a comma or a semicolon, of one character.
    static constexpr bool standsAlone(const GapToken& token) {
        namespace Kind = Trn::Kind;
        const bool isSign = (token.kind >= Kind::Comma && token.kind <= Kind::CloseBrace) ||
                            token.kind == Kind::Semicolon || token.kind == Kind::OpenBracket ||
                            token.kind == Kind::CloseBracket;
        return isSign && token.end - token.begin == 1;
    }
    bool joins(TokenIndex index) const;
    std::string_view slice(std::size_t begin, std::size_t end) const { return {source_.data() + begin, end - begin}; }

    std::string_view source_;
    Trn::BracketTable brackets_;
    Cpp::Outline outline_;
    std::vector<GapToken> tokens_;
    std::vector<std::uint64_t> newLines_;
    std::vector<TokenIndex> trivia_;
    bool hasFixed_ = false;
};

}  // namespace Brevis
