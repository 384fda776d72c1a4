// The token numbers. They are a contract: ranges of them carry meaning in the parser and the formatter.
#pragma once

#include <cstdint>

namespace Trn {

using TokenKind = std::int32_t;

// ORDER RESERVED: the numbers are written into dispatch tables and into the output of corvane-inspect.
namespace Kind {

inline constexpr TokenKind EndOfInput = -1, Defective = 0, Directive = 1, CharLiteral = 2, Number = 3,
                           StringLiteral = 5;
inline constexpr TokenKind LineComment = 117, BlockComment = 118, Identifier = 119;

inline constexpr TokenKind Semicolon = 6, Colon = 7, Comma = 8, OpenParen = 9, CloseParen = 10, OpenBrace = 11,
                           CloseBrace = 12, Assign = 13, Star = 14, Amp = 15, OpenBracket = 16, CloseBracket = 17,
                           Slash = 18, Dot = 19, Plus = 20, Minus = 21, Not = 22, Tilde = 23, Arrow = 24, PlusPlus = 25,
                           MinusMinus = 26, Percent = 27, ShiftLeft = 28, ShiftRight = 29, Less = 30, Greater = 31,
                           LessEqual = 32, GreaterEqual = 33, EqualEqual = 34, NotEqual = 35, Caret = 36, Pipe = 37,
                           StarAssign = 38, SlashAssign = 39, PercentAssign = 40, PlusAssign = 41, MinusAssign = 42,
                           ShiftLeftAssign = 43, ShiftRightAssign = 44, AmpAssign = 45, CaretAssign = 46,
                           PipeAssign = 47, AmpAmp = 48, PipePipe = 49, Question = 50, DotStar = 51, ArrowStar = 52;

// Of the modern dialect alone.
inline constexpr TokenKind Spaceship = 120, Ellipsis = 121;

inline constexpr TokenKind Class = 53, Struct = 54, Public = 55, Private = 56, Protected = 57, Virtual = 58,
                           Namespace = 59, Using = 60, Const = 61, Mutable = 62, Volatile = 63, Static = 64,
                           Inline = 65, Explicit = 66, Signed = 67, Unsigned = 68, Auto = 69, Register = 70,
                           Friend = 71, Typedef = 72, Typename = 73, Enum = 74, Union = 75, StaticCast = 76,
                           DynamicCast = 77, ConstCast = 78, ReinterpretCast = 79, Template = 80, Operator = 81,
                           Asm = 82, New = 83, Delete = 84, Throw = 85, Sizeof = 86, Typeid = 87, This = 88,
                           Export = 89, Extern = 90, True = 91, False = 92, If = 93, Else = 94, For = 96, Do = 97,
                           While = 98, Try = 99, Catch = 100, Switch = 101, Case = 102, Default = 103, Continue = 104,
                           Break = 105, Goto = 106, Return = 107, Char = 108, WcharT = 109, Bool = 110, Short = 111,
                           Int = 112, Long = 113, Float = 114, Double = 115, Void = 116;

}  // namespace Kind

constexpr bool isComment(TokenKind kind) { return kind == Kind::LineComment || kind == Kind::BlockComment; }
constexpr bool isTrivia(TokenKind kind) { return kind == Kind::Directive || isComment(kind); }
// A token that owns the line feed at its end, so that nothing may be joined to it.
constexpr bool isLineToken(TokenKind kind) { return kind == Kind::Directive || kind == Kind::LineComment; }
// The end of the input or a defective literal, which most of the grammar treats alike.
constexpr bool isEnd(TokenKind kind) { return kind == Kind::EndOfInput || kind == Kind::Defective; }

}  // namespace Trn
