// The batch commands, run by a host that answers from a script and writes down everything that it is asked for. A
// scenario is a file runs/NAME.txt: what it shows, then the script, then what the host is asked for, in order, then the
// files that have been formatted; blank lines part the four. D stands for the directory, which BatchRunTest fills.
#include "batch/BrevisUI_BatchRun.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <sstream>

#include "../support/TestFiles.h"
#include "disk/BrevisUI_Restorer.h"
#include "projects/BrevisUI_ProjectFiles.h"

namespace BrevisUI {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;
using Script = std::map<std::string, std::string>;

constexpr const char* ugly = "void f( ){\n      g( );\n}\n";
constexpr const char* pretty = "void f( ){\n  g( );\n}\n";

class ScriptedHost : public BatchHost {
public:
    class Dialog : public BatchProgressDlg {
    public:
        explicit Dialog(ScriptedHost& host) : host_(host) { host_.log("dialog: open"); }
        ~Dialog() override { host_.log("dialog: closed"); }
        bool isCancelled() const override { return host_.isCancelled; }
        void resetBar() override {}
        void show(const std::string& text, bool step) override {
            if (!step) host_.log("dialog: " + text);
        }
        void showBar(bool visible) override { host_.log(visible ? "dialog: bar" : "dialog: no bar"); }

    private:
        ScriptedHost& host_;
    };

    void log(const std::string& line) { transcript += line + "\n"; }

    void send(const std::string& text, int severity) override { log(std::to_string(severity) + ": " + text); }
    void alert(const std::string& text) override { log("alert: " + text); }
    void letUserInterfaceRun() override {
        ++breaths;
        if (onBreath) onBreath();
        if (breaths == cancelAtBreath) isCancelled = true;
    }
    bool createBackups() const override { return false; }
    std::string backupExtension() const override { return "bak"; }

    Lines chooseFiles(const FileChoice& choice) override {
        log((choice.several ? "choose several: " : "choose: ") + choice.filter + " in " + choice.directory);
        return chosen;
    }
    std::optional<std::string> chooseFolder(std::string_view title, const std::string& directory) override {
        log("choose folder: " + std::string(title) + " in " + directory);
        return chosen.empty() ? std::nullopt : std::optional(chosen.front());
    }
    Answer ask(const std::string& question) override {
        log("ask: " + question);
        return answer;
    }
    void show(std::string_view text) override { log("show: " + std::string(text)); }
    void clearMessages() override { log("clear messages"); }
    void setBusy() override { log("status: busy"); }
    void setReady() override { log("status: ready"); }
    void setStatusText(const std::string& text) override { log("status: " + text); }
    void setOverallRange(int count) override { log("overall: of " + std::to_string(count)); }
    void advanceOverall() override { log("overall: on"); }
    void showWaitCursor(bool visible) override { log(visible ? "cursor: wait" : "cursor: arrow"); }
    std::unique_ptr<BatchProgressDlg> createProgress() override { return std::make_unique<Dialog>(*this); }
    std::string lastDirectory() const override { return "/last"; }
    void setLastDirectory(const std::string& directory) override { log("last directory: " + directory); }
    Lines extensions() const override { return {"c", "h"}; }
    std::string cacheDirectory() const override { return cache; }
    const Brevis::PropertySet* scheme() const override { return hasScheme ? &schemeInForce : nullptr; }

    Lines chosen;
    std::string cache;
    Answer answer = Answer::Yes;
    int cancelAtBreath = 0, breaths = 0;
    bool isCancelled = false, hasScheme = true;
    Brevis::PropertySet schemeInForce{"%s two"};
    std::function<void()> onBreath;
    std::string transcript;
};

class NoProjects : public ProjectSource {
public:
    void setWorkspace(const std::string&) override {}
    void refresh() override {}
    const ProjectList& list() const override { return list_; }

private:
    ProjectList list_;
};

class BatchRunTest : public testing::Test {
protected:
    BatchRunTest() {
        host.schemeInForce.setString("INDENT_FN_CONTENT", "  ");
        host.cache = dir.file("cache");
        for (const char* name : {"one/a.c", "one/b.rc", "one/c.h", "two/a.c", "two/b.rc", "two/c.h", "odd.txt", "x.C",
                                 "tree/.d/a.c", "tree/d/a.c", "tree/d/text", "nothing/text"}) {
            dir.file(name, ugly);
        }
        const std::string project =
            "# Microsoft Developer Studio\nSOURCE=gone.c\nSOURCE=a.c\nSOURCE=b.rc\nSOURCE=c.h\n";
        dir.file("one/one.dsp", project);
        dir.file("two/two.dsp", project);
        dir.file("bad.dsp", "\nint x;\n");
        dir.file("all.dsw",
                 "Microsoft Developer Studio Workspace File\nProject: \"1\"=one\\one.dsp\n"
                 "Project: \"gone\"=gone.dsp\nProject: \"2\"=two\\two.dsp\n");
    }

    void start(BatchRun& batch, const std::string& command) {
        if (command == "files") batch.formatFiles();
        if (command == "project") batch.formatProject();
        if (command == "workspace") batch.formatWorkspace();
        if (command == "tree") batch.formatDirectoryTree();
        EXPECT_NE("", host.transcript) << command;
    }
    std::string play(Script script) {
        host.answer = script["answer"] == "no"       ? Answer::No
                      : script["answer"] == "cancel" ? Answer::Cancel
                                                     : Answer::Yes;
        host.hasScheme = script["scheme"] != "none";
        host.cancelAtBreath = std::atoi(script["cancel at breath"].c_str());
        std::istringstream names(script["choose"]);
        for (std::string name; names >> name;) host.chosen.push_back(dir.file(name));
        const std::map<std::string, ProjectSource*> sources{{"", &files}, {"none", &none}, {"absent", nullptr}};
        BatchRun batch(host, sources.at(script["projects"]));
        start(batch, script["command"]);
        EXPECT_FALSE(batch.isBusy());
        return host.transcript + "\n" + formatted();
    }
    std::string formatted() const {
        Lines names;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(dir.path())) {
            const std::string path = entry.path().string();
            if (entry.is_regular_file() && TestFiles::contents(path) == pretty) names.push_back(path + "\n");
        }
        std::ranges::sort(names);
        std::string all;
        for (const std::string& name : names) all += name;
        return all;
    }

    TestFiles::TempDir dir;
    ScriptedHost host;
    ProjectFiles files;
    NoProjects none;
};

class Scenario : public BatchRunTest, public testing::WithParamInterface<std::string> {};

TEST_P(Scenario, AsksTheHostInOrder) {
    std::ifstream in(CORVANE_SOURCE_DIR "/tests/BrevisConfigure/runs/" + GetParam() + ".txt");
    Script script;
    std::string line;
    while (std::getline(in, line) && !line.empty()) continue;
    while (std::getline(in, line) && !line.empty()) {
        const std::size_t colon = line.find(": ");
        script[line.substr(0, colon)] = line.substr(colon + 2);
    }
    std::string found = play(script);
    for (std::size_t at; (at = found.find(dir.path())) != std::string::npos;) found.replace(at, dir.path().size(), "D");
    const std::string expected{std::istreambuf_iterator<char>(in), {}};
    EXPECT_EQ(expected, found);
}

Lines scenarios() {
    Lines names;
    for (const fs::directory_entry& entry : fs::directory_iterator(CORVANE_SOURCE_DIR "/tests/BrevisConfigure/runs")) {
        names.push_back(entry.path().stem().string());
    }
    std::ranges::sort(names);
    return names;
}
INSTANTIATE_TEST_SUITE_P(BatchRun, Scenario, testing::ValuesIn(scenarios()),
                         [](const auto& info) { return info.param; });

// The settings may lose the scheme while a run is under way; it goes on with the one that it began with.
TEST_F(BatchRunTest, EventsBetweenFilesCannotDisturbARun) {
    BatchRun batch(host, &files);
    host.chosen = {dir.file("one/one.dsp")};
    int refused = 0;
    host.onBreath = [&] {
        const std::string before = host.transcript;
        for (const char* command : {"files", "project", "workspace", "tree"}) start(batch, command);
        refused += batch.isBusy() && host.transcript == before;
        host.schemeInForce.setString("INDENT_FN_CONTENT", "\t");
        host.hasScheme = false;
    };
    batch.formatProject();
    EXPECT_EQ(host.breaths, refused);
    EXPECT_LT(4, refused);
    EXPECT_EQ(pretty, TestFiles::contents(dir.file("one/c.h")));
}

// Also of one that ends early.
TEST_F(BatchRunTest, TheFilesOfACommandAreOneRun) {
    BatchRun batch(host, &files);
    const struct {
        std::string command;
        Lines chosen;
        int cancelAtBreath;
    } cases[] = {{"files", {dir.file("one/a.c"), dir.file("one/c.h"), dir.file("odd.txt")}, 0},
                 {"project", {dir.file("one/one.dsp")}, 0},
                 {"workspace", {dir.file("all.dsw")}, 0},
                 {"workspace", {dir.file("all.dsw")}, 15},
                 {"tree", {dir.path()}, 0}};
    FileSystem system;
    const RunStore store(system, host.cache);
    std::size_t runs = 0;
    for (const auto& [command, chosen, cancelAtBreath] : cases) {
        host.chosen = chosen;
        host.answer = command == "files" ? Answer::No : Answer::Yes;
        host.breaths = 0;
        host.isCancelled = false;
        host.cancelAtBreath = cancelAtBreath;
        start(batch, command);
        EXPECT_EQ(cancelAtBreath > 0, host.isCancelled);
        EXPECT_EQ(pretty, TestFiles::contents(dir.file("one/c.h"))) << command;
        EXPECT_EQ(++runs, store.runs().size()) << command;
        EXPECT_TRUE(Restorer(system, store, [](const std::string&, Restorer::News) {}, [] { return false; }).undo());
        EXPECT_EQ("", formatted()) << command;
    }
}

// A file that can't be replaced is told in front of the end.
TEST_F(BatchRunTest, LateFailuresAreTold) {
    BatchRun batch(host, &files);
    host.chosen = {dir.file("one/one.dsp")};
    host.onBreath = [&] {
        const bool isBehind = host.transcript.find("2 of 4") != std::string::npos;
        if (isBehind && host.transcript.ends_with("overall: on\n")) TestFiles::write(dir.file("one/a.c"), "int x;\n");
    };
    batch.formatProject();
    const std::string late = "3: The file \"" + dir.file("one/a.c") +
                             "\" has changed since it was read. The file will not be formatted.\n"
                             "1: Finished formatting project.\n";
    EXPECT_NE(std::string::npos, host.transcript.find(late)) << host.transcript;
    EXPECT_EQ("int x;\n", TestFiles::contents(dir.file("one/a.c")));
    EXPECT_EQ(pretty, TestFiles::contents(dir.file("one/c.h")));
}

TEST_F(BatchRunTest, TheLastDirectoryIsThatOfThePath) {
    const std::pair<std::string, std::string> cases[] = {{"/a/b.c", "/a"}, {"/a/b/", "/a/b"}, {"/b.c", "/"},
                                                         {"/", "/"},       {"b.c", ""},       {dir.path(), dir.path()}};
    for (const auto& [path, expected] : cases) EXPECT_EQ(expected, directoryOf(path)) << path;
}

}  // namespace
}  // namespace BrevisUI
