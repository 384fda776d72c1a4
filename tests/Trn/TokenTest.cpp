// Tokens: typed values, equality and the escapes behind them.
#include "Trn_Token.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "Trn_Escapes.h"

namespace Trn {
namespace {

TEST(Token, ValuesFollowTheValueType) {
    const Token character(Kind::CharLiteral, {1, 1}, {1, 4}, R"('\n')", Token::ValueType::Char);
    const Token literal(Kind::StringLiteral, {1, 1}, {1, 6}, R"("a\"\t")", Token::ValueType::String);
    const Token cut(Kind::StringLiteral, {1, 1}, {1, 1}, "\"", Token::ValueType::String);
    const Token name(Kind::Identifier, {1, 1}, {1, 4}, "A::b", Token::ValueType::String);
    const Token bare;

    char c = 'x';
    std::string s = "x";
    character.value(c);
    EXPECT_EQ(c, '\n');
    literal.value(s);
    EXPECT_EQ(s, "a\"\t");
    name.value(s);
    EXPECT_EQ(s, "A::b");
    cut.value(s);
    EXPECT_EQ(s, "");

    s = "kept";
    EXPECT_THROW(character.value(s), InvalidValueType);
    EXPECT_THROW(bare.value(s), InvalidValueType);
    EXPECT_THROW(name.value(c), InvalidValueType);
    EXPECT_EQ(s, "kept");
    try {
        bare.value(c);
        FAIL() << "a token without a value has none to give";
    } catch (const Exception& e) {
        EXPECT_EQ(e.message(), "Invalid value() function called for Token object.");
    }
}

TEST(Token, EqualityTakesInEveryField) {
    const Token token(Kind::Identifier, {1, 1}, {1, 2}, "ab", Token::ValueType::String);
    EXPECT_EQ(token, Token(Kind::Identifier, {1, 1}, {1, 2}, std::string("ab"), Token::ValueType::String));
    EXPECT_NE(token, Token(Kind::Identifier, {1, 2}, {1, 2}, "ab", Token::ValueType::String));
    EXPECT_NE(token, Token(Kind::Identifier, {1, 1}, {2, 2}, "ab", Token::ValueType::String));
    EXPECT_NE(token, Token(Kind::Identifier, {1, 1}, {1, 2}, "ac", Token::ValueType::String));
    EXPECT_NE(token, Token(Kind::Identifier, {1, 1}, {1, 2}, "ab"));
    EXPECT_NE(token, Token(Kind::Number, {1, 1}, {1, 2}, "ab", Token::ValueType::String));
    EXPECT_EQ(Token(), Token(Kind::EndOfInput, {}, {}));
}

TEST(Escapes, BothDirections) {
    EXPECT_EQ(unescape(R"(a\n\r\t\v\\\"\'\0\q)"), "a\n\r\t\v\\\"'0q");
    EXPECT_EQ(unescape("end\\"), "end");
    EXPECT_EQ(unescape("\\\\\\"), "\\");
    const std::string all = "\t\n\v\r\"'\\ x\x01\xff";
    EXPECT_EQ(escape(all), "\\t\\n\\v\\r\\\"\\'\\\\ x\x01\xff");
    EXPECT_EQ(unescape(escape(all)), all);
}

TEST(Exceptions, TextsAndBases) {
    EXPECT_EQ(InvalidParameterException().message(), "InvalidParameterExecption");
    EXPECT_EQ(AlreadyExistsException().message(),
              "Attempt to add an object to a collection that already exists in that collection.");
    EXPECT_TRUE((std::is_base_of_v<Exception, InvalidParameterException>));
}

}  // namespace
}  // namespace Trn
