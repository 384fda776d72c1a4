// The search for schemes, the words for bad ones, and the schemes that come with the program.
#include "Console_SchemeFinder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "../support/TestFiles.h"
#include "scheme/Brevis_PropertyCatalogue.h"

namespace Console {
namespace {

namespace fs = std::filesystem;

TEST(SchemeFinder, TakesTheNearestSchemeUpwards) {
    const TestFiles::TempDir dir;
    const std::string outer = dir.file("p/.corvane.fsc", "x");
    const std::string inner = dir.file("p/a/b/.corvane.fsc", "x");
    fs::create_directories(dir.file("p/a/c/d"));
    const SchemeFinder finder("fallback");
    const struct {
        const char* file;
        std::string scheme;
    } cases[] = {
        {"p/a/b/x.cpp", inner},      {"p/a/c/d/x.cpp", outer},       {"p/x.cpp", outer},
        {"p/a/b/../x.cpp", outer},   {"p/a/nowhere/x.cpp", outer},   {"x.cpp", "fallback"},
        {"p/a/c/../b/x.cpp", inner}, {"p/a/b/gone/../x.cpp", inner},
    };
    for (const auto& [file, scheme] : cases) EXPECT_EQ(scheme, finder.pathFor(dir.file(file))) << file;

    const fs::path old = fs::current_path();
    fs::current_path(dir.file("p/a/c"));
    EXPECT_EQ(outer, finder.pathFor("x.cpp"));
    EXPECT_EQ(outer, finder.pathFor(""));
    EXPECT_EQ(inner, finder.pathFor("../b/x.cpp"));
    fs::current_path(old);
}

TEST(SchemeFinder, ReadsASchemeOnce) {
    const TestFiles::TempDir dir;
    const std::string path = dir.file("s.fsc", "Brevis::PropertySet\n1\n\"s\"\n2 TAB_SIZE 3\n");
    SchemeFinder finder("");
    const LoadedScheme& first = finder.load(path);
    EXPECT_TRUE(first.good);
    EXPECT_TRUE(first.remarks.empty());
    EXPECT_EQ("s", first.scheme.name());
    fs::remove(path);
    EXPECT_EQ(&first, &finder.load(path));
}

TEST(LoadScheme, TellsWhatIsWrongAndWhere) {
    const TestFiles::TempDir dir;
    fs::create_directory(dir.file("d"));
    const std::string good = "Brevis::PropertySet\n1\n\"s\"\n";
    const struct {
        const char* name;
        const char* text;  // null: the file isn't made
        bool isGood;
        const char* remark;  // behind the path, a place for it standing as @
    } cases[] = {
        {"missing", nullptr, false, "3 The scheme file \"@\" cannot be found."},
        {"d", nullptr, false, "3 The scheme file \"@\" cannot be read: it is a directory."},
        {"empty", "", false,
         "3 @(0) : error: This is no scheme file: it doesn't begin with the line \"Brevis::PropertySet\"."},
        {"code", "\nint x;\n", false,
         "3 @(2) : error: This is no scheme file: it doesn't begin with the line \"Brevis::PropertySet\"."},
        {"version", "Brevis::PropertySet\n2\n", false,
         "3 @(2) : error: Expected the format version 1 in a line of its own."},
        {"type", "Brevis::PropertySet\n1\n\"s\"\nTAB_SIZE 4\n", false,
         "3 @(4) : error: Expected a property, which begins with the type 1, 2 or 3."},
        {"key", "Brevis::PropertySet\n1\n\"s\"\n3\n", false, "3 @(4) : error: Expected a key behind the type 3."},
        {"value", "Brevis::PropertySet\n1\n\"s\"\n2 TAB_SIZE x\n", true,
         "2 @(4) : warning: The property is left out: its value doesn't fit its type."},
        {"end", "Brevis::PropertySet\n1\n\"s\"\n2 TAB_SIZE 4", true,
         "2 @(4) : warning: The property is left out: the last line of a scheme file needs a line feed."},
        {"unknown", "Brevis::PropertySet\n1\n\"s\"\n2 TAB_SIZES 4\n", true,
         "2 @: warning: The key TAB_SIZES is unknown and has no effect; the nearest known key is TAB_SIZE."},
    };
    for (const auto& [name, text, isGood, remark] : cases) {
        const std::string path = text ? dir.file(name, text) : dir.file(name);
        const LoadedScheme loaded = loadScheme(path);
        EXPECT_EQ(isGood, loaded.good) << name;
        std::string expected = remark;
        expected.replace(expected.find('@'), 1, path);
        ASSERT_EQ(1u, loaded.remarks.size()) << name;
        EXPECT_EQ(expected, std::to_string(loaded.remarks[0].severity) + " " + loaded.remarks[0].text);
    }
}

std::string withoutComments(const std::string& text) {
    std::istringstream in(text);
    std::string kept;
    for (std::string line; std::getline(in, line);) {
        if (!line.starts_with('#')) kept += line + '\n';
    }
    return kept;
}

TEST(ShippedSchemes, AreSoundAndInTheFormThatIsWritten) {
    const std::string help = TestFiles::contents(CORVANE_SOURCE_DIR "/help/Schemes.htm");
    const fs::path directory = fs::path(shippedSchemePath()).parent_path();
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(directory)) {
        const std::string path = entry.path().string();
        const LoadedScheme loaded = loadScheme(path);
        ASSERT_TRUE(loaded.good) << path;
        EXPECT_TRUE(loaded.remarks.empty()) << loaded.remarks.front().text;
        EXPECT_EQ(entry.path().stem().string(), loaded.scheme.name());
        names.push_back(loaded.scheme.name());
        std::ostringstream out;
        loaded.scheme.write(out);
        EXPECT_EQ(withoutComments(TestFiles::contents(path)), out.str()) << path;
        EXPECT_EQ(2, Brevis::Scheme::from(loaded.scheme).edition) << path;
        bool wraps = false;
        EXPECT_FALSE(loaded.scheme.getBool("LINE_WRAP", wraps)) << path;
        std::string helpName = "<b>" + loaded.scheme.name() + "</b>";
        if (const auto sign = helpName.find('&'); sign != std::string::npos) helpName.insert(sign + 1, "amp;");
        EXPECT_NE(std::string::npos, help.find(helpName)) << "not in the help: " << helpName;
    }
    std::sort(names.begin(), names.end());
    EXPECT_EQ((std::vector<std::string>{"Allman", "Chromium", "Corvane", "GNU", "Google", "K&R", "LLVM", "Linux",
                                        "Microsoft", "Mozilla", "WebKit", "Whitesmiths"}),
              names);
}

bool isWhiteSpace(const std::string& text) { return text.find_first_not_of(" \t\n") == std::string::npos; }

// Each key stands in the table of its type, with a value that the catalogue allows.
void checkProperty(const Brevis::PropertySet& scheme, const Brevis::PropertyInfo& property) {
    using Brevis::PropertyType;
    bool flag = false;
    std::int32_t number = 0;
    std::string text;
    switch (property.type) {
        case PropertyType::Flag:
            EXPECT_TRUE(scheme.getBool(property.key, flag)) << property.key;
            break;
        case PropertyType::Number:
        case PropertyType::Choice:
            ASSERT_TRUE(scheme.getInt(property.key, number)) << property.key;
            EXPECT_TRUE(property.type == PropertyType::Number ||
                        std::any_of(property.choices.begin(), property.choices.end(),
                                    [&](const auto& choice) { return choice.value == number; }))
                << property.key;
            break;
        default:
            ASSERT_TRUE(scheme.getString(property.key, text)) << property.key;
            EXPECT_TRUE(property.type == PropertyType::Text || property.type == PropertyType::Names ||
                        isWhiteSpace(text))
                << property.key;
            EXPECT_TRUE(property.type != PropertyType::Indent ||
                        text == std::string(text.size(), text.empty() ? ' ' : text[0]))
                << property.key;
    }
}

TEST(ShippedSchemes, HoldOnlyKeysOfTheCatalogueWithFittingValues) {
    const fs::path directory = fs::path(shippedSchemePath()).parent_path();
    for (const auto& entry : fs::directory_iterator(directory)) {
        const Brevis::PropertySet scheme = loadScheme(entry.path().string()).scheme;
        std::string version;
        EXPECT_TRUE(scheme.getString("CORVANE_VERSION", version));
        EXPECT_EQ(Brevis::schemeVersion, version);
        for (const std::string& key : scheme.keys()) {
            const Brevis::PropertyInfo* property = Brevis::Catalogue::find(key);
            ASSERT_NE(nullptr, property) << key;
            checkProperty(scheme, *property);
        }
    }
}

}  // namespace
}  // namespace Console
