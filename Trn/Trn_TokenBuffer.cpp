// The reading of a whole text and the table of its braces, which saves every collection of a body a walk over it.
#include "Trn_TokenBuffer.h"

namespace Trn {

TokenBuffer::TokenBuffer(Lexer& lexer) {
    do {
        tokens_.push_back(lexer.next());
    } while (tokens_.back().kind() != Kind::EndOfInput);
    tokens_.push_back(lexer.next());
}

std::size_t TokenBuffer::braceEnd(std::size_t index) const {
    if (braceEnds_.empty()) findBraceEnds();
    return braceEnds_[index];
}

void TokenBuffer::findBraceEnds() const {
    braceEnds_.resize(tokens_.size());
    std::vector<std::uint32_t> open;
    for (std::uint32_t i = 0; i < tokens_.size(); ++i) {
        const TokenKind kind = tokens_[i].kind();
        if (kind == Kind::OpenBrace) {
            open.push_back(i);
        } else if (kind == Kind::CloseBrace && !open.empty()) {
            braceEnds_[open.back()] = i;
            open.pop_back();
        } else if (isEnd(kind)) {
            for (const std::uint32_t brace : open) braceEnds_[brace] = i;
            open.clear();
        }
    }
}

}  // namespace Trn
