// The frame of the parser: its run over a text, the operations that skip and collect, and the reports.
#include "Cpp_Parser.h"

#include "Cpp_Lexer.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;
using Trn::isTrivia;

void Parser::parse(Trn::Lexer& lexer, Trn::SyntaxNode& root, Trn::ParseMessageList& messages) {
    auto& cppLexer = dynamic_cast<Lexer&>(lexer);
    auto& cppRoot = dynamic_cast<RootNode&>(root);
    Trn::TokenBuffer buffer = cppLexer.readAll();
    const auto storage = std::make_shared<TreeStorage>(cppLexer.source());
    storage_ = storage.get();
    RootNode parsed(storage);
    messages_ = messages;
    if (isModern_) {
        parseModern(buffer, cppLexer, parsed);
    } else {
        Stream stream(buffer);
        parseFileItems(stream, parsed);
    }
    cppRoot.swap(parsed);
    messages.swap(messages_);
}

// ---- Skipping and collecting

void Parser::skipUntil(Stream& stream, TokenKind kind) {
    for (;;) {
        const TokenKind next = stream.get().kind();
        if (next == kind) return;
        if (next == Kind::EndOfInput) {
            reportUnexpectedEnd(stream);
            return;
        }
        if (next == Kind::Directive) {
            stream.stepBack();
            passTrivia(stream);
        }
    }
}

void Parser::skipUntilAttaching(Stream& stream, InteriorNode& node, TokenKind kind) {
    for (;;) {
        attachTrivia(stream, node);
        const TokenKind next = stream.get().kind();
        if (next == kind) return;
        if (next == Kind::EndOfInput) {
            reportUnexpectedEnd(stream);
            return;
        }
    }
}

bool Parser::collectUntil(Stream& stream, Tokens& list, TokenKind kind) {
    for (;;) {
        const Token token = stream.get();
        if (token.kind() == Kind::EndOfInput) {
            report(token.first(), ParseCode::UnexpectedEnd);
            return false;
        }
        list.push_back(token);
        if (token.kind() == kind) return true;
    }
}

Position Parser::consumeSemicolon(Stream& stream) {
    for (;;) {
        const Token token = stream.get();
        if (token.kind() == Kind::Semicolon) return token.first();
        if (isEnd(token.kind())) return reportUnexpectedEnd(stream).first();
    }
}

std::optional<Position> Parser::readOpenBrace(Stream& stream, std::string_view text) {
    const Token token = getSignificant(stream);
    if (token.kind() == Kind::OpenBrace) return token.first();
    stream.unget(token);
    report(token.first(), std::string(text));
    return std::nullopt;
}

// ---- Reports

void Parser::report(Position position, ParseCode code) {
    messages_.push_back({3, position, static_cast<std::int32_t>(code), std::string(textOf(code))});
}

void Parser::report(Position position, std::string text) { messages_.push_back({3, position, 0, std::move(text)}); }

// Two steps back and one token forward: the way back to the last real token. At the end of a list, where the
// stream stands still behind the last token, it leads to the last but one.
Trn::TokenView Parser::reportUnexpectedEnd(Stream& stream) {
    stream.stepBack();
    stream.stepBack();
    const Token token = stream.get();
    report(token.first(), ParseCode::UnexpectedEnd);
    return token;
}

}  // namespace Cpp
