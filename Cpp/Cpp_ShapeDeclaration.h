// The state of a scan over one declaration. Only the look-ahead's own files include it.
#pragma once

#include "Cpp_ShapeScan.h"

namespace Cpp {

struct ShapeScan::Declaration {
    Frame frame;
    TokenIndex at = 0;        // the token in hand
    TokenIndex previous = 0;  // the one in front of it, or the closing bracket of what was passed over
    TokenIndex nameFirst = 0, nameLast = 0;
    bool isNameEnded = false;  // nothing that comes can be the name
    bool isList = false;       // a comma has come
    bool isOperator = false;
    ItemShape shape{};

    void advance(TokenIndex passed, TokenIndex to) {
        previous = passed;
        at = to;
    }
    void setName(TokenIndex first, TokenIndex last) {
        if (isNameEnded) return;
        nameFirst = first;
        nameLast = last;
    }
    void endName() { isNameEnded = isNameEnded || nameFirst != 0; }
    // The name of data goes as far as its initializer or its `;`.
    TokenIndex listNameLast(const ShapeScan& scan) const { return nameFirst == 0 ? 0 : scan.previous(at); }
};

}  // namespace Cpp
