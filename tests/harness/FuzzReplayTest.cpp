// Runs the fuzz targets on their seed corpus and on every input that once showed a fault.
#include <gtest/gtest.h>

#include "FormatRun.h"
#include "Fuzz_Targets.h"

namespace Harness {
namespace {

class FuzzReplayTest : public testing::TestWithParam<Fuzz::Target> {};

TEST_P(FuzzReplayTest, FindsNothingInKnownInputs) {
    int replayed = 0;
    for (const std::string folder : {"corpus", "findings"}) {
        const auto entries = std::filesystem::recursive_directory_iterator(sourceDirectory() / "fuzz" / folder);
        for (const auto& entry : entries) {
            if (!entry.is_regular_file() || entry.path().parent_path().filename() != GetParam().name) continue;
            ++replayed;
            EXPECT_NO_THROW(GetParam().run(readFile(entry.path()))) << entry.path();
        }
    }
    EXPECT_GE(replayed, 20);
}

std::string targetName(const testing::TestParamInfo<Fuzz::Target>& info) { return std::string(info.param.name); }

INSTANTIATE_TEST_SUITE_P(Targets, FuzzReplayTest, testing::ValuesIn(Fuzz::targets), targetName);

}  // namespace
}  // namespace Harness
