// The frame of the parser: the loop over a file, comments and directives with the regions that they open, the
// operations that skip and collect, and the reports.
#include "Cpp_Parser.h"

#include "Cpp_CharClasses.h"
#include "Cpp_Lexer.h"
#include "Cpp_ParserWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isComment;
using Trn::isEnd;
using Trn::isTrivia;

void Parser::parse(Trn::Lexer& lexer, Trn::SyntaxNode& root, Trn::ParseMessageList& messages) {
    auto& cppLexer = dynamic_cast<Lexer&>(lexer);
    auto& cppRoot = dynamic_cast<RootNode&>(root);
    const Trn::TokenBuffer buffer(cppLexer);
    Stream stream(buffer);
    RootNode parsed;
    messages_ = messages;
    repeat(stream, [&] { return parseFileItem(stream, parsed); });
    cppRoot.swapChildren(parsed);
    messages.swap(messages_);
}

// ---- The file level

Parser::Step Parser::parseFileItem(Stream& stream, RootNode& root) {
    const TokenKind kind = stream.peek().kind();
    switch (kind) {
        case Kind::EndOfInput:
            return Step::Stop;
        case Kind::Defective:
        case Kind::Semicolon:
        case Kind::CloseBrace:
            stream.get();
            break;
        case Kind::OpenBrace:
            root.addChild(parseBlock(stream));
            break;
        case Kind::Namespace:
            root.addChild(parseNamespaceDecl(stream));
            break;
        case Kind::Using:
            skipUntil(stream, Kind::Semicolon);
            break;
        case Kind::Template:
            root.addChild(parseTemplate(stream));
            break;
        case Kind::Extern:
            root.addChild(parseExtern(stream));
            break;
        case Kind::Throw:
        case Kind::Continue:
        case Kind::Break:
        case Kind::Goto:
        case Kind::Return:
            parseFileStatement(stream, root);
            break;
        case Kind::Asm:
            parseFileAsm(stream, root);
            break;
        case Kind::Identifier:
            parseFileWord(stream, root);
            break;
        default:
            if (isTrivia(kind)) {
                root.addChild(parseTrivia(stream));
            } else if (isControlKeyword(kind)) {
                root.addChild(parseControlStatement(stream));
            } else {
                addDeclaration(stream, root, false);
            }
            break;
    }
    return Step::GoOn;
}

// A word in front of a `{` is taken for a macro that opens a block.
void Parser::parseFileWord(Stream& stream, RootNode& root) {
    if (isAsmWord(stream.peek().text())) return parseFileAsm(stream, root);
    const Token word = stream.get();
    if (peekSignificant(stream).kind() == Kind::OpenBrace) {
        root.addChild(std::make_unique<ExprNode>(std::string(word.text()), word.first(), word.last()));
        root.addChild(parseBlock(stream));
        return;
    }
    stream.stepBack();
    addDeclaration(stream, root, false);
}

void Parser::parseFileAsm(Stream& stream, RootNode& root) {
    auto statement = parseAsm(stream);
    if (!statement) stream.get();
    root.addChild(std::move(statement));
}

void Parser::parseFileStatement(Stream& stream, RootNode& root) {
    Tokens list;
    if (!collectUntil(stream, list, Kind::Semicolon)) return;
    Stream statement(list);
    root.addChild(parseExpressionStatement(statement));
}

// ---- Comments and directives

namespace {

constexpr std::string_view regionStart = "CORVANE-OFF";
constexpr std::string_view regionEnd = "CORVANE-ON";

std::string_view markerOf(const Trn::Token& comment) { return trimmed(bodyOfComment(comment.text())); }

bool opensCommentRegion(const Trn::Token& comment) { return markerOf(comment) == regionStart; }

// The change of depth that a token inside a comment region makes.
int commentRegionStep(const Trn::Token& token) {
    if (!isComment(token.kind())) return 0;
    const std::string_view marker = markerOf(token);
    if (marker.starts_with(regionStart)) return 1;
    return marker == regionEnd ? -1 : 0;
}

// Compares as if the text had no white space.
bool startsWithoutSpaces(std::string_view text, std::string_view start) {
    for (const char c : text) {
        if (start.empty()) break;
        if (isSpace(c)) continue;
        if (c != start.front()) return false;
        start.remove_prefix(1);
    }
    return start.empty();
}

bool opensDeadRegion(const Trn::Token& directive) { return startsWithoutSpaces(directive.text(), "#if0"); }

int deadRegionStep(const Trn::Token& token) {
    if (token.kind() != Kind::Directive) return 0;
    if (startsWithoutSpaces(token.text(), "#if")) return 1;
    return startsWithoutSpaces(token.text(), "#endif") ? -1 : 0;
}

}  // namespace

std::unique_ptr<CommentNode> Parser::parseComment(Stream& stream) {
    const Token comment = stream.get();
    if (!opensCommentRegion(comment)) {
        return std::make_unique<CommentNode>(std::string(comment.text()), comment.first(), comment.last());
    }
    const auto last = passCommentRegion(stream);
    if (!last) return nullptr;
    auto region = std::make_unique<CommentNode>(std::string(), comment.first(), *last);
    region->verbatim = true;
    return region;
}

std::unique_ptr<PreprocDirectiveNode> Parser::parseDirective(Stream& stream) {
    const Token directive = stream.get();
    if (!opensDeadRegion(directive)) {
        return std::make_unique<PreprocDirectiveNode>(std::string(directive.text()), directive.first(),
                                                      directive.last());
    }
    const auto last = passDeadRegion(stream);
    if (!last) return nullptr;
    return std::make_unique<PreprocDirectiveNode>(std::string(), directive.first(), *last);
}

std::optional<Position> Parser::passCommentRegion(Stream& stream) {
    for (int depth = 1;;) {
        const Token& token = stream.get();
        if (token.kind() == Kind::EndOfInput) {
            report(token.first(), ParseCode::UnexpectedEnd);
            return std::nullopt;
        }
        depth += commentRegionStep(token);
        if (depth == 0) return token.last();
    }
}

std::optional<Position> Parser::passDeadRegion(Stream& stream) {
    for (int depth = 1;;) {
        const Token& token = stream.get();
        if (token.kind() == Kind::EndOfInput) {
            report(token.first(), ParseCode::UnexpectedEnd);
            return std::nullopt;
        }
        depth += deadRegionStep(token);
        if (depth == 0) return token.last();
    }
}

std::unique_ptr<SyntaxNode> Parser::parseTrivia(Stream& stream) {
    if (isComment(stream.peek().kind())) return parseComment(stream);
    return parseDirective(stream);
}

void Parser::passTrivia(Stream& stream) {
    const Token token = stream.get();
    if (isComment(token.kind())) {
        if (opensCommentRegion(token)) passCommentRegion(stream);
    } else if (opensDeadRegion(token)) {
        passDeadRegion(stream);
    }
}

void Parser::dropTrivia(Stream& stream) {
    while (isTrivia(stream.peek().kind())) passTrivia(stream);
}

void Parser::attachTrivia(Stream& stream, InteriorNode& node) {
    while (isTrivia(stream.peek().kind())) node.addChild(parseTrivia(stream));
}

namespace {

// How far ahead the comment region ends that the token `ahead` opens, or else the end of the input.
std::size_t commentRegionEnd(const Trn::TokenStream& stream, std::size_t ahead) {
    for (int depth = 1; depth > 0 && stream.peek(ahead).kind() != Kind::EndOfInput;) {
        ++ahead;
        depth += commentRegionStep(stream.peek(ahead));
    }
    return ahead;
}

}  // namespace

// A comment region is passed over as a whole, a dead region is not. The result is noted at the stream, since
// nested statements ask for it again and again from the same place.
Trn::Token Parser::peekSignificant(Stream& stream) {
    if (!stream.lookAhead()) {
        std::size_t ahead = 1;
        bool reachedEnd = false;
        while (isTrivia(stream.peek(ahead).kind()) && !reachedEnd) {
            const Token& token = stream.peek(ahead);
            if (isComment(token.kind()) && opensCommentRegion(token)) ahead = commentRegionEnd(stream, ahead);
            reachedEnd = stream.peek(ahead).kind() == Kind::EndOfInput;
            if (!reachedEnd) ++ahead;
        }
        stream.setLookAhead(ahead, reachedEnd);
    }
    const Token& token = stream.peek(stream.lookAhead()->ahead);
    if (stream.lookAhead()->reachedEnd) report(token.first(), ParseCode::UnexpectedEnd);
    return token;
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
        const Token& token = stream.get();
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
        const Token& token = stream.get();
        if (token.kind() == Kind::Semicolon) return token.first();
        if (isEnd(token.kind())) return reportUnexpectedEnd(stream).first();
    }
}

std::optional<Position> Parser::readOpenBrace(Stream& stream, std::string_view text) {
    dropTrivia(stream);
    const Token token = stream.get();
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
Trn::Token Parser::reportUnexpectedEnd(Stream& stream) {
    stream.stepBack();
    stream.stepBack();
    const Token token = stream.get();
    report(token.first(), ParseCode::UnexpectedEnd);
    return token;
}

}  // namespace Cpp
