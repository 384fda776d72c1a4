// The look-ahead of the modern dialect: decides by the shapes of tokens what an item is. It passes over brackets by
// their partners, so a question costs no more than the tokens at the depth where it is asked.
#pragma once

#include "Cpp_ItemShape.h"
#include "Cpp_MacroNames.h"

namespace Cpp {

// Positions are token indices; 0 stands for nothing found. Comments and directives are passed over.
class ShapeScan {
public:
    // `macros` may be null, for no names that are known. With `source`, the text of the buffer, it is by columns how
    // far to the right a line begins, with tab stops at every eighth, so that it stays when tabs turn into blanks;
    // without it by the number of blanks and tabs.
    ShapeScan(const Trn::TokenBuffer& buffer, const Trn::BracketTable& brackets, const MacroNames* macros,
              std::string_view source = {})
        : buffer_(&buffer), brackets_(&brackets), macros_(macros), source_(source) {}

    // A declaration that begins at `first`, outside of blocks.
    ItemShape declaration(TokenIndex first, Frame frame) const;
    // A statement of a block that begins with no keyword of its own.
    ItemShape statement(TokenIndex first) const;

    // Whether a declaration begins here, in a block or in the head of a control statement.
    bool startsData(TokenIndex first) const;
    // The last token of a statement: its `;`, or what stands in front of the bracket that ends the block.
    TokenIndex statementEnd(TokenIndex first) const;
    // The `:` that ends a label or the value of a `case`.
    TokenIndex labelColon(TokenIndex first) const;
    // Whether an access label, or a word that stands as one, begins here.
    bool startsAccessLabel(TokenIndex first) const;
    bool startsGotoLabel(TokenIndex first) const;
    // The last token of a macro, with its bracket, in front of a control statement that begins behind it, or 0.
    TokenIndex controlMacroEnd(TokenIndex first) const;
    // The `{` behind the member initializers that begin behind `colon`, or 0.
    TokenIndex initializersEnd(TokenIndex colon) const;
    // The last token of the requires clause that begins here.
    TokenIndex requiresClauseEnd(TokenIndex first) const;
    // Whether the `{` opens a body: that of a lambda, or one that holds statements.
    bool isBody(TokenIndex brace) const;
    bool holdsBrace(TokenIndex first, TokenIndex last) const;
    bool holdsBody(TokenIndex first, TokenIndex last) const;
    // Whether the token is a directive with the branches behind it that don't count.
    bool isDeadBranch(TokenIndex token) const {
        return kind(token) == Trn::Kind::Directive && holdsDirectives(token);
    }
    bool holdsNoCode(TokenIndex first, TokenIndex last) const;

    // ---- The tokens

    Trn::TokenKind kind(TokenIndex token) const { return buffer_->kind(token); }
    std::string_view text(TokenIndex token) const { return buffer_->text(token); }
    TokenIndex partner(TokenIndex bracket) const { return brackets_->partner(bracket); }
    // The token behind `token` that is no trivia.
    TokenIndex next(TokenIndex token) const {
        do token = buffer_->clamped(token + std::size_t{1});
        while (Trn::isTrivia(kind(token)));
        return token;
    }
    TokenIndex previous(TokenIndex token) const {
        do --token;
        while (token > 0 && Trn::isTrivia(kind(token)));
        return token;
    }
    // Behind what a bracket holds, or behind the token.
    TokenIndex behind(TokenIndex token) const { return next(isOpening(token) ? partner(token) : token); }
    // Whether the token is a bracket with a partner; a `<` counts where the two can be template brackets.
    bool isOpening(TokenIndex token) const;
    bool isWord(TokenIndex token, std::string_view word) const {
        return kind(token) == Trn::Kind::Identifier && text(token) == word;
    }
    bool startsLine(TokenIndex token) const {
        return buffer_->first(token).line > buffer_->last(previous(token)).line ||
               buffer_->last(previous(token)).column == 0;
    }
    bool startsAttribute(TokenIndex token) const {
        return kind(token) == Trn::Kind::OpenBracket &&
               kind(buffer_->clamped(token + std::size_t{1})) == Trn::Kind::OpenBracket;
    }
    bool isQualifierMacro(TokenIndex word) const;
    // Behind attributes, in all their spellings.
    TokenIndex passAttributes(TokenIndex token) const;

private:
    bool holdsDirectives(TokenIndex branch) const;
    struct Declaration;
    enum class Step { GoOn, Done };

    Step scanToken(Declaration& scan) const;
    Step scanOperator(Declaration& scan) const;
    Step scanWord(Declaration& scan) const;
    Step scanParen(Declaration& scan) const;
    Step scanDeclaratorParen(Declaration& scan) const;
    Step scanBrace(Declaration& scan) const;
    Step scanColon(Declaration& scan) const;
    Step scanTemplateBracket(Declaration& scan) const;
    bool scanClass(Declaration& scan) const;
    bool scanEnum(Declaration& scan) const;
    bool namesFunction(TokenIndex key, TokenIndex close) const;
    bool isAnnotation(const Declaration& scan) const;
    bool scanFunctionTail(Declaration& scan, TokenIndex tail) const;
    bool scanTryBlock(ItemShape& shape, TokenIndex tryWord) const;
    TokenIndex passTailWord(Declaration& scan, TokenIndex at) const;
    bool isMacroType(const Declaration& scan, TokenIndex behindMacro) const;
    Step endAsData(Declaration& scan, TokenIndex initializer) const;
    Step endAsMacro(Declaration& scan, TokenIndex last) const;
    Step endUnterminated(Declaration& scan) const;

    TokenIndex operatorParen(TokenIndex keyword) const;
    TokenIndex oldStyleBody(TokenIndex first) const;
    TokenIndex passReturnType(TokenIndex arrow) const;
    TokenIndex passRequires(TokenIndex keyword) const;
    bool isLambdaBody(TokenIndex brace) const;
    bool startsItem(TokenIndex token) const;
    bool startsSignedItem(TokenIndex call, TokenIndex sign) const;
    bool startsLoop(TokenIndex call) const;
    int lineColumn(TokenIndex token) const;
    bool startsDeclarator(TokenIndex paren) const;
    bool startsPointerOfMacro(TokenIndex open) const;
    bool holdsValues(TokenIndex brace) const;
    bool startsClass(const Declaration& scan) const;
    bool isLoneMacro(TokenIndex word, TokenIndex last, Frame frame) const;
    TokenIndex macroRowEnd(TokenIndex first, Frame frame) const;
    bool isNamedMacro(TokenIndex first, Frame frame, ItemShape& shape) const;

    // What the first edition reads stays as it is, so some shapes are told apart only where roles are wanted.
    bool isForRoles() const { return !source_.empty(); }

    const Trn::TokenBuffer* buffer_;
    const Trn::BracketTable* brackets_;
    const MacroNames* macros_;
    std::string_view source_;
};

}  // namespace Cpp
