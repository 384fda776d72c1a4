// Looks texts up and writes them as HTML. Colours are the window's affair: what needs one has a class.
#include "help/BrevisUI_HelpText.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "help/BrevisUI_HelpMarkup.h"
#include "help/BrevisUI_HelpReader.h"

namespace BrevisUI {

namespace {

using Brevis::PropertyInfo;
using Brevis::PropertyPage;
using Brevis::PropertyType;

// In the order of PropertyPage.
constexpr HelpTopic topics[] = {
    {PropertyPage::None, "FileOnly.htm", "Properties without a control"},
    {PropertyPage::Globals, "Globals.htm", "Global Settings"},
    {PropertyPage::Classes, "Classes.htm", "Classes, Structs and Unions"},
    {PropertyPage::Functions, "Functions.htm", "Functions"},
    {PropertyPage::Data, "Variables.htm", "Variable Declarations"},
    {PropertyPage::Enums, "Enums.htm", "Enums"},
    {PropertyPage::Namespaces, "Namespaces.htm", "Namespaces"},
    {PropertyPage::ControlStatements, "ControlStatements.htm", "Control Statements"},
    {PropertyPage::Expressions, "Expressions.htm", "Expressions"},
    {PropertyPage::MemberInits, "InitializerLists.htm", "Member Initializer Lists"},
    {PropertyPage::Templates, "Templates.htm", "Templates"},
    {PropertyPage::PointersRefs, "PointersRefs.htm", "Pointers & References"},
    {PropertyPage::Preprocessor, "Preprocessor.htm", "Preprocessor Directives"},
    {PropertyPage::LineWrapping, "LineWrapping.htm", "Line Wrapping"},
};

// White space as a field of the editor shows it.
std::string fieldText(std::string_view value) {
    std::string text;
    for (const char character : value) {
        if (character == '\n')
            text.append("\\n");
        else if (character == '\t')
            text.append("\\t");
        else if (character == ' ')
            text.append("\\s");
        else
            text.push_back(character);
    }
    return text;
}

std::string sizeText(std::string_view value) {
    const bool isTabs = value.find('\t') != std::string_view::npos;
    std::string text = std::to_string(value.size()) + (isTabs ? " tab" : " space");
    return value.size() == 1 ? text : text.append("s");
}

std::string choiceText(const PropertyInfo& row, std::int32_t value) {
    for (const Brevis::ChoiceValue& choice : row.choices) {
        if (choice.value == value && !choice.label.empty()) return toHtml(choice.label);
    }
    return std::to_string(value);
}

// The value of a property in HTML, as its control shows it.
std::string valueText(const PropertyInfo& row, const Brevis::PropertySet& scheme) {
    std::string text;
    std::int32_t number = 0;
    bool flag = false;
    switch (row.type) {
        case PropertyType::Flag:
            scheme.getBool(row.key, flag);
            return flag ? "on" : "off";
        case PropertyType::Number:
        case PropertyType::Choice:
            scheme.getInt(row.key, number);
            return row.type == PropertyType::Choice ? choiceText(row, number) : std::to_string(number);
        case PropertyType::Indent:
            scheme.getString(row.key, text);
            return sizeText(text);
        case PropertyType::Names:
            scheme.getString(row.key, text);
            return "<code>" + toHtml(text) + "</code>";
        case PropertyType::WhiteSpace:
        case PropertyType::Text:
            break;
    }
    scheme.getString(row.key, text);
    return text.empty() ? "empty" : "<code>" + toHtml(fieldText(text)) + "</code>";
}

constexpr std::string_view headingStart = "<tr><th align=\"left\">", headingEnd = "</th></tr>\n";
// Two examples side by side may have this many columns together; wider ones would not fit a window of the usual size.
constexpr std::size_t sideBySide = 62;

std::size_t widthOf(std::string_view code) {
    std::size_t widest = 0;
    while (!code.empty()) {
        const std::size_t end = std::min(code.find('\n'), code.size());
        widest = std::max(widest, end);
        code.remove_prefix(std::min(code.size(), end + 1));
    }
    return widest;
}

// Code in a table cell. A tab shows as an arrow, for else it would be seen as blanks.
std::string codeCell(std::string_view code) {
    std::string text;
    while (code.ends_with('\n')) code.remove_suffix(1);
    for (const char character : code) {
        if (character == '\t')
            text.append("\u2192");
        else
            text.push_back(character);
    }
    return "<td class=\"code\"><pre>" + toHtml(text) + "</pre></td>";
}

std::string beforeAndAfter(const HelpExample& example) {
    const std::string before = codeCell(example.before), after = codeCell(example.after);
    std::string html = "<table width=\"100%\" cellspacing=\"2\" cellpadding=\"6\">";
    if (widthOf(example.before) + widthOf(example.after) <= sideBySide) {
        html.append(
            "<tr><th align=\"left\" width=\"50%\">Before</th><th align=\"left\" width=\"50%\">After</th></tr>\n");
        html.append("<tr>" + before + after + "</tr>");
    } else {
        for (const auto& [heading, cell] : {std::pair("Before", &before), std::pair("After", &after)}) {
            html.append(headingStart).append(heading).append(headingEnd).append("<tr>" + *cell + "</tr>\n");
        }
    }
    html.append("</table>\n");
    const bool hasTab = (example.before + example.after).find('\t') != std::string::npos;
    return hasTab ? html.append("<p class=\"settings\">An arrow stands for a tab.</p>\n") : html;
}

std::string paragraphs(const PropertyHelp& property) {
    std::string html = "<p>" + toHtml(property.shortText) + "</p>\n";
    for (const std::string& paragraph : property.paragraphs) html.append("<p>" + toHtml(paragraph) + "</p>\n");
    return html;
}

}  // namespace

HelpText::HelpText(std::span<const HelpSource> sources) {
    for (const HelpSource& source : sources) {
        std::vector<PropertyHelp> properties = readPropertyHelp(source.name, source.text, faults_);
        std::move(properties.begin(), properties.end(), std::back_inserter(properties_));
    }
}

const PropertyHelp* HelpText::find(std::string_view key) const {
    const auto found = std::find_if(properties_.begin(), properties_.end(),
                                    [&](const PropertyHelp& property) { return property.key == key; });
    return found == properties_.end() ? nullptr : &*found;
}

std::string_view HelpText::shortText(std::string_view key) const {
    const PropertyHelp* property = find(key);
    return property ? std::string_view(property->shortText) : "";
}

std::string HelpText::whatsThis(std::string_view key) const {
    const PropertyHelp* property = find(key);
    if (!property) return "";
    return "<p><b>" + toHtml(property->title) + "</b></p>\n" + paragraphs(*property) + examples(*property);
}

std::string HelpText::section(const PropertyHelp& property) const {
    const std::string key = toHtml(property.key);
    return "<h3><a name=\"" + key + "\"></a>" + toHtml(property.title) + "</h3>\n" + paragraphs(property) +
           examples(property) + "<p class=\"key\">In a scheme file: <code>" + key + "</code></p>\n";
}

std::string HelpText::examples(const PropertyHelp& property) const {
    std::string html;
    for (const HelpExample& example : property.examples) {
        html.append("<p class=\"settings\">" + settings(property, example) + ":</p>\n");
        html.append(beforeAndAfter(example));
    }
    return html;
}

// "Body: 4 spaces; Before comma (Enums): empty", with the pages of those that stand elsewhere.
std::string HelpText::settings(const PropertyHelp& property, const HelpExample& example) const {
    const PropertyInfo* own = Brevis::Catalogue::find(property.key);
    std::string html;
    for (const std::string& key : example.keys) {
        const PropertyInfo* row = Brevis::Catalogue::find(key);
        if (!row) continue;
        const PropertyHelp* help = find(key);
        if (!html.empty()) html.append("; ");
        html.append("<i>" + toHtml(help ? help->title : key) + "</i>");
        if (own && row->page != own->page) html.append(" (" + toHtml(helpTopic(row->page).title) + ")");
        html.append(" = " + valueText(*row, example.scheme));
    }
    return html;
}

const HelpTopic& helpTopic(PropertyPage page) { return topics[static_cast<std::size_t>(page)]; }

const HelpTopic* findHelpTopic(std::string_view file) {
    const auto* found =
        std::find_if(std::begin(topics), std::end(topics), [&](const HelpTopic& topic) { return topic.file == file; });
    return found == std::end(topics) ? nullptr : found;
}

}  // namespace BrevisUI
