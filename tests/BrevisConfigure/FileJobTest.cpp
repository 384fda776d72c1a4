// The file job: what it tells, what it leaves on disk.
#include "BrevisUI_FileJob.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "../support/Environment.h"
#include "../support/TestFiles.h"
#include "BrevisUI_Messages.h"
#include "BrevisUI_TextJob.h"

namespace BrevisUI {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;
using TestFiles::contents;

constexpr const char* uglyText = "void f( ){\n      g( );\n}\n";
constexpr const char* prettyText = "void f( ){\n  g( );\n}\n";
// Behind the code the parser reports two errors.
constexpr const char* bad = "int x;\n  class A { int (; };\n}\n";

Brevis::FormatterProperties scheme() {
    Brevis::PropertySet scheme("two blanks");
    scheme.setString("INDENT_FN_CONTENT", "  ");
    return Brevis::FormatterProperties(scheme);
}

class Host : public FormatHost {
public:
    void send(const std::string& text, int severity) override { sent.push_back(std::to_string(severity) + " " + text); }
    void letUserInterfaceRun() override { ++breaths; }
    bool createBackups() const override { return backups; }
    std::string backupExtension() const override { return "bak"; }
    void onFormatted(const std::string& path, const Brevis::FormatResult&) override { formatted.push_back(path); }

    Lines sent;
    Lines formatted;
    bool backups = false;
    int breaths = 0;
};

class Progress : public FileProgressDlg {
public:
    bool isCancelled() const override { return static_cast<int>(shown.size()) >= cancelAfter; }
    void resetBar() override { shown.push_back("reset"); }
    void show(const std::string& text, bool step) override {
        shown.push_back(text.substr(0, text.find(':')) + (step ? "" : " without a step"));
    }

    Lines shown;
    int cancelAfter = 100;
};

class FileJobTest : public testing::Test {
protected:
    FileResult run(const std::string& path) { return formatFile(host, path, scheme(), progress); }
    std::string starting(const std::string& path) const { return "1 Formatting \"" + path + "\"."; }
    static std::string parseFailed(const std::string& path) {
        return "3 Corvane C++ could not successfully parse the file " + path +
               ". If the file contains only valid C/C++ then please check the Corvane C++ FAQ at "
               "https://corvane.example/faq to see if this is a known issue. Otherwise, please send an email to "
               "support@corvane.example. The file will not be formatted.";
    }

    TestFiles::TempDir dir;
    Host host;
    FileProgressDlg* progress = nullptr;
};

TEST_F(FileJobTest, WritesTheFileOverAndKeepsABackupOnlyWhenAsked) {
    const std::string path = dir.file("a.cpp", uglyText);
    EXPECT_EQ(FileResult::Formatted, run(path));
    EXPECT_EQ(prettyText, contents(path));
    EXPECT_EQ(Lines{starting(path)}, host.sent);
    EXPECT_FALSE(fs::exists(path + ".bak"));

    TestFiles::write(path, uglyText);
    TestFiles::write(path + ".bak", "an older backup, longer than the file that is to take its place");
    host.backups = true;
    EXPECT_EQ(FileResult::Formatted, run(path));
    EXPECT_EQ(prettyText, contents(path));
    EXPECT_EQ(uglyText, contents(path + ".bak"));
}

TEST_F(FileJobTest, KeepsLineEndsAndByteOrderMark) {
    const std::string path = dir.file("a.cpp", "\xef\xbb\xbfvoid f( ){\r\n      g( );\n}\r\n");
    EXPECT_EQ(FileResult::Formatted, run(path));
    EXPECT_EQ("\xef\xbb\xbfvoid f( ){\r\n  g( );\n}\r\n", contents(path));
}

TEST_F(FileJobTest, LeavesAFormattedFileAlone) {
    for (const char* text : {prettyText, "void f( ){\r\n  g( );\r\n}\r\n"}) {
        const std::string path = dir.file("a.cpp", text);
        const auto old = fs::file_time_type::clock::now() - std::chrono::hours(5);
        fs::last_write_time(path, old);
        host.backups = true;
        EXPECT_EQ(FileResult::Unchanged, run(path));
        EXPECT_EQ(old, fs::last_write_time(path));
        EXPECT_EQ(text, contents(path));
        EXPECT_FALSE(fs::exists(path + ".bak"));
    }
    EXPECT_EQ(2u, host.formatted.size());
}

TEST_F(FileJobTest, RefusesWhatIsNoTextOfBytes) {
    const std::string nul = dir.file("nul.cpp", std::string("int   x;\0", 9));
    EXPECT_EQ(FileResult::Refused, run(nul));
    EXPECT_EQ("3 The file \"" + nul + "\" holds NUL characters and is no source text. The file will not be formatted.",
              host.sent.back());
    EXPECT_FALSE(formatText(host, "a.cpp", scheme(), "\xff\xfe\x01\x02"));
    EXPECT_EQ(0u, host.sent.back().find("3 The file \"a.cpp\" is encoded in UTF-16 or UTF-32.")) << host.sent.back();
}

// The guard lets no such text come out of the engine, so the check is asked by itself.
TEST_F(FileJobTest, RefusesATextWhoseTokensWouldChange) {
    const std::string path = "a.cpp";
    const Brevis::FormatterProperties any = scheme();
    const TextJob job(host, path, any);
    EXPECT_TRUE(job.changesTokens("void f( ){ else x; }", "void f( ){ elsex; }"));
    ASSERT_EQ(2u, host.sent.size());
    EXPECT_EQ(0u, host.sent[0].find("3 a.cpp(1) : error: col 12: Formatting would change the code: ")) << host.sent[0];
    EXPECT_EQ("3 Formatting would change more than white space in the file \"a.cpp\". The file will not be formatted.",
              host.sent[1]);
    EXPECT_FALSE(job.changesTokens("f( )", "f ()"));
    EXPECT_EQ(2u, host.sent.size());
}

TEST_F(FileJobTest, TellsTheSummaryOfFormattedTexts) {
    const std::string path = dir.file("a.cpp", uglyText);
    EXPECT_TRUE(formatText(host, path, scheme(), uglyText));
    run(path);
    run(dir.file("bad.cpp", "void f( ){"));
    EXPECT_EQ((Lines{path, path}), host.formatted);
}

TEST_F(FileJobTest, LeavesAnEmptyFileAlone) {
    const std::string path = dir.file("a.cpp", "");
    const auto old = fs::file_time_type::clock::now() - std::chrono::hours(5);
    fs::last_write_time(path, old);
    host.backups = true;
    EXPECT_EQ(FileResult::Empty, run(path));
    EXPECT_EQ(Lines{starting(path)}, host.sent);
    EXPECT_EQ(old, fs::last_write_time(path));
    EXPECT_FALSE(fs::exists(path + ".bak"));
}

TEST_F(FileJobTest, RefusesWhatItCannotReadOrWrite) {
    const std::string readOnly = dir.file("readonly.cpp", uglyText);
    fs::permissions(readOnly, fs::perms(0444));
    const std::string directory = dir.file("directory");
    fs::create_directory(directory);
    const std::string missing = dir.file("missing.cpp");
    const struct {
        std::string path;
        std::string message;
    } cases[] = {
        {missing, "3 The file \"" + missing + "\" cannot be found."},
        {readOnly, "3 The file \"" + readOnly + "\" does not have read/write permissions and cannot be formatted."},
        {directory, "3 Corvane C++ was unable to read the contents of the file \"" + directory +
         "\". The file will not be formatted."},
    };
    host.backups = true;
    for (const auto& [path, message] : cases) {
        host.sent.clear();
        EXPECT_EQ(FileResult::Failed, run(path));
        EXPECT_EQ((Lines{starting(path), message}), host.sent);
        EXPECT_FALSE(fs::exists(path + ".bak"));
    }
    EXPECT_EQ(uglyText, contents(readOnly));
}

TEST_F(FileJobTest, AFileWithSyntaxErrorsStaysAsItIs) {
    const std::string path = dir.file("a.cpp", bad);
    TestFiles::write(path + ".bak", "older");
    host.backups = true;
    EXPECT_EQ(FileResult::Refused, run(path));
    ASSERT_GE(host.sent.size(), 3u);
    EXPECT_EQ(starting(path), host.sent.front());
    for (std::size_t index = 1; index + 1 < host.sent.size(); ++index) {
        EXPECT_EQ(0u, host.sent[index].find("3 " + path + "(")) << host.sent[index];
        EXPECT_NE(std::string::npos, host.sent[index].find(") : error: col ")) << host.sent[index];
    }
    EXPECT_EQ(parseFailed(path), host.sent.back());
    EXPECT_EQ(bad, contents(path));
    EXPECT_EQ("older", contents(path + ".bak"));
}

TEST_F(FileJobTest, WithoutItsBackupAFileIsNotTouched) {
    const std::string path = dir.file("a.cpp", uglyText);
    fs::create_directory(path + ".bak");
    host.backups = true;
    EXPECT_EQ(FileResult::Failed, run(path));
    EXPECT_EQ(uglyText, contents(path));
    EXPECT_EQ("3 Corvane C++ was unable to create a backup file for the file \"" + path +
              "\". The file will not be formatted.",
              host.sent.back());
}

// The new text is longer than the limit. Through a second name the file would be overwritten.
TEST_F(FileJobTest, KeepsTheSourceWhenWritingBreaksOff) {
    std::string source = "void f( ){\n";
    for (int line = 0; line < 100; ++line) source += "g( );\n";
    source += "}\n";
    const std::string path = dir.file("a.cpp", source);
    for (const bool linked : {false, true}) {
        if (linked) fs::create_hard_link(path, dir.file("b.cpp"));
        {
            const Environment::FullDisk fullDisk(source.size() + 20);
            EXPECT_EQ(FileResult::Failed, run(path));
        }
        EXPECT_EQ("3 Corvane C++ was unable to write the formatted text back to the file \"" + path +
                  "\". The file will not be formatted.",
                  host.sent.back());
        EXPECT_EQ(source, contents(path));
    }
    EXPECT_EQ("3 The file \"" + path + "\" cannot be written: File too large", host.sent[1]);
}

TEST_F(FileJobTest, ATextBeyondALimitIsReportedAndLeftAlone) {
    const std::string source = "int x = " + std::string(5000, '(') + "1" + std::string(5000, ')') + ";\n";
    const std::string path = dir.file("a.cpp", source);
    EXPECT_EQ(FileResult::Refused, run(path));
    ASSERT_EQ(2u, host.sent.size());
    const std::string head =
        "3 An unexpected error has occurred. The current Corvane C++ operation has failed. Please contact Vellum "
        "Software Technical Support and report the following details: ";
    const std::string tail = " The file \"" + path + "\" will not be formatted.";
    EXPECT_EQ(0u, host.sent[1].find(head)) << host.sent[1];
    EXPECT_GT(host.sent[1].size(), head.size() + tail.size());
    EXPECT_EQ(tail, host.sent[1].substr(host.sent[1].size() - tail.size()));
    EXPECT_EQ(source, contents(path));
}

TEST_F(FileJobTest, ShowsEachPhaseOnce) {
    Progress dialog;
    progress = &dialog;
    EXPECT_EQ(FileResult::Formatted, run(dir.file("a.cpp", uglyText)));
    const Lines good{"reset", "Opening file", "Analyzing file", "Formatting file", "Writing file", "Completed file"};
    EXPECT_EQ(good, dialog.shown);
    EXPECT_EQ(2, host.breaths);

    dialog.shown.clear();
    EXPECT_EQ(FileResult::Refused, run(dir.file("a.cpp", bad)));
    const Lines refused{"reset", "Opening file", "Analyzing file", "The file will not be formatted"};
    EXPECT_EQ(refused, dialog.shown);
}

TEST_F(FileJobTest, ACancelTakesEffectBetweenPhases) {
    const std::string path = dir.file("a.cpp", uglyText);
    const std::string cancelled = "1 " + path + "(0) : information: col 0: Formatting cancelled at user's request.";
    const struct {
        int after;  // this many steps of the dialog
        FileResult result;
        Lines sent;
    } cases[] = {
        {0, FileResult::Cancelled, {}},
        {2, FileResult::Cancelled, {starting(path)}},
        {3, FileResult::Refused, {starting(path), cancelled, parseFailed(path)}},
    };
    for (const auto& [after, result, sent] : cases) {
        Progress dialog;
        dialog.cancelAfter = after;
        progress = &dialog;
        host.sent.clear();
        EXPECT_EQ(result, run(path)) << after;
        EXPECT_EQ(sent, host.sent) << after;
        EXPECT_EQ(uglyText, contents(path));
    }
}

TEST_F(FileJobTest, TheMiddlePartTellsWhyThereIsNoText) {
    EXPECT_EQ(prettyText, formatText(host, "<stdin>", scheme(), uglyText));
    EXPECT_TRUE(host.sent.empty());
    EXPECT_EQ(std::nullopt, formatText(host, "<stdin>", scheme(), bad));
    ASSERT_FALSE(host.sent.empty());
    EXPECT_EQ(parseFailed("<stdin>"), host.sent.back());
}

TEST(Messages, TellThePlaceAndTheSeverity) {
    const auto line = [](int severity) {
        return parseMessageLine("d/a.cpp", {severity, {12, 7}, 4, "Expected \"(\"."});
    };
    EXPECT_EQ("d/a.cpp(12) : error: col 7: Expected \"(\".", line(3));
    EXPECT_EQ("d/a.cpp(12) : warning: col 7: Expected \"(\".", line(2));
    EXPECT_EQ("d/a.cpp(12) : information: col 7: Expected \"(\".", line(1));
    EXPECT_EQ("d/a.cpp(12) : information: col 7: Expected \"(\".", line(9));
    EXPECT_EQ("The file \"%s %d\" cannot be found.", fillIn(Message::missing, "%s %d"));
}

}  // namespace
}  // namespace BrevisUI
