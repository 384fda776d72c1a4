// Runs the cases in tests/Cpp/shapes and, for the modern dialect, in tests/Cpp/modern-shapes: `->` shows the tree of the
// source, `@` the tree with positions.
#include <gtest/gtest.h>

#include "CaseFile.h"
#include "TreeShape.h"

namespace Cpp {
namespace {

void expectShapes(const CaseGroup& group, Dialect dialect) {
    EXPECT_EQ(group.fault, "");
    for (const TextCase& c : group.cases) {
        const testing::ScopedTrace at(group.file.c_str(), c.line, c.source);
        ParsedText text(c.source, dialect, group.language());
        for (const auto& [mark, expected] : c.expected) {
            EXPECT_EQ(mark == "->" ? text.shape() : mark == "@" ? text.shapeWithPositions() : text.reports(), expected);
        }
    }
}

class ParserShapeTest : public testing::TestWithParam<CaseGroup> {};
class ModernShapeTest : public testing::TestWithParam<CaseGroup> {};

TEST_P(ParserShapeTest, ComesOutAsExpected) { expectShapes(GetParam(), Dialect::classic); }
TEST_P(ModernShapeTest, ComesOutAsExpected) { expectShapes(GetParam(), Dialect::modern); }

INSTANTIATE_TEST_SUITE_P(Files, ParserShapeTest, testing::ValuesIn(readCaseGroups("shapes")), groupName);
INSTANTIATE_TEST_SUITE_P(Files, ModernShapeTest, testing::ValuesIn(readCaseGroups("modern-shapes")), groupName);

}  // namespace
}  // namespace Cpp
