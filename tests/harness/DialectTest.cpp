// How the two dialects work together in a run: what the classic one takes comes out as under it alone, today's code is
// taken, and what can't be read is told or, if asked for, refused.
#include <gtest/gtest.h>

#include "Brevis_Formatter.h"
#include "FormatRun.h"
#include "RealSources.h"
#include "guard/Brevis_TokenDifference.h"

namespace Harness {
namespace {

namespace fs = std::filesystem;

Brevis::PropertySet corvane() { return readSchemeNamed("first_corvane"); }

// Some files of each package of real code, so that the test takes seconds.
std::vector<fs::path> someRealFiles() {
    std::vector<fs::path> some;
    for (const std::string package : {"googletest", "libstdc++-12-dev", "libc6-dev", "libboost1.74-dev", "libfmt-dev",
                                      "nlohmann-json3-dev", "qt6-base-dev", "libabsl-dev", "libpugixml-dev"}) {
        const std::vector<fs::path> sources = sourcesOf(package);
        const std::size_t step = 1 + sources.size() / 40;
        for (std::size_t i = 0; i < sources.size(); i += step) some.push_back(sources[i]);
    }
    return some;
}

TEST(Dialects, TakeRealCodeOfToday) {
    const Brevis::PropertySet scheme = corvane();
    const std::vector<fs::path> files = someRealFiles();
    if (files.empty()) GTEST_SKIP() << "no package of real code is installed; scripts/test installs them";
    int classic = 0;
    for (const fs::path& path : files) {
        const std::string text = readFile(path);
        const FormatRun run = formatText(scheme, text);
        EXPECT_TRUE(run.isFormatted) << path << '\n' << messageLines(run.messages);
        EXPECT_EQ(messageLines(run.messages), "") << path;
        EXPECT_EQ(withoutWhiteSpace(text), withoutWhiteSpace(run.text)) << path;
        EXPECT_FALSE(Brevis::findTokenDifference(text, run.text)) << path;
        const FormatRun old = formatText(scheme, text, classicReading);
        if (!old.isFormatted) continue;
        ++classic;
        EXPECT_EQ(old.text, run.text) << path;
    }
    EXPECT_GE(classic, 10) << "so few tell nothing";
    EXPECT_LE(classic, static_cast<int>(files.size()) - 10) << "nor does a sample of old code";
}

TEST(Dialects, LeaveAloneAndTellWhatCannotBeRead) {
    const std::string text = "int   a;\n+ - b   { c }\nint   d;\n";
    const FormatRun lenient = formatText(corvane(), text);
    EXPECT_EQ(lenient.text, "int a;\n+ - b   { c }\nint d;\n");
    EXPECT_EQ(messageLines(lenient.messages),
              "2:1 severity 2 code 15: This could not be read and is left as it stands.\n");

    Brevis::Reading strict;
    strict.isStrict = true;
    const FormatRun refused = formatText(corvane(), text, strict);
    EXPECT_FALSE(refused.isFormatted);
    EXPECT_FALSE(refused.messages.empty());
}

TEST(Dialects, RefuseBracketsWithoutPartners) {
    for (const std::string text : {"void f() {\n", "int a[(]);\n", "auto a = [] { g(; };\n", "}\n"}) {
        const FormatRun run = formatText(corvane(), text, {Brevis::DialectChoice::modern});
        EXPECT_FALSE(run.isFormatted) << text;
        EXPECT_NE(messageLines(run.messages).find("This bracket has no partner."), std::string::npos) << text;
    }
}

TEST(Dialects, TakeWordsOfCppForNamesInC) {
    const std::string text = "struct class *new( int private);\n";
    Brevis::Reading reading;
    reading.language = Brevis::LanguageChoice::c;
    EXPECT_EQ(formatText(corvane(), text, reading).text, "struct class *new(int private);\n");
}

}  // namespace
}  // namespace Harness
