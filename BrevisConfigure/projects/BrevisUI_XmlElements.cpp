// Reads XML with pugixml, which nothing else of the program knows.
#include "projects/BrevisUI_XmlElements.h"

#include <algorithm>
#include <pugixml.hpp>

#include "projects/BrevisUI_ProjectError.h"

namespace BrevisUI {

namespace {

// The lines of places in a text that are asked for in ascending order.
class LineCounter {
public:
    explicit LineCounter(std::string_view text) : text_(text) {}

    int lineAt(std::ptrdiff_t offset) {
        const std::size_t end = std::min(static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0)), text_.size());
        line_ += static_cast<int>(std::count(text_.begin() + static_cast<std::ptrdiff_t>(counted_),
                                             text_.begin() + static_cast<std::ptrdiff_t>(end), '\n'));
        counted_ = end;
        return line_;
    }

private:
    std::string_view text_;
    std::size_t counted_ = 0;
    int line_ = 1;
};

class Collector : public pugi::xml_tree_walker {
public:
    explicit Collector(std::string_view text) : lines_(text) {}

    bool for_each(pugi::xml_node& node) override {
        if (node.type() != pugi::node_element) return true;
        XmlElement& added = elements.emplace_back();
        added.name = node.name();
        added.line = lines_.lineAt(node.offset_debug());
        added.parent = node.parent().name();
        added.text = node.child_value();
        for (const pugi::xml_attribute attribute : node.attributes()) {
            added.attributes[attribute.name()] = attribute.value();
        }
        return true;
    }

    std::vector<XmlElement> elements;

private:
    LineCounter lines_;
};

// The last line with anything on it, for an error at the end of the text.
std::string_view withoutLastLineFeeds(std::string_view text) {
    return text.substr(0, text.find_last_not_of("\r\n") + 1);
}

}  // namespace

std::vector<XmlElement> readXml(const std::string& path, std::string_view text, std::string_view root) {
    pugi::xml_document document;
    const pugi::xml_parse_result result =
        document.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
    if (!result) {
        const int line = LineCounter(withoutLastLineFeeds(text)).lineAt(result.offset);
        throw ProjectError(path, line, "The file cannot be read as XML.");
    }
    Collector collector(text);
    document.traverse(collector);
    if (collector.elements.empty() || collector.elements.front().name != root) {
        const int line = collector.elements.empty() ? 1 : collector.elements.front().line;
        throw ProjectError(path, line, "The element \"" + std::string(root) + "\" is expected here.");
    }
    return std::move(collector.elements);
}

}  // namespace BrevisUI
