// Data declarations and pointers to functions. A run of tokens is cut in front of its initializer or bit-field and
// split into a type and a name without knowing any type. A list of declarators is one node, whose name holds all
// of them.
#include "Cpp_JoinedText.h"
#include "Cpp_Parser.h"
#include "Cpp_ParserWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;
using Trn::Token;
using Trn::TokenKind;

struct Parser::DataHead {
    Tokens tokens;
    bool hasParenInitializer = false;
    bool hasBitfield = false;
    int parens = 0;
    int brackets = 0;
    int angles = 0;
    Token previous;  // the last token that is no trivia
};

std::unique_ptr<DataDeclNode> Parser::parseDataDecl(Stream& list, Stream& stream, bool allowBitfield) {
    auto declaration = parseDataHead(list, allowBitfield);
    if (!declaration) return nullptr;
    const Token token = list.get();
    switch (token.kind()) {
        case Kind::Semicolon:
            declaration->setLastPosition(token.first());
            return declaration;
        case Kind::Public:
        case Kind::Private:
        case Kind::Protected:
            return declaration;
        case Kind::Assign:
            declaration->initializer = parseAssignInitializer(stream, token);
            break;
        case Kind::OpenParen:
            declaration->initializer = parseParenInitializer(list, stream, token);
            break;
        case Kind::Colon:
            declaration->initializer = parseBitfield(list, stream, token);
            break;
        default:
            report(stream.get().first(), ParseCode::StrayInData);
            return nullptr;
    }
    if (!declaration->initializer) return nullptr;
    return declaration;
}

// ---- The head: cut, split, build

namespace {

bool isBitfieldTypeWord(TokenKind kind) {
    switch (kind) {
        case Kind::Char:
        case Kind::WcharT:
        case Kind::Bool:
        case Kind::Short:
        case Kind::Int:
        case Kind::Long:
        case Kind::Const:
        case Kind::Mutable:
        case Kind::Volatile:
        case Kind::Signed:
        case Kind::Unsigned:
        case Kind::Register:
        case Kind::Extern:
            return true;
        default:
            return false;
    }
}

// How many tokens of a bit-field's head are its type. The last one is the name, unless it is a word of the type
// or all that there is.
std::size_t bitfieldTypeSize(std::span<const Token> head) {
    std::size_t words = 0;
    while (words < head.size() && isBitfieldTypeWord(head[words].kind())) ++words;
    const bool isUnnamed = words == head.size() || (words == 0 && head.size() == 1);
    return isUnnamed ? head.size() : head.size() - 1;
}

// The first `,` outside all brackets, or the size of the head.
std::size_t firstSeparator(std::span<const Token> head) {
    int parens = 0;
    int brackets = 0;
    int angles = 0;
    for (std::size_t i = 0; i < head.size(); ++i) {
        switch (head[i].kind()) {
            case Kind::OpenParen:
                ++parens;
                break;
            case Kind::CloseParen:
                --parens;
                break;
            case Kind::OpenBracket:
                ++brackets;
                break;
            case Kind::CloseBracket:
                --brackets;
                break;
            case Kind::Less:
                ++angles;
                break;
            case Kind::Greater:
                --angles;
                break;
            case Kind::Comma:
                if (parens == 0 && brackets == 0 && angles == 0) return i;
                break;
            default:
                break;
        }
    }
    return head.size();
}

// The last identifier outside square and angle brackets, or 0.
std::size_t lastName(std::span<const Token> head) {
    int brackets = 0;
    int angles = 0;
    for (std::size_t i = head.size(); i-- > 0;) {
        switch (head[i].kind()) {
            case Kind::CloseBracket:
                ++brackets;
                break;
            case Kind::OpenBracket:
                --brackets;
                break;
            case Kind::Greater:
                ++angles;
                break;
            case Kind::Less:
                --angles;
                break;
            case Kind::Identifier:
                if (brackets <= 0 && angles <= 0) return i;
                break;
            default:
                break;
        }
    }
    return 0;
}

std::string joinTokens(std::span<const Token> tokens) {
    JoinedText text;
    for (const Token& token : tokens) {
        if (!Trn::isTrivia(token.kind())) text.add(token.text());
    }
    return text.take();
}

}  // namespace

std::unique_ptr<DataDeclNode> Parser::parseDataHead(Stream& stream, bool allowBitfield) {
    DataHead head;
    if (!cutDataHead(stream, allowBitfield, head)) return nullptr;

    const std::span<const Token> tokens(head.tokens);
    std::size_t typeSize = 0;
    if (head.hasBitfield) {
        typeSize = bitfieldTypeSize(tokens);
    } else {
        const std::size_t separator = firstSeparator(tokens);
        if (separator == 0) return nullptr;
        typeSize = lastName(tokens.first(separator));
    }
    // `f(1);` is a call.
    if (head.hasParenInitializer && typeSize == 0) return nullptr;

    auto declaration = std::make_unique<DataDeclNode>();
    if (typeSize > 0) {
        const auto type = tokens.first(typeSize);
        declaration->type = std::make_unique<TypeNode>(joinTokens(type), type.front().first(), type.back().last());
    }
    const auto name = tokens.subspan(typeSize);
    // A comment alone is no name.
    if (std::string text = joinTokens(name); !text.empty()) {
        declaration->name = std::make_unique<IdNode>(std::move(text), name.front().first(), name.back().last());
    }
    return declaration;
}

// False if nothing stands in front of the stop, or if there is none.
bool Parser::cutDataHead(Stream& stream, bool allowBitfield, DataHead& head) {
    for (;;) {
        const Token token = stream.get();
        if (isEnd(token.kind())) return false;
        if (endsDataHead(stream, token, allowBitfield, head)) {
            stream.stepBack();
            return !head.tokens.empty();
        }
        head.tokens.push_back(token);
        if (!Trn::isTrivia(token.kind())) head.previous = token;
    }
}

bool Parser::endsDataHead(Stream& stream, const Token& token, bool allowBitfield, DataHead& head) {
    const bool isOutside = head.parens == 0 && head.brackets == 0;
    const bool isBehindStar = !head.tokens.empty() && head.tokens.back().kind() == Kind::Star;
    const bool isOperatorName = head.previous.kind() == Kind::Operator;
    switch (token.kind()) {
        case Kind::Semicolon:
        case Kind::Public:
        case Kind::Private:
        case Kind::Protected:
            return true;
        case Kind::Assign:
            return isOutside;
        case Kind::OpenParen:
            // A bracket behind a `*` belongs to the declarator, one behind a specifier word or between angle
            // brackets to the type.
            head.hasParenInitializer =
                isOutside && head.angles == 0 && !isBehindStar && !isDeclSpecWord(head.previous.text());
            if (!head.hasParenInitializer) ++head.parens;
            return head.hasParenInitializer;
        case Kind::CloseParen:
            --head.parens;
            return false;
        case Kind::OpenBracket:
            ++head.brackets;
            return false;
        case Kind::CloseBracket:
            --head.brackets;
            return false;
        case Kind::Less:
            if (!isOperatorName) ++head.angles;
            return false;
        case Kind::Greater:
            if (!isOperatorName && head.angles > 0) --head.angles;
            return false;
        case Kind::Colon:
            if (isOutside && allowBitfield) {
                const TokenKind next = peekSignificant(stream).kind();
                head.hasBitfield = next == Kind::Number || next == Kind::Identifier;
            }
            return head.hasBitfield;
        default:
            return false;
    }
}

// ---- Initializers and bit-fields

// The first `;` ends it; braces are tokens like any other.
std::unique_ptr<ExprNode> Parser::parseAssignInitializer(Stream& stream, const Token& assign) {
    std::string text(assign.text());
    for (;;) {
        dropTrivia(stream);
        const Token& token = stream.get();
        if (token.kind() == Kind::Semicolon) {
            return std::make_unique<ExprNode>(std::move(text), assign.first(), token.last());
        }
        if (isEnd(token.kind())) {
            reportUnexpectedEnd(stream);
            return nullptr;
        }
        joinBehindBlank(text, token.text());
    }
}

std::unique_ptr<ExprNode> Parser::parseParenInitializer(Stream& list, Stream& stream, const Token& paren) {
    std::string text(paren.text());
    for (int depth = 1;;) {
        dropTrivia(list);
        const Token token = list.get();
        switch (token.kind()) {
            case Kind::EndOfInput:
            case Kind::Defective:
                report(stream.get().first(), ParseCode::UnexpectedEnd);
                return nullptr;
            case Kind::Semicolon:
                if (depth == 0) return std::make_unique<ExprNode>(std::move(text), paren.first(), token.last());
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
        joinBehindBlank(text, token.text());
    }
}

std::unique_ptr<ExprNode> Parser::parseBitfield(Stream& list, Stream& stream, const Token& colon) {
    std::string text(colon.text());
    if (!readBitfieldWidth(list, text)) return nullptr;
    for (;;) {
        dropTrivia(list);
        const Token token = list.get();
        if (token.kind() == Kind::Semicolon) {
            return std::make_unique<ExprNode>(std::move(text), colon.first(), token.last());
        }
        if (token.kind() != Kind::Comma) {
            report(stream.get().first(), ParseCode::StrayInData);
            return nullptr;
        }
        joinBehindBlank(text, token.text());
        if (!readNextBitfield(list, text)) return nullptr;
    }
}

bool Parser::readBitfieldWidth(Stream& list, std::string& text) {
    dropTrivia(list);
    const Token token = list.get();
    if (token.kind() != Kind::Identifier && token.kind() != Kind::Number) {
        reportBadBitfield(token, "an identifier or an integer literal");
        return false;
    }
    joinBehindBlank(text, token.text());
    return true;
}

// The name, the colon and the width behind a `,`.
bool Parser::readNextBitfield(Stream& list, std::string& text) {
    dropTrivia(list);
    const Token name = list.get();
    if (name.kind() != Kind::Identifier) {
        reportBadBitfield(name, "an Identifier");
        return false;
    }
    joinBehindBlank(text, name.text());
    dropTrivia(list);
    const Token colon = list.get();
    if (colon.kind() != Kind::Colon) {
        reportBadBitfield(colon, "':'");
        return false;
    }
    joinBehindBlank(text, colon.text());
    return readBitfieldWidth(list, text);
}

void Parser::reportBadBitfield(const Token& token, std::string_view expected) {
    report(token.first(),
           "Bad looking bitfield. Expected " + std::string(expected) + ". Got: '" + std::string(token.text()) + "'.");
}

// ---- Pointers to functions

struct Parser::FunctionPtrScan {
    std::unique_ptr<FunctionPtrDeclNode> declaration = std::make_unique<FunctionPtrDeclNode>();
    std::string text{};
    Position first{};
    Position last{};
    int depth = 0;

    void join(const Token& token) {
        joinBehindBlank(text, token.text());
        last = token.last();
    }
};

// The name is all that stands between the brackets of the declarator, with the closing one.
std::unique_ptr<FunctionPtrDeclNode> Parser::parseFunctionPtrDecl(Stream& stream) {
    dropTrivia(stream);
    FunctionPtrScan scan;
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
    dropTrivia(stream);
    const Token token = stream.get();
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
            declaration.type = std::make_unique<TypeNode>(std::move(scan.text), scan.first, scan.last);
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
    scan.declaration->name = std::make_unique<IdNode>(std::move(scan.text), scan.first, paren.last());
    scan.text.clear();
    return next.kind() == Kind::Semicolon ? Step::Stop : Step::GoOn;
}

}  // namespace Cpp
