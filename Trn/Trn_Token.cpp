// The typed values of tokens. They are computed from the text on demand, since hardly anybody asks for one.
#include "Trn_Token.h"

#include "Trn_Escapes.h"

namespace Trn {

namespace {

// What stands between the delimiters of a literal; a literal that the end of the input cut may be one character long.
std::string_view withoutDelimiters(std::string_view text) {
    return text.size() < 2 ? std::string_view() : text.substr(1, text.size() - 2);
}

}  // namespace

void Token::value(char& result) const {
    if (valueType_ != ValueType::Char) throw InvalidValueType();
    const std::string content = unescape(withoutDelimiters(text()));
    result = content.empty() ? '\0' : content.front();
}

void Token::value(std::string& result) const {
    if (valueType_ != ValueType::String) throw InvalidValueType();
    result = kind_ == Kind::StringLiteral ? unescape(withoutDelimiters(text())) : std::string(text());
}

}  // namespace Trn
