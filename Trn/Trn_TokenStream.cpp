// The rules of the token cursor that are seldom needed: tokens put back, and braces passed over.
#include "Trn_TokenStream.h"

#include <algorithm>

namespace Trn {

TokenStream::TokenStream(const TokenList& list, TokenStretch tail)
    : buffer_(list.buffer()),
      list_(list.span().indices()),
      tailOffset_(tail.begin - list_.size()),
      listSize_(list_.size() + tail.end - tail.begin),
      cursor_(listSize_ == 0 ? behindEnd : 0) {}

void TokenStream::unget(const TokenView& token) {
    const std::size_t before = cursor_;
    stepBack();
    if (cursor_ == before || at(cursor_) == token) return;
    const auto isBefore = [](const Replaced& replaced, std::size_t place) { return replaced.place < place; };
    const auto found = std::lower_bound(replaced_.begin(), replaced_.end(), cursor_, isBefore);
    if (found != replaced_.end() && found->place == cursor_) {
        found->token = token.index();
    } else {
        replaced_.insert(found, {cursor_, token.index()});
    }
    replacedEnd_ = replaced_.back().place + 1;
    lookAhead_ = {};
}

TokenIndex TokenStream::replacedAt(std::size_t place) const {
    const auto isBefore = [](const Replaced& replaced, std::size_t at) { return replaced.place < at; };
    const auto found = std::lower_bound(replaced_.begin(), replaced_.end(), place, isBefore);
    return found->place == place ? found->token : originalAt(place);
}

std::optional<TokenStretch> TokenStream::passBraces() {
    const std::size_t begin = (cursor_ == behindEnd ? listSize_ : cursor_) + tailOffset_;
    const std::size_t last = buffer_.braceEnd(static_cast<TokenIndex>(begin - 1));
    if (isOverList() && last >= listSize_ + tailOffset_) {
        cursor_ = behindEnd;
        return std::nullopt;
    }
    cursor_ = last + 1 - tailOffset_;
    if (cursor_ == listSize_) cursor_ = behindEnd;
    if (buffer_.kind(static_cast<TokenIndex>(last)) != Kind::CloseBrace) return std::nullopt;
    return TokenStretch{begin, last + 1};
}

}  // namespace Trn
