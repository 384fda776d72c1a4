// Follows a text as it is written and knows at each place whether it stands inside a literal, a comment or a
// directive, by the rules of the C++ lexer. It looks only at the characters that it is fed.
#pragma once

#include <string_view>

namespace Vellum {

// White space inside a string or character literal is part of the program, and so is the white space between a
// backslash at a line end and what follows it. The output stream asks here before it touches any.
class LiteralTracker {
public:
    // What stands at the start of a line.
    enum class LineStart {
        Plain,
        Literal,    // the inside of a string literal that a backslash continued
        Backslash,  // white space behind a backslash at a line end, outside literals, comments and directives
    };

    void feed(char c);
    void feed(std::string_view text);
    // As if a backslash and a line feed had just been fed.
    void startBehindBackslash() { behindBackslash_ = true; }

    // True inside a string or character literal, one inside a directive included.
    bool inLiteral() const;
    // True outside literals, comments and directives.
    bool inCode() const { return state_ == State::Normal; }
    // True inside a line comment or a directive, up to its line feed.
    bool inLineToken() const { return state_ == State::LineComment || state_ == State::Directive; }
    // True if nothing but blanks stands between this place and a stray backslash on the same line.
    bool followsBackslash() const { return state_ == State::Normal && lastNonSpace_ == '\\'; }
    // True if nothing but white space, with a line feed in it, stands between this place and a stray backslash.
    bool behindBackslash() const { return state_ == State::Normal && behindBackslash_; }
    // Valid directly behind a line feed.
    LineStart lineStart() const;

private:
    enum class State : unsigned char { Normal, LineComment, BlockComment, String, Character, Directive };

    void pass(std::string_view stretch);
    void feedNormal(char c);
    void feedBlockComment(char c);
    void feedString(char c);
    void feedCharacter(char c);
    void feedDirective(char c);
    void feedDirectiveLiteral(char c);
    void enter(State state);
    void leave(char lastNonSpace);

    State state_ = State::Normal;
    char previous_ = '\0';      // the character in front, where two of them make a comment sign
    char lastNonSpace_ = '\0';  // the last on this line that is no white space
    bool escaped_ = false;      // the character in front is a backslash that escapes
    bool behindBackslash_ = false;
    bool inDirective_ = false;    // in a comment: it began on the line of a directive and hasn't left that line
    char directiveQuote_ = '\0';  // in a directive: the quote of the literal that is open
};

}  // namespace Vellum
