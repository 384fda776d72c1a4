// The lexer target.
#include "Cpp_Lexer.h"
#include "Fuzz_LineTable.h"
#include "Fuzz_Targets.h"
#include "Fuzz_Trial.h"
#include "Vellum_WhiteSpace.h"

namespace Fuzz {

namespace {

using Vellum::isSpace;

// Behind a quote whose literal its line end cuts off: where reading goes on, which a backslash at a line end puts off.
std::size_t endOfCutString(std::string_view text, std::size_t quote) {
    char lastNonSpace = 0;
    for (std::size_t i = quote; i < text.size(); ++i) {
        if (text[i] == '\n' && lastNonSpace != '\\') return i + 1;
        if (text[i] == '\n') lastNonSpace = 0;
        if (!isSpace(text[i])) lastNonSpace = text[i];
    }
    return text.size();
}

// White space, characters that begin no token, the digits of a number that runs into a letter, and cut strings.
bool isSkipped(std::string_view gap) {
    constexpr std::string_view partsOfNumbers = "0123456789abcdefABCDEFxXuUlL.+-";
    constexpr std::string_view strayCharacters = "@$\\`";
    for (std::size_t i = 0; i < gap.size(); ++i) {
        const auto c = static_cast<unsigned char>(gap[i]);
        if (c == '"') {
            i = endOfCutString(gap, i) - 1;
        } else if (std::isprint(c) && c != ' ' && partsOfNumbers.find(gap[i]) == std::string_view::npos &&
                   strayCharacters.find(gap[i]) == std::string_view::npos) {
            return false;
        }
    }
    return true;
}

// The lexer closes a character literal that a line end or the end of the text cuts off.
bool hasTextOfPlace(const Trn::Token& token, std::string_view place) {
    const std::string text = withoutWhiteSpace(token.text());
    const std::string source = withoutWhiteSpace(place);
    return text == source || (source.starts_with('\'') && text == source + '\'');
}

}  // namespace

namespace {

void checkTokens(const std::string& text, Cpp::Lexer&& lexer) {
    const std::string_view view = text;
    const LineTable lines(text);
    std::size_t read = 0;
    Trn::Token token = lexer.next();
    for (; token.kind() != Trn::Kind::EndOfInput; token = lexer.next()) {
        const auto behindFirst = lines.offset(token.first());
        const auto end = lines.offset(token.last());
        require(behindFirst && end && *behindFirst > 0, "A token stands outside of the text.");
        const std::size_t begin = *behindFirst - 1;
        require(begin >= read && *end >= begin, "A token stands in front of the end of the last.");
        require(isSkipped(view.substr(read, begin - read)), "The lexer skips what it could read.");
        require(hasTextOfPlace(token, view.substr(begin, *end - begin)), "A token has not the text of its place.");
        read = *end;
    }
    require(isSkipped(view.substr(read)), "The lexer skips what it could read at the end.");
    require(lexer.next().kind() == Trn::Kind::EndOfInput, "The lexer goes on behind the end.");
}

}  // namespace

void fuzzLexer(std::string_view data) {
    const std::string text = splitInput(data).text;
    checkTokens(text, Cpp::Lexer(text));
    checkTokens(text, Cpp::Lexer(text, Cpp::Dialect::modern, Cpp::Language::cpp));
    checkTokens(text, Cpp::Lexer(text, Cpp::Dialect::modern, Cpp::Language::c));
}

}  // namespace Fuzz
