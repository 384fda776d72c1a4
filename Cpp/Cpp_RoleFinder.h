// Gives every sign, operator and bracket of a text its role. The parser of the modern dialect tells what each stretch
// of tokens is; within one, the neighbours decide.
#pragma once

#include <vector>

#include "Cpp_Role.h"
#include "Cpp_TypeShapes.h"

namespace Cpp {

// Each stretch is gone over once, with a stack of the brackets that are open. What a body holds is left out: its items
// come as stretches of their own. The buffer and what looks at it must outlive the finder.
class RoleFinder {
public:
    RoleFinder(const Trn::TokenBuffer& buffer, const Trn::BracketTable& brackets, const ShapeScan& shapes,
               Language language);

    void item(const ItemShape& shape, Frame frame);
    // The declarators behind the `}` of a class or enum, through their `;`.
    void declarators(TokenIndex first, TokenIndex last);
    // `template <...>`, with clauses behind it.
    void instantiation(TokenIndex first, TokenIndex last);
    void templateHead(TokenIndex first, TokenIndex last);
    void usingItem(TokenIndex first, TokenIndex last);
    // The head of a namespace or a linkage block, and the `{` behind it.
    void namespaceHead(TokenIndex first, TokenIndex brace, Role body);
    // A label, through its colon.
    void label(TokenIndex first, TokenIndex colon, Role role);
    // The bracket of a control statement.
    void condition(TokenIndex open, bool isCatch);
    void assembler(TokenIndex first, TokenIndex last);
    void elements(TokenIndex first, TokenIndex last);

    // The roles of all tokens. What no stretch held gets one now.
    std::vector<Role> take();

private:
    // A bracket that is open, or the stretch itself.
    struct Scope {
        TokenIndex last = 0;  // its last token
        Role bracket = Role::None;
        Role comma = Role::CommaOperator;
        bool isList = false;      // whether a part between commas begins as the first one does
        bool declares = false;    // the tokens at hand are of a type or a declarator, not of a value
        bool isTypeOnly = false;  // no declarator has a name, so a bracket behind a type holds parameters
        bool isCondition = false;
        bool isClause = false;  // of `requires`, where no `<` compares
        bool isLambda = false;  // from behind the introducer through the body

        // Of the part at hand. Of a declaration:
        bool hasAuto = false;
        bool hasName = false;
        bool isTail = false;  // behind the parameters
        bool isPart = false;  // it began as a declaration
        // Of a value:
        bool hasOperand = false;  // one has ended
        bool isType = false;      // and is a type
        bool wantsType = false;   // the next word is one
        bool isNew = false;       // behind `new`
        int questions = 0;        // that wait for their colon
    };

    void head(TokenIndex first, TokenIndex last);
    void macroRow(TokenIndex first, TokenIndex last);
    void run(TokenIndex first, TokenIndex last, Scope scope);
    // Gives the last token that it has read.
    TokenIndex read(TokenIndex at);
    void open(TokenIndex at, Role role, Scope scope);
    void close();
    void closeAfter(const Scope& closed);
    Scope& top() { return scopes_.back(); }

    static Scope values(Role comma);
    static Scope declaration(Role comma);
    static Scope types(Role comma);

    // ---- What both kinds of stretches share

    TokenIndex readBrace(TokenIndex at);
    TokenIndex readSquare(TokenIndex at);
    TokenIndex readOperatorName(TokenIndex at);
    void readComma(TokenIndex at);
    void readSemicolon(TokenIndex at);
    void readAngle(TokenIndex at);
    void readColon(TokenIndex at);
    void beginLambda(TokenIndex close);
    TokenIndex lambdaBody(TokenIndex close) const;
    void clause(TokenIndex at);

    // ---- Declarations (Cpp_RoleFinderDeclarations.cpp)

    TokenIndex readDeclared(TokenIndex at);
    TokenIndex readDeclaredWord(TokenIndex at);
    void readDeclaredParen(TokenIndex at);
    void openParameters(TokenIndex at);
    void openConstruction(TokenIndex at);

    // ---- Values (Cpp_RoleFinderValues.cpp)

    TokenIndex readValue(TokenIndex at);
    bool endsName(TokenIndex at) const;
    void readValueWord(TokenIndex at);
    void readValueParen(TokenIndex at);
    void readOperandParen(TokenIndex at);
    void readSign(TokenIndex at);
    void endOperand(bool isType = false);
    void beginOperand();

    void set(TokenIndex token, Role role) { roles_[token] = role; }
    Trn::TokenKind kind(TokenIndex token) const { return buffer_->kind(token); }
    TokenIndex next(TokenIndex token) const { return shapes_->next(token); }
    TokenIndex partner(TokenIndex token) const { return shapes_->partner(token); }
    bool isWord(TokenIndex token, std::string_view word) const { return shapes_->isWord(token, word); }

    const Trn::TokenBuffer* buffer_;
    const ShapeScan* shapes_;
    TypeShapes types_;
    std::vector<Role> roles_;
    std::vector<Scope> scopes_;
    TokenIndex previous_ = 0;  // the token in front of the one at hand, in its stretch
    ItemShape shape_;          // of the item at hand
};

}  // namespace Cpp
