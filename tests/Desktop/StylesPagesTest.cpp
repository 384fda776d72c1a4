// The pages of the scheme editor: every control stores what it shows, and the rules between controls can be seen.
#include <QRadioButton>
#include <map>
#include <set>

#include "StylesDlgTest.h"
#include "editor/BrevisUI_PageTable.h"
#include "help/BrevisUI_HelpText.h"
#include "qt/BrevisUI_FieldControl.h"
#include "qt/BrevisUI_StylesPageView.h"

namespace BrevisUI {
namespace {

using Brevis::PropertyInfo;
using Brevis::PropertyType;

// All that a page stores under its control for a key, as in a scheme file.
std::string stored(const Brevis::PropertySet& scheme, std::string_view key) {
    std::string text;
    std::int32_t number = 0;
    bool isOn = false;
    if (scheme.getString(key, text)) return '"' + text + '"';
    if (scheme.getInt(key, number)) return std::to_string(number);
    if (scheme.getBool(key, isOn)) return isOn ? "true" : "false";
    return "absent";
}

class StylesPagesTest : public StylesDlgTest {
protected:
    // The controls that a user sees, but for the switches that take others out of use.
    template <class Visit>
    void forEachControl(Visit visit) {
        for (std::size_t tab = 0; tab < std::size(pageTable); ++tab) {
            auto* const view = find<StylesPageView>(pageTable[tab].className);
            for (const PageField& field : view->page().fields()) {
                if (field.property->role == Brevis::PropertyRole::Value && !field.isHidden) {
                    visit(field, *view->control(field.key()));
                }
            }
        }
    }

    // Gives the control another value with keyboard or mouse, and tells what the scheme is to hold then.
    std::string change(const PageField& field, FieldControl& control) {
        dlg->showProperty(field.key());
        if (field.hasSwitch) {
            EXPECT_EQ(QApplication::focusWidget(), control.head()) << field.key();
            QTest::keyClick(control.head(), Qt::Key_Space);
            dlg->showProperty(field.key());
        }
        EXPECT_TRUE(control.editor()->isEnabled()) << field.key();
        QWidget* const focus = QApplication::focusWidget();
        switch (field.kind) {
            case FieldKind::WhiteSpace:
                type(field.key(), QStringLiteral("\\n\\s\\t"));
                return "\"\n \t\"";
            case FieldKind::Names:
                type(field.key(), QStringLiteral("each  all"));
                return "\"each all\"";
            case FieldKind::Indent:
                qobject_cast<QSpinBox*>(focus)->selectAll();
                QTest::keyClicks(focus, QStringLiteral("3"));
                QTest::keyClick(control.editor()->findChild<QComboBox*>(), Qt::Key_Down);
                return "\"\t\t\t\"";
            case FieldKind::Number:
                qobject_cast<QSpinBox*>(focus)->selectAll();
                QTest::keyClicks(focus, QStringLiteral("61"));
                return "61";
            case FieldKind::Flag:
                QTest::keyClick(focus, Qt::Key_Space);
                return field.value.isChecked ? "true" : "false";
            default: {
                auto* const last = control.editor()->findChildren<QRadioButton*>().last();
                last->click();
                for (const auto& row : field.property->choices) {
                    if (toQt(row.label) == last->text()) return std::to_string(row.value);
                }
                return "absent";  // the choice that takes both keys of the directives away
            }
        }
    }
};

// A property that no page shows, or one that a page shows and doesn't store, fails here.
TEST_F(StylesPagesTest, everyControlStoresWhatItShowsAndShowsWhatWasStored) {
    give("Mine", "2 EDITION 2\n");
    open();
    std::map<std::string, std::string> expected;
    forEachControl([&](const PageField& field, FieldControl& control) {
        expected[std::string(field.key())] = change(field, control);
    });
    finish();
    for (const auto& [key, value] : expected) EXPECT_EQ(stored(store.find("Mine")->scheme, key), value) << key;
    EXPECT_EQ(stored(store.find("Mine")->scheme, "PPD_DO_NOT_FORMAT"), "true");
    for (const PropertyInfo& property : Brevis::Catalogue::properties) {
        if (property.page == Brevis::PropertyPage::None) continue;
        EXPECT_TRUE(expected.count(std::string(property.key)) || store.find("Mine")->scheme.has(property.key))
            << property.key;
    }

    const std::string text = TestFiles::contents(dir.file("schemes/Mine.fsc"));
    open();
    forEachControl([&](const PageField& field, FieldControl& control) {
        if (field.kind == FieldKind::WhiteSpace) {
            EXPECT_EQ(find<QLineEdit>(field.key())->text(), QStringLiteral("\\n\\s\\t")) << field.key();
        } else if (field.kind == FieldKind::Indent) {
            EXPECT_EQ(find<QSpinBox>(field.key())->value(), 3) << field.key();
            EXPECT_EQ(control.editor()->findChild<QComboBox*>()->currentText(), QStringLiteral("tabs")) << field.key();
        } else if (field.kind == FieldKind::Choice) {
            EXPECT_TRUE(control.editor()->findChildren<QRadioButton*>().last()->isChecked()) << field.key();
        }
    });
    finish();
    EXPECT_EQ(TestFiles::contents(dir.file("schemes/Mine.fsc")), text);
}

// White space is typed escaped, stored as it is, and shown escaped again.
TEST_F(StylesPagesTest, entriesAreWhiteSpaceInEscapes) {
    struct Case {
        const char *typed, *stored, *shown;
    };
    constexpr Case cases[] = {
        {"\\n\\s", "\n ", "\\n\\s"}, {" \\t", " \t", "\\s\\t"}, {"", "", ""}, {"\\", "", ""}, {"\\r\\", "\r", "\\r"}};
    for (const Case& c : cases) {
        give("Mine", "3 WS_BEFORE_ENUM_COMMA \"\t\t\"\n");
        open();
        type("WS_BEFORE_ENUM_COMMA", QString::fromLatin1(c.typed));
        EXPECT_EQ(find<QLineEdit>("WS_BEFORE_ENUM_COMMA")->text(), QLatin1String(c.typed));
        find("tabs")->setFocus();
        EXPECT_EQ(find<QLineEdit>("WS_BEFORE_ENUM_COMMA")->text(), QLatin1String(c.shown));
        finish();
        EXPECT_EQ(textOf("Mine", "WS_BEFORE_ENUM_COMMA"), c.stored) << c.typed;
    }
    EXPECT_TRUE(dialogs.log.empty());
}

TEST_F(StylesPagesTest, otherCharactersAreRefusedAndTheFieldKeepsTheFocus) {
    give("Mine", "3 WS_BEFORE_ENUM_COMMA \"\t\"\n");
    give("Other");
    open();
    const auto isStuck = [&] {
        const bool isTold = dialogs.log == std::vector<std::string>{
                                               "warning: Please only enter white space.\nValid entries "
                                               "are: \\n (newline)  \\t (tab)  or  \\s (space)"};
        dialogs.log.clear();
        return isTold && QApplication::focusWidget() == find("WS_BEFORE_ENUM_COMMA");
    };
    find<QComboBox>("chooser")->setCurrentText(QStringLiteral("Mine"));
    type("WS_BEFORE_ENUM_COMMA", QStringLiteral("x"));
    EXPECT_TRUE(isStuck());
    // Neither another page nor another scheme nor OK leads away from it.
    find<QListWidget>("tabs")->setCurrentRow(0);
    EXPECT_TRUE(isStuck());
    EXPECT_EQ(find<QListWidget>("tabs")->currentItem()->text(), QStringLiteral("Enums"));
    Q_EMIT find<QComboBox>("chooser")->activated(1);
    EXPECT_TRUE(isStuck());
    EXPECT_EQ(find<QComboBox>("chooser")->currentText(), QStringLiteral("Mine"));
    dlg->accept();
    EXPECT_TRUE(isStuck());
    EXPECT_TRUE(dlg->isVisible());
    EXPECT_EQ(find<QLineEdit>("WS_BEFORE_ENUM_COMMA")->text(), QStringLiteral("x"));
    EXPECT_EQ(dlg->store().find("Mine")->scheme, store.find("Mine")->scheme);
    // Mended, it is taken.
    QTest::keyClick(find("WS_BEFORE_ENUM_COMMA"), Qt::Key_Backspace);
    finish();
    EXPECT_EQ(textOf("Mine", "WS_BEFORE_ENUM_COMMA"), "");
    EXPECT_TRUE(dialogs.log.empty());
}

TEST_F(StylesPagesTest, pagesThatUseTheGlobalSettingsFollowThem) {
    give("Mine", "3 GLOBAL_WS_BEFORE_COMMA \" \"\n3 WS_BEFORE_ENUM_COMMA \"\t\"\n");
    open();
    for (const char* key : {"CLASS_USE_GLOBAL_SETTINGS", "ENUM_USE_GLOBAL_SETTINGS", "FN_USE_GLOBAL_SETTINGS"})
        click(key);
    type("GLOBAL_WS_BEFORE_OPEN_BRACE", QStringLiteral("\\n"));
    type("GLOBAL_WS_AFTER_OPEN_PAREN", QStringLiteral("\\s"));
    for (const char* key : {"WS_BEFORE_CLASS_OPEN_BRACE", "WS_BEFORE_ENUM_OPEN_BRACE", "WS_BEFORE_FN_OPEN_BRACE"}) {
        EXPECT_EQ(find<QLineEdit>(key)->text(), QStringLiteral("\\n")) << key;
        EXPECT_FALSE(find(key)->isEnabled()) << key;
    }
    EXPECT_FALSE(find("WS_BEFORE_ENUM_COMMA")->isEnabled());
    EXPECT_TRUE(find("WS_BETWEEN_ENUM_ELEMENTS")->isEnabled());
    finish();
    EXPECT_EQ(textOf("Mine", "WS_BEFORE_CLASS_OPEN_BRACE"), "\n");
    EXPECT_EQ(textOf("Mine", "WS_AFTER_FN_OPEN_PAREN"), " ");
    EXPECT_EQ(textOf("Mine", "WS_BEFORE_ENUM_COMMA"), " ");
    EXPECT_EQ(textOf("Mine", "WS_BEFORE_NS_OPEN_BRACE"), "");
}

TEST_F(StylesPagesTest, aPageThatIsSwitchedOffTakesItsValuesOut) {
    give("Mine", "3 WS_BEFORE_ENUM_OPEN_BRACE \"\\n\"\n1 ENUM_USE_GLOBAL_SETTINGS 1\n");
    open();
    click("ENUMS_DO_NOT_FORMAT");
    EXPECT_EQ(preview(), QStringLiteral("Code will be left as is"));
    for (const PageField& field : find<StylesPageView>("EnumsPage")->page().fields()) {
        EXPECT_EQ(find(field.key())->isEnabled(), field.key() == "ENUMS_DO_NOT_FORMAT") << field.key();
    }
    finish();
    std::string left;
    for (const PropertyInfo& property : Brevis::Catalogue::properties) {
        if (property.page != Brevis::PropertyPage::Enums) continue;
        const std::string value = stored(store.find("Mine")->scheme, property.key);
        if (value != "absent") left += std::string(property.key) + ' ' + value + '\n';
    }
    EXPECT_EQ(left, "ENUM_USE_GLOBAL_SETTINGS true\nENUMS_DO_NOT_FORMAT true\n");
}

// Enabled states, cleared boxes and labels that depend on another control of the page.
TEST_F(StylesPagesTest, controlsFollowOthers) {
    give("Mine");
    open();
    const auto choose = [&](std::string_view page, std::string_view key, int choice) {
        find<StylesPageView>(page)->control(key)->editor()->findChildren<QRadioButton*>()[choice]->click();
    };
    const QLabel* const label =
        find<StylesPageView>("PointersRefsPage")->control("WS_BETWEEN_AMPERSAND_ANCHOR")->label();
    EXPECT_EQ(label->text(), QStringLiteral("White space between && and Identifier:"));
    EXPECT_FALSE(find("WS_BETWEEN_AMPERSAND_ANCHOR")->isEnabled());
    choose("PointersRefsPage", "AMPERSAND_ANCHOR", 1);
    EXPECT_TRUE(find("WS_BETWEEN_AMPERSAND_ANCHOR")->isEnabled());
    click("HANGING_AMPERSAND");
    EXPECT_TRUE(find<QCheckBox>("HANGING_AMPERSAND")->isChecked());
    choose("PointersRefsPage", "AMPERSAND_ANCHOR", 0);
    EXPECT_FALSE(find<QCheckBox>("HANGING_AMPERSAND")->isChecked());
    EXPECT_FALSE(find("HANGING_AMPERSAND")->isEnabled());
    EXPECT_EQ(label->text(), QStringLiteral("White space between Type and && :"));

    EXPECT_FALSE(find("RIGHT_MARGIN")->isEnabled());
    click("LINE_WRAP");
    EXPECT_TRUE(find("RIGHT_MARGIN")->isEnabled());
    EXPECT_FALSE(find("WRAP_INDENT")->isEnabled());
    choose("LineWrappingPage", "WRAP_STYLE", 1);
    EXPECT_TRUE(find("WRAP_INDENT")->isEnabled());
}

TEST_F(StylesPagesTest, changedValuesAreMarkedAndCanBeSetBackAlone) {
    give("Mine", "3 WS_BEFORE_ENUM_COMMA \" \"\n3 WS_BETWEEN_ENUM_ELEMENTS \" \"\n");
    open();
    const QListWidgetItem* const page = find<QListWidget>("tabs")->item(2);
    EXPECT_FALSE(page->font().bold());
    type("WS_BEFORE_ENUM_COMMA", QStringLiteral("\\t"));
    type("WS_BETWEEN_ENUM_ELEMENTS", QStringLiteral("\\n"));
    EXPECT_TRUE(page->font().bold());
    EXPECT_TRUE(find("WS_BETWEEN_ENUM_ELEMENTS.back")->isVisible());
    EXPECT_FALSE(find("WS_BEFORE_ENUM_OPEN_BRACE.back")->isVisible());
    press("WS_BEFORE_ENUM_COMMA.back");
    EXPECT_FALSE(find("WS_BEFORE_ENUM_COMMA.back")->isVisible());
    EXPECT_EQ(find<QLineEdit>("WS_BEFORE_ENUM_COMMA")->text(), QStringLiteral("\\s"));
    EXPECT_TRUE(page->font().bold());
    finish();
    EXPECT_EQ(textOf("Mine", "WS_BEFORE_ENUM_COMMA"), " ");
    EXPECT_EQ(textOf("Mine", "WS_BETWEEN_ENUM_ELEMENTS"), "\n");
}

// The box in front of a control puts its key into the scheme and takes it out.
TEST_F(StylesPagesTest, aBoxSaysWhetherTheSchemeHasTheKey) {
    give("Mine", "3 WS_IN_EMPTY_BODY \" \"\n");
    open();
    EXPECT_FALSE(find("WS_AFTER_CAST.set")->isEnabled());
    find<StylesPageView>("GlobalsPage")->control("EDITION")->editor()->findChildren<QRadioButton*>().last()->click();
    EXPECT_TRUE(find("WS_AFTER_CAST.set")->isEnabled());
    EXPECT_FALSE(find("WS_AFTER_CAST")->isEnabled());
    EXPECT_EQ(find<QLineEdit>("WS_BEFORE_LAMBDA_OPEN_BRACE")->text(), QString());
    click("WS_BEFORE_LAMBDA_OPEN_BRACE.set");
    EXPECT_EQ(find<QLineEdit>("WS_BEFORE_LAMBDA_OPEN_BRACE")->text(), QStringLiteral("\\s"));
    click("INDENT_LABEL.set");
    click("MAX_BLANK_LINES.set");
    click("MAX_BLANK_LINES.set");
    EXPECT_EQ(find<QLineEdit>("WS_IN_EMPTY_BODY")->text(), QStringLiteral("\\s"));
    click("WS_IN_EMPTY_BODY.set");
    EXPECT_EQ(find<QLineEdit>("WS_IN_EMPTY_BODY")->text(), QString());
    finish();
    std::string keys;
    for (const PropertyInfo& property : Brevis::Catalogue::properties) {
        const std::string value = stored(store.find("Mine")->scheme, property.key);
        if (property.edition != 1 && value != "absent") keys += std::string(property.key) + ' ' + value + '\n';
    }
    EXPECT_EQ(keys, "EDITION 2\nINDENT_LABEL \"\"\nWS_BEFORE_LAMBDA_OPEN_BRACE \" \"\n");
}

// With the tab key alone a user comes to every control of a page, in the order in which they stand.
TEST_F(StylesPagesTest, theTabKeyGoesThroughThePage) {
    give("Mine", "2 EDITION 2\n2 MAX_BLANK_LINES 3\n");
    open();
    for (std::size_t tab = 0; tab < std::size(pageTable); ++tab) {
        ASSERT_TRUE(dlg->showPage(tab));
        const QWidget* const view = find(pageTable[tab].className);
        find("tabs")->setFocus();
        int last = -1;
        std::set<QString> reached;
        for (QTest::keyClick(find("tabs"), Qt::Key_Tab); view->isAncestorOf(QApplication::focusWidget());
             QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab)) {
            QWidget* const focus = QApplication::focusWidget();
            const int height = focus->mapTo(view, QPoint()).y();
            EXPECT_GE(height, last - 8) << fromQt(focus->objectName());
            last = height;
            reached.insert(focus->objectName());
            ASSERT_LT(reached.size(), 100U);
        }
        for (const PageField& field : find<StylesPageView>(pageTable[tab].className)->page().fields()) {
            if (field.isHidden || !field.isEnabled || field.kind == FieldKind::Choice) continue;
            if (field.hasSwitch) {
                EXPECT_TRUE(reached.count(toQt(field.key()) + QStringLiteral(".set"))) << field.key();
            }
            if (!field.hasSwitch || !field.value.isAbsent) {
                EXPECT_TRUE(reached.count(toQt(field.key()))) << field.key();
            }
        }
    }
}

TEST_F(StylesPagesTest, everyControlHasANameForThoseWhoCannotSeeAndItsHelp) {
    give("Mine");
    open();
    const HelpText help = HelpText::builtIn();
    forEachControl([&](const PageField& field, FieldControl& control) {
        QWidget* const focus = find(field.key());
        EXPECT_FALSE(focus->accessibleName().isEmpty()) << field.key();
        EXPECT_EQ(fromQt(focus->toolTip()), help.shortText(field.key())) << field.key();
        EXPECT_EQ(fromQt(focus->whatsThis()), help.whatsThis(field.key())) << field.key();
        EXPECT_FALSE(focus->toolTip().isEmpty()) << field.key();
        EXPECT_TRUE(!control.label() || control.label()->buddy() == focus) << field.key();
    });
    for (const QWidget* const widget : dlg->findChildren<QWidget*>()) {
        const bool isPartOfOther = qobject_cast<const QSpinBox*>(widget->parentWidget()) != nullptr;
        if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisible() || isPartOfOther) continue;
        const auto* const button = qobject_cast<const QAbstractButton*>(widget);
        EXPECT_TRUE(!widget->accessibleName().isEmpty() || (button && !button->text().isEmpty()))
            << widget->metaObject()->className() << ' ' << fromQt(widget->objectName());
    }
}

}  // namespace
}  // namespace BrevisUI
