// What the parser has found out about the tokens of a text: their roles, the partners of brackets and the outline.
#pragma once

#include <utility>
#include <vector>

#include "Cpp_Outline.h"
#include "Cpp_Role.h"
#include "Trn_TokenBuffer.h"

namespace Cpp {

// Indices are those of `tokens`, which are the tokens that the tree was made from. The text and the lexer must outlive
// the table.
class TokenTable {
public:
    TokenTable(Trn::TokenBuffer tokens, std::vector<Role> roles, Trn::BracketTable brackets, Outline outline)
        : tokens_(std::move(tokens)),
          roles_(std::move(roles)),
          brackets_(std::move(brackets)),
          outline_(std::move(outline)) {}

    const Trn::TokenBuffer& tokens() const { return tokens_; }
    Role role(Trn::TokenIndex token) const { return roles_[token]; }
    // Of a bracket, or of a `<` or `>` that may be one: see Trn::BracketTable.
    Trn::TokenIndex partner(Trn::TokenIndex bracket) const { return brackets_.partner(bracket); }
    const Outline& outline() const { return outline_; }
    // For whoever needs these longer than the tokens.
    Trn::BracketTable takeBrackets() { return std::move(brackets_); }
    Outline takeOutline() { return std::move(outline_); }

private:
    Trn::TokenBuffer tokens_;
    std::vector<Role> roles_;
    Trn::BracketTable brackets_;
    Outline outline_;
};

}  // namespace Cpp
