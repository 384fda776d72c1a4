// Declarations of pointers to functions.
#include "Cpp_JoinedText.h"
#include "Cpp_Parser.h"
#include "Cpp_ParserWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;

struct Parser::FunctionPtrScan {
    std::unique_ptr<FunctionPtrDeclNode> declaration;
    JoinedText text{};
    Position first{};
    Position last{};
    int depth = 0;

    void join(const Token& token) {
        text.joinBehindBlank(token.text());
        last = token.last();
    }
};

// The name is all that stands between the brackets of the declarator, with the closing one.
std::unique_ptr<FunctionPtrDeclNode> Parser::parseFunctionPtrDecl(Stream& stream) {
    dropTrivia(stream);
    FunctionPtrScan scan;
    scan.declaration = make<FunctionPtrDeclNode>();
    scan.first = stream.peek().first();
    Step step = Step::GoOn;
    while (step == Step::GoOn) step = scanFunctionPtrToken(stream, scan);
    if (step == Step::Fail) return nullptr;

    dropTrivia(stream);
    if (isCvQualifier(stream.peek().kind())) scan.declaration->qualifiers = parseCvQualifiers(stream);
    dropTrivia(stream);
    if (stream.peek().kind() == Kind::Semicolon) scan.declaration->setLastPosition(stream.get().last());
    return std::move(scan.declaration);
}

Parser::Step Parser::scanFunctionPtrToken(Stream& stream, FunctionPtrScan& scan) {
    const Token token = getSignificant(stream);
    FunctionPtrDeclNode& declaration = *scan.declaration;
    switch (token.kind()) {
        case Kind::EndOfInput:
        case Kind::Defective:
            reportUnexpectedEnd(stream);
            return Step::Fail;
        case Kind::Semicolon:
            report(token.first(), "Expected \"(\" as part of pointer-to-function declaration. Got ';'");
            return Step::Fail;
        case Kind::OpenParen:
            if (++scan.depth != 1) break;
            if (declaration.type) {
                stream.stepBack();
                declaration.parameters = parseParameterList(stream, false);
                return Step::Stop;
            }
            declaration.type = make<TypeNode>(scan.text, scan.first, scan.last);
            scan.text.clear();
            scan.first = token.first();
            return Step::GoOn;
        case Kind::CloseParen:
            if (--scan.depth == 0 && !declaration.name) return endFunctionPtrName(stream, scan, token);
            break;
        default:
            break;
    }
    scan.join(token);
    return Step::GoOn;
}

Parser::Step Parser::endFunctionPtrName(Stream& stream, FunctionPtrScan& scan, const Token& paren) {
    dropTrivia(stream);
    if (stream.peek().kind() == Kind::Identifier) scan.join(stream.get());
    dropTrivia(stream);
    const Token next = stream.peek();
    if (next.kind() != Kind::Semicolon && next.kind() != Kind::OpenParen) {
        report(next.first(),
               "Expected \"(\" as part of pointer-to-function declaration. Got: " + std::string(next.text()));
        return Step::Fail;
    }
    scan.join(paren);
    scan.declaration->name = make<IdNode>(scan.text, scan.first, paren.last());
    scan.text.clear();
    return next.kind() == Kind::Semicolon ? Step::Stop : Step::GoOn;
}

}  // namespace Cpp
