// The pages of the scheme editor: what they load, store, erase, copy, refuse, enable and mark.
#include <gtest/gtest.h>

#include "../support/TestFiles.h"
#include "EditorSupport.h"
#include "Trn_Exception.h"
#include "editor/BrevisUI_EditorMessages.h"
#include "editor/BrevisUI_StylesPages.h"
#include "editor/BrevisUI_WhiteSpaceEntry.h"
#include "scheme/Brevis_Scheme.h"

namespace BrevisUI {
namespace {

using Brevis::PropertyInfo;
using Brevis::PropertyRole;
using Brevis::PropertySet;
using Brevis::PropertyType;
using EditorSupport::defaultScheme;
using EditorSupport::lineOf;
using EditorSupport::schemeOf;
using EditorSupport::Window;

// A sheet in which keys are looked up wherever they are.
struct Editor {
    explicit Editor(const PropertySet& scheme) {
        sheet.setScheme(scheme);
        sheet.setListener(&window);
    }

    StylesBasePage& page(std::string_view key) { return *sheet.pageOf(key); }
    const PageField& field(std::string_view key) { return *page(key).field(key); }
    ChangeResult enter(std::string_view key, std::string_view entry) { return page(key).enterText(key, entry); }
    ChangeResult check(std::string_view key, bool isChecked = true) { return page(key).setChecked(key, isChecked); }
    std::string line(std::string_view key) { return lineOf(sheet.scheme(), key); }

    Window window;
    StylesSheet sheet;
};

std::int32_t otherChoice(const PropertyInfo& property) {
    const std::int32_t last = property.choices.back().value;
    return last == property.defaultNumber ? last - 1 : last;
}

// A value that isn't the page default.
void setOtherValue(const PropertyInfo& property, PropertySet& scheme) {
    switch (property.type) {
        case PropertyType::Indent:
            return scheme.setString(property.key, "\t\t");
        case PropertyType::Flag:
            return scheme.setBool(property.key, property.role == PropertyRole::Value && property.defaultNumber == 0);
        case PropertyType::Number:
            return scheme.setInt(property.key, 100000);
        case PropertyType::Choice:
            return scheme.setInt(property.key, otherChoice(property));
        case PropertyType::Names:
            return scheme.setString(property.key, "each");
        default:
            return scheme.setString(property.key, "\n \t");
    }
}

PropertySet otherScheme() {
    PropertySet scheme("Mine");
    for (const PropertyInfo& property : Brevis::Catalogue::properties) setOtherValue(property, scheme);
    // What hangs needs its sign to stay with the name.
    scheme.setInt("ASTERISK_ANCHOR", 1);
    scheme.setInt("AMPERSAND_ANCHOR", 1);
    scheme.setString("UNKNOWN", "\"");
    scheme.setInt("INDENT_FN_PARAMS", 3);
    return scheme;
}

TEST(StylesPages, KeepASchemeThatIsComplete) {
    for (const PropertySet& scheme : {otherScheme(), defaultScheme()}) {
        Editor editor(scheme);
        EXPECT_FALSE(editor.sheet.fetchScheme());
        EXPECT_EQ(scheme, editor.sheet.scheme());
        EXPECT_FALSE(editor.sheet.isModified());
        EXPECT_EQ(0, editor.window.redrawn);
    }
}

// The shipped schemes leave some places alone, which a page can't show.
TEST(StylesPages, KeepWhatAShippedSchemeSays) {
    for (const char* name : {"Allman.fsc", "Corvane.fsc", "GNU.fsc", "Google.fsc", "K&R.fsc", "Linux.fsc"}) {
        std::istringstream in(TestFiles::contents(std::string(CORVANE_SOURCE_DIR "/schemes/") + name));
        PropertySet scheme;
        scheme.read(in);
        EXPECT_LT(100u, scheme.count());
        Editor editor(scheme);
        EXPECT_FALSE(editor.sheet.fetchScheme());
        for (const std::string& key : scheme.keys()) EXPECT_EQ(lineOf(scheme, key), editor.line(key)) << name;
    }
}

// Whatever isn't read by the engine or shown by a page is a row without a use.
TEST(StylesPages, OrTheEngineReadEveryKey) {
    for (const PropertyInfo& property : Brevis::Catalogue::properties) {
        if (property.key == "CORVANE_VERSION") continue;
        PropertySet scheme = defaultScheme();
        Editor before(scheme);
        setOtherValue(property, scheme);
        if (property.type == PropertyType::Flag) scheme.setBool(property.key, property.defaultNumber == 0);
        Editor after(scheme);
        const StylesBasePage* const page = after.sheet.pageOf(property.key);
        const bool isShown = page && page->field(property.key)->value != before.field(property.key).value;
        EXPECT_TRUE(isShown || Brevis::Scheme::from(scheme) != Brevis::Scheme::from(before.sheet.scheme()))
            << property.key;
        EXPECT_EQ(property.page != Brevis::PropertyPage::None, isShown) << property.key;
    }
}

// ---- Loading

TEST(StylesPages, FillInWhatASchemeLacks) {
    const struct {
        const char* missing;
        const char* putThere;  // the line in the scheme
        bool isModified;
    } cases[] = {
        {"RIGHT_MARGIN", "2 RIGHT_MARGIN 78", true},
        {"TAB_SIZE", "2 TAB_SIZE 4", true},
        {"CONVERT_WS", "2 CONVERT_WS 1", true},
        {"EXPR_WRAP_STYLE", "2 EXPR_WRAP_STYLE 2", true},
        {"ASTERISK_ANCHOR", "2 ASTERISK_ANCHOR -1", true},
        {"WS_AFTER_DD_TYPE_ID", "3 WS_AFTER_DD_TYPE_ID \" \"", true},
        {"ALIGN_PPD_LEFT_MOST", "1 ALIGN_PPD_LEFT_MOST 1", true},
        {"PPD_DO_NOT_FORMAT", "1 PPD_DO_NOT_FORMAT 0", true},
        {"ENUMS_DO_NOT_FORMAT", "1 ENUMS_DO_NOT_FORMAT 0", true},
        {"LEFT_MARGIN", "3 LEFT_MARGIN \"\"", true},
        {"INDENT_ENUM_CONTENT", "", false},
        {"WS_BEFORE_FN_COMMA", "", false},
        {"WS_AFTER_EXPR_OPEN_PAREN", "", false},
        {"FN_USE_GLOBAL_SETTINGS", "", false},
        {"WS_BEFORE_ACCESS_SPECS", "", false},
    };
    for (const auto& [missing, putThere, isModified] : cases) {
        PropertySet scheme = defaultScheme();
        scheme.erase(missing);
        const Editor editor(scheme);
        EXPECT_EQ(isModified, editor.sheet.isModified()) << missing;
        EXPECT_EQ(putThere, lineOf(editor.sheet.scheme(), missing));
    }
}

TEST(StylesPages, ShowIndentsAndChoicesAsControls) {
    Editor editor(schemeOf(
        "3 LEFT_MARGIN \"  \\t\"\n3 WRAP_INDENT \"   \"\n2 WRAP_STYLE 7\n2 EXPR_WRAP_STYLE 0\n2 COMMA_WRAP_STYLE 1\n"
        "2 ASTERISK_ANCHOR 5\n2 CONVERT_WS 9\n"));
    EXPECT_EQ((IndentEntry{3, IndentUnit::Tabs}), editor.field("LEFT_MARGIN").value.indent);
    EXPECT_EQ((IndentEntry{3, IndentUnit::Spaces}), editor.field("WRAP_INDENT").value.indent);
    for (const char* key : {"WRAP_STYLE", "EXPR_WRAP_STYLE", "ASTERISK_ANCHOR", "CONVERT_WS"}) {
        EXPECT_FALSE(editor.field(key).value.selected) << key;
    }
    EXPECT_EQ(0u, editor.field("COMMA_WRAP_STYLE").value.selected);
    editor.sheet.fetchScheme();
    const char* const stored[] = {"3 LEFT_MARGIN \"\\t\\t\\t\"", "2 WRAP_STYLE 0",       "2 EXPR_WRAP_STYLE 0",
                                  "2 COMMA_WRAP_STYLE 1",        "2 ASTERISK_ANCHOR -1", "2 CONVERT_WS 0"};
    for (const std::string line : stored) EXPECT_EQ(line, editor.line(line.substr(2, line.rfind(' ') - 2)));
}

// ---- Entries

TEST(WhiteSpaceEntries, HaveTheirEscapes) {
    const struct {
        const char* entry;
        std::optional<std::string> value;
        const char* shown;
    } cases[] = {
        {"\\n\\s", "\n ", "\\n\\s"},       {"", "", ""},
        {" \\t\\r", " \t\r", "\\s\\t\\r"}, {"\\ \\", " ", "\\s"},
        {"\v\f", "\v\f", "\v\f"},          {"x", std::nullopt, ""},
        {"\\x", std::nullopt, ""},         {"\\\\", std::nullopt, ""},
        {"\\\"", std::nullopt, ""},        {"\\n\xA0", std::nullopt, ""},
    };
    for (const auto& [entry, value, shown] : cases) {
        EXPECT_EQ(value, readWhiteSpace(entry)) << entry;
        if (value) {
            EXPECT_EQ(shown, showWhiteSpace(*value));
        }
    }
    EXPECT_EQ("a\\\"b\\", showWhiteSpace("a\"b\\"));
}

TEST(StylesPages, RefuseOtherCharacters) {
    Editor editor(defaultScheme());
    const PropertySet before = editor.sheet.scheme();
    const ChangeResult refused = editor.enter("WS_AFTER_FN_NAME", "x");
    ASSERT_TRUE(refused);
    EXPECT_EQ("WS_AFTER_FN_NAME", refused->key);
    EXPECT_EQ("FunctionsPage", refused->page->info().className);
    EXPECT_EQ("Please only enter white space.\nValid entries are: \\n (newline)  \\t (tab)  or  \\s (space)",
              refused->message);
    EXPECT_EQ("x", editor.field("WS_AFTER_FN_NAME").entry());
    // The chain of every other change of the page stops at the same field.
    EXPECT_EQ("WS_AFTER_FN_NAME", editor.check("FN_DO_NOT_FORMAT")->key);
    editor.check("FN_DO_NOT_FORMAT", false);
    EXPECT_EQ("WS_AFTER_FN_NAME", editor.sheet.fetchScheme()->key);
    EXPECT_EQ(before, editor.sheet.scheme());
    EXPECT_EQ(0, editor.window.modified + editor.window.redrawn);

    EXPECT_FALSE(editor.enter("WS_AFTER_FN_NAME", "\\n"));
    EXPECT_EQ("3 WS_AFTER_FN_NAME \"\\n\"", editor.line("WS_AFTER_FN_NAME"));
    EXPECT_TRUE(editor.enter("WS_AFTER_FN_NAME", "y"));
    EXPECT_FALSE(editor.page("WS_AFTER_FN_NAME").setBack("WS_AFTER_FN_NAME"));
    EXPECT_EQ(before, editor.sheet.scheme());
    EXPECT_THROW(editor.check("WS_AFTER_FN_NAME"), Trn::InvalidParameterException);
}

// ---- Changes

// Changes a control to something that it doesn't show.
ChangeResult changeField(StylesBasePage& page, const PageField& field) {
    switch (field.kind) {
        case FieldKind::WhiteSpace:
            return page.enterText(field.key(), "\\t\\t\\t");
        case FieldKind::Names:
            return page.enterText(field.key(), " one\ttwo ");
        case FieldKind::Indent:
            return page.setIndent(field.key(), {5, IndentUnit::Spaces});
        case FieldKind::Flag:
            return page.setChecked(field.key(), !field.value.isChecked);
        case FieldKind::Number:
            return page.setNumber(field.key(), 13);
        case FieldKind::Choice:
            return page.select(field.key(), field.value.selected == 0u ? 1 : 0);
    }
    return {};
}

TEST(StylesPages, StoreEveryChangeAtOnce) {
    const StylesSheet pages;
    for (const auto& shown : pages.pages()) {
        for (const PageField& field : shown->fields()) {
            Editor editor(otherScheme());
            StylesBasePage& page = editor.sheet.page(shown->tab());
            EXPECT_FALSE(changeField(page, *page.field(field.key())));
            EXPECT_NE(lineOf(otherScheme(), field.key()), editor.line(field.key()));
            EXPECT_TRUE(editor.sheet.isModified());
            EXPECT_EQ(1, editor.window.modified);
            EXPECT_EQ(1, editor.window.redrawn);
            // The edition enables controls of other pages.
            EXPECT_EQ(field.property->role != PropertyRole::Edition, editor.window.pages.size() == 1u);
            EXPECT_TRUE(page.isChanged(field.key()));
            const bool erases = field.property->role == PropertyRole::DoNotFormat;
            EXPECT_FALSE(page.setBack(field.key()));
            EXPECT_FALSE(page.isChanged(field.key()));
            if (!erases) {
                EXPECT_EQ(lineOf(otherScheme(), field.key()), editor.line(field.key()));
            }
            EXPECT_EQ("3 UNKNOWN \"\\\"\"", editor.line("UNKNOWN"));
        }
    }
}

TEST(StylesPages, BringNumbersIntoTheirLimits) {
    Editor editor(defaultScheme());
    editor.page("TAB_SIZE").setNumber("TAB_SIZE", -3);
    EXPECT_EQ("2 TAB_SIZE 0", editor.line("TAB_SIZE"));
    editor.page("TAB_SIZE").setNumber("TAB_SIZE", 40000);
    EXPECT_EQ("2 TAB_SIZE 32767", editor.line("TAB_SIZE"));
    editor.page("LEFT_MARGIN").setIndent("LEFT_MARGIN", {-1, IndentUnit::Tabs});
    EXPECT_EQ("3 LEFT_MARGIN \"\"", editor.line("LEFT_MARGIN"));
}

// ---- Global settings

TEST(StylesPages, FollowTheGlobalSettings) {
    const struct {
        const char* global;
        const char* followers;
    } cases[] = {
        {"GLOBAL_WS_BEFORE_OPEN_BRACE",
         "WS_BEFORE_CLASS_OPEN_BRACE WS_BEFORE_ENUM_OPEN_BRACE WS_BEFORE_NS_OPEN_BRACE WS_BEFORE_FN_OPEN_BRACE "
         "WS_BEFORE_DD_OPEN_BRACE WS_BEFORE_CS_OPEN_BRACE"},
        {"GLOBAL_WS_AFTER_OPEN_BRACE",
         "WS_AFTER_CLASS_OPEN_BRACE WS_AFTER_ENUM_OPEN_BRACE WS_AFTER_NS_OPEN_BRACE WS_AFTER_FN_OPEN_BRACE "
         "WS_AFTER_DD_OPEN_BRACE WS_AFTER_CS_OPEN_BRACE"},
        {"GLOBAL_WS_BEFORE_CLOSE_BRACE",
         "WS_BEFORE_CLASS_CLOSE_BRACE WS_BEFORE_ENUM_CLOSE_BRACE WS_BEFORE_NS_CLOSE_BRACE WS_BEFORE_FN_CLOSE_BRACE "
         "WS_BEFORE_DD_CLOSE_BRACE WS_BEFORE_CS_CLOSE_BRACE"},
        {"GLOBAL_INDENT_CONTENT",
         "INDENT_CLASS_CONTENT INDENT_ENUM_CONTENT INDENT_NS_CONTENT INDENT_FN_CONTENT INDENT_DD_CONTENT "
         "INDENT_CS_CONTENT"},
        {"GLOBAL_WS_BEFORE_COMMA",
         "WS_BEFORE_BASE_CLAUSES_COMMA WS_BEFORE_DD_COMMA WS_BEFORE_ENUM_COMMA WS_BEFORE_FN_COMMA "
         "WS_BEFORE_FN_CALL_COMMA"},
        {"GLOBAL_WS_AFTER_OPEN_PAREN", "WS_AFTER_CS_OPEN_PAREN WS_AFTER_EXPR_OPEN_PAREN WS_AFTER_FN_OPEN_PAREN"},
        {"GLOBAL_WS_BEFORE_CLOSE_PAREN",
         "WS_BEFORE_CS_CLOSE_PAREN WS_BEFORE_EXPR_CLOSE_PAREN WS_BEFORE_FN_CLOSE_PAREN"},
    };
    for (const auto& [global, followers] : cases) {
        const std::set<std::string> expected = [&] {
            std::istringstream in(followers);
            return std::set<std::string>(std::istream_iterator<std::string>(in), {});
        }();
        Editor editor(defaultScheme());
        changeField(editor.page(global), editor.field(global));
        for (const std::string& key : expected) EXPECT_TRUE(editor.line(key).ends_with("\"\"")) << key;
        for (const auto& page : editor.sheet.pages()) {
            if (!page->useGlobalKey().empty()) page->setChecked(page->useGlobalKey(), true);
        }
        const std::string value = editor.line(global).substr(3 + std::string_view(global).size());
        for (const PropertyInfo& property : Brevis::Catalogue::properties) {
            if (property.page == Brevis::PropertyPage::Globals) continue;
            EXPECT_EQ(expected.contains(std::string(property.key)), editor.line(property.key).ends_with(value))
                << property.key;
        }
        for (const std::string& key : expected) EXPECT_FALSE(editor.field(key).isEnabled) << key;

        // A later change of the global value reaches them at once, with one drawing of the preview.
        editor.window = {};
        const bool isIndent = editor.field(global).kind == FieldKind::Indent;
        if (isIndent) {
            editor.page(global).setIndent(global, {1, IndentUnit::Tabs});
        } else {
            editor.enter(global, "\\t");
        }
        EXPECT_EQ(1, editor.window.redrawn);
        for (const std::string& key : expected) EXPECT_EQ("3 " + key + " \"\\t\"", editor.line(key));
    }
}

TEST(StylesPages, FollowOnlyWhileTheyAreAskedTo) {
    Editor editor(defaultScheme());
    editor.check("ENUM_USE_GLOBAL_SETTINGS");
    editor.check("NS_USE_GLOBAL_SETTINGS");
    editor.check("NAMESPACES_DO_NOT_FORMAT");
    editor.window = {};
    editor.enter("GLOBAL_WS_BEFORE_OPEN_BRACE", "\\n");
    EXPECT_EQ((std::set<std::string>{"GlobalsPage", "EnumsPage"}), editor.window.pages);
    editor.window = {};
    editor.page("TAB_SIZE").setNumber("TAB_SIZE", 3);
    EXPECT_EQ((std::set<std::string>{"GlobalsPage"}), editor.window.pages);
    EXPECT_EQ("\\n", editor.field("WS_BEFORE_ENUM_OPEN_BRACE").entry());
    EXPECT_EQ("", editor.line("WS_BEFORE_NS_OPEN_BRACE"));
    EXPECT_EQ("1 NS_USE_GLOBAL_SETTINGS 1", editor.line("NS_USE_GLOBAL_SETTINGS"));
    editor.check("NAMESPACES_DO_NOT_FORMAT", false);
    EXPECT_EQ("3 WS_BEFORE_NS_OPEN_BRACE \"\\n\"", editor.line("WS_BEFORE_NS_OPEN_BRACE"));
    editor.check("ENUM_USE_GLOBAL_SETTINGS", false);
    EXPECT_TRUE(editor.field("WS_BEFORE_ENUM_OPEN_BRACE").isEnabled);
    editor.enter("GLOBAL_WS_BEFORE_OPEN_BRACE", "\\t");
    EXPECT_EQ("3 WS_BEFORE_ENUM_OPEN_BRACE \"\\n\"", editor.line("WS_BEFORE_ENUM_OPEN_BRACE"));
}

// Loading and storing all pages together is no change of a global value.
TEST(StylesPages, CopyNothingWhileASchemeIsSet) {
    PropertySet scheme = otherScheme();
    scheme.setBool("ENUM_USE_GLOBAL_SETTINGS", true);
    scheme.setString("WS_BEFORE_ENUM_COMMA", "   ");
    Editor editor(scheme);
    EXPECT_EQ(scheme, editor.sheet.scheme());
    EXPECT_FALSE(editor.sheet.isModified());
    editor.sheet.fetchScheme();
    EXPECT_FALSE(editor.sheet.isModified());
    EXPECT_EQ(lineOf(scheme, "GLOBAL_WS_BEFORE_COMMA").substr(25), editor.line("WS_BEFORE_ENUM_COMMA").substr(23));
}

// ---- Keys of the second edition

// Neither loading nor storing nor a change beside them adds one to a scheme.
TEST(StylesPages, AddNoKeyOfTheSecondEdition) {
    for (const char* lines : {"", "2 EDITION 2\n"}) {
        const PropertySet scheme = schemeOf(lines);
        Editor editor(scheme);
        for (const auto& page : editor.sheet.pages()) {
            for (const PageField& field : page->fields()) {
                const bool isOfFirst = field.property->edition == 1 && field.property->role == PropertyRole::Value;
                if (isOfFirst) changeField(*page, field);
            }
        }
        EXPECT_FALSE(editor.sheet.fetchScheme());
        EXPECT_NE("", editor.line("WS_AFTER_FN_NAME"));
        for (const PropertyInfo& property : Brevis::Catalogue::properties) {
            if (property.edition == 1) continue;
            EXPECT_EQ(lineOf(scheme, property.key), editor.line(property.key)) << property.key;
        }
    }
}

TEST(StylesPages, EnableWhatActsInTheEdition) {
    Editor editor(schemeOf("1 EXPR_DO_NOT_FORMAT 1\n2 EDITION 3\n"));
    const auto isEnabled = [&](const char* key) { return editor.field(key).isEnabled; };
    const char* const keys[] = {"REMOVE_TRAILING_WS", "INDENT_LABEL", "MACROS_LOOP", "WS_IN_EMPTY_BODY"};
    for (const char* key : keys) EXPECT_FALSE(isEnabled(key)) << key;
    EXPECT_TRUE(isEnabled("EDITION"));
    editor.page("EDITION").select("EDITION", 1);
    EXPECT_EQ("2 EDITION 2", editor.line("EDITION"));
    for (const char* key : keys) EXPECT_TRUE(isEnabled(key)) << key;
    EXPECT_FALSE(isEnabled("WS_AFTER_CAST")) << "its page is switched off";
    EXPECT_TRUE(editor.window.pages.contains("PreprocessorPage"));
    EXPECT_FALSE(editor.window.pages.contains("ExpressionsPage") || editor.window.pages.contains("TemplatesPage"));
    editor.page("EDITION").select("EDITION", 0);
    EXPECT_EQ("2 EDITION 1", editor.line("EDITION"));
    for (const char* key : keys) EXPECT_FALSE(isEnabled(key)) << key;
}

TEST(StylesPages, PutAKeyThereAndTakeItAway) {
    const PropertySet scheme = defaultScheme();
    const struct {
        const char* key;
        const char* line;
    } cases[] = {
        {"WS_AFTER_CAST", "3 WS_AFTER_CAST \"\""},
        {"WS_BETWEEN_STATEMENTS", "3 WS_BETWEEN_STATEMENTS \"\\n\""},
        {"INDENT_LABEL", "3 INDENT_LABEL \"\""},
        {"MAX_BLANK_LINES", "2 MAX_BLANK_LINES 1"},
    };
    for (const auto& [key, line] : cases) {
        Editor editor(scheme);
        StylesBasePage& page = editor.page(key);
        const auto isAbsent = [&] { return editor.field(key).value.isAbsent && editor.sheet.scheme() == scheme; };
        EXPECT_TRUE(isAbsent()) << key;
        page.setPresent(key, true);
        EXPECT_EQ(line, editor.line(key));
        EXPECT_TRUE(page.isChanged(key));
        // A value of its own goes with the key.
        changeField(page, editor.field(key));
        EXPECT_NE(line, editor.line(key));
        page.setPresent(key, false);
        EXPECT_TRUE(isAbsent() && !page.isChanged(key)) << key;
        page.setPresent(key, true);
        EXPECT_EQ(line, editor.line(key));
        page.setBack(key);
        EXPECT_TRUE(isAbsent()) << key;
        EXPECT_TRUE(editor.field(key).entry().empty());
    }
    Editor editor(scheme);
    editor.check("REMOVE_TRAILING_WS");
    EXPECT_EQ("1 REMOVE_TRAILING_WS 1", editor.line("REMOVE_TRAILING_WS"));
    editor.check("REMOVE_TRAILING_WS", false);
    EXPECT_EQ("1 REMOVE_TRAILING_WS 0", editor.line("REMOVE_TRAILING_WS"));
    for (const char* key : {"TAB_SIZE", "REMOVE_TRAILING_WS", "ALIGN_PPD_LEFT_MOST"}) {
        EXPECT_THROW(editor.page(key).setPresent(key, true), Trn::InvalidParameterException) << key;
    }
    // A key of another type means nothing; it stays as it is.
    editor.sheet.setScheme(schemeOf("2 WS_AFTER_CAST 1\n"));
    EXPECT_TRUE(editor.field("WS_AFTER_CAST").value.isAbsent);
    editor.sheet.fetchScheme();
    EXPECT_EQ("2 WS_AFTER_CAST 1", editor.line("WS_AFTER_CAST"));
}

TEST(StylesPages, TakeNamesOfMacros) {
    const struct {
        const char* entry;
        const char* line;  // null: refused
    } cases[] = {
        {"foreach", "3 MACROS_LOOP \"foreach\""},
        {"  Q_FOREVER\t_a1  \u00fcb ", "3 MACROS_LOOP \"Q_FOREVER _a1 \u00fcb\""},
        {" ", ""},
        {"1a", nullptr},
        {"a, b", nullptr},
        {"f()", nullptr},
    };
    for (const auto& [entry, line] : cases) {
        Editor editor(schemeOf("2 EDITION 2\n3 MACROS_LOOP \"each\"\n"));
        const ChangeResult refused = editor.enter("MACROS_LOOP", entry);
        ASSERT_EQ(line == nullptr, refused.has_value()) << entry;
        EXPECT_EQ(line ? line : "3 MACROS_LOOP \"each\"", editor.line("MACROS_LOOP"));
        if (!refused) continue;
        EXPECT_EQ("Please only enter names of macros, separated by spaces.", refused->message);
        EXPECT_EQ(entry, editor.field("MACROS_LOOP").entry());
    }
}

// ---- Do not format

TEST(StylesPages, EraseTheirKeysWhenSwitchedOff) {
    const StylesSheet pages;
    for (const auto& shown : pages.pages()) {
        if (shown->info().isDoNotFormatHidden) continue;
        PropertySet scheme = otherScheme();
        scheme.setInt("WS_BETWEEN_CS_CASES", 1);
        scheme.setString("WS_BETWEEN_CS_CASES", "");
        Editor editor(scheme);
        StylesBasePage& page = editor.sheet.page(shown->tab());
        page.setChecked(page.doNotFormatKey(), true);
        for (const PageField& field : page.fields()) {
            const PropertyRole role = field.property->role;
            EXPECT_EQ(role == PropertyRole::DoNotFormat, field.isEnabled) << field.key();
            EXPECT_EQ(role == PropertyRole::Value, editor.line(field.key()).empty()) << field.key();
        }
        EXPECT_EQ(page.previewName() == "ControlStatementsPreview", !editor.sheet.scheme().has("WS_BETWEEN_CS_CASES"));
        // A scheme like that is complete.
        Editor again(editor.sheet.scheme());
        EXPECT_FALSE(again.sheet.isModified()) << page.title();
        EXPECT_FALSE(again.sheet.fetchScheme());
        EXPECT_EQ(editor.sheet.scheme(), again.sheet.scheme()) << page.title();

        page.setChecked(page.doNotFormatKey(), false);
        for (const PageField& field : page.fields()) {
            const bool isCleared = !field.property->globalTwin.empty();
            if (isCleared) {
                EXPECT_TRUE(editor.line(field.key()).ends_with(" \"\"")) << field.key();
            }
            if (!isCleared) {
                EXPECT_EQ(lineOf(scheme, field.key()), editor.line(field.key()));
            }
        }
    }
}

// ---- Controls that depend on others

TEST(StylesPages, EnableWhatCanBeUsed) {
    const struct {
        const char* scheme;
        const char* enabled;
        const char* disabled;
    } cases[] = {
        {"", "TAB_SIZE LINE_WRAP INDENT_ENUM_CONTENT ASTERISK_ANCHOR ALIGN_PPD_LEFT_MOST",
         "RIGHT_MARGIN WRAP_STYLE WRAP_INDENT LIST_WRAP_STRATEGY WS_BETWEEN_ASTERISK_ANCHOR HANGING_ASTERISK"},
        {"1 LINE_WRAP 1\n", "RIGHT_MARGIN WRAP_STYLE EXPR_WRAP_STYLE SHIFT_WRAP_STYLE COMMA_WRAP_STYLE", "WRAP_INDENT"},
        {"1 LINE_WRAP 1\n2 WRAP_STYLE 2\n", "WRAP_INDENT", ""},
        {"2 WRAP_STYLE 2\n", "", "WRAP_INDENT"},
        {"2 ASTERISK_ANCHOR 0\n", "WS_BETWEEN_ASTERISK_ANCHOR",
         "HANGING_ASTERISK WS_BETWEEN_AMPERSAND_ANCHOR HANGING_AMPERSAND"},
        {"2 AMPERSAND_ANCHOR 1\n", "WS_BETWEEN_AMPERSAND_ANCHOR HANGING_AMPERSAND", "WS_BETWEEN_ASTERISK_ANCHOR"},
        {"2 AMPERSAND_ANCHOR 1\n1 POINTERSREFS_DO_NOT_FORMAT 1\n", "",
         "AMPERSAND_ANCHOR WS_BETWEEN_AMPERSAND_ANCHOR HANGING_AMPERSAND"},
        {"1 EXPR_USE_GLOBAL_SETTINGS 1\n", "EXPR_USE_GLOBAL_SETTINGS WS_AFTER_LBRACKET WS_BETWEEN_FN_CALL_ARGS",
         "WS_AFTER_EXPR_OPEN_PAREN WS_BEFORE_EXPR_CLOSE_PAREN WS_BEFORE_FN_CALL_COMMA"},
        {"1 CLASS_USE_GLOBAL_SETTINGS 1\n1 CLASS_DO_NOT_FORMAT 1\n", "CLASS_DO_NOT_FORMAT",
         "CLASS_USE_GLOBAL_SETTINGS INDENT_CLASS_CONTENT ALIGN_CLASS_MEMBER_NAMES_LEFT"},
        {"1 PPD_DO_NOT_FORMAT 1\n", "PPD_DO_NOT_FORMAT ALIGN_PPD_LEFT_MOST", ""},
    };
    for (const auto& [scheme, enabled, disabled] : cases) {
        Editor editor(schemeOf(scheme));
        std::istringstream on(enabled), off(disabled);
        for (std::string key; on >> key;) EXPECT_TRUE(editor.field(key).isEnabled) << scheme << key;
        for (std::string key; off >> key;) EXPECT_FALSE(editor.field(key).isEnabled) << scheme << key;
    }
}

TEST(StylesPages, LetTheAnchorDecide) {
    Editor editor(schemeOf("2 ASTERISK_ANCHOR 1\n1 HANGING_ASTERISK 1\n1 HANGING_AMPERSAND 1\n"));
    const auto label = [&](const char* key) { return editor.field(key).label; };
    EXPECT_EQ("White space between * and Identifier:", label("WS_BETWEEN_ASTERISK_ANCHOR"));
    EXPECT_EQ("White space between && and Identifier:", label("WS_BETWEEN_AMPERSAND_ANCHOR"));
    EXPECT_EQ("1 HANGING_AMPERSAND 1", editor.line("HANGING_AMPERSAND"));

    editor.page("ASTERISK_ANCHOR").select("ASTERISK_ANCHOR", 0);
    EXPECT_EQ("White space between Type and * :", label("WS_BETWEEN_ASTERISK_ANCHOR"));
    for (const char* key : {"HANGING_ASTERISK", "HANGING_AMPERSAND"}) {
        EXPECT_FALSE(editor.field(key).value.isChecked);
        EXPECT_TRUE(editor.line(key).ends_with(" 0"));
    }
    editor.page("AMPERSAND_ANCHOR").select("AMPERSAND_ANCHOR", 0);
    EXPECT_EQ("White space between Type and && :", label("WS_BETWEEN_AMPERSAND_ANCHOR"));
    // Without an anchor the label stays.
    editor.sheet.setScheme(schemeOf(""));
    EXPECT_EQ("White space between Type and * :", label("WS_BETWEEN_ASTERISK_ANCHOR"));
}

TEST(StylesPages, MapThreeButtonsToTwoKeys) {
    const struct {
        std::size_t button;
        const char* leave;
        const char* align;
    } cases[] = {
        {0, "1 PPD_DO_NOT_FORMAT 0", "1 ALIGN_PPD_LEFT_MOST 0"},
        {1, "1 PPD_DO_NOT_FORMAT 0", "1 ALIGN_PPD_LEFT_MOST 1"},
        {2, "1 PPD_DO_NOT_FORMAT 1", ""},
    };
    for (const auto& [button, leave, align] : cases) {
        PropertySet scheme = defaultScheme();
        scheme.setBool("PPD_DO_NOT_FORMAT", button == 2);
        scheme.setBool("ALIGN_PPD_LEFT_MOST", button == 1);
        if (button == 2) scheme.erase("ALIGN_PPD_LEFT_MOST");
        Editor editor(scheme);
        EXPECT_FALSE(editor.sheet.isModified());
        EXPECT_EQ(button, editor.field("ALIGN_PPD_LEFT_MOST").value.selected);
        EXPECT_EQ(leave, editor.line("PPD_DO_NOT_FORMAT"));
        EXPECT_EQ(align, editor.line("ALIGN_PPD_LEFT_MOST"));
        for (const auto& other : cases) {
            editor.page("PPD_DO_NOT_FORMAT").select("PPD_DO_NOT_FORMAT", other.button);
            EXPECT_EQ(other.leave, editor.line("PPD_DO_NOT_FORMAT"));
            EXPECT_EQ(other.align, editor.line("ALIGN_PPD_LEFT_MOST"));
        }
    }
}

// ---- The frame of the pages

TEST(StylesPages, NameTheirKeys) {
    StylesSheet sheet;
    const ControlStatementsPage statements(sheet);
    EXPECT_EQ("WS_BEFORE_CS_OPEN_BRACE", statements.wsBeforeOpenKey());
    EXPECT_EQ("WS_AFTER_CS_OPEN_BRACE", statements.wsAfterOpenKey());
    EXPECT_EQ("WS_BEFORE_CS_CLOSE_BRACE", statements.wsBeforeCloseKey());
    EXPECT_EQ("INDENT_CS_CONTENT", statements.indentKey());
    EXPECT_EQ("WS_AFTER_CS_OPEN_PAREN", statements.wsAfterOpenParenKey());
    EXPECT_EQ("WS_BEFORE_CS_CLOSE_PAREN", statements.wsBeforeCloseParenKey());
    std::string keys;
    for (const auto& page : sheet.pages()) {
        EXPECT_EQ(page->tab(), static_cast<std::size_t>(&page - &sheet.pages().front()));
        keys.append(page->useGlobalKey()).append(" ").append(page->doNotFormatKey()).append("\n");
    }
    EXPECT_EQ(
        " GLOBALS_DO_NOT_FORMAT\nCLASS_USE_GLOBAL_SETTINGS CLASS_DO_NOT_FORMAT\n"
        "ENUM_USE_GLOBAL_SETTINGS ENUMS_DO_NOT_FORMAT\nNS_USE_GLOBAL_SETTINGS NAMESPACES_DO_NOT_FORMAT\n"
        "FN_USE_GLOBAL_SETTINGS FN_DO_NOT_FORMAT\n MEMBERINITS_DO_NOT_FORMAT\nDATA_USE_GLOBAL_SETTINGS "
        "DATA_DO_NOT_FORMAT\nCONTROL_STATEMENTS_USE_GLOBAL_SETTINGS CONTROL_STATEMENTS_DO_NOT_FORMAT\n "
        "PPD_DO_NOT_FORMAT\nEXPR_USE_GLOBAL_SETTINGS EXPR_DO_NOT_FORMAT\n POINTERSREFS_DO_NOT_FORMAT\n "
        "TEMPLATES_DO_NOT_FORMAT\n LINE_WRAP_DO_NOT_FORMAT\n",
        keys);
}

TEST(StylesPages, KeepTheFieldsOfAGroupTogether) {
    const StylesSheet sheet;
    for (const auto& page : sheet.pages()) {
        std::set<std::string_view> closed;
        std::string_view open;
        for (const PageField& field : page->fields()) {
            if (field.group != open) {
                EXPECT_TRUE(closed.insert(open = field.group).second || open.empty()) << open;
            }
        }
    }
    const auto fields = sheet.page(tabOf(Brevis::PropertyPage::PointersRefs)).fields();
    std::string keys;
    for (const PageField& field : fields) keys.append(field.key()).append(" ");
    EXPECT_EQ(
        "POINTERSREFS_DO_NOT_FORMAT ASTERISK_ANCHOR WS_BETWEEN_ASTERISK_ANCHOR HANGING_ASTERISK AMPERSAND_ANCHOR "
        "WS_BETWEEN_AMPERSAND_ANCHOR HANGING_AMPERSAND ",
        keys);
}

}  // namespace
}  // namespace BrevisUI
