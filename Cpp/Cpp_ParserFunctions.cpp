// Functions: the head is searched for its name, backward from the bracket of the parameters, and then read.
//
// Without types nothing tells `A B C(int)` from anything else, so the place of the name follows from the token in
// front of the bracket, with a rule for each way of writing an operator. All in front of the name is the return
// type. Places in the head are arguments of `peek`: the first token has the index 1.
#include "Cpp_JoinedText.h"
#include "Cpp_Parser.h"
#include "Cpp_ParserWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;
using Trn::isTrivia;
using Trn::Token;
using Trn::TokenKind;
using Trn::TokenStream;

struct Parser::HeadScan {
    int parameters = 1;  // index of the bracket of the parameter list
    Position end;        // of the head, where a `;` or `,` ends it
    int nameFirst = 0;
    int nameLast = 0;

    // State of the search for the bracket.
    bool isFound = false;
    bool expectsCallOperator = false;  // behind an `operator` whose `(` `)` may still come
    bool seenThrow = false;
    int parenDepth = 0;
    int angleDepth = 0;
    TokenKind previous = Kind::EndOfInput;  // that is no trivia

    bool endsAt(const Token& token);
};

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
        auto constructor = std::make_unique<CtorDeclNode>();
        constructor->initializers = std::move(initializers);
        function = std::move(constructor);
    } else {
        function = std::make_unique<FunctionDeclNode>();
    }
    function->head = std::move(headNode);
    function->body = std::move(body);
    return function;
}

// ---- Looking at the head by index

namespace {

// The token with this index. Index 0 gives an end token, like an index behind the end.
Token tokenAt(const TokenStream& stream, int index) {
    return index < 1 ? Token() : stream.peek(static_cast<std::size_t>(index));
}

TokenKind kindAt(const TokenStream& stream, int index) {
    return index < 1 ? Kind::EndOfInput : stream.peek(static_cast<std::size_t>(index)).kind();
}

std::string textAt(const TokenStream& stream, int index) { return std::string(tokenAt(stream, index).text()); }

// The index of the `operator` at `index` or left of it, or else where the walk ended: 1, or 0 if it began there.
int operatorBefore(const TokenStream& stream, int index) {
    while (index > 1 && kindAt(stream, index) != Kind::Operator) --index;
    return index;
}

bool isQualifiedName(const Token& token) {
    const TokenKind kind = token.kind();
    const std::string_view text = token.text();
    const bool mayBe = kind == Kind::Identifier || kind == Kind::Operator || kind == Kind::New || kind == Kind::Delete;
    return mayBe && text.size() > 2 && (text.starts_with("::") || text.ends_with("::"));
}

// Walks left from a name over a chain like `A::B<C>::` and gives the index where the chain begins.
int backOverQualifiers(const TokenStream& stream, int index) {
    if (!isQualifiedName(tokenAt(stream, index))) return index;
    for (int angleCount = 0; index >= 2;) {
        --index;
        const Token token = tokenAt(stream, index);
        if (isEnd(token.kind())) return index + 1;
        if (token.kind() == Kind::Less) {
            --angleCount;
        } else if (token.kind() == Kind::Greater) {
            ++angleCount;
        } else if (angleCount == 0) {
            if (token.kind() != Kind::Identifier) return index + 1;
            // The name in front of the first `::` is still part of the chain.
            if (!isQualifiedName(token)) return index;
        }
    }
    return index;
}

std::string joinedText(const TokenStream& stream, int first, int last) {
    JoinedText text;
    for (int i = first; i <= last; ++i) text.add(tokenAt(stream, i).text());
    return text.take();
}

std::unique_ptr<FunctionReturnNode> returnTypeBefore(const TokenStream& stream, int nameFirst) {
    JoinedText text;
    Position first;
    for (int i = 1; i < nameFirst; ++i) {
        const Token token = tokenAt(stream, i);
        if (isTrivia(token.kind())) continue;
        if (!first.isSet()) first = token.first();
        text.add(token.text());
    }
    return std::make_unique<FunctionReturnNode>(text.take(), first, tokenAt(stream, nameFirst - 1).last());
}

}  // namespace

std::unique_ptr<FunctionHeadNode> Parser::parseFunctionHead(Stream& stream) {
    dropTrivia(stream);
    HeadScan scan;
    if (!findParameterBracket(stream, scan) || !findFunctionName(stream, scan)) return nullptr;

    auto head = std::make_unique<FunctionHeadNode>();
    head->name =
        std::make_unique<IdNode>(joinedText(stream, scan.nameFirst, scan.nameLast),
                                 tokenAt(stream, scan.nameFirst).first(), tokenAt(stream, scan.nameLast).last());
    if (scan.nameFirst > 1) head->returnType = returnTypeBefore(stream, scan.nameFirst);
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

// ---- The rules for the name, by the token in front of the bracket

bool Parser::findFunctionName(const Stream& stream, HeadScan& scan) {
    int last = scan.parameters - 1;
    while (last > 0 && isTrivia(kindAt(stream, last))) --last;
    scan.nameFirst = scan.nameLast = last;
    switch (kindAt(stream, last)) {
        case Kind::Identifier:
        case Kind::Const:
        case Kind::Char:
        case Kind::WcharT:
        case Kind::Bool:
        case Kind::Short:
        case Kind::Int:
        case Kind::Long:
        case Kind::Float:
        case Kind::Double:
        case Kind::Void:
            return findPlainName(stream, scan);
        case Kind::CloseParen:
            return findCallOperator(stream, scan);
        case Kind::CloseBracket:
            return findIndexOperator(stream, scan);
        case Kind::Greater:
            return findTemplateName(stream, scan);
        case Kind::StringLiteral:
            return true;
        default:
            break;
    }
    if (isOverloadableSymbol(kindAt(stream, last))) return findSymbolOperator(stream, scan);
    report(tokenAt(stream, last).first(), "Expected function name. Got: " + textAt(stream, last));
    return false;
}

// A plain name, or a conversion operator that ends in a type.
bool Parser::findPlainName(const Stream& stream, HeadScan& scan) {
    if (scan.nameLast < 2) return true;
    const int i = operatorBefore(stream, scan.nameLast - 1);
    const bool isConversion = kindAt(stream, i) == Kind::Operator;
    scan.nameFirst = backOverQualifiers(stream, isConversion ? i : scan.nameLast);
    return true;
}

// `operator()`.
bool Parser::findCallOperator(const Stream& stream, HeadScan& scan) {
    const Position position = tokenAt(stream, scan.nameLast).first();
    const int open = scan.nameLast - 1;
    if (kindAt(stream, open) != Kind::OpenParen || open < 3) {
        report(position, "Expected (.");
        return false;
    }
    if (kindAt(stream, open - 1) != Kind::Operator) {
        report(position, "Expected \"operator\". Got: " + textAt(stream, open - 1));
        return false;
    }
    scan.nameFirst = backOverQualifiers(stream, open - 1);
    return true;
}

// `operator[]`, `operator new[]`.
bool Parser::findIndexOperator(const Stream& stream, HeadScan& scan) {
    const Position position = tokenAt(stream, scan.nameLast).first();
    const auto isAllocation = [&](int index) {
        return kindAt(stream, index) == Kind::New || kindAt(stream, index) == Kind::Delete;
    };
    int i = scan.nameLast - 1;
    if (kindAt(stream, i) != Kind::OpenBracket || i < 3) {
        report(position, "Expected [.");
        return false;
    }
    --i;
    if (isAllocation(i)) --i;
    bool isName = kindAt(stream, i) == Kind::Operator && i >= 2;
    if (!isName && isAllocation(i)) {
        --i;
        isName = (kindAt(stream, i) == Kind::Operator && i >= 2) || kindAt(stream, i) == Kind::Identifier;
    }
    if (!isName) {
        report(position, "Expected \"operator\". Got: " + textAt(stream, i));
        return false;
    }
    scan.nameFirst = backOverQualifiers(stream, i);
    return true;
}

// `operator>`, or template arguments. The name in front of these goes with the return type.
bool Parser::findTemplateName(const Stream& stream, HeadScan& scan) {
    int i = operatorBefore(stream, scan.nameLast - 1);
    if (kindAt(stream, i) != Kind::Operator) {
        i = scan.nameLast;
        for (int angleCount = 1; angleCount > 0 && i > 1;) {
            --i;
            if (kindAt(stream, i) == Kind::Less) --angleCount;
            if (kindAt(stream, i) == Kind::Greater) ++angleCount;
        }
        if (kindAt(stream, i) != Kind::Less) {
            report(tokenAt(stream, scan.nameLast).first(), "Expected \"<\".");
            return false;
        }
    }
    scan.nameFirst = backOverQualifiers(stream, i);
    return true;
}

bool Parser::findSymbolOperator(const Stream& stream, HeadScan& scan) {
    const Position position = tokenAt(stream, scan.nameLast).first();
    const int i = operatorBefore(stream, scan.nameLast - 1);
    if (kindAt(stream, i) != Kind::Operator) {
        report(position, "Expected \"operator\". Got: " + textAt(stream, i));
        return false;
    }
    // Without a return type only a conversion to a pointer or reference is possible.
    const TokenKind symbol = kindAt(stream, scan.nameLast);
    if (i == 1 && symbol != Kind::Star && symbol != Kind::Amp) {
        report(position, "Could not recognize overloaded operator.");
        return false;
    }
    scan.nameFirst = backOverQualifiers(stream, i);
    return true;
}

// ---- From the parameters on

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
    auto qualifiers = std::make_unique<TextNode>();
    for (;;) {
        dropTrivia(stream);
        if (!isCvQualifier(stream.peek().kind())) break;
        const Token& token = stream.get();
        if (qualifiers->text.empty()) qualifiers->setFirstPosition(token.first());
        joinTo(qualifiers->text, token.text());
        qualifiers->setLastPosition(token.last());
    }
    return qualifiers;
}

// The opening bracket is not part of the text.
std::unique_ptr<ExprNode> Parser::parseExceptionSpec(Stream& stream) {
    const Token keyword = stream.get();
    auto spec = std::make_unique<ExprNode>(std::string(keyword.text()), keyword.first(), Position());
    dropTrivia(stream);
    const Token open = stream.get();
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
        joinBehindBlank(spec->text, token.text());
        spec->setLastPosition(token.last());
    }
    return spec;
}

std::unique_ptr<ExprNode> Parser::parsePureSpec(Stream& stream) {
    const Token assign = stream.get();
    dropTrivia(stream);
    const Token value = stream.get();
    std::string text(assign.text());
    joinBehindBlank(text, value.text());
    if (value.kind() == Kind::Number && value.text() == "0") {
        return std::make_unique<ExprNode>(std::move(text), assign.first(), value.last());
    }
    report(assign.first(), "Expected '= 0' to indicate a pure virtual function. Got: " + text);
    stream.unget(value);
    stream.unget(assign);
    return nullptr;
}

}  // namespace Cpp
