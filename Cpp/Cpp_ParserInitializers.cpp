// What may follow the head of a data declaration: an initializer behind `=` or in brackets, or the widths of
// bit-fields.
#include "Cpp_JoinedText.h"
#include "Cpp_Parser.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;

// The first `;` ends it; braces are tokens like any other.
std::unique_ptr<ExprNode> Parser::parseAssignInitializer(Stream& stream, const Token& assign) {
    JoinedText text(assign.text());
    for (;;) {
        const Token token = getSignificant(stream);
        if (token.kind() == Kind::Semicolon) {
            return make<ExprNode>(text, assign.first(), token.last());
        }
        if (isEnd(token.kind())) {
            reportUnexpectedEnd(stream);
            return nullptr;
        }
        if (makesSketches_) text.joinBehindBlank(token.text());
    }
}

std::unique_ptr<ExprNode> Parser::parseParenInitializer(Stream& list, Stream& stream, const Token& paren) {
    JoinedText text(paren.text());
    for (int depth = 1;;) {
        const Token token = getSignificant(list);
        switch (token.kind()) {
            case Kind::EndOfInput:
            case Kind::Defective:
                report(stream.get().first(), ParseCode::UnexpectedEnd);
                return nullptr;
            case Kind::Semicolon:
                if (depth == 0) return make<ExprNode>(text, paren.first(), token.last());
                report(token.first(), ParseCode::UnexpectedSemicolon);
                return nullptr;
            case Kind::Less:
            case Kind::Greater:
                continue;
            case Kind::OpenParen:
                ++depth;
                break;
            case Kind::CloseParen:
                --depth;
                break;
            default:
                break;
        }
        if (makesSketches_) text.joinBehindBlank(token.text());
    }
}

std::unique_ptr<ExprNode> Parser::parseBitfield(Stream& list, Stream& stream, const Token& colon) {
    JoinedText text(colon.text());
    if (!readBitfieldWidth(list, text)) return nullptr;
    for (;;) {
        const Token token = getSignificant(list);
        if (token.kind() == Kind::Semicolon) {
            return make<ExprNode>(text, colon.first(), token.last());
        }
        if (token.kind() != Kind::Comma) {
            report(stream.get().first(), ParseCode::StrayInData);
            return nullptr;
        }
        text.joinBehindBlank(token.text());
        if (!readNextBitfield(list, text)) return nullptr;
    }
}

bool Parser::readBitfieldWidth(Stream& list, JoinedText& text) {
    const Token token = getSignificant(list);
    if (token.kind() != Kind::Identifier && token.kind() != Kind::Number) {
        reportBadBitfield(token, "an identifier or an integer literal");
        return false;
    }
    text.joinBehindBlank(token.text());
    return true;
}

// The name, the colon and the width behind a `,`.
bool Parser::readNextBitfield(Stream& list, JoinedText& text) {
    const Token name = getSignificant(list);
    if (name.kind() != Kind::Identifier) {
        reportBadBitfield(name, "an Identifier");
        return false;
    }
    text.joinBehindBlank(name.text());
    const Token colon = getSignificant(list);
    if (colon.kind() != Kind::Colon) {
        reportBadBitfield(colon, "':'");
        return false;
    }
    text.joinBehindBlank(colon.text());
    return readBitfieldWidth(list, text);
}

void Parser::reportBadBitfield(const Token& token, std::string_view expected) {
    report(token.first(),
           "Bad looking bitfield. Expected " + std::string(expected) + ". Got: '" + std::string(token.text()) + "'.");
}

}  // namespace Cpp
