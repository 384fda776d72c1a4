// Slides a comment, and a directive, through every place between two tokens of samples: wherever a person may write
// one, it survives every shipped scheme, and so does the code round it.
#include <gtest/gtest.h>

#include <optional>

#include "Brevis_Formatter.h"
#include "FormatRun.h"
#include "guard/Brevis_SeamLexer.h"
#include "guard/Brevis_TokenDifference.h"
#include "scheme/Brevis_PropertyCatalogue.h"

namespace Harness {
namespace {

// Short ones, since the work grows with the square of their length.
constexpr const char* samples[] = {
    R"sample(
#define TWICE(x) ((x) + \
  (x))
extern "C" { int puts(const char*); }
using namespace std;
typedef int (*Compare)(const void* a, int);
enum Unit { piece, box = 12 };
int table[2] = { { 1, -2 }, 'c' };
const char* text = "one" R"(two  three)";
)sample",
    R"sample(
namespace shop {
template <class T, int n = 4> struct Shelf : public Base<T> {
Shelf(int a = 1) : Base<T>(a), size_(n) {}
virtual ~Shelf() = 0;
T& operator[](int i) const throw() { return items_[i]; }
private:
unsigned flags : 3;
};
}
)sample",
    R"sample(
long count(Shelf<int>* shelf, ...)
{
#ifdef TRACE
puts("x");
#endif
int *p = new int[3], &r = *p;
for (int i = 0; i < 3; ++i) r += - -i << 2;
if (!p || a ? b : c) { return 1; } else if (p) delete [] p; else goto done;
switch (r) { case 1: break; default: p->f(1, (char)2); }
do { try { throw 1; } catch (...) { r--; } } while (p != 0);
done:
return static_cast<long>(0x1p+3);
}
)sample"};

// Every offset between two tokens, those inside white space too.
std::vector<std::size_t> placesBetweenTokens(std::string_view text) {
    std::vector<std::size_t> places;
    Brevis::SeamLexer lexer(text);
    std::size_t place = 0;
    for (Brevis::SeamToken token = lexer.next(); token.kind != Brevis::SeamKind::End; token = lexer.next()) {
        for (; place <= token.begin; ++place) places.push_back(place);
        place = token.end;
    }
    return places;
}

std::string loss(const std::string& before, const std::string& after) {
    if (withoutWhiteSpace(before) != withoutWhiteSpace(after)) return lossIn(before, after);
    const std::optional<Brevis::TokenDifference> difference = Brevis::findTokenDifference(before, after);
    return difference ? difference->before + " became " + difference->after : "";
}

class CommentSlideTest : public testing::TestWithParam<const char*> {};

TEST_P(CommentSlideTest, SurvivesBetweenAnyTwoTokens) {
    Brevis::PropertySet scheme = readSchemeNamed(GetParam());
    scheme.setBool(Brevis::Catalogue::keyOf(&Brevis::Scheme::lineWrap), false);
    Brevis::PropertySet wrappingScheme = scheme;
    wrappingScheme.setBool(Brevis::Catalogue::keyOf(&Brevis::Scheme::lineWrap), true);
    wrappingScheme.setInt(Brevis::Catalogue::keyOf(&Brevis::Scheme::rightMargin), 20);
    const Brevis::FormatterProperties wrapping(wrappingScheme);

    int texts = 0;
    int formatted = 0;
    int wrapped = 0;
    const auto trySlid = [&](const std::string& text) {
        ++texts;
        FormatRun run = formatText(scheme, text);
        ASSERT_EQ(run.isFormatted, run.messages.empty());
        if (!run.isFormatted) return;
        ++formatted;
        ASSERT_EQ(loss(text, run.text), "") << "became\n" << run.text;
        const Brevis::FormatResult second = Brevis::Formatter().wrap(wrapping, run.text, run.messages);
        ASSERT_EQ(second.isFormatted(), run.messages.empty());
        if (!second.isFormatted()) return;
        ++wrapped;
        ASSERT_EQ(loss(text, second.text), "") << "became, wrapped,\n" << second.text;
    };
    for (const std::string sample : samples) {
        for (const std::size_t place : placesBetweenTokens(sample)) {
            for (const std::string slid : {"/* c */", "// c\n", "\n#pragma c\n"}) {
                const std::string text = std::string(sample).insert(place, slid);
                trySlid(text);
                if (HasFatalFailure()) FAIL() << text;
            }
        }
    }
    EXPECT_GE(formatted * 10, texts * 9) << "so few tell nothing";
    EXPECT_GE(wrapped * 10, texts * 9) << "so few tell nothing";
}

class SecondCommentSlideTest : public testing::TestWithParam<const char*> {};

// The second edition takes each of these texts, and settles at once.
TEST_P(SecondCommentSlideTest, Settles) {
    Brevis::PropertySet scheme = readSchemeNamed(GetParam());
    scheme.setInt(Brevis::Catalogue::keyOf(&Brevis::Scheme::edition), 2);
    int texts = 0;
    int formatted = 0;
    for (const std::string sample : samples) {
        for (const std::size_t place : placesBetweenTokens(sample)) {
            for (const std::string slid : {" /* a\n  b */ ", "// c\n", "\n\n// c\n\n", "\n#if C\n#endif\n"}) {
                const std::string text = std::string(sample).insert(place, slid);
                const FormatRun run = formatText(scheme, text);
                ++texts;
                if (!run.isFormatted) continue;
                ++formatted;
                ASSERT_EQ(loss(text, run.text), "") << "became\n" << run.text;
                ASSERT_EQ(formatText(scheme, run.text).text, run.text) << "from\n" << text;
            }
        }
    }
    EXPECT_GE(formatted * 10, texts * 9) << "so few tell nothing";
}

INSTANTIATE_TEST_SUITE_P(Schemes, CommentSlideTest, testing::Values("first_corvane", "first_allman", "first_kr"));
INSTANTIATE_TEST_SUITE_P(Schemes, SecondCommentSlideTest,
                         testing::Values("first_allman", "Corvane", "GNU", "Linux", "Mozilla", "Whitesmiths"));

}  // namespace
}  // namespace Harness
