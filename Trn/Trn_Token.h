// The unit that the lexer hands out: what it is, where it stands and its text. A cheap value; its text is a view.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "Trn_Exception.h"
#include "Trn_Position.h"
#include "Trn_TokenKind.h"

namespace Trn {

// The text of a token is a view of the lexed text, or of storage of the lexer that made it where the two
// differ (a name with white space behind its `::`). A token must not outlive either.
class Token {
public:
    // What `value` can give. The numbers are those of the full family of values; only these are produced.
    enum class ValueType : std::int8_t { None = 0, Char = 1, String = 9 };

    Token() = default;
    Token(TokenKind kind, Position first, Position last, std::string_view text = {},
          ValueType valueType = ValueType::None)
        : text_(text.data()),
          size_(static_cast<std::uint32_t>(text.size())),
          kind_(static_cast<std::int8_t>(kind)),
          valueType_(valueType),
          first_(first),
          last_(last) {}

    TokenKind kind() const { return kind_; }
    // The cursor just behind the token's first character.
    Position first() const { return first_; }
    // The cursor just behind its last character: column 0 of the next line for a token that ends in a line feed.
    Position last() const { return last_; }
    std::string_view text() const { return {text_, size_}; }
    ValueType valueType() const { return valueType_; }

    // The value of a character literal: the first character of the unescaped text.
    // Throws InvalidValueType if the token's value type is another one.
    void value(char& result) const;
    // The value of a string literal, without its quotes and unescaped, or of a name. Throws as above.
    void value(std::string& result) const;

    // Kind, positions, text and value all equal. (The value follows from the text.)
    bool operator==(const Token& other) const {
        return kind_ == other.kind_ && valueType_ == other.valueType_ && first_ == other.first_ &&
               last_ == other.last_ && text() == other.text();
    }

private:
    const char* text_ = nullptr;
    std::uint32_t size_ = 0;
    std::int8_t kind_ = Kind::EndOfInput;
    ValueType valueType_ = ValueType::None;
    Position first_;
    Position last_;
};

}  // namespace Trn
