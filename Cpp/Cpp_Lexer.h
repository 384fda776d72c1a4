// The C++ lexer of a formatter: comments and preprocessor lines are tokens, names with `::` are one token,
// and nothing is evaluated. It never fails: what it can't read it skips.
#pragma once

#include <cstddef>
#include <forward_list>
#include <string>
#include <string_view>

#include "Cpp_Dialect.h"
#include "Trn_Lexer.h"
#include "Trn_TokenBuffer.h"

namespace Cpp {

// Reads a text with normalised line ends, which must outlive the lexer and its tokens. The few token texts that
// differ from the source are kept by the lexer, so a token must not outlive its lexer either.
class Lexer : public Trn::Lexer {
public:
    // Positions count from `start`, the cursor in front of the first character. A line below 1 counts as 1 and
    // a column below 0 as 0.
    explicit Lexer(std::string_view text, Trn::Position start = {1, 0});
    // Reads the text from its first character.
    Lexer(std::string_view text, Dialect dialect, Language language = Language::cpp);
    ~Lexer() override;
    Lexer(const Lexer&) = delete;
    Lexer& operator=(const Lexer&) = delete;

    Trn::Token next() override;
    void dump(std::ostream& os) const override;

    // All tokens that `next` would give, and two end tokens: the first stands where its reading began, which is in
    // front of trailing white space, the second at the very end. The buffer must not outlive the lexer.
    Trn::TokenBuffer readAll();
    Language language() const { return language_; }
    std::string_view source() const { return {text_, size_}; }

private:
    struct Word;

    // What a recogniser has found: a token that is the text from `begin` to `end`, or `odd_`. It may also have found
    // nothing, and then reading goes on from where it stopped.
    struct Lexeme {
        Trn::TokenKind kind = nothing;
        std::size_t begin = 0;
        std::size_t end = 0;
        int line = 0;  // at `begin`
        std::ptrdiff_t lineStart = 0;
    };
    static constexpr Trn::TokenKind nothing = -2, isOdd = -3;

    // Passes over white space and gives the next token, or `nothing` at the end of the text.
    Lexeme read();
    Trn::Token endToken(Trn::Position start) const { return {Trn::Kind::EndOfInput, start, start}; }

    bool readTo(Trn::TokenBuffer& buffer);

    // The recognisers. Each starts in front of its first character and gives the kind of what it has passed over.
    Trn::TokenKind recognize(std::size_t begin);
    Trn::TokenKind slash();
    Trn::TokenKind colon(std::size_t begin);
    Trn::TokenKind tilde(std::size_t begin);
    Trn::TokenKind number();
    Trn::TokenKind stringLiteral();
    Trn::TokenKind modernToken(std::size_t begin);
    Trn::TokenKind modernWord(std::size_t begin);
    Trn::TokenKind modernKeyword(std::string_view word) const;
    Trn::TokenKind rawString();
    Trn::TokenKind withSuffix(Trn::TokenKind literal);
    Trn::TokenKind preprocessingNumber();
    Trn::TokenKind quoted(std::size_t begin);
    std::size_t passUniversalName(std::size_t offset) const;
    std::size_t quoteEnd() const;
    void skipModernWord();
    Trn::TokenKind charLiteral(std::size_t begin);
    Trn::TokenKind lineComment();
    Trn::TokenKind blockComment();
    Trn::TokenKind directive(std::size_t begin);
    Trn::TokenKind word(std::size_t begin);
    Trn::TokenKind qualifiedWord(Word word);
    Trn::TokenKind qualifiedWordFrom(std::size_t begin);
    Trn::TokenKind longOperator();
    Trn::TokenKind single(Trn::TokenKind kind);
    Trn::TokenKind oddToken(const Trn::Token& token);

    // The cursor.
    bool atEnd() const { return offset_ == size_; }
    // What a look beyond the end of the text gives is a character of no class.
    char peek(std::size_t ahead = 0) const { return offset_ + ahead < size_ ? text_[offset_ + ahead] : '\xff'; }
    Trn::Position cursor() const { return positionAt(offset_); }
    // Of an offset in the line of the cursor.
    Trn::Position positionAt(std::size_t offset) const {
        return {line_, static_cast<int>(static_cast<std::ptrdiff_t>(offset) - lineStart_)};
    }
    std::string_view text(std::size_t begin, std::size_t end) const { return {text_ + begin, end - begin}; }
    // To be called when the character just passed is a line feed.
    void startLine() {
        ++line_;
        lineStart_ = static_cast<std::ptrdiff_t>(offset_);
        if (buffer_ != nullptr) buffer_->addLine(offset_);
    }
    void moveTo(std::size_t offset);
    void skipWhiteSpace();
    void skipWordCharacters();
    void skipNumberBody(bool isHexadecimal);
    void skipAnyOf(std::string_view letters);
    bool atScope() const { return peek() == ':' && peek(1) == ':'; }

    std::string_view keep(std::string text);

    const char* text_;
    std::size_t size_;
    Dialect dialect_ = Dialect::classic;
    Language language_ = Language::cpp;
    std::size_t offset_ = 0;
    int line_;
    std::ptrdiff_t lineStart_;  // offset at which the column would be 0; negative if the text starts in mid-line
    bool hasPending_ = false;
    Trn::Token pending_;                  // the second token of a recogniser that found two
    Trn::Token odd_;                      // a token whose text or positions are not those of a stretch of the text
    Trn::TokenBuffer* buffer_ = nullptr;  // that is being filled, and wants to know where lines start
    std::forward_list<std::string> keptTexts_;
};

}  // namespace Cpp
