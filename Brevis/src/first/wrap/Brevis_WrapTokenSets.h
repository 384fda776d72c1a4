// The sets of token numbers by which the line wrapper decides where a line may be broken.
#pragma once

#include <array>
#include <initializer_list>

#include "Trn_TokenKind.h"

namespace Brevis {

// A set of token numbers that is built at compile time. The end of the input is in none.
class TokenSet {
public:
    constexpr TokenSet(std::initializer_list<Trn::TokenKind> kinds) {
        for (const Trn::TokenKind kind : kinds) holds_[static_cast<std::size_t>(kind)] = true;
    }

    constexpr bool contains(Trn::TokenKind kind) const {
        return kind >= 0 && kind <= Trn::Kind::Identifier && holds_[static_cast<std::size_t>(kind)];
    }

private:
    std::array<bool, Trn::Kind::Identifier + 1> holds_{};
};

namespace WrapTokens {

using namespace Trn::Kind;

inline constexpr TokenSet shiftOps{ShiftLeft, ShiftRight};
inline constexpr TokenSet logicalOps{AmpAmp, PipePipe};
// What ends the search for the left side of an assignment.
inline constexpr TokenSet stopOps{Colon, Slash,   Plus,       Minus,    Percent, ShiftLeft, ShiftRight,
                                  Less,  Greater, EqualEqual, NotEqual, Pipe,    Question};
// The comparisons <= and >= count as assignments, and /= doesn't.
inline constexpr TokenSet assignOps{Assign,    AmpAssign,   StarAssign,    CaretAssign, GreaterEqual, ShiftLeftAssign,
                                    LessEqual, MinusAssign, PercentAssign, PipeAssign,  PlusAssign,   ShiftRightAssign};
inline constexpr TokenSet commaOp{Comma};
inline constexpr TokenSet semicolonOp{Semicolon};
// The operators that are binary wherever they stand; *, &, ^, <= and >= are no break points.
inline constexpr TokenSet wrapBinaryOps{Colon,   Slash,      Percent,  ShiftLeft, ShiftRight, Less,
                                        Greater, EqualEqual, NotEqual, Pipe,      Question};
// The operators that are binary or unary by what stands round them.
inline constexpr TokenSet signOps{Plus, Minus};
inline constexpr TokenSet listPunct{Comma, Semicolon};
// What makes a sign in front of it a break point though it stands behind an operator.
inline constexpr TokenSet operandStart{OpenParen, StaticCast, DynamicCast, ConstCast, ReinterpretCast, Identifier};
// What may stand behind the parenthesis that closes a C-style cast.
inline constexpr TokenSet castOperand{CharLiteral, Number, StringLiteral, OpenParen, Identifier};

constexpr bool isNamedCast(Trn::TokenKind kind) { return kind >= StaticCast && kind <= ReinterpretCast; }

// What a finder of separators may find.
constexpr bool isBreakOp(Trn::TokenKind kind) {
    return commaOp.contains(kind) || shiftOps.contains(kind) || logicalOps.contains(kind) ||
           wrapBinaryOps.contains(kind) || signOps.contains(kind);
}

}  // namespace WrapTokens

}  // namespace Brevis
