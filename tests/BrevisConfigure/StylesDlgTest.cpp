// The dialog that manages schemes: what becomes of the store, and what the user is asked.
#include <gtest/gtest.h>

#include "../support/TestFiles.h"
#include "BrevisUI_Files.h"
#include "EditorSupport.h"
#include "editor/BrevisUI_EditorMessages.h"
#include "editor/BrevisUI_PropertySearch.h"
#include "editor/BrevisUI_SchemeComparison.h"
#include "editor/BrevisUI_StylesDlgModel.h"
#include "settings/BrevisUI_EditorSettings.h"
#include "store/BrevisUI_NewScheme.h"

namespace BrevisUI {
namespace {

namespace fs = std::filesystem;
using EditorSupport::defaultScheme;
using EditorSupport::lineOf;
using EditorSupport::schemeOf;
using EditorSupport::User;
using Answer = StylesDlgHost::Answer;
using Texts = std::vector<std::string>;

// A store of the complete schemes "Beta", which is built-in, and "Alpha" and "Gamma", on disk, and a dialog over it.
class StylesDlg : public testing::Test {
protected:
    StylesDlg() { settings.load(SettingsFile::Access::Full); }

    void fillStore() {
        store.setPath(dir.file("schemes"));
        for (const char* name : {"Alpha", "Beta", "Gamma"}) store.insert(defaultScheme(name));
        store.write();
        fs::permissions(dir.file("schemes/Beta.fsc"), fs::perms(0444));
        store.read();
        ASSERT_TRUE(store.find("Beta")->builtIn);
    }

    void open() { dialog = std::make_unique<StylesDlgModel>(store, settings, memory, user); }
    void openWith(std::string_view name) {
        fillStore();
        setCurrentScheme(name, settings);
        open();
        ASSERT_EQ(name, dialog->currentName());
    }
    void change() { dialog->sheet().pageOf("TAB_SIZE")->setNumber("TAB_SIZE", 3); }
    bool isStored(std::string_view name) const {
        const PropertySetStore::Entry* const entry = dialog->store().find(name);
        return entry && lineOf(entry->scheme, "TAB_SIZE") == "2 TAB_SIZE 3";
    }
    Texts names() const {
        Texts names;
        for (const auto& row : dialog->chooserRows()) names.push_back(row.name);
        return names;
    }

    const TestFiles::TempDir dir;
    SettingsFile settings{dir.file("settings.json")};
    PropertySetStore store;
    EditorMemory memory;
    User user;
    std::unique_ptr<StylesDlgModel> dialog;
};

TEST_F(StylesDlg, BeginsWithTheSchemeOfTheLastTime) {
    openWith("Gamma");
    EXPECT_EQ((Texts{"Alpha", "Beta", "Gamma"}), names());
    EXPECT_FALSE(dialog->isCurrentBuiltIn());
    EXPECT_FALSE(dialog->choose("Beta"));
    EXPECT_TRUE(dialog->isCurrentBuiltIn());
    dialog->sheet().setActiveTab(7);
    EXPECT_TRUE(dialog->accept().isDone);
    SettingsFile again(dir.file("settings.json"));
    again.load(SettingsFile::Access::ReadOnly);
    EXPECT_EQ("Beta", currentScheme(again));
    open();
    EXPECT_EQ("Beta", dialog->currentName());
    EXPECT_EQ(7u, dialog->sheet().activeTab());
    setCurrentScheme("Gone", settings);
    open();
    EXPECT_EQ("Alpha", dialog->currentName());
}

TEST_F(StylesDlg, MakesANewSchemeForAnEmptyStore) {
    open();
    EXPECT_EQ((Texts{"New Scheme"}), names());
    EXPECT_EQ(newScheme(), dialog->store().find("New Scheme")->scheme);
    EXPECT_TRUE(dialog->sheet().isModified());
    // Saved under another name it has served its purpose.
    user.names = {"Mine"};
    EXPECT_TRUE(dialog->saveAs());
    EXPECT_EQ((Texts{"<New Scheme (Modified)>"}), user.shown);
    EXPECT_EQ((Texts{"Mine"}), names());
    EXPECT_EQ("Mine", dialog->sheet().scheme().name());

    open();
    user.names = {"New Scheme"};
    EXPECT_TRUE(dialog->saveAs());
    EXPECT_EQ((Texts{"New Scheme"}), names());
}

TEST_F(StylesDlg, LosesChangesThatWereNotSaved) {
    openWith("Alpha");
    change();
    EXPECT_FALSE(dialog->choose("Gamma"));
    EXPECT_FALSE(dialog->sheet().isModified());
    EXPECT_FALSE(dialog->choose("Alpha"));
    EXPECT_EQ("2 TAB_SIZE 4", lineOf(dialog->sheet().scheme(), "TAB_SIZE"));
    change();
    EXPECT_TRUE(dialog->accept().isDone);
    EXPECT_TRUE(isStored("Alpha"));
    EXPECT_FALSE(isStored("Gamma"));
    EXPECT_EQ(store.fileOf("Alpha"), dialog->store().fileOf("Alpha"));
    // Nothing has reached the disk.
    EXPECT_EQ(std::string::npos, TestFiles::contents(dir.file("schemes/Alpha.fsc")).find("TAB_SIZE 3"));
}

TEST_F(StylesDlg, StaysWithATextThatWasRefused) {
    openWith("Alpha");
    dialog->sheet().pageOf("WS_AFTER_FN_NAME")->enterText("WS_AFTER_FN_NAME", "x");
    EXPECT_EQ("WS_AFTER_FN_NAME", dialog->choose("Gamma")->key);
    const StylesDlgModel::Closing closing = dialog->accept();
    EXPECT_FALSE(closing.isDone);
    EXPECT_EQ("WS_AFTER_FN_NAME", closing.refusal->key);
    EXPECT_EQ("Alpha", dialog->currentName());
    EXPECT_TRUE(user.shown.empty());
}

TEST_F(StylesDlg, AsksBeforeABuiltInSchemeIsLeft) {
    const struct {
        Answer answer;
        std::deque<std::optional<std::string>> names;
        bool isDone;
        const char* current;
        Texts stored;
    } cases[] = {
        {Answer::Yes, {"Delta"}, true, "Delta", {"Delta"}},
        {Answer::Yes, {"", "Beta", "Gamma"}, true, "Gamma", {"Gamma"}},
        {Answer::Yes, {std::nullopt}, false, "Beta", {}},
        {Answer::No, {}, true, "Beta", {}},
        {Answer::Cancel, {}, false, "Beta", {}},
    };
    openWith("Beta");
    EXPECT_TRUE(dialog->accept().isDone);
    EXPECT_TRUE(user.shown.empty());
    for (const auto& [answer, names, isDone, current, stored] : cases) {
        setCurrentScheme("Beta", settings);
        open();
        change();
        user.answers = {answer};
        user.names = names;
        EXPECT_EQ(isDone, dialog->accept().isDone);
        EXPECT_TRUE(user.names.empty() && user.answers.empty());
        EXPECT_EQ(current, dialog->currentName());
        for (const char* name : {"Alpha", "Beta", "Gamma", "Delta"}) {
            EXPECT_EQ(std::ranges::count(stored, name) > 0, isStored(name)) << name;
        }
        EXPECT_TRUE(dialog->store().find("Beta")->builtIn);
    }
    const Texts asked = {std::string(EditorMessage::askSaveBuiltIn), "<Beta (Modified)>",
                         std::string(EditorMessage::askSaveBuiltIn), "<Beta (Modified)>",
                         "You must enter a name for the scheme.",    "<Beta (Modified)>",
                         std::string(EditorMessage::nameOfBuiltIn),  "<Beta>"};
    EXPECT_EQ(asked, Texts(user.shown.begin(), user.shown.begin() + 8));

    // On disk the new scheme has a file of its own, and the built-in one still has the old one.
    user.answers = {Answer::Yes};
    user.names = {"Delta"};
    setCurrentScheme("Beta", settings);
    open();
    change();
    EXPECT_TRUE(dialog->accept().isDone);
    dialog->store().write();
    EXPECT_EQ(std::string::npos, TestFiles::contents(dir.file("schemes/Beta.fsc")).find("TAB_SIZE 3"));
    EXPECT_NE(std::string::npos, TestFiles::contents(dir.file("schemes/Delta.fsc")).find("TAB_SIZE 3"));
}

TEST_F(StylesDlg, SavesOverASchemeOfTheSameName) {
    openWith("Alpha");
    change();
    user.names = {"Gamma"};
    EXPECT_TRUE(dialog->saveAs());
    EXPECT_EQ("Gamma", dialog->currentName());
    EXPECT_TRUE(isStored("Gamma"));
    EXPECT_FALSE(isStored("Alpha"));
    EXPECT_FALSE(dialog->sheet().pageOf("TAB_SIZE")->isChanged("TAB_SIZE"));
    EXPECT_EQ((Texts{"Alpha", "Beta", "Gamma"}), names());
}

TEST_F(StylesDlg, DeletesUntilNothingIsLeft) {
    openWith("Beta");
    dialog->deleteCurrent();
    dialog->choose("Gamma");
    user.answers = {Answer::No, Answer::Yes};
    dialog->deleteCurrent();
    EXPECT_EQ("Gamma", dialog->currentName());
    dialog->deleteCurrent();
    EXPECT_EQ("Alpha", dialog->currentName());
    EXPECT_EQ((Texts{"Alpha", "Beta"}), names());
    EXPECT_EQ((Texts{"This scheme is built-in and cannot be deleted.", "Are you sure you wish to delete this scheme?",
                     "Are you sure you wish to delete this scheme?"}),
              user.shown);

    store = PropertySetStore();
    store.insert(defaultScheme("Last"));
    open();
    user.answers = {Answer::Yes};
    dialog->deleteCurrent();
    EXPECT_TRUE(names().empty());
    EXPECT_FALSE(dialog->hasCurrent());
    dialog->deleteCurrent();
    change();
    EXPECT_TRUE(dialog->accept().isDone);
    EXPECT_TRUE(names().empty());
}

TEST_F(StylesDlg, TakesAndGivesSchemeFiles) {
    openWith("Alpha");
    change();
    EXPECT_TRUE(dialog->exportScheme(dir.file("out.fsc")));
    EXPECT_FALSE(dialog->exportScheme(dir.file("missing/out.fsc")));
    user.names = {std::nullopt};
    EXPECT_FALSE(dialog->importScheme(dir.file("out.fsc")));
    user.names = {"Delta"};
    EXPECT_TRUE(dialog->importScheme(dir.file("out.fsc")));
    EXPECT_TRUE(isStored("Delta"));
    EXPECT_EQ("Delta", dialog->currentName());
    EXPECT_EQ("<Alpha>", user.shown.back());

    // One of an older version, with a line that says nothing.
    const std::string old = "Brevis::PropertySet\n1\n\"Old\"\n2 SPACES_PER_TAB 3\n2 K x\n";
    EXPECT_TRUE(dialog->importScheme(dir.file("old.fsc", old)));
    EXPECT_TRUE(isStored("Old"));
    EXPECT_NE(std::string::npos, user.shown.back().find("\nLine 5: "));
    EXPECT_FALSE(dialog->importScheme(dir.file("bad.fsc", "Brevis::PropertySet\n2\n")));
    EXPECT_TRUE(user.shown.back().starts_with("The scheme file \"" + dir.file("bad.fsc") + "\" cannot be read."));
    EXPECT_FALSE(dialog->importScheme(dir.file("none.fsc")));
    EXPECT_EQ("Old", dialog->currentName());
}

// ---- Lists beside the pages

TEST(PropertySearch, KnowsLabelsKeysAndWordsOfHelp) {
    const auto help = [](std::string_view key) { return key == "TAB_SIZE" ? "How wide a Tabulator is" : ""; };
    const auto keys = [&](std::string_view query) {
        std::string keys;
        for (const FoundProperty& found : findProperties(query, help)) keys.append(found.property->key).append(" ");
        return keys;
    };
    const struct {
        const char* query;
        const char* keys;
    } cases[] = {
        {"", ""},
        {"nothing like it", ""},
        {"RIGHT margin", "RIGHT_MARGIN "},
        {"ws_after_lbracket", "WS_AFTER_LBRACKET "},
        {"tabulator", "TAB_SIZE "},
        {"wide size", "TAB_SIZE "},
        {"hang &", "HANGING_ASTERISK HANGING_AMPERSAND "},
        {"type and *", "WS_BETWEEN_ASTERISK_ANCHOR "},
        {"each element", "FOR_EACH_MACROS LIST_WRAP_STRATEGY "},
        {"leave as is", "PPD_DO_NOT_FORMAT "},
        {"GLOBALS_DO_NOT_FORMAT", ""},
        {"WS_BEFORE_ACCESS_SPECS", ""},
        {"enums initializers", "ALIGN_ENUM_INITIALIZERS "},
        // What is seen comes before what is only in the key.
        {"margin", "LEFT_MARGIN ALIGN_LABELS_LEFT_MOST ALIGN_PPD_LEFT_MOST RIGHT_MARGIN "},
        {"tab", "TAB_SIZE CONVERT_WS "},
    };
    for (const auto& [query, expected] : cases) EXPECT_EQ(expected, keys(query)) << query;
    const std::vector<FoundProperty> found = findProperties("alternatives case content");
    EXPECT_TRUE(found.empty());
    EXPECT_EQ("ControlStatementsPage", pageTable[findProperties("case content").front().tab].className);
}

TEST(SchemeComparison, TellsValuesAsAUserReadsThem) {
    const Brevis::PropertySet first = schemeOf(
        "1 LINE_WRAP 1\n1 X 1\n2 ASTERISK_ANCHOR 1\n2 TAB_SIZE 4\n2 WRAP_STYLE 9\n3 INDENT_CS_CONTENT \"\\t\"\n"
        "3 LEFT_MARGIN \" \\t\"\n3 MACROS_LOOP \"a b\"\n3 WS_AFTER_CS_KEY \"\"\n");
    const Brevis::PropertySet second = schemeOf(
        "1 LINE_WRAP 0\n2 ASTERISK_ANCHOR 0\n2 TAB_SIZE 4\n2 WRAP_STYLE 1\n2 X 1\n3 INDENT_CS_CONTENT \"    \"\n"
        "3 WS_AFTER_CS_KEY \" \\n\"\n3 WS_AFTER_DD_NAME \"\"\n");
    std::string text;
    for (const PropertyDifference& difference : compareSchemes(first, second)) {
        text += difference.page + "|" + difference.label + "|" + difference.key + "|" + difference.first.value_or("-") +
                "|" + difference.second.value_or("-") + "\n";
    }
    EXPECT_EQ(
        "Global Settings|Left margin:|LEFT_MARGIN|\"\\s\\t\"|-\n"
        "Control Statements|Body:|INDENT_CS_CONTENT|1 tabs|4 spaces\n"
        "Control Statements|After keyword:|WS_AFTER_CS_KEY|\"\"|\"\\s\\n\"\n"
        "Preprocessor Directives|Other loops:|MACROS_LOOP|a b|-\n"
        "Pointers & References|Keep * with:|ASTERISK_ANCHOR|Identifier|Typename\n"
        "Line Wrapping|Wrap long lines|LINE_WRAP|on|off\n"
        "Line Wrapping|Treatment of line continuation|WRAP_STYLE|9|Align logically with previous line\n"
        "||WS_AFTER_DD_NAME|-|\"\"\n"
        "||X|on|1\n",
        text);
    EXPECT_TRUE(compareSchemes(first, first).empty());
}

}  // namespace
}  // namespace BrevisUI
