// Reads XML with tinyxml2, which nothing else of the program knows.
#include "projects/BrevisUI_XmlElements.h"

#include <tinyxml2.h>

#include <algorithm>

#include "projects/BrevisUI_ProjectError.h"

namespace BrevisUI {

namespace {

class Collector : public tinyxml2::XMLVisitor {
public:
    bool VisitEnter(const tinyxml2::XMLElement& element, const tinyxml2::XMLAttribute* first) override {
        XmlElement& added = elements.emplace_back();
        added.name = element.Name();
        added.line = element.GetLineNum();
        if (const tinyxml2::XMLElement* parent = parentOf(element)) added.parent = parent->Name();
        if (const char* text = element.GetText()) added.text = text;
        for (const tinyxml2::XMLAttribute* at = first; at; at = at->Next()) added.attributes[at->Name()] = at->Value();
        return true;
    }

    std::vector<XmlElement> elements;

private:
    static const tinyxml2::XMLElement* parentOf(const tinyxml2::XMLElement& element) {
        return element.Parent() ? element.Parent()->ToElement() : nullptr;
    }
};

[[noreturn]] void fail(const std::string& path, const tinyxml2::XMLDocument& document) {
    throw ProjectError(path, std::max(document.ErrorLineNum(), 1), "The file cannot be read as XML.");
}

}  // namespace

std::vector<XmlElement> readXml(const std::string& path, std::string_view text, std::string_view root) {
    tinyxml2::XMLDocument document;
    if (document.Parse(text.data(), text.size()) != tinyxml2::XML_SUCCESS) fail(path, document);
    Collector collector;
    document.Accept(&collector);
    if (collector.elements.empty() || collector.elements.front().name != root) {
        const int line = collector.elements.empty() ? 1 : collector.elements.front().line;
        throw ProjectError(path, line, "The element \"" + std::string(root) + "\" is expected here.");
    }
    return std::move(collector.elements);
}

}  // namespace BrevisUI
