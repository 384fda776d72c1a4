// The unified diff of a text and its formatted form.
#include "Console_UnifiedDiff.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <sstream>

namespace Console {
namespace {

const std::string head = "--- a.cpp\t(as it is)\n+++ a.cpp\t(formatted)\n";

std::string diff(const std::string& before, const std::string& after) {
    const std::string text = unifiedDiff("a.cpp", before, after, false);
    if (text.empty()) return text;
    EXPECT_EQ(head, text.substr(0, head.size()));
    return text.substr(head.size());
}

TEST(UnifiedDiff, ShowsWhatChanges) {
    const struct {
        const char* before;
        const char* after;
        const char* hunks;
    } cases[] = {
        {"a\nb\n", "a\nb\n", ""},
        {"", "", ""},
        {"a \n", "a\n", "@@ -1 +1 @@\n-a \n+a\n"},
        {"a", "a\n", "@@ -1 +1 @@\n-a\n\\ No newline at end of file\n+a\n"},
        {"a\n", "a", "@@ -1 +1 @@\n-a\n+a\n\\ No newline at end of file\n"},
        {"a b", "a  b", "@@ -1 +1 @@\n-a b\n\\ No newline at end of file\n+a  b\n\\ No newline at end of file\n"},
        {"\n", "", "@@ -1 +0,0 @@\n-\n"},
        {"\n\na\n", "a\n", "@@ -1,3 +1 @@\n-\n-\n a\n"},
        {"a b\n", "a\nb\n", "@@ -1 +1,2 @@\n-a b\n+a\n+b\n"},
        {"a\nb\nc\nd\ne\n", "a\nb\n\nc\nd\ne\n", "@@ -1,5 +1,6 @@\n a\n b\n+\n c\n d\n e\n"},
        // Context of two changes that touches makes one hunk, else two.
        {"a \n1\n2\n3\n4\n5\n6\nb \n", "a\n1\n2\n3\n4\n5\n6\nb\n",
         "@@ -1,8 +1,8 @@\n-a \n+a\n 1\n 2\n 3\n 4\n 5\n 6\n-b \n+b\n"},
        {"a \n1\n2\n3\n4\n5\n6\n7\nb \n", "a\n1\n2\n3\n4\n5\n6\n7\nb\n",
         "@@ -1,4 +1,4 @@\n-a \n+a\n 1\n 2\n 3\n@@ -6,4 +6,4 @@\n 5\n 6\n 7\n-b \n+b\n"},
        // The same text at another place is not the same line.
        {"x\n}\nx\n}\n", "x\n}\n x\n}\n", "@@ -1,4 +1,4 @@\n x\n }\n-x\n+ x\n }\n"},
        {"a\r\nb\r\n", "a\nb\n", "@@ -1,2 +1,2 @@\n-a\r\n-b\r\n+a\n+b\n"},
    };
    for (const auto& [before, after, hunks] : cases) EXPECT_EQ(hunks, diff(before, after)) << before;
}

TEST(UnifiedDiff, ColoursLinesByTheirKind) {
    EXPECT_EQ(
        "\x1b[1m--- f\t(as it is)\x1b[m\n\x1b[1m+++ f\t(formatted)\x1b[m\n\x1b[36m@@ -1,2 +1,2 @@\x1b[m\n"
        "\x1b[31m-a \x1b[m\n\x1b[32m+a\x1b[m\n b\n",
        unifiedDiff("f", "a \nb\n", "a\nb\n", true));
}

// Applies a diff without a missing last line feed, checking every line that it names.
std::string patched(const std::string& before, const std::string& hunks) {
    std::istringstream old(before);
    std::istringstream in(hunks);
    std::string result;
    std::string line;
    std::string oldLine;
    long oldNumber = 0;
    while (std::getline(in, line)) {
        if (line[0] == '@') {
            const long start = std::stol(line.substr(4));
            while (oldNumber + 1 < start && std::getline(old, oldLine)) result += oldLine + "\n", ++oldNumber;
            continue;
        }
        if (line[0] != '+') {
            EXPECT_TRUE(std::getline(old, oldLine));
            ++oldNumber;
            EXPECT_EQ(oldLine, line.substr(1));
        }
        if (line[0] != '-') result += line.substr(1) + "\n";
    }
    while (std::getline(old, oldLine)) result += oldLine + "\n";
    return result;
}

TEST(UnifiedDiff, GivesTheOtherTextWhenApplied) {
    std::mt19937 random(1);
    const char* const gaps[] = {"", " ", "\n", "\n\n", "\n  ", "\n \n"};
    for (int round = 0; round < 300; ++round) {
        std::string before;
        std::string after;
        // Gaps mostly agree; in every tenth round the texts differ in more than white space.
        for (int word = 0; word < 60; ++word) {
            const char* const gap = gaps[random() % std::size(gaps)];
            const char letter = static_cast<char>('a' + random() % 3);
            before += gap;
            before += letter;
            after += random() % 5 == 0 ? gaps[random() % std::size(gaps)] : gap;
            after += round % 10 == 0 && random() % 20 == 0 ? 'z' : letter;
        }
        before += '\n';
        after += '\n';
        EXPECT_EQ(after, patched(before, diff(before, after)));
    }
}

// Growth, not speed: a diff that compares every line with every other would need 10^10 steps here.
TEST(UnifiedDiff, IsLinearWhenEveryLineChanges) {
    std::string before;
    std::string after;
    for (int line = 0; line < 100000; ++line) {
        before += "x = y;\n";
        after += "    x = y;\n";
    }
    const std::string text = diff(before, after);
    EXPECT_EQ(100000, std::count(text.begin(), text.end(), '+') - 1);
    const std::string joined = "x" + std::string(5000000, 'y');
    EXPECT_FALSE(diff(std::string(100000, '\n') + joined, joined).empty());
}

}  // namespace
}  // namespace Console
