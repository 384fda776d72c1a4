// The walk over a directory tree: what it finds, in which order, and what stays out.
#include "files/BrevisUI_TreeWalk.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>

#include "../support/TestFiles.h"
#include "BrevisUI_Files.h"

namespace BrevisUI {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

TEST(ExtensionList, LooksBehindTheLastDotOfThePath) {
    const ExtensionList list({"c", "H", "hpp"});
    for (const char* path : {"a.c", "a.C", "d/a.x.h", ".c", "a. hpp\t", "d.e/a.HPP"})
        EXPECT_TRUE(list.holds(path)) << path;
    for (const char* path : {"a.cc", "c", "a.", "d.c/a", "", "a.c.bak"}) EXPECT_FALSE(list.holds(path)) << path;
}

class TreeWalkTest : public testing::Test {
protected:
    // The files of the walk, relative to the directory.
    Lines walk(TreeWalk::Hooks hooks = {}) const {
        Lines found;
        TreeWalk(ExtensionList({"c", "h"}), std::move(hooks)).walk(dir.path(), [&](const std::string& path) {
            found.push_back(path.substr(dir.path().size() + 1));
        });
        return found;
    }
    static Lines sorted(Lines lines) {
        std::ranges::sort(lines);
        return lines;
    }

    TestFiles::TempDir dir;
};

TEST_F(TreeWalkTest, LeavesOutWhatIsProtectedHiddenOrSpecial) {
    for (const char* name :
         {"a.c", "d/b.h", "d/e/c.c", "d/text.txt", ".hidden.c", ".git/x.c", "locked/y.c", "locked.c"}) {
        dir.file(name, "");
    }
    fs::permissions(dir.file("locked"), fs::perms(0555));
    fs::permissions(dir.file("locked.c"), fs::perms(0444));
    fs::create_directory_symlink(dir.path(), dir.file("d/round"));
    fs::create_symlink(dir.file("a.c"), dir.file("link.c"));
    fs::create_symlink("nowhere", dir.file("dangling.c"));
    ASSERT_EQ(0, mkfifo(dir.file("pipe.c").c_str(), 0600));
    dir.file("locked.txt", "");
    fs::permissions(dir.file("locked.txt"), fs::perms(0444));
    fs::permissions(dir.file("locked-out.c", ""), fs::perms(0444));
    TreeWalk::Hooks hooks;
    hooks.leaveOut = [](const std::string& path, bool) { return path.ends_with("-out.c"); };
    Lines told;
    hooks.onProtected = [&](const std::string& path) { told.push_back(path.substr(dir.path().size() + 1)); };
    EXPECT_EQ((Lines{"a.c", "d/b.h", "d/e/c.c"}), sorted(walk(hooks)));
    EXPECT_EQ((Lines{"locked", "locked.c"}), sorted(told));
    // Others may write this one.
    fs::permissions(dir.file("of-others.c", ""), fs::perms(0466));
    hooks.onlyReads = true;
    EXPECT_EQ((Lines{"a.c", "d/b.h", "d/e/c.c", "of-others.c"}), sorted(walk(hooks)));
    EXPECT_EQ(fileIsWritable(dir.file("of-others.c")) ? 4u : 3u, walk().size());
    fs::permissions(dir.file("locked"), fs::perms(0755));
}

TEST_F(TreeWalkTest, WalksASubdirectoryAtItsPlaceInTheListing) {
    for (const char* name : {"a.c", "b.c", "m/1.c", "m/2.c", "n/3.c", "n/o/4.c", "z.c"}) dir.file(name, "");
    Lines expected;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(dir.path())) {
        if (entry.is_regular_file()) expected.push_back(fs::relative(entry.path(), dir.path()).string());
    }
    EXPECT_EQ(7u, expected.size());
    EXPECT_EQ(expected, walk());
}

TEST_F(TreeWalkTest, TheHooksSteerIt) {
    for (const char* name : {"a.c", "out/b.c", "d/c.c", "d/d.h"}) dir.file(name, "");
    TreeWalk::Hooks hooks;
    Lines asked;
    hooks.leaveOut = [&](const std::string& path, bool isDirectory) {
        asked.push_back(fs::relative(path, dir.path()).string() + (isDirectory ? "/" : ""));
        return path.ends_with("/out") || path.ends_with(".h");
    };
    EXPECT_EQ((Lines{"a.c", "d/c.c"}), sorted(walk(hooks)));
    EXPECT_EQ((Lines{"a.c", "d/", "d/c.c", "d/d.h", "out/"}), sorted(asked));

    int left = 2;  // entries are counted, directories too
    hooks.isCancelled = [&] { return left-- <= 0; };
    EXPECT_LE(walk(hooks).size(), 2u);
    left = 0;
    EXPECT_EQ(Lines(), walk(hooks));
}

TEST_F(TreeWalkTest, TellsOfAFailedListingOnlyToThoseWhoAsk) {
    const std::string missing = dir.file("missing");
    int files = 0;
    Lines failures;
    TreeWalk::Hooks hooks;
    hooks.onFailure = [&](const std::string& path, const std::error_code& error) {
        failures.push_back(path + ": " + error.message());
    };
    const auto count = [&](const std::string&) { ++files; };
    TreeWalk(ExtensionList({"c"})).walk(missing, count);
    TreeWalk(ExtensionList({"c"}), hooks).walk(missing, count);
    EXPECT_EQ(Lines{missing + ": No such file or directory"}, failures);
    EXPECT_EQ(0, files);
}

// As a backup does whose extension is one of source files.
TEST_F(TreeWalkTest, FilesMadeOnTheWayDoNotProlongIt) {
    dir.file("a.c", "");
    int files = 0;
    TreeWalk(ExtensionList({"c"})).walk(dir.path(), [&](const std::string& path) {
        if (++files < 100) TestFiles::write(path + ".c", "");
    });
    EXPECT_EQ(1, files);
}

}  // namespace
}  // namespace BrevisUI
