// Ignore patterns and files, for one pattern at a time, over trees, and against git itself where there is one.
#include "files/BrevisUI_IgnoreRules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>

#include "../support/TestFiles.h"
#include "files/BrevisUI_GlobPattern.h"

namespace BrevisUI {
namespace {

namespace fs = std::filesystem;

TEST(GlobPattern, MatchesWithinNamesAndAcrossDirectories) {
    const struct {
        const char* pattern;
        std::vector<std::string> matching, others;
    } cases[] = {
        {"a.c", {"a.c"}, {"a.cc", "xa.c", "d/a.c", ""}},
        {"*.c", {"a.c", ".c"}, {"a.h", "d/a.c"}},
        {"a?c", {"abc"}, {"ac", "a/c"}},
        {"**/a", {"a", "d/a", "d/e/a"}, {"da", "d/ba"}},
        {"a/**", {"a/b", "a/b/c"}, {"a", "ab/c"}},
        {"a**/b", {"ab", "ax/y/b"}, {"axb"}},  // as git has it
        {"a/**/b", {"a/b", "a/x/b", "a/x/y/b"}, {"ab", "a/xb", "a/b/c"}},
        {"*/**/b*", {"x/b", "x/y/bc"}, {"b", "x/y"}},
        {"[a-c]x[!0-9]", {"bxy"}, {"dxy", "bx1", "ax/"}},
        {"[]]", {"]"}, {"["}},
        {"[[:digit:]x]", {"7", "x"}, {"y"}},
        {"[a\\-c]", {"a", "-", "c"}, {"b"}},
        {"a\\*", {"a*"}, {"ab"}},
        {"[a", {}, {"[a", "a"}},
        {"[[:nonsense:]]", {}, {"n", ":"}},
        {"a\\", {}, {"a", "a\\"}},
    };
    for (const auto& [pattern, matching, others] : cases) {
        const GlobPattern glob(pattern);
        for (const std::string& path : matching) EXPECT_TRUE(glob.matches(path)) << pattern << " " << path;
        for (const std::string& path : others) EXPECT_FALSE(glob.matches(path)) << pattern << " " << path;
    }
}

// A matcher that tries all ways one after the other would not come back.
TEST(GlobPattern, TakesManyStarsInItsStride) {
    std::string pattern, path;
    for (int index = 0; index < 200; ++index) pattern += "**/*a*/", path += "aaaa/";
    EXPECT_TRUE(GlobPattern(pattern + "b").matches(path + "b"));
    EXPECT_FALSE(GlobPattern(pattern + "b").matches(path + "c/b/d/xb"));
}

class IgnoreRulesTest : public testing::Test {
protected:
    IgnoreRules::Options options(std::vector<std::string> excludes = {}) const {
        return {std::move(excludes), true, true, dir.file("user-ignore")};
    }
    bool isIgnored(IgnoreRules& rules, const std::string& name) const {
        return rules.isIgnored(dir.file(name), fs::is_directory(dir.file(name)));
    }

    TestFiles::TempDir dir;
};

TEST_F(IgnoreRulesTest, TheNearerFileAndTheStrongerSourceDecide) {
    dir.file("top/.git/info/exclude", "excluded.c\n!user.c\n");
    dir.file("user-ignore", "user.c\nfrom-user.c\n");
    dir.file(".gitignore", "outside.c\n");
    dir.file(".corvaneignore", "*.gen.c\n/top/anchored.c\n");
    dir.file("top/.gitignore", "git.c\nkept.gen.c\nbuild/\nback.c\n");
    dir.file("top/.corvaneignore", "!back.c\n");
    dir.file("top/sub/.corvaneignore", "!b.gen.c\n");
    dir.file("top/sub/.gitignore", "!git.c\n");
    dir.file("top/inner/.git", "gitdir: ../.git/modules/inner\n");
    dir.file("top/.git/modules/inner/info/exclude", "inner.c\n");
    dir.file("top/build/a.c", "");
    dir.file("top/sub/build", "a plain file");
    IgnoreRules rules(dir.file("top"), options({"never.c", "!forced.gen.c"}));
    const char* ignored[] = {"top/git.c",         "top/excluded.c",    "top/from-user.c",      "top/a.gen.c",
                             "top/anchored.c",    "top/build",         "top/build/a.c",        "top/sub/never.c",
                             "top/inner/inner.c", "top/inner/a.gen.c", "top/inner/from-user.c"};
    const char* taken[] = {
        "top/sub/git.c", "top/user.c",    "top/sub/b.gen.c", "top/forced.gen.c",   "top/outside.c", "top/back.c",
        "outside.c",     "top/sub/build", "top/inner/git.c", "top/sub/anchored.c", "top",           "top/other.c",
        "git.c"};
    for (const char* name : ignored) EXPECT_TRUE(isIgnored(rules, name)) << name;
    for (const char* name : taken) EXPECT_FALSE(isIgnored(rules, name)) << name;
}

TEST_F(IgnoreRulesTest, WhatTheUserNamedIsNotIgnoredItself) {
    dir.file("top/.corvaneignore", "build\n*.o\n");
    dir.file("top/build/a.c", "");
    IgnoreRules named(dir.file("top/build"), options());
    EXPECT_FALSE(isIgnored(named, "top/build"));
    EXPECT_FALSE(isIgnored(named, "top/build/a.c"));
    EXPECT_TRUE(isIgnored(named, "top/build/a.o"));

    IgnoreRules::Options none = options();
    none.corvaneIgnoreFiles = false;
    IgnoreRules switchedOff(dir.file("top"), none);
    EXPECT_FALSE(isIgnored(switchedOff, "top/a.o"));
}

// Draws trees and patterns from few names and many special characters, and asks git about each entry.
class GitComparison : public IgnoreRulesTest {
protected:
    void SetUp() override {
        if (std::system("git --version >/dev/null 2>&1") != 0) GTEST_SKIP() << "git is not installed";
    }

    template <class List>
    const auto& pick(const List& list) {
        return list[random() % std::size(list)];
    }

    std::string drawPattern() {
        static const std::string pieces[] = {"a",  "b", "ab",   "c.o", "*",     "*",           "**", "/",   "/",
                                             "/",  "?", "[ab]", "[!a", "[]a-]", "[[:alpha:]]", "!",  "\\",  "\\ ",
                                             "#x", " ", ".o",   "**/", "/**",   "[^b]",        "]",  "[a-", "-b]"};
        std::string pattern;
        for (auto count = 1 + random() % 5; count > 0; --count) pattern += pick(pieces);
        return pattern;
    }

    std::string drawFile() {
        std::string text = random() % 8 == 0 ? "\xEF\xBB\xBF" : "";
        for (auto count = random() % 6; count > 0; --count) text += drawPattern() + (random() % 5 == 0 ? "\r\n" : "\n");
        return text;
    }

    void drawTree(const std::string& directory, int depth) {
        static const std::string names[] = {"a", "b", "ab", "c.o", "#x", "a b", "]", "!a", "b ", "-", "a\\"};
        if (random() % 2 == 0) TestFiles::write(directory + "/.gitignore", drawFile());
        for (int count = 0; count < 5; ++count) {
            const std::string path = directory + "/" + pick(names);
            if (fs::exists(path)) continue;
            entries.push_back(path);
            if (depth > 0 && random() % 2 == 0) {
                fs::create_directory(path);
                drawTree(path, depth - 1);
            } else {
                TestFiles::write(path, "");
            }
        }
    }

    // The entries that git ignores, one a line.
    std::string askGit(const std::string& top) const {
        std::string list;
        for (const std::string& entry : entries) list += entry + '\0';
        TestFiles::write(dir.file("list"), list);
        const std::string command =
            "cd " + top + " && git init -q --template= && mkdir .git/info && cp " + dir.file("exclude") +
            " .git/info/exclude && git -c core.excludesFile=" + dir.file("user-ignore") +
            " check-ignore --no-index -z --stdin <" + dir.file("list") + " >" + dir.file("ignored");
        // The exit status is 1 if nothing is ignored.
        const int status = std::system(("GIT_CONFIG_NOSYSTEM=1 HOME=/nonexistent; export HOME; " + command).c_str());
        EXPECT_LE(WEXITSTATUS(status), 1);
        std::string ignored = TestFiles::contents(dir.file("ignored"));
        std::ranges::replace(ignored, '\0', '\n');
        return ignored;
    }

    std::mt19937 random{1};
    std::vector<std::string> entries;
};

TEST_F(GitComparison, DrawnTreesAreIgnoredAlike) {
    constexpr int trees = 20;
    std::size_t ignored = 0;
    for (int number = 0; number < trees && !HasFailure(); ++number) {
        const std::string top = dir.file("tree" + std::to_string(number));
        entries.clear();
        fs::create_directory(top);
        drawTree(top, 3);
        dir.file("exclude", drawFile());
        dir.file("user-ignore", drawFile());
        const std::string expected = askGit(top);
        IgnoreRules rules(top, options());
        std::string found;
        for (const std::string& entry : entries) {
            if (rules.isIgnored(entry, fs::is_directory(entry))) found += entry + "\n";
        }
        EXPECT_EQ(expected, found) << "tree " << number;
        ignored += static_cast<std::size_t>(std::ranges::count(found, '\n'));
    }
    EXPECT_GT(ignored, 200u);
}

}  // namespace
}  // namespace BrevisUI
