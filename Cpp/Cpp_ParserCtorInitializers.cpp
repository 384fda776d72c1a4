// The initializers of a constructor and their arguments.
#include "Cpp_JoinedText.h"
#include "Cpp_Parser.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;

std::unique_ptr<InitializerListNode> Parser::parseCtorInitializerList(Stream& stream) {
    return parseItemsToBrace<InitializerListNode>(stream, [&] { return parseCtorInitializer(stream); });
}

std::unique_ptr<InitializerNode> Parser::parseCtorInitializer(Stream& stream) {
    auto name = parseCtorInitializerName(stream);
    if (!name) return nullptr;
    auto initializer = make<InitializerNode>();
    initializer->name = std::move(name);
    initializer->arguments = parseCtorArguments(stream);
    if (!initializer->arguments) return nullptr;
    return initializer;
}

// All up to the next `(`, which stays on the stream.
std::unique_ptr<IdNode> Parser::parseCtorInitializerName(Stream& stream) {
    const Token name = getSignificant(stream);
    if (name.kind() != Kind::Identifier) {
        report(name.first(), "Expected a variable name for an initializer. Got: \"" + std::string(name.text()) + '"');
        return nullptr;
    }
    JoinedText text;
    text.add(name.text());
    Position last = name.last();
    for (;;) {
        const Token token = stream.get();
        if (isEnd(token.kind()) || token.kind() == Kind::OpenBrace) {
            stream.stepBack();
            report(stream.get().first(), ParseCode::UnexpectedEnd);
            return nullptr;
        }
        if (token.kind() == Kind::OpenParen) {
            stream.stepBack();
            return make<IdNode>(text, name.first(), last);
        }
        text.add(token.text());
        last = token.last();
    }
}

std::unique_ptr<ArgListNode> Parser::parseCtorArguments(Stream& stream) {
    auto list = make<ArgListNode>();
    list->setFirstPosition(stream.get().first());
    attachTrivia(stream, *list);
    auto argument = make<ArgNode>(std::string_view(), stream.peek().first(), Position());
    JoinedText text;
    for (int depth = 1;;) {
        attachTrivia(stream, *list);
        const Token token = stream.get();
        if (isEnd(token.kind())) {
            report(stream.get().first(), ParseCode::UnexpectedEnd);
            return nullptr;
        }
        if (token.kind() == Kind::OpenParen) ++depth;
        if (token.kind() == Kind::CloseParen && --depth == 0) {
            argument->text = kept(text);
            list->addChild(std::move(argument));
            list->setLastPosition(token.last());
            return list;
        }
        if (token.kind() == Kind::Comma && depth == 1) {
            argument->text = kept(text);
            list->addChild(std::move(argument));
            text.clear();
            argument = make<ArgNode>(std::string_view(), stream.peek().first(), Position());
            continue;
        }
        text.append(token.text());
        argument->setLastPosition(token.last());
    }
}

}  // namespace Cpp
