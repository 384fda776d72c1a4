// The C++ lexer of a formatter: comments and preprocessor lines are tokens, names with `::` are one token,
// and nothing is evaluated. It never fails: what it can't read it skips.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

#include "Trn_Lexer.h"
#include "Vellum_ITextDocStream.h"

namespace Cpp {

// Reads a text with normalised line ends, which must outlive the lexer and its tokens. The few token texts that
// differ from the source are kept by the lexer, so a token must not outlive its lexer either.
class Lexer : public Trn::Lexer {
public:
    // Positions count from `start`, the cursor in front of the first character. A line below 1 counts as 1 and
    // a column below 0 as 0.
    explicit Lexer(std::string_view text, Trn::Position start = {1, 0});
    ~Lexer() override;
    Lexer(const Lexer&) = delete;
    Lexer& operator=(const Lexer&) = delete;

    Trn::Token next() override;
    void dump(std::ostream& os) const override;

private:
    struct Word;

    // The recognisers. Each starts in front of its first character. Those that give a bool tell whether they made
    // a token; without one they leave the cursor where reading goes on.
    bool recognize(Trn::Token& token);
    bool recognizeSlash(Trn::Token& token);
    bool recognizeColon(Trn::Token& token);
    bool recognizeTilde(Trn::Token& token);
    bool recognizeNumber(Trn::Token& token);
    bool recognizeString(Trn::Token& token);
    Trn::Token lineComment();
    Trn::Token blockComment();
    Trn::Token word();
    Trn::Token qualifiedWord(Word word);
    Trn::Token charLiteral();
    Trn::Token directive();
    Trn::Token operatorToken(Trn::TokenKind kind, std::size_t length);
    bool recognizeOperator(Trn::Token& token);

    // The cursor.
    bool atEnd() const { return offset_ == text_.size(); }
    char peek(std::size_t ahead = 0) const;
    Trn::Position cursor() const;
    Trn::Position cursorBehindNext() const;
    std::string_view textFrom(std::size_t begin) const { return text_.substr(begin, offset_ - begin); }
    void startLine();
    void moveTo(std::size_t offset);
    void skipWhiteSpace();
    void skipWordCharacters();
    void skipNumberBody(bool isHexadecimal);
    void skipAnyOf(std::string_view letters);
    bool atScope() const { return peek() == ':' && peek(1) == ':'; }

    std::string_view keep(std::string text);

    std::string_view text_;
    std::size_t offset_ = 0;
    int line_;
    std::ptrdiff_t lineStart_;  // offset at which the column would be 0; negative if the text starts in mid-line
    Trn::Token pending_;        // the second token of a recogniser that found two; of kind -1 when there is none
    std::deque<std::string> keptTexts_;
};

}  // namespace Cpp
