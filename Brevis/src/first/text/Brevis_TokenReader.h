// A walk over the tokens of a string that holds a current and a next token.
#pragma once

#include <string_view>

#include "Cpp_Lexer.h"
#include "first/text/Brevis_LeafDialect.h"

namespace Brevis {

// Before the first step the current token has kind -1 and the next token kind 0.
class TokenReader {
public:
    // `text` must outlive the reader.
    explicit TokenReader(std::string_view text, LeafDialect dialect = {});

    // On the first call lexes two tokens; later moves on by one. At the end of the input it changes nothing.
    void advance();
    // True while the next token is not the end of the input, and before the first advance.
    bool more() const;
    const Trn::Token& current() const { return current_; }
    const Trn::Token& next() const { return next_; }

private:
    Cpp::Lexer lexer_;
    Trn::Token current_;
    Trn::Token next_{Trn::Kind::Defective, {}, {}};
    bool started_ = false;
};

}  // namespace Brevis
