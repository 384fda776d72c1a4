// The settings as values, and where they and the schemes stand.
#include "settings/BrevisUI_Settings.h"

#include <gtest/gtest.h>

#include "../support/Environment.h"
#include "../support/TestFiles.h"
#include "BrevisUI_Files.h"
#include "BrevisUI_UserPlaces.h"
#include "settings/BrevisUI_EditorSettings.h"
#include "settings/BrevisUI_Extensions.h"
#include "store/BrevisUI_SchemeDelivery.h"

namespace BrevisUI {
namespace {

namespace fs = std::filesystem;
using TestFiles::contents;
using List = std::vector<std::string>;

TEST(Settings, SurviveTheEndOfTheProgram) {
    const TestFiles::TempDir dir;
    Settings settings;
    settings.windowPosition = {-5, 10, 640, 480};
    settings.formattingScheme = "K&R \"2\"\n";
    settings.fileExtensions = {"c", "inl"};
    settings.createBackups = false;
    settings.backupExtension = "orig";
    settings.messagesThreshold = 3;
    settings.lastDirectory = "/tmp/caf\xE9";  // no UTF-8
    SettingsFile file(dir.file("s.json", ""));
    fs::permissions(dir.file("s.json"), fs::perms(0600));
    writeSettings(settings, file);
    setCurrentScheme("Mine", file);
    EXPECT_EQ("int \"x\";\n", previewSample("DataPreview", "int \"x\";\n", file));
    EXPECT_EQ("", file.save());
    EXPECT_EQ(fs::perms(0600), fs::status(dir.file("s.json")).permissions());
    SettingsFile again(dir.file("s.json"));
    EXPECT_EQ("", again.load(SettingsFile::Access::Full));
    EXPECT_EQ(settings, readSettings(again));
    EXPECT_EQ("Mine", currentScheme(again));
    EXPECT_EQ("int \"x\";\n", previewSample("DataPreview", "other", again));
}

TEST(Settings, AHostileFileIsABrokenOne) {
    const TestFiles::TempDir dir;
    const std::string deep(200000, '[');
    for (const std::string& text : {deep, "{\"a\": " + deep + std::string(200000, ']') + "}",
                                    std::string("{\"a\": \"\xE9\"}"), std::string("\0\1", 2)}) {
        SettingsFile file(dir.file("s.json", text));
        EXPECT_NE("", file.load(SettingsFile::Access::ReadOnly));
        EXPECT_EQ(Settings(), readSettings(file));
    }
}

TEST(Extensions, AreTakenFromWhatAUserTypes) {
    const struct {
        const char* text;
        List list;
        const char* joined;
    } cases[] = {
        {"c;cpp, .h", {"c", "cpp", "h"}, "c cpp h"},
        {"  \t ", {}, ""},
        {";,.c. ,\thxx\t", {"c", "hxx"}, "c hxx"},
        {"..x tar.gz", {".x", "tar.gz"}, ".x tar.gz"},
    };
    for (const auto& [text, list, joined] : cases) {
        EXPECT_EQ(list, parseExtensions(text)) << text;
        EXPECT_EQ(joined, joinExtensions(list)) << text;
    }
    EXPECT_EQ((List{"c", "cc", "cpp", "cxx", "h", "hh", "hpp", "hxx"}), Settings().fileExtensions);
    EXPECT_EQ("bak", bareExtension(" ..bak. "));
    for (const char* bad : {"a/b", "a\\", "<", ">", ":", "|x", "?"}) EXPECT_FALSE(isValidExtension(bad)) << bad;
    for (const char* good : {"", "...", ".c.", "c++", "a*b"}) EXPECT_TRUE(isValidExtension(good)) << good;
}

TEST(UserPlaces, FollowTheEnvironment) {
    const struct {
        const char* data;
        const char* config;
        const char* schemes;
        const char* settings;
    } cases[] = {
        {"/d", "/c/", "/d/corvane/schemes/", "/c/corvane/settings.json"},
        {nullptr, nullptr, "/home/u/.local/share/corvane/schemes/", "/home/u/.config/corvane/settings.json"},
        {"relative", "", "/home/u/.local/share/corvane/schemes/", "/home/u/.config/corvane/settings.json"},
    };
    const Environment::Variable home("HOME", "/home/u");
    for (const auto& [data, config, schemes, settings] : cases) {
        const Environment::Variable dataHome("XDG_DATA_HOME", data), configHome("XDG_CONFIG_HOME", config);
        EXPECT_EQ(schemes, userSchemeDirectory());
        EXPECT_EQ(settings, userSettingsPath());
    }
}

TEST(UserPlaces, OnlyTheUsersOwnDirectoryGetsTheShippedSchemes) {
    const TestFiles::TempDir dir;
    const Environment::Variable data("XDG_DATA_HOME", dir.path().c_str());
    EXPECT_TRUE(deliverShippedSchemes(dir.file("elsewhere")).empty());
    EXPECT_TRUE(deliverShippedSchemes("").empty());
    EXPECT_TRUE(fs::is_empty(dir.path()));
    EXPECT_TRUE(deliverShippedSchemes(dir.file("corvane/schemes")).empty());
    for (const char* file : {"Allman.fsc", "Corvane.fsc", "Google.fsc", "K&R.fsc"}) {
        const std::string path = userSchemeDirectory() + file;
        EXPECT_EQ(contents(shippedSchemeDirectory() + file), contents(path)) << file;
        EXPECT_FALSE(fileIsWritable(path)) << file;
    }
}

}  // namespace
}  // namespace BrevisUI
