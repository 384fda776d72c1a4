// What the scan of a declaration has seen and collected.
#pragma once

#include "Cpp_Parser.h"

namespace Cpp {

struct Parser::DeclarationScan {
    explicit DeclarationScan(const Trn::TokenBuffer& buffer) : list(buffer) {}

    Tokens list;
    Decision decision = Decision::Data;
    TokenKind previous = Trn::Kind::EndOfInput;
    TokenKind current = Trn::Kind::EndOfInput;
    int angleDepth = 0;
    bool seenColon = false;
    bool seenEnum = false;
    bool seenOperator = false;
    bool seenCallOperator = false;  // the first bracket of `operator()`
    bool isFunctionPtr = false;

    // Collects the token and takes down what later landmarks depend on.
    void note(const Token& token) {
        previous = current;
        current = token.kind();
        list.push_back(token);
        if (current == Trn::Kind::Colon) seenColon = true;
        if (current == Trn::Kind::Enum) seenEnum = true;
        if (current == Trn::Kind::Operator) seenOperator = true;
        if (previous == Trn::Kind::Operator) return;
        if (current == Trn::Kind::Less) ++angleDepth;
        if (current == Trn::Kind::Greater && angleDepth > 0) --angleDepth;
    }
    Step stop(Decision landmark) {
        decision = landmark;
        return Step::Stop;
    }
    // Stops in front of a token that the data operation is to meet.
    Step stopInFront(Stream& stream, const Token& token) {
        stream.unget(token);
        list.pop_back();
        return stop(Decision::Data);
    }
};

}  // namespace Cpp
