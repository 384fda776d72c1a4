// What the text of the second edition's rules knows of lines, and the sizes of the pieces that it is written in.
#include "second/Brevis_GapText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "second/Brevis_GapReader.h"
#include "second/Brevis_PieceSizes.h"

namespace Brevis {
namespace {

// Lines of many sorts of lengths, some of them within a token, over several words of the table.
std::string mixedLines() {
    std::string text;
    for (int item = 0; item < 90; ++item) {
        text += item % 7 == 3 ? "int a /* b\n c */ = 1;" : "int a = 1;";
        if (item % 5 != 1 && (item < 30 || item > 70)) text += item % 3 == 0 ? "\n\n" : "\n";
    }
    return text;
}

TEST(GapText, KnowsWhichTokensBeginOnOneLine) {
    const std::string source = mixedLines();
    const FormatterProperties properties{PropertySet()};
    GapReader reader(source, properties);
    Trn::ParseMessageList messages;
    ASSERT_TRUE(reader.read(messages));
    const GapText text(source, reader.takeTable());
    ASSERT_GT(text.size(), 400U);
    const auto lineOf = [&](TokenIndex token) {
        return std::count(source.begin(), source.begin() + text.token(token).begin, '\n');
    };
    for (TokenIndex first = 1; first <= text.size(); ++first) {
        for (TokenIndex last = first; last <= text.size(); ++last) {
            ASSERT_EQ(text.isOnOneLine(first, last), lineOf(first) == lineOf(last)) << first << ' ' << last;
        }
    }
}

TEST(PieceSizes, ComeBackInOrder) {
    const std::vector<std::size_t> sizes = {0, 1, 254, 255, 256, 0, 70'000, 20'000'000, 3};
    PieceSizes pieces;
    std::size_t end = 0;
    for (const std::size_t size : sizes) pieces.endAt(end += size);
    PieceSizes::Reader reader(pieces);
    for (const std::size_t size : sizes) EXPECT_EQ(reader.next(), size);
}

}  // namespace
}  // namespace Brevis
