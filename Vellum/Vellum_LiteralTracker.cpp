// The state machine of literals, comments and directives. It mirrors the lexer, odd cases included, since the
// formatters cut the text by the lexer's tokens.
#include "Vellum_LiteralTracker.h"

#include <algorithm>
#include <array>

#include "Vellum_WhiteSpace.h"

namespace Vellum {

namespace {

// For each state the characters that can change it, and those that are looked back at. A stretch without them is passed
// over in one step.
constexpr std::array<CharSet, 6> stateStops = {
    CharSet("/*\"'#\\\n"),  // Normal
    CharSet("\n"),          // LineComment
    CharSet("*/\n"),        // BlockComment
    CharSet("\"\\\n"),      // String
    CharSet("'\\\n"),       // Character
    CharSet("/*\"'\\\n"),   // Directive
};

}  // namespace

void LiteralTracker::feed(std::string_view text) {
    while (true) {
        const CharSet& stops = stateStops[static_cast<std::size_t>(state_)];
        const bool isByLine = state_ == State::LineComment;
        const std::size_t length = isByLine ? std::min(text.find('\n'), text.size()) : stops.findIn(text);
        pass(text.substr(0, length));
        if (length == text.size()) return;
        feed(text[length]);
        text.remove_prefix(length + 1);
    }
}

// Takes a stretch without any of the characters that matter in this state.
void LiteralTracker::pass(std::string_view stretch) {
    if (stretch.empty()) return;
    previous_ = stretch.back();
    escaped_ = false;
    const std::string_view trimmed = withoutTrailingSpace(stretch);
    if (trimmed.empty()) return;
    lastNonSpace_ = trimmed.back();
    behindBackslash_ = false;
}

void LiteralTracker::feed(char c) {
    switch (state_) {
        case State::Normal:
            return feedNormal(c);
        case State::LineComment:
            if (c == '\n') leave('\0');
            return;
        case State::BlockComment:
            return feedBlockComment(c);
        case State::String:
            return feedString(c);
        case State::Character:
            return feedCharacter(c);
        case State::Directive:
            return feedDirective(c);
    }
}

bool LiteralTracker::inLiteral() const {
    return state_ == State::String || state_ == State::Character ||
           (state_ == State::Directive && directiveQuote_ != '\0');
}

LiteralTracker::LineStart LiteralTracker::lineStart() const {
    if (inLiteral()) return LineStart::Literal;
    return behindBackslash() ? LineStart::Backslash : LineStart::Plain;
}

void LiteralTracker::feedNormal(char c) {
    const char previous = previous_;
    previous_ = c;
    if (isSpace(c)) {
        if (c == '\n') {
            if (lastNonSpace_ == '\\') behindBackslash_ = true;
            lastNonSpace_ = '\0';
        }
        return;
    }
    behindBackslash_ = false;
    lastNonSpace_ = c;
    switch (c) {
        case '/':
            if (previous == '/') enter(State::LineComment);
            return;
        case '*':
            if (previous == '/') enter(State::BlockComment);
            return;
        case '"':
            enter(State::String);
            lastNonSpace_ = c;
            return;
        case '\'':
            return enter(State::Character);
        case '#':
            return enter(State::Directive);
        default:
            return;
    }
}

void LiteralTracker::feedBlockComment(char c) {
    if (previous_ == '*' && c == '/') {
        const bool goesOn = inDirective_;
        leave(c);
        if (goesOn) enter(State::Directive);
        return;
    }
    // A comment that leaves the line ends the directive in front of it.
    if (c == '\n') inDirective_ = false;
    previous_ = c;
}

void LiteralTracker::feedString(char c) {
    if (!isSpace(c)) lastNonSpace_ = c;
    if (c == '\n') {
        // A backslash continues the literal, also with blanks behind it; without one it is defective and ends here.
        // Then a backslash with nothing but white space behind it is one in the open.
        const bool isBlankLine = lastNonSpace_ == '\0';
        if (lastNonSpace_ != '\\') {
            leave('\0');
            behindBackslash_ = isBlankLine;
            return;
        }
        lastNonSpace_ = '\0';
    }
    if (!escaped_ && c == '"') return leave(c);
    escaped_ = !escaped_ && c == '\\';
}

void LiteralTracker::feedCharacter(char c) {
    if (!isSpace(c)) lastNonSpace_ = c;
    if (c == '\n') {
        // A line end cuts the literal for the lexer, a backslash continues it for a compiler: what it stands in front
        // of stays as it is.
        const bool isContinued = lastNonSpace_ == '\\';
        leave('\0');
        behindBackslash_ = isContinued;
        return;
    }
    if (!escaped_ && c == '\'') return leave(c);
    escaped_ = !escaped_ && c == '\\';
}

void LiteralTracker::feedDirective(char c) {
    const char previous = previous_;
    previous_ = c;
    if (!isSpace(c)) lastNonSpace_ = c;
    // The lexer looks for comments inside the literals of a directive too.
    if (previous == '/' && c == '/') return enter(State::LineComment);
    if (previous == '/' && c == '*') {
        enter(State::BlockComment);
        inDirective_ = true;
        return;
    }
    if (c == '\n') {
        if (lastNonSpace_ != '\\') return leave('\0');
        lastNonSpace_ = '\0';
    }
    feedDirectiveLiteral(c);
}

// The literals of a directive are no tokens, but their white space is part of the program all the same.
void LiteralTracker::feedDirectiveLiteral(char c) {
    if (directiveQuote_ == '\0') {
        if (c == '"' || c == '\'') directiveQuote_ = c;
        escaped_ = false;
        return;
    }
    const bool lineEndsCharacter = c == '\n' && directiveQuote_ == '\'';
    if (lineEndsCharacter || (!escaped_ && c == directiveQuote_)) directiveQuote_ = '\0';
    escaped_ = !escaped_ && c == '\\';
}

void LiteralTracker::enter(State state) {
    state_ = state;
    previous_ = '\0';
    lastNonSpace_ = '\0';
    escaped_ = false;
    inDirective_ = false;
    directiveQuote_ = '\0';
}

void LiteralTracker::leave(char lastNonSpace) {
    enter(State::Normal);
    lastNonSpace_ = lastNonSpace;
}

}  // namespace Vellum
