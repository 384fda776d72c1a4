// The text of a leaf while it is put together from tokens.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace Cpp {

// As long as the text is what the source has from its first token on, it is a view of the source and nothing is
// copied. Short texts need no memory of their own.
class JoinedText {
public:
    JoinedText() = default;
    explicit JoinedText(std::string_view token) { append(token); }
    JoinedText(const JoinedText&) = delete;
    JoinedText& operator=(const JoinedText&) = delete;

    bool empty() const { return size_ == 0; }
    std::string_view view() const { return {isCopied_ ? buffer() : source_, size_}; }

    void clear();
    void append(std::string_view token) { appendBehind(false, token); }
    // With a blank between any two tokens, also if one of them is empty.
    void add(std::string_view token) {
        appendBehind(!isFirst_, token);
        isFirst_ = false;
    }
    // With a blank if there is text to join to.
    void join(std::string_view token) { appendBehind(size_ != 0, token); }
    // With a blank in any case.
    void joinBehindBlank(std::string_view token) { appendBehind(true, token); }

    // A long text can be taken over as it is; the text is empty then.
    bool isLong() const { return !long_.empty(); }
    std::string takeLong();

private:
    void appendBehind(bool blank, std::string_view token) {
        if (isCopied_ || !extendView(blank, token)) copyBehind(blank, token);
    }
    // Whether the text with this token is still a view of the source.
    bool extendView(bool blank, std::string_view token);
    void copyBehind(bool blank, std::string_view token);
    const char* buffer() const { return isLong() ? long_.data() : short_.data(); }

    const char* source_ = nullptr;
    std::size_t size_ = 0;
    bool isFirst_ = true;
    bool isCopied_ = false;
    std::string long_;
    std::array<char, 168> short_;
};

inline bool JoinedText::extendView(bool blank, std::string_view token) {
    if (size_ == 0 && !blank) {
        source_ = token.data();
    } else if (size_ == 0 || token.data() != source_ + size_ + (blank ? 1 : 0) || (blank && source_[size_] != ' ')) {
        return false;
    }
    size_ += token.size() + (blank ? 1 : 0);
    return true;
}

}  // namespace Cpp
