// Puts the pages together once, and searches their sections one by one: there are some two hundred of a few lines each.
#include "help/BrevisUI_HelpLibrary.h"

#include <algorithm>

#include "help/BrevisUI_HelpMarkup.h"
#include "help/BrevisUI_HelpWords.h"

namespace BrevisUI {

namespace {

// Where the prose of a page wants the sections of its properties.
constexpr std::string_view propertiesPlace = "<!-- properties -->";
constexpr std::size_t excerptWidth = 120;

std::vector<HelpChapter> readContents(std::string_view text) {
    std::vector<HelpChapter> chapters;
    while (!text.empty()) {
        std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        const std::size_t start = line.find_first_not_of(' ');
        if (start == std::string_view::npos) continue;
        if (start == 0)
            chapters.push_back({std::string(line), {}});
        else if (!chapters.empty())
            chapters.back().pages.emplace_back(line.substr(start));
    }
    return chapters;
}

std::size_t occurrences(std::string_view text, std::string_view wanted) {
    std::size_t count = 0;
    for (std::size_t at = text.find(wanted); at != std::string_view::npos; at = text.find(wanted, at + 1)) ++count;
    return count;
}

}  // namespace

HelpLibrary::HelpLibrary() : contents_(readContents(helpContentsSource())) {
    for (const HelpSource& source : helpPageSources()) {
        pages_.push_back({std::string(source.name), textOfElement(source.text, "h1"), withProperties(source)});
    }
    for (const HelpChapter& chapter : contents_) {
        for (const std::string& name : chapter.pages) {
            const auto sources = helpPageSources();
            const auto source = std::find_if(sources.begin(), sources.end(),
                                             [&](const HelpSource& candidate) { return candidate.name == name; });
            if (source != sources.end()) addSections(*page(name), source->text);
        }
    }
}

const HelpPage* HelpLibrary::page(std::string_view name) const {
    const auto found =
        std::find_if(pages_.begin(), pages_.end(), [&](const HelpPage& page) { return page.name == name; });
    return found == pages_.end() ? nullptr : &*found;
}

// In front of the sections stands a list of them.
std::string HelpLibrary::withProperties(const HelpSource& source) const {
    std::string html(source.text);
    const std::size_t place = html.find(propertiesPlace);
    const HelpTopic* topic = findHelpTopic(source.name);
    if (place == std::string::npos || !topic) return html;
    std::string list, sections;
    for (const Brevis::PropertyInfo& row : Brevis::Catalogue::properties) {
        const PropertyHelp* property = row.page == topic->page ? text_.find(row.key) : nullptr;
        if (!property) continue;
        list.append("<li><a href=\"#" + property->key + "\">" + toHtml(property->title) + "</a></li>\n");
        sections.append(text_.section(*property));
    }
    return html.replace(place, propertiesPlace.size(), "<ul>\n" + list + "</ul>\n" + sections);
}

void HelpLibrary::addSections(const HelpPage& page, std::string_view prose) {
    // The heading is the title already.
    constexpr std::string_view headingEnd = "</h1>";
    if (const std::size_t end = prose.find(headingEnd); end != std::string_view::npos) {
        prose.remove_prefix(end + headingEnd.size());
    }
    const std::string plain = toPlainText(prose);
    sections_.push_back({page.name, page.title, page.title, plain, wordLine(plain), wordLine(page.title)});
    const HelpTopic* topic = findHelpTopic(page.name);
    for (const Brevis::PropertyInfo& row : Brevis::Catalogue::properties) {
        const PropertyHelp* property = topic && row.page == topic->page ? text_.find(row.key) : nullptr;
        if (!property) continue;
        std::string text = property->shortText;
        for (const std::string& paragraph : property->paragraphs) text.append(" ").append(paragraph);
        sections_.push_back({page.name + "#" + property->key, property->title, page.title, text, wordLine(text),
                             wordLine(property->title + " " + property->key)});
    }
}

std::vector<HelpHit> HelpLibrary::search(std::string_view query) const {
    constexpr std::size_t titleWeight = 1000;
    const std::vector<std::string> words = searchWords(query);
    if (words.empty()) return {};
    struct Found {
        std::size_t score;
        const Section* section;
    };
    std::vector<Found> found;
    for (const Section& section : sections_) {
        std::size_t score = 0;
        const bool hasAll = std::all_of(words.begin(), words.end(), [&](const std::string& word) {
            const std::size_t inTitle = occurrences(section.titleWords, " " + word) > 0 ? titleWeight : 0;
            const std::size_t here = inTitle + occurrences(section.words, " " + word);
            score += here;
            return here > 0;
        });
        if (hasAll) found.push_back({score, &section});
    }
    std::stable_sort(found.begin(), found.end(), [](const Found& a, const Found& b) { return a.score > b.score; });
    std::vector<HelpHit> hits;
    for (const Found& hit : found) {
        const Section& section = *hit.section;
        hits.push_back(
            {section.topic, section.title, section.page, excerptAround(section.plain, words.front(), excerptWidth)});
    }
    return hits;
}

}  // namespace BrevisUI
