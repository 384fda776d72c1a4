// The language-independent parser.
#pragma once

#include "Trn_Lexer.h"
#include "Trn_ParseMessage.h"
#include "Trn_SyntaxNode.h"

namespace Trn {

class Parser {
public:
    virtual ~Parser() = default;

    // Reads the lexer to its end, fills `root` and appends reports to `messages`.
    virtual void parse(Lexer& lexer, SyntaxNode& root, ParseMessageList& messages) = 0;
};

}  // namespace Trn
