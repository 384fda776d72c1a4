// The third stage of a declaration: the rest of its tokens is collected for the operation of its kind.
#include "Cpp_Parser.h"
#include "Cpp_ParserWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;

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
