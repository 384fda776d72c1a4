// The Options dialog: what it starts with, refuses, and does at OK.
#include "editor/BrevisUI_OptionsModel.h"

#include <gtest/gtest.h>

#include "../support/TestFiles.h"
#include "EditorSupport.h"

namespace BrevisUI {
namespace {

namespace fs = std::filesystem;
using EditorSupport::schemeOf;
using Texts = std::vector<std::string>;

class Options : public testing::Test {
protected:
    Options() {
        file.load(SettingsFile::Access::Full);
        state.store.setPath(dir.file("schemes"));
        state.store.insert(schemeOf("2 TAB_SIZE 3\n", "Alpha"));
        state.store.insert(schemeOf("2 TAB_SIZE 4\n", "Beta"));
        state.putInForce("Beta");
    }

    const TestFiles::TempDir dir;
    SettingsFile file{dir.file("settings.json")};
    ProgramState state;
};

TEST_F(Options, ShowWhatIsInForce) {
    OptionsModel options(state);
    EXPECT_EQ((Texts{"<No Formatting>", "Alpha", "Beta"}), options.schemeRows());
    EXPECT_EQ(2u, options.schemeRow());
    EXPECT_EQ("c cc cpp cxx h hh hpp hxx", options.extensions);
    // The editor may have taken it away.
    PropertySetStore store = options.store();
    store.erase("Beta");
    options.takeStore(store);
    EXPECT_EQ(0u, options.schemeRow());
    options.chooseSchemeRow(1);
    EXPECT_EQ("Alpha", options.schemeName());
    options.chooseSchemeRow(0);
    EXPECT_EQ("", options.schemeName());
}

TEST_F(Options, RefuseWhatIsNoExtension) {
    const struct {
        const char* extensions;
        const char* backup;
        bool isGood;
    } cases[] = {{"c;cpp, .h", ".bak.", true},
                 {"", "", true},
                 {"a/b", "bak", false},
                 {"c h?", "bak", false},
                 {"c", "b:k", false}};
    for (const auto& [extensions, backup, isGood] : cases) {
        OptionsModel options(state);
        options.extensions = extensions;
        options.backupExtension = backup;
        EXPECT_EQ(isGood
                  ? ""
                  : "Error: Invalid file extension entered. File extensions may not contain any of the following "
                  "characters: \"<>:\\/|?\"",
                  options.fault());
    }
}

TEST_F(Options, TakeEffectAtOk) {
    state.settings.lastDirectory = "/src";
    OptionsModel options(state);
    PropertySetStore edited("/elsewhere");
    edited.insert(schemeOf("2 TAB_SIZE 8\n", "Beta"));
    options.takeStore(edited);
    options.extensions = "c;cpp, .h";
    options.createBackups = false;
    options.backupExtension = " .old. ";
    options.threshold = 3;
    EXPECT_EQ("", options.apply(state, file));
    EXPECT_EQ(dir.file("schemes/"), state.store.path());
    EXPECT_EQ((Texts{"Beta.fsc"}), state.store.findPSFiles());
    EXPECT_EQ(schemeOf("2 TAB_SIZE 8\n", "Beta"), state.schemeInForce);

    SettingsFile again(dir.file("settings.json"));
    again.load(SettingsFile::Access::ReadOnly);
    ProgramState next;
    next.store = state.store;
    next.readSettingsFrom(again);
    EXPECT_EQ(state.schemeInForce, next.schemeInForce);
    EXPECT_EQ(state.settings, next.settings);
    EXPECT_EQ((Texts{"c", "cpp", "h"}), next.settings.fileExtensions);
    EXPECT_EQ("old", next.settings.backupExtension);
    EXPECT_EQ("/src", next.settings.lastDirectory);

    OptionsModel none(next);
    none.chooseSchemeRow(0);
    none.apply(next, again);
    EXPECT_FALSE(next.schemeInForce);
    EXPECT_EQ("", readSettings(again).formattingScheme);
    // A name that the store doesn't have puts nothing into force.
    next.settings.formattingScheme = "Gone";
    writeSettings(next.settings, again);
    next.readSettingsFrom(again);
    EXPECT_FALSE(next.schemeInForce);
}

TEST_F(Options, EndWithSchemesThatCannotBeWritten) {
    state.store.write();
    fs::permissions(dir.file("schemes/Beta.fsc"), fs::perms(0444));
    OptionsModel options(state);
    options.threshold = 3;
    EXPECT_THROW(options.apply(state, file), PropertySetStore::WriteError);
    EXPECT_EQ(1u, state.settings.messagesThreshold);
    EXPECT_FALSE(fs::exists(dir.file("settings.json")));
}

}  // namespace
}  // namespace BrevisUI
