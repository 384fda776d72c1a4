// The promises of the second edition, on code that nobody here wrote: a scheme without keys changes nothing, and under
// drawn schemes only white space changes.
#include <gtest/gtest.h>

#include <algorithm>

#include "FormatRun.h"
#include "Fuzz_SchemeDrawer.h"
#include "Fuzz_Trial.h"
#include "RealSources.h"
#include "scheme/Brevis_PropertyCatalogue.h"

namespace Harness {
namespace {

using Brevis::Catalogue::keyOf;

// Some of the sources, those of both packages.
std::vector<std::filesystem::path> someSources(std::size_t step) {
    std::vector<std::filesystem::path> some;
    for (const std::string package : {"googletest", "libstdc++-12-dev"}) {
        const std::vector<std::filesystem::path> all = sourcesOf(package);
        for (std::size_t at = 0; at < all.size(); at += step) some.push_back(all[at]);
    }
    return some;
}

Brevis::PropertySet emptyScheme(std::int32_t tabSize) {
    Brevis::PropertySet scheme("empty");
    scheme.setInt(keyOf(&Brevis::Scheme::edition), 2);
    scheme.setInt(keyOf(&Brevis::Scheme::tabSize), tabSize);
    scheme.setInt(keyOf(&Brevis::Scheme::convertWs), 0);
    return scheme;
}

TEST(SecondEditionTest, EmptySchemeChangesNothing) {
    const auto sources = someSources(5);
    if (sources.empty()) GTEST_SKIP() << "no package of real code is installed; scripts/test installs them";
    int formatted = 0;
    for (const auto& path : sources) {
        const std::string text = readFile(path);
        if (text.find('\r') != std::string::npos) continue;
        for (const std::int32_t tabSize : {3, 8}) {
            const FormatRun run = formatText(emptyScheme(tabSize), text);
            if (!run.isFormatted) continue;
            ++formatted;
            EXPECT_TRUE(run.text == text) << path << " with tabs of " << tabSize;
        }
    }
    EXPECT_GE(formatted, 200);
}

// Of what the sources above don't hold.
TEST(SecondEditionTest, EmptySchemeKeepsOddWhiteSpace) {
    const std::string texts[] = {
        "",
        "\n",
        " \t ",
        "  \n\n  int x;  \n  \n",
        "\tint x ;\f\n\v\n  int y\\\n;",
        "/* a */ #if A\n\t#else\n  #endif /* b\n\tc */ int x; /* d\n */   int z;",
        "void f()\n{ // a\n\t /* b\n\t\tc */ g(a::\n b::operator\n  ==(1), \"x\\\n\t y\", R\"(\n z)\");\n  }",
        "int a; // b \\\n\t  c\n  int d;  // e",
        "{\n{{ (\n(\n\t}",
    };
    for (const std::string& text : texts) {
        for (const std::int32_t tabSize : {1, 3, 8}) {
            const FormatRun run = formatText(emptyScheme(tabSize), text);
            if (run.isFormatted) {
                EXPECT_EQ(run.text, text);
            }
        }
    }
}

// The schemes of well-known styles.
std::vector<Brevis::PropertySet> styles() {
    std::vector<Brevis::PropertySet> schemes;
    std::vector<std::filesystem::path> paths;
    for (const auto& entry :
         std::filesystem::directory_iterator(sourceDirectory() / "bench" / "fidelity" / "schemes")) {
        paths.push_back(entry.path());
    }
    std::sort(paths.begin(), paths.end());
    for (const auto& path : paths) schemes.push_back(readScheme(path));
    return schemes;
}

template <class Draw>
void tryDrawnSchemes(unsigned seed, bool runsTwice, Draw draw) {
    const auto sources = someSources(3);
    if (sources.empty()) GTEST_SKIP() << "no package of real code is installed; scripts/test installs them";
    Fuzz::SeededDraws draws(seed);
    int formatted = 0;
    for (int round = 0; round < 300; ++round) {
        const auto& path = sources[draws.below(static_cast<unsigned>(sources.size()))];
        const Brevis::PropertySet scheme = draw(draws);
        const Fuzz::Trial trial = Fuzz::tryText(scheme, readFile(path).substr(0, 60000), runsTwice);
        if (trial.verdict == Fuzz::Verdict::Refused) continue;
        ++formatted;
        EXPECT_EQ(trial.verdict, Fuzz::Verdict::Settled) << path << ", round " << round << ": " << trial.complaint;
    }
    EXPECT_GE(formatted, 200);
}

TEST(SecondEditionTest, DrawnSchemesChangeOnlyWhiteSpace) { tryDrawnSchemes(21, false, Fuzz::drawSecondScheme); }

TEST(SecondEditionTest, MixedStylesSettle) {
    const std::vector<Brevis::PropertySet> schemes = styles();
    ASSERT_FALSE(schemes.empty());
    tryDrawnSchemes(22, true, [&](Fuzz::Draws& draws) { return Fuzz::drawMixedScheme(draws, schemes); });
}

}  // namespace
}  // namespace Harness
