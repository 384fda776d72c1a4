// Runs every golden case in three ways, and checks that the files under tests/golden belong together.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "FormatRun.h"
#include "GoldenCase.h"

namespace Harness {
namespace {

bool updating() { return std::getenv("CORVANE_UPDATE_GOLDEN") != nullptr; }

void writeFile(const std::filesystem::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

std::string withCarriageReturns(const std::string& text) {
    std::string result;
    for (const char c : text) result += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return result;
}

bool mayChangeAgain(const std::string& caseName) {
    const std::vector<std::string> known = readExceptions(goldenDirectory() / "second-run.txt");
    return std::find(known.begin(), known.end(), caseName) != known.end();
}

class GoldenTest : public testing::TestWithParam<GoldenCase> {
protected:
    // The formatted text, or the messages of a case that the classic dialect must refuse.
    std::string outcome(const std::string& input) const {
        const Brevis::Reading reading = GetParam().refused ? classicReading : Brevis::Reading{};
        const FormatRun run = formatText(readScheme(GetParam().scheme), input, reading);
        EXPECT_EQ(!run.isFormatted, GetParam().refused) << messageLines(run.messages);
        EXPECT_EQ(run.isFormatted, run.messages.empty());
        EXPECT_TRUE(run.isFormatted || run.text.empty());
        return run.isFormatted ? run.text : messageLines(run.messages);
    }
};

TEST_P(GoldenTest, ComesOutAsExpected) {
    const std::string input = readFile(GetParam().input);
    const std::string actual = outcome(input);
    if (updating() && !HasFailure()) writeFile(GetParam().expected, actual);
    EXPECT_EQ(actual, readFile(GetParam().expected));
    EXPECT_EQ(outcome(withCarriageReturns(input)), actual) << "with carriage returns";
    if (GetParam().refused) return;
    EXPECT_EQ(lossIn(input, actual), "");
    if (mayChangeAgain(GetParam().name)) {
        EXPECT_NE(outcome(actual), actual) << "stands in second-run.txt, and its second run changes nothing any more";
    } else {
        EXPECT_EQ(outcome(actual), actual) << "second run";
    }
}

std::string caseName(const testing::TestParamInfo<GoldenCase>& info) {
    std::string name = info.param.name;
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Files, GoldenTest, testing::ValuesIn(findGoldenFiles().cases), caseName);

// ---- What the second edition does otherwise than the first

// A shipped scheme shows a style, and no rule.
bool isOfSecondEdition(const GoldenCase& golden) {
    if (golden.scheme.parent_path() == sourceDirectory() / "schemes") return false;
    std::int32_t edition = 1;
    return readScheme(golden.scheme).getInt("EDITION", edition) && edition == 2;
}

std::vector<GoldenCase> casesOfSecondEdition() {
    std::vector<GoldenCase> cases = findGoldenFiles().cases;
    // The shipped schemes are for the second edition alone.
    const std::filesystem::path own = goldenDirectory() / "schemes";
    std::erase_if(cases, [&own](const GoldenCase& golden) {
        return golden.refused || golden.scheme.parent_path() != own || !isOfSecondEdition(golden);
    });
    return cases;
}

class EditionsTest : public testing::TestWithParam<GoldenCase> {};

TEST_P(EditionsTest, StandBesideEachOther) {
    Brevis::PropertySet scheme = readScheme(GetParam().scheme);
    scheme.erase("EDITION");
    const FormatRun run = formatText(scheme, readFile(GetParam().input));
    std::string actual = run.isFormatted ? run.text : messageLines(run.messages);
    if (actual == readFile(GetParam().expected)) actual.clear();
    const std::filesystem::path path = GetParam().first();
    if (updating()) actual.empty() ? static_cast<void>(std::filesystem::remove(path)) : writeFile(path, actual);
    EXPECT_EQ(std::filesystem::exists(path) ? readFile(path) : "", actual);
}

INSTANTIATE_TEST_SUITE_P(Files, EditionsTest, testing::ValuesIn(casesOfSecondEdition()), caseName);

// A case that gets lost by a slip in a name would go unnoticed otherwise.
TEST(GoldenFiles, BelongTogetherAndAreAllThere) {
    const GoldenFiles files = findGoldenFiles();
    for (const std::string& orphan : files.orphans) ADD_FAILURE() << orphan;

    const std::filesystem::path countFile = goldenDirectory() / "count.txt";
    const std::string count = std::to_string(files.cases.size()) + '\n';
    if (updating()) writeFile(countFile, count);
    EXPECT_EQ(readFile(countFile), count);

    for (const std::string& name : readExceptions(goldenDirectory() / "second-run.txt")) {
        EXPECT_TRUE(std::any_of(files.cases.begin(), files.cases.end(),
                                [&name](const GoldenCase& golden) { return golden.name == name; }))
            << "second-run.txt names no case: " << name;
    }
}

// The text of the first fenced block behind `heading`.
std::string fencedBlock(const std::string& page, const std::string& heading) {
    const std::size_t fence = page.find("```cpp\n", page.find(heading));
    const std::size_t first = page.find('\n', fence) + 1;
    return page.substr(first, page.find("```", first) - first);
}

TEST(Readme, ShowsWhatTheDefaultSchemeDoes) {
    const std::string page = readFile(sourceDirectory() / "README.md");
    const FormatRun run =
        formatText(readScheme(sourceDirectory() / "schemes" / "Corvane.fsc"), fencedBlock(page, "Before:"));
    EXPECT_EQ(run.text, fencedBlock(page, "After,"));
}

}  // namespace
}  // namespace Harness
