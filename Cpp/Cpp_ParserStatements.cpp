// Statements, parsed for their shape only: blocks, labels, assembler, and everything else as data or expression.
#include <algorithm>

#include "Cpp_CharClasses.h"
#include "Cpp_JoinedText.h"
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

// ---- Blocks

// A braced block, or one statement in a block without braces, which has no positions of its own.
std::unique_ptr<BlockNode> Parser::parseBlock(Stream& stream) {
    const Trn::NestingGuard guard(depth_);
    auto block = std::make_unique<BlockNode>();
    dropTrivia(stream);
    const Token token = stream.get();
    if (token.kind() == Kind::Semicolon) {
        block->setFirstPosition(token.first());
        block->setLastPosition(token.last());
    } else if (token.kind() == Kind::OpenBrace) {
        block->setFirstPosition(token.first());
        repeat(stream, [&] { return parseBlockItem(stream, *block); });
    } else {
        parseSingleStatement(stream, token.kind(), *block);
    }
    return block;
}

// Behind the first token, of the kind given.
void Parser::parseSingleStatement(Stream& stream, TokenKind kind, BlockNode& block) {
    const bool isData = startsData(kind) || (kind == Kind::Identifier && followsType(stream.peek().kind()));
    stream.stepBack();
    if (isData) {
        Tokens list;
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
    Tokens list;
    collectDeclarator(stream, list);
    Stream declarator(list);
    if (auto declaration = parseDataDecl(declarator, stream, false)) {
        block.addChild(std::move(declaration));
        return;
    }
    Stream expression(list);
    block.addChild(parseExpressionStatement(expression));
}

// ---- Expressions

struct Parser::Expression {
    std::string text{};
    int parens = 0;
    int angles = 0;
    bool seenTemplate = false;

    // Brackets are counted, all else joins the text.
    void add(const Token& token) {
        switch (token.kind()) {
            case Kind::OpenParen:
                ++parens;
                break;
            case Kind::CloseParen:
                parens = std::max(parens - 1, 0);
                break;
            case Kind::Less:
                ++angles;
                break;
            case Kind::Greater:
                angles = std::max(angles - 1, 0);
                break;
            case Kind::Template:
                seenTemplate = true;
                break;
            default:
                joinTo(text, token.text());
                break;
        }
    }
};

// A run of tokens up to a `;` or a landmark. Its text is a sketch for measuring, without brackets.
std::unique_ptr<ExprNode> Parser::parseExpressionStatement(Stream& stream) {
    dropTrivia(stream);
    const Position first = stream.peek().first();
    Expression expression;
    for (;;) {
        const Token token = stream.get();
        const TokenKind kind = token.kind();
        if (isEnd(kind)) {
            const Position last = reportUnexpectedEnd(stream).last();
            return std::make_unique<ExprNode>(std::move(expression.text), first, last);
        }
        if (endsExpression(token, expression)) {
            stream.stepBack();
            stream.stepBack();
            return std::make_unique<ExprNode>(std::move(expression.text), first, stream.get().last());
        }
        if (kind == Kind::Semicolon && expression.parens == 0) {
            expression.text += token.text();
            return std::make_unique<ExprNode>(std::move(expression.text), first, token.last());
        }
        expression.add(token);
    }
}

// Whether the token is a landmark in front of which the expression ends. So a missing `;` is caught, and a macro
// call without one is complete.
bool Parser::endsExpression(const Token& token, const Expression& expression) const {
    const TokenKind kind = token.kind();
    switch (kind) {
        case Kind::Directive:
            return true;
        case Kind::Throw:
        case Kind::Return:
            return !expression.text.empty();
        case Kind::Class:
        case Kind::Struct:
            return expression.parens == 0 && expression.angles == 0 && !expression.seenTemplate;
        case Kind::OpenBrace:
        case Kind::CloseBrace:
            return expression.parens == 0;
        default:
            return isStatementKeyword(kind) && expression.parens == 0;
    }
}

// ---- Labels

// The statements behind the label are its siblings in the block.
std::unique_ptr<CaseNode> Parser::parseCaseLabel(Stream& stream) {
    const Token keyword = stream.get();
    auto label = std::make_unique<CaseNode>();
    label->keyword = std::make_unique<KeywordNode>(keyword.kind(), keyword.first(), keyword.last());
    label->colonPosition = keyword.last();
    if (keyword.kind() == Kind::Case) {
        label->value = parseCaseValue(stream, label->colonPosition);
        return label;
    }
    dropTrivia(stream);
    const Token colon = stream.get();
    if (colon.kind() == Kind::Colon) {
        label->colonPosition = colon.last();
    } else {
        report(colon.first(), "Expected a : immediately following 'default'. Got: " + std::string(colon.text()));
        stream.unget(colon);
    }
    return label;
}

// The first `:` ends the value. `colon` gets the last position of the token that ended it.
std::unique_ptr<ExprNode> Parser::parseCaseValue(Stream& stream, Position& colon) {
    dropTrivia(stream);
    auto value = std::make_unique<ExprNode>(std::string(), stream.peek().first(), stream.peek().last());
    for (JoinedText text;;) {
        dropTrivia(stream);
        const Token& token = stream.get();
        if (token.kind() == Kind::Colon || isEnd(token.kind())) {
            colon = token.last();
            value->text = text.take();
            return value;
        }
        text.add(token.text());
        value->setLastPosition(token.last());
    }
}

// Called in front of a word and its `:`. The `:` may be part of a dead region, and then another token is read for it.
std::unique_ptr<LabelNode> Parser::parseGotoLabel(Stream& stream) {
    const Token name = stream.get();
    if (peekSignificant(stream).kind() != Kind::Colon) {
        stream.stepBack();
        return nullptr;
    }
    auto label = std::make_unique<LabelNode>();
    label->name = std::make_unique<IdNode>(std::string(name.text()), name.first(), name.last());
    dropTrivia(stream);
    label->colonPosition = stream.get().last();
    return label;
}

// ---- Inline assembler

std::unique_ptr<AsmNode> Parser::parseAsm(Stream& stream) {
    dropTrivia(stream);
    const Token keyword = stream.get();
    auto statement = std::make_unique<AsmNode>();
    statement->text = std::make_unique<TextNode>(std::string(keyword.text()), keyword.first(), keyword.last());
    statement->block = std::make_unique<BlockNode>();
    dropTrivia(stream);
    const Token token = stream.get();
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
    auto content = std::make_unique<TextNode>();
    content->setFirstPosition(stream.peek().first());
    for (int depth = 1;;) {
        const Token token = stream.get();
        if (isEnd(token.kind())) {
            report(token.first(), ParseCode::UnexpectedEnd);
            return false;
        }
        if (token.kind() == Kind::OpenBrace) ++depth;
        if (token.kind() == Kind::CloseBrace && --depth == 0) {
            content->text = std::string(trimmed(content->text));
            block.setLastPosition(token.last());
            block.addChild(std::move(content));
            return true;
        }
        joinBehindBlank(content->text, token.text());
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
