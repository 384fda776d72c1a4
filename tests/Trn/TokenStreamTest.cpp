// The token cursor: over a text against a plain model, and the rules at the end of a list.
#include "Trn_TokenStream.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace Trn {
namespace {

// A text of tokens of one character, of which the nth stands in column n. The first end token stands in front of the
// blank behind them.
struct Text {
    explicit Text(const std::vector<TokenKind>& kinds) : characters(kinds.size() + 1, ' ') {
        for (std::size_t i = 0; i < kinds.size(); ++i) buffer.add(kinds[i], i, i + 1);
        buffer.addEnd(kinds.size());
        buffer.addEnd(kinds.size() + 1);
    }
    explicit Text(std::size_t count) : Text(std::vector<TokenKind>(count, Kind::Number)) {}

    TokenView token(std::size_t number) const { return {buffer, static_cast<TokenIndex>(number)}; }
    TokenList list(std::size_t count) const {
        TokenList tokens(buffer);
        for (std::size_t i = 1; i <= count; ++i) tokens.push_back(token(i));
        return tokens;
    }

    std::string characters;
    TokenBuffer buffer{characters, LineTable(1, 0)};
};

int column(const TokenView& token) { return token.first().column; }
bool isNone(const TokenView& token) { return token == TokenView() && token.first() == Position(); }

TEST(TokenStream, OverATextEndTokensGoOn) {
    const Text text(2);
    TokenStream stream(text.buffer);
    stream.stepBack();
    EXPECT_EQ(column(stream.peek(5)), 3);
    for (const int expected : {1, 2, 2, 3, 3}) EXPECT_EQ(column(stream.get()), expected);
    for (int i = 0; i < 3; ++i) stream.stepBack();
    EXPECT_EQ(stream.get().kind(), Kind::EndOfInput);
    // Two steps back and one token forward lead from an end token to the last real one.
    stream.stepBack();
    stream.stepBack();
    EXPECT_EQ(column(stream.get()), 2);
    EXPECT_EQ(stream.peek().kind(), Kind::EndOfInput);
}

TEST(TokenStream, AtTheEndOfAList) {
    const Text text(4);
    const TokenList list = text.list(3);
    TokenStream stream(list);
    for (int i = 0; i < 3; ++i) stream.get();
    EXPECT_TRUE(isNone(stream.get()));
    EXPECT_TRUE(isNone(stream.get()));
    EXPECT_TRUE(isNone(stream.peek(2)));
    stream.stepBack();
    EXPECT_EQ(column(stream.get()), 3);
    stream.get();
    stream.stepBack();
    stream.stepBack();
    EXPECT_EQ(column(stream.get()), 2) << "the last token but one";

    // An end token that is put back takes the place of the last token.
    stream.get();
    stream.unget(stream.get());
    EXPECT_TRUE(isNone(stream.get()));
    stream.stepBack();
    stream.stepBack();
    EXPECT_EQ(column(stream.get()), 2);
    EXPECT_TRUE(isNone(stream.peek()));
    EXPECT_EQ(column(list.back()), 3) << "the list itself is not changed";

    const TokenList nothing(text.buffer);
    TokenStream empty(nothing);
    EXPECT_TRUE(isNone(empty.get()));
    empty.stepBack();
    empty.unget(text.token(1));
    EXPECT_TRUE(isNone(empty.peek()));
}

TEST(TokenStream, PuttingBackReplacesTheTokenBefore) {
    const Text text(4);
    const TokenList list = text.list(4);
    TokenStream stream(list);
    stream.unget(text.token(4));
    EXPECT_EQ(column(stream.peek()), 1) << "there is no place in front of the first token";
    stream.get();
    stream.get();
    stream.setLookAhead(2, false);
    stream.unget(text.token(4));
    EXPECT_EQ(stream.lookAhead(), nullptr);
    for (const int expected : {4, 3, 4}) EXPECT_EQ(column(stream.get()), expected);
}

TEST(TokenStream, LookAheadIsANoteForOnePlace) {
    const Text text(3);
    TokenStream stream(text.buffer);
    EXPECT_EQ(stream.lookAhead(), nullptr);
    stream.setLookAhead(2, true);
    ASSERT_NE(stream.lookAhead(), nullptr);
    EXPECT_EQ(stream.lookAhead()->ahead, 2u);
    stream.get();
    EXPECT_EQ(stream.lookAhead(), nullptr);
    stream.stepBack();
    EXPECT_TRUE(stream.lookAhead()->reachedEnd);
}

TEST(TokenStream, BracesArePassedAsAStretch) {
    // a { { b } ; } c { 0 }
    const Text text({Kind::Number, Kind::OpenBrace, Kind::OpenBrace, Kind::Number, Kind::CloseBrace, Kind::Semicolon,
                     Kind::CloseBrace, Kind::Number, Kind::OpenBrace, Kind::Defective, Kind::CloseBrace});
    TokenStream stream(text.buffer);
    TokenList head(text.buffer);
    head.push_back(stream.get());
    head.push_back(stream.get());
    const auto outer = stream.passBraces();
    ASSERT_TRUE(outer);
    EXPECT_EQ(column(stream.peek()), 8);

    // The list is read as if it had been copied, and an inner body is a stretch of the same buffer.
    TokenStream list(head, *outer);
    for (const int expected : {1, 2, 3}) EXPECT_EQ(column(list.get()), expected);
    const auto inner = list.passBraces();
    ASSERT_TRUE(inner);
    EXPECT_EQ(column(list.get()), 6);
    EXPECT_EQ(column(list.get()), 7);
    EXPECT_TRUE(isNone(list.get()));
    const TokenList innerHead(text.buffer);
    TokenStream innerList(innerHead, *inner);
    EXPECT_EQ(column(innerList.get()), 4);

    // The brace of the list's own head counts too.
    TokenStream again(head, *outer);
    again.get();
    again.get();
    EXPECT_TRUE(again.passBraces());
    EXPECT_TRUE(isNone(again.get()));

    // A defective literal comes first.
    stream.get();
    stream.get();
    EXPECT_FALSE(stream.passBraces());
    EXPECT_EQ(column(stream.peek()), 11);
}

// Random walks over a list of copies and over the same tokens as head and stretch must not differ.
TEST(TokenStream, AStretchReadsLikeCopies) {
    std::mt19937 random(3);
    const Text text(12);
    for (int round = 0; round < 500; ++round) {
        const std::size_t headSize = random() % 6;
        const std::size_t size = headSize + random() % 6;
        const TokenList all = text.list(size);
        const TokenList head = text.list(headSize);
        TokenStream copies(all);
        TokenStream stretch(head, TokenStretch{headSize + 1, size + 1});
        for (int step = 0; step < 60; ++step) {
            const TokenView other = text.token(1 + random() % 12);
            switch (random() % 5) {
                case 0:
                    copies.stepBack(), stretch.stepBack();
                    break;
                case 1:
                    copies.unget(other), stretch.unget(other);
                    break;
                default:
                    ASSERT_EQ(copies.get(), stretch.get());
            }
            const std::size_t n = 1 + random() % 4;
            ASSERT_EQ(copies.peek(n), stretch.peek(n));
            ASSERT_EQ(copies.cursor(), stretch.cursor());
        }
    }
}

}  // namespace
}  // namespace Trn
