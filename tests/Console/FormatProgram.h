// A directory with sources and a scheme, in which corvane-format runs as a user runs it.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <string>

#include "../support/TestFiles.h"

namespace FormatProgram {

inline constexpr const char* ugly = "void f( ){\n      g( );\n}\n";
inline constexpr const char* pretty = "void f( ){\n  g( );\n}\n";
inline constexpr const char* bad = "void f() { if (x) {\n";

class Fixture : public testing::Test {
protected:
    Fixture() {
        dir.file(".corvane.fsc", "Brevis::PropertySet\n1\n\"two\"\n3 INDENT_FN_CONTENT \"  \"\n");
        dir.file("ugly.cpp", ugly);
        dir.file("pretty.cpp", pretty);
        dir.file("bad.cpp", bad);
        dir.file("empty.cpp", "");
        setenv("XDG_CACHE_HOME", dir.file("cache").c_str(), 1);
    }

    // Runs a shell command in the directory, $F being the program. Sets `status`, `out` and `err`. The user's files
    // stand in the directories `data` and `config`.
    void run(const std::string& command) {
        const std::string line =
            "cd '" + dir.path() + "' && export XDG_DATA_HOME=\"$PWD/data\" XDG_CONFIG_HOME=\"$PWD/config\" F='" +
            CORVANE_FORMAT + "' && { " + command + "; } >'" + dir.file("stdout") + "' 2>'" + dir.file("stderr") + "'";
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

}  // namespace FormatProgram
