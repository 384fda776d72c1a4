// The golden cases under tests/golden, found by directory. CONTRIBUTING.md tells how the files are named.
#pragma once

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

namespace Harness {

struct GoldenCase {
    std::string name;  // topic/input.scheme
    std::filesystem::path input;
    std::filesystem::path scheme;    // empty if there is none of that name
    std::filesystem::path expected;  // the formatted text, or the messages if `refused`
    bool refused = false;

    // Beside the expectation of a scheme of the second edition: what the first makes of it, if that is something else.
    std::filesystem::path first() const { return std::filesystem::path(expected).replace_extension(".first"); }
};

inline void PrintTo(const GoldenCase& golden, std::ostream* os) { *os << golden.name; }

struct GoldenFiles {
    std::vector<GoldenCase> cases;     // ordered by name
    std::vector<std::string> orphans;  // files that belong to no case, each with what it lacks
};

std::filesystem::path goldenDirectory();

// Looks at every file below the directory once.
GoldenFiles findGoldenFiles();

}  // namespace Harness
