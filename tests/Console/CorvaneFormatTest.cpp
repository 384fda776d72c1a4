// corvane-format as a user runs it.
#include <algorithm>

#include "FormatProgram.h"

namespace {

namespace fs = std::filesystem;
using FormatProgram::bad, FormatProgram::pretty, FormatProgram::ugly;
using TestFiles::contents;

class CorvaneFormatTest : public FormatProgram::Fixture {};

TEST_F(CorvaneFormatTest, FormatsToStandardOutput) {
    const struct {
        const char* command;
        std::string out;
    } cases[] = {
        {"$F < ugly.cpp", pretty},
        {"$F - < ugly.cpp", pretty},
        {"$F ugly.cpp", pretty},
        {"$F ugly.cpp - pretty.cpp < ugly.cpp", std::string(pretty) + pretty + pretty},
        {"$F empty.cpp", ""},
        {"$F < empty.cpp", ""},
        {"cd / && $F --assume-filename \"$OLDPWD/new.cpp\" < \"$OLDPWD/ugly.cpp\"", pretty},
    };
    for (const auto& [command, expected] : cases) {
        run(command);
        EXPECT_EQ(0, status) << command;
        EXPECT_EQ(expected, out) << command;
        EXPECT_EQ("", err) << command;
    }
    EXPECT_EQ(ugly, contents(dir.file("ugly.cpp")));
}

constexpr const char* eightScheme = "Brevis::PropertySet\n1\n\"eight\"\n3 INDENT_FN_CONTENT \"        \"\n";
constexpr const char* eight = "void f( ){\n        g( );\n}\n";

TEST_F(CorvaneFormatTest, FindsSchemesByNameAndAPathWins) {
    dir.file("data/corvane/schemes/mine.fsc", eightScheme);
    dir.file("data/corvane/schemes/broken.fsc", "no scheme\n");
    fs::create_directory(dir.file("eight"));
    const std::string list =
        "Allman (built-in)\nChromium (built-in)\nCorvane (built-in)\nGNU (built-in)\nGoogle (built-in)\n"
        "K&R (built-in)\nLLVM (built-in)\nLinux (built-in)\nMicrosoft (built-in)\nMozilla (built-in)\n"
        "WebKit (built-in)\nWhitesmiths (built-in)\n";
    run("$F --list-schemes");
    EXPECT_EQ(0, status);
    EXPECT_EQ(list + "eight\n", out);
    EXPECT_EQ(0u, err.find(dir.file("data/corvane/schemes/broken.fsc(1) : error: "))) << err;
    run("$F -s eight ugly.cpp");
    EXPECT_EQ(eight, out);
    EXPECT_EQ("", err);
    run("$F -s 'K&R' --dump-scheme");
    EXPECT_EQ(0u, out.find("# This scheme was found at " + dir.file("data/corvane/schemes/K&R.fsc") + "\nBrevis::"));
    run("cp .corvane.fsc Allman; $F -s Allman ugly.cpp");
    EXPECT_EQ(pretty, out);
    for (const auto& [name, text] : {std::pair("Google", "void f() {\n  g();\n}\n"),
                                     {"GNU", "void\nf ()\n{\n  g ();\n}\n"},
                                     {"Linux", "void f()\n{\n\tg();\n}\n"}}) {
        run(std::string("$F -s ") + name + " ugly.cpp");
        EXPECT_EQ(text, out);
    }
    run("$F -s seven ugly.cpp");
    EXPECT_EQ(2, status);
    EXPECT_NE(std::string::npos, err.find("broken.fsc(1) : error: ")) << err;
    EXPECT_NE(std::string::npos, err.find("There is no scheme of the name \"seven\"")) << err;
    EXPECT_NE(std::string::npos, err.find("\"seven\" cannot be found.")) << err;

    // Another directory of the user's choice gets no shipped schemes; they are found all the same.
    dir.file("config/corvane/settings.json", "{\"PropertySetStore\": \"" + dir.file("own") + "\"}");
    dir.file("own/Allman.fsc", "Brevis::PropertySet\n1\n\"Allman\"\n");
    run("$F --list-schemes");
    EXPECT_EQ("Allman\n" + list.substr(list.find("Chromium")), out);
    EXPECT_FALSE(fs::exists(dir.file("own/K&R.fsc")));
    // Neither do they need any place of the user's.
    dir.file("config/corvane/settings.json", "{");
    run("XDG_DATA_HOME=/dev/null $F --list-schemes");
    EXPECT_EQ(list, out);
    EXPECT_EQ(0u, err.find("Could not open application registry key.")) << err;
    EXPECT_EQ("{", contents(dir.file("config/corvane/settings.json")));
}

TEST_F(CorvaneFormatTest, PrintsTheSchemeInForce) {
    dir.file("sub/.corvane.fsc", std::string("# mine\n") + eightScheme + "3 WS_AFTER_FN_NAEM \" \"\n");
    const std::string found = "# This scheme was found at ";
    const std::string here = found + dir.file(".corvane.fsc\n") + contents(dir.file(".corvane.fsc"));
    const std::string below = found + dir.file("sub/.corvane.fsc\n") + eightScheme + "3 WS_AFTER_FN_NAEM \" \"\n";
    const struct {
        const char* command;
        const std::string& out;
    } cases[] = {
        {"$F --dump-scheme", here},
        {"$F --dump-scheme ugly.cpp", here},
        {"$F --dump-scheme sub", below},
        {"$F --dump-scheme sub/gone.cpp", below},
        {"cd sub; $F --dump-scheme", below},
        {"$F --dump-scheme --assume-filename sub/a.cpp", below},
        {"$F --dump-scheme -s sub/.corvane.fsc", below},
    };
    for (const auto& [command, expected] : cases) {
        run(command);
        EXPECT_EQ(0, status) << command;
        EXPECT_EQ(expected, out) << command;
        EXPECT_EQ(&expected == &below, err.find("the nearest known key is WS_AFTER_FN_NAME.") != std::string::npos);
    }
    // What is printed is a scheme file itself.
    run("$F --dump-scheme sub >d.fsc; $F -s d.fsc ugly.cpp");
    EXPECT_EQ(eight, out);
    EXPECT_FALSE(fs::exists(dir.file("data"))) << "nobody has asked for a scheme by name";
    run("$F --dump-scheme bad.cpp -s bad.cpp");
    EXPECT_EQ(2, status);
    EXPECT_EQ("", out);
}

TEST_F(CorvaneFormatTest, ChecksAndShowsWithoutWriting) {
    run("$F --check ugly.cpp pretty.cpp empty.cpp");
    EXPECT_EQ(1, status);
    EXPECT_EQ("ugly.cpp\n", out);
    run("$F --check pretty.cpp");
    EXPECT_EQ(0, status);
    EXPECT_EQ("", out);
    run("$F --check --assume-filename x.h < ugly.cpp");
    EXPECT_EQ("x.h\n", out);
    run("$F --diff ugly.cpp pretty.cpp");
    EXPECT_EQ(1, status);
    EXPECT_EQ(
        "--- ugly.cpp\t(as it is)\n+++ ugly.cpp\t(formatted)\n@@ -1,3 +1,3 @@\n void f( ){\n-      g( );\n+  g( );\n "
        "}\n",
        out);
    run("$F --diff < ugly.cpp");
    EXPECT_EQ(0u, out.find("--- <stdin>\t"));
    EXPECT_EQ(ugly, contents(dir.file("ugly.cpp")));
}

TEST_F(CorvaneFormatTest, FormatsInPlaceWithAndWithoutABackup) {
    run("$F -i ugly.cpp empty.cpp");
    EXPECT_EQ(0, status);
    EXPECT_EQ("", out + err);
    EXPECT_EQ(pretty, contents(dir.file("ugly.cpp")));
    EXPECT_FALSE(fs::exists(dir.file("ugly.cpp.bak")));
    dir.file("ugly.cpp", ugly);
    run("$F -i --backup=orig --threshold 1 ugly.cpp");
    EXPECT_EQ("Formatting \"ugly.cpp\".\n", err);
    EXPECT_EQ(ugly, contents(dir.file("ugly.cpp.orig")));
    EXPECT_EQ(pretty, contents(dir.file("ugly.cpp")));
}

TEST_F(CorvaneFormatTest, TakesWholeTrees) {
    for (const char* name :
         {"t/b.cpp", "t/a/z.H", "t/a-1/a.c", "t/B.cxx", "t/x.inl", "t/n\xff.h", "t/.hidden/a.cpp", "t/gen/g.cpp",
          "t/out/o.cpp", "t/kept/k.cpp", "t/locked.cpp", "t/sub/own.cpp", "t/[x]/x.c"}) {
        dir.file(name, ugly);
    }
    dir.file("t/.gitignore", "out/\nkept/\n");
    dir.file("t/.corvaneignore", "!kept/\ngen/\n");
    dir.file("t/sub/.corvaneignore", "*\n");
    fs::create_directory(dir.file("t/.git"));
    fs::permissions(dir.file("t/locked.cpp"), fs::perms::owner_read);
    fs::create_symlink("b.cpp", dir.file("t/link.cpp"));
    const std::string tree = "t/B.cxx\nt/[x]/x.c\nt/a/z.H\nt/a-1/a.c\nt/b.cpp\nt/kept/k.cpp\nt/n\xff.h\n";
    const struct {
        const char* arguments;
        std::string out;
    } cases[] = {
        {"t", tree},
        {"ugly.cpp t pretty.cpp", "ugly.cpp\n" + tree},
        {"t/b.cpp t/", "t/b.cpp\nt/B.cxx\nt/[x]/x.c\nt/a/z.H\nt/a-1/a.c\nt/kept/k.cpp\nt/n\xff.h\n"},
        {"./t/a t/link.cpp t/b.cpp t/a t/gen/g.cpp t/sub", "./t/a/z.H\nt/link.cpp\nt/gen/g.cpp\n"},
        {"--no-ignore --exclude 'a*' t --exclude /B.* --exclude '[kn]*' --exclude x.c", "t/b.cpp\nt/out/o.cpp\n"},
        {"--extensions .inl,C t", "t/[x]/x.c\nt/a-1/a.c\nt/x.inl\n"},
    };
    for (const auto& [arguments, expected] : cases) {
        run(std::string("$F --check ") + arguments);
        EXPECT_EQ(1, status) << arguments;
        EXPECT_EQ(expected, out) << arguments;
        EXPECT_EQ("", err) << arguments;
    }
    run("$F -i t && $F --check t && $F --diff --extensions inl t");
    EXPECT_EQ(0u, out.find("--- t/x.inl\t")) << out;
    EXPECT_EQ(ugly, contents(dir.file("t/out/o.cpp")));
}

TEST_F(CorvaneFormatTest, TakesTheFilesOfProjectsAndLists) {
    for (const char* name : {"p/a.cpp", "p/b.h", "p/gen/g.cpp", "p/r.rc", "q/c.c", "-"}) dir.file(name, ugly);
    dir.file("p/p.vcxproj",
             "<Project><ItemGroup><ClCompile Include=\"b.h\"/><ClCompile Include=\"a.cpp\"/>"
             "<ResourceCompile Include=\"r.rc\"/><ClCompile Include=\"gen\\g.cpp\"/></ItemGroup></Project>");
    dir.file("w.slnx", "<Solution><Project Path=\"p/p.vcxproj\"/><Project Path=\"x.other\"/></Solution>");
    dir.file("x.other", "");
    dir.file("q/compile_commands.json", "[{\"directory\": \".\", \"file\": \"c.c\", \"command\": \"cc c.c\"}]");
    dir.file("p/.corvaneignore", "gen/\n");
    dir.file("list", "ugly.cpp\r\n\n-\np\nugly.cpp");
    const std::string p = dir.file("p/"), project = p + "b.h\n" + p + "a.cpp\n", c = dir.file("q/c.c\n");
    const struct {
        const char* arguments;
        int status;
        std::string out, err;
    } cases[] = {
        {"--check --project p/p.vcxproj", 1, project, ""},
        {"--check --workspace w.slnx --project q", 1, project + c, ""},
        {"--check --project q/compile_commands.json --exclude q/ --project p/p.vcxproj p/a.cpp", 1,
         "p/a.cpp\n" + p + "b.h\n", ""},
        {"--check --files-from list", 1, "ugly.cpp\n./-\np/a.cpp\np/b.h\n", ""},
        {"--check --files-from - --project q < list", 1, "ugly.cpp\n./-\np/a.cpp\np/b.h\n" + c, ""},
        {"--check -0 --files-from=- </dev/null", 0, "", ""},
        {"-0 --files-from - pretty.cpp <names", 0, std::string(pretty) + pretty, ""},
        {"-i --files-from gone q/c.c", 2, "", "The list of files \"gone\" cannot be read."},
        {"-i q/c.c --project bad.vcxproj", 2, "", dir.file("bad.vcxproj(2) : error: ")},
        {"-i q/c.c --workspace bad.slnx", 2, "", dir.file("bad.slnx(1) : error: ")},
        {"-i q/c.c --project .", 2, "", dir.file("compile_commands.json : error: ")},
    };
    dir.file("names", std::string("n\xff\n.cpp\0pretty.cpp\0", 19));
    dir.file("n\xff\n.cpp", ugly);
    dir.file("bad.vcxproj", "<Project>\n</Item>");
    dir.file("bad.slnx", "<Solution><Project Path=\"p/p.vcxproj\"/><Project Path=\"gone.vcxproj\"/></Solution>");
    for (const auto& [arguments, expected, text, message] : cases) {
        run(std::string("$F ") + arguments);
        EXPECT_EQ(expected, status) << arguments;
        EXPECT_EQ(text, out) << arguments;
        EXPECT_EQ(message, err.substr(0, message.empty() ? err.size() : message.size())) << arguments;
    }
    EXPECT_EQ(ugly, contents(dir.file("q/c.c")));
}

TEST_F(CorvaneFormatTest, KeepsOrSetsLineEnds) {
    const std::string dos = "void f( ){\r\n      g( );\r\n}\r\n", dosPretty = "void f( ){\r\n  g( );\r\n}\r\n";
    const struct {
        const char* arguments;
        const std::string& source;
        int status;
        std::string out;
    } cases[] = {
        {"a.cpp", dos, 0, dosPretty},
        {"--line-endings keep < a.cpp", dos, 0, dosPretty},
        {"--check a.cpp", dosPretty, 0, ""},
        {"--diff a.cpp", dosPretty, 0, ""},
        {"--verify=stable a.cpp", dos, 0, dosPretty},
        {"--line-endings=lf a.cpp", dos, 0, pretty},
        {"--line-endings=native a.cpp", dos, 0, pretty},
        {"--line-endings=crlf --check a.cpp", pretty, 1, "a.cpp\n"},
        {"--line-endings=crlf a.cpp", pretty, 0, dosPretty},
    };
    for (const auto& [arguments, source, expected, text] : cases) {
        dir.file("a.cpp", source);
        run(std::string("$F ") + arguments);
        EXPECT_EQ(expected, status) << arguments;
        EXPECT_EQ(text, out) << arguments;
        EXPECT_EQ("", err) << arguments;
    }
    dir.file("wide.cpp", std::string("i\0n\0t\0", 6));
    for (const char* mode : {"wide.cpp", "-i wide.cpp", "--check wide.cpp", "< wide.cpp"}) {
        run(std::string("$F ") + mode);
        EXPECT_EQ(2, status) << mode;
        EXPECT_NE(std::string::npos, err.find("UTF-16")) << err;
        EXPECT_EQ("", out);
    }
}

TEST_F(CorvaneFormatTest, TakesARunBack) {
    dir.file("other.cpp", ugly);
    run("$F -i ugly.cpp pretty.cpp other.cpp && echo >> other.cpp; cd / && $F --undo");
    EXPECT_EQ(2, status);
    EXPECT_EQ("The file \"" + dir.file("ugly.cpp") + "\" has its old text again.\n", out);
    EXPECT_EQ("The file \"" + dir.file("other.cpp") + "\" has changed since it was formatted. It is left as it is.\n",
              err);
    EXPECT_EQ(ugly, contents(dir.file("ugly.cpp")));
    EXPECT_EQ(std::string(pretty) + "\n", contents(dir.file("other.cpp")));
    run("$F -i ugly.cpp pretty.cpp && $F -i ugly.cpp pretty.cpp && $F --undo");
    EXPECT_EQ(0, status) << err;
    EXPECT_EQ(ugly, contents(dir.file("ugly.cpp")));
}

TEST_F(CorvaneFormatTest, AFullDiskHarmsNothing) {
    std::string big = "void f( ){\n";
    for (int line = 0; line < 1000; ++line) big += "g( );\n";
    dir.file("big.cpp", big + "}\n");
    // In units of 1,024 bytes in some shells and 512 in others.
    run("ulimit -f 5; $F -i ugly.cpp big.cpp");
    EXPECT_EQ(2, status);
    EXPECT_EQ(big + "}\n", contents(dir.file("big.cpp")));
    EXPECT_EQ(pretty, contents(dir.file("ugly.cpp")));
    EXPECT_NE(std::string::npos, err.find("The file \"big.cpp\" cannot be written: File too large\n")) << err;
    EXPECT_NE(std::string::npos, err.find("unable to write the formatted text back to the file \"big.cpp\"")) << err;
    run("ls -A | grep tmp; mkdir -p sub && echo x > sub/.corvane-999999999-1.2.tmp && $F --recover sub");
    EXPECT_EQ("The temporary file \"sub/.corvane-999999999-1.2.tmp\" has been removed.\n", out);
    EXPECT_EQ(0, status);
}

// The scheme puts one more empty line in front of the label with each run.
TEST_F(CorvaneFormatTest, WarnsOfAnUnstableTextWhenAsked) {
    const std::string label = "class A {\npublic:\n};\n";
    dir.file("two.fsc", "Brevis::PropertySet\n1\n\"two\"\n3 WS_BEFORE_ACCESS_SPECS \"\\n\\n\"\n");
    const std::string changing = "a.cpp(4) : warning: col 1: ";
    const struct {
        const char* arguments;
        const std::string& source;
        int status;
        std::string err;  // its beginning
        bool stays;
    } cases[] = {
        {"-i -s two.fsc a.cpp", label, 0, "", false},
        {"-i --no-verify -s two.fsc a.cpp", label, 0, "", false},
        {"-i -s two.fsc --verify=stable a.cpp", label, 0, changing, false},
        {"--verify=stable -s two.fsc a.cpp", label, 0, changing, true},
        {"--check --verify=stable -s two.fsc a.cpp", label, 1, changing, true},
        {"-i --verify=stable --verbose a.cpp", pretty, 0, "a.cpp: 0 seams mended\n", true},
    };
    for (const auto& [arguments, source, expected, message, stays] : cases) {
        dir.file("a.cpp", source);
        run(std::string("$F ") + arguments);
        EXPECT_EQ(expected, status) << arguments;
        EXPECT_EQ(message, err.substr(0, message.empty() ? err.size() : message.size())) << arguments;
        EXPECT_EQ(stays, contents(dir.file("a.cpp")) == source) << arguments;
        EXPECT_FALSE(fs::exists(dir.file("a.cpp.bak"))) << arguments;
    }
}

TEST_F(CorvaneFormatTest, TellsTheMendedSeamsOfEachFormattedFile) {
    dir.file("glue.fsc", "Brevis::PropertySet\n1\n\"glue\"\n3 WS_BETWEEN_EXPR_OP_OPERANDS \"\"\n");
    dir.file("one.cpp", "int x = a / *b;\n");
    for (const char* mode : {"", "-i", "--check", "--diff"}) {
        run(std::string("$F --threshold 3 --verbose -s glue.fsc one.cpp empty.cpp ugly.cpp ") + mode);
        const std::string seams = "one.cpp: 1 seam mended\nugly.cpp: 0 seams mended\n";
        EXPECT_EQ(seams, err.substr(0, seams.size())) << mode;
        EXPECT_EQ(1, std::ranges::count(err.substr(seams.size()), '\n')) << "the summary" << err;
    }
}

TEST_F(CorvaneFormatTest, ARefusedFileDoesNotStopTheOthers) {
    fs::create_directory(dir.file("folder"));
    run("$F bad.cpp gone.cpp folder ugly.cpp");
    EXPECT_EQ(2, status);
    EXPECT_EQ(pretty, out);
    EXPECT_EQ(0u, err.find("\"folder\" is a directory: it needs one of -i, --check and --diff.\nbad.cpp(")) << err;
    EXPECT_NE(std::string::npos, err.find("could not successfully parse the file bad.cpp."));
    EXPECT_NE(std::string::npos, err.find("\nThe file \"gone.cpp\" cannot be found.\n"));
    run("$F --check bad.cpp ugly.cpp");
    EXPECT_EQ(2, status);
    EXPECT_EQ("ugly.cpp\n", out);
    run("$F -i bad.cpp gone.cpp ugly.cpp");
    EXPECT_EQ(2, status);
    EXPECT_EQ(bad, contents(dir.file("bad.cpp")));
    EXPECT_EQ(pretty, contents(dir.file("ugly.cpp")));
    run("$F < bad.cpp");
    EXPECT_EQ(2, status);
    EXPECT_EQ("", out);
    EXPECT_EQ(0u, err.find("<stdin>(")) << err;
}

TEST_F(CorvaneFormatTest, ABadSchemeConcernsItsOwnFilesOnly) {
    dir.file("sub/.corvane.fsc", "no scheme\n");
    dir.file("sub/a.cpp", ugly);
    run("$F sub/a.cpp ugly.cpp");
    EXPECT_EQ(2, status);
    EXPECT_EQ(pretty, out);
    EXPECT_NE(std::string::npos, err.find("/sub/.corvane.fsc(1) : error: ")) << err;
    EXPECT_NE(std::string::npos, err.find("\"sub/a.cpp\" will not be formatted")) << err;
    run("$F -s gone.fsc -i ugly.cpp");
    EXPECT_EQ(2, status);
    EXPECT_NE(std::string::npos, err.find("The scheme file \"gone.fsc\" cannot be found.")) << err;
    EXPECT_EQ(ugly, contents(dir.file("ugly.cpp")));
}

TEST_F(CorvaneFormatTest, ATroubledStandardStreamIsTold) {
    for (const char* command :
         {"$F ugly.cpp >/dev/full", "$F ugly.cpp >&-", "$F --help >/dev/full", "$F --version >&-"}) {
        run(command);
        EXPECT_EQ(2, status) << command;
        EXPECT_EQ(0u, err.find("corvane-format: write error: ")) << command << err;
    }
    run("$F - <&-");
    EXPECT_EQ(2, status);
    EXPECT_NE(std::string::npos, err.find("unable to read the contents of the file \"<stdin>\"")) << err;
    // A closed stream must not be taken for a file that is opened next.
    run("$F -i ugly.cpp >&- 2>&-");
    EXPECT_EQ(0, status);
    EXPECT_EQ(pretty, contents(dir.file("ugly.cpp")));
}

TEST_F(CorvaneFormatTest, BadArgumentsAreRefusedBeforeAnythingIsDone) {
    run("$F -i --backup --diff ugly.cpp");
    EXPECT_EQ(2, status);
    EXPECT_EQ(0u, err.find("corvane-format: ")) << err;
    EXPECT_NE(std::string::npos, err.find("--help"));
    EXPECT_EQ(ugly, contents(dir.file("ugly.cpp")));
}

}  // namespace
