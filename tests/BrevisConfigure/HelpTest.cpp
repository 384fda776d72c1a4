// The help: every example against the engine, every property told of, every link, and the search.
#include <gtest/gtest.h>

#include <algorithm>
#include <pugixml.hpp>
#include <set>

#include "BrevisUI_Messages.h"
#include "Brevis_Formatter.h"
#include "help/BrevisUI_HelpLibrary.h"
#include "help/BrevisUI_HelpMarkup.h"
#include "help/BrevisUI_HelpWords.h"

namespace BrevisUI {
namespace {

namespace Catalogue = Brevis::Catalogue;

std::string formatted(const Brevis::PropertySet& scheme, const std::string& source) {
    Trn::ParseMessageList messages;
    Brevis::UpdateFunctor update;
    return Brevis::Formatter().format(Brevis::FormatterProperties(scheme), source, messages, update).text;
}

bool engineReads(const Brevis::PropertyInfo& row) { return !std::holds_alternative<Brevis::Unused>(row.field); }

TEST(Help, ExamplesComeOutOfTheEngine) {
    const HelpText help = HelpText::builtIn();
    for (const PropertyHelp& property : help.properties()) {
        for (const HelpExample& example : property.examples) {
            EXPECT_EQ(example.after, formatted(example.scheme, example.before)) << property.key;
        }
    }
}

// EDITION makes too many differences for one.
bool needsExample(const Brevis::PropertyInfo& row) {
    return row.type != Brevis::PropertyType::Text && row.role != Brevis::PropertyRole::Edition;
}

// An example that would come out the same without its property explains nothing; a property that the engine doesn't
// read must make no difference.
TEST(Help, ExamplesShowTheirProperty) {
    const HelpText help = HelpText::builtIn();
    for (const PropertyHelp& property : help.properties()) {
        if (property.examples.empty() && !needsExample(*Catalogue::find(property.key))) continue;
        const bool makesDifference =
            std::any_of(property.examples.begin(), property.examples.end(), [&](const HelpExample& example) {
                Brevis::PropertySet without = example.scheme;
                EXPECT_TRUE(without.erase(property.key)) << property.key << " is missing in its own example";
                return formatted(without, example.before) != example.after;
            });
        EXPECT_EQ(engineReads(*Catalogue::find(property.key)), makesDifference) << property.key;
    }
}

TEST(Help, TellsOfEveryPropertyOnItsPage) {
    const HelpLibrary library;
    EXPECT_EQ(std::vector<std::string>(), library.text().faults());
    for (const Brevis::PropertyInfo& row : Catalogue::properties) {
        const PropertyHelp* property = library.text().find(row.key);
        ASSERT_TRUE(property) << row.key;
        EXPECT_NE(needsExample(row), property->examples.empty()) << row.key;
        const HelpPage* page = library.page(helpTopic(row.page).file);
        ASSERT_TRUE(page) << row.key;
        EXPECT_NE(std::string::npos, page->html.find(library.text().section(*property))) << row.key;
    }
    EXPECT_EQ(std::size(Catalogue::properties), library.text().properties().size()) << "a property comes twice";
}

TEST(Help, TopicsBearTheTitlesOfTheirPages) {
    const HelpLibrary library;
    for (int page = 0; page <= static_cast<int>(Brevis::PropertyPage::LineWrapping); ++page) {
        const HelpTopic& topic = helpTopic(static_cast<Brevis::PropertyPage>(page));
        EXPECT_EQ(page, static_cast<int>(topic.page));
        EXPECT_EQ(&topic, findHelpTopic(topic.file));
        ASSERT_TRUE(library.page(topic.file)) << topic.file;
        EXPECT_EQ(topic.title, library.page(topic.file)->title);
    }
    EXPECT_EQ(nullptr, findHelpTopic("Options.htm"));
}

TEST(Help, SpeaksPlainTextInTipsAndHtmlElsewhere) {
    const HelpText help = HelpText::builtIn();
    EXPECT_EQ("The white space in front of the brace that opens a namespace.",
              help.shortText("WS_BEFORE_NS_OPEN_BRACE"));
    EXPECT_NE(std::string::npos,
              help.whatsThis("WS_BETWEEN_TP_PARAMS").find("<pre>template &lt;class T, int size&gt;"));
    EXPECT_NE(std::string::npos, help.whatsThis("TAB_SIZE").find("int\u2192a;")) << "a tab shows";
    EXPECT_TRUE(help.shortText("INDENT_LABEL").ends_with(". Second edition only."));
    EXPECT_FALSE(help.shortText("EDITION").ends_with("only."));
    EXPECT_NE(std::string::npos, help.whatsThis("WRAP_STYLE").find("<i>Indent by</i> = 4 spaces"));
    EXPECT_NE(std::string::npos, help.whatsThis("HANGING_ASTERISK").find("(Global Settings) = tabs to spaces"));
    EXPECT_EQ("", help.shortText("WIDTH_OF_THE_PAGE"));
    EXPECT_EQ("", help.whatsThis("WIDTH_OF_THE_PAGE"));
    for (const PropertyHelp& property : help.properties()) {
        EXPECT_LE(property.shortText.size(), 200u) << property.key << " is too long for a tool tip";
    }
}

TEST(Help, FaultsOfASourceAreTold) {
    const struct {
        std::string_view source, fault;
    } cases[] = {
        {"x\n", "s:1: text in front of the first property"},
        {"[TAB_SIZ] T\n\nText.\n", "s:1: unknown key TAB_SIZ"},
        {"[GLOBALS_DO_NOT_FORMAT]\n\nText.\n", "s:1: no title for GLOBALS_DO_NOT_FORMAT"},
        {"[TAB_SIZE]\n", "s: no text for TAB_SIZE"},
        {"[TAB_SIZE]\nText.\nbefore:\n    int a;\n", "s:3: a block without a scheme"},
        {"[TAB_SIZE]\nText.\nscheme:\n    2 TAB_SIZ 4\n", "s:4: a bad line of a scheme: 2 TAB_SIZ 4"},
        {"[TAB_SIZE]\nText.\nscheme:\n    2 TAB_SIZE x\n", "s:4: a bad line of a scheme: 2 TAB_SIZE x"},
        {"[TAB_SIZE]\nText.\nscheme:\nbefore:\n    int a;\n", "s:4: an empty block"},
        {"[TAB_SIZE]\nText.\nscheme:\n    2 TAB_SIZE 4\nMore.\n", "s:5: text behind an example"},
    };
    for (const auto& [source, fault] : cases) {
        const HelpSource sources[] = {{"s", source}};
        const std::vector<std::string> faults = HelpText(sources).faults();
        EXPECT_EQ(1, std::count(faults.begin(), faults.end(), fault)) << source;
    }
}

// ---- Pages

std::vector<std::string> linksOf(std::string_view html) {
    constexpr std::string_view opening = "href=\"";
    std::vector<std::string> links;
    for (std::size_t at = html.find(opening); at != std::string_view::npos; at = html.find(opening, at)) {
        at += opening.size();
        links.emplace_back(html.substr(at, html.find('"', at) - at));
    }
    return links;
}

TEST(HelpPages, AreWellFormedAndTheirLinksLeadSomewhere) {
    const HelpLibrary library;
    for (const HelpPage& page : library.pages()) {
        EXPECT_FALSE(page.title.empty()) << page.name;
        pugi::xml_document document;
        const std::string wrapped = "<page>" + page.html + "</page>";
        EXPECT_TRUE(document.load_string(wrapped.c_str())) << page.name;
        EXPECT_EQ(std::string::npos, page.html.find("<!--")) << page.name << " has a place that nothing fills";
        for (const std::string& link : linksOf(page.html)) {
            const std::size_t hash = link.find('#');
            const std::string name = link.substr(0, hash);
            const HelpPage* target = name.empty() ? &page : library.page(name);
            ASSERT_TRUE(target) << page.name << ": " << link;
            if (hash == std::string::npos) continue;
            EXPECT_NE(std::string::npos, target->html.find("<a name=\"" + link.substr(hash + 1) + "\">")) << link;
        }
    }
}

TEST(HelpPages, StandInTheContentsOnce) {
    const HelpLibrary library;
    std::multiset<std::string> listed, there;
    for (const HelpChapter& chapter : library.contents()) listed.insert(chapter.pages.begin(), chapter.pages.end());
    for (const HelpPage& page : library.pages()) there.insert(page.name);
    EXPECT_EQ(there, listed);
    for (const char* name : {"Options.htm", "FormattingOptions.htm", "Schemes.htm", "Messages.htm", "Console.htm"}) {
        EXPECT_EQ(1u, there.count(name)) << name;
    }
}

TEST(HelpPages, ExplainEveryMessageOfTheFileJob) {
    const HelpLibrary library;
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(("<page>" + library.page("Messages.htm")->html + "</page>").c_str()));
    const std::string parseFailed = parseFailedMessage("%s");
    for (const std::string_view message :
         {Message::starting, Message::missing, Message::noPermission, Message::unreadable, Message::noBackup,
          Message::writeFailed, Message::changedSinceRead, Message::busy, Message::notWritten, Message::damaged,
          Message::utf16, Message::nul, Message::codeChanged, Message::unexpected, Message::noUndo,
          Message::outOfMemory, std::string_view(parseFailed)}) {
        const auto headings = document.child("page").children("h3");
        EXPECT_TRUE(std::any_of(headings.begin(), headings.end(), [&](const pugi::xml_node& heading) {
            const std::string_view text = heading.text().get();
            return message.starts_with(text.substr(0, text.find_last_not_of(".") + 1));
        })) << message;
    }
}

// ---- Search

std::vector<std::string> topicsOf(const std::vector<HelpHit>& hits) {
    std::vector<std::string> topics;
    for (const HelpHit& hit : hits) topics.push_back(hit.topic);
    return topics;
}

TEST(HelpSearch, FindsTheRightPlaceFirst) {
    const HelpLibrary library;
    const struct {
        std::string_view query, first;
    } cases[] = {
        {"ws_after_fn_name", "Functions.htm#WS_AFTER_FN_NAME"},
        {"Close Fn", "Functions.htm#WS_BEFORE_FN_CLOSE_PAREN"},  // parts of the key
        {"right margin", "LineWrapping.htm#RIGHT_MARGIN"},
        {"backup", "Options.htm"},
        {"hang asterisk", "PointersRefs.htm#HANGING_ASTERISK"},
        {"AFX_MSG", "Regions.htm"},
        {"console", "Console.htm"},
        {"tab siz", "Globals.htm#TAB_SIZE"},  // beginnings of words
    };
    for (const auto& [query, first] : cases) {
        const std::vector<HelpHit> hits = library.search(query);
        ASSERT_FALSE(hits.empty()) << query;
        EXPECT_EQ(first, hits.front().topic) << query;
    }
}

TEST(HelpSearch, WantsEveryWordAndAtLeastOne) {
    const HelpLibrary library;
    EXPECT_TRUE(library.search("").empty());
    EXPECT_TRUE(library.search(" .,- ").empty());
    EXPECT_TRUE(library.search("backup zebra").empty());
    EXPECT_TRUE(library.search("ackup").empty()) << "the inside of a word is no beginning";
    const std::vector<std::string> both = topicsOf(library.search("backup")),
                                   one = topicsOf(library.search("BACKUP disk"));
    EXPECT_LT(one.size(), both.size());
    for (const std::string& topic : one) EXPECT_EQ(1, std::count(both.begin(), both.end(), topic)) << topic;
    const HelpHit hit = library.search("precious backup").empty() ? library.search("backup").front() : HelpHit();
    EXPECT_EQ("Options", hit.page);
    EXPECT_NE(std::string::npos, hit.excerpt.find("backup")) << hit.excerpt;
}

TEST(HelpSearch, CutsWordsAndExcerpts) {
    EXPECT_EQ((std::vector<std::string>{"a1", "_ws_x__", "ws", "x", "\u00fcb"}), searchWords("A1! _WS_x__\n\u00fcB"));
    EXPECT_EQ("one two", excerptAround(" one\n two ", "two", 20));
    EXPECT_EQ("\u2026 six Seven \u2026", excerptAround("one two three four five six Seven eight nine", "seven", 15));
    EXPECT_EQ("one \u2026", excerptAround("one two three", "zebra", 5));
}

TEST(HelpMarkup, GoesToHtmlAndBack) {
    EXPECT_EQ("a&lt;b&gt; &amp; &quot;c&quot;", toHtml("a<b> & \"c\""));
    EXPECT_EQ(" a b, < & &lt;", toPlainText("<p>a</p><i>b</i>, &lt; &amp; &amp;lt;"));
    EXPECT_EQ("x", toPlainText("x<unclosed").substr(0, 1));
    EXPECT_EQ("A & B", textOfElement("<p>x</p><h1>A &amp; B</h1>", "h1"));
    EXPECT_EQ("", textOfElement("<h1>A", "h1"));
}

}  // namespace
}  // namespace BrevisUI
