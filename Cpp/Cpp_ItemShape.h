// What an item of the modern dialect is and where its parts stand, found by looking ahead. No node is made here.
#pragma once

#include <cstdint>
#include <string_view>

#include "Trn_BracketTable.h"

namespace Cpp {

using Trn::TokenIndex;

// Where an item stands.
enum class Frame : std::uint8_t { File, Namespace, Linkage, Class, Block };

struct ItemShape {
    enum class Sort : std::uint8_t {
        Class,  // up to the `}` or the `;` of its body
        Enum,
        Function,   // through its body or `;`
        Data,       // through its `;`
        Macro,      // a name, with or without a bracket, that stands for an item of its own
        Head,       // such a name in front of a `{`
        Loop,       // a call in front of a statement without braces
        Statement,  // anything else that ends with a `;`
        Unread,     // what fits no rule
    };

    Sort sort = Sort::Unread;
    TokenIndex first = 0;
    TokenIndex last = 0;       // the last token, but for that of the class or enum what is behind its `}`
    TokenIndex nameFirst = 0;  // of a function or data
    TokenIndex nameLast = 0;
    TokenIndex open = 0;         // the `(` of a function's parameters
    TokenIndex colon = 0;        // in front of member initializers or base clauses
    TokenIndex body = 0;         // the `{`
    TokenIndex tryWord = 0;      // of a function whose body is a `try` block, which has no `{` of its own
    TokenIndex initializer = 0;  // the `=`, `{`, `(` or `:` of data
};

}  // namespace Cpp
