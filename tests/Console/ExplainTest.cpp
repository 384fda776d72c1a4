// corvane-format --explain and --upgrade-scheme, as a user runs them.
#include "FormatProgram.h"

namespace {

class ExplainTest : public FormatProgram::Fixture {
protected:
    ExplainTest() {
        dir.file("second.fsc",
                 "# House style\nBrevis::PropertySet\n1\n\"s\"\n2 EDITION 2\n3 INDENT_FN_CONTENT \" \"\n"
                 "3 INDENT_FN_CONTENT \"\\t\"\n2 MAX_BLANK_LINES 0\n");
        dir.file("a.cpp", "void f() {\n  a(1,\n    2);\n\n}\n");
    }
};

TEST_F(ExplainTest, TellsTheValueAndItsPlace) {
    const std::string second =
        "a.cpp:2:   a(1,\n"
        "  column 3, the line begins with a tab, not 2 blanks\n"
        "    INDENT_FN_CONTENT is \"\\t\", at second.fsc:7\n";
    const std::string third =
        "a.cpp:3:     2);\n"
        "  column 5, the line begins with a tab and 2 blanks, not 4 blanks\n"
        "    no property: the line moves with line 2\n";
    const std::string fifth =
        "a.cpp:5: }\n"
        "  column 1, in front of }: a line feed, not 2 line feeds\n"
        "    MAX_BLANK_LINES is 0, at second.fsc:8\n";
    const struct {
        const char* target;
        std::string expected;
    } cases[] = {{"a.cpp", second + third + fifth},
                 {"a.cpp:2", second},
                 {"a.cpp:3", third + fifth},
                 {"a.cpp:4", fifth},
                 {"a.cpp:5", fifth},
                 {"a.cpp:1", "a.cpp:1: nothing would change.\n"}};
    for (const auto& [target, expected] : cases) {
        run(std::string("$F -s second.fsc --explain ") + target);
        EXPECT_EQ(0, status) << err;
        EXPECT_EQ(expected, out) << target;
    }
    run("cp second.fsc .corvane.fsc && $F --explain a.cpp:2");
    EXPECT_NE(std::string::npos, out.find("/.corvane.fsc:7\n")) << out << err;
}

TEST_F(ExplainTest, TellsWhatItCannotExplain) {
    const struct {
        const char* arguments;
        const char* complaint;
    } cases[] = {
        {"--explain a.cpp", "is for the first edition of the rules"},
        {"-s second.fsc --explain a.cpp:6", "'a.cpp' has 5 lines"},
        {"-s second.fsc --explain a.cpp:0", "cannot read 'a.cpp:0'"},
        {"-s second.fsc --explain bad.cpp", "bad.cpp(1) : error: "},
        {"-s none.fsc --explain a.cpp", "There is no scheme of the name \"none.fsc\""},
        {"--explain a.cpp a.cpp", "--explain takes --scheme"},
        {"--explain a.cpp --diff", "--explain takes --scheme"},
        {"--explain ''", "--explain needs a file"},
        {"--upgrade-scheme second.fsc -i", "--upgrade-scheme takes no other option"},
        {"--upgrade-scheme none.fsc", "\"none.fsc\" cannot be found"},
    };
    for (const auto& [arguments, complaint] : cases) {
        run(std::string("$F ") + arguments);
        EXPECT_EQ(2, status) << arguments;
        EXPECT_EQ("", out) << arguments;
        EXPECT_NE(std::string::npos, err.find(complaint)) << arguments << ": " << err;
    }
}

TEST_F(ExplainTest, UpgradesAScheme) {
    run("$F --upgrade-scheme .corvane.fsc > up.fsc && cat up.fsc");
    EXPECT_EQ(0, status);
    EXPECT_EQ(
        "Brevis::PropertySet\n1\n\"two\"\n2 EDITION 2\n3 INDENT_FN_CONTENT \"  \"\n3 WS_AFTER_PARAM_TYPE_ID \" \"\n",
        out);
    EXPECT_TRUE(err.starts_with("What will differ under the second edition of the rules:\n- ")) << err;
    EXPECT_EQ(std::string::npos, err.find("ASTERISK_ANCHOR")) << err;
    run("$F -s up.fsc ugly.cpp; $F --upgrade-scheme up.fsc | cmp - up.fsc");
    EXPECT_EQ(0, status);
    EXPECT_EQ(FormatProgram::pretty, out);
    EXPECT_NE(std::string::npos, err.find("is for the second edition of the rules already")) << err;
}

}  // namespace
