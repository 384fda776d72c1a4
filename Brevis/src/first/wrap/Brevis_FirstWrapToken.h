// A finder answers one question: where in a text is the first place at which a line may be broken? It answers for
// nesting depth zero only, so that what stands inside brackets is invisible to it.
#pragma once

#include "first/wrap/Brevis_LexedText.h"

namespace Brevis {

// The last token of a part is never found: a separator at the very end has nothing behind it to be broken off.
class FirstWrapToken {
public:
    virtual ~FirstWrapToken() = default;

    // The index of the first break token of the part of `text` that begins at token `from` and ends behind the token in
    // front of `end`; `end` if there is none. All counters begin at zero at its front. The work doesn't depend on the
    // size of the groups that the part holds.
    virtual std::size_t find(const LexedText& text, std::size_t from, std::size_t end) = 0;
    // Whether a token of that kind counts as a separator of this finder.
    virtual bool isWrapToken(Trn::TokenKind kind) const = 0;
};

}  // namespace Brevis
