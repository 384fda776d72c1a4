// What the seam lexer gives: a preprocessing token or a comment, with its place in the text and what the place means.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Brevis {

// A text may begin with it. It is no token, and nothing may stand in front of it.
inline constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";

enum class SeamKind : std::uint8_t {
    End,
    Word,         // an identifier or keyword
    Number,       // a preprocessing number
    Literal,      // a string, character or raw string with prefix and suffix, or a header name
    OpenLiteral,  // a quote that nothing closes, with the rest of its line
    Punctuator,   // an operator or a bracket, digraphs included
    MacroParen,   // the parenthesis that makes a macro function-like: nothing may stand in front of it
    BlockComment,
    LineComment,
    Stray,  // a byte that no token takes
};

// `begin` and `end` are offsets of bytes. The end leaves out white space and backslashes at line ends.
struct SeamToken {
    SeamKind kind = SeamKind::End;
    bool inDirective = false;      // its `#` included, comments up to the end of its last line too
    bool isDirectiveSign = false;  // opens a directive if it is first on its line
    bool opensDirective = false;   // and it is
    bool isSpliced = false;        // lines are joined in front of it, behind the token before
    std::size_t begin = 0;
    std::size_t end = 0;

    bool isComment() const { return kind == SeamKind::BlockComment || kind == SeamKind::LineComment; }
    // True if only a line end ends it.
    bool takesRestOfLine() const { return kind == SeamKind::LineComment || kind == SeamKind::OpenLiteral; }
};

}  // namespace Brevis
