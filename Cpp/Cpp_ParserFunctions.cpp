// Functions: the head, once its name is found, and the body. A constructor's initializers stand between the two.
#include "Cpp_JoinedText.h"
#include "Cpp_ParserHeadScan.h"
#include "Cpp_ParserWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;
using Trn::isTrivia;
using Token = Trn::TokenView;
using Trn::TokenKind;
using Trn::TokenStream;

std::unique_ptr<FunctionDeclNode> Parser::parseFunctionDecl(Stream& head, Stream& stream) {
    auto headNode = parseFunctionHead(head);
    dropTrivia(head);
    std::unique_ptr<InitializerListNode> initializers;
    if (head.peek().kind() == Kind::Colon) {
        head.get();
        initializers = parseCtorInitializerList(head);
    }
    dropTrivia(stream);
    std::unique_ptr<BlockNode> body;
    if (stream.peek().kind() == Kind::OpenBrace) body = parseBlock(stream);
    if (!headNode) return nullptr;

    std::unique_ptr<FunctionDeclNode> function;
    if (initializers) {
        auto constructor = make<CtorDeclNode>();
        constructor->initializers = std::move(initializers);
        function = std::move(constructor);
    } else {
        function = make<FunctionDeclNode>();
    }
    function->head = std::move(headNode);
    function->body = std::move(body);
    return function;
}

namespace {

void joinTokens(const TokenStream& stream, int first, int last, JoinedText& text) {
    for (int i = first; i <= last; ++i) text.add(tokenAt(stream, i).text());
}

}  // namespace

std::unique_ptr<FunctionReturnNode> Parser::parseReturnType(const Stream& stream, int nameFirst) {
    JoinedText text;
    Position first;
    for (int i = 1; i < nameFirst; ++i) {
        const Token token = tokenAt(stream, i);
        if (isTrivia(token.kind())) continue;
        if (!first.isSet()) first = token.first();
        text.add(token.text());
    }
    return make<FunctionReturnNode>(text, first, tokenAt(stream, nameFirst - 1).last());
}

std::unique_ptr<FunctionHeadNode> Parser::parseFunctionHead(Stream& stream) {
    dropTrivia(stream);
    HeadScan scan;
    if (!findParameterBracket(stream, scan) || !findFunctionName(stream, scan)) return nullptr;

    auto head = make<FunctionHeadNode>();
    JoinedText name;
    joinTokens(stream, scan.nameFirst, scan.nameLast, name);
    head->name = make<IdNode>(name, tokenAt(stream, scan.nameFirst).first(), tokenAt(stream, scan.nameLast).last());
    if (scan.nameFirst > 1) head->returnType = parseReturnType(stream, scan.nameFirst);
    for (int i = 1; i < scan.parameters; ++i) stream.get();
    if (!parseFunctionHeadTail(stream, *head)) return nullptr;
    if (scan.end.isSet()) head->setLastPosition(scan.end);
    return head;
}

// The last bracket that opens outside all others, and in front of a `throw`, is that of the parameters.
bool Parser::findParameterBracket(Stream& stream, HeadScan& scan) {
    for (int i = 1;; ++i) {
        const Token token = tokenAt(stream, i);
        if (isEnd(token.kind())) {
            if (!scan.isFound) report(token.first(), ParseCode::UnexpectedEnd);
            return scan.isFound;
        }
        if (token.kind() == Kind::OpenParen) {
            if (!scanHeadParen(stream, scan, i)) return false;
        } else if (scan.endsAt(token)) {
            return true;
        }
        if (!isTrivia(token.kind())) scan.previous = token.kind();
    }
}

// At a `(`. The index goes on to the `)` of `operator()`.
bool Parser::scanHeadParen(Stream& stream, HeadScan& scan, int& index) {
    if (scan.previous == Kind::Operator && scan.expectsCallOperator) {
        if (kindAt(stream, index + 1) != Kind::CloseParen) {
            report(tokenAt(stream, index).first(), "Expected ')'. As part of overloaded function call operator.");
            return false;
        }
        scan.expectsCallOperator = false;
        ++index;
        return true;
    }
    if (!scan.seenThrow && scan.parenDepth == 0) {
        scan.parameters = index;
        scan.isFound = true;
    }
    ++scan.parenDepth;
    return true;
}

// Counts any other token and tells whether the search ends at it.
bool Parser::HeadScan::endsAt(const Token& token) {
    const bool isOperatorName = previous == Kind::Operator;
    switch (token.kind()) {
        case Kind::Operator:
            expectsCallOperator = true;
            return false;
        case Kind::Throw:
            seenThrow = true;
            return false;
        case Kind::Less:
            if (!isOperatorName) ++angleDepth;
            return false;
        case Kind::Greater:
            if (!isOperatorName && angleDepth > 0) --angleDepth;
            return false;
        case Kind::CloseParen:
            if (parenDepth > 0) --parenDepth;
            return false;
        case Kind::Comma:
            if (parenDepth > 0 || angleDepth > 0 || isOperatorName) return false;
            end = token.first();
            return true;
        case Kind::Semicolon:
            if (parenDepth == 0) end = token.first();
            return parenDepth == 0;
        case Kind::Colon:
        case Kind::OpenBrace:
            return parenDepth == 0;
        default:
            return false;
    }
}

bool Parser::parseFunctionHeadTail(Stream& stream, FunctionHeadNode& head) {
    dropTrivia(stream);
    if (stream.peek().kind() == Kind::OpenParen) head.parameters = parseParameterList(stream, false);
    dropTrivia(stream);
    if (isCvQualifier(stream.peek().kind())) head.qualifiers = parseCvQualifiers(stream);
    dropTrivia(stream);
    if (stream.peek().kind() == Kind::Throw) {
        head.exceptionSpec = parseExceptionSpec(stream);
        if (!head.exceptionSpec) return false;
    }
    dropTrivia(stream);
    if (stream.peek().kind() == Kind::Assign) head.pureSpec = parsePureSpec(stream);
    return true;
}

std::unique_ptr<TextNode> Parser::parseCvQualifiers(Stream& stream) {
    auto qualifiers = make<TextNode>();
    JoinedText text;
    for (;;) {
        dropTrivia(stream);
        if (!isCvQualifier(stream.peek().kind())) break;
        const Token token = stream.get();
        if (text.empty()) qualifiers->setFirstPosition(token.first());
        text.join(token.text());
        qualifiers->setLastPosition(token.last());
    }
    qualifiers->text = kept(text);
    return qualifiers;
}

// The opening bracket is not part of the text.
std::unique_ptr<ExprNode> Parser::parseExceptionSpec(Stream& stream) {
    const Token keyword = stream.get();
    JoinedText text(keyword.text());
    Position last;
    const Token open = getSignificant(stream);
    if (open.kind() != Kind::OpenParen) {
        report(open.first(), "Expected '(' as part of a 'throw()' clause. Got: " + std::string(stream.peek().text()));
        return nullptr;
    }
    for (int depth = 1; depth > 0;) {
        const Token token = stream.get();
        if (isEnd(token.kind())) {
            report(token.first(), ParseCode::UnexpectedEnd);
            return nullptr;
        }
        if (token.kind() == Kind::OpenParen) ++depth;
        if (token.kind() == Kind::CloseParen) --depth;
        text.joinBehindBlank(token.text());
        last = token.last();
    }
    return make<ExprNode>(text, keyword.first(), last);
}

std::unique_ptr<ExprNode> Parser::parsePureSpec(Stream& stream) {
    const Token assign = stream.get();
    const Token value = getSignificant(stream);
    JoinedText text(assign.text());
    text.joinBehindBlank(value.text());
    if (value.kind() == Kind::Number && value.text() == "0") {
        return make<ExprNode>(text, assign.first(), value.last());
    }
    report(assign.first(), "Expected '= 0' to indicate a pure virtual function. Got: " + std::string(text.view()));
    stream.unget(value);
    stream.unget(assign);
    return nullptr;
}

}  // namespace Cpp
