// The token cursor: over a text against a plain model, and the rules at the end of a list.
#include "Trn_TokenStream.h"

#include <gtest/gtest.h>

#include <ostream>
#include <random>
#include <vector>

namespace Trn {
namespace {

// Gives tokens that are told apart by their position: the nth stands in column n.
class ListLexer : public Lexer {
public:
    explicit ListLexer(std::vector<TokenKind> kinds) : kinds_(std::move(kinds)) {}

    Token next() override {
        const TokenKind kind = next_ < kinds_.size() ? kinds_[next_] : Kind::EndOfInput;
        const int column = static_cast<int>(std::min(next_++, kinds_.size() + 1)) + 1;
        return Token(kind, {1, column}, {1, column});
    }
    void dump(std::ostream&) const override {}

private:
    std::vector<TokenKind> kinds_;
    std::size_t next_ = 0;
};

std::vector<Token> tokens(int count) {
    std::vector<Token> list;
    for (int i = 1; i <= count; ++i) list.emplace_back(Kind::Number, Position{1, i}, Position{1, i});
    return list;
}

int column(const Token& token) { return token.first().column; }

TEST(TokenStream, OverATextEndTokensGoOn) {
    ListLexer lexer({Kind::Number, Kind::Number});
    const TokenBuffer buffer(lexer);
    TokenStream stream(buffer);
    stream.stepBack();
    EXPECT_EQ(column(stream.peek(5)), 4);
    for (const int expected : {1, 2, 3, 4, 4}) EXPECT_EQ(column(stream.get()), expected);
    for (int i = 0; i < 3; ++i) stream.stepBack();
    EXPECT_EQ(column(stream.get()), 3);
    // Two steps back and one token forward lead from an end token to the last real one.
    stream.stepBack();
    stream.stepBack();
    EXPECT_EQ(column(stream.get()), 2);
    EXPECT_EQ(stream.peek().kind(), Kind::EndOfInput);
}

TEST(TokenStream, AtTheEndOfAList) {
    const auto list = tokens(3);
    TokenStream stream(list);
    for (int i = 0; i < 3; ++i) stream.get();
    EXPECT_EQ(stream.get(), Token());
    EXPECT_EQ(stream.get(), Token());
    EXPECT_EQ(stream.peek(2), Token());
    stream.stepBack();
    EXPECT_EQ(column(stream.get()), 3);
    stream.get();
    stream.stepBack();
    stream.stepBack();
    EXPECT_EQ(column(stream.get()), 2) << "the last token but one";

    // An end token that is put back takes the place of the last token.
    stream.get();
    stream.unget(stream.get());
    EXPECT_EQ(stream.get(), Token());
    stream.stepBack();
    stream.stepBack();
    EXPECT_EQ(column(stream.get()), 2);
    EXPECT_EQ(stream.peek(), Token());
    EXPECT_EQ(column(list[2]), 3) << "the list itself is not changed";

    TokenStream empty{std::span<const Token>()};
    EXPECT_EQ(empty.get(), Token());
    empty.stepBack();
    empty.unget(list[0]);
    EXPECT_EQ(empty.peek(), Token());
}

TEST(TokenStream, PuttingBackReplacesTheTokenBefore) {
    const auto list = tokens(4);
    TokenStream stream(list);
    stream.unget(list[3]);
    EXPECT_EQ(column(stream.peek()), 1) << "there is no place in front of the first token";
    stream.get();
    stream.get();
    stream.setLookAhead(2, false);
    stream.unget(list[3]);
    EXPECT_EQ(stream.lookAhead(), nullptr);
    for (const int expected : {4, 3, 4}) EXPECT_EQ(column(stream.get()), expected);
}

TEST(TokenStream, LookAheadIsANoteForOnePlace) {
    const auto list = tokens(3);
    TokenStream stream(list);
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
    ListLexer lexer({Kind::Number, Kind::OpenBrace, Kind::OpenBrace, Kind::Number, Kind::CloseBrace, Kind::Semicolon,
                     Kind::CloseBrace, Kind::Number, Kind::OpenBrace, Kind::Defective, Kind::CloseBrace});
    const TokenBuffer buffer(lexer);
    TokenStream stream(buffer);
    std::vector<Token> head{stream.get(), stream.get()};
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
    EXPECT_EQ(list.get(), Token());
    const auto innerHead = tokens(0);
    TokenStream innerList(innerHead, *inner);
    EXPECT_EQ(column(innerList.get()), 4);

    // The brace of the list's own head counts too.
    TokenStream again(head, *outer);
    again.get();
    again.get();
    EXPECT_TRUE(again.passBraces());
    EXPECT_EQ(again.get(), Token());

    // A defective literal comes first.
    stream.get();
    stream.get();
    EXPECT_FALSE(stream.passBraces());
    EXPECT_EQ(column(stream.peek()), 11);
}

// Random walks over a list of copies and over the same tokens as head and stretch must not differ.
TEST(TokenStream, AStretchReadsLikeCopies) {
    std::mt19937 random(3);
    ListLexer lexer(std::vector<TokenKind>(12, Kind::Number));
    const TokenBuffer buffer(lexer);
    const auto all = tokens(12);
    for (int round = 0; round < 500; ++round) {
        const std::size_t headSize = random() % 6;
        const std::size_t size = headSize + random() % 6;
        TokenStream copies{std::span(all).first(size)};
        TokenStream stretch{std::span(all).first(headSize), TokenStretch{&buffer, headSize, size}};
        for (int step = 0; step < 60; ++step) {
            const Token other = all[random() % all.size()];
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
