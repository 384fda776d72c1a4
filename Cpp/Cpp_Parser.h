// The recursive-descent parser of a formatter: it decides by token shapes alone, knows no types and no macros,
// and runs to the end of any text.
#pragma once

#include "Trn_Parser.h"

namespace Cpp {

class Parser : public Trn::Parser {
public:
    // `lexer` must be a Cpp::Lexer and `root` a Cpp::RootNode; the cast throws if they are not.
    // Throws Trn::Exception for a text nested beyond Trn::NestingGuard::limit.
    void parse(Trn::Lexer& lexer, Trn::SyntaxNode& root, Trn::ParseMessageList& messages) override;
};

}  // namespace Cpp
