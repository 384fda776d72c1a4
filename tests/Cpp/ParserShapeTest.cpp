// Runs the cases in tests/Cpp/shapes: `->` shows the tree of the source, `@` the tree with positions.
#include <gtest/gtest.h>

#include "CaseFile.h"
#include "TreeShape.h"

namespace Cpp {
namespace {

class ParserShapeTest : public testing::TestWithParam<CaseGroup> {};

TEST_P(ParserShapeTest, ComesOutAsExpected) {
    EXPECT_EQ(GetParam().fault, "");
    for (const TextCase& c : GetParam().cases) {
        const testing::ScopedTrace at(GetParam().file.c_str(), c.line, c.source);
        ParsedText text(c.source);
        for (const auto& [mark, expected] : c.expected) {
            EXPECT_EQ(mark == "->" ? text.shape() : mark == "@" ? text.shapeWithPositions() : text.reports(), expected);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Files, ParserShapeTest, testing::ValuesIn(readCaseGroups("shapes")), groupName);

}  // namespace
}  // namespace Cpp
