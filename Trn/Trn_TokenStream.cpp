// The rules of the token cursor, at the end of a list above all.
#include "Trn_TokenStream.h"

namespace Trn {

namespace {

constexpr Token endOfList;

}  // namespace

TokenStream::TokenStream(std::span<const Token> list, TokenStretch tail)
    : list_(list),
      tail_(tail),
      listSize_(list.size() + tail.end - tail.begin),
      cursor_(listSize_ == 0 ? behindEnd : 0) {}

const Token& TokenStream::get() {
    if (cursor_ == behindEnd) return endOfList;
    const Token& token = at(cursor_);
    ++cursor_;
    if (cursor_ == listSize_) cursor_ = behindEnd;
    return token;
}

const Token& TokenStream::peek(std::size_t n) const {
    if (cursor_ == behindEnd || cursor_ + n - 1 >= listSize_) return endOfList;
    return at(cursor_ + n - 1);
}

void TokenStream::stepBack() {
    if (cursor_ == behindEnd) {
        if (listSize_ > 0) cursor_ = listSize_ - 1;
    } else if (cursor_ > 0) {
        --cursor_;
    }
}

void TokenStream::unget(const Token& token) {
    const std::size_t before = cursor_;
    stepBack();
    if (cursor_ == before || at(cursor_) == token) return;
    replaced_.insert_or_assign(cursor_, token);
    lookAhead_ = {};
}

const Token& TokenStream::at(std::size_t index) const {
    // Nearly all reads are beyond the places where tokens have been put back.
    if (!replaced_.empty() && index <= replaced_.rbegin()->first) {
        const auto replaced = replaced_.find(index);
        if (replaced != replaced_.end()) return replaced->second;
    }
    return index < list_.size() ? list_[index] : tail_.buffer->at(tail_.begin + index - list_.size());
}

std::optional<TokenStretch> TokenStream::passBraces() {
    const std::size_t offset = tail_.begin - list_.size();  // from cursor to index in the buffer
    const std::size_t begin = (cursor_ == behindEnd ? listSize_ : cursor_) + offset;
    const std::size_t last = tail_.buffer->braceEnd(begin - 1);
    if (isOverList() && last >= tail_.end) {
        cursor_ = behindEnd;
        return std::nullopt;
    }
    cursor_ = last + 1 - offset;
    if (cursor_ == listSize_) cursor_ = behindEnd;
    if (tail_.buffer->at(last).kind() != Kind::CloseBrace) return std::nullopt;
    return TokenStretch{tail_.buffer, begin, last + 1};
}

}  // namespace Trn
