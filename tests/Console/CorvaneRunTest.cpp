// Runs of corvane-format over many files: several at once, in parts, stopped, and on a terminal.
#include <fcntl.h>
#include <pty.h>
#include <spawn.h>

#include <algorithm>
#include <csignal>
#include <sstream>

#include "Console_ProgressLine.h"
#include "Console_Shard.h"
#include "FormatProgram.h"

namespace {

namespace fs = std::filesystem;
using FormatProgram::bad, FormatProgram::pretty, FormatProgram::ugly;
using TestFiles::contents;

class CorvaneRunTest : public FormatProgram::Fixture {
protected:
    // Files of every fate, small and large, in directories with schemes of their own, one of them bad.
    void makeTree() {
        std::string large = "void f( ){\n";
        for (int line = 0; line < 800; ++line) large += "g(  );\n";
        dir.file("t/b/.corvane.fsc", "no scheme\n");
        dir.file("t/c/.corvane.fsc", "Brevis::PropertySet\n1\n\"c\"\n3 INDENT_FN_CONTENT \"\t\"\n3 NO_SUCH_KEY \"\"\n");
        for (int number = 0; number < 60; ++number) {
            const char* const texts[] = {ugly, pretty, bad, "", ugly};
            const std::string folder{"abc"[number % 3]};
            dir.file("t/" + folder + "/f" + std::to_string(number) + ".cpp",
                     number % 9 == 0 ? large + "}\n" : texts[number % 5]);
        }
    }
    std::string treeContents() const {
        std::string all;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(dir.file("t"))) {
            if (entry.is_regular_file()) all += entry.path().string() + "\n" + contents(entry.path()) + "\n";
        }
        return all;
    }
};

TEST_F(CorvaneRunTest, GivesTheSameBytesWithAnyNumberOfThreads) {
    makeTree();
    const std::string source = treeContents();
    for (const char* mode :
         {"--check", "--diff --color=always", "--check --format=sarif", "--check --diff --verify=stable --threshold 0",
          "-i --threshold 0", "$(find t -name '*.cpp' | sort) - gone.cpp <ugly.cpp"}) {
        std::string firstOut, firstErr, firstTree;
        int firstStatus = 0;
        for (const char* jobs : {"-j 1", "-j 2", "--jobs=7", ""}) {
            const bool takesTree = mode[0] == '-';
            run(std::string("$F --verbose ") + jobs + (takesTree ? " t pretty.cpp " : " ") + mode);
            // The last line tells the time.
            err.erase(err.rfind(" in "));
            const std::string tree = treeContents();
            if (firstErr.empty()) firstOut = out, firstErr = err, firstTree = tree, firstStatus = status;
            EXPECT_EQ(firstOut, out) << mode << jobs;
            EXPECT_EQ(firstErr, err) << mode << jobs;
            EXPECT_EQ(firstStatus, status) << mode << jobs;
            EXPECT_EQ(firstTree, tree) << mode << jobs;
            if (std::string(mode).starts_with("-i")) {
                EXPECT_NE(source, tree);
                run("$F --undo");
            }
            EXPECT_EQ(source, treeContents()) << mode << jobs;
        }
        EXPECT_EQ(2, firstStatus) << mode;
        EXPECT_NE(std::string::npos, firstErr.find("NO_SUCH_KEY")) << mode;
    }
}

TEST_F(CorvaneRunTest, TellsWhatHasBecomeOfTheFiles) {
    dir.file("locked.cpp", ugly);
    fs::permissions(dir.file("locked.cpp"), fs::perms::owner_read);
    const std::string files = " --verbose pretty.cpp bad.cpp empty.cpp gone.cpp ugly.cpp locked.cpp";
    const struct {
        const char* mode;
        const char* summary;
    } cases[] = {
        {"--check", "2 files would change, 2 unchanged, 1 refused, 1 failed in "},
        {"--diff", "2 files would change, 2 unchanged, 1 refused, 1 failed in "},
        {"", "2 files formatted, 2 unchanged, 1 refused, 1 failed in "},
        {"-i", "1 file formatted, 2 unchanged, 1 refused, 2 failed in "},
    };
    for (const auto& [mode, summary] : cases) {
        run("$F " + std::string(mode) + files);
        EXPECT_EQ(0u, err.substr(err.rfind('\n', err.size() - 2) + 1).find(summary)) << err;
    }
    // A file that is to be overwritten fails at once, one that is to be replaced perhaps later: it counts once.
    for (const char* name : {"1.cpp", "2.cpp"}) dir.file(name, "void f( ){\n" + std::string(5000, ';') + "}\n");
    fs::create_hard_link(dir.file("1.cpp"), dir.file("linked.cpp"));
    run("ulimit -f 1; $F --verbose -i 1.cpp 2.cpp");
    EXPECT_NE(std::string::npos, err.find("\n0 files formatted, 0 unchanged, 0 refused, 2 failed in ")) << err;
}

TEST_F(CorvaneRunTest, TellsWhatIsWriteProtected) {
    for (const char* name : {"t/a.cpp", "t/b/c.cpp", "t/b/d.cpp", "t/b/e/f.cpp", "t/g.txt"}) {
        fs::permissions(dir.file(name, ugly), fs::perms(std::string(name) == "t/a.cpp" ? 0644 : 0444));
    }
    fs::permissions(dir.file("t/b/e"), fs::perms(0555));
    const std::string names = "t/b/c.cpp: left out, write-protected\nt/b/d.cpp: left out, write-protected\n";
    const std::string seams = "t/a.cpp: 0 seams mended\n";
    const auto summary = [this] { return err.substr(0, err.find(" in ")) + err.substr(err.find(';')); };
    run("$F -i --verbose t t");
    EXPECT_EQ(names + "t/b/e: left out, write-protected\n" + seams +
              "1 file formatted, 0 unchanged, 0 refused, 0 failed; 3 left out, write-protected\n",
              summary());
    // Who names a file wants it.
    run("$F --check --verbose t t/b/c.cpp --exclude=e --exclude=d.cpp");
    EXPECT_EQ(std::string::npos, err.find("left out")) << err;
    run("$F -i t");
    EXPECT_EQ("", err);
    fs::permissions(dir.file("t/b/e"), fs::perms(0755));
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

TEST_F(CorvaneRunTest, PartsShareATree) {
    for (int number = 0; number < 100; ++number) {
        dir.file("t/" + std::to_string(number % 4) + "/" + std::to_string(number) + ".cpp", ugly);
    }
    std::vector<std::string> all;
    for (const char* part : {"1/3", "2/3", "3/3"}) {
        run(std::string("$F --check t --shard ") + part);
        const std::vector<std::string> lines = linesOf(out);
        EXPECT_LT(20u, lines.size());
        all.insert(all.end(), lines.begin(), lines.end());
        // The same by any other name, and wherever the tree stands.
        const std::string named = out;
        for (const char* command : {"$F --check ./t//", "cd t; $F --check .", "$F --check \"$PWD/t\"",
                                    "rm -rf moved; cp -r t moved; cd moved; $F --check ../moved",
                                    "cd t; ls -d */* | $F --check --files-from -"}) {
            run(std::string(command) + " --shard " + part + " | sed 's,^.*\\([0-9]/[0-9]*.cpp\\)$,t/\\1,'");
            EXPECT_EQ(named, out) << command;
        }
    }
    std::ranges::sort(all);
    EXPECT_EQ(all.end(), std::ranges::adjacent_find(all));
    EXPECT_EQ(100u, all.size());
    run("$F --check t --shard 1/1");
    EXPECT_EQ(100u, linesOf(out).size());
}

// Machines with different versions may share a tree.
TEST(Shard, IsTheSameForEver) {
    EXPECT_TRUE((Console::Shard{2, 4}.holds("")));
    EXPECT_TRUE((Console::Shard{3, 4}.holds("a.cpp")));
    EXPECT_TRUE((Console::Shard{5, 5}.holds("src/main.cpp")));
    EXPECT_TRUE((Console::Shard{4, 7}.holds("n\xff.h")));
}

// A program whose messages go to a pipe that nobody reads for now.
class Child {
public:
    Child(const std::string& directory, std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), CORVANE_FORMAT);
        std::vector<char*> pointers;
        for (std::string& argument : arguments) pointers.push_back(argument.data());
        pointers.push_back(nullptr);
        int ends[2] = {};
        EXPECT_EQ(0, pipe2(ends, O_CLOEXEC));
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addchdir_np(&actions, directory.c_str());
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        EXPECT_EQ(0, posix_spawn(&process_, CORVANE_FORMAT, &actions, nullptr, pointers.data(), environ));
        posix_spawn_file_actions_destroy(&actions);
        close(ends[1]);
        messages_ = ends[0];
    }
    ~Child() { close(messages_); }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    void send(int signal) const { kill(process_, signal); }
    // Waits until something has been told.
    void awaitMessage() {
        char first = 0;
        EXPECT_EQ(1, read(messages_, &first, 1));
        text_ = first;
    }
    // The exit status, once it has ended; `text` gets all its messages.
    int finish(std::string& text) {
        char buffer[4096];
        for (ssize_t count; (count = read(messages_, buffer, sizeof buffer)) > 0;) text_.append(buffer, count);
        text = text_;
        int result = 0;
        waitpid(process_, &result, 0);
        return WIFEXITED(result) ? WEXITSTATUS(result) : -1;
    }

private:
    pid_t process_ = 0;
    int messages_ = -1;
    std::string text_;
};

TEST_F(CorvaneRunTest, ASignalStopsItBehindTheFilesInWork) {
    // More messages than a pipe holds: the program can't come to its end before it is told to stop.
    constexpr int count = 450;
    const std::string name(230, 'd'), folder = "t/" + name + "/" + name + "/" + name;
    for (int number = 0; number < count; ++number)
        dir.file(folder + "/" + std::to_string(10000 + number) + ".cpp", ugly);
    int done = 0;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        Child child(dir.path(), {"-i", "-j2", "--threshold=1", "t"});
        child.awaitMessage();
        child.send(signal);
        child.send(SIGTERM);
        std::string text;
        EXPECT_EQ(128 + signal, child.finish(text));
        const int before = done;
        done = 0;
        bool isBehind = false;
        for (int number = 0; number < count; ++number) {
            const std::string found = contents(dir.file(folder + "/" + std::to_string(10000 + number) + ".cpp"));
            isBehind = isBehind || found == ugly;
            EXPECT_EQ(isBehind ? ugly : pretty, found) << number;
            done += isBehind ? 0 : 1;
        }
        EXPECT_LT(before, done + 1);
        EXPECT_GT(count, done);
        const std::string told = text.substr(text.rfind("Stopped by SIG"));
        EXPECT_NE(std::string::npos, told.find(" of 450 files; the others are as they were.\n")) << told;
        const std::string after = " after " + std::to_string(done) + " of ";
        EXPECT_TRUE(before > 0 || told.find(after) != std::string::npos) << told;
    }
    EXPECT_LT(0, done);
    run("ls -A " + folder + " | grep -v '^1[0-9]*.cpp$'");
    EXPECT_EQ("", out) << "nothing is left behind";

    // The report goes where the messages go, and is whole.
    Child child(dir.path(), {"--check", "--format=checkstyle", "--threshold=1", "t"});
    child.awaitMessage();
    child.send(SIGINT);
    std::string text;
    EXPECT_EQ(128 + SIGINT, child.finish(text));
    const std::size_t told = text.find("Stopped by SIGINT after ");
    ASSERT_NE(std::string::npos, told) << text.substr(text.size() - 100);
    const std::size_t end = text.find("</checkstyle>\n");
    EXPECT_LT(text.find("<checkstyle"), end) << text.substr(text.size() - 100);
    EXPECT_LT(end, told) << text.substr(text.size() - 100);
}

TEST_F(CorvaneRunTest, ASignalThatIsIgnoredStopsNothing) {
    run("trap '' TERM; mkfifo names; $F -i --files-from names & sleep 0.1; { kill $!; echo ugly.cpp; } >names; wait "
        "$!");
    EXPECT_EQ(0, status) << err;
    EXPECT_EQ(pretty, contents(dir.file("ugly.cpp")));
}

// What a terminal gets from a shell command in the directory.
std::string showOnTerminal(const std::string& directory, const std::string& command) {
    int terminal = -1;
    const pid_t process = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (process == 0) {
        const std::string line = "cd '" + directory + "'; F='" + CORVANE_FORMAT + "'; export TERM=xterm; " + command;
        execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
        _exit(127);
    }
    std::string text;
    char buffer[4096];
    for (ssize_t count; (count = read(terminal, buffer, sizeof buffer)) > 0;) text.append(buffer, count);
    close(terminal);
    waitpid(process, nullptr, 0);
    std::erase(text, '\n');  // behind each carriage return
    return text;
}

TEST_F(CorvaneRunTest, ShowsHowFarItIsOnATerminal) {
    const std::string none = showOnTerminal(dir.path(), "$F ugly.cpp; $F --check pretty.cpp 2>err; cat err");
    EXPECT_EQ(std::string("void f( ){\r  g( );\r}\r"), none);
    EXPECT_EQ(0u, showOnTerminal(dir.path(), "$F --check ugly.cpp").find("ugly.cpp\r1 file would change, 0 unchanged"));
    // The line appears in a run that takes its time, here over the list of its files.
    const std::string list =
        "(sleep 0.5; echo ugly.cpp; echo bad.cpp; echo pretty.cpp) | $F --threshold 3 --files-from - ";
    const std::string shown = showOnTerminal(dir.path(), list + "--check");
    EXPECT_EQ(0u, shown.find("ugly.cpp\r\r\x1b[K1 of 3 files, ")) << shown;
    const std::size_t erased = shown.find(
        " left\r\x1b[K"
        "bad.cpp(1) : \x1b[1;31merror:");
    EXPECT_NE(std::string::npos, erased) << shown;
    EXPECT_EQ(std::string::npos, showOnTerminal(dir.path(), "export TERM=dumb; " + list + "-i").find('\x1b'));
}

TEST(ProgressText, TellsWhatIsKnown) {
    using Console::progressText;
    using Seconds = std::chrono::duration<double>;
    EXPECT_EQ("0 of 5 files", progressText({0, 5, 0, 1000}, Seconds(1)));
    EXPECT_EQ("1 of 5 files, 100 kB/s, 0:03 left", progressText({1, 5, 200000, 500000}, Seconds(2)));
    EXPECT_EQ("1 of 9 files, 2.5 MB/s, 1:06:40 left", progressText({1, 9, 5000000, 10005000000}, Seconds(2)));
    EXPECT_EQ("5 of 5 files, 2.5 MB/s", progressText({5, 5, 5000000, 4000000}, Seconds(2)));
}

}  // namespace
