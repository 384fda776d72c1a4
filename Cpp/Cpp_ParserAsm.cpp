// Inline assembler, in braces, in a bracket or on a line of its own.
#include "Cpp_CharClasses.h"
#include "Cpp_JoinedText.h"
#include "Cpp_Parser.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;

std::unique_ptr<AsmNode> Parser::parseAsm(Stream& stream) {
    const Token keyword = getSignificant(stream);
    auto statement = make<AsmNode>();
    statement->text = make<TextNode>(keyword.text(), keyword.first(), keyword.last());
    statement->block = make<BlockNode>();
    const Token token = getSignificant(stream);
    statement->block->setFirstPosition(token.first());
    if (token.kind() != Kind::OpenBrace) {
        statement->asmForm = parseAsmLine(stream, token, *statement->block);
    } else {
        statement->asmForm = 2;
        if (!parseAsmBlock(stream, *statement->block)) return nullptr;
    }
    return statement;
}

// Behind the opening brace. The closing one is not part of the text.
bool Parser::parseAsmBlock(Stream& stream, BlockNode& block) {
    auto content = make<TextNode>();
    JoinedText text;
    content->setFirstPosition(stream.peek().first());
    for (int depth = 1;;) {
        const Token token = stream.get();
        if (isEnd(token.kind())) {
            report(token.first(), ParseCode::UnexpectedEnd);
            return false;
        }
        if (token.kind() == Kind::OpenBrace) ++depth;
        if (token.kind() == Kind::CloseBrace && --depth == 0) {
            content->text = kept(trimmed(kept(text)));
            block.setLastPosition(token.last());
            block.addChild(std::move(content));
            return true;
        }
        text.join(token.text());
        content->setLastPosition(token.last());
    }
}

// From `token` on to a `;` or the end of the line. Gives the form: 1 with a bracket, 0 without.
int Parser::parseAsmLine(Stream& stream, Token token, BlockNode& block) {
    const int line = token.first().line;
    int form = 0;
    for (Position last;; token = stream.get()) {
        const bool isBracket = token.kind() == Kind::OpenParen;
        if (token.kind() == Kind::Semicolon) {
            block.setLastPosition(token.last());
            return form;
        }
        if (token.kind() == Kind::EndOfInput || (!isBracket && token.last().line > line)) {
            stream.stepBack();
            block.setLastPosition(last);
            return form;
        }
        if (isBracket) form = 1;
        last = token.last();
    }
}

}  // namespace Cpp
