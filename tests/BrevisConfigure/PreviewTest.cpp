// The samples of the pages, their previews, and what is told of a text that changed.
#include "editor/BrevisUI_Preview.h"

#include <gtest/gtest.h>

#include "../support/TestFiles.h"
#include "Brevis_Formatter.h"
#include "EditorSupport.h"
#include "editor/BrevisUI_TextMoves.h"

namespace BrevisUI {
namespace {

using EditorSupport::defaultScheme;
using EditorSupport::schemeOf;

SampleTable builtInSamples() {
    SampleTable table;
    for (const PageInfo& page : pageTable) table.emplace(page.previewName, builtInSample(page.previewName));
    return table;
}

TEST(PreviewSamples, StandToTheLetter) {
    const struct {
        const char* name;
        std::size_t length;
        const char* part;
    } samples[] = {
        {"GlobalsPreview", 551, "overview of \n// the"},
        {"ClassesPreview", 321, "union Location {\nstruct"},
        {"EnumsPreview", 78, "purple=4};\n\n"},
        {"NamespacesPreview", 210, "~Y();\n};}\n"},
        {"FunctionsPreview", 373, "i_(i)\n{\n\n}"},
        {"MemberInitsPreview", 201, "++m_Count;}\n}"},
        {"DataPreview", 242, "price;\n};\n\n"},
        {"ControlStatementsPreview", 365, "{cout << i; \n}"},
        {"PreprocessorPreview", 88, "#endif\nreturn"},
        {"ExpressionsPreview", 372, "layout\\n\"};"},
        {"PointersReferencesPreview", 110, "Foo(char* cp)\nvoid"},
        {"TemplatesPreview", 313, "Buffer{\nBuffer();"},
        {"LineWrappingPreview", 1000, "a->name << '\\n' <<"},
    };
    for (const auto& [name, length, part] : samples) {
        EXPECT_EQ(length, builtInSample(name).size()) << name;
        EXPECT_NE(std::string_view::npos, builtInSample(name).find(part)) << name;
    }
    EXPECT_EQ(std::size(samples), std::size(pageTable));
    EXPECT_EQ("", builtInSample("Other"));
}

TEST(PreviewSamples, CanBeChangedInTheSettings) {
    const TestFiles::TempDir dir;
    SettingsFile settings(dir.file("s.json", "{\"Options\": {\"EnumsPreview\": \"enum \\\\\\\"x\\\\n{};\"}}"));
    settings.load(SettingsFile::Access::Full);
    const LoadedSamples first = loadSamples(settings);
    EXPECT_TRUE(first.hasNew);
    SampleTable expected = builtInSamples();
    expected["EnumsPreview"] = "enum \"x\n{};";
    EXPECT_EQ(expected, first.table);
    EXPECT_EQ("", settings.save());
    SettingsFile again(dir.file("s.json"));
    again.load(SettingsFile::Access::Full);
    const LoadedSamples second = loadSamples(again);
    EXPECT_FALSE(second.hasNew);
    EXPECT_EQ(expected, second.table);
}

// The function head without a semicolon is a head of a function like any other.
TEST(Preview, FormatsEverySample) {
    StylesSheet sheet;
    for (const Brevis::PropertySet& scheme :
         {defaultScheme(), schemeOf(""), schemeOf("1 LINE_WRAP 1\n2 RIGHT_MARGIN 40\n")}) {
        for (const auto& page : sheet.pages()) {
            const Preview preview = previewOf(*page, scheme, builtInSamples());
            EXPECT_EQ(Preview::Kind::Code, preview.kind);
            EXPECT_FALSE(preview.text.empty()) << page->title();
            Trn::ParseMessageList messages;
            Brevis::UpdateFunctor update;
            Brevis::Formatter().format(Brevis::FormatterProperties(scheme), builtInSample(page->previewName()),
                                       messages, update);
            EXPECT_TRUE(messages.empty()) << page->title() << messages.front().text;
        }
    }
}

TEST(Preview, TellsWhyItShowsNoCode) {
    StylesSheet sheet;
    const StylesBasePage& enums = sheet.page(tabOf(Brevis::PropertyPage::Enums));
    const Preview off = previewOf(enums, schemeOf("1 ENUMS_DO_NOT_FORMAT 1\n2 TAB_SIZE 8\n"), {});
    EXPECT_EQ("Code will be left as is", off.text);
    EXPECT_FALSE(off.tabSize);
    const Preview missing = previewOf(enums, schemeOf("1 FN_DO_NOT_FORMAT 1\n2 TAB_SIZE 8\n"), {});
    EXPECT_EQ("No Preview Available", missing.text);
    EXPECT_EQ(8, missing.tabSize);
    const Preview bad = previewOf(enums, schemeOf(""), {{"EnumsPreview", "class {"}});
    EXPECT_EQ("", bad.text);
    EXPECT_EQ(Preview::Kind::Code, bad.kind);
}

TEST(Preview, FormatsATextOfTheUser) {
    const Brevis::PropertySet scheme = schemeOf("3 WS_BETWEEN_EXPR_OP_OPERANDS \" \"\n");
    const OwnTextPreview good = previewOfOwnText("a.cpp", "\xEF\xBB\xBFint a = 1+2;\r\n\r\nint b;\r\n", scheme);
    EXPECT_TRUE(good.isFormatted);
    EXPECT_EQ("int a = 1 + 2;\n\nint b;\n", good.text);
    EXPECT_EQ("int a = 1+2;\n\nint b;\n", good.given);
    EXPECT_EQ(1u, good.changedLines);
    EXPECT_EQ(3u, good.lines);
    const OwnTextPreview bad = previewOfOwnText("a.cpp", "class {", scheme);
    EXPECT_FALSE(bad.isFormatted);
    EXPECT_EQ("class {", bad.text);
    EXPECT_TRUE(bad.message.starts_with("a.cpp(1)")) << bad.message;
    EXPECT_FALSE(previewOfOwnText("a.cpp", std::string_view("a\0b", 3), scheme).message.empty());
}

TEST(TextMoves, FindWhatHasMoved) {
    const struct {
        const char* before;
        const char* after;
        std::vector<std::string> moved;  // the stretches of `after`
        std::size_t changedLines;
    } cases[] = {
        {"int a;\n", "int a;\n", {}, 0},
        {"int a;\n", "int  a;\n", {"  "}, 1},
        {"f (a, b);\n", "f(a,b);\n", {"f(", ",b"}, 1},
        {"{\na;\nb;\n}", "{\n  a;\n  b;\n}", {"\n  ", "\n  "}, 2},
        {"a {\nb;\n}\n", "a\n{\nb;\n}\n", {"\n"}, 1},
        {"a;\n\n\nb;\n", "a;\n\nb;\n", {"\n\n"}, 1},
        {"a;\n\nb;", "a;\n \n\nb;", {"\n \n\n"}, 1},
        {"  a", "a", {"a"}, 1},
        {"a \n", "a", {"a"}, 1},
        {"a", "\na\n", {"\n", "\n"}, 0},
        {" a b c", "abc", {"abc"}, 1},
        {"", " ", {" "}, 0},
        {" ", "", {}, 1},
        {"a;\nb;\n", "a;\nc;\n", {}, 1},
        {"a", "a b", {}, 1},
    };
    for (const auto& [before, after, moved, changedLines] : cases) {
        std::vector<std::string> stretches;
        for (const auto& [begin, end] : movedRanges(before, after)) {
            stretches.push_back(std::string(after).substr(begin, end - begin));
        }
        EXPECT_EQ(moved, stretches) << before << " to " << after;
        EXPECT_EQ(changedLines, countChangedLines(before, after)) << before << " to " << after;
    }
    EXPECT_EQ(0u, countLines(""));
    EXPECT_EQ(1u, countLines("\n"));
    EXPECT_EQ(2u, countLines("a\nb"));
}

}  // namespace
}  // namespace BrevisUI
