// The language-independent lexer.
#pragma once

#include <iosfwd>

#include "Trn_Token.h"

namespace Trn {

class Lexer {
public:
    virtual ~Lexer() = default;

    // The next token; at the end of the input an end token, and so on with every further call.
    virtual Token next() = 0;
    // Writes the state of the cursor for people who debug a lexer.
    virtual void dump(std::ostream& os) const = 0;
};

}  // namespace Trn
