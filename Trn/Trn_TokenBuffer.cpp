// The storage of the tokens, and the table of the braces, which saves every collection of a body a walk over it.
#include "Trn_TokenBuffer.h"

#include <algorithm>
#include <limits>

namespace Trn {

namespace {

std::size_t checkedSize(std::string_view text) {
    if (text.size() >= std::numeric_limits<std::uint32_t>::max()) throw Exception("The text is too long.");
    return text.size();
}

// No token but the second half of a name that is cut in two is empty; besides these there are the token with index 0
// and the end tokens.
constexpr std::size_t spareTokens = 8;

}  // namespace

TokenBuffer::TokenBuffer(std::string_view text, LineTable lines)
    : text_(text.data()),
      lines_(std::move(lines)),
      packed_(std::make_unique_for_overwrite<Packed[]>(checkedSize(text) + spareTokens)) {
    add(Token());
}

void TokenBuffer::add(const Token& token) {
    if (endsBraces(token.kind())) noteBrace(token.kind());
    append(token.kind(), odd_.size(), oddLength);
    odd_.push_back(token);
}

void TokenBuffer::merge(const std::vector<Stretch>& stretches, TokenKind kind) {
    if (stretches.empty()) return;
    std::vector<Token> merged;
    for (const Stretch& stretch : stretches) {
        const std::string_view front = text(stretch.first), back = text(stretch.last);
        const auto length = static_cast<std::size_t>(back.data() + back.size() - front.data());
        merged.emplace_back(kind, first(stretch.first), last(stretch.last), std::string_view(front.data(), length));
    }
    std::size_t kept = stretches.front().first;
    for (std::size_t i = 0; i < stretches.size(); ++i) {
        packed_[kept++] = {static_cast<std::uint32_t>(odd_.size()),
                           oddLength << 8 | static_cast<std::uint32_t>(kind + 1)};
        odd_.push_back(merged[i]);
        const std::size_t end = i + 1 < stretches.size() ? stretches[i + 1].first : size_;
        for (std::size_t token = stretches[i].last + std::size_t{1}; token < end; ++token) packed_[kept++] = packed_[token];
    }
    size_ = kept;
    braceEnds_.clear();
}

TokenIndex TokenBuffer::braceEnd(TokenIndex index) const {
    const auto isBefore = [](const BraceEnd& brace, TokenIndex open) { return brace.open < open; };
    return std::lower_bound(braceEnds_.begin(), braceEnds_.end(), index, isBefore)->end;
}

void TokenBuffer::noteBrace(TokenKind kind) {
    const auto index = static_cast<TokenIndex>(size_);
    if (kind == Kind::OpenBrace) {
        openBraces_.push_back(static_cast<std::uint32_t>(braceEnds_.size()));
        braceEnds_.push_back({index, 0});
    } else if (kind != Kind::CloseBrace) {
        for (const std::uint32_t brace : openBraces_) braceEnds_[brace].end = index;
        openBraces_.clear();
    } else if (!openBraces_.empty()) {
        braceEnds_[openBraces_.back()].end = index;
        openBraces_.pop_back();
    }
}

}  // namespace Trn
