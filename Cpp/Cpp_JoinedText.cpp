// The text once it is no view of the source any more.
#include "Cpp_JoinedText.h"

#include <algorithm>
#include <utility>

namespace Cpp {

void JoinedText::clear() {
    size_ = 0;
    isFirst_ = true;
    isCopied_ = false;
    long_.clear();
}

std::string JoinedText::takeLong() {
    std::string text = std::move(long_);
    clear();
    return text;
}

void JoinedText::copyBehind(bool blank, std::string_view token) {
    const std::size_t begin = size_;
    const std::size_t end = begin + (blank ? 1 : 0) + token.size();
    if (end > short_.size() || isLong()) {
        if (!isLong()) long_.assign(view());
        if (blank) long_ += ' ';
        long_ += token;
    } else {
        if (!isCopied_) std::copy_n(source_, begin, short_.data());
        if (blank) short_[begin] = ' ';
        std::copy(token.begin(), token.end(), short_.data() + end - token.size());
    }
    isCopied_ = true;
    size_ = end;
}

}  // namespace Cpp
