// All tokens of one text, packed. Any number of token streams look at it; nothing changes it once it is complete.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "Trn_LineTable.h"
#include "Trn_Token.h"

namespace Trn {

using TokenIndex = std::uint32_t;

// A token takes eight bytes: where it begins, how long it is and its kind. Position and text follow from these and
// the text. The few tokens of which that is not true are kept beside them as they are.
//
// Index 0 is no token: an end token without positions. The text must outlive the buffer.
class TokenBuffer {
public:
    // `lines` knows the line of the first token and gets the others while tokens are added.
    // Throws Exception for a text of 4 GB or more.
    TokenBuffer(std::string_view text, LineTable lines);

    // A token that is the text from `begin` to `end`.
    void add(TokenKind kind, std::size_t begin, std::size_t end) {
        if (end - begin > longest) return add(Token(kind, firstOf(begin), lines_.positionAt(end), textOf(begin, end)));
        if (endsBraces(kind)) noteBrace(kind);
        append(kind, begin, end - begin);
    }
    // Any other.
    void add(const Token& token);
    // An end token without extent.
    void addEnd(std::size_t offset) {
        const Position position = lines_.positionAt(offset);
        add(Token(Kind::EndOfInput, position, position));
    }
    void addLine(std::size_t start) { lines_.add(start); }

    // Puts one token of the kind in the place of each of these stretches, which are in order and don't overlap. Indices
    // change, and `braceEnd` has no answers any more.
    struct Stretch {
        TokenIndex first;
        TokenIndex last;
    };
    void merge(const std::vector<Stretch>& stretches, TokenKind kind);

    // Behind the last token come end tokens for ever, each as the last one.
    TokenIndex clamped(std::size_t index) const { return static_cast<TokenIndex>(index < size_ ? index : size_ - 1); }
    // The number of tokens, that of index 0 included.
    std::size_t size() const { return size_; }

    TokenKind kind(TokenIndex index) const { return static_cast<TokenKind>(packed_[index].kindAndSize & 0xff) - 1; }
    Position first(TokenIndex index) const { return isOdd(index) ? odd(index).first() : firstOf(packed_[index].begin); }
    Position last(TokenIndex index) const {
        return isOdd(index) ? odd(index).last() : lines_.positionAt(packed_[index].begin + length(index));
    }
    std::string_view text(TokenIndex index) const {
        return isOdd(index) ? odd(index).text() : textOf(packed_[index].begin, packed_[index].begin + length(index));
    }

    // The offsets in the text at which the token begins and ends.
    std::size_t begin(TokenIndex index) const {
        return isOdd(index) ? lines_.offsetOf(odd(index).first()) - 1 : packed_[index].begin;
    }
    std::size_t end(TokenIndex index) const {
        return isOdd(index) ? lines_.offsetOf(odd(index).last()) : packed_[index].begin + length(index);
    }

    // Both at once.
    struct Extent {
        std::size_t begin;
        std::size_t end;
    };
    Extent extent(TokenIndex index) const {
        if (isOdd(index)) return {begin(index), end(index)};
        const std::size_t begin = packed_[index].begin;
        return {begin, begin + length(index)};
    }

    // The index of the token that closes the `{` with this index, or of the defective literal or end token that
    // comes first. Braces are counted wherever they stand, in dead regions too.
    TokenIndex braceEnd(TokenIndex index) const;

private:
    struct Packed {
        std::uint32_t begin;        // or for an odd token its index among these
        std::uint32_t kindAndSize;  // the kind plus 1, and the length above it
    };
    struct BraceEnd {
        TokenIndex open;
        TokenIndex end;
    };
    static constexpr std::uint32_t oddLength = 0xffffff;
    static constexpr std::size_t longest = oddLength - 1;

    void append(TokenKind kind, std::size_t begin, std::size_t length) {
        packed_[size_++] = {static_cast<std::uint32_t>(begin),
                            static_cast<std::uint32_t>(length) << 8 | static_cast<std::uint32_t>(kind + 1)};
    }
    std::uint32_t length(TokenIndex index) const { return packed_[index].kindAndSize >> 8; }
    bool isOdd(TokenIndex index) const { return length(index) == oddLength; }
    const Token& odd(TokenIndex index) const { return odd_[packed_[index].begin]; }
    std::string_view textOf(std::size_t begin, std::size_t end) const { return {text_ + begin, end - begin}; }
    Position firstOf(std::size_t begin) const {
        const Position position = lines_.positionAt(begin);
        return {position.line, position.column + 1};
    }
    // Braces, and what ends them all.
    static bool endsBraces(TokenKind kind) {
        return kind == Kind::OpenBrace || kind == Kind::CloseBrace || kind <= Kind::Defective;
    }
    // To be called with the next token.
    void noteBrace(TokenKind kind);

    const char* text_;
    LineTable lines_;
    // Room for as many tokens as the text can have. What is not used costs no memory, since nobody touches it.
    std::unique_ptr<Packed[]> packed_;
    std::size_t size_ = 0;
    std::vector<Token> odd_;
    std::vector<BraceEnd> braceEnds_;        // in order of the `{`
    std::vector<std::uint32_t> openBraces_;  // their indices in this table
};

}  // namespace Trn
