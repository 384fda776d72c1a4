// The dispatch of declarations, and its first stage: a scan that collects tokens until a landmark tells what they are.
#include "Cpp_ParserDeclarationScan.h"
#include "Cpp_ParserWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;

std::unique_ptr<DeclNode> Parser::parseDeclaration(Stream& stream, bool& takesSemicolon, bool allowBitfield) {
    takesSemicolon = false;
    DeclarationScan scan(stream.buffer());
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

// ---- The scan for a landmark

bool Parser::scanDeclaration(Stream& stream, DeclarationScan& scan) {
    Step step = Step::GoOn;
    while (step == Step::GoOn) step = scanDeclarationToken(stream, scan);
    return step == Step::Stop;
}

Parser::Step Parser::scanDeclarationToken(Stream& stream, DeclarationScan& scan) {
    const Token token = getSignificant(stream);
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
        const Token token = getSignificant(stream);
        if (isEnd(token.kind())) {
            reportUnexpectedEnd(stream);
            return false;
        }
        list.push_back(token);
        if (token.kind() == Kind::OpenParen) ++depth;
        if (token.kind() == Kind::CloseParen && --depth == 0) return true;
    }
}

}  // namespace Cpp
