// The fuzz targets: each takes the bytes of one input through a part of the engine and throws a Finding if what comes
// out breaks a promise. Answers of the engine, such as a refusal, are no findings.
//
// Where a target needs more than a text, the bytes behind the last byte 0xFF of the input decide it (see splitInput).
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace Fuzz {

class Finding : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

inline void require(bool condition, const std::string& otherwise) {
    if (!condition) throw Finding(otherwise);
}

// The tokens lie in order, have the text of their place, and what they leave out is white space or can't be read.
void fuzzLexer(std::string_view data);
// The parser comes to an end, and the nodes of a text that it accepts lie in the text and in order.
void fuzzParser(std::string_view data);
// The expression formatter and the expression wrapper change white space only, under a drawn scheme.
void fuzzExpression(std::string_view data);
// So does the whole engine, and all tokens stay the same.
void fuzzPipeline(std::string_view data);

// An input as a text with normalised line ends and the bytes from which everything else is drawn.
struct Input {
    std::string text;
    std::string_view choices;
};

Input splitInput(std::string_view data);

struct Target {
    std::string_view name;
    void (*run)(std::string_view data);
};

inline constexpr Target targets[] = {
    {"lexer", fuzzLexer}, {"parser", fuzzParser}, {"expression", fuzzExpression}, {"pipeline", fuzzPipeline}};

}  // namespace Fuzz
