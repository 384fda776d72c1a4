// Looks for words in what is known of a property.
#include "editor/BrevisUI_PropertySearch.h"

#include <algorithm>
#include <sstream>

#include "editor/BrevisUI_PageTable.h"

namespace BrevisUI {

namespace {

using Brevis::PropertyInfo;

constexpr char asciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string lowered(std::string text) {
    std::ranges::transform(text, text.begin(), asciiLower);
    return text;
}

std::vector<std::string> wordsOf(std::string_view query) {
    std::istringstream in(lowered(std::string(query)));
    std::vector<std::string> words;
    for (std::string word; in >> word;) words.push_back(word);
    return words;
}

// What stands on the screen where the property is.
std::string shownText(const PropertyInfo& property, const PageInfo& page) {
    std::string text = plainLabel(page.title) + '\n' + plainLabel(property.group) + '\n' + plainLabel(property.label);
    for (const Brevis::PropertyLabel& label : property.labels) text += '\n' + plainLabel(label.label);
    for (const Brevis::ChoiceValue& choice : property.choices) text += '\n' + plainLabel(choice.label);
    return text;
}

// Which of the texts is the first that, together with those before it, has all words; their number if none has.
std::size_t rankOf(const std::vector<std::string>& words, const std::vector<std::string>& texts) {
    std::string known;
    for (std::size_t rank = 0; rank < texts.size(); ++rank) {
        known += lowered(texts[rank]) + '\n';
        const auto isKnown = [&](const std::string& word) { return known.find(word) != std::string::npos; };
        if (std::ranges::all_of(words, isKnown)) return rank;
    }
    return texts.size();
}

bool hasControl(const PropertyInfo& property, const PageInfo& page) {
    return property.role != Brevis::PropertyRole::DoNotFormat || !page.isDoNotFormatHidden || !property.label.empty();
}

}  // namespace

std::string plainLabel(std::string_view label) {
    std::string plain;
    for (std::size_t i = 0; i < label.size(); ++i) {
        if (label[i] == '&' && ++i == label.size()) break;
        plain += label[i];
    }
    return plain;
}

std::vector<FoundProperty> findProperties(std::string_view query, const HelpOf& helpOf) {
    const std::vector<std::string> words = wordsOf(query);
    std::vector<std::pair<std::size_t, FoundProperty>> ranked;
    if (words.empty()) return {};
    for (std::size_t tab = 0; tab < std::size(pageTable); ++tab) {
        for (const PropertyInfo& property : Brevis::Catalogue::properties) {
            if (property.page != pageTable[tab].page || !hasControl(property, pageTable[tab])) continue;
            const std::vector<std::string> texts = {shownText(property, pageTable[tab]), std::string(property.key),
                                                    helpOf ? helpOf(property.key) : std::string()};
            const std::size_t rank = rankOf(words, texts);
            if (rank < texts.size()) ranked.push_back({rank, {&property, tab}});
        }
    }
    std::ranges::stable_sort(ranked, {}, [](const auto& entry) { return entry.first; });
    std::vector<FoundProperty> found;
    for (const auto& [rank, property] : ranked) found.push_back(property);
    return found;
}

}  // namespace BrevisUI
