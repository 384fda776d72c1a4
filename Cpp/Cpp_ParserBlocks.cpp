// Blocks and the dispatch of the statements in them, which are parsed for their shape only.
#include "Cpp_Parser.h"
#include "Cpp_ParserWords.h"
#include "Trn_NestingGuard.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;
using Trn::TokenKind;

namespace {

// The keywords that open a data declaration inside a block.
bool startsData(TokenKind kind) {
    return kind == Kind::Const || kind == Kind::Volatile || kind == Kind::Auto || isBuiltInType(kind);
}

// Behind a word these make it the type of a data declaration.
bool followsType(TokenKind kind) {
    return kind == Kind::Star || kind == Kind::Amp || kind == Kind::Less || kind == Kind::Identifier;
}

}  // namespace

// A braced block, or one statement in a block without braces, which has no positions of its own.
std::unique_ptr<BlockNode> Parser::parseBlock(Stream& stream) {
    const Trn::NestingGuard guard(depth_);
    auto block = make<BlockNode>();
    if (isModern_)
        parseModernBlock(stream, *block);
    else
        parseClassicBlock(stream, *block);
    return block;
}

void Parser::parseClassicBlock(Stream& stream, BlockNode& block) {
    const Token token = getSignificant(stream);
    if (token.kind() == Kind::Semicolon) {
        block.setFirstPosition(token.first());
        block.setLastPosition(token.last());
    } else if (token.kind() == Kind::OpenBrace) {
        block.setFirstPosition(token.first());
        repeat(stream, [&] { return parseBlockItem(stream, block); });
    } else {
        parseSingleStatement(stream, token.kind(), block);
    }
}

void Parser::parseModernBlock(Stream& stream, BlockNode& block) {
    dropTrivia(stream);
    const At first = stream.index();
    const TokenKind kind = buffer_->kind(first);
    if (kind == Kind::Semicolon || kind == Kind::OpenBrace) {
        stream.seek(first + 1);
        block.setFirstPosition(buffer_->first(first));
    }
    if (kind == Kind::Semicolon) {
        block.setLastPosition(buffer_->last(first));
    } else if (kind == Kind::OpenBrace) {
        parseModernItems(stream, block, Frame::Block);
    } else if (kind != Kind::CloseBrace) {
        parseUnbraced(stream, block);
    }
}

// For the outline the labels of a `switch` without braces have their statement in it, and a macro in front of a control
// statement stands in it with that.
void Parser::parseUnbraced(Stream& stream, BlockNode& block) {
    bool goesOn = true;
    while (goesOn) {
        const TokenKind kind = peekSignificant(stream).kind();
        goesOn = outline_ != nullptr && (kind == Kind::Case || kind == Kind::Default ||
                                         shapes_->controlMacroEnd(shapes_->next(stream.index() - 1)) != 0);
        if (kind != Kind::CloseBrace && kind != Kind::EndOfInput) parseModernItem(stream, block, Frame::Block);
    }
}

// Behind the first token, of the kind given.
void Parser::parseSingleStatement(Stream& stream, TokenKind kind, BlockNode& block) {
    const bool isData = startsData(kind) || (kind == Kind::Identifier && followsType(stream.peek().kind()));
    stream.stepBack();
    if (isData) {
        Tokens list(stream.buffer());
        collectDeclarator(stream, list);
        Stream declarator(list);
        block.addChild(parseDataDecl(declarator, stream, false));
    } else if (kind == Kind::Typedef) {
        block.addChild(parseDeclarationWithEnd(stream, false));
    } else if (isControlKeyword(kind)) {
        block.addChild(parseControlStatement(stream));
    } else {
        block.addChild(parseExpressionStatement(stream));
    }
}

// One item between the braces. Stops at the closing brace and at the end of the input.
Parser::Step Parser::parseBlockItem(Stream& stream, BlockNode& block) {
    attachTrivia(stream, block);
    const Token token = stream.get();
    switch (token.kind()) {
        case Kind::EndOfInput:
        case Kind::Defective:
            reportUnexpectedEnd(stream);
            return Step::Stop;
        case Kind::CloseBrace:
            block.setLastPosition(token.last());
            return Step::Stop;
        case Kind::Semicolon:
            return Step::GoOn;
        case Kind::Extern:
            attachTrivia(stream, block);
            if (stream.peek().kind() == Kind::StringLiteral) stream.get();
            return Step::GoOn;
        case Kind::Namespace:
            report(token.first(), ParseCode::NamespaceInBlock);
            return Step::GoOn;
        case Kind::Template:
            report(token.first(), ParseCode::TemplateInBlock);
            return Step::GoOn;
        case Kind::Public:
        case Kind::Private:
        case Kind::Protected:
            report(token.first(), ParseCode::AccessLabelInBlock);
            return Step::GoOn;
        case Kind::Using:
            skipUntilAttaching(stream, block, Kind::Semicolon);
            return Step::GoOn;
        case Kind::Asm:
        case Kind::Identifier:
            parseBlockWord(stream, token, block);
            return Step::GoOn;
        default:
            break;
    }
    stream.stepBack();
    parseBlockStatement(stream, token.kind(), block);
    return Step::GoOn;
}

void Parser::parseBlockStatement(Stream& stream, TokenKind kind, BlockNode& block) {
    switch (kind) {
        case Kind::OpenBrace:
            block.addChild(parseBlock(stream));
            return;
        case Kind::Case:
        case Kind::Default:
            block.addChild(parseCaseLabel(stream));
            return;
        case Kind::Class:
        case Kind::Struct:
        case Kind::Union:
        case Kind::Enum:
        case Kind::Static:
        case Kind::Typedef:
            block.addChild(parseDeclarationWithEnd(stream, false));
            return;
        default:
            break;
    }
    if (isControlKeyword(kind)) {
        block.addChild(parseControlStatement(stream));
    } else if (startsData(kind)) {
        parseDataOrExpression(stream, block);
    } else {
        block.addChild(parseExpressionStatement(stream));
    }
}

// Behind a word, which has been read, the next significant token decides.
void Parser::parseBlockWord(Stream& stream, const Token& word, BlockNode& block) {
    if (isAsmWord(word.text())) {
        stream.stepBack();
        block.addChild(parseAsm(stream));
        return;
    }
    const TokenKind next = peekSignificant(stream).kind();
    stream.stepBack();
    if (next == Kind::Semicolon || followsType(next)) {
        parseDataOrExpression(stream, block);
        return;
    }
    if (next == Kind::Colon) {
        if (auto label = parseGotoLabel(stream)) {
            block.addChild(std::move(label));
            return;
        }
    }
    block.addChild(parseExpressionStatement(stream));
}

// Tried as data first; what is none is read again as an expression.
void Parser::parseDataOrExpression(Stream& stream, BlockNode& block) {
    Tokens list(stream.buffer());
    collectDeclarator(stream, list);
    Stream declarator(list);
    if (auto declaration = parseDataDecl(declarator, stream, false)) {
        block.addChild(std::move(declaration));
        return;
    }
    Stream expression(list);
    block.addChild(parseExpressionStatement(expression));
}

}  // namespace Cpp
