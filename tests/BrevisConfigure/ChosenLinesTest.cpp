// Changes of chosen lines, and the walk over the gaps.
#include "BrevisUI_ChosenLines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <random>

#include "BrevisUI_GapWalk.h"
#include "Vellum_WhiteSpace.h"

namespace BrevisUI {
namespace {

LineSet setOf(std::initializer_list<std::size_t> lines) {
    LineSet set;
    for (const std::size_t line : lines) set.add(line, line);
    return set;
}

TEST(ChosenLines, TakesWhatLiesInThem) {
    const struct {
        const char* source;
        const char* formatted;
        LineSet lines;
        const char* expected;
    } cases[] = {
        {" a \n b \n c \n", "a\nb\nc\n", setOf({2}), " a \nb\n c \n"},
        {"a( b )\n{ c;\n}\n", "a(b) {\n  c;\n}\n", setOf({1}), "a(b)\n{ c;\n}\n"},
        {"a( b )\n{ c;\n}\n", "a(b) {\n  c;\n}\n", setOf({2}), "a( b )\n{ c;\n}\n"},
        {"a( b )\n{ c;\n}\n", "a(b) {\n  c;\n}\n", setOf({1, 2}), "a(b) {\n  c;\n}\n"},
        {"a; b;\nc;  d;\n", "a;\nb;\nc;\nd;\n", setOf({2}), "a; b;\nc;\nd;\n"},
        // Blank lines go if enough of them are chosen, and come beside chosen lines.
        {"a\n\n \n\nb\n", "a\n\nb\n", setOf({2, 3}), "a\n\nb\n"},
        {"a\n\n \n\nb\n", "a\n\nb\n", setOf({3}), "a\n\n \n\nb\n"},
        {"a\n \nb\n", "a\n\n\nb\n", setOf({2}), "a\n\n\nb\n"},
        {"a\nb\n", "a\n\nb\n", setOf({1}), "a\n\nb\n"},
        {"a\nb\nc\n", "a\n\nb\nc\n", setOf({3}), "a\nb\nc\n"},
        // The ends of the text.
        {"\n\n a\n", "a\n", setOf({1, 2}), " a\n"},
        {"\n\n a\n", "a\n", setOf({3}), "\n\na\n"},
        {"a", "a\n", setOf({1}), "a\n"},
        {"a\nb", "a\nb\n", setOf({1}), "a\nb"},
        {"a\n\n\n", "a\n", setOf({2}), "a\n\n\n"},
        {"a\n\n\n", "a\n", setOf({2, 3}), "a\n"},
        {"a \n  \n", "a", setOf({1}), "a \n  \n"},
        {"a\n ", "a\n\n\n", setOf({1}), "a\n "},
        {"\n \n", "", setOf({2}), "\n \n"},
        {"\n \n", "", setOf({1, 2}), ""},
        // Line ends.
        {" a\r\n b\r\n", "a\nb\n", setOf({2}), " a\r\nb\n"},
        {"a \r\n\r\n\r\n b\r\n", "a\r\n\r\nb\r\n", setOf({3, 4}), "a \r\n\r\nb\r\n"},
        {" a\r b\n c\n", "a\rb\nc\n", setOf({1}), "a\rb\n c\n"},
    };
    for (const auto& [source, formatted, lines, expected] : cases) {
        EXPECT_EQ(expected, takeChosenLines(source, formatted, lines)) << source;
        EXPECT_EQ(formatted, takeChosenLines(source, formatted, LineSet::all()));
        EXPECT_EQ(source, takeChosenLines(source, formatted, LineSet()));
    }
    // A gap of its own needs no other one.
    const char *source = "a( b )\n{ c;  d;\n}\n", *formatted = "a(b) {\n  c;\n  d;\n}\n";
    EXPECT_EQ("a( b )\n{\n  c;\n  d;\n}\n", takeChosenLines(source, formatted, setOf({2}), GapChanges::Free));
    EXPECT_EQ("a(b)\n{ c;  d;\n}\n", takeChosenLines(source, formatted, setOf({1}), GapChanges::Free));
    EXPECT_FALSE(takeChosenLines("a b", "a c", LineSet::all()));
    EXPECT_FALSE(takeChosenLines("a b", "a ", LineSet::all()));
}

// Lines by the number of other characters in front of them, the last one without a line end.
std::multimap<std::size_t, std::string> linesOf(const std::string& text) {
    std::multimap<std::size_t, std::string> lines;
    std::size_t place = 0;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size() - 1) + 1;
        const std::string line = text.substr(begin, end - begin);
        lines.emplace(place, line);
        place += static_cast<std::size_t>(std::ranges::count_if(line, [](char c) { return !Vellum::isSpace(c); }));
        begin = end;
    }
    return lines;
}

std::string spaced(std::mt19937& random, std::size_t characters) {
    static constexpr const char* gaps[] = {"", "", "", " ", "\n", "\n", "\n  ", " \n\n ", "\r\n", "\n\n\n", "\t"};
    std::string text;
    for (std::size_t i = 0; i <= characters; ++i) {
        text += gaps[random() % std::size(gaps)];
        if (i < characters) text += static_cast<char>('a' + i);
    }
    return text;
}

TEST(ChosenLines, LeavesAllOthersByteForByte) {
    std::mt19937 random(4711);
    for (int round = 0; round < 20000; ++round) {
        const std::string source = spaced(random, 8);
        const std::string formatted = spaced(random, 8);
        LineSet chosen;
        for (std::size_t line = 1; line < 20; ++line) {
            if (random() % 3 == 0) chosen.add(line, line);
        }
        const GapChanges changes = round % 2 == 0 ? GapChanges::Related : GapChanges::Free;
        const std::string result = takeChosenLines(source, formatted, chosen, changes).value();
        auto left = linesOf(result);
        std::size_t number = 0;
        for (const auto& [place, line] : linesOf(source)) {
            if (chosen.has(++number)) continue;
            const auto [begin, end] = left.equal_range(place);
            const auto same = std::find_if(begin, end, [&](const auto& entry) { return entry.second == line; });
            ASSERT_NE(end, same) << number << " of\n" << source << "\nto\n" << formatted << "\ngives\n" << result;
            left.erase(same);
        }
        ASSERT_EQ(result, takeChosenLines(source, result, chosen, changes)) << source << "\nto\n" << formatted;
    }
}

TEST(LineSet, JoinsRanges) {
    LineSet lines;
    lines.add(5, 6);
    lines.add(9, LineSet::lastLine);
    lines.add(1, 2);
    lines.add(8, 7);
    EXPECT_EQ(3u, lines.ranges().size());
    EXPECT_FALSE(lines.hasAll(5, 7));
    lines.add(7, 8);
    EXPECT_EQ(2u, lines.ranges().size());
    EXPECT_TRUE(lines.hasAll(6, 1000));
    EXPECT_FALSE(lines.has(3) || lines.has(0));
    lines.add(0, LineSet::lastLine);
    EXPECT_EQ(1u, lines.ranges().size());
}

TEST(GapWalk, CutsGapsToWhatDiffers) {
    const auto gaps = findChangedGaps("a \r\n b  c", "a\r\n\r\n b c");
    ASSERT_EQ(2u, gaps.size());
    EXPECT_EQ(" ", gaps[0].in("a \r\n b  c"));
    EXPECT_EQ("\r\n", gaps[0].inFormatted("a\r\n\r\n b c"));
    EXPECT_EQ(" ", gaps[1].in("a \r\n b  c"));
    EXPECT_EQ("", gaps[1].inFormatted("a\r\n\r\n b c"));
    EXPECT_TRUE(findChangedGaps("a b", "a b").empty());
    EXPECT_EQ(1u, findChangedGaps("a b c", "a b d").size());
}

}  // namespace
}  // namespace BrevisUI
