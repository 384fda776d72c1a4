// The place of a function's name, searched for backward from the bracket of the parameters.
//
// Without types nothing tells `A B C(int)` from anything else, so the place follows from the token in front of the
// bracket, with a rule for each way of writing an operator. All in front of the name is the return type.
#include "Cpp_ParserHeadScan.h"
#include "Cpp_ParserWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;
using Trn::isTrivia;
using Token = Trn::TokenView;
using Trn::TokenKind;
using Trn::TokenStream;

namespace {

// The index of the `operator` at `index` or left of it, or else where the walk ended: 1, or 0 if it began there.
int operatorBefore(const TokenStream& stream, int index) {
    while (index > 1 && kindAt(stream, index) != Kind::Operator) --index;
    return index;
}

bool isQualifiedName(const Token& token) {
    const TokenKind kind = token.kind();
    const std::string_view text = token.text();
    const bool mayBe = kind == Kind::Identifier || kind == Kind::Operator || kind == Kind::New || kind == Kind::Delete;
    return mayBe && text.size() > 2 && (text.starts_with("::") || text.ends_with("::"));
}

// Walks left from a name over a chain like `A::B<C>::` and gives the index where the chain begins.
int backOverQualifiers(const TokenStream& stream, int index) {
    if (!isQualifiedName(tokenAt(stream, index))) return index;
    for (int angleCount = 0; index >= 2;) {
        --index;
        const Token token = tokenAt(stream, index);
        if (isEnd(token.kind())) return index + 1;
        if (token.kind() == Kind::Less) {
            --angleCount;
        } else if (token.kind() == Kind::Greater) {
            ++angleCount;
        } else if (angleCount == 0) {
            if (token.kind() != Kind::Identifier) return index + 1;
            // The name in front of the first `::` is still part of the chain.
            if (!isQualifiedName(token)) return index;
        }
    }
    return index;
}

}  // namespace

bool Parser::findFunctionName(const Stream& stream, HeadScan& scan) {
    int last = scan.parameters - 1;
    while (last > 0 && isTrivia(kindAt(stream, last))) --last;
    scan.nameFirst = scan.nameLast = last;
    switch (kindAt(stream, last)) {
        case Kind::Identifier:
        case Kind::Const:
        case Kind::Char:
        case Kind::WcharT:
        case Kind::Bool:
        case Kind::Short:
        case Kind::Int:
        case Kind::Long:
        case Kind::Float:
        case Kind::Double:
        case Kind::Void:
            return findPlainName(stream, scan);
        case Kind::CloseParen:
            return findCallOperator(stream, scan);
        case Kind::CloseBracket:
            return findIndexOperator(stream, scan);
        case Kind::Greater:
            return findTemplateName(stream, scan);
        case Kind::StringLiteral:
            return true;
        default:
            break;
    }
    if (isOverloadableSymbol(kindAt(stream, last))) return findSymbolOperator(stream, scan);
    report(tokenAt(stream, last).first(), "Expected function name. Got: " + textAt(stream, last));
    return false;
}

// A plain name, or a conversion operator that ends in a type.
bool Parser::findPlainName(const Stream& stream, HeadScan& scan) {
    if (scan.nameLast < 2) return true;
    const int i = operatorBefore(stream, scan.nameLast - 1);
    const bool isConversion = kindAt(stream, i) == Kind::Operator;
    scan.nameFirst = backOverQualifiers(stream, isConversion ? i : scan.nameLast);
    return true;
}

// `operator()`.
bool Parser::findCallOperator(const Stream& stream, HeadScan& scan) {
    const Position position = tokenAt(stream, scan.nameLast).first();
    const int open = scan.nameLast - 1;
    if (kindAt(stream, open) != Kind::OpenParen || open < 3) {
        report(position, "Expected (.");
        return false;
    }
    if (kindAt(stream, open - 1) != Kind::Operator) {
        report(position, "Expected \"operator\". Got: " + textAt(stream, open - 1));
        return false;
    }
    scan.nameFirst = backOverQualifiers(stream, open - 1);
    return true;
}

// `operator[]`, `operator new[]`.
bool Parser::findIndexOperator(const Stream& stream, HeadScan& scan) {
    const Position position = tokenAt(stream, scan.nameLast).first();
    const auto isAllocation = [&](int index) {
        return kindAt(stream, index) == Kind::New || kindAt(stream, index) == Kind::Delete;
    };
    int i = scan.nameLast - 1;
    if (kindAt(stream, i) != Kind::OpenBracket || i < 3) {
        report(position, "Expected [.");
        return false;
    }
    --i;
    if (isAllocation(i)) --i;
    bool isName = kindAt(stream, i) == Kind::Operator && i >= 2;
    if (!isName && isAllocation(i)) {
        --i;
        isName = (kindAt(stream, i) == Kind::Operator && i >= 2) || kindAt(stream, i) == Kind::Identifier;
    }
    if (!isName) {
        report(position, "Expected \"operator\". Got: " + textAt(stream, i));
        return false;
    }
    scan.nameFirst = backOverQualifiers(stream, i);
    return true;
}

// `operator>`, or template arguments. The name in front of these goes with the return type.
bool Parser::findTemplateName(const Stream& stream, HeadScan& scan) {
    int i = operatorBefore(stream, scan.nameLast - 1);
    if (kindAt(stream, i) != Kind::Operator) {
        i = scan.nameLast;
        for (int angleCount = 1; angleCount > 0 && i > 1;) {
            --i;
            if (kindAt(stream, i) == Kind::Less) --angleCount;
            if (kindAt(stream, i) == Kind::Greater) ++angleCount;
        }
        if (kindAt(stream, i) != Kind::Less) {
            report(tokenAt(stream, scan.nameLast).first(), "Expected \"<\".");
            return false;
        }
    }
    scan.nameFirst = backOverQualifiers(stream, i);
    return true;
}

bool Parser::findSymbolOperator(const Stream& stream, HeadScan& scan) {
    const Position position = tokenAt(stream, scan.nameLast).first();
    const int i = operatorBefore(stream, scan.nameLast - 1);
    if (kindAt(stream, i) != Kind::Operator) {
        report(position, "Expected \"operator\". Got: " + textAt(stream, i));
        return false;
    }
    // Without a return type only a conversion to a pointer or reference is possible.
    const TokenKind symbol = kindAt(stream, scan.nameLast);
    if (i == 1 && symbol != Kind::Star && symbol != Kind::Amp) {
        report(position, "Could not recognize overloaded operator.");
        return false;
    }
    scan.nameFirst = backOverQualifiers(stream, i);
    return true;
}

}  // namespace Cpp
