// The lexer, by tables of source and tokens. A token is written as its number, its positions and its text.
#include "Cpp_Lexer.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <string>
#include <vector>

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
std::string kindsAndTexts(std::string_view source) {
    Lexer lexer(source);
    std::string result;
    for (const Token& token : tokensOf(lexer)) {
        if (token.kind() == Kind::EndOfInput) break;
        if (!result.empty()) result += ", ";
        result += std::to_string(token.kind()) + " " + Trn::escape(token.text());
    }
    return result;
}

std::string spans(std::string_view source, Position start = {1, 0}) {
    Lexer lexer(source, start);
    std::ostringstream result;
    for (const Token& token : tokensOf(lexer)) {
        if (result.tellp() > 0) result << ", ";
        result << token.first().line << ':' << token.first().column << '-' << token.last().line << ':'
               << token.last().column;
    }
    return result.str();
}

struct Case {
    std::string_view source;
    std::string_view expected;
};

void expectAll(const std::vector<Case>& cases) {
    for (const Case& c : cases) EXPECT_EQ(kindsAndTexts(c.source), c.expected) << c.source;
}

TEST(Lexer, Words) {
    expectAll({
        {"_a1 int::b", "119 _a1, 119 int::b"},
        {"class classes Class", "53 class, 119 classes, 119 Class"},
        {"a ::b", "119 a, 119 ::b"},
        {"a:: b", "119 a::b"},
        {"a:: \n ~ b :: c", "119 a::~, 119 b, 119 ::c"},
        {"x::template y", "119 x::template, 119 y"},
        {"A::operator +", "119 A, 81 ::operator, 20 +"},
        {"a::  b:: new x", "119 a::b, 83 ::new, 119 x"},
        {"::new operator", "119 , 83 ::new, 81 operator"},
        {"A::~new", "119 A::~new"},
        {"int A::*p", "112 int, 119 A::, 14 *, 119 p"},
        {"A:: 1", "119 A::, 3 1"},
        {"A::~A ~y ~1 ~_z ~ q", "119 A::~A, 119 ~y, 23 ~, 3 1, 23 ~, 119 _z, 23 ~, 119 q"},
        {"A<T>::operator=", "119 A, 30 <, 119 T, 31 >, 119 , 81 ::operator, 13 ="},
        {"a:::b ::::c", "119 a::, 7 :, 119 b, 119 ::, 119 ::c"},
        {"b?x:y", "119 b, 50 ?, 119 x, 7 :, 119 y"},
        {"L\"x\"", "119 L, 5 \\\"x\\\""},
    });
}

TEST(Lexer, Numbers) {
    expectAll({
        {"1e+5 1.5e-3f 0xFFUL 10uL 1.0L 10f", "3 1e+5, 3 1.5e-3f, 3 0xFFUL, 3 10uL, 3 1.0L, 3 10f"},
        {"1.5.3", "3 1.5, 19 ., 3 3"},
        {"0x1e+2", "3 0x1e, 20 +, 3 2"},
        {"123abc 100i64 1e5e5", "119 abc, 119 i64, 119 e5"},
        {"1.u 1u.5 1uu5", "119 u, 3 1u.5, 3 1uu5"},
        {"1_a", "3 1, 119 _a"},
        {".5 0x 0X1g", "19 ., 3 5, 3 0x, 119 g"},
        {"7\x80", ""},
    });
}

TEST(Lexer, Literals) {
    expectAll({
        {R"("a\"b" c)", R"(5 \"a\\\"b\", 119 c)"},
        {"\"a\\\nb\" c", "5 \\\"a\\\\\\nb\\\", 119 c"},
        {"\"a\\ \t\nb\" c", "5 \\\"a\\\\ \\t\\nb\\\", 119 c"},
        {"\"a\nb", "119 b"},
        {"\"\\\n\nb", "119 b"},
        {"\"a", "5 \\\"a"},
        {R"('a' '\'' '\\' b)", R"(2 \'a\', 2 \'\\\'\', 2 \'\\\\\', 119 b)"},
        {"'' 'a\nb", "0 \\'\\', 0 \\'a\\', 119 b"},
        {"'a", "2 \\'a\\'"},
        {"'\\", "0 \\'\\\\\\'"},
        {"'\\'", "2 \\'\\\\\\'\\'"},
        {"'", "0 \\'\\'"},
    });
}

TEST(Lexer, CommentsAndDirectives) {
    expectAll({
        {"// a\nb // c", "117 // a\\n, 119 b, 117 // c"},
        {"/*/ a */b /* c", "118 /*/ a */, 119 b, 118 /* c"},
        {"#define A \\\nB\nc", "1 #define A \\\\\\nB\\n, 119 c"},
        {"#define A \\ \t\nB\nc", "1 #define A \\\\ \\t\\nB\\n, 119 c"},
        {"#define A 1 // x\nb", "1 #define A 1 , 117 // x\\n, 119 b"},
        {"#define A /* x */ 1\nb", "1 #define A /* x */ 1\\n, 119 b"},
        {"#define A \\/* x */\nb", "1 #define A \\\\/* x */\\n, 119 b"},
        {"#define A /* x\n */ 1\nb", "1 #define A , 118 /* x\\n */, 3 1, 119 b"},
        {"a # b", "119 a, 1 # b"},
        {"#a /* b", "1 #a /* b"},
    });
}

TEST(Lexer, Operators) {
    expectAll({
        {"...", "19 ., 19 ., 19 ."},
        {"->*->-=--", "52 ->*, 24 ->, 42 -=, 26 --"},
        {"<<=<<<=<>>=>>>=>", "43 <<=, 28 <<, 32 <=, 30 <, 44 >>=, 29 >>, 33 >=, 31 >"},
        {"!=!%=%&&&=&*=*+++=+", "35 !=, 22 !, 40 %=, 27 %, 48 &&, 45 &=, 15 &, 38 *=, 14 *, 25 ++, 41 +=, 20 +"},
        {"^=^||=|/=/==.*", "46 ^=, 36 ^, 49 ||, 13 =, 37 |, 39 /=, 39 /=, 13 =, 51 .*"},
        {"(){}[];:,?", "9 (, 10 ), 11 {, 12 }, 16 [, 17 ], 6 ;, 7 :, 8 ,, 50 ?"},
        {std::string_view("a$@`\\\x01\0\xff"
                          "b",
                          9),
         "119 a, 119 b"},
    });
}

TEST(Lexer, Positions) {
    EXPECT_EQ(spans(""), "1:0-1:0");
    EXPECT_EQ(spans("int x;\n"), "1:1-1:3, 1:5-1:5, 1:6-1:6, 1:6-1:6");
    EXPECT_EQ(spans("\t// a\n  b"), "1:2-2:0, 2:3-2:3, 2:3-2:3");
    EXPECT_EQ(spans("#a\\\nb\n"), "1:1-3:0, 3:0-3:0");
    EXPECT_EQ(spans("#a // b"), "1:1-1:3, 1:4-1:7, 1:7-1:7");
    EXPECT_EQ(spans("#a/*\n*/"), "1:1-1:2, 1:3-2:2, 2:2-2:2");
    EXPECT_EQ(spans("a ::operator"), "1:1-1:1, 1:3-1:2, 1:3-1:12, 1:12-1:12");
    EXPECT_EQ(spans("A::\n  <"), "1:1-2:2, 2:3-2:3, 2:3-2:3");
    EXPECT_EQ(spans("A::\n b::c"), "1:1-2:5, 2:5-2:5");
    EXPECT_EQ(spans("'a\nb"), "1:1-2:0, 2:1-2:1, 2:1-2:1");
    EXPECT_EQ(spans("\"a\\\nb\""), "1:1-2:2, 2:2-2:2");
    EXPECT_EQ(spans("ab\ncd", {3, 4}), "3:5-3:6, 4:1-4:2, 4:2-4:2");
}

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
        Lexer lexer(source);
        std::size_t end = 0;
        for (const Token& token : tokensOf(lexer)) {
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
