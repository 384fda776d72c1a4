// The text of a leaf that is made of tokens, with one blank between them.
#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace Cpp {

class JoinedText {
public:
    // The blank stands between any two tokens, also if one of them is empty.
    void add(std::string_view token) {
        if (!isFirst_) text_ += ' ';
        isFirst_ = false;
        text_ += token;
    }

    std::string take() { return std::move(text_); }

private:
    std::string text_;
    bool isFirst_ = true;
};

// Joins with a blank if there is text to join to.
inline void joinTo(std::string& text, std::string_view token) {
    if (!text.empty()) text += ' ';
    text += token;
}

// Joins with a blank in any case.
inline void joinBehindBlank(std::string& text, std::string_view token) {
    text += ' ';
    text += token;
}

}  // namespace Cpp
