// The preview of the scheme editor, and the pane that it is shown in.
#include "StylesDlgTest.h"

#include <QTextBlock>
#include <QTextLayout>
#include <map>

namespace BrevisUI {
namespace {

class PreviewPaneTest : public StylesDlgTest {};

TEST_F(PreviewPaneTest, followsEveryChangeAndMarksWhatItMoved) {
    give("Mine", "3 WS_BEFORE_ENUM_OPEN_BRACE \" \"\n3 WS_BETWEEN_ENUM_ELEMENTS \" \"\n");
    open();
    dlg->showPage(2);
    EXPECT_TRUE(preview().startsWith(QStringLiteral("enum keyword {ASM, AUTO, BREAK};"))) << fromQt(preview());
    EXPECT_TRUE(marks().isEmpty());
    type("WS_BEFORE_ENUM_COMMA", QStringLiteral("\\s"));
    EXPECT_TRUE(preview().startsWith(QStringLiteral("enum keyword {ASM , AUTO , BREAK};"))) << fromQt(preview());
    EXPECT_EQ(marks(), QStringList(5, QStringLiteral(" ,")));
    type("WS_BEFORE_ENUM_OPEN_BRACE", QStringLiteral("\\n"));
    EXPECT_EQ(marks(), QStringList(2, QStringLiteral("\n{")));
    // Of what this changes the sample has nothing, so that nothing has moved.
    click("ALIGN_ENUM_INITIALIZERS");
    EXPECT_EQ(marks(), QStringList());
    dlg->showPage(3);
    EXPECT_EQ(marks(), QStringList());
}

TEST_F(PreviewPaneTest, takesTheTabSizeOfTheScheme) {
    give("Mine", "2 TAB_SIZE 3\n");
    open();
    auto* const view = find<CodeView>("preview");
    const double blank = view->fontMetrics().horizontalAdvance(u' ');
    EXPECT_DOUBLE_EQ(view->tabStopDistance(), blank * 3);
    EXPECT_TRUE(view->isReadOnly());
    EXPECT_EQ(view->font().pointSize(), 8);
    EXPECT_TRUE(QFontInfo(view->font()).fixedPitch());
    dlg->showProperty("TAB_SIZE");
    find<QSpinBox>("TAB_SIZE")->setValue(6);
    EXPECT_DOUBLE_EQ(view->tabStopDistance(), blank * 6);
}

TEST_F(PreviewPaneTest, showsTheTextAsItWasBesideIt) {
    give("Mine", "3 WS_BEFORE_ENUM_OPEN_BRACE \" \"\n");
    open();
    dlg->showPage(2);
    EXPECT_FALSE(find("original")->isVisible());
    press("showOriginal");
    EXPECT_TRUE(find("original")->isVisible());
    EXPECT_TRUE(find<CodeView>("original")->toPlainText().startsWith(QStringLiteral("enum keyword{ASM,")));
    dlg->showPage(3);
    EXPECT_TRUE(find<CodeView>("original")->toPlainText().startsWith(QStringLiteral("namespace Outer{")));
}

TEST_F(PreviewPaneTest, takesAFileInPlaceOfTheSample) {
    give("Mine", "3 WS_BEFORE_ENUM_OPEN_BRACE \"\\n\"\n");
    open();
    // Characters of more than one byte stand in front of the change.
    dialogs.chosen = {
        dir.file("own.cpp", "\xEF\xBB\xBF// \xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\r\nint a;\r\nenum e {a, b};\r\n")};
    press("ownFile");
    EXPECT_EQ(fromQt(preview()), "// \xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\nint a;\nenum e\n{a,b};\n");
    EXPECT_EQ(find<QLabel>("previewStatus")->text(), QStringLiteral("This scheme changes 1 of 3 lines."));
    type("WS_BETWEEN_ENUM_ELEMENTS", QStringLiteral("\\s"));
    EXPECT_EQ(marks(), QStringList{QStringLiteral(" b")});

    dialogs.chosen = {dir.file("bad.cpp", "void f( {\n")};
    press("ownFile");
    EXPECT_EQ(preview(), QStringLiteral("void f( {\n"));
    EXPECT_TRUE(find<QLabel>("previewStatus")->text().contains(QLatin1String("can't be formatted")));
    dialogs.chosen = {dir.file("none.cpp")};
    press("ownFile");
    EXPECT_TRUE(dialogs.hasTold("none.cpp\" can't be read"));
    press("useSample");
    EXPECT_TRUE(preview().startsWith(QStringLiteral("enum keyword")));
    EXPECT_FALSE(find("previewStatus")->isVisible());
}

// The window is narrower by what the preview took, and has its old width when it comes back.
TEST_F(PreviewPaneTest, canBeHidden) {
    give("Mine");
    open();
    const int wide = dlg->width();
    const QString before = preview();
    EXPECT_EQ(find<QPushButton>("togglePreview")->text(), QStringLiteral("Hide &Preview <<"));
    press("togglePreview");
    EXPECT_EQ(find<QPushButton>("togglePreview")->text(), QStringLiteral("Show &Preview >>"));
    EXPECT_FALSE(find("preview")->isVisible());
    EXPECT_LT(dlg->width(), wide * 3 / 4);
    // Nothing is formatted while it can't be seen.
    find<QSpinBox>("GLOBAL_INDENT_CONTENT")->setValue(7);
    dlg->showPage(2);
    EXPECT_EQ(preview(), before);
    press("togglePreview");
    EXPECT_TRUE(preview().startsWith(QStringLiteral("enum keyword")));
    EXPECT_EQ(dlg->width(), wide);
}

// Which colour each character has, a letter a colour; a blank for none.
TEST_F(PreviewPaneTest, coloursTheSyntax) {
    struct Case {
        const char *line, *colours;
    };
    constexpr Case cases[] = {
        {"int a = 0x1F'FF;", "kkk     nnnnnnn "},
        {"f(\"a\\\"b//\", 'x'); // c", "  llllllll  lll   cccc"},
        {"/* a", "cccc"},
        {"b */ if (c1)", "cccc kk     "},
        {"  #define A \"x\" /* y", "ddddddddddddllldcccc"},
        {"z */ else", "cccc kkkk"},
        {"#if 1 \\", "ddddndd"},
        {" for", "dddd"},
        {"forx x_if", "         "},
    };
    QString text;
    for (const Case& c : cases) text += QLatin1String(c.line) + u'\n';
    CodeView view;
    view.showCode(text);
    std::map<QRgb, char> letters;
    const auto name = [&](int line, int character, char letter) {
        for (const auto& range : view.document()->findBlockByNumber(line).layout()->formats()) {
            if (range.start <= character && character < range.start + range.length) {
                letters[range.format.foreground().color().rgb()] = letter;
            }
        }
    };
    name(0, 0, 'k');
    name(0, 8, 'n');
    name(1, 2, 'l');
    name(2, 0, 'c');
    name(6, 0, 'd');
    ASSERT_EQ(letters.size(), 5U);
    for (int line = 0; line < static_cast<int>(std::size(cases)); ++line) {
        std::string colours(std::string_view(cases[line].line).size(), ' ');
        for (const auto& range : view.document()->findBlockByNumber(line).layout()->formats()) {
            const char letter = letters[range.format.foreground().color().rgb()];
            for (int at = 0; at < range.length; ++at) colours[static_cast<std::size_t>(range.start + at)] = letter;
        }
        EXPECT_EQ(colours, cases[line].colours) << cases[line].line;
    }
}

}  // namespace
}  // namespace BrevisUI
