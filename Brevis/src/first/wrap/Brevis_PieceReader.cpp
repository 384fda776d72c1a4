#include "first/wrap/Brevis_PieceReader.h"

namespace Brevis {

PieceReader::Piece PieceReader::upTo(std::size_t separator, bool through) const {
    const Trn::TokenKind firstKind = lexed_[token_].kind;
    if (separator >= lexed_.count()) return {rest_, lexed_.count() - token_, firstKind};
    const LexedText::Token& token = lexed_[separator];
    const std::size_t restBegin = lexed_.text().size() - rest_.size();
    const std::size_t end = through ? token.end : token.begin;
    return {rest_.substr(0, end - restBegin), separator - token_ + (through ? 1 : 0), firstKind};
}

PieceReader::Piece PieceReader::cut(const Piece& piece) {
    rest_.remove_prefix(piece.text.size());
    token_ += piece.tokenCount;
    return piece;
}

}  // namespace Brevis
