// Data declarations. A run of tokens is cut in front of its initializer or bit-field and split into a type and a name
// without knowing any type. A list of declarators is one node, whose name holds all of them.
#include "Cpp_JoinedText.h"
#include "Cpp_Parser.h"
#include "Cpp_ParserWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;
using Token = Trn::TokenView;
using Trn::TokenKind;

struct Parser::DataHead {
    explicit DataHead(const Trn::TokenBuffer& buffer) : tokens(buffer) {}

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
std::size_t bitfieldTypeSize(Trn::TokenSpan head) {
    std::size_t words = 0;
    while (words < head.size() && isBitfieldTypeWord(head[words].kind())) ++words;
    const bool isUnnamed = words == head.size() || (words == 0 && head.size() == 1);
    return isUnnamed ? head.size() : head.size() - 1;
}

// The first `,` outside all brackets, or the size of the head.
std::size_t firstSeparator(Trn::TokenSpan head) {
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
std::size_t lastName(Trn::TokenSpan head) {
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

void joinTokens(Trn::TokenSpan tokens, JoinedText& text) {
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (!Trn::isTrivia(tokens[i].kind())) text.add(tokens[i].text());
    }
}

}  // namespace

std::unique_ptr<DataDeclNode> Parser::parseDataHead(Stream& stream, bool allowBitfield) {
    DataHead head(stream.buffer());
    if (!cutDataHead(stream, allowBitfield, head)) return nullptr;

    const Trn::TokenSpan tokens = head.tokens.span();
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

    auto declaration = make<DataDeclNode>();
    if (typeSize > 0) {
        const auto type = tokens.first(typeSize);
        JoinedText text;
        joinTokens(type, text);
        declaration->type = make<TypeNode>(text, type.front().first(), type.back().last());
    }
    const auto name = tokens.from(typeSize);
    // A comment alone is no name.
    JoinedText text;
    joinTokens(name, text);
    if (!text.empty()) {
        declaration->name = make<IdNode>(text, name.front().first(), name.back().last());
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

}  // namespace Cpp
