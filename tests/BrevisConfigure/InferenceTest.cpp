// The search for a scheme, and what it counts by.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "../support/TestFiles.h"
#include "Brevis_Formatter.h"
#include "inference/BrevisUI_LineDifference.h"
#include "inference/BrevisUI_SchemeInference.h"
#include "inference/BrevisUI_TextStatistics.h"

namespace BrevisUI {
namespace {

using Brevis::PropertySet;

TEST(LineDifference, CountsLinesWithoutACounterpart) {
    const struct {
        const char* source;
        const char* result;
        std::uint64_t lines, changed;
    } cases[] = {
        {"", "", 0, 0},
        {"a\nb\n", "a\nb\n", 2, 0},
        {"a\n b\n", "a\nb\n", 2, 1},
        {"a\nb\n", "a b\n", 2, 2},
        {"a b\nc\n", "a\nb\nc\n", 2, 1},
        {"a\n\n\nb\n", "a\n\nb\n", 4, 1},  // an empty line less
        {"a\nb\n", "a\n\nb\n", 2, 0},      // one more
        {"a\n  \nb\n", "a\n\nb\n", 3, 1},  // not so empty
        {"a\nb", "a\nb\n", 2, 0},
        {"x\nx\nx\n", "x\n x\nx\n", 3, 1},
    };
    for (const auto& [source, result, lines, changed] : cases) {
        const LineDifference difference = compareLines(source, result);
        EXPECT_EQ(lines, difference.lines) << source;
        EXPECT_EQ(changed, difference.changed) << source << "->\n" << result;
    }
}

TEST(TextStatistics, TellsTabsAndEmptyLines) {
    TextStatistics lines;
    lines.add("a\n\tb\n\t    c \n    d\n\n\n e\n#if 1\n  #endif\n\n");
    EXPECT_EQ(3u, lines.tabIndented + lines.withTrailingBlanks);
    EXPECT_EQ(5u, lines.indented);
    EXPECT_EQ(2u, lines.directives);
    EXPECT_EQ(1u, lines.directivesAtMargin);
    EXPECT_EQ(0u, lines.endingInOneFeed);
    EXPECT_EQ(1u, lines.emptyRuns[2]);       // the last one stands between no lines
    EXPECT_EQ(2u, lines.filledWithTabs[0]);  // of 8: the four blanks are as many tabs as there can be
    EXPECT_EQ(1u, lines.filledWithTabs[1]);  // of 4
    EXPECT_EQ(3u, lines.wideAsTab[1]);
}

// ---- The search

const InferenceHost alone = {[](std::size_t count, const std::function<void(std::size_t)>& work) {
    for (std::size_t i = 0; i < count; ++i) work(i);
},
                             [](double) { return true; }};

InferenceResult infer(const std::vector<InferenceText>& texts, std::int32_t edition = 2) {
    InferenceOptions options;
    options.edition = edition;
    return SchemeInference(texts, options, alone).run();
}

std::string textOf(const PropertySet& scheme, const char* key) {
    std::string value = "unset";
    scheme.getString(key, value);
    return value;
}

std::string format(const PropertySet& scheme, const std::string& text) {
    Trn::ParseMessageList messages;
    Brevis::UpdateFunctor update;
    return Brevis::Formatter().format(Brevis::FormatterProperties(scheme), text, messages, update).text;
}

// What a scheme has laid out is in the style of a scheme: the search must find one that leaves it alone, and that has a
// value for nearly all that shows.
TEST(SchemeInference, FindsTheStyleThatASchemeMakes) {
    const std::string schemes = CORVANE_SOURCE_DIR "/bench/fidelity/schemes/";
    std::vector<std::string> sources;
    for (const auto& entry : std::filesystem::directory_iterator(CORVANE_SOURCE_DIR "/Brevis/src/second")) {
        sources.push_back(TestFiles::contents(entry.path()));
    }
    std::ranges::sort(sources);
    constexpr std::size_t enough = 8;
    sources.resize(enough);
    for (const char* name : {"clang-google", "indent-linux", "astyle-whitesmith"}) {
        PropertySet scheme;
        std::ifstream file(schemes + name + ".fsc");
        std::stringstream lines;
        for (std::string line; std::getline(file, line);) {
            if (!line.starts_with('#')) lines << line << '\n';
        }
        scheme.read(lines);
        ASSERT_TRUE(lines) << name;
        std::vector<InferenceText> texts;
        for (const std::string& source : sources) texts.push_back({"a.cpp", format(scheme, source), {}});
        const InferenceResult result = infer(texts);
        EXPECT_LE(result.changedLines * 200, result.lines) << name;
        std::string wanted, found;
        scheme.getString("INDENT_CS_CONTENT", wanted);
        result.scheme.getString("INDENT_CS_CONTENT", found);
        EXPECT_EQ(wanted, found) << name;
        scheme.getString("WS_BEFORE_CS_OPEN_BRACE", wanted);
        result.scheme.getString("WS_BEFORE_CS_OPEN_BRACE", found);
        EXPECT_EQ(wanted, found) << name;
        EXPECT_GE(result.scheme.count(), 50u) << name;
    }
}

TEST(SchemeInference, LeavesUnsetWhatTheCodeDoesNotAgreeOn) {
    std::string text;
    for (int i = 0; i < 10; ++i) {
        text +=
            i % 2 == 0 ? "void f() {\n\tif(a)\n\t\tg( 1,2 );\n}\n\n" : "void f() {\n\tif (a)\n\t\tg( 1, 2 );\n}\n\n";
    }
    const InferenceResult result = infer({{"a.c", text, {}}});
    EXPECT_EQ("unset", textOf(result.scheme, "WS_AFTER_CS_KEY"));
    EXPECT_EQ("unset", textOf(result.scheme, "WS_BETWEEN_FN_CALL_ARGS"));
    EXPECT_EQ(" ", textOf(result.scheme, "WS_AFTER_EXPR_OPEN_PAREN"));
    EXPECT_EQ("\t", textOf(result.scheme, "INDENT_FN_CONTENT"));
    EXPECT_EQ("unset", textOf(result.scheme, "INDENT_NS_CONTENT"));
    EXPECT_EQ(0u, result.changedLines);
    const auto key = std::ranges::find_if(
        result.keys, [](const KeyEvidence& evidence) { return evidence.property->key == "WS_AFTER_CS_KEY"; });
    ASSERT_NE(result.keys.end(), key);
    EXPECT_EQ(10u, key->places);
    EXPECT_EQ(5u, key->agreeing);
    EXPECT_FALSE(key->isSet);
}

TEST(SchemeInference, TellsWhatChangesAllTheSame) {
    std::string text;
    for (int i = 0; i < 400; ++i) text += "int f(int a) { return a; }\n";
    text += "int f (int a) { return a; }\n";
    const InferenceResult result = infer({{"a.c", text, {}}, {"b.c", "}{", {}}});
    EXPECT_EQ(401u, result.lines);
    EXPECT_EQ(1u, result.changedLines);
    EXPECT_EQ(1u, result.refused);
    ASSERT_EQ(1u, result.causes.size());
    EXPECT_EQ("WS_AFTER_FN_NAME", result.causes[0].name);
    EXPECT_EQ("a.c", result.causes[0].file);
    EXPECT_EQ(401, result.causes[0].line);
    EXPECT_EQ("\" \"", result.causes[0].before);
    EXPECT_EQ("\"\"", result.causes[0].after);
}

TEST(SchemeInference, MakesSchemesOfTheFirstEditionToo) {
    std::string text;
    for (int i = 0; i < 20; ++i) text += "int f(int a) {\n    if (a)\n        return -1;\n    return a;\n}\n";
    const InferenceResult result = infer({{"a.c", text, {}}}, 1);
    EXPECT_FALSE(result.scheme.has("EDITION"));
    EXPECT_EQ("    ", textOf(result.scheme, "INDENT_FN_CONTENT"));
    for (const std::string& key : result.scheme.keys()) EXPECT_EQ(1, Brevis::Catalogue::find(key)->edition) << key;
    EXPECT_EQ(0u, result.changedLines);
}

TEST(SchemeInference, StopsWhenItIsTold) {
    InferenceHost host = alone;
    int asked = 0;
    host.goOn = [&asked](double) { return ++asked < 5; };
    const std::vector<InferenceText> texts = {{"a.c", "int a;\nint b;\n", {}}};
    EXPECT_TRUE(SchemeInference(texts, {}, host).run().isCancelled);
    EXPECT_EQ(5, asked);
}

}  // namespace
}  // namespace BrevisUI
