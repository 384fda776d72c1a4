// corvane-format with --lines, --git and --format, as a user runs it, and the reader of git's diffs.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>

#include "../support/TestFiles.h"
#include "Console_GitDiff.h"

namespace {

using TestFiles::contents;

constexpr const char* source = "void f( ){\n    g( );\n    h( );\n}\n";

class ChangedLinesTest : public testing::Test {
protected:
    ChangedLinesTest() {
        dir.file(".corvane.fsc", "Brevis::PropertySet\n1\n\"two\"\n3 INDENT_FN_CONTENT \"  \"\n");
        setenv("XDG_CACHE_HOME", dir.file("../corvane-test-cache").c_str(), 1);
        setenv("GIT_CONFIG_GLOBAL", "/dev/null", 1);
    }

    // Runs a shell command in the directory, $F being the program and `git` one that needs no configuration.
    void run(const std::string& command) {
        const std::string line = "cd '" + dir.path() +
                                 "' && export XDG_DATA_HOME=\"$PWD/../d\" XDG_CONFIG_HOME=\"$PWD/../c\" F='" +
                                 CORVANE_FORMAT "'; git() { command git -c user.name=n -c user.email=e \"$@\"; }; { " +
                                 command + "; } >'" + dir.file(".git-out") + "' 2>'" + dir.file(".git-err") + "'";
        const int result = std::system(line.c_str());
        status = WIFEXITED(result) ? WEXITSTATUS(result) : -1;
        out = contents(dir.file(".git-out"));
        err = contents(dir.file(".git-err"));
    }

    TestFiles::TempDir dir;
    int status = -1;
    std::string out, err;
};

TEST_F(ChangedLinesTest, TakesTheLinesThatAreNamed) {
    dir.file("a.cpp", source);
    run("$F --lines 3:3 a.cpp");
    EXPECT_EQ("void f( ){\n    g( );\n  h( );\n}\n", out) << err;
    run("$F --lines 3:3 --check .");
    EXPECT_EQ(2, status);
    EXPECT_EQ("\".\" is a directory: --lines takes a file.\n", err);
    run("$F --lines 1:1 --lines 4:9 --check a.cpp");
    EXPECT_EQ(0, status) << out;
    run("$F --lines 2:2 --no-verify -i a.cpp && cat a.cpp && $F --lines 3:3 < a.cpp");
    EXPECT_EQ("void f( ){\n  g( );\n    h( );\n}\nvoid f( ){\n  g( );\n  h( );\n}\n", out) << err;
    for (const char* bad : {"--lines 0:1 a.cpp", "--lines 2 a.cpp", "--lines 3:2 a.cpp", "--lines 1:2x a.cpp",
                            "--lines 1:2 a.cpp a.cpp", "--git --lines 1:2 a.cpp", "--staged a.cpp", "--git -", "--git",
                            "--format gcc a.cpp", "--check --diff --format gcc a.cpp"}) {
        run(std::string("$F ") + bad);
        EXPECT_EQ(2, status) << bad;
        EXPECT_NE(std::string::npos, err.find("--help")) << err;
    }
}

// Under a scheme of the second edition a change needs no other one.
TEST_F(ChangedLinesTest, TakesTheGapsThatLieInTheLines) {
    dir.file(".corvane.fsc",
             "Brevis::PropertySet\n1\n\"two\"\n2 EDITION 2\n3 WS_BEFORE_FN_OPEN_BRACE \" \"\n"
             "3 WS_AFTER_FN_OPEN_BRACE \"\\n\"\n3 INDENT_FN_CONTENT \"  \"\n");
    dir.file("a.cpp", "void f( )\n{ g( );\n    h( );\n}\n");
    run("$F --lines 2:2 a.cpp && $F --lines 1:2 a.cpp && $F --lines 3:3 a.cpp");
    EXPECT_EQ(
        "void f( )\n{\n  g( );\n    h( );\n}\n"
        "void f( ) {\n  g( );\n    h( );\n}\n"
        "void f( )\n{ g( );\n  h( );\n}\n",
        out)
        << err;
}

TEST_F(ChangedLinesTest, TakesTheLinesThatGitKnowsAsChanged) {
    run("git init -q . && $F --git --check");
    EXPECT_EQ(0, status) << err;
    for (const char* name : {"same.cpp", "s p/\"q\" \xc3\xa4\t.cpp", "old.cpp", "staged.cpp", "text.txt"})
        dir.file(name, source);
    run("printf '/gone.cpp\\n.git-*\\n' >.gitignore; git add -A && $F --git -i --diff=x; git commit -qm first");
    EXPECT_EQ(0, status) << err;
    const std::string edit = "sed -i '2s/g/ k/' ";
    run("git config diff.noprefix true; git config diff.context 9; git config diff.interHunkContext 9; git config "
        "color.ui always;" +
        edit + "s*/* staged.cpp text.txt && git mv old.cpp new.cpp && " + edit +
        "new.cpp && git add staged.cpp new.cpp && sed -i '1i int  i;' staged.cpp && sed -i '2s/k/l/' new.cpp");
    dir.file("gone.cpp", source);
    dir.file("untracked.cpp", source);
    run("$F --git --check");
    EXPECT_EQ("new.cpp\ns p/\"q\" \xc3\xa4\t.cpp\nstaged.cpp\nuntracked.cpp\n", out) << err;
    run("cd 's p' && $F --git --check ../same.cpp ../gone.cpp .");
    EXPECT_EQ("../gone.cpp\n./\"q\" \xc3\xa4\t.cpp\n", out) << err;
    // The line of new.cpp has changed since it was staged, that of staged.cpp has moved.
    run("$F --git --staged --check");
    EXPECT_EQ("staged.cpp\n", out) << err;
    run("$F --git --staged -i && cat staged.cpp");
    EXPECT_EQ("int  i;\nvoid f( ){\n  k( );\n    h( );\n}\n", out) << err;
    run("$F --git -i && cat new.cpp s*/* && git diff --quiet HEAD -- same.cpp");
    EXPECT_EQ(0, status) << err;
    EXPECT_EQ("void f( ){\n  l( );\n    h( );\n}\nvoid f( ){\n  k( );\n    h( );\n}\n", out);
    run("$F --git=--output=x --check; $F --git=nothing --check");
    EXPECT_EQ(2, status);
    EXPECT_NE(std::string::npos, err.find("no revision \"nothing\"")) << err;
    run("cd / && $F --git --check \"$OLDPWD/same.cpp\" /etc/passwd");
    EXPECT_NE(std::string::npos, err.find("\"/etc\" is in no work tree of git.")) << err;
}

// What a file was called before may lie elsewhere in the tree.
TEST_F(ChangedLinesTest, AsksGitAboutTheNamedFilesAlone) {
    for (const char* name : {"old.cpp", "moved.cpp", "*.cpp", "b/same.cpp", "b/other.cpp"}) {
        dir.file(name, source + std::string("// ") + name);
    }
    run("git init -q . && git add -A && git commit -qm first && sed -i '2s/g/ k/' *.cpp b/other.cpp && git mv old.cpp "
        "new.cpp && git checkout -q moved.cpp && git mv moved.cpp pure.cpp && git add -A");
    ASSERT_EQ(0, status) << err;
    run("export GIT_TRACE=\"$PWD/.git-trace\"; $F --git --check '*.cpp'; grep -E 'diff -U|ls-files' .git-trace | "
        "grep -vc \"'[*].cpp'$\"");
    EXPECT_EQ("*.cpp\n0\n", out) << contents(dir.file(".git-trace"));
    for (const std::string option : {"--git", "--git --staged"}) {
        run("$F " + option + " --check pure.cpp new.cpp b && $F " + option + " --diff new.cpp | grep -c '^+ '");
        EXPECT_EQ("new.cpp\nb/other.cpp\n", out) << err;
        run("$F " + option + " --diff new.cpp | grep -c '^+ '");
        EXPECT_EQ("1\n", out) << err;
    }
}

TEST(GitDiff, ReadsNamesAndHunks) {
    const auto files = Console::parseGitDiff(
        "diff --git a/x b/x\nindex 1..2 100644\n--- a/x\n+++ b/x\n@@ -3 +3,2 @@ int +++ b/z\n--- a/y\n+++ b/y\n+@@ -1 "
        "+1 @@\n"
        "\\ No newline at end of file\n@@ -9,2 +9,0 @@\n-a\n-b\n"
        "diff --git a/b b/b\nBinary files a/b and b/b differ\n"
        "diff --git a/g b/g\ndeleted file mode 100644\n--- a/g\n+++ /dev/null\n@@ -1 +0,0 @@\n-g\n"
        "diff --git \"a/\\303\\244\\\"\" \"b/\\303\\244\\\"\"\n--- \"a/\\303\\244\\\"\"\n+++ \"b/\\303\\244\\\"\"\n@@ "
        "-0,0 +1 @@\n+g\n"
        "diff --git a/s p b/s p\n--- a/s p\t\n+++ b/s p\t\n@@ -1 +1 @@\n-g\n+h\n");
    ASSERT_EQ(3u, files.size());
    EXPECT_EQ("x", files[0].name);
    ASSERT_EQ(2u, files[0].hunks.size());
    EXPECT_TRUE(Console::newLines(files[0].hunks).hasAll(3, 4));
    EXPECT_FALSE(Console::newLines(files[0].hunks).has(9));
    EXPECT_EQ("\xc3\xa4\"", files[1].name);
    EXPECT_EQ("s p", files[2].name);
}

TEST(GitDiff, MapsLinesThroughHunks) {
    // Two lines come in behind line 2, line 5 changes, lines 8 and 9 go.
    const std::vector<Console::GitHunk> hunks = {{2, 0, 3, 2}, {5, 1, 7, 1}, {8, 2, 9, 0}};
    const struct {
        std::size_t before, after;  // 0: is gone
    } cases[] = {{1, 1}, {2, 2}, {3, 5}, {4, 6}, {5, 0}, {6, 8}, {7, 9}, {8, 0}, {9, 0}, {10, 10}, {11, 11}};
    for (const auto& [before, after] : cases) {
        BrevisUI::LineSet lines;
        lines.add(before, before);
        const BrevisUI::LineSet mapped = Console::mapLines(lines, hunks);
        EXPECT_EQ(after, mapped.empty() ? 0 : mapped.ranges().front().first) << before;
    }
}

TEST_F(ChangedLinesTest, ReportsForOtherTools) {
    dir.file("a,%.cpp", "\xef\xbb\xbfvoid f( ){\n  g( );\n\xc3\xa4 ( );\n}\n\n\nvoid f( ){\n      g( );\n}\n");
    dir.file("bad<&.cpp", "void f() { if (x) {\n");
    dir.file("good.cpp", "int i;\n");
    const std::string files = " 'a,%.cpp' 'bad<&.cpp' good.cpp none.cpp";
    run("$F --check --format=gcc" + files);
    EXPECT_EQ(2, status);
    EXPECT_EQ(0u, out.find("a,%.cpp:3:1: warning: Formatting would change the white space of this line. [layout]\n"
                           "a,%.cpp:8:3: warning: "))
        << out;
    EXPECT_NE(std::string::npos, out.find("\nbad<&.cpp:1:19: error: ")) << out;
    EXPECT_NE(std::string::npos, out.find("\nnone.cpp: error: The file \"none.cpp\" cannot be found. [refused]\n"));
    run("$F --check --threshold=3 --format=github" + files);
    EXPECT_EQ(0u, out.find("::warning file=a%2C%25.cpp,line=3,endLine=3,col=1,endColumn=1,title=corvane-format::"))
        << out;
    run("$F --check --format=checkstyle" + files);
    EXPECT_NE(std::string::npos, out.find("<file name=\"bad&lt;&amp;.cpp\">")) << out;
    EXPECT_NE(std::string::npos, out.find("<error line=\"8\" column=\"3\" severity=\"warning\"")) << out;
    EXPECT_TRUE(out.ends_with("</checkstyle>\n"));
}

TEST_F(ChangedLinesTest, ColoursWhenAskedTo) {
    dir.file("bad.cpp", "void f() { if (x) {\n");
    dir.file("a.cpp", source);
    run("$F --color=always --diff a.cpp bad.cpp");
    EXPECT_NE(std::string::npos, out.find("\x1b[31m-    g( );")) << out;
    EXPECT_NE(std::string::npos, err.find("bad.cpp(1) : \x1b[1;31merror:\x1b[m col ")) << err;
    for (const char* plain : {"", "--color=auto", "--color=never"}) {
        run(std::string("$F --diff a.cpp bad.cpp ") + plain);
        EXPECT_EQ(std::string::npos, (out + err).find('\x1b')) << plain;
    }
}

}  // namespace
