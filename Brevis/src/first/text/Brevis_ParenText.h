// Texts in parentheses: a condition taken apart, and the white space inside a declarator such as `(*name)`.
#pragma once

#include <string>
#include <string_view>

#include "scheme/Brevis_WsProperty.h"

namespace Brevis {

// A text taken apart at its outer parentheses. Without both of them all of it is `inner`.
struct ParenParts {
    explicit ParenParts(std::string_view text);

    std::string_view open, inner, close;
};

// Replaces the white space inside the outer parentheses of `text`, which are its first and last character.
void padInsideParens(std::string& text, const WsProperty& afterOpen, const WsProperty& beforeClose);

}  // namespace Brevis
