// Whether what a bracket holds is a type, parameters or template arguments, told from its tokens. No role is given
// here.
#pragma once

#include <string_view>
#include <unordered_set>

#include "Cpp_Dialect.h"
#include "Cpp_ShapeScan.h"

namespace Cpp {

// A question costs no more than the tokens at the depth of the bracket that it is about.
class TypeShapes {
public:
    TypeShapes(const Trn::TokenBuffer& buffer, const Trn::BracketTable& brackets, const ShapeScan& shapes,
               Language language)
        : buffer_(&buffer), brackets_(&brackets), shapes_(&shapes), language_(language) {}

    enum class Guess : std::uint8_t { No, Unknown, Yes };

    // Whether the `<` opens template arguments. In a declaration it does wherever a `>` can close it.
    bool isTemplateBracket(TokenIndex less, bool isInDeclaration) const;
    // Whether the bracket, where an operand may begin, makes what follows it another type.
    bool isCast(TokenIndex open);
    // Whether the bracket behind a name holds parameters rather than arguments. Without any it is unknown.
    Guess holdsParameters(TokenIndex open) const;
    // Whether the bracket begins a declarator: `(*name)`, `(&)`, `(C::*name)`, `(__stdcall *name)`.
    bool isDeclaratorGroup(TokenIndex open) const;
    // Whether a sign behind a name has no operand on its right, so that it belongs to a type.
    bool endsType(TokenIndex sign) const;
    bool endsResultType(TokenIndex sign) const;
    // Whether a declaration begins here, in the head of a control statement.
    bool startsDeclaration(TokenIndex first) const;
    bool isCpp() const { return language_ == Language::cpp; }

private:
    enum class Evidence : std::uint8_t { None, Name, Type };

    Evidence evidenceOfType(TokenIndex first, TokenIndex end) const;
    Evidence evidenceOfArguments(TokenIndex less, TokenIndex greater) const;
    bool closesTwo(TokenIndex less, TokenIndex shift) const;
    bool holdsComma(TokenIndex open, TokenIndex close) const;
    bool isQualifiedSign(TokenIndex macro) const;
    Guess isParameter(TokenIndex& at) const;
    TokenIndex passName(TokenIndex at) const;
    bool isKnownType(TokenIndex first);
    void collectTypes();

    Trn::TokenKind kind(TokenIndex token) const { return buffer_->kind(token); }
    TokenIndex next(TokenIndex token) const { return shapes_->next(token); }
    TokenIndex partner(TokenIndex token) const { return brackets_->partner(token); }

    const Trn::TokenBuffer* buffer_;
    const Trn::BracketTable* brackets_;
    const ShapeScan* shapes_;
    Language language_;
    // The names that the text shows as types. Filled when a cast first needs them.
    std::unordered_set<std::string_view> types_;
    bool hasTypes_ = false;
};

// Words that may stand in a type beside the keywords of the lexer.
bool isTypeWord(std::string_view word);
// Words that stand in front of an operand.
bool isPrefixWord(std::string_view word);

}  // namespace Cpp
