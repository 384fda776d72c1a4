// Control statements: `if` with its `else`, `try` with all its `catch`, `do` with its `while`, and the comments and
// directives between these parts. An `else if` is an `if` inside the block of the `else`.
#include "Cpp_Parser.h"
#include "Cpp_ParserWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::TokenKind;

std::unique_ptr<CtrlStmtNode> Parser::parseControlStatement(Stream& stream) {
    auto part = parseSubStatement(stream);
    if (!part) return nullptr;
    TokenKind key = part->head->keyword->kind();
    auto statement = make<CtrlStmtNode>();
    statement->addChild(std::move(part));
    while (expectsPart(stream, key) && parseControlParts(stream, *statement, key)) {
    }
    return statement;
}

// Whether the statement goes on. A `do` always goes on to look for its `while`.
bool Parser::expectsPart(Stream& stream, TokenKind key) {
    switch (key) {
        case Kind::Do:
            return true;
        case Kind::If:
            return peekSignificant(stream).kind() == Kind::Else;
        case Kind::Try:
        case Kind::Catch:
            return peekSignificant(stream).kind() == Kind::Catch;
        default:
            return false;
    }
}

// Reads parts, and what stands between them and behind an `else` or `while`. True behind a `catch`, where the
// caller looks again whether the statement goes on.
bool Parser::parseControlParts(Stream& stream, CtrlStmtNode& statement, TokenKind& key) {
    for (;;) {
        const TokenKind next = stream.peek().kind();
        if (Trn::isTrivia(next)) {
            auto node = parseTrivia(stream);
            if (!node) return false;
            statement.addChild(std::move(node));
            continue;
        }
        const bool isPart = (next == Kind::Else && key == Kind::If) || (next == Kind::While && key == Kind::Do) ||
                            (next == Kind::Catch && (key == Kind::Try || key == Kind::Catch));
        if (!isPart) return false;
        statement.addChild(parseSubStatement(stream));
        if (next == Kind::Catch) {
            key = Kind::Catch;
            return true;
        }
    }
}

std::unique_ptr<CtrlSubStmtNode> Parser::parseSubStatement(Stream& stream) {
    Recorded item(*this, stream, OutlineItem::Sort::Part, Frame::Block);
    auto head = parseSubStatementHead(stream);
    if (!head) return nullptr;
    auto statement = make<CtrlSubStmtNode>();
    const bool isWhile = head->keyword->kind() == Kind::While;
    if (isWhile && peekSignificant(stream).kind() == Kind::Semicolon) {
        // `do ... while (x);` and `while (x);` have no body.
        head->setLastPosition(consumeSemicolon(stream));
    } else {
        if (outline_) item.setBody(shapes_->next(stream.index() - 1));
        statement->body = parseBlock(stream);
    }
    statement->head = std::move(head);
    return statement;
}

std::unique_ptr<CtrlSubStmtHeadNode> Parser::parseSubStatementHead(Stream& stream) {
    const Token keyword = getSignificant(stream);
    if (!isControlKeyword(keyword.kind())) {
        stream.unget(keyword);
        report(keyword.first(), ParseCode::ExpectedControlKeyword);
        return nullptr;
    }
    auto head = make<CtrlSubStmtHeadNode>();
    head->keyword = make<KeywordNode>(keyword.kind(), keyword.first(), keyword.last());
    if (isModern_ && keyword.kind() == Kind::Try) passInitializers(stream, *head);
    const bool hasCondition = keyword.kind() != Kind::Else && keyword.kind() != Kind::Do && keyword.kind() != Kind::Try;
    if (hasCondition && !parseCondition(stream, *head)) return nullptr;
    return head;
}

// Between a `try` that is the body of a constructor and its `{`.
void Parser::passInitializers(Stream& stream, CtrlSubStmtHeadNode& head) {
    const At colon = shapes_->next(stream.index() - 1);
    if (shapes_->kind(colon) != Kind::Colon) return;
    const At brace = shapes_->initializersEnd(colon);
    if (brace == 0) return;
    head.setLastPosition(buffer_->last(shapes_->previous(brace)));
    stream.seek(brace);
}

// The condition has positions and no text. Without a bracket there is none; false for a bracket that isn't closed.
bool Parser::parseCondition(Stream& stream, CtrlSubStmtHeadNode& head) {
    if (isModern_) return parseModernCondition(stream, head);
    const Token open = getSignificant(stream);
    if (open.kind() != Kind::OpenParen) {
        report(open.first(), ParseCode::ExpectedOpenParen);
        stream.unget(open);
        return true;
    }
    for (int depth = 1;;) {
        const Token token = getSignificant(stream);
        if (isLostParenLandmark(token.kind())) {
            stream.stepBack();
            report(token.first(), ParseCode::ExpectedCloseParen);
            return false;
        }
        if (token.kind() == Kind::OpenParen) ++depth;
        if (token.kind() == Kind::CloseParen && --depth == 0) {
            head.condition = make<ExprNode>(std::string_view(), open.first(), token.last());
            return true;
        }
    }
}

}  // namespace Cpp
