// A text that the line wrapper changes step by step, lexed again only when it has changed.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "wrap/Brevis_LexedText.h"

namespace Brevis {

class WrapText {
public:
    explicit WrapText(std::string text) : text_(std::move(text)) {}
    WrapText(const WrapText&) = delete;
    WrapText& operator=(const WrapText&) = delete;

    const std::string& text() const { return text_; }
    // Valid until the text changes.
    const LexedText& lexed() {
        if (!lexed_) lexed_.emplace(text_);
        return *lexed_;
    }
    // Tells whether the text is another one now.
    bool set(std::string text) {
        if (text == text_) return false;
        lexed_.reset();
        text_ = std::move(text);
        return true;
    }
    std::string take() { return std::move(text_); }

private:
    std::string text_;
    std::optional<LexedText> lexed_;
};

}  // namespace Brevis
