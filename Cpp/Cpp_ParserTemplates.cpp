// Template heads. The declaration behind one is the next item of the enclosing body.
#include "Cpp_Parser.h"

namespace Cpp {

namespace Kind = Trn::Kind;

std::unique_ptr<SyntaxNode> Parser::parseTemplate(Stream& stream) {
    const Token keyword = getSignificant(stream);
    dropTrivia(stream);
    if (stream.peek().kind() != Kind::Less) {
        stream.unget(keyword);
        return parseExpressionStatement(stream);
    }
    auto node = make<TemplateNode>();
    node->keyword = make<KeywordNode>(keyword.kind(), keyword.first(), keyword.last());
    node->parameters = parseParameterList(stream, true);
    return node;
}

}  // namespace Cpp
