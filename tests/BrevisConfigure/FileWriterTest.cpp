// Files are never harmed: whatever call fails, whenever the process dies, and when the user takes a run back.
#include "disk/BrevisUI_FileWriter.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <optional>
#include <random>

#include "../support/TestFiles.h"
#include "FaultySystem.h"
#include "disk/BrevisUI_Restorer.h"

namespace BrevisUI {
namespace {

namespace fs = std::filesystem;
using Cause = WriteFailure::Cause;
using Lines = std::vector<std::string>;
using TestFiles::contents;

const std::string oldText = "int   x;\n" + std::string(300, ' ') + "\n";
const std::string newText = "int x;\n" + std::string(700, '\n');

class FileWriterTest : public testing::Test {
protected:
    WriteFailures replace(FileSystem& fileSystem, const Lines& paths) {
        RunStore runs(fileSystem, cache);
        FileWriter writer(fileSystem, &runs);
        WriteFailures failures;
        const auto note = [&](WriteFailures more) { failures.insert(failures.end(), more.begin(), more.end()); };
        for (const std::string& path : paths) note(writer.replace(path, oldText, newText));
        note(writer.finish());
        return failures;
    }
    bool undo() { return restorer().undo(); }
    bool recover() { return restorer().recover({dir.path()}); }
    Restorer restorer() {
        return {system, store, [this](const std::string& text, Restorer::News) { told.push_back(text); },
                [this] { return filesToStop-- == 0; }};
    }
    // The names of all that the program has made beside the files.
    Lines leftovers() const {
        Lines names;
        for (const auto& entry : fs::directory_iterator(dir.path())) {
            const std::string name = entry.path().filename().string();
            if (name.starts_with(".corvane-")) names.push_back(name);
        }
        return names;
    }

    // What was found in a damaged file stays beside it where there is no cache; nothing else stays.
    void removeFoundTexts(const std::string& where) {
        for (const std::string& name : leftovers()) {
            EXPECT_TRUE(name.starts_with(".corvane-saved-")) << where << " " << name;
            fs::remove_all(dir.file(name));
        }
    }

    TestFiles::TempDir dir;
    std::string cache = dir.file("cache/corvane");
    FaultySystem system{[](int, const std::string&, const std::string&) { return 0; }};
    RunStore store{system, cache};
    Lines told;
    int filesToStop = -1;  // none
};

TEST_F(FileWriterTest, KeepsWhatAFileHasBesideItsText) {
    const std::string path = dir.file("a.cpp", oldText);
    const std::string link = dir.file("link.cpp");
    fs::create_symlink("a.cpp", link);
    ASSERT_EQ(0, chmod(path.c_str(), 0754));
    const bool takesAttributes = setxattr(path.c_str(), "user.note", "kept", 4, 0) == 0;
    // Version 2; user::rwx, user:7:r--, group::r-x, mask::r-x, other::r--
    const std::string list(
        "\2\0\0\0\1\0\7\0\xff\xff\xff\xff\2\0\4\0\7\0\0\0\4\0\5\0\xff\xff\xff\xff\x10\0\5\0\xff\xff\xff\xff\x20\0\4\0"
        "\xff\xff\xff\xff",
        44);
    const bool takesLists = setxattr(path.c_str(), "system.posix_acl_access", list.data(), list.size(), 0) == 0;
    const bool takesOwners = chown(path.c_str(), 12, 34) == 0;
    EXPECT_TRUE(replace(system, {link}).empty());
    EXPECT_EQ(newText, contents(path));
    EXPECT_TRUE(fs::is_symlink(link));
    struct stat status {};
    ASSERT_EQ(0, stat(path.c_str(), &status));
    EXPECT_EQ(0754u, status.st_mode & 07777);
    EXPECT_EQ(takesOwners ? 12 : getuid(), status.st_uid);
    char value[64];
    EXPECT_EQ(takesAttributes ? 4 : -1, getxattr(path.c_str(), "user.note", value, sizeof value));
    if (takesLists) {
        ASSERT_EQ(44, getxattr(path.c_str(), "system.posix_acl_access", value, sizeof value));
        EXPECT_EQ(list, std::string(value, 44));
    }
}

// Where the new file can't have all that the old one has, or no name, the old one is written over.
TEST_F(FileWriterTest, OverwritesAFileThatCannotBeReplaced) {
    for (const std::string call : {"none", "changeMode", "rename", "open"}) {
        const std::string path = dir.file("a.cpp", oldText);
        if (call == "none") fs::create_hard_link(path, dir.file("b.cpp"));
        struct stat before {
        }, after{};
        ASSERT_EQ(0, stat(path.c_str(), &before));
        FaultySystem faulty([&](int, const std::string& name, const std::string& about) {
            return name == call && (call != "open" || about.ends_with(".tmp")) ? EACCES : 0;
        });
        EXPECT_TRUE(replace(faulty, {path}).empty()) << call;
        EXPECT_EQ(newText, contents(path)) << call;
        ASSERT_EQ(0, stat(path.c_str(), &after));
        EXPECT_EQ(before.st_ino, after.st_ino) << call;
        EXPECT_EQ(Lines(), leftovers()) << call;
        fs::remove(path);
    }
    EXPECT_EQ(newText, contents(dir.file("b.cpp")));
}

TEST_F(FileWriterTest, ReplacesAFileWhereModesCannotBeChanged) {
    const std::string path = dir.file("a.cpp", oldText);
    fs::permissions(path, fs::perms(0600));  // as every new one
    struct stat before {
    }, after{};
    ASSERT_EQ(0, stat(path.c_str(), &before));
    FaultySystem faulty([](int, const std::string& call, const std::string&) { return call == "changeMode" ? EPERM : 0; });
    EXPECT_TRUE(replace(faulty, {path}).empty());
    EXPECT_EQ(newText, contents(path));
    ASSERT_EQ(0, stat(path.c_str(), &after));
    EXPECT_NE(before.st_ino, after.st_ino);
}

// That of a whole file system tells of other programs' troubles too.
TEST_F(FileWriterTest, AsksAboutEachFileWhereACommonSyncFails) {
    for (const bool isOurs : {false, true}) {
        Lines paths;
        for (const char* name : {"a.cpp", "b.cpp", "c.cpp"}) paths.push_back(dir.file(name, oldText));
        int syncs = 0;
        FaultySystem faulty([&](int, const std::string& call, const std::string&) {
            return call == "syncAll" || (isOurs && call == "sync" && ++syncs == 2) ? EIO : 0;
        });
        EXPECT_EQ(isOurs ? 1u : 0u, replace(faulty, paths).size());
        EXPECT_EQ(newText, contents(paths[0]));
        EXPECT_EQ(isOurs ? oldText : newText, contents(paths[1]));
        EXPECT_EQ(newText, contents(paths[2]));
        EXPECT_EQ(Lines(), leftovers());
    }
}

// Every call of a good run fails once by itself, and once with all that follow it.
TEST_F(FileWriterTest, HoldsAWholeTextWhateverCallFails) {
    const struct {
        const char* name;
        bool linked, hasCache;
    } scenes[] = {{"replaced", false, true}, {"overwritten", true, true}, {"without a cache", true, false}};
    const std::string one = dir.file("one.cpp"), two = dir.file("two.cpp");
    for (const auto& [name, linked, hasCache] : scenes) {
        for (const bool lasting : {false, true}) {
            int failing = 0;
            for (bool reached = true; reached; ++failing) {
                fs::remove_all(dir.file("cache"));
                if (!hasCache) dir.file("cache", "no directory");
                for (const std::string& path : {one, two}) {
                    fs::remove(path);
                    dir.file(fs::path(path).filename(), oldText);
                    fs::remove(path + ".link");
                    if (linked) fs::create_hard_link(path, path + ".link");
                }
                bool mayLeave = false;  // where a removal fails, or an old text must stay
                reached = false;
                FaultySystem faulty([&](int number, const std::string& call, const std::string&) {
                    const bool fails = lasting ? number >= failing : number == failing;
                    reached = reached || fails;
                    mayLeave = mayLeave || (fails && call.starts_with("remove"));
                    return fails ? ENOSPC : 0;
                });
                const WriteFailures failures = replace(faulty, {one, two});
                const std::string where =
                    std::string(name) + (lasting ? ", from call " : ", call ") + std::to_string(failing);
                for (const std::string& path : {one, two}) {
                    const auto isTold = [&](const WriteFailure& failure) { return failure.path == path; };
                    const auto failure = std::find_if(failures.begin(), failures.end(), isTold);
                    const std::string now = contents(path);
                    if (failure == failures.end()) {
                        EXPECT_EQ(newText, now) << where;
                    } else if (failure->cause == Cause::Damaged) {
                        EXPECT_TRUE(lasting) << where;
                        mayLeave = true;
                        EXPECT_TRUE(fs::exists(failure->details)) << where;
                    } else {
                        EXPECT_EQ(oldText, now) << where;
                    }
                }
                EXPECT_TRUE(mayLeave || leftovers().empty()) << where;
                EXPECT_TRUE(recover()) << where;
                removeFoundTexts(where);
                for (const std::string& path : {one, two}) {
                    EXPECT_TRUE(contents(path) == oldText || contents(path) == newText) << where;
                }
            }
            EXPECT_GT(failing, 40) << name;
        }
    }
}

TEST_F(FileWriterTest, LeavesAFileAloneThatIsNotWhatItWas) {
    const struct {
        std::function<void(const std::string&)> meddle;
        std::optional<Cause> cause;
        std::string text;
    } cases[] = {
        {[](const std::string& path) { TestFiles::write(path, "newer"); }, Cause::Changed, "newer"},
        {[](const std::string& path) { fs::remove(path); }, Cause::Missing, ""},
        {[](const std::string& path) { chmod(path.c_str(), 0444); }, Cause::NoPermission, oldText},
        {[](const std::string& path) { TestFiles::write(path, newText); }, std::nullopt, newText},
    };
    for (const bool late : {false, true}) {
        for (const auto& [meddle, cause, text] : cases) {
            const std::string path = dir.file("a.cpp", oldText);
            FileWriter writer(system, &store);
            if (!late) meddle(path);
            WriteFailures failures = writer.replace(path, oldText, newText);
            if (late) {
                meddle(path);
                failures = writer.finish();
            }
            ASSERT_EQ(cause ? 1u : 0u, failures.size());
            // Once the new text is ready, any change is one.
            for (const WriteFailure& failure : failures) {
                EXPECT_TRUE(failure.cause == cause || (late && failure.cause == Cause::Changed));
            }
            EXPECT_EQ(text, contents(path));
            EXPECT_EQ(Lines(), leftovers());
            fs::remove(path);
        }
    }
}

TEST_F(FileWriterTest, TellsOnceThatThereIsNoJournal) {
    dir.file("cache", "no directory");
    FileWriter writer(system, &store);
    for (const char* name : {"a.cpp", "b.cpp"}) {
        const std::string path = dir.file(name, oldText);
        EXPECT_TRUE(writer.replace(path, oldText, newText).empty());
        EXPECT_EQ(std::string(name) == "a.cpp", !writer.takeWarning().empty());
    }
    EXPECT_TRUE(writer.finish().empty());
    EXPECT_EQ(newText, contents(dir.file("b.cpp")));
}

TEST_F(FileWriterTest, UndoBringsBackWhatHasNotChangedSince) {
    // Enough for two batches; a line feed in a path, and a file with two names.
    Lines paths;
    for (int index = 0; index < 70; ++index) paths.push_back(dir.file("a\n" + std::to_string(index), oldText));
    fs::create_hard_link(paths[3], dir.file("linked"));
    ASSERT_TRUE(replace(system, paths).empty());
    const std::string other = dir.file("other.cpp", oldText);
    ASSERT_TRUE(replace(system, {other}).empty());
    TestFiles::write(paths[5], "edited");

    EXPECT_TRUE(undo());
    EXPECT_EQ(oldText, contents(other));
    EXPECT_EQ(newText, contents(paths[0]));
    EXPECT_FALSE(undo());
    const auto isComplaint = [](const std::string& text) {
        return text.find("has changed since") != std::string::npos;
    };
    EXPECT_EQ(1, std::count_if(told.begin(), told.end(), isComplaint));
    for (const std::string& path : paths) EXPECT_EQ(path == paths[5] ? "edited" : oldText, contents(path));
    EXPECT_EQ(2u, fs::hard_link_count(paths[3]));
    EXPECT_FALSE(undo());
    EXPECT_EQ("There is no run to undo.", told.back());
}

TEST_F(FileWriterTest, GoesOnWhereItWasStopped) {
    Lines paths;
    for (int index = 0; index < 5; ++index) paths.push_back(dir.file("a" + std::to_string(index), oldText));
    ASSERT_TRUE(replace(system, paths).empty());
    const auto count = [&](const std::string& text) {
        return std::ranges::count_if(paths, [&](const std::string& path) { return contents(path) == text; });
    };
    for (const int done : {0, 2, 4}) {
        filesToStop = done == 4 ? 2 : done;
        Restorer stopped = restorer();
        EXPECT_TRUE(stopped.undo());
        EXPECT_TRUE(stopped.hasLeft());
        EXPECT_EQ(done, count(oldText));
        EXPECT_EQ(5 - done, count(newText));
    }
    filesToStop = -1;
    EXPECT_TRUE(undo());
    EXPECT_EQ(5, count(oldText));

    // The same after a crash, with torn files.
    std::error_code error;
    auto journal = store.begin(error);
    ASSERT_FALSE(error) << error.message();
    for (const std::string& path : paths) {
        std::size_t entry = 0;
        ASSERT_FALSE(journal->add(path, oldText, newText, entry));
        ASSERT_FALSE(journal->mark(entry, RunJournal::State::InPlace));
        TestFiles::write(path, "torn");
    }
    journal.reset();
    filesToStop = 3;
    EXPECT_TRUE(recover());
    EXPECT_EQ(3, count(oldText));
    filesToStop = -1;
    EXPECT_TRUE(recover());
    EXPECT_EQ(5, count(oldText));
}

TEST_F(FileWriterTest, KeepsTheJournalsOfTenRunsThatAreApart) {
    const std::string path = dir.file("a.cpp", oldText);
    for (int run = 0; run < 12; ++run) {
        TestFiles::write(path, oldText);
        ASSERT_TRUE(replace(system, {path}).empty());
    }
    EXPECT_EQ(RunStore::keptRuns, store.runs().size());
    // A run at work: nobody may take it back or clear it away.
    const std::string busy = dir.file("busy.cpp", oldText);
    FileWriter writer(system, &store);
    EXPECT_TRUE(writer.replace(busy, oldText, newText).empty());
    EXPECT_FALSE(undo());
    EXPECT_EQ(newText, contents(path));
    EXPECT_TRUE(writer.finish().empty());
    EXPECT_EQ(newText, contents(busy));
}

// What lies in a tree may come from anywhere.
TEST_F(FileWriterTest, TrustsSavedTextsWithTheirOwnDirectoryOnly) {
    const std::string victim = dir.file("home/victim.cpp", "mine");
    fs::create_directory(dir.file("tree"));
    fs::create_symlink(victim, dir.file("tree/link.cpp"));
    fs::create_directory_symlink(dir.file("home"), dir.file("tree/.corvane-saved-link"));
    const std::string torn = dir.file("tree/victim.cpp", "torn");
    std::error_code error;
    auto journal = RunJournal::create(system, dir.file("tree/.corvane-saved-1"), error);
    std::size_t entry = 0;
    for (const std::string& path : {victim, std::string("/elsewhere/link.cpp")}) {
        ASSERT_FALSE(journal->add(path, oldText, newText, entry));
        ASSERT_FALSE(journal->mark(entry, RunJournal::State::InPlace));
    }
    journal.reset();
    EXPECT_FALSE(restorer().recover({dir.file("tree")}));
    EXPECT_EQ("mine", contents(victim));
    EXPECT_EQ(oldText, contents(torn));
    EXPECT_TRUE(fs::exists(dir.file("tree/.corvane-saved-1/found-0-" + std::to_string(getpid()))));
}

// Writes so slowly that death finds it at work.
class SlowSystem : public FileSystem {
public:
    ssize_t write(int file, const char* bytes, std::size_t size) override {
        usleep(10);
        return FileSystem::write(file, bytes, std::min<std::size_t>(size, 16));
    }
    int sync(int) override { return 0; }
};

TEST_F(FileWriterTest, SurvivesASuddenDeath) {
    std::mt19937 random(7);
    int damaged = 0;
    int left = 0;
    for (int round = 0; round < 60; ++round) {
        const std::string path = dir.file("a.cpp", oldText);
        const bool linked = round % 2 == 1;
        if (linked && !fs::exists(dir.file("b.cpp"))) fs::create_hard_link(path, dir.file("b.cpp"));
        if (!linked) fs::remove(dir.file("b.cpp"));
        if (round == 30) fs::remove_all(dir.file("cache")), dir.file("cache", "no directory");
        const pid_t child = fork();
        if (child == 0) {
            SlowSystem slow;
            for (bool forth = true;; forth = !forth) {
                RunStore runs(slow, cache);
                FileWriter writer(slow, &runs);
                writer.replace(path, forth ? oldText : newText, forth ? newText : oldText);
                writer.finish();
            }
        }
        usleep(1000 + random() % 20000);
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const auto isWhole = [&] { return contents(path) == oldText || contents(path) == newText; };
        damaged += isWhole() ? 0 : 1;
        left += leftovers().empty() ? 0 : 1;
        EXPECT_TRUE(linked || isWhole()) << round;
        EXPECT_TRUE(recover()) << round << (told.empty() ? "" : told.back());
        EXPECT_TRUE(isWhole()) << round;
        removeFoundTexts(std::to_string(round));
    }
    EXPECT_GT(damaged, 0) << "no death came while a file was overwritten";
    EXPECT_GT(left, 0);
}

}  // namespace
}  // namespace BrevisUI
