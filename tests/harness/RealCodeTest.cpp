// Formats code that nobody here wrote, under every shipped scheme and those of the first edition, in the
// classic dialect: the files of three Debian packages. Whatever a scheme does, nothing may be lost, and a second run
// should find nothing left to do. The files for which a run is refused or a second run changes something stand in lists
// with the reasons; a list that no longer holds fails.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <set>
#include <sstream>

#include "FormatRun.h"
#include "RealSources.h"

namespace Harness {
namespace {

namespace fs = std::filesystem;

struct RealCode {
    std::string package;  // Debian's name, without architecture
    std::string scheme;
    std::size_t index = 0;  // of the scheme
};

void PrintTo(const RealCode& code, std::ostream* os) { *os << code.package << " under " << code.scheme; }

// The names of a list of exceptions that belong to one test, and those of them that were met.
class Exceptions {
public:
    Exceptions(const std::string& file, const std::string& prefix) : file_(file) {
        for (const std::string& name : readExceptions(sourceDirectory() / "tests" / "realcode" / file)) {
            if (name.starts_with(prefix)) open_.insert(name.substr(prefix.size()));
        }
    }

    // Tells of an exception that is not listed; `what` says what is wrong with the file.
    void met(const fs::path& path, const std::string& what) {
        if (open_.erase(path.string()) == 0)
            ADD_FAILURE() << path.string() << ", not listed in " << file_ << ": " << what;
    }

    // To be called when all sources were seen: what is still open has been mended, or is gone from the package.
    void expectAllMet(const std::vector<fs::path>& sources) const {
        for (const std::string& name : open_) {
            EXPECT_EQ(std::count(sources.begin(), sources.end(), fs::path(name)), 0)
                << name << " is listed in " << file_ << " for no reason any more";
        }
    }

private:
    std::string file_;
    std::set<std::string> open_;
};

// The text without the words that the grammar does not know.
std::string withoutNewerWords(std::string text) {
    std::istringstream words(readFile(sourceDirectory() / "tests" / "realcode" / "newer-words.txt"));
    for (std::string word; std::getline(words, word);) {
        if (word.starts_with('#')) continue;
        for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at)) {
            text.erase(at, word.size());
        }
    }
    return text;
}

class RealCodeTest : public testing::TestWithParam<RealCode> {
protected:
    // True if the file was formatted, as it stands or without the words that the grammar does not know.
    bool check(const fs::path& path) {
        const std::string text = readFile(path);
        const FormatRun run = formatChecked(path, text);
        if (run.isFormatted) return true;
        EXPECT_TRUE(isOfFirstEdition_) << path << ": " << messageLines(run.messages);
        refused_.met(path, messageLines(run.messages));
        return formatChecked(path, withoutNewerWords(text)).isFormatted;
    }

    FormatRun formatChecked(const fs::path& path, const std::string& input) {
        FormatRun run = formatText(scheme_, input, classicReading);
        if (!run.isFormatted) {
            EXPECT_EQ(run.text, "") << path;
            EXPECT_FALSE(run.messages.empty()) << path;
            return run;
        }
        EXPECT_EQ(lossIn(input, run.text), "") << path;
        const FormatRun second = formatText(scheme_, run.text, classicReading);
        if (second.text != run.text) unstable_.met(path, "a second run changes it: " + changeIn(run.text, second.text));
        return run;
    }

    // The first line that differs.
    static std::string changeIn(const std::string& before, const std::string& after) {
        const auto [a, b] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
        const auto line = std::count(before.begin(), a, '\n') + 1;
        return "line " + std::to_string(line) + " \"" + lineAt(before, a) + "\" becomes \"" + lineAt(after, b) + '"';
    }

    static std::string lineAt(const std::string& text, std::string::const_iterator at) {
        const auto offset = static_cast<std::size_t>(at - text.begin());
        const std::size_t from = offset == 0 ? 0 : text.rfind('\n', offset - 1) + 1;
        return text.substr(from, text.find('\n', from) - from);
    }

    Brevis::PropertySet scheme_ = readSchemeNamed(GetParam().scheme);
    bool isOfFirstEdition_ = Brevis::Scheme::from(scheme_).edition == 1;  // the second reads whatever has its brackets
    Exceptions refused_{"refused.txt", ""};
    Exceptions unstable_{"second-run.txt", GetParam().scheme + ' '};
};

std::vector<std::string> realCodeSchemes() {
    std::vector<std::string> schemes{"first_corvane", "first_allman", "first_kr"};
    for (const fs::directory_entry& entry : fs::directory_iterator(sourceDirectory() / "schemes")) {
        if (entry.path().extension() == ".fsc") schemes.push_back(entry.path().stem().string());
    }
    return schemes;
}

// Under sanitizers the schemes share the files: each file meets one of them.
std::vector<fs::path> filesFor(const RealCode& code) {
    const std::vector<fs::path> all = sourcesOf(code.package);
    if (!isSanitized) return all;
    std::vector<fs::path> share;
    for (std::size_t file = code.index; file < all.size(); file += realCodeSchemes().size()) share.push_back(all[file]);
    return share;
}

TEST_P(RealCodeTest, KeepsEverythingAndSettles) {
    const std::vector<fs::path> sources = filesFor(GetParam());
    if (sources.empty())
        GTEST_SKIP() << "package " << GetParam().package << " is not installed; scripts/test installs it";
    const auto formatted =
        std::count_if(sources.begin(), sources.end(), [this](const fs::path& path) { return check(path); });
    if (isOfFirstEdition_) refused_.expectAllMet(sources);
    unstable_.expectAllMet(sources);
    // The lists must not swallow the test.
    EXPECT_GE(formatted * 10, static_cast<std::ptrdiff_t>(sources.size()) * (isSanitized ? 3 : 7));
    std::cout << GetParam().package << ": " << formatted << " of " << sources.size() << " files formatted\n";
}

std::vector<RealCode> allRealCode() {
    std::vector<RealCode> all;
    for (const std::string package : {"googletest", "libstdc++-12-dev", "libc6-dev"}) {
        std::size_t index = 0;
        for (const std::string& scheme : realCodeSchemes()) all.push_back({package, scheme, index++});
    }
    return all;
}

std::string codeName(const testing::TestParamInfo<RealCode>& info) {
    std::string name = info.param.package + '_' + info.param.scheme;
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Packages, RealCodeTest, testing::ValuesIn(allRealCode()), codeName);

}  // namespace
}  // namespace Harness
