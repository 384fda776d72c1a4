// Cuts a text into the preprocessing tokens of today's C and C++, whatever the parser's grammar knows of them. It reads
// the text as a compiler does: a backslash at a line end, with or without blanks behind it, joins two lines anywhere.
#pragma once

#include <cstddef>
#include <string_view>

#include "guard/Brevis_SeamToken.h"

namespace Brevis {

// The offset behind a backslash at `at` that joins two lines, or `at` if there is none.
std::size_t seamSpliceEnd(std::string_view text, std::size_t at);

class SeamLexer {
public:
    // `text` has line feeds for line ends and must outlive the lexer.
    explicit SeamLexer(std::string_view text)
        : text_(text), at_(text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0) {}

    // The next token or comment; one of kind End, of no length and in no directive, for ever at the end of the text.
    SeamToken next();

    // True if what was read has no say in what comes, but for whether a line has begun: outside of directives.
    bool isIndifferent() const { return !inDirective_ && expected_ == Expected::Anything; }
    // Passes over all up to a punctuator of one character and gives that. Only for an indifferent lexer, and only if
    // what is passed over holds no directive.
    SeamToken goOnBehind(std::size_t punctuator) {
        at_ = punctuator + 1;
        atLineStart_ = false;
        SeamToken token;
        token.kind = SeamKind::Punctuator;
        token.begin = punctuator;
        token.end = at_;
        return token;
    }

private:
    // What the token in front of the next one lets expect.
    enum class Expected { Anything, DirectiveName, MacroName, MacroParen, HeaderName, Question, QuestionParen };

    SeamKind recognize();
    SeamKind recognizeWord();
    SeamKind recognizeNumber();
    SeamKind recognizeSlash();
    SeamKind recognizePunctuator();
    SeamKind recognizeQuoted();
    SeamKind recognizeRaw();
    SeamKind recognizeSuffix();
    bool recognizeHeaderName();
    // The offset behind a header name at `at`, or `at` if there is none.
    std::size_t headerNameEnd(std::size_t at) const;
    bool isLiteralPrefix(std::size_t begin) const;
    void passBlockComment();
    void passLine();
    void passWordCharacters();

    // Moves behind white space and joined lines. True if there was any white space, joined lines left out.
    bool skipWhiteSpace(bool& isSpliced);
    // Takes note of what the token means for those behind it.
    void follow(SeamToken& token, bool isFirst, bool isSpaced);
    bool isDirectiveSign(const SeamToken& token) const;
    Expected expectedBehind(SeamToken& token, bool isSpaced) const;

    char peek(std::size_t at) const { return at < text_.size() ? text_[at] : '\0'; }
    bool isAt(std::size_t at, char c) const { return at < text_.size() && text_[at] == c; }
    // The offset of the character at or behind `at` that a compiler sees next.
    std::size_t passSplices(std::size_t at) const;
    // The length of a universal character name at `at`, or 0.
    std::size_t universalNameLength(std::size_t at) const;
    bool isWordAt(std::size_t at) const;
    // The end of what stands in front of the offset: without white space and joined lines.
    std::size_t trimmedEnd(std::size_t end) const;
    // True if the stretch reads `text` once its lines are joined.
    bool isText(std::size_t begin, std::size_t end, std::string_view text) const;
    bool isText(const SeamToken& token, std::string_view text) const;

    std::string_view text_;
    std::size_t at_;
    bool atLineStart_ = true;  // nothing but white space and comments since the line began
    bool inDirective_ = false;
    Expected expected_ = Expected::Anything;
};

}  // namespace Brevis
