#include "GoldenCase.h"

#include <algorithm>
#include <map>
#include <set>

#include "FormatRun.h"

namespace Harness {

namespace fs = std::filesystem;

namespace {

// Collects the files by what their names say and then joins them into cases.
class GoldenSearch {
public:
    GoldenFiles run() {
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(goldenDirectory())) {
            if (entry.is_regular_file()) sortIn(entry.path());
        }
        for (const fs::path& expected : expectations_) addCase(expected);
        reportUnused();
        std::sort(files_.cases.begin(), files_.cases.end(),
                  [](const GoldenCase& a, const GoldenCase& b) { return a.name < b.name; });
        return std::move(files_);
    }

private:
    void sortIn(const fs::path& path) {
        if (path.parent_path() == goldenDirectory()) return;  // the lists of the harness itself
        if (path.extension() == ".fsc") {
            schemes_[path.stem().string()] = path;
        } else if (path.extension() == ".in") {
            inputs_[(path.parent_path() / path.stem()).string()] = path;
        } else if (path.extension() == ".expected" || path.extension() == ".refused") {
            expectations_.push_back(path);
        } else if (path.extension() == ".first" && fs::exists(fs::path(path).replace_extension(".expected"))) {
            // Belongs to that case.
        } else {
            files_.orphans.push_back(path.string() + ": neither input, scheme nor expectation");
        }
    }

    void addCase(const fs::path& expected) {
        // NAME.SCHEME.expected
        const fs::path stem = expected.parent_path() / expected.stem();
        const std::string schemeName = stem.extension().string().substr(stem.has_extension() ? 1 : 0);
        const auto input = inputs_.find((stem.parent_path() / stem.stem()).string());
        if (input == inputs_.end()) {
            files_.orphans.push_back(expected.string() + ": no input");
            return;
        }
        usedInputs_.insert(input->first);
        usedSchemes_.insert(schemeName);
        const fs::path scheme = schemePath(schemeName);
        if (scheme.empty()) {
            files_.orphans.push_back(expected.string() + ": no scheme " + schemeName);
            return;
        }
        files_.cases.push_back({fs::relative(stem, goldenDirectory()).string(), input->second, scheme, expected,
                                expected.extension() == ".refused"});
    }

    fs::path schemePath(const std::string& name) const {
        if (const auto own = schemes_.find(name); own != schemes_.end()) return own->second;
        const fs::path shipped = sourceDirectory() / "schemes" / (name + ".fsc");
        return fs::exists(shipped) ? shipped : fs::path();
    }

    void reportUnused() {
        for (const auto& [key, path] : inputs_) {
            if (!usedInputs_.contains(key)) files_.orphans.push_back(path.string() + ": no expectation");
        }
        for (const auto& [name, path] : schemes_) {
            if (!usedSchemes_.contains(name)) files_.orphans.push_back(path.string() + ": no case uses this scheme");
        }
    }

    GoldenFiles files_;
    std::map<std::string, fs::path> inputs_;   // by path without `.in`
    std::map<std::string, fs::path> schemes_;  // by name
    std::vector<fs::path> expectations_;
    std::set<std::string> usedInputs_;
    std::set<std::string> usedSchemes_;
};

}  // namespace

fs::path goldenDirectory() { return sourceDirectory() / "tests" / "golden"; }

GoldenFiles findGoldenFiles() { return GoldenSearch().run(); }

}  // namespace Harness
