// The batch commands, run by a host that answers from a script and writes down everything that it is asked for.
#include "batch/BrevisUI_BatchRun.h"

#include <gtest/gtest.h>

#include <functional>

#include "../support/TestFiles.h"
#include "BrevisUI_Messages.h"
#include "batch/BrevisUI_BatchMessages.h"
#include "projects/BrevisUI_ProjectFiles.h"

namespace BrevisUI {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

constexpr const char* ugly = "void f( ){\n      g( );\n}\n";
constexpr const char* pretty = "void f( ){\n  g( );\n}\n";
const std::string cancelled = "1 Format operation cancelled at user's request.";
const std::string noProject =
    "Corvane C++ was unable to find an active project in the currently loaded workspace. Please set a project to be "
    "active before trying this command again.";

class ScriptedHost : public BatchHost {
public:
    class Dialog : public BatchProgressDlg {
    public:
        explicit Dialog(ScriptedHost& host) : host_(host) { host_.log.push_back("dialog"); }
        ~Dialog() override { host_.log.push_back("dialog removed"); }
        bool isCancelled() const override { return host_.isCancelled; }
        void resetBar() override {}
        void show(const std::string& text, bool step) override {
            if (!step) host_.log.push_back("dialog: " + text);
        }
        void showBar(bool visible) override { host_.log.push_back(visible ? "bar" : "no bar"); }

    private:
        ScriptedHost& host_;
    };

    // The first message of each file job is left out.
    void send(const std::string& text, int severity) override {
        if (!text.starts_with("Formatting \"")) log.push_back(std::to_string(severity) + " " + text);
    }
    void alert(const std::string& text) override { log.push_back("alert: " + text); }
    void letUserInterfaceRun() override {
        ++breaths;
        if (onBreath) onBreath();
        if (breaths == cancelAtBreath) isCancelled = true;
    }
    bool createBackups() const override { return false; }
    std::string backupExtension() const override { return "bak"; }

    Lines chooseFiles(const FileChoice& choice) override {
        if (onBreath) onBreath();
        log.push_back((choice.several ? "choose several: " : "choose: ") + choice.filter + " in " + choice.directory);
        return chosen;
    }
    std::optional<std::string> chooseFolder(std::string_view title, const std::string& directory) override {
        log.push_back(std::string(title) + " in " + directory);
        return chosen.empty() ? std::nullopt : std::optional(chosen.front());
    }
    Answer ask(const std::string& question) override {
        log.push_back("ask: " + question);
        return answer;
    }
    void show(std::string_view text) override { log.push_back("show: " + std::string(text)); }
    void clearMessages() override { log.push_back("clear"); }
    void setBusy() override { log.push_back("busy"); }
    void setReady() override { log.push_back("ready"); }
    void setStatusText(const std::string& text) override { log.push_back(text); }
    void setOverallRange(int count) override { log.push_back("range " + std::to_string(count)); }
    void advanceOverall() override { log.push_back("advance"); }
    void showWaitCursor(bool visible) override { log.push_back(visible ? "wait" : "wait no more"); }
    std::unique_ptr<BatchProgressDlg> createProgress() override { return std::make_unique<Dialog>(*this); }
    std::string lastDirectory() const override { return "/last"; }
    void setLastDirectory(const std::string& directory) override { log.push_back("last: " + directory); }
    Lines extensions() const override { return {"c", "h"}; }
    const Brevis::PropertySet* scheme() const override { return hasScheme ? &scheme_ : nullptr; }

    void setIndent(const std::string& blanks) { scheme_.setString("INDENT_FN_CONTENT", blanks); }

    Lines chosen, log;
    Answer answer = Answer::Yes;
    int cancelAtBreath = -1;
    int breaths = 0;
    bool isCancelled = false, hasScheme = true;
    std::function<void()> onBreath;

private:
    Brevis::PropertySet scheme_{"%s two"};
};

class BatchRunTest : public testing::Test {
protected:
    BatchRunTest() { host.setIndent("  "); }

    using Command = void (BatchRun::*)();
    Lines run(Command command) {
        host.log.clear();
        host.breaths = 0;
        host.isCancelled = false;
        (batch.*command)();
        EXPECT_FALSE(batch.isBusy());
        return host.log;
    }
    static std::string question(const std::string& what, const std::string& path) {
        return "ask: You have chosen to format all C/C++ files " + what + " \"" + path +
               "\". Are you sure you wish to continue?";
    }
    static std::string using2(const std::string& what, const std::string& path) {
        return "1 Formatting " + what + " \"" + path + "\" using scheme \"%s two\".";
    }
    static Lines joined(std::initializer_list<Lines> parts) {
        Lines all;
        for (const Lines& part : parts) all.insert(all.end(), part.begin(), part.end());
        return all;
    }
    static Lines fileSteps(const std::string& number) { return {"Formatting file " + number, "advance"}; }
    // A project with a file of each kind; the second doesn't belong to the target.
    std::string project(const std::string& name) {
        for (const char* file : {"a.c", "c.c"}) dir.file(name + "/" + file, ugly);
        dir.file(name + "/b.rc", ugly);
        return dir.file(name + "/" + name + ".dsp",
                        "# Microsoft Developer Studio Project File\nSOURCE=a.c\nSOURCE=b.rc\nSOURCE=c.c\n");
    }

    TestFiles::TempDir dir;
    ScriptedHost host;
    ProjectFiles projects;
    BatchRun batch{host, &projects};
};

constexpr const char* chooseProject = "choose: MS Visual Studio Project Files (*.dsp)|*.dsp|| in /last";
constexpr const char* chooseWorkspace = "choose: MS Visual Studio Workspace Files (*.dsw)|*.dsw|| in /last";
constexpr const char* chooseSources = "choose several: C++ Source Files|*.c;*.h|| in /last";
constexpr const char* chooseFolder = "Select folder for formatting... in /last";

TEST_F(BatchRunTest, EachCommandNeedsASchemeAndAChoice) {
    const std::pair<Command, const char*> commands[] = {{&BatchRun::formatFiles, chooseSources},
                                                        {&BatchRun::formatProject, chooseProject},
                                                        {&BatchRun::formatWorkspace, chooseWorkspace},
                                                        {&BatchRun::formatDirectoryTree, chooseFolder}};
    for (const auto& [command, choice] : commands) {
        host.hasScheme = true;
        EXPECT_EQ(Lines{choice}, run(command));
        host.hasScheme = false;
        EXPECT_EQ(Lines{"show: You have not selected a scheme to use when formatting. Please indicate via the Corvane "
                        "C++ Options dialog which Scheme you wish to use when formatting before attempting to format "
                        "again."},
                  run(command));
    }
}

TEST_F(BatchRunTest, ChosenFilesAreFormattedUpToTheFirstUnwantedOne) {
    const std::string one = dir.file("d/one.C", ugly), odd = dir.file("e/odd.txt", ugly), two = dir.file("two.h", ugly);
    host.chosen = {one, odd, two};
    const std::string question = "The file \"" + odd +
                                 "\" does not have a file extension registered with Corvane as valid for formatting. "
                                 "Format the file anyway?";
    for (const Answer answer : {Answer::No, Answer::Cancel}) {
        host.answer = answer;
        EXPECT_EQ((Lines{chooseSources, "wait", "busy", "ask: " + question, "3 " + question, "last: " + dir.file("e"),
                         "ready", "wait no more"}),
                  run(&BatchRun::formatFiles));
    }
    EXPECT_EQ(pretty, TestFiles::contents(one));
    EXPECT_EQ(ugly, TestFiles::contents(odd));
    EXPECT_EQ(ugly, TestFiles::contents(two));

    host.answer = Answer::Yes;
    EXPECT_EQ((Lines{chooseSources, "wait", "busy", "ask: " + question, "busy", "busy", "last: " + dir.path(), "ready",
                     "wait no more"}),
              run(&BatchRun::formatFiles));
    EXPECT_EQ(pretty, TestFiles::contents(odd));
    EXPECT_EQ(pretty, TestFiles::contents(two));
    EXPECT_EQ(0, host.breaths);
}

TEST_F(BatchRunTest, AProjectSkipsWhatDoesNotBelongAndCountsIt) {
    const std::string path = project("p");
    host.chosen = {path};
    const Lines start{chooseProject, "wait", "clear", question("in the project", path)};
    host.answer = Answer::No;
    EXPECT_EQ(joined({start, {"wait no more"}}), run(&BatchRun::formatProject));
    EXPECT_EQ(ugly, TestFiles::contents(dir.file("p/a.c")));

    host.answer = Answer::Yes;
    const Lines begin = joined({start, {using2("project", path), "busy", "range 3", "dialog"}});
    const Lines end{"dialog removed", "last: " + dir.file("p"), "ready", "wait no more"};
    EXPECT_EQ(joined({begin, fileSteps("1 of 3"), fileSteps("3 of 3"), {"1 Finished formatting project."}, end}),
              run(&BatchRun::formatProject));
    for (const char* file : {"p/a.c", "p/c.c"}) EXPECT_EQ(pretty, TestFiles::contents(dir.file(file)));
    EXPECT_EQ(ugly, TestFiles::contents(dir.file("p/b.rc")));

    // The second breath is that of the first job, which ends with it, the fourth that of the file which is skipped.
    for (const int breath : {2, 3, 4}) {
        host.cancelAtBreath = breath;
        EXPECT_EQ(joined({begin, fileSteps("1 of 3"), {cancelled}, end}), run(&BatchRun::formatProject)) << breath;
    }
    host.cancelAtBreath = 1;
    EXPECT_EQ(joined({begin, {cancelled}, end}), run(&BatchRun::formatProject));
    // In the last job it is too late for one message and too early for the other.
    host.cancelAtBreath = 6;
    EXPECT_EQ(joined({begin, fileSteps("1 of 3"), fileSteps("3 of 3"), end}), run(&BatchRun::formatProject));
}

TEST_F(BatchRunTest, AWorkspaceRunsOnThroughItsProjects) {
    const std::string one = project("one"), two = project("two");
    const std::string path = dir.file("all.dsw",
                                      "Microsoft Developer Studio Workspace File\nProject: \"1\"=one\\one.dsp\n"
                                      "Project: \"gone\"=gone.dsp\nProject: \"2\"=two\\two.dsp\n");
    host.chosen = {path};
    const Lines start{chooseWorkspace, question("in the workspace", path)};
    host.answer = Answer::Cancel;
    EXPECT_EQ(start, run(&BatchRun::formatWorkspace));

    host.answer = Answer::Yes;
    const std::string gone = "3 " + path + "(3) : error: The project \"" + dir.file("gone.dsp") + "\" cannot be found.";
    const Lines begin =
        joined({start, {"busy", "wait", "clear", gone, "range 6", "dialog", using2("workspace", path)}});
    const Lines first = joined({{using2("project", one)}, fileSteps("1 of 6"), fileSteps("3 of 6")});
    const Lines end{"dialog removed", "last: " + dir.path(), "wait no more", "ready"};
    EXPECT_EQ(joined({begin,
                      first,
                      {using2("project", two)},
                      fileSteps("4 of 6"),
                      fileSteps("6 of 6"),
                      {"1 Finished formatting workspace."},
                      end}),
              run(&BatchRun::formatWorkspace));
    EXPECT_EQ(pretty, TestFiles::contents(dir.file("two/c.c")));

    // One breath for each entry and file, and two for each job.
    const std::pair<int, Lines> cancels[] = {{1, {}}, {10, first}, {11, joined({first, {using2("project", two)}})}};
    for (const auto& [breath, steps] : cancels) {
        host.cancelAtBreath = breath;
        Lines until = begin;
        if (breath == 1) until.pop_back();
        EXPECT_EQ(joined({until, steps, {cancelled}, end}), run(&BatchRun::formatWorkspace)) << breath;
    }
}

TEST_F(BatchRunTest, WithoutProjectsTheTwoCommandsEndEarly) {
    BatchRun without(host, nullptr);
    host.chosen = {project("p")};
    without.formatProject();
    EXPECT_EQ((Lines{chooseProject, "wait", "wait no more"}), host.log);
    host.log.clear();
    without.formatWorkspace();
    EXPECT_EQ(
        (Lines{chooseWorkspace, question("in the workspace", host.chosen[0]), "busy", "wait", "wait no more", "ready"}),
        host.log);
}

TEST_F(BatchRunTest, TellsWhatAProjectFileLacks) {
    const std::string bad = dir.file("bad.dsp", "\nint x;\n");
    const std::string error = bad + "(2) : error: The file is not a Developer Studio project.";
    host.chosen = {bad};
    EXPECT_EQ((Lines{chooseProject, "wait", "clear", "alert: " + error, "3 " + error, "wait no more"}),
              run(&BatchRun::formatProject));
    EXPECT_EQ((Lines{chooseWorkspace, question("in the workspace", bad), "busy", "wait", "clear", "alert: " + error,
                     "3 " + error, "wait no more", "ready"}),
              run(&BatchRun::formatWorkspace));

    class Nothing : public ProjectSource {
    public:
        void setWorkspace(const std::string&) override {}
        void refresh() override {}
        const ProjectList& list() const override { return list_; }

    private:
        ProjectList list_;
    } nothing;
    host.log.clear();
    BatchRun(host, &nothing).formatProject();
    EXPECT_EQ((Lines{chooseProject, "wait", "clear", "show: " + noProject, "3 " + noProject, "wait no more"}),
              host.log);
}

TEST_F(BatchRunTest, ADirectoryTreeIsCountedAndThenFormatted) {
    const std::string file = dir.file("t/d/a.c", ugly), hidden = dir.file("t/.d/b.c", ugly);
    dir.file("t/d/text.txt", ugly);
    const std::string top = dir.file("t");
    host.chosen = {top};
    const Lines start{chooseFolder, "clear", question("under the directory tree", top)};
    host.answer = Answer::No;
    EXPECT_EQ(start, run(&BatchRun::formatDirectoryTree));

    host.answer = Answer::Yes;
    const Lines begin = joined({start,
                                {"wait", using2("files under directory", top), "busy", "dialog", "no bar",
                                 "dialog: Creating the list of C/C++ files in the directory tree " + top}});
    const std::string finished = "1 Finished formatting directory tree.";
    const Lines end{"last: " + top, "ready", "dialog removed", "wait no more"};
    EXPECT_EQ(joined({begin, {"Adding " + file, "bar", "range 1"}, fileSteps("1 of 1"), {finished}, end}),
              run(&BatchRun::formatDirectoryTree));
    EXPECT_EQ(pretty, TestFiles::contents(file));
    EXPECT_EQ(ugly, TestFiles::contents(hidden));

    host.cancelAtBreath = 1;
    EXPECT_EQ(joined({begin, {"bar", "range 0", cancelled}, end}), run(&BatchRun::formatDirectoryTree));
    host.cancelAtBreath = -1;
    fs::remove_all(dir.file("t/d"));
    EXPECT_EQ(joined({begin, {"bar", "range 0", finished}, end}), run(&BatchRun::formatDirectoryTree));
}

// The settings may lose the scheme while a run is under way; it goes on with the one that it began with.
TEST_F(BatchRunTest, EventsBetweenFilesCannotDisturbARun) {
    const std::string path = project("p");
    host.chosen = {path};
    int refused = 0;
    host.onBreath = [&] {
        if (!batch.isBusy()) return;  // the choice comes first
        const Lines before = host.log;
        for (const Command command : {&BatchRun::formatFiles, &BatchRun::formatProject, &BatchRun::formatWorkspace,
                                      &BatchRun::formatDirectoryTree}) {
            (batch.*command)();
        }
        refused += host.log == before;
        host.setIndent("\t");
        host.hasScheme = false;
    };
    run(&BatchRun::formatProject);
    EXPECT_EQ(host.breaths, refused);
    EXPECT_EQ(7, refused);
    EXPECT_EQ(pretty, TestFiles::contents(dir.file("p/c.c")));
}

TEST_F(BatchRunTest, AFileThatFailsEndsOnlyItself) {
    const std::string path = dir.file("p.dsp", "# Microsoft Developer Studio\nSOURCE=gone.c\nSOURCE=a.c\n");
    dir.file("a.c", ugly);
    host.chosen = {path};
    const Lines log = run(&BatchRun::formatProject);
    EXPECT_EQ(1, std::count(log.begin(), log.end(), "3 The file \"" + dir.file("gone.c") + "\" cannot be found."));
    EXPECT_EQ(2, std::count(log.begin(), log.end(), "advance"));
    EXPECT_EQ(pretty, TestFiles::contents(dir.file("a.c")));
}

TEST(BatchPaths, TheLastDirectoryIsThatOfThePath) {
    const TestFiles::TempDir dir;
    const std::pair<std::string, std::string> cases[] = {
        {"/a/b.c", "/a"},
        {"/a/b/", "/a/b"},
        {"/b.c", "/"},
        {"/", "/"},
        {"b.c", ""},
        {dir.path(), dir.path()},
        {dir.path() + "/", dir.path()},
    };
    for (const auto& [path, expected] : cases) EXPECT_EQ(expected, directoryOf(path)) << path;
}

}  // namespace
}  // namespace BrevisUI
