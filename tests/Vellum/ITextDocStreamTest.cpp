// The input cursor against a plain model that reads character by character, and the line ends.
#include "Vellum_ITextDocStream.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "Vellum_LineEnds.h"

namespace Vellum {
namespace {

// What the cursor is to do, in its simplest form: one entry for each place between two characters.
std::vector<Position> positionsOf(std::string_view text, Position start) {
    std::vector<Position> positions{start};
    for (const char c : text) {
        Position next = positions.back();
        next = c == '\n' ? Position{next.line + 1, 0} : Position{next.line, next.column + 1};
        positions.push_back(next);
    }
    return positions;
}

TEST(ITextDocStream, PositionsOfEveryCharacterBothWays) {
    const std::string text =
        "a\tb\n\n  c\n\xff"
        "de";
    for (const Position start : {Position{1, 0}, Position{7, 5}}) {
        const auto expected = positionsOf(text, start);
        ITextDocStream in(text, 4, start);
        EXPECT_FALSE(in.unget());
        for (std::size_t i = 0; i < text.size(); ++i) {
            ASSERT_EQ(in.position(), expected[i]);
            ASSERT_EQ(in.peek(), static_cast<unsigned char>(text[i]));
            ASSERT_EQ(in.get(), static_cast<unsigned char>(text[i]));
        }
        for (std::size_t i = text.size(); i-- > 0;) {
            ASSERT_TRUE(in.unget());
            ASSERT_EQ(in.position(), expected[i]);
            ASSERT_EQ(in.offset(), i);
        }
        EXPECT_FALSE(in.unget());
        EXPECT_EQ(in.position(), start);
    }
}

TEST(ITextDocStream, ReadingBeyondTheEndIsFinal) {
    ITextDocStream in("x");
    in.get();
    EXPECT_EQ(in.peek(), ITextDocStream::endOfFile);
    EXPECT_TRUE(in.good()) << "a peek is no read";
    EXPECT_EQ(in.get(), ITextDocStream::endOfFile);
    EXPECT_FALSE(in.good());
    EXPECT_FALSE(in.unget());
    EXPECT_EQ(in.get(), ITextDocStream::endOfFile);
    EXPECT_EQ(in.readWhileBelow({9, 9}), "");
    EXPECT_EQ(in.position(), (Position{1, 1}));
}

TEST(ITextDocStream, StretchesEndWhereSingleReadsWould) {
    std::mt19937 random(1);
    const std::string alphabet = "ab \t\n\n";
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        for (auto n = random() % 12; n > 0; --n) text += alphabet[random() % alphabet.size()];
        const Position start{1, static_cast<int>(random() % 3)};
        ITextDocStream fast(text, 1, start);
        ITextDocStream slow(text, 1, start);
        while (fast.good()) {
            const Position limit{static_cast<int>(random() % 8), static_cast<int>(random() % 8)};
            std::string expected;
            while (slow.position() < limit) {
                const int c = slow.get();
                if (c == ITextDocStream::endOfFile) break;
                expected += static_cast<char>(c);
            }
            ASSERT_EQ(fast.readWhileBelow(limit), expected) << text;
            ASSERT_EQ(fast.position(), slow.position()) << text;
            ASSERT_EQ(fast.good(), slow.good()) << text;
            if (random() % 3 == 0) {
                ASSERT_EQ(fast.unget(), slow.unget());
                ASSERT_EQ(fast.position(), slow.position()) << text;
            }
            if (random() % 8 == 0) break;
        }
        if (!fast.good()) continue;
        const auto expected = positionsOf(text, start).back();
        ASSERT_EQ(fast.readRest(), std::string_view(text).substr(slow.offset()));
        ASSERT_EQ(fast.position(), expected);
        ASSERT_FALSE(fast.good());
    }
}

TEST(ITextDocStream, LimitsOfTheArguments) {
    ITextDocStream in("ab", 0, {-3, -2});
    EXPECT_EQ(in.position(), (Position{1, 0}));
    EXPECT_EQ(in.tabSize(), 1);
    in.setTabSize(-4);
    EXPECT_EQ(in.tabSize(), 1);
    in.setTabSize(8);
    EXPECT_EQ(in.tabSize(), 8);
}

TEST(LineEnds, EveryCarriageReturnEndsOneLine) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", ""},
        {"a\nb", "a\nb"},
        {"a\r\nb\r\n", "a\nb\n"},
        {"a\rb\r", "a\nb\n"},
        {"\r\r\n\n\r", "\n\n\n\n"},
        {"\r\n\r\n", "\n\n"},
        {std::string(16379, 'x') + "\r\ny", std::string(16379, 'x') + "\ny"},
    };
    for (const auto& [source, expected] : cases) {
        std::string text = source;
        normalizeLineEnds(text);
        EXPECT_EQ(text, expected);
    }
}

}  // namespace
}  // namespace Vellum
