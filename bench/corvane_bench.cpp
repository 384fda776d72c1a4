// Measures lexing, parsing and formatting in bytes a second, for one, ten and a hundred times the same text: a rate
// that falls as the text grows tells of work that grows faster than the text; and what a keystroke in the scheme editor
// costs. scripts/bench runs it.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>

#include "Brevis_Formatter.h"
#include "Cpp_Lexer.h"
#include "Cpp_Nodes.h"
#include "Cpp_Parser.h"
#include "editor/BrevisUI_Preview.h"
#include "editor/BrevisUI_StylesSheet.h"
#include "editor/BrevisUI_TextMoves.h"
#include "guard/Brevis_SeamGuard.h"
#include "scheme/Brevis_PropertyCatalogue.h"

namespace {

namespace fs = std::filesystem;

std::string readFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + path.string());
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

const Brevis::PropertySet& scheme() {
    static const Brevis::PropertySet scheme = [] {
        std::ifstream in(fs::path(CORVANE_SOURCE_DIR) / "schemes" / "Corvane.fsc");
        Brevis::PropertySet read;
        read.read(in);
        if (in.fail()) throw std::runtime_error("cannot read the shipped scheme");
        return read;
    }();
    return scheme;
}

// The same scheme with the second pass.
const Brevis::PropertySet& wrappingScheme() {
    static const Brevis::PropertySet wrapping = [] {
        Brevis::PropertySet copy = scheme();
        copy.setBool(Brevis::Catalogue::keyOf(&Brevis::Scheme::lineWrap), true);
        return copy;
    }();
    return wrapping;
}

std::string repeated(const std::string& text, std::int64_t times) {
    std::string result;
    for (std::int64_t i = 0; i < times; ++i) result += text;
    return result;
}

// The files under examples/, the way people write.
std::string examples() {
    std::string text;
    for (const char* file : {"inventory.cpp", "ring_buffer.h", "settings.c"}) {
        text += readFile(fs::path(CORVANE_SOURCE_DIR) / "examples" / file);
    }
    return text;
}

// One construct with many parts.
struct Huge {
    const char* name;
    const char* before;
    const char* part;
    const char* after;
};

constexpr Huge hugeTexts[] = {
    {"class", "class A\n{\n", "int a; // a\nvoid f(int b, const char* c) const;\n", "};\n"},
    {"initializer list", "int a[] = {", "1, 0x2f, /* c */ f(3),\n", "4};\n"},
    {"function", "void f()\n{\n", "for (int i = 0; i < n; ++i) { g(a[i] + 1, b); }\nint x = 1;\n", "}\n"},
    {"enum", "enum E\n{\n", "a = 1, // a\nb,\n", "c\n};\n"},
    {"comment", "/*\n", "    some words of a comment\n", "*/\n"},
};

// Constructs on one line, for the second pass.
constexpr Huge longLines[] = {
    {"arguments", "void f() { g(", "abc, ", "d); }\n"},
    {"operands", "void f() { x = ", "abc + ", "d; }\n"},
    {"shifts", "void f() { out", " << abc", "; }\n"},
    {"initializer", "int a[] = { ", "1234, ", "5 };\n"},
};

std::size_t lexed(const std::string& text) {
    Cpp::Lexer lexer(text);
    std::size_t tokens = 0;
    while (lexer.next().kind() != Trn::Kind::EndOfInput) ++tokens;
    return tokens;
}

int parsed(const std::string& text) {
    Cpp::Lexer lexer(text);
    Cpp::RootNode root;
    Trn::ParseMessageList messages;
    Cpp::Parser().parse(lexer, root, messages);
    return root.childCount();
}

std::string formattedText(const Brevis::PropertySet& scheme, const std::string& text) {
    Trn::ParseMessageList messages;
    Brevis::UpdateFunctor update;
    const Brevis::FormatterProperties properties(scheme);
    Brevis::FormatResult result = Brevis::Formatter().format(properties, text, messages, update);
    if (!result.isFormatted()) throw std::runtime_error("refused: " + messages.front().text);
    return std::move(result.text);
}

std::size_t formatted(const std::string& text) { return formattedText(scheme(), text).size(); }
std::size_t wrapped(const std::string& text) { return formattedText(wrappingScheme(), text).size(); }

template <class Stage>
void run(benchmark::State& state, const std::string& text, Stage stage) {
    for (auto round : state) benchmark::DoNotOptimize(stage(text));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void lexing(benchmark::State& state) { run(state, repeated(examples(), state.range(0)), lexed); }
void parsing(benchmark::State& state) { run(state, repeated(examples(), state.range(0)), parsed); }
void formatting(benchmark::State& state) { run(state, repeated(examples(), state.range(0)), formatted); }

void wrapping(benchmark::State& state) { run(state, repeated(examples(), state.range(0)), wrapped); }

// The last step of each pass alone: what it costs to prove that the formatted text has the tokens of the source.
void guarding(benchmark::State& state) {
    const std::string source = repeated(examples(), state.range(0));
    const std::string formatted = formattedText(scheme(), source);
    run(state, source, [&](const std::string& text) {
        std::string output = formatted;
        return Brevis::SeamGuard(text).mend(output);
    });
}

void formattingOneHuge(benchmark::State& state) {
    const Huge& huge = hugeTexts[state.range(0)];
    state.SetLabel(huge.name);
    run(state, huge.before + repeated(huge.part, 1000 * state.range(1)) + huge.after, formatted);
}

void wrappingOneLine(benchmark::State& state) {
    const Huge& line = longLines[state.range(0)];
    state.SetLabel(line.name);
    run(state, line.before + repeated(line.part, 1000 * state.range(1)) + line.after, wrapped);
}

// What a keystroke in the scheme editor costs without the drawing: the change of a control, the preview of the sample
// that takes longest, and what moved in it.
void previewing(benchmark::State& state) {
    using namespace BrevisUI;
    StylesSheet sheet;
    sheet.setScheme(wrappingScheme());
    StylesBasePage& page = sheet.page(tabOf(Brevis::PropertyPage::LineWrapping));
    const SampleTable samples{{std::string(page.previewName()), std::string(builtInSample(page.previewName()))}};
    std::string shown;
    for (auto _ : state) {
        page.setNumber("RIGHT_MARGIN", 60 + static_cast<std::int32_t>(state.iterations() % 2));
        Preview preview = previewOf(page, sheet.scheme(), samples);
        benchmark::DoNotOptimize(movedRanges(shown, preview.text));
        shown = std::move(preview.text);
    }
}

BENCHMARK(previewing)->Unit(benchmark::kMillisecond);
BENCHMARK(lexing)->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(parsing)->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(formatting)->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(guarding)->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(wrapping)->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(wrappingOneLine)
    ->ArgsProduct({benchmark::CreateDenseRange(0, std::size(longLines) - 1, 1), {1, 10, 100}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(formattingOneHuge)
    ->ArgsProduct({benchmark::CreateDenseRange(0, std::size(hugeTexts) - 1, 1), {1, 10, 100}})
    ->Unit(benchmark::kMillisecond);

}  // namespace
