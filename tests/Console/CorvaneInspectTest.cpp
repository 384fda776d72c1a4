// corvane-inspect as a user runs it.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>

#include "../support/TestFiles.h"

namespace {

class CorvaneInspectTest : public testing::Test {
protected:
    CorvaneInspectTest() {
        dir.file("a.cpp", "a::b \"x\ty\" // c\r\n");
        dir.file("bad.cpp", "{ goto x\n");
        dir.file("deep.cpp", std::string(2000, '{'));
    }

    // Runs a shell command in the directory, $I being the program. Sets `status`, `out` and `err`.
    void run(const std::string& command) {
        const std::string line = "cd '" + dir.path() +
                                 "' && export XDG_DATA_HOME=\"$PWD\" XDG_CONFIG_HOME=\"$PWD\" I='" CORVANE_INSPECT
                                 "' && { " +
                                 command + "; } >'" + dir.file("stdout") + "' 2>'" + dir.file("stderr") + "'";
        const int result = std::system(line.c_str());
        status = WIFEXITED(result) ? WEXITSTATUS(result) : -1;
        out = TestFiles::contents(dir.file("stdout"));
        err = TestFiles::contents(dir.file("stderr"));
    }

    TestFiles::TempDir dir;
    int status = -1;
    std::string out;
    std::string err;
};

TEST_F(CorvaneInspectTest, ShowsTokens) {
    for (const char* command : {"$I tokens a.cpp", "$I tokens < a.cpp", "$I tokens - < a.cpp"}) {
        run(command);
        EXPECT_EQ(status, 0) << command;
        EXPECT_EQ(out,
                  "119\t1:1-1:4\ta::b\n"
                  "5\t1:6-1:10\t\\\"x\\ty\\\"\n"
                  "117\t1:12-2:0\t// c\\n\n"
                  "-1\t2:0-2:0\t\n");
        EXPECT_EQ(err, "");
    }
}

TEST_F(CorvaneInspectTest, ShowsTheTreeAndTheReports) {
    run("$I tree --dialect classic bad.cpp");
    EXPECT_EQ(status, 0);
    EXPECT_EQ(out,
              "RootNode 1:1-1:8\n"
              "  BlockNode 1:1-1:8\n"
              "    ExprNode 1:3-1:8 \"goto x\"\n");
    EXPECT_EQ(err,
              "bad.cpp(1) : error: col 8: Unexpected EOF found.\n"
              "bad.cpp(1) : error: col 8: Unexpected EOF found.\n");
    run("$I tree --dialect classic < bad.cpp");
    EXPECT_EQ(err.substr(0, err.find(" : ")), "<stdin>(1)");
}

TEST_F(CorvaneInspectTest, EveryAttributeOfANodeIsShown) {
    dir.file("all.cpp",
             "class A : virtual B { public: int x; };\n"
             "// CORVANE-OFF\n// CORVANE-ON\n"
             "{ l: case 1: asm(\"\"); }\n");
    run("$I tree all.cpp");
    for (const char* part :
         {"ClassDeclNode 1:1-1:39 end=1:39\n", " key=0 \"class A\"\n", " access=0 virtual \"B\"\n",
          "AccessSpecNode 1:23-1:29 access=1\n", "DataDeclNode 1:31-1:36 end=1:36\n",
          "CommentNode 2:1-4:0 verbatim \"\"\n", "LabelNode 4:3-4:4 colon=4:4\n", "CaseNode 4:6-4:12 colon=4:12\n",
          "KeywordNode 4:6-4:9 kind=102\n", "AsmNode 4:14-4:21 form=1\n"}) {
        EXPECT_NE(out.find(part), std::string::npos) << part << out;
    }
}

TEST_F(CorvaneInspectTest, TreeKnowsTheMacrosOfAScheme) {
    dir.file("a.c", "void f(void) { guard(x) *p += 1; }\n");
    dir.file("loops.fsc", "Brevis::PropertySet\n1\n\"\"\n2 EDITION 2\n3 MACROS_LOOP \"guard\"\n");
    run("$I tree --roles a.c");
    EXPECT_NE(out.find("\t*\tbinary"), std::string::npos) << out;
    run("$I tree --roles -s loops.fsc a.c");
    EXPECT_NE(out.find("\t*\tprefix"), std::string::npos) << out;
}

// The scheme is the one that corvane-format would take.
TEST_F(CorvaneInspectTest, ShowsTheSchemeInForce) {
    const std::string path =
        dir.file(".corvane.fsc",
                 "Brevis::PropertySet\n1\n\"s\"\n1 CONVERT_WS 1\n1 NS_USE_GLOBAL_SETTINGS 1\n2 TAB_SIZE 99999\n"
                 "3 WS_BETWEEN_CS \"\\n\"\n3 WS_AFTER_DD_TYPE_ID \"\"\n3 INDENT_FN_PARAMS \" \"\n");
    for (const char* command :
         {"$I scheme", "$I scheme - < a.cpp", "$I scheme a.cpp", "$I scheme -s \"$PWD/.corvane.fsc\""}) {
        run(command);
        EXPECT_EQ(status, 0) << command;
        EXPECT_EQ(err, "");
        EXPECT_EQ(out.rfind("# " + path + "\nCORVANE_VERSION\tunset\tnot used by the engine: ", 0), 0u)
            << command << out;
    }
    for (const char* line :
         {"TAB_SIZE\t32767\tlimited, the scheme has 99999", "ASTERISK_ANCHOR\t-1\tengine default",
          "CONVERT_WS\t0\tengine default, the scheme has the key with another type",
          "WS_BETWEEN_CS\t\"\\n\"\tset in the scheme",
          "WS_AFTER_DD_TYPE_ID\t\" \"\tengine default, the scheme has \"\"", "WS_BEFORE_ACCESS_SPECS\tunset\tabsent",
          "ALIGN_PPD_LEFT_MOST\tunset\tabsent",
          "NS_USE_GLOBAL_SETTINGS\t1\tnot used by the engine: only a scheme editor reads it",
          "INDENT_FN_PARAMS\t\" \"\tnot used by the engine: it is reserved or of an older version"}) {
        EXPECT_NE(out.find('\n' + std::string(line) + '\n'), std::string::npos) << line << "\n" << out;
    }
    run("$I scheme -s missing.fsc");
    EXPECT_EQ(status, 2);
    EXPECT_NE(err.find("There is no scheme of the name \"missing.fsc\""), std::string::npos) << err;
    EXPECT_NE(err.find("\nThe scheme file \"missing.fsc\" cannot be found.\n"), std::string::npos) << err;
    run("$I scheme -s 'K&R'");
    EXPECT_EQ(out.rfind("# " + dir.file("corvane/schemes/K&R.fsc") + "\n", 0), 0u) << out;
}

TEST_F(CorvaneInspectTest, ShowsChangedGapsAndWhatDecidedThem) {
    dir.file("second.fsc",
             "Brevis::PropertySet\n1\n\"s\"\n2 EDITION 2\n3 WS_AFTER_FN_OPEN_BRACE \"\\n\"\n"
             "3 INDENT_FN_CONTENT \"\\t\"\n");
    dir.file("gaps.cpp", "\xef\xbb\xbfvoid f() { a;\r\n b; }\r\n");
    for (const char* command : {"$I gaps -s second.fsc gaps.cpp", "$I gaps --scheme second.fsc < gaps.cpp"}) {
        run(command);
        EXPECT_EQ(status, 0) << command;
        EXPECT_EQ(out,
                  "1:12\tWS_AFTER_FN_OPEN_BRACE\t \t\\n\\t\n"
                  "2:2\tINDENT_FN_CONTENT\t\\n \t\\n\\t\n");
        EXPECT_EQ(err, "");
    }
    dir.file("first.fsc", "Brevis::PropertySet\n1\n\"s\"\n");
    run("$I gaps -s first.fsc gaps.cpp");
    EXPECT_EQ(status, 2);
    EXPECT_NE(err.find("is for the first edition of the rules"), std::string::npos) << err;
    run("$I wrap -s second.fsc gaps.cpp");
    EXPECT_EQ(status, 2);
    EXPECT_NE(err.find("is for the second edition of the rules"), std::string::npos) << err;
    run("$I gaps -s second.fsc deep.cpp");
    EXPECT_EQ(status, 2);
    EXPECT_EQ(out, "");
}

TEST_F(CorvaneInspectTest, TellsWhatItCannotDo) {
    for (const char* command : {"$I tokens missing.cpp", "$I tree .", "$I tree deep.cpp", "$I", "$I shape a.cpp",
                                "$I tokens a.cpp a.cpp", "$I tokens --wrong", "$I tokens a.cpp > /dev/full"}) {
        run(command);
        EXPECT_EQ(status, 2) << command;
        EXPECT_EQ(out, "") << command;
        EXPECT_EQ(err.rfind("corvane-inspect: ", 0), 0u) << command << ": " << err;
    }
}

TEST_F(CorvaneInspectTest, HelpsAndTellsItsVersion) {
    run("$I --help");
    EXPECT_EQ(status, 0);
    EXPECT_EQ(out.rfind("Usage: corvane-inspect ", 0), 0u);
    run("$I tree --help");
    EXPECT_EQ(status, 0);
    EXPECT_EQ(out.rfind("Usage: corvane-inspect ", 0), 0u);
    run("$I --version");
    EXPECT_EQ(status, 0);
    EXPECT_EQ(out.rfind("corvane-inspect (Corvane C++) ", 0), 0u);
}

}  // namespace
