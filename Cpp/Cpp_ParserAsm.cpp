// Inline assembler, in braces, in a bracket or on a line of its own.
#include "Cpp_CharClasses.h"
#include "Cpp_JoinedText.h"
#include "Cpp_Parser.h"
#include "Cpp_ShapeWords.h"

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
        if (isModern_ ? token.kind() == Kind::EndOfInput : isEnd(token.kind())) {
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

// From `token` on to a `;` or the end of the line. Gives the form: 1 with a bracket, 0 without. In the modern dialect
// what a bracket holds belongs to it, on other lines too, and the bracket that ends the block around it doesn't.
int Parser::parseAsmLine(Stream& stream, Token token, BlockNode& block) {
    int line = token.first().line;
    int form = 0;
    for (Position last;; token = stream.get()) {
        const bool isBracket = token.kind() == Kind::OpenParen;
        if (token.kind() == Kind::Semicolon) {
            block.setLastPosition(token.last());
            return form;
        }
        const bool isBehindLine = !isBracket && token.last().line > line;
        if (token.kind() == Kind::EndOfInput || isBehindLine || (isModern_ && isCloser(token.kind()))) {
            stream.stepBack();
            block.setLastPosition(last);
            return form;
        }
        if (isBracket) form = 1;
        last = token.last();
        if (isModern_ && shapes_->isOpening(stream.index() - 1)) {
            const At close = shapes_->partner(stream.index() - 1);
            last = buffer_->last(close);
            line = last.line;
            stream.seek(close + 1);
        }
    }
}

}  // namespace Cpp
