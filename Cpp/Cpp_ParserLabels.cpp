// Labels: those of a `switch` and those of a `goto`.
#include "Cpp_JoinedText.h"
#include "Cpp_Parser.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;

// The statements behind the label are its siblings in the block.
std::unique_ptr<CaseNode> Parser::parseCaseLabel(Stream& stream) {
    const Token keyword = stream.get();
    auto label = make<CaseNode>();
    label->keyword = make<KeywordNode>(keyword.kind(), keyword.first(), keyword.last());
    label->colonPosition = keyword.last();
    if (keyword.kind() == Kind::Case) {
        label->value = parseCaseValue(stream, label->colonPosition);
        return label;
    }
    const Token colon = getSignificant(stream);
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
    auto value = make<ExprNode>(std::string_view(), stream.peek().first(), stream.peek().last());
    for (JoinedText text;;) {
        const Token token = getSignificant(stream);
        if (token.kind() == Kind::Colon || isEnd(token.kind())) {
            colon = token.last();
            value->text = kept(text);
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
    auto label = make<LabelNode>();
    label->name = make<IdNode>(name.text(), name.first(), name.last());
    dropTrivia(stream);
    label->colonPosition = stream.get().last();
    return label;
}

}  // namespace Cpp
