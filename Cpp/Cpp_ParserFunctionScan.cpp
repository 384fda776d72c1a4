// The second stage of a declaration that turns out to be a function: what stands behind the bracket of its parameters.
#include "Cpp_ParserDeclarationScan.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;

bool Parser::scanFunction(Stream& stream, DeclarationScan& scan) {
    dropTrivia(stream);
    if (scan.isFunctionPtr || stream.peek().kind() == Kind::Star) scan.decision = Decision::FunctionPtr;
    return collectParens(stream, scan.list, 1) && scanFunctionTail(stream, scan);
}

bool Parser::scanFunctionTail(Stream& stream, DeclarationScan& scan) {
    for (;;) {
        const Token token = getSignificant(stream);
        switch (token.kind()) {
            case Kind::Colon:
                scan.list.push_back(token);
                return collectCtorInitializers(stream, scan.list);
            case Kind::Const:
            case Kind::Volatile:
                scan.list.push_back(token);
                break;
            case Kind::Throw:
                scan.list.push_back(token);
                if (!collectExceptionSpec(stream, scan.list)) return false;
                break;
            case Kind::OpenParen:
                // A second bracket: the first one held the declarator.
                scan.decision = Decision::FunctionPtr;
                [[fallthrough]];
            default:
                stream.stepBack();
                return true;
        }
    }
}

bool Parser::collectCtorInitializers(Stream& stream, Tokens& list) {
    for (;;) {
        const Token token = getSignificant(stream);
        if (isEnd(token.kind())) {
            reportUnexpectedEnd(stream);
            return false;
        }
        if (token.kind() == Kind::OpenBrace) {
            stream.stepBack();
            return true;
        }
        list.push_back(token);
    }
}

bool Parser::collectExceptionSpec(Stream& stream, Tokens& list) {
    const Token open = getSignificant(stream);
    if (open.kind() != Kind::OpenParen) {
        report(open.first(),
               "Expected '(' as part of exception specification clause 'throw()'. Got: " + std::string(open.text()));
        return false;
    }
    list.push_back(open);
    for (int depth = 1; depth > 0;) {
        const Token token = stream.get();
        if (isEnd(token.kind())) {
            reportUnexpectedEnd(stream);
            return false;
        }
        list.push_back(token);
        if (token.kind() == Kind::OpenParen) ++depth;
        if (token.kind() == Kind::CloseParen) --depth;
    }
    return true;
}

}  // namespace Cpp
