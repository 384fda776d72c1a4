// Formats and wraps real code under schemes drawn at random from the whole catalogue of keys: whatever a scheme asks
// for, only white space changes, and a text without overlong lines passes the second pass as it is.
#include <gtest/gtest.h>

#include <random>

#include "Brevis_Formatter.h"
#include "Brevis_PropertyCatalogue.h"
#include "FormatRun.h"
#include "RealSources.h"

namespace Harness {
namespace {

class SchemeDrawer {
public:
    explicit SchemeDrawer(unsigned seed) : random_(seed) {}

    int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }

    Brevis::PropertySet draw() {
        Brevis::PropertySet scheme("drawn");
        for (const Brevis::PropertyInfo& info : Brevis::Catalogue::properties) {
            if (upTo(3) == 0) continue;
            switch (info.type) {
                case Brevis::PropertyType::Flag:
                    scheme.setBool(info.key, upTo(2) == 0);
                    break;
                case Brevis::PropertyType::Number:
                case Brevis::PropertyType::Choice:
                    scheme.setInt(info.key, upTo(4) - 1);
                    break;
                case Brevis::PropertyType::Indent:
                    scheme.setString(info.key,
                                     std::string(static_cast<std::size_t>(upTo(8)), upTo(2) == 0 ? '\t' : ' '));
                    break;
                default:
                    scheme.setString(info.key, values[upTo(std::size(values) - 1)]);
            }
        }
        scheme.setBool(Brevis::Key::LINE_WRAP, true);
        scheme.setInt(Brevis::Key::RIGHT_MARGIN, 1 + upTo(199));
        scheme.setInt(Brevis::Key::TAB_SIZE, 1 + upTo(7));
        return scheme;
    }

private:
    static constexpr const char* values[] = {"", " ", " ", "\n", "\n", "\t", "  ", "\n\n", "\n\t"};

    std::mt19937 random_;
};

TEST(DrawnSchemeTest, ChangesOnlyWhiteSpace) {
    std::vector<std::filesystem::path> sources;
    for (const std::string package : {"googletest", "libstdc++-12-dev", "libc6-dev"}) {
        for (const auto& path : sourcesOf(package)) sources.push_back(path);
    }
    if (sources.empty()) GTEST_SKIP() << "no package of real code is installed; scripts/test installs them";

    SchemeDrawer drawer(20);
    int formatted = 0;
    for (int round = 0; round < 1500; ++round) {
        const auto& path = sources[static_cast<std::size_t>(drawer.upTo(static_cast<int>(sources.size()) - 1))];
        Brevis::PropertySet scheme = drawer.draw();
        const std::string input = readFile(path);
        const FormatRun run = formatText(scheme, input);
        if (run.result != 0) continue;
        ++formatted;
        EXPECT_EQ(withoutWhiteSpace(input), withoutWhiteSpace(run.text)) << path << ", round " << round;

        scheme.setInt(Brevis::Key::RIGHT_MARGIN, 1 << 30);
        std::string text = run.text;
        Trn::ParseMessageList messages;
        if (Brevis::Formatter().wrap(Brevis::FormatterProperties(scheme), text, messages) == 0) {
            EXPECT_EQ(text, run.text) << path << ", round " << round;
        }
    }
    EXPECT_GE(formatted, 500);
}

}  // namespace
}  // namespace Harness
