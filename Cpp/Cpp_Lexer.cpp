// The C++ lexer: one recogniser for each sort of token, chosen by the first character or two.
// It reads a contiguous text by offset and knows its line and the offset at which that line starts.
#include "Cpp_Lexer.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <ostream>

#include "Cpp_CharClasses.h"
#include "Cpp_Keywords.h"

namespace Cpp {

using Trn::Position;
using Trn::Token;
using Trn::TokenKind;
namespace Kind = Trn::Kind;

namespace {

Token::ValueType valueTypeOf(TokenKind kind) {
    switch (kind) {
        case Kind::Identifier:
        case Kind::StringLiteral:
            return Token::ValueType::String;
        case Kind::CharLiteral:
            return Token::ValueType::Char;
        default:
            return Token::ValueType::None;
    }
}

}  // namespace

Lexer::Lexer(std::string_view text, Position start)
    : text_(text.data()),
      size_(text.size()),
      line_(std::max(start.line, 1)),
      lineStart_(-std::max<std::ptrdiff_t>(start.column, 0)) {}

Lexer::Lexer(std::string_view text, Dialect dialect, Language language) : Lexer(text) {
    dialect_ = dialect;
    language_ = language;
}

Lexer::~Lexer() = default;

Token Lexer::next() {
    if (hasPending_) {
        hasPending_ = false;
        return pending_;
    }
    // An end token stands where the last token ended, in front of the white space behind it.
    const Position start = cursor();
    const Lexeme found = read();
    if (found.kind == nothing) return endToken(start);
    if (found.kind == isOdd) return odd_;
    const Position first{found.line, static_cast<int>(static_cast<std::ptrdiff_t>(found.begin) - found.lineStart) + 1};
    return Token(found.kind, first, cursor(), text(found.begin, found.end), valueTypeOf(found.kind));
}

Trn::TokenBuffer Lexer::readAll() {
    Trn::TokenBuffer buffer({text_, size_}, Trn::LineTable(line_, lineStart_));
    if (hasPending_) buffer.add(pending_);
    hasPending_ = false;
    buffer_ = &buffer;
    std::size_t start = offset_;
    while (readTo(buffer)) start = offset_;
    buffer.addEnd(start);
    buffer.addEnd(offset_);
    buffer_ = nullptr;
    return buffer;
}

// As `next`, without a token in between.
inline bool Lexer::readTo(Trn::TokenBuffer& buffer) {
    for (skipWhiteSpace(); !atEnd(); skipWhiteSpace()) {
        const std::size_t begin = offset_;
        const TokenKind kind = recognize(begin);
        if (kind == nothing) continue;
        if (kind == isOdd) {
            buffer.add(odd_);
        } else {
            buffer.add(kind, begin, offset_);
        }
        if (hasPending_) buffer.add(pending_);
        hasPending_ = false;
        return true;
    }
    return false;
}

void Lexer::dump(std::ostream& os) const {
    os << "line:\t" << cursor().line << "\tcol:\t" << cursor().column << "\tlastlinecol:\t" << -1 << '\n';
}

inline Lexer::Lexeme Lexer::read() {
    Lexeme found;
    for (skipWhiteSpace(); !atEnd(); skipWhiteSpace()) {
        found.begin = offset_;
        found.line = line_;
        found.lineStart = lineStart_;
        found.kind = recognize(found.begin);
        found.end = offset_;
        if (found.kind != nothing) break;
    }
    return found;
}

namespace {

// What a token may be that begins with a character: one of the sorts below, or the kind of an operator that no
// character extends.
namespace LeadSort {

constexpr std::int8_t none = -1, word = -2, number = -3, slash = -4, colon = -5, tilde = -6, quote = -7,
                      apostrophe = -8, hash = -9, longOperator = -10;

}  // namespace LeadSort

constexpr std::array<std::int8_t, 256> makeSorts() {
    std::array<std::int8_t, 256> sorts{};
    for (unsigned c = 0; c < sorts.size(); ++c) {
        const char character = static_cast<char>(c);
        sorts[c] = isAny(character, CharClass::alpha | CharClass::underscore) ? LeadSort::word
                   : isAny(character, CharClass::digit)                       ? LeadSort::number
                                                                              : LeadSort::none;
    }
    constexpr std::pair<char, TokenKind> singles[] = {
        {'(', Kind::OpenParen},  {')', Kind::CloseParen},  {'{', Kind::OpenBrace},
        {'}', Kind::CloseBrace}, {'[', Kind::OpenBracket}, {']', Kind::CloseBracket},
        {';', Kind::Semicolon},  {',', Kind::Comma},       {'?', Kind::Question},
    };
    for (const auto& [c, kind] : singles) sorts[static_cast<unsigned char>(c)] = static_cast<std::int8_t>(kind);
    for (const char c : {'!', '%', '&', '*', '+', '-', '.', '<', '=', '>', '^', '|'}) {
        sorts[static_cast<unsigned char>(c)] = LeadSort::longOperator;
    }
    constexpr std::pair<char, std::int8_t> others[] = {{'/', LeadSort::slash}, {':', LeadSort::colon},
                                                       {'~', LeadSort::tilde},
                                                       {'"', LeadSort::quote}, {'\'', LeadSort::apostrophe},
                                                       {'#', LeadSort::hash}};
    for (const auto& [c, sort] : others) sorts[static_cast<unsigned char>(c)] = sort;
    return sorts;
}

constexpr std::array<std::int8_t, 256> sorts = makeSorts();

}  // namespace

inline TokenKind Lexer::recognize(std::size_t begin) {
    const std::int8_t sort = sorts[static_cast<unsigned char>(text_[begin])];
    if (sort >= 0) return single(sort);
    if (dialect_ == Dialect::modern) return modernToken(begin);
    switch (sort) {
        case LeadSort::word:
            return word(begin);
        case LeadSort::number:
            return number();
        case LeadSort::longOperator:
            return longOperator();
        case LeadSort::slash:
            return slash();
        case LeadSort::colon:
            return colon(begin);
        case LeadSort::tilde:
            return tilde(begin);
        case LeadSort::quote:
            return stringLiteral();
        case LeadSort::apostrophe:
            return charLiteral(begin);
        case LeadSort::hash:
            return directive(begin);
        default:
            return single(nothing);
    }
}

TokenKind Lexer::slash() {
    if (peek(1) != '/' && peek(1) != '*') return longOperator();
    return peek(1) == '/' ? lineComment() : blockComment();
}

TokenKind Lexer::colon(std::size_t begin) { return atScope() ? word(begin) : single(Kind::Colon); }

TokenKind Lexer::tilde(std::size_t begin) {
    return isAny(peek(1), CharClass::alpha) ? word(begin) : single(Kind::Tilde);
}

TokenKind Lexer::single(TokenKind kind) {
    ++offset_;
    return kind;
}

TokenKind Lexer::oddToken(const Token& token) {
    odd_ = token;
    return isOdd;
}

// ---- Comments

TokenKind Lexer::lineComment() {
    do {
        const void* lineFeed = std::memchr(text_ + offset_, '\n', size_ - offset_);
        if (lineFeed == nullptr) {
            offset_ = size_;
        } else {
            offset_ = static_cast<std::size_t>(static_cast<const char*>(lineFeed) + 1 - text_);
            startLine();
        }
        // A backslash joins the next line to the comment.
    } while (dialect_ == Dialect::modern && !atEnd() && text_[offset_ - 1] == '\n' && text_[offset_ - 2] == '\\');
    return Kind::LineComment;
}

TokenKind Lexer::blockComment() {
    const std::size_t close = std::string_view(text_, size_).find("*/", offset_ + 2);
    moveTo(close == std::string_view::npos ? size_ : close + 2);
    return Kind::BlockComment;
}

// ---- Words

// A word whose `::` is yet to be read. Offsets are those of the source; `joined` holds the parts in front of
// `partBegin` once white space behind a `::` has been dropped.
struct Lexer::Word {
    Position first;
    std::size_t partBegin;
    std::string joined{};

    std::size_t sizeUpTo(std::size_t offset) const { return joined.size() + (offset - partBegin); }
};

TokenKind Lexer::word(std::size_t begin) {
    if (text_[begin] == '~') ++offset_;
    skipWordCharacters();
    if (atScope()) return qualifiedWordFrom(begin);
    // No keyword begins with anything else.
    const char c = text_[begin];
    return c >= 'a' && c <= 'w' ? keywordTable.kindOf(text(begin, offset_)) : Kind::Identifier;
}

// Behind the first part of the word, in front of its first `::`.
TokenKind Lexer::qualifiedWordFrom(std::size_t begin) {
    const Position first = positionAt(begin);
    return qualifiedWord({{first.line, first.column + 1}, begin});
}

TokenKind Lexer::qualifiedWord(Word word) {
    std::size_t separatorIndex = 0;  // of the last `::` in the word's text
    std::size_t nameIndex = std::string_view::npos;
    Position separatorFirst, separatorLast;
    std::size_t end = offset_;
    while (atScope()) {
        separatorIndex = word.sizeUpTo(offset_);
        separatorLast = cursor();
        ++offset_;
        separatorFirst = cursor();
        end = ++offset_;
        skipWhiteSpace();
        if (!isAny(peek(), CharClass::alpha | CharClass::underscore) && peek() != '~') break;

        if (offset_ != end) {
            word.joined += text(word.partBegin, end);
            word.partBegin = offset_;
        }
        nameIndex = word.sizeUpTo(offset_);
        ++offset_;
        skipWordCharacters();
        end = offset_;
    }

    std::string_view text = this->text(word.partBegin, end);
    const bool isJoined = !word.joined.empty();
    if (isJoined) text = keep(std::move(word.joined.append(text)));

    const std::string_view name = text.substr(std::min(nameIndex, text.size()));
    if (name == "new" || name == "delete" || name == "operator") {
        pending_ = Token(keywordTable.kindOf(name), separatorFirst, cursor(), text.substr(separatorIndex));
        hasPending_ = true;
        return oddToken(Token(Kind::Identifier, word.first, separatorLast, text.substr(0, separatorIndex)));
    }
    if (!isJoined && end == offset_) return Kind::Identifier;
    return oddToken(Token(Kind::Identifier, word.first, cursor(), text, Token::ValueType::String));
}

// ---- Numbers

// A number that runs into a letter is none, and its digits are skipped.
TokenKind Lexer::number() {
    const char digit = text_[offset_++];
    const bool isHexadecimal = digit == '0' && (peek() == 'x' || peek() == 'X');
    if (isHexadecimal) ++offset_;
    skipNumberBody(isHexadecimal);
    return atEnd() || isAny(peek(), CharClass::space | CharClass::punct) ? Kind::Number : nothing;
}

void Lexer::skipNumberBody(bool isHexadecimal) {
    const std::uint8_t digits = isHexadecimal ? CharClass::digit | CharClass::hexDigit : CharClass::digit;
    bool seenPoint = false;
    bool seenExponent = false;
    for (;;) {
        const char c = peek();
        if (isAny(c, digits)) {
            ++offset_;
        } else if (c == '.' && !seenPoint) {
            seenPoint = true;
            ++offset_;
        } else if ((c == 'e' || c == 'E') && !seenExponent) {
            seenExponent = true;
            ++offset_;
            if (peek() == '+' || peek() == '-') ++offset_;
        } else if ((c == 'u' || c == 'U' || c == 'l' || c == 'L') && !seenPoint && !seenExponent) {
            skipAnyOf("uUlL");
        } else if (c == 'l' || c == 'L' || c == 'f' || c == 'F') {
            skipAnyOf("lLfF");
        } else {
            return;
        }
    }
}

// ---- Literals

// A backslash continues the literal over a line end, also with blanks behind it. A literal that a line end cuts
// is no token.
TokenKind Lexer::stringLiteral() {
    bool isEscaped = false;
    char lastNonSpace = 0;
    for (++offset_; !atEnd();) {
        const char c = text_[offset_++];
        if (c == '\n') {
            startLine();
            if (lastNonSpace != '\\') return nothing;
            lastNonSpace = 0;
        } else if (!isSpace(c)) {
            lastNonSpace = c;
        }
        if (c == '"' && !isEscaped) break;
        isEscaped = c == '\\' && !isEscaped;
    }
    return Kind::StringLiteral;
}

TokenKind Lexer::charLiteral(std::size_t begin) {
    bool isEscaped = false;
    bool isClosed = false;
    bool isCut = false;
    for (++offset_; !atEnd() && !isClosed && !isCut;) {
        const char c = text_[offset_++];
        isClosed = c == '\'' && !isEscaped;
        isCut = c == '\n';
        isEscaped = c == '\\' && !isEscaped;
        // A backslash behind a backslash is read at once and opens no escape.
        if (isEscaped && peek() == '\\') {
            ++offset_;
            isEscaped = false;
        }
    }
    std::string_view text = this->text(begin, offset_);
    // The value is empty for an empty literal and for a lone backslash, which unescaping drops.
    if (isClosed) return text == "''" || text == "'\\'" ? Kind::Defective : Kind::CharLiteral;

    const Position first{line_, positionAt(begin).column + 1};
    if (isCut) {
        startLine();
        text.remove_suffix(1);
    }
    text = keep(std::string(text) + '\'');
    if (isCut || text == "''" || text == "'\\'") return oddToken(Token(Kind::Defective, first, cursor(), text));
    return oddToken(Token(Kind::CharLiteral, first, cursor(), text, Token::ValueType::Char));
}

// ---- Directives

// Ends with the line, where a backslash with or without blanks behind it continues it; in front of a line
// comment; and in front of a block comment that goes beyond the line, which is the next token then.
TokenKind Lexer::directive(std::size_t begin) {
    const Position start = cursor();
    const Position first{start.line, start.column + 1};
    char lastNonSpace = 0;
    for (++offset_; !atEnd();) {
        const char c = text_[offset_];
        if (dialect_ == Dialect::modern && (c == '"' || c == '\'') && quoteEnd() != offset_) {
            offset_ = quoteEnd();
            lastNonSpace = c;
            continue;
        }
        if (c == '/' && peek(1) == '/') break;
        if (c == '/' && peek(1) == '*') {
            const Position last = cursor();
            const std::size_t end = offset_;
            blockComment();
            if (line_ > last.line && dialect_ == Dialect::classic) {
                pending_ = Token(Kind::BlockComment, {last.line, last.column + 1}, cursor(), text(end, offset_));
                hasPending_ = true;
                return oddToken(Token(Kind::Directive, first, last, text(begin, end)));
            }
            lastNonSpace = 0;
            continue;
        }
        ++offset_;
        if (c == '\n') {
            startLine();
            if (lastNonSpace != '\\') break;
            lastNonSpace = 0;
        } else if (!isSpace(c)) {
            lastNonSpace = c;
        }
    }
    return Kind::Directive;
}

// ---- Operators

namespace {

struct Operator {
    std::string_view text;
    Trn::TokenKind kind;
};

// Longest text first among those with the same first character.
constexpr Operator operators[] = {
    {"!=", Kind::NotEqual},    {"!", Kind::Not},           {"%=", Kind::PercentAssign},
    {"%", Kind::Percent},      {"&&", Kind::AmpAmp},       {"&=", Kind::AmpAssign},
    {"&", Kind::Amp},          {"(", Kind::OpenParen},     {")", Kind::CloseParen},
    {"*=", Kind::StarAssign},  {"*", Kind::Star},          {"++", Kind::PlusPlus},
    {"+=", Kind::PlusAssign},  {"+", Kind::Plus},          {",", Kind::Comma},
    {"->*", Kind::ArrowStar},  {"--", Kind::MinusMinus},   {"-=", Kind::MinusAssign},
    {"->", Kind::Arrow},       {"-", Kind::Minus},         {".*", Kind::DotStar},
    {".", Kind::Dot},          {"/=", Kind::SlashAssign},  {"/", Kind::Slash},
    {":", Kind::Colon},        {";", Kind::Semicolon},     {"<<=", Kind::ShiftLeftAssign},
    {"<<", Kind::ShiftLeft},   {"<=", Kind::LessEqual},    {"<", Kind::Less},
    {"==", Kind::EqualEqual},  {"=", Kind::Assign},        {">>=", Kind::ShiftRightAssign},
    {">>", Kind::ShiftRight},  {">=", Kind::GreaterEqual}, {">", Kind::Greater},
    {"?", Kind::Question},     {"[", Kind::OpenBracket},   {"]", Kind::CloseBracket},
    {"^=", Kind::CaretAssign}, {"^", Kind::Caret},         {"{", Kind::OpenBrace},
    {"|=", Kind::PipeAssign},  {"||", Kind::PipePipe},     {"|", Kind::Pipe},
    {"}", Kind::CloseBrace},   {"~", Kind::Tilde},
};

// For each character the index of its first operator plus 1, or 0 where it begins none.
constexpr std::array<std::uint8_t, 128> makeOperatorIndex() {
    std::array<std::uint8_t, 128> index{};
    for (std::size_t i = std::size(operators); i-- > 0;) {
        index[static_cast<unsigned char>(operators[i].text[0])] = static_cast<std::uint8_t>(i + 1);
    }
    return index;
}

constexpr std::array<std::uint8_t, 128> operatorIndex = makeOperatorIndex();

}  // namespace

// The single character is last among its operators, so that the search ends.
TokenKind Lexer::longOperator() {
    const Operator* candidate = &operators[operatorIndex[static_cast<unsigned char>(text_[offset_])] - 1];
    const auto isRead = [this](std::string_view op) {
        return (op.size() < 2 || peek(1) == op[1]) && (op.size() < 3 || peek(2) == op[2]);
    };
    while (!isRead(candidate->text)) ++candidate;
    offset_ += candidate->text.size();
    return candidate->kind;
}

// ---- The cursor

void Lexer::moveTo(std::size_t offset) {
    while (const void* lineFeed = std::memchr(text_ + offset_, '\n', offset - offset_)) {
        offset_ = static_cast<std::size_t>(static_cast<const char*>(lineFeed) + 1 - text_);
        startLine();
    }
    offset_ = offset;
}

inline void Lexer::skipWhiteSpace() {
    std::size_t offset = offset_;
    for (;;) {
        while (offset != size_ && text_[offset] == ' ') ++offset;
        if (offset == size_ || !isSpace(text_[offset])) break;
        if (text_[offset++] == '\n') {
            offset_ = offset;
            startLine();
        }
    }
    offset_ = offset;
}

inline void Lexer::skipWordCharacters() {
    std::size_t offset = offset_;
    while (offset != size_ && isAny(text_[offset], CharClass::word)) ++offset;
    offset_ = offset;
}

void Lexer::skipAnyOf(std::string_view letters) {
    while (letters.find(peek()) != std::string_view::npos) ++offset_;
}

std::string_view Lexer::keep(std::string text) {
    keptTexts_.push_front(std::move(text));
    return keptTexts_.front();
}

}  // namespace Cpp
