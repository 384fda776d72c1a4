// The C++ lexer of a formatter: comments and preprocessor lines are tokens, names with `::` are one token,
// and nothing is evaluated. It never fails: what it can't read it skips.
#pragma once

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
    // Positions count from `start`, the cursor in front of the first character.
    explicit Lexer(std::string_view text, Trn::Position start = {1, 0});
    ~Lexer() override;
    Lexer(const Lexer&) = delete;
    Lexer& operator=(const Lexer&) = delete;

    Trn::Token next() override;
    void dump(std::ostream& os) const override;

private:
    std::string_view text_;
};

}  // namespace Cpp
