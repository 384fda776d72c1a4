// Comments and directives, with the regions that they open.
#include "Cpp_CharClasses.h"
#include "Cpp_CommentRegion.h"
#include "Cpp_Parser.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isComment;
using Trn::isTrivia;

namespace {

bool opensRegion(const Trn::TokenView& comment) { return opensCommentRegion(markerOf(comment.text())); }

// The change of depth that a token inside a comment region makes.
int regionStep(const Trn::TokenView& token) {
    return isComment(token.kind()) ? commentRegionStep(markerOf(token.text())) : 0;
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

bool opensDeadRegion(const Trn::TokenView& directive) { return startsWithoutSpaces(directive.text(), "#if0"); }

int deadRegionStep(const Trn::TokenView& token) {
    if (token.kind() != Kind::Directive) return 0;
    if (startsWithoutSpaces(token.text(), "#if")) return 1;
    return startsWithoutSpaces(token.text(), "#endif") ? -1 : 0;
}

}  // namespace

std::unique_ptr<CommentNode> Parser::parseComment(Stream& stream) {
    const Token comment = stream.get();
    if (!opensRegion(comment)) {
        return make<CommentNode>(comment.text(), comment.first(), comment.last());
    }
    const auto last = passCommentRegion(stream);
    if (!last) return nullptr;
    auto region = make<CommentNode>(std::string_view(), comment.first(), *last);
    region->verbatim = true;
    return region;
}

std::unique_ptr<PreprocDirectiveNode> Parser::parseDirective(Stream& stream) {
    const Token directive = stream.get();
    if (isModern_ || !opensDeadRegion(directive)) {
        return make<PreprocDirectiveNode>(directive.text(), directive.first(), directive.last());
    }
    const auto last = passDeadRegion(stream);
    if (!last) return nullptr;
    return make<PreprocDirectiveNode>(std::string_view(), directive.first(), *last);
}

std::optional<Position> Parser::passCommentRegion(Stream& stream) {
    for (int depth = 1;;) {
        const Token token = stream.get();
        if (token.kind() == Kind::EndOfInput) {
            report(token.first(), ParseCode::UnexpectedEnd);
            return std::nullopt;
        }
        depth += regionStep(token);
        if (depth == 0) return token.last();
    }
}

std::optional<Position> Parser::passDeadRegion(Stream& stream) {
    for (int depth = 1;;) {
        const Token token = stream.get();
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

void Parser::passRest(Stream& stream, const Token& token) {
    if (isComment(token.kind())) {
        if (opensRegion(token)) passCommentRegion(stream);
    } else if (!isModern_ && opensDeadRegion(token)) {
        passDeadRegion(stream);
    }
}

void Parser::attachTrivia(Stream& stream, InteriorNode& node) {
    if (!makesLeaves_) return dropTrivia(stream);
    while (isTrivia(stream.peek().kind())) node.addChild(parseTrivia(stream));
}

namespace {

// How far ahead the comment region ends that the token `ahead` opens, or else the end of the input.
std::size_t commentRegionEnd(const Trn::TokenStream& stream, std::size_t ahead) {
    for (int depth = 1; depth > 0 && stream.peek(ahead).kind() != Kind::EndOfInput;) {
        ++ahead;
        depth += regionStep(stream.peek(ahead));
    }
    return ahead;
}

}  // namespace

// A comment region is passed over as a whole, a dead region is not. The result is noted at the stream, since
// nested statements ask for it again and again from the same place.
Trn::TokenView Parser::peekSignificant(Stream& stream) {
    if (const Token next = stream.peek(); !isTrivia(next.kind())) return next;
    if (!stream.lookAhead()) {
        std::size_t ahead = 1;
        bool reachedEnd = false;
        while (isTrivia(stream.peek(ahead).kind()) && !reachedEnd) {
            const Token token = stream.peek(ahead);
            if (isComment(token.kind()) && opensRegion(token)) ahead = commentRegionEnd(stream, ahead);
            reachedEnd = stream.peek(ahead).kind() == Kind::EndOfInput;
            if (!reachedEnd) ++ahead;
        }
        stream.setLookAhead(ahead, reachedEnd);
    }
    const Token token = stream.peek(stream.lookAhead()->ahead);
    if (stream.lookAhead()->reachedEnd) report(token.first(), ParseCode::UnexpectedEnd);
    return token;
}

}  // namespace Cpp
