// The dispatch of declarations: a scan that collects tokens until a landmark tells what they are, and the
// collection of the rest for the operation of that kind.
#include "Cpp_Parser.h"
#include "Cpp_ParserWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;

struct Parser::DeclarationScan {
    Tokens list;
    Decision decision = Decision::Data;
    TokenKind previous = Kind::EndOfInput;
    TokenKind current = Kind::EndOfInput;
    int angleDepth = 0;
    bool seenColon = false;
    bool seenEnum = false;
    bool seenOperator = false;
    bool seenCallOperator = false;  // the first bracket of `operator()`
    bool isFunctionPtr = false;

    // Collects the token and takes down what later landmarks depend on.
    void note(const Token& token) {
        previous = current;
        current = token.kind();
        list.push_back(token);
        if (current == Kind::Colon) seenColon = true;
        if (current == Kind::Enum) seenEnum = true;
        if (current == Kind::Operator) seenOperator = true;
        if (previous == Kind::Operator) return;
        if (current == Kind::Less) ++angleDepth;
        if (current == Kind::Greater && angleDepth > 0) --angleDepth;
    }
    Step stop(Decision landmark) {
        decision = landmark;
        return Step::Stop;
    }
    // Stops in front of a token that the data operation is to meet.
    Step stopInFront(Stream& stream, const Token& token) {
        stream.unget(token);
        list.pop_back();
        return stop(Decision::Data);
    }
};

std::unique_ptr<DeclNode> Parser::parseDeclaration(Stream& stream, bool& takesSemicolon, bool allowBitfield) {
    takesSemicolon = false;
    DeclarationScan scan;
    if (!scanDeclaration(stream, scan)) return nullptr;
    if (scan.decision == Decision::Function && !scanFunction(stream, scan)) return nullptr;
    switch (scan.decision) {
        case Decision::Function:
            return parseCollectedFunction(stream, scan.list);
        case Decision::FunctionPtr:
            return parseCollectedFunctionPtr(stream, scan.list);
        case Decision::Class:
            takesSemicolon = true;
            return parseCollectedClass(stream, scan.list);
        case Decision::Enum:
            takesSemicolon = true;
            return parseCollectedEnum(stream, scan.list);
        case Decision::Data:
            break;
    }
    collectDeclarator(stream, scan.list);
    Stream declarator(scan.list);
    return parseDataDecl(declarator, stream, allowBitfield);
}

std::unique_ptr<DeclNode> Parser::parseDeclarationWithEnd(Stream& stream, bool allowBitfield) {
    bool takesSemicolon = false;
    auto declaration = parseDeclaration(stream, takesSemicolon, allowBitfield);
    if (declaration && takesSemicolon && peekSignificant(stream).kind() == Kind::Semicolon) {
        declaration->setLastPosition(consumeSemicolon(stream));
    }
    return declaration;
}

bool Parser::addDeclaration(Stream& stream, InteriorNode& body, bool allowBitfield) {
    const Position first = stream.peek().first();
    auto declaration = parseDeclarationWithEnd(stream, allowBitfield);
    if (!declaration) {
        report(first, ParseCode::UnknownStatement);
        return false;
    }
    body.addChild(std::move(declaration));
    return true;
}

// ---- Stage 1: the scan for a landmark

bool Parser::scanDeclaration(Stream& stream, DeclarationScan& scan) {
    Step step = Step::GoOn;
    while (step == Step::GoOn) step = scanDeclarationToken(stream, scan);
    return step == Step::Stop;
}

Parser::Step Parser::scanDeclarationToken(Stream& stream, DeclarationScan& scan) {
    dropTrivia(stream);
    const Token token = stream.get();
    scan.note(token);
    switch (token.kind()) {
        case Kind::EndOfInput:
        case Kind::Defective:
            reportUnexpectedEnd(stream);
            return Step::Fail;
        case Kind::Semicolon:
            return scan.stopInFront(stream, token);
        case Kind::OpenBrace:
            return scan.stop(scan.seenEnum ? Decision::Enum : Decision::Class);
        case Kind::Public:
        case Kind::Private:
        case Kind::Protected:
            // Behind a colon they belong to a base clause.
            return scan.seenColon ? Step::GoOn : scan.stopInFront(stream, token);
        case Kind::Assign:
            return scanAssign(stream, scan, token);
        case Kind::OpenBracket:
            return scanOpenBracket(stream, scan, token);
        case Kind::OpenParen:
            return scanOpenParen(stream, scan);
        case Kind::Identifier:
            return !isDeclSpecWord(token.text()) || collectParens(stream, scan.list, 0) ? Step::GoOn : Step::Fail;
        default:
            return Step::GoOn;
    }
}

// The `=` of `operator=` goes on; any other begins an initializer, which the data operation reads.
Parser::Step Parser::scanAssign(Stream& stream, DeclarationScan& scan, const Token& assign) {
    dropTrivia(stream);
    if (scan.seenOperator && stream.peek().kind() == Kind::OpenParen) {
        scan.current = Kind::OpenParen;
        scan.decision = Decision::Function;
        return Step::GoOn;
    }
    return scan.stopInFront(stream, assign);
}

// `operator new[](` and its like, or an array.
Parser::Step Parser::scanOpenBracket(Stream& stream, DeclarationScan& scan, const Token& bracket) {
    dropTrivia(stream);
    if (stream.peek(1).kind() == Kind::CloseBracket && stream.peek(2).kind() == Kind::OpenParen) {
        scan.list.push_back(stream.get());
        scan.list.push_back(stream.get());
        return scan.stop(Decision::Function);
    }
    return scan.stopInFront(stream, bracket);
}

Parser::Step Parser::scanOpenParen(Stream& stream, DeclarationScan& scan) {
    if (scan.angleDepth != 0) return Step::GoOn;
    if (scan.seenOperator && scan.previous == Kind::Operator && !scan.seenCallOperator) {
        scan.seenCallOperator = true;
        return Step::GoOn;
    }
    if (!scan.seenOperator && scan.previous == Kind::Star) {
        // A pointer return type may stand in front of a pointer declarator, which the next stage sorts out.
        const TokenKind next = stream.peek(1).kind();
        const bool isPointer = next == Kind::Star || (next == Kind::Identifier && stream.peek(2).kind() == Kind::Star);
        scan.isFunctionPtr = !isPointer;
    }
    return scan.stop(Decision::Function);
}

// Collects up to the `)` that brings the depth to 0.
bool Parser::collectParens(Stream& stream, Tokens& list, int depth) {
    for (;;) {
        dropTrivia(stream);
        const Token& token = stream.get();
        if (isEnd(token.kind())) {
            reportUnexpectedEnd(stream);
            return false;
        }
        list.push_back(token);
        if (token.kind() == Kind::OpenParen) ++depth;
        if (token.kind() == Kind::CloseParen && --depth == 0) return true;
    }
}

// ---- Stage 2: behind the `(` of a function

bool Parser::scanFunction(Stream& stream, DeclarationScan& scan) {
    dropTrivia(stream);
    if (scan.isFunctionPtr || stream.peek().kind() == Kind::Star) scan.decision = Decision::FunctionPtr;
    return collectParens(stream, scan.list, 1) && scanFunctionTail(stream, scan);
}

bool Parser::scanFunctionTail(Stream& stream, DeclarationScan& scan) {
    for (;;) {
        dropTrivia(stream);
        const Token token = stream.get();
        switch (token.kind()) {
            case Kind::Colon:
                scan.list.push_back(token);
                return collectCtorInitializers(stream, scan.list);
            case Kind::Const:
            case Kind::Volatile:
                scan.list.push_back(token);
                break;
            case Kind::Throw:
                scan.list.push_back(token);
                if (!collectExceptionSpec(stream, scan.list)) return false;
                break;
            case Kind::OpenParen:
                // A second bracket: the first one held the declarator.
                scan.decision = Decision::FunctionPtr;
                [[fallthrough]];
            default:
                stream.stepBack();
                return true;
        }
    }
}

bool Parser::collectCtorInitializers(Stream& stream, Tokens& list) {
    for (;;) {
        dropTrivia(stream);
        const Token& token = stream.get();
        if (isEnd(token.kind())) {
            reportUnexpectedEnd(stream);
            return false;
        }
        if (token.kind() == Kind::OpenBrace) {
            stream.stepBack();
            return true;
        }
        list.push_back(token);
    }
}

bool Parser::collectExceptionSpec(Stream& stream, Tokens& list) {
    dropTrivia(stream);
    const Token open = stream.get();
    if (open.kind() != Kind::OpenParen) {
        report(open.first(),
               "Expected '(' as part of exception specification clause 'throw()'. Got: " + std::string(open.text()));
        return false;
    }
    list.push_back(open);
    for (int depth = 1; depth > 0;) {
        const Token& token = stream.get();
        if (isEnd(token.kind())) {
            reportUnexpectedEnd(stream);
            return false;
        }
        list.push_back(token);
        if (token.kind() == Kind::OpenParen) ++depth;
        if (token.kind() == Kind::CloseParen) --depth;
    }
    return true;
}

// ---- Stage 3: the rest, by the decision

std::unique_ptr<DeclNode> Parser::parseCollectedFunction(Stream& stream, Tokens& list) {
    const bool listGoesOn = collectFunctionEnd(stream, list);
    Stream head(list);
    auto function = parseFunctionDecl(head, stream);
    if (listGoesOn) stream.get();
    return function;
}

// The token that ends the function's head is collected and stays on the stream. True if it is a `,`, behind
// which the next declarator is a declaration of its own.
bool Parser::collectFunctionEnd(Stream& stream, Tokens& list) {
    for (;;) {
        const Token token = stream.get();
        list.push_back(token);
        switch (token.kind()) {
            case Kind::Directive:
            case Kind::LineComment:
            case Kind::BlockComment:
                stream.stepBack();
                passTrivia(stream);
                continue;
            case Kind::Assign:
                if (stream.peek().kind() == Kind::Number && stream.peek().text() == "0") {
                    list.push_back(stream.get());
                    continue;
                }
                report(token.first(), ParseCode::StrayBehindFunction);
                break;
            case Kind::EndOfInput:
            case Kind::Defective:
            case Kind::Semicolon:
            case Kind::Comma:
            case Kind::Public:
            case Kind::Private:
            case Kind::Protected:
            case Kind::OpenBrace:
                break;
            default:
                list.pop_back();
                report(token.first(), ParseCode::StrayBehindFunction);
                break;
        }
        stream.stepBack();
        return token.kind() == Kind::Comma;
    }
}

std::unique_ptr<DeclNode> Parser::parseCollectedFunctionPtr(Stream& stream, Tokens& list) {
    for (TokenKind kind = Kind::Comma; !isEnd(kind) && kind != Kind::Semicolon && !isAccessKeyword(kind);) {
        dropTrivia(stream);
        list.push_back(stream.get());
        kind = list.back().kind();
    }
    stream.stepBack();
    Stream declaration(list);
    return parseFunctionPtrDecl(declaration);
}

std::unique_ptr<DeclNode> Parser::parseCollectedClass(Stream& stream, Tokens& list) {
    const auto body = collectBody(stream);
    if (!body) return nullptr;
    Stream declaration(list, *body);
    return parseClassDecl(declaration);
}

std::unique_ptr<DeclNode> Parser::parseCollectedEnum(Stream& stream, Tokens& list) {
    const auto body = collectBody(stream);
    if (!body) return nullptr;
    Stream declaration(list, *body);
    return parseEnumDecl(declaration);
}

std::optional<Trn::TokenStretch> Parser::collectBody(Stream& stream) {
    const auto body = stream.passBraces();
    if (!body) reportUnexpectedEnd(stream);
    return body;
}

void Parser::collectDeclarator(Stream& stream, Tokens& list) {
    int parens = 0;
    int brackets = 0;
    for (;;) {
        const TokenKind kind = stream.peek().kind();
        list.push_back(stream.get());
        if (isEnd(kind) || kind == Kind::OpenBrace || kind == Kind::CloseBrace) return;
        const bool isOutside = parens == 0 && brackets == 0;
        if (isOutside && (kind == Kind::Semicolon || kind == Kind::Assign)) return;
        if (isOutside && isAccessKeyword(kind)) {
            stream.stepBack();
            return;
        }
        if (kind == Kind::OpenParen) ++parens;
        if (kind == Kind::CloseParen) --parens;
        if (kind == Kind::OpenBracket) ++brackets;
        if (kind == Kind::CloseBracket) --brackets;
    }
}

}  // namespace Cpp
