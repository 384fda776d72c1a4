// The roles of all tokens of a text, one byte a token, with the tokens themselves.
#pragma once

#include <utility>
#include <vector>

#include "Cpp_Role.h"
#include "Trn_TokenBuffer.h"

namespace Cpp {

// Indices are those of `tokens`, which are the tokens that the tree was made from. The text and the lexer must outlive
// the table.
class RoleTable {
public:
    RoleTable(Trn::TokenBuffer tokens, std::vector<Role> roles)
        : tokens_(std::move(tokens)), roles_(std::move(roles)) {}

    const Trn::TokenBuffer& tokens() const { return tokens_; }
    Role role(Trn::TokenIndex token) const { return roles_[token]; }

private:
    Trn::TokenBuffer tokens_;
    std::vector<Role> roles_;
};

}  // namespace Cpp
