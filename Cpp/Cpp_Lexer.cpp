// The C++ lexer: one recogniser for each sort of token, chosen by the first character or two.
// It reads a contiguous text by offset and knows its line and the offset at which that line starts.
#include "Cpp_Lexer.h"

#include <algorithm>
#include <cstring>
#include <ostream>

#include "Cpp_CharClasses.h"
#include "Cpp_Keywords.h"

namespace Cpp {

using Trn::Position;
using Trn::Token;
namespace Kind = Trn::Kind;

namespace {

// What a look beyond the end of the text gives: a character of no class.
constexpr char endCharacter = '\xff';

}  // namespace

Lexer::Lexer(std::string_view text, Position start)
    : text_(text), line_(std::max(start.line, 1)), lineStart_(-std::max<std::ptrdiff_t>(start.column, 0)) {}

Lexer::~Lexer() = default;

Token Lexer::next() {
    if (pending_.kind() != Kind::EndOfInput) {
        const Token token = pending_;
        pending_ = Token();
        return token;
    }
    // An end token stands where the last token ended, in front of the white space behind it.
    const Position start = cursor();
    Token token;
    for (skipWhiteSpace(); !atEnd(); skipWhiteSpace()) {
        if (recognize(token)) return token;
    }
    return Token(Kind::EndOfInput, start, start);
}

void Lexer::dump(std::ostream& os) const {
    os << "line:\t" << cursor().line << "\tcol:\t" << cursor().column << "\tlastlinecol:\t" << -1 << '\n';
}

bool Lexer::recognize(Token& token) {
    const char c = peek();
    if (isAny(c, CharClass::alpha | CharClass::underscore)) {
        token = word();
        return true;
    }
    if (isAny(c, CharClass::digit)) return recognizeNumber(token);
    switch (c) {
        case '/':
            return recognizeSlash(token);
        case ':':
            return recognizeColon(token);
        case '~':
            return recognizeTilde(token);
        case '"':
            return recognizeString(token);
        case '\'':
            token = charLiteral();
            return true;
        case '#':
            token = directive();
            return true;
        default:
            return recognizeOperator(token);
    }
}

bool Lexer::recognizeSlash(Token& token) {
    if (peek(1) != '/' && peek(1) != '*') return recognizeOperator(token);
    token = peek(1) == '/' ? lineComment() : blockComment();
    return true;
}

bool Lexer::recognizeColon(Token& token) {
    token = atScope() ? word() : operatorToken(Kind::Colon, 1);
    return true;
}

bool Lexer::recognizeTilde(Token& token) {
    token = isAny(peek(1), CharClass::alpha) ? word() : operatorToken(Kind::Tilde, 1);
    return true;
}

// ---- Comments

Token Lexer::lineComment() {
    const std::size_t begin = offset_;
    const Position first = cursorBehindNext();
    const std::size_t lineFeed = text_.find('\n', offset_);
    moveTo(lineFeed == std::string_view::npos ? text_.size() : lineFeed + 1);
    return Token(Kind::LineComment, first, cursor(), textFrom(begin));
}

Token Lexer::blockComment() {
    const std::size_t begin = offset_;
    const Position first = cursorBehindNext();
    const std::size_t close = text_.find("*/", offset_ + 2);
    moveTo(close == std::string_view::npos ? text_.size() : close + 2);
    return Token(Kind::BlockComment, first, cursor(), textFrom(begin));
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

Token Lexer::word() {
    const std::size_t begin = offset_;
    const Position first = cursorBehindNext();
    if (peek() == '~') ++offset_;
    skipWordCharacters();
    if (atScope()) return qualifiedWord({first, begin});

    const std::string_view text = textFrom(begin);
    const Trn::TokenKind kind = keywordTable.kindOf(text);
    const auto valueType = kind == Kind::Identifier ? Token::ValueType::String : Token::ValueType::None;
    return Token(kind, first, cursor(), text, valueType);
}

Token Lexer::qualifiedWord(Word word) {
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
            word.joined += text_.substr(word.partBegin, end - word.partBegin);
            word.partBegin = offset_;
        }
        nameIndex = word.sizeUpTo(offset_);
        ++offset_;
        skipWordCharacters();
        end = offset_;
    }

    std::string_view text = text_.substr(word.partBegin, end - word.partBegin);
    if (!word.joined.empty()) text = keep(std::move(word.joined.append(text)));

    const std::string_view name = text.substr(std::min(nameIndex, text.size()));
    if (name == "new" || name == "delete" || name == "operator") {
        pending_ = Token(keywordTable.kindOf(name), separatorFirst, cursor(), text.substr(separatorIndex));
        return Token(Kind::Identifier, word.first, separatorLast, text.substr(0, separatorIndex));
    }
    return Token(Kind::Identifier, word.first, cursor(), text, Token::ValueType::String);
}

// ---- Numbers

bool Lexer::recognizeNumber(Token& token) {
    const std::size_t begin = offset_;
    const Position first = cursorBehindNext();
    ++offset_;
    const bool isHexadecimal = text_[begin] == '0' && (peek() == 'x' || peek() == 'X');
    if (isHexadecimal) ++offset_;
    skipNumberBody(isHexadecimal);

    // A number that runs into a letter is none, and its digits are skipped.
    if (!atEnd() && !isAny(peek(), CharClass::space | CharClass::punct)) return false;
    token = Token(Kind::Number, first, cursor(), textFrom(begin));
    return true;
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
bool Lexer::recognizeString(Token& token) {
    const std::size_t begin = offset_;
    const Position first = cursorBehindNext();
    bool isEscaped = false;
    char lastNonSpace = 0;
    for (++offset_; !atEnd();) {
        const char c = text_[offset_++];
        if (c == '\n') {
            startLine();
            if (lastNonSpace != '\\') return false;
            lastNonSpace = 0;
        } else if (!isSpace(c)) {
            lastNonSpace = c;
        }
        if (c == '"' && !isEscaped) break;
        isEscaped = c == '\\' && !isEscaped;
    }
    token = Token(Kind::StringLiteral, first, cursor(), textFrom(begin), Token::ValueType::String);
    return true;
}

Token Lexer::charLiteral() {
    const std::size_t begin = offset_;
    const Position first = cursorBehindNext();
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
    std::string_view text = textFrom(begin);
    if (!isClosed) {
        if (isCut) {
            startLine();
            text.remove_suffix(1);
        }
        text = keep(std::string(text) + '\'');
    }
    // The value is empty for an empty literal and for a lone backslash, which unescaping drops.
    if (isCut || text == "''" || text == "'\\'") return Token(Kind::Defective, first, cursor(), text);
    return Token(Kind::CharLiteral, first, cursor(), text, Token::ValueType::Char);
}

// ---- Directives

// Ends with the line, where a backslash with or without blanks behind it continues it; in front of a line
// comment; and in front of a block comment that goes beyond the line, which is the next token then.
Token Lexer::directive() {
    const std::size_t begin = offset_;
    const Position first = cursorBehindNext();
    char lastNonSpace = 0;
    for (++offset_; !atEnd();) {
        const char c = text_[offset_];
        if (c == '/' && peek(1) == '/') break;
        if (c == '/' && peek(1) == '*') {
            const Position last = cursor();
            const std::size_t end = offset_;
            const Token comment = blockComment();
            if (comment.last().line > last.line) {
                pending_ = comment;
                return Token(Kind::Directive, first, last, text_.substr(begin, end - begin));
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
    return Token(Kind::Directive, first, cursor(), textFrom(begin));
}

// ---- Operators

Token Lexer::operatorToken(Trn::TokenKind kind, std::size_t length) {
    const std::size_t begin = offset_;
    const Position first = cursorBehindNext();
    offset_ += length;
    return Token(kind, first, cursor(), textFrom(begin));
}

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

bool Lexer::recognizeOperator(Token& token) {
    const auto c = static_cast<unsigned char>(peek());
    if (c >= operatorIndex.size() || operatorIndex[c] == 0) {
        ++offset_;
        return false;
    }
    // The single character is last among its operators, so that the search ends.
    const Operator* candidate = &operators[operatorIndex[c] - 1];
    while (text_.compare(offset_, candidate->text.size(), candidate->text) != 0) ++candidate;
    token = operatorToken(candidate->kind, candidate->text.size());
    return true;
}

// ---- The cursor

char Lexer::peek(std::size_t ahead) const {
    return offset_ + ahead < text_.size() ? text_[offset_ + ahead] : endCharacter;
}

Position Lexer::cursor() const { return {line_, static_cast<int>(static_cast<std::ptrdiff_t>(offset_) - lineStart_)}; }

Position Lexer::cursorBehindNext() const {
    const Position position = cursor();
    return {position.line, position.column + 1};
}

// To be called when the character just passed is a line feed.
void Lexer::startLine() {
    ++line_;
    lineStart_ = static_cast<std::ptrdiff_t>(offset_);
}

void Lexer::moveTo(std::size_t offset) {
    const char* const begin = text_.data();
    const char* at = begin + offset_;
    while (const void* lineFeed = std::memchr(at, '\n', static_cast<std::size_t>(begin + offset - at))) {
        at = static_cast<const char*>(lineFeed) + 1;
        ++line_;
        lineStart_ = at - begin;
    }
    offset_ = offset;
}

void Lexer::skipWhiteSpace() {
    while (isSpace(peek())) {
        ++offset_;
        if (text_[offset_ - 1] == '\n') startLine();
    }
}

void Lexer::skipWordCharacters() {
    while (isAny(peek(), CharClass::word)) ++offset_;
}

void Lexer::skipAnyOf(std::string_view letters) {
    while (letters.find(peek()) != std::string_view::npos) ++offset_;
}

std::string_view Lexer::keep(std::string text) {
    keptTexts_.push_back(std::move(text));
    return keptTexts_.back();
}

}  // namespace Cpp
