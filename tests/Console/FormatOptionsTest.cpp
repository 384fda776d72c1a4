// The command line of corvane-format.
#include "Console_FormatOptions.h"

#include <gtest/gtest.h>

namespace Console {
namespace {

using Action = FormatCommand::Action;

FormatCommand parse(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "corvane-format");
    return parseFormatArguments(static_cast<int>(arguments.size()), arguments.data());
}

TEST(FormatOptions, ReadsEveryForm) {
    const FormatCommand none = parse({});
    EXPECT_EQ(Action::Run, none.action);
    EXPECT_EQ(std::vector<std::string>{"-"}, none.options.files);
    EXPECT_EQ(2, none.options.threshold);
    EXPECT_FALSE(none.options.inPlace || none.options.check || none.options.diff || none.options.createBackups);

    const FormatOptions inPlace =
        parse({"-i", "--backup", "a.cpp", "-s", "x.fsc", "--threshold", "0", "--", "-b"}).options;
    EXPECT_TRUE(inPlace.inPlace && inPlace.createBackups);
    EXPECT_EQ("bak", inPlace.backupExtension);
    EXPECT_EQ("x.fsc", inPlace.scheme);
    EXPECT_EQ(0, inPlace.threshold);
    EXPECT_EQ((std::vector<std::string>{"a.cpp", "-b"}), inPlace.files);

    EXPECT_EQ("orig", parse({"--in-place", "--backup=orig", "a"}).options.backupExtension);
    const FormatOptions both = parse({"--check", "--diff", "-sy", "-", "--assume-filename=d/x.h", "a"}).options;
    EXPECT_TRUE(both.check && both.diff);
    EXPECT_EQ("y", both.scheme);
    EXPECT_EQ("d/x.h", both.assumeFilename);
    EXPECT_EQ("z", parse({"--scheme=z"}).options.scheme);
    EXPECT_EQ(Action::Undo, parse({"--undo"}).action);
    const FormatCommand recover = parse({"--recover", "a", "b"});
    EXPECT_EQ(Action::Recover, recover.action);
    EXPECT_EQ((std::vector<std::string>{"a", "b"}), recover.options.files);

    const FormatOptions part = parse({"-i", "-j", "4", "--shard=2/3", "a"}).options;
    EXPECT_EQ(4u, part.jobs);
    EXPECT_TRUE(part.shard && part.shard->index == 2 && part.shard->count == 3);
}

TEST(FormatOptions, TakesArgumentsAsTheyStand) {
    const FormatOptions brackets =
        parse({"--check", "[a,b]", "--exclude", "[cd]", "-s", "[x]", "[]", "[a", "--", "[e,f]", "--extensions="})
            .options;
    EXPECT_EQ((std::vector<std::string>{"[a,b]", "[]", "[a", "[e,f]", "--extensions="}), brackets.files);
    EXPECT_EQ(std::vector<std::string>{"[cd]"}, brackets.excludes);
    EXPECT_EQ("[x]", brackets.scheme);
    // Nothing is no list, no path and no number.
    for (const char* option :
         {"--extensions=", "--scheme=", "--threshold=", "--project=", "--files-from=", "--shard="}) {
        const FormatCommand command = parse({option, "-i", "a.cpp"});
        EXPECT_EQ(Action::Fail, command.action) << option;
        EXPECT_NE(std::string::npos, command.text.find(std::string(option, 0, 6))) << command.text;
    }
    EXPECT_EQ(std::vector<std::string>{""}, parse({"--exclude=", "a.cpp"}).options.excludes);
}

TEST(FormatOptions, RefusesWhatMakesNoSense) {
    const struct {
        std::vector<const char*> arguments;
        const char* mentions;  // the words that tell the user what is wrong
    } cases[] = {
        {{"--bogus"}, "--bogus"},
        {{"-i"}, "standard input"},
        {{"-i", "-"}, "standard input"},
        {{"-i", "a", "-"}, "standard input"},
        {{"-i", "--check", "a"}, "--check"},
        {{"-i", "--diff", "a"}, "--diff"},
        {{"--backup", "a"}, "--in-place"},
        {{"--backup=x", "--check", "a"}, "--in-place"},
        {{"-i", "--backup=x/y", "a"}, "slash"},
        {{"--assume-filename", "x", "a"}, "standard input"},
        {{"--assume-filename="}, "--assume-filename"},
        {{"-", "-"}, "once"},
        {{"-s", ""}, "--scheme"},
        {{"-s"}, "--scheme"},
        {{"-s", "a", "-s", "b"}, "--scheme"},
        {{"--threshold", "4"}, "--threshold"},
        {{"--threshold", "-1"}, "--threshold"},
        {{"--threshold=two"}, "--threshold"},
        {{"--check=0"}, "check"},
        {{"--in-place=false", "a"}, "in-place"},
        {{"--verify=seams"}, "--verify"},
        {{"--line-endings=cr"}, "--line-endings"},
        {{"-i", "a", "--extensions", ""}, "--extensions"},
        {{"--extensions=c,a/b", "-i", "a"}, "a/b"},
        {{"--extensions=*.c", "-i", "a"}, "*.c"},
        {{"--project", "a"}, "--check"},
        {{"-i", "--workspace", ""}, "--workspace"},
        {{"-i", "-0", "a"}, "--files-from"},
        {{"--files-from", ""}, "--files-from"},
        {{"-j", "0", "a"}, "--jobs"},
        {{"-j", "x", "a"}, "--jobs"},
        {{"--shard=0/2", "a"}, "--shard"},
        {{"--shard=3/2", "a"}, "--shard"},
        {{"--shard=1", "a"}, "--shard"},
        {{"--shard=1/2x", "a"}, "--shard"},
        {{"--shard=1/1"}, "standard input"},
        {{"--shard=1/2", "--lines=1:2", "a"}, "--shard"},
        {{"--files-from", "-", "-"}, "once"},
        {{"--dump-scheme", "--files-from", "a"}, "--files-from"},
        {{"--undo", "a"}, "--undo"},
        {{"--undo", "--recover"}, "--recover"},
        {{"--recover", "-i", "a"}, "--recover"},
        {{"--verify=false"}, "--verify"},
        {{"-i", "--no-verify", "--verify=stable", "a"}, "--no-verify"},
        {{"--no-verify=stable"}, "no-verify"},
        {{"--list-schemes", "--dump-scheme"}, "--dump-scheme"},
        {{"--list-schemes", "a"}, "no files"},
        {{"--dump-scheme", "a", "b"}, "one file"},
        {{"--dump-scheme", "-i", "a"}, "--in-place"},
        {{"--dump-scheme", "--diff", "a"}, "--diff"},
        {{"--list-schemes", "--check"}, "--check"},
    };
    for (const auto& [arguments, mentions] : cases) {
        const FormatCommand command = parse(arguments);
        EXPECT_EQ(Action::Fail, command.action) << arguments.front();
        EXPECT_NE(std::string::npos, command.text.find(mentions)) << command.text;
    }
}

TEST(FormatOptions, HelpAndVersion) {
    const FormatCommand help = parse({"--help", "--bogus"});
    EXPECT_EQ(Action::ShowText, help.action);
    const std::vector<const char*> options[] = {
        {"-s, --scheme=", "--list-schemes", "--dump-scheme", "-i, --in-place", "--backup[=EXT]", "--check", "--diff"},
        {"--verify[=", "--no-verify", "--verbose", "--assume-filename=", "--line-endings=", "--undo", "--recover"},
        {"--project=", "--workspace=", "--files-from=", "-0 ", "--extensions=", "--exclude=", "--no-ignore"},
        {"--shard=", "-j, --jobs="},
        {"--threshold=", "--help", "--version", "Exit status"},
    };
    for (const auto& group : options) {
        for (const char* option : group) EXPECT_NE(std::string::npos, help.text.find(option)) << option;
    }
    const FormatCommand version = parse({"--version"});
    EXPECT_EQ(Action::ShowText, version.action);
    EXPECT_EQ(0u, version.text.find("corvane-format (Corvane C++) 1.2.1\n"));
}

}  // namespace
}  // namespace Console
