// Runs the cases in tests/Cpp/tokens and, for the modern dialect, in tests/Cpp/modern-tokens, where `->` shows numbers and texts and `@` positions, and what no case can show.
#include "Cpp_Lexer.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "CaseFile.h"
#include "Cpp_Keywords.h"
#include "Trn_Escapes.h"

namespace Cpp {
namespace {

using Trn::Position;
using Trn::Token;
namespace Kind = Trn::Kind;

std::vector<Token> tokensOf(Lexer& lexer) {
    std::vector<Token> tokens;
    do {
        tokens.push_back(lexer.next());
    } while (tokens.back().kind() != Kind::EndOfInput);
    return tokens;
}

// "119 a, 6 ;" without the end token.
std::string kindsAndTexts(Lexer&& lexer) {
    std::string result;
    for (const Token& token : tokensOf(lexer)) {
        if (token.kind() == Kind::EndOfInput) break;
        if (!result.empty()) result += ", ";
        result += std::to_string(token.kind()) + " " + Trn::escape(token.text());
    }
    return result;
}

std::string spans(Lexer&& lexer) {
    std::ostringstream result;
    for (const Token& token : tokensOf(lexer)) {
        if (result.tellp() > 0) result << ", ";
        result << token.first().line << ':' << token.first().column << '-' << token.last().line << ':'
               << token.last().column;
    }
    return result.str();
}

void expectTokens(const CaseGroup& group, Dialect dialect) {
    EXPECT_EQ(group.fault, "");
    for (const TextCase& c : group.cases) {
        const testing::ScopedTrace at(group.file.c_str(), c.line, c.source);
        const auto lexer = [&] { return Lexer(c.source, dialect, group.language()); };
        for (const auto& [mark, expected] : c.expected) {
            EXPECT_EQ(mark == "->" ? kindsAndTexts(lexer()) : mark == "@" ? spans(lexer()) : "", expected);
        }
    }
}

class LexerCaseTest : public testing::TestWithParam<CaseGroup> {};
class ModernLexerCaseTest : public testing::TestWithParam<CaseGroup> {};

TEST_P(LexerCaseTest, ComesOutAsExpected) { expectTokens(GetParam(), Dialect::classic); }
TEST_P(ModernLexerCaseTest, ComesOutAsExpected) { expectTokens(GetParam(), Dialect::modern); }

INSTANTIATE_TEST_SUITE_P(Files, LexerCaseTest, testing::ValuesIn(readCaseGroups("tokens")), groupName);
INSTANTIATE_TEST_SUITE_P(Files, ModernLexerCaseTest, testing::ValuesIn(readCaseGroups("modern-tokens")), groupName);

TEST(Lexer, BytesThatNoTextHolds) {
    EXPECT_EQ(kindsAndTexts(Lexer("7\x80")), "");
    EXPECT_EQ(kindsAndTexts(Lexer(std::string_view("a$@`\\\1\0\377b", 9))), "119 a, 119 b");
}

TEST(Lexer, CountsFromTheGivenPosition) { EXPECT_EQ(spans(Lexer("ab\ncd", {3, 4})), "3:5-3:6, 4:1-4:2, 4:2-4:2"); }

TEST(Lexer, EndTokensAndDump) {
    Lexer lexer("x; \n");
    lexer.next();
    lexer.next();
    EXPECT_EQ(lexer.next(), Token(Kind::EndOfInput, {1, 2}, {1, 2}));
    EXPECT_EQ(lexer.next(), Token(Kind::EndOfInput, {2, 0}, {2, 0}));
    EXPECT_EQ(lexer.next(), Token(Kind::EndOfInput, {2, 0}, {2, 0}));
    std::ostringstream os;
    lexer.dump(os);
    EXPECT_EQ(os.str().rfind("line:\t2\tcol:\t0\tlastlinecol:\t", 0), 0u);
}

TEST(Lexer, ValuesOfTokens) {
    Lexer lexer(R"(a "x\ty" '\t' if 1)");
    std::string text;
    char character = 0;
    lexer.next().value(text);
    EXPECT_EQ(text, "a");
    lexer.next().value(text);
    EXPECT_EQ(text, "x\ty");
    lexer.next().value(character);
    EXPECT_EQ(character, '\t');
    EXPECT_THROW(lexer.next().value(text), Trn::InvalidValueType);
    EXPECT_THROW(lexer.next().value(text), Trn::InvalidValueType);
}

TEST(Lexer, EveryKeywordHasItsNumber) {
    EXPECT_EQ(std::size(keywords), 63u);
    for (const Keyword& keyword : keywords) EXPECT_EQ(keywordTable.kindOf(keyword.text), keyword.kind) << keyword.text;
}

// What no token holds is white space and what the lexer skips; the text of a token is what stands at its positions.
TEST(Lexer, TokensLieInOrderAndHoldTheSource) {
    const std::vector<std::string> pieces = {"a",        "::",  "~", " ",  "\n", "\\", "'", "\"",
                                             "#",        "/",   "*", "//", "1",  ".",  "e", "0x",
                                             "operator", "new", "-", ">",  "\t", ";",  "u", "\x90"};
    std::mt19937 random(7);
    for (int round = 0; round < 20000; ++round) {
        std::string source;
        for (auto n = random() % 14; n > 0; --n) source += pieces[random() % pieces.size()];
        std::vector<std::size_t> lineStarts{0};
        for (std::size_t i = 0; i < source.size(); ++i) {
            if (source[i] == '\n') lineStarts.push_back(i + 1);
        }
        const auto offsetOf = [&](Position p) {
            return lineStarts.at(static_cast<std::size_t>(p.line - 1)) + static_cast<std::size_t>(p.column);
        };
        Lexer lexer(source), other(source);
        const Trn::TokenBuffer buffer = other.readAll();
        Trn::TokenIndex index = 0;
        std::size_t end = 0;
        for (const Token& token : tokensOf(lexer)) {
            ++index;
            ASSERT_EQ(Token(buffer.kind(index), buffer.first(index), buffer.last(index), buffer.text(index),
                            token.valueType()),
                      token)
                << Trn::escape(source);
            if (token.kind() == Kind::EndOfInput) break;
            // An empty name ends in front of its first position.
            const std::size_t first = offsetOf(token.first()) - 1;
            const std::size_t last = offsetOf(token.last());
            ASSERT_GE(first + 1, end) << Trn::escape(source);
            ASSERT_LE(last, source.size()) << Trn::escape(source);
            if (token.kind() != Kind::Identifier && token.text().substr(0, 2) != "::" && token.kind() > 5) {
                ASSERT_EQ(token.text(), source.substr(first, last - first)) << Trn::escape(source);
            }
            end = last;
        }
    }
}

}  // namespace
}  // namespace Cpp
