// The values of two schemes side by side, as texts.
#include "editor/BrevisUI_SchemeComparison.h"

#include <set>
#include <string_view>

#include "editor/BrevisUI_IndentEntry.h"
#include "editor/BrevisUI_PageTable.h"
#include "editor/BrevisUI_PropertySearch.h"
#include "editor/BrevisUI_WhiteSpaceEntry.h"

namespace BrevisUI {

namespace {

using Brevis::PropertyInfo;
using Brevis::PropertySet;
using Brevis::PropertyType;

std::string shownValue(std::string_view value) { return '"' + showWhiteSpace(value) + '"'; }

// An indent of both blanks and tabs has no number that would tell it.
std::string indentText(const std::string& value) {
    const IndentEntry entry = showIndent(value);
    if (readIndent(entry) != value) return shownValue(value);
    return std::to_string(entry.number) + ' ' + std::string(indentUnitLabels[static_cast<std::size_t>(entry.unit)]);
}

std::string numberText(const PropertyInfo* property, std::int32_t value) {
    if (property) {
        for (const Brevis::ChoiceValue& choice : property->choices) {
            if (choice.value == value && !choice.label.empty()) return plainLabel(choice.label);
        }
    }
    return std::to_string(value);
}

// A key may stand in the table of a type that isn't its own, or in several.
std::optional<std::string> valueText(const PropertySet& scheme, std::string_view key, const PropertyInfo* property) {
    std::string text;
    std::int32_t number = 0;
    bool isTrue = false;
    std::string all;
    const auto add = [&](const std::string& value) { all += (all.empty() ? "" : ", ") + value; };
    if (scheme.getString(key, text)) {
        if (property && property->type == PropertyType::Indent) {
            add(indentText(text));
        } else {
            add(property && property->type == PropertyType::Names ? text : shownValue(text));
        }
    }
    if (scheme.getInt(key, number)) add(numberText(property, number));
    if (scheme.getBool(key, isTrue)) add(isTrue ? "on" : "off");
    return all.empty() ? std::nullopt : std::optional(all);
}

class Comparison {
public:
    Comparison(const PropertySet& first, const PropertySet& second) : first_(first), second_(second) {
        for (const PropertySet* scheme : {&first, &second}) {
            for (std::string& key : scheme->keys()) rest_.insert(std::move(key));
        }
    }

    std::vector<PropertyDifference> run() {
        for (const PageInfo& page : pageTable) {
            for (const PropertyInfo& property : Brevis::Catalogue::properties) {
                if (property.page == page.page) compare(property.key, &property, plainLabel(page.title));
            }
        }
        for (const std::string& key : std::set(rest_)) compare(key, Brevis::Catalogue::find(key), "");
        return std::move(differences_);
    }

private:
    void compare(std::string_view key, const PropertyInfo* property, const std::string& page) {
        rest_.erase(std::string(key));
        auto first = valueText(first_, key, property), second = valueText(second_, key, property);
        if (first == second) return;
        const std::string label = property ? plainLabel(property->label) : "";
        differences_.push_back({std::string(key), label, page, std::move(first), std::move(second)});
    }

    const PropertySet& first_;
    const PropertySet& second_;
    std::set<std::string> rest_;  // keys that haven't been compared
    std::vector<PropertyDifference> differences_;
};

}  // namespace

std::vector<PropertyDifference> compareSchemes(const PropertySet& first, const PropertySet& second) {
    return Comparison(first, second).run();
}

}  // namespace BrevisUI
