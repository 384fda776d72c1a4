// What is made from the tables of options.
#include <gtest/gtest.h>

#include <cstdlib>

#include "../support/TestFiles.h"
#include "Console_ManualPages.h"
#include "Console_ManualText.h"

namespace Console {
namespace {

std::string withoutBackslashes(std::string text) {
    std::erase(text, '\\');
    return text;
}

TEST(Manual, TellsEveryOptionEverywhere) {
    for (const ProgramManual* manual : {&formatManual, &inspectManual, &inferManual}) {
        const std::string help = helpText(*manual);
        const std::string page = withoutBackslashes(manualPage(*manual, "1"));
        const std::string bash = bashCompletion(*manual), zsh = zshCompletion(*manual), fish = fishCompletion(*manual);
        for (const OptionGroup& group : manual->groups) {
            for (const OptionRow& row : group.rows) {
                const std::string name(row.anyName());
                const bool isLong = name.starts_with("--");
                EXPECT_NE(std::string::npos, help.find(" " + name +
                                                       (row.argument.empty()     ? ""
                                                        : row.isArgumentOptional ? "[="
                                                        : "=")))
                    << name;
                EXPECT_NE(std::string::npos, page.find("fB" + name + "fR")) << name;
                EXPECT_NE(std::string::npos, bash.find(name + " ")) << name;
                EXPECT_NE(std::string::npos, zsh.find("'*" + name)) << name;
                EXPECT_NE(std::string::npos,
                          fish.find((isLong ? " -l " + name.substr(2) : " -s " + name.substr(1)) + " "))
                    << name;
            }
        }
        for (std::size_t begin = 0; begin < help.size(); begin = help.find('\n', begin) + 1) {
            EXPECT_LE(help.find('\n', begin) - begin, 80u) << help.substr(begin, 90);
        }
    }
}

// Gives what a shell writes for a script, the completion of corvane-format standing in the file $C.
std::string shell(const std::string& program, const std::string& completion, const std::string& script) {
    const TestFiles::TempDir dir;
    dir.file("completion", completion);
    dir.file("script", script);
    const std::string line = "cd '" + dir.path() + "' && C=./completion " + program + " script >out 2>&1";
    const int status = std::system(line.c_str());
    return (status == 0 ? "" : "failed: ") + TestFiles::contents(dir.file("out"));
}

TEST(Manual, BashCompletes) {
    const std::string script = R"(set -e
source $C
compopt() { :; }
corvane-format() { printf 'Allman (built-in)\nmy own\n'; }
try() { COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _corvane_format; echo "${COMPREPLY[@]}"; }
touch x.cpp
try corvane-format --ve
try corvane-format --verify = s
try corvane-format --verify s
try corvane-format --format che
try corvane-format -s my
try corvane-format x.
)";
    EXPECT_EQ("--verify --verbose --version\nstable\nscript\ncheckstyle\nmy own\nx.cpp\n",
              shell("bash", bashCompletion(formatManual), script));
}

TEST(Manual, IsCleanForItsReaders) {
    const struct {
        const char* program;
        std::string text;
        const char* command;
    } cases[] = {
        {"man", manualPage(formatManual, "1"), "man --warnings -E UTF-8 -l -Tutf8 $C >page && test -s page"},
        {"man", manualPage(inspectManual, "1"), "man --warnings -E UTF-8 -l -Tutf8 $C >page && test -s page"},
        {"bash", bashCompletion(inspectManual), "bash -n $C"},
        {"zsh", zshCompletion(formatManual), "zsh -n $C"},
        {"fish", fishCompletion(formatManual), "fish -n $C"},
    };
    for (const auto& [program, text, command] : cases) {
        // Not every machine has all of them.
        if (std::system((std::string("command -v ") + program + " >/dev/null").c_str()) != 0) continue;
        EXPECT_EQ("", shell("sh", text, command)) << program;
    }
}

}  // namespace
}  // namespace Console
