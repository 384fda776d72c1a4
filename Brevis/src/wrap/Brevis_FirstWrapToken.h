// A finder answers one question: where in a text is the first place at which a line may be broken? It answers for
// nesting depth zero only, so that what stands inside brackets is invisible to it.
#pragma once

#include "wrap/Brevis_LexedText.h"

namespace Brevis {

// The last token of a text is never found: a separator at the very end has nothing behind it to be broken off.
class FirstWrapToken {
public:
    virtual ~FirstWrapToken() = default;

    // The index of the first break token of the text that begins at token `from` and goes to the end of `text`;
    // text.count() if there is none. All counters begin at zero there.
    virtual std::size_t find(const LexedText& text, std::size_t from) = 0;
    // Whether a token of that kind counts as a separator of this finder.
    virtual bool isWrapToken(Trn::TokenKind kind) const = 0;
};

}  // namespace Brevis
