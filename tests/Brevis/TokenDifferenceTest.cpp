// The comparison of two texts, held against one that looks at each token.
#include "guard/Brevis_TokenDifference.h"

#include <gtest/gtest.h>

#include <random>

#include "Cpp_CharClasses.h"
#include "guard/Brevis_SeamLexer.h"

namespace Brevis {
namespace {

std::string solid(std::string text) {
    std::erase_if(text, [](char c) { return Cpp::isSpace(c); });
    return text;
}

// The offset of the first token of `text` that isn't the one of `other`, or nothing.
std::optional<std::size_t> firstOther(const std::string& text, const std::string& other) {
    SeamLexer lexer(text), otherLexer(other);
    for (;;) {
        const SeamToken a = lexer.next(), b = otherLexer.next();
        const std::string one = text.substr(a.begin, a.end - a.begin), two = other.substr(b.begin, b.end - b.begin);
        const bool isEqual = a.kind == b.kind && a.inDirective == b.inDirective &&
                             a.opensDirective == b.opensDirective &&
                             (one == two || (a.isComment() && solid(one) == solid(two)));
        if (!isEqual) return a.begin;
        if (a.kind == SeamKind::End) return std::nullopt;
    }
}

std::size_t offsetOf(const std::string& text, const Trn::Position& place) {
    std::size_t begin = 0;
    for (int line = 1; line < place.line; ++line) begin = text.find('\n', begin) + 1;
    return begin + static_cast<std::size_t>(place.column) - 1;
}

TEST(TokenDifference, IsFoundWhereEveryTokenIsLookedAt) {
    constexpr const char* pieces[] = {
        " ",        " ",          "\n",         "\n",  "\t",      "a",   "b1",    "0x1",         ";", ";",
        "(",        ")",          "{",          "}",   ",",       "+",   "-",     "<",           ">", "=",
        "::",       "/",          "*",          "//",  "/*",      "*/",  "\"",    "'",           "#", "%:",
        "\\\n",     "\\",         "?",          "$",   "import ", "u8R", "R\"x(", ")x\"",        "@", "`",
        "\xc3\xa4", "#define f(", "#include <", "...", ".",       "[",   "]",     "\xef\xbb\xbf"};
    std::mt19937 random(7);
    const auto draw = [&](std::size_t limit) { return random() % limit; };
    int same = 0, different = 0;
    for (int round = 0; round < 60000; ++round) {
        std::string text;
        // Half of the texts have nothing but plain pieces: long runs.
        const std::size_t choice = round % 2 == 0 ? std::size(pieces) : 17;
        for (std::size_t count = draw(30); count > 0; --count) text += pieces[draw(choice)];
        std::string other = text;
        for (std::size_t count = draw(4); count > 0 && !other.empty(); --count) {
            const std::size_t place = draw(other.size());
            if (Cpp::isSpace(other[place]) && draw(2) == 0) {
                other.erase(place, 1);
            } else if (draw(12) == 0) {
                other[place] = "a;/\"\n"[draw(5)];
            } else {
                other.insert(place, draw(2) == 0 ? " " : "\n");
            }
        }
        const auto expected = firstOther(text, other);
        const auto found = findTokenDifference(text, other);
        ASSERT_EQ(expected.has_value(), found.has_value()) << text << "\n----\n" << other;
        ASSERT_EQ(expected.value_or(0), found ? offsetOf(text, found->place) : 0) << text << "\n----\n" << other;
        ++(found ? different : same);
    }
    EXPECT_LT(10000, same);
    EXPECT_LT(10000, different);
}

}  // namespace
}  // namespace Brevis
