// What the search for a function's name knows, and the looks at the head by index, where the first token has the
// index 1.
#pragma once

#include "Cpp_Parser.h"

namespace Cpp {

struct Parser::HeadScan {
    int parameters = 1;  // index of the bracket of the parameter list
    Position end;        // of the head, where a `;` or `,` ends it
    int nameFirst = 0;
    int nameLast = 0;

    // State of the search for the bracket.
    bool isFound = false;
    bool expectsCallOperator = false;  // behind an `operator` whose `(` `)` may still come
    bool seenThrow = false;
    int parenDepth = 0;
    int angleDepth = 0;
    TokenKind previous = Trn::Kind::EndOfInput;  // that is no trivia

    bool endsAt(const Token& token);
};

// The token with this index. Index 0 gives an end token, like an index behind the end.
inline Trn::TokenView tokenAt(const Trn::TokenStream& stream, int index) {
    return index < 1 ? Trn::TokenView() : stream.peek(static_cast<std::size_t>(index));
}

inline Trn::TokenKind kindAt(const Trn::TokenStream& stream, int index) {
    return index < 1 ? Trn::Kind::EndOfInput : stream.peek(static_cast<std::size_t>(index)).kind();
}

inline std::string textAt(const Trn::TokenStream& stream, int index) {
    return std::string(tokenAt(stream, index).text());
}

}  // namespace Cpp
