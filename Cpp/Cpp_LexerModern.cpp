// The recognisers of the modern dialect: those that differ from the classic ones, which do the rest.
#include <array>

#include "Cpp_CharClasses.h"
#include "Cpp_Keywords.h"
#include "Cpp_Lexer.h"

namespace Cpp {

using Trn::TokenKind;
namespace Kind = Trn::Kind;

namespace {

// No text in UTF-8 holds 0xff, which is what a look beyond the end gives.
constexpr bool isWordStart(char c) {
    return isAny(c, CharClass::alpha | CharClass::underscore) || c == '$' ||
           (static_cast<unsigned char>(c) >= 0x80 && c != '\xff');
}

constexpr std::array<bool, 256> wordParts = [] {
    std::array<bool, 256> parts{};
    for (std::size_t c = 0; c < parts.size(); ++c) {
        parts[c] = isWordStart(static_cast<char>(c)) || isAny(static_cast<char>(c), CharClass::digit);
    }
    return parts;
}();

bool isWordPart(char c) { return wordParts[static_cast<unsigned char>(c)]; }

constexpr bool isEncodingPrefix(std::string_view word) {
    return word == "L" || word == "u" || word == "U" || word == "u8";
}

constexpr bool isRawPrefix(std::string_view word) {
    return word.ends_with('R') && (word.size() == 1 || isEncodingPrefix(word.substr(0, word.size() - 1)));
}

struct Spelling {
    std::string_view text;
    TokenKind kind;
};

// Operators that are words, in C++.
constexpr Spelling operatorWords[] = {
    {"and", Kind::AmpAmp},       {"or", Kind::PipePipe},        {"not", Kind::Not},         {"bitand", Kind::Amp},
    {"bitor", Kind::Pipe},       {"xor", Kind::Caret},          {"compl", Kind::Tilde},     {"and_eq", Kind::AmpAssign},
    {"or_eq", Kind::PipeAssign}, {"xor_eq", Kind::CaretAssign}, {"not_eq", Kind::NotEqual},
};
constexpr std::size_t longestOperatorWord = 6;
constexpr auto beginsOperatorWord = [] {
    std::array<bool, 256> begins{};
    for (const Spelling& op : operatorWords) begins[static_cast<unsigned char>(op.text.front())] = true;
    return begins;
}();

// Operators that the classic dialect doesn't know as one token, and the other spellings of brackets.
constexpr Spelling newOperators[] = {
    {"<=>", Kind::Spaceship}, {"...", Kind::Ellipsis},   {"<%", Kind::OpenBrace},
    {"%>", Kind::CloseBrace}, {"<:", Kind::OpenBracket}, {":>", Kind::CloseBracket},
};

// Keywords that are names in C.
constexpr bool isCppOnly(TokenKind kind) {
    switch (kind) {
        case Kind::Class:
        case Kind::Public:
        case Kind::Private:
        case Kind::Protected:
        case Kind::Virtual:
        case Kind::Namespace:
        case Kind::Using:
        case Kind::Mutable:
        case Kind::Explicit:
        case Kind::Friend:
        case Kind::Typename:
        case Kind::StaticCast:
        case Kind::DynamicCast:
        case Kind::ConstCast:
        case Kind::ReinterpretCast:
        case Kind::Template:
        case Kind::Operator:
        case Kind::New:
        case Kind::Delete:
        case Kind::Throw:
        case Kind::Typeid:
        case Kind::This:
        case Kind::Export:
        case Kind::Try:
        case Kind::Catch:
            return true;
        default:
            return false;
    }
}

}  // namespace

TokenKind Lexer::modernToken(std::size_t begin) {
    const char c = text_[begin];
    if (isWordStart(c) || passUniversalName(begin) != begin) return modernWord(begin);
    if (isAny(c, CharClass::digit) || (c == '.' && isAny(peek(1), CharClass::digit))) return preprocessingNumber();
    switch (c) {
        case '"':
        case '\'':
            return quoted(begin);
        case '#':
            return directive(begin);
        case '%':
            if (peek(1) == ':') return directive(begin);
            break;
        case '~':
            return isWordStart(peek(1)) ? modernWord(begin) : single(Kind::Tilde);
        case ':':
            if (atScope()) return modernWord(begin);
            break;
        case '/':
            return slash();
        default:
            break;
    }
    const std::string_view rest = text(begin, size_);
    for (const Spelling& op : newOperators) {
        if (c != op.text.front() || !rest.starts_with(op.text)) continue;
        // `<::` is a `<` and a `::`, unless it is `<:::` or `<::>`.
        if (op.text == "<:" && peek(2) == ':' && peek(3) != ':' && peek(3) != '>') break;
        offset_ += op.text.size();
        return op.kind;
    }
    if (c == ':') return single(Kind::Colon);
    const bool isOperator = isAny(c, CharClass::punct) && c != '@' && c != '`' && c != '\\';
    return isOperator ? longOperator() : single(nothing);
}

// ---- Words

TokenKind Lexer::modernWord(std::size_t begin) {
    if (text_[begin] == '~') ++offset_;
    skipModernWord();
    const std::string_view word = text(begin, offset_);
    // No destructor has the name of a keyword.
    if (word.starts_with('~') && modernKeyword(word.substr(1)) != Kind::Identifier) {
        offset_ = begin;
        return single(Kind::Tilde);
    }
    if (peek() == '"' || peek() == '\'') {
        if (isEncodingPrefix(word)) return quoted(begin);
        if (language_ == Language::cpp && peek() == '"' && isRawPrefix(word)) return rawString();
    }
    if (language_ == Language::cpp && atScope()) return qualifiedWordFrom(begin);
    if (word.empty()) return single(Kind::Colon);  // `::` in C
    return modernKeyword(word);
}

TokenKind Lexer::modernKeyword(std::string_view word) const {
    const TokenKind kind = keywordTable.kindOf(word);
    if (kind != Kind::Identifier) {
        return language_ == Language::c && isCppOnly(kind) ? TokenKind{Kind::Identifier} : kind;
    }
    const bool mayBeOperator = word.size() <= longestOperatorWord && !word.empty() &&
                               beginsOperatorWord[static_cast<unsigned char>(word.front())];
    if (language_ == Language::c || !mayBeOperator) return kind;
    for (const Spelling& op : operatorWords) {
        if (op.text == word) return op.kind;
    }
    return kind;
}

// Behind the backslash and the letter of a universal character name, or `offset` itself.
std::size_t Lexer::passUniversalName(std::size_t offset) const {
    if (offset + 1 >= size_ || text_[offset] != '\\') return offset;
    return text_[offset + 1] == 'u' || text_[offset + 1] == 'U' ? offset + 2 : offset;
}

void Lexer::skipModernWord() {
    std::size_t offset = offset_;
    for (;;) {
        while (offset < size_ && isWordPart(text_[offset])) ++offset;
        const std::size_t next = passUniversalName(offset);
        if (next == offset) break;
        offset = next;
    }
    offset_ = offset;
}

// ---- Numbers and literals

TokenKind Lexer::preprocessingNumber() {
    for (++offset_; offset_ < size_;) {
        const char c = text_[offset_];
        const bool isExponent = c == 'e' || c == 'E' || c == 'p' || c == 'P';
        if (isExponent && (peek(1) == '+' || peek(1) == '-')) {
            offset_ += 2;
        } else if (isWordPart(c) || c == '.') {
            ++offset_;
        } else if (c == '\'' && isWordPart(peek(1))) {
            offset_ += 2;
        } else {
            break;
        }
    }
    return Kind::Number;
}

// A string or character literal with its prefix, which has been read, and its suffix. One that its line cuts is
// defective as far as the line goes.
TokenKind Lexer::quoted(std::size_t begin) {
    const char quote = text_[offset_];
    const Trn::Position first{line_, positionAt(begin).column + 1};
    for (++offset_; !atEnd(); ++offset_) {
        const char c = text_[offset_];
        if (c == quote) {
            ++offset_;
            return withSuffix(quote == '"' ? Kind::StringLiteral : Kind::CharLiteral);
        }
        if (c == '\n') break;
        if (c == '\\' && offset_ + 1 < size_) {
            // Blanks may stand between the backslash and the end of the line that it joins to the next.
            std::size_t next = offset_ + 1;
            while (next < size_ && text_[next] == ' ') ++next;
            if (next < size_ && text_[next] == '\n') {
                offset_ = next + 1;
                startLine();
                --offset_;
            } else {
                ++offset_;
            }
        }
    }
    return oddToken(Trn::Token(Kind::Defective, first, cursor(), text(begin, offset_)));
}

TokenKind Lexer::withSuffix(TokenKind literal) {
    if (language_ == Language::cpp && offset_ < size_ && isWordStart(text_[offset_])) skipModernWord();
    return literal;
}

// In front of the quote behind `R`.
TokenKind Lexer::rawString() {
    const std::size_t quote = offset_;
    const std::string_view rest = text(quote + 1, size_);
    const std::size_t paren = rest.substr(0, 17).find('(');
    std::size_t end = size_;
    if (paren != std::string_view::npos) {
        const std::string close = ")" + std::string(rest.substr(0, paren)) + '"';
        const std::size_t found = rest.find(close, paren);
        if (found != std::string_view::npos) end = quote + 1 + found + close.size();
    } else {
        end = quote + 1;
    }
    moveTo(end);
    return withSuffix(Kind::StringLiteral);
}

// ---- Directives

// In front of a quote in a directive: the offset behind the quote that closes it in the same line, or `offset_`.
std::size_t Lexer::quoteEnd() const {
    const char quote = text_[offset_];
    for (std::size_t at = offset_ + 1; at < size_ && text_[at] != '\n'; ++at) {
        if (text_[at] == quote) return at + 1;
        if (text_[at] == '\\' && at + 1 < size_ && text_[at + 1] != '\n') ++at;
    }
    return offset_;
}

}  // namespace Cpp
