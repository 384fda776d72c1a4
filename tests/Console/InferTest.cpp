// corvane-infer, as a user runs it.
#include "FormatProgram.h"

namespace {

class InferTest : public FormatProgram::Fixture {
protected:
    InferTest() {
        std::string text;
        for (int i = 0; i < 8; ++i) text += "int f(char *s)\n{\n\tif (s)\n\t\treturn g( s );\n\treturn 0;\n}\n\n";
        text.pop_back();
        dir.file("t/a.c", text);
        dir.file("t/sub/b.cpp", text);
        dir.file("t/note.txt", "}{");
    }
    void infer(const std::string& arguments) { run(std::string(CORVANE_INFER) + " " + arguments); }
};

TEST_F(InferTest, WritesASchemeUnderWhichNothingChanges) {
    infer("-o t/.corvane.fsc t");
    EXPECT_EQ(0, status) << err;
    EXPECT_EQ("0 of 110 lines would change (0.00 %).\n", out.substr(0, out.find('\n') + 1));
    EXPECT_EQ("", err);
    const std::string scheme = TestFiles::contents(dir.file("t/.corvane.fsc"));
    for (const char* line : {"2 ASTERISK_ANCHOR 1\n", "2 EDITION 2\n", "3 INDENT_FN_CONTENT \"\\t\"\n",
                             "3 WS_AFTER_EXPR_OPEN_PAREN \" \"\n", "3 WS_BEFORE_FN_OPEN_BRACE \"\\n\"\n"}) {
        EXPECT_NE(std::string::npos, scheme.find(line)) << line << scheme;
    }
    run("$F --check t && echo ' int  x ;' >> t/a.c && $F --check t");
    EXPECT_EQ(1, status) << out << err;
    infer("--show -j1 -o - t/sub 2>err");
    EXPECT_EQ(scheme.substr(scheme.find("INDENT_FN")), out.substr(out.find("INDENT_FN")));
    const std::string report = TestFiles::contents(dir.file("err"));
    EXPECT_NE(std::string::npos,
              report.find("WS_BEFORE_FN_OPEN_BRACE              \"\\n\"                 8  100.0 %  set"))
        << report;
}

TEST_F(InferTest, TellsWhatItCannotDo) {
    const struct {
        const char* arguments;
        const char* complaint;
    } cases[] = {
        {"t", "'.corvane.fsc' is there already; --force writes over it"},
        {"", "name the files or directories"},
        {"-", "standard input is no code base"},
        {"--edition 3 t", "--edition"},
        {"--agreement 50 t", "--agreement"},
        {"-o '' t", "--output needs a path"},
        {"-o x.fsc none", "none"},
        {"-o x.fsc --extensions txt t", "could be read as C or C++"},
        {"-o no/y.fsc t", "cannot write 'no/y.fsc'"},
    };
    for (const auto& [arguments, complaint] : cases) {
        infer(arguments);
        EXPECT_EQ(2, status) << arguments;
        EXPECT_NE(std::string::npos, err.find(complaint)) << arguments << ": " << err;
        EXPECT_FALSE(std::filesystem::exists(dir.file("x.fsc"))) << arguments;
    }
}

}  // namespace
