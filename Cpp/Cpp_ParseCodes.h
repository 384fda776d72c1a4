// The coded reports of the parser. The numbers are a contract with the pipeline, which passes over code 2 as a
// remark on a tree that can still be used.
#pragma once

#include <cstdint>
#include <string_view>

namespace Cpp {

enum class ParseCode : std::int32_t {
    UnexpectedEnd = 1,
    StrayBehindFunction = 2,
    StrayInData = 3,
    UnexpectedSemicolon = 5,
    UnknownStatement = 7,
    AccessLabelInBlock = 8,
    TemplateInBlock = 9,
    NamespaceInBlock = 10,
    ExpectedControlKeyword = 11,
    ExpectedCloseParen = 12,
    ExpectedOpenParen = 13,
    ExpectedAccessKeyword = 14,
    LeftAlone = 15,
};

// By code; the codes 4 and 6 have a text that no operation reports.
inline constexpr std::string_view parseCodeTexts[] = {
    "Unknown error.",
    "Unexpected EOF found.",
    "Unexpected token. Was expecting to find \";\" or \"{\".",
    "Unexpected token. Was expecting to find \";\", \"(\" or \"=\".",
    "Data declaration is missing a type specifier",
    "An unexpected semicolon was found.",
    "An unexpected semicolon was found.",
    "The statement cannot be parsed.",
    "public: protected: private: labels are not allowed inside block statements.",
    "template declarations are not allowed inside block statements.",
    "Namespace declarations are not allowed inside block statements.",
    "Expected: if, else, for, do, while, try, catch, switch.",
    "Expected \")\". Possible unbalanced parentheses.",
    "Expected \"(\".",
    "Expected one of \"public\", \"protected\" or \"private\".",
    "This could not be read and is left as it stands.",
};

constexpr std::string_view textOf(ParseCode code) { return parseCodeTexts[static_cast<std::size_t>(code)]; }

}  // namespace Cpp
