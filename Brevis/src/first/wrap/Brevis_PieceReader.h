// Takes a text apart at the separators that a finder finds.
#pragma once

#include <string_view>

#include "first/wrap/Brevis_FirstWrapToken.h"

namespace Brevis {

// Holds what is left of a text. Each question runs the finder over it, and a finder may remember what it has seen, so
// the number of questions matters as well as their order.
class PieceReader {
public:
    struct Piece {
        std::string_view text;
        std::size_t tokenCount = 0;
        Trn::TokenKind firstKind = Trn::Kind::EndOfInput;

        // `next` must stand right behind this piece.
        void append(const Piece& next) {
            text = std::string_view(text.data(), text.size() + next.text.size());
            tokenCount += next.tokenCount;
        }
    };

    // Both must outlive the reader.
    PieceReader(const LexedText& text, FirstWrapToken& finder) : lexed_(text), finder_(finder), rest_(text.text()) {}

    bool empty() const { return rest_.empty(); }
    // What is left up to the first separator, or through it; all of it if there is none.
    Piece textBefore() { return upTo(finder_.find(lexed_, token_, lexed_.count()), false); }
    Piece textThrough() { return upTo(finder_.find(lexed_, token_, lexed_.count()), true); }
    // Takes the piece, which one of the two has just given, off the front.
    Piece cut(const Piece& piece);

private:
    Piece upTo(std::size_t separator, bool through) const;

    const LexedText& lexed_;
    FirstWrapToken& finder_;
    std::string_view rest_;
    std::size_t token_ = 0;  // index of the first token of `rest_`
};

}  // namespace Brevis
