// Expression statements: what is nothing else, as a run of tokens up to a `;` or a landmark.
#include <algorithm>

#include "Cpp_JoinedText.h"
#include "Cpp_Parser.h"
#include "Cpp_ParserWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;
using Trn::TokenKind;

namespace {

// The kinds that, wherever they stand, just join the text. Most tokens are of these.
constexpr bool isPlain(TokenKind kind) {
    return kind >= Kind::Identifier || (kind >= Kind::Assign && kind < Kind::Less) || kind == Kind::Comma ||
           (kind >= Kind::CharLiteral && kind <= Kind::StringLiteral);
}

}  // namespace

struct Parser::Expression {
    JoinedText text{};
    bool makesText;
    bool isEmpty = true;
    int parens = 0;
    int angles = 0;
    bool seenTemplate = false;

    void join(const Token& token) {
        if (isEmpty) isEmpty = token.text().empty();
        if (makesText) text.join(token.text());
    }
    // Brackets are counted, all else joins the text.
    void add(const Token& token) {
        switch (token.kind()) {
            case Kind::OpenParen:
                ++parens;
                break;
            case Kind::CloseParen:
                parens = std::max(parens - 1, 0);
                break;
            case Kind::Less:
                ++angles;
                break;
            case Kind::Greater:
                angles = std::max(angles - 1, 0);
                break;
            case Kind::Template:
                seenTemplate = true;
                break;
            default:
                join(token);
                break;
        }
    }
};

// A run of tokens up to a `;` or a landmark. Its text is a sketch for measuring, without brackets.
std::unique_ptr<ExprNode> Parser::parseExpressionStatement(Stream& stream) {
    dropTrivia(stream);
    const Position first = stream.peek().first();
    Expression expression{.makesText = makesSketches_};
    for (;;) {
        const Token token = stream.get();
        const TokenKind kind = token.kind();
        if (isPlain(kind)) {
            expression.join(token);
            continue;
        }
        if (isEnd(kind)) {
            const Position last = reportUnexpectedEnd(stream).last();
            return make<ExprNode>(expression.text, first, last);
        }
        if (endsExpression(token, expression)) {
            stream.stepBack();
            stream.stepBack();
            return make<ExprNode>(expression.text, first, stream.get().last());
        }
        if (kind == Kind::Semicolon && expression.parens == 0) {
            if (makesSketches_) expression.text.append(token.text());
            return make<ExprNode>(expression.text, first, token.last());
        }
        expression.add(token);
    }
}

// Whether the token is a landmark in front of which the expression ends. So a missing `;` is caught, and a macro
// call without one is complete.
bool Parser::endsExpression(const Token& token, const Expression& expression) const {
    const TokenKind kind = token.kind();
    switch (kind) {
        case Kind::Directive:
            return true;
        case Kind::Throw:
        case Kind::Return:
            return !expression.isEmpty;
        case Kind::Class:
        case Kind::Struct:
            return expression.parens == 0 && expression.angles == 0 && !expression.seenTemplate;
        case Kind::OpenBrace:
        case Kind::CloseBrace:
            return expression.parens == 0;
        default:
            return isStatementKeyword(kind) && expression.parens == 0;
    }
}

}  // namespace Cpp
