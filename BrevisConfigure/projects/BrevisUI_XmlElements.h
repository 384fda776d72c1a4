// An XML text as a flat row of elements, all that the readers of project files need of it.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace BrevisUI {

struct XmlElement {
    std::string name;
    std::string parent;  // the name of the element round it; empty for the outermost one
    int line = 0;
    std::string text;  // the text in front of its first child
    std::map<std::string, std::string, std::less<>> attributes;

    // Null if there is no such attribute.
    const std::string* attribute(std::string_view key) const {
        const auto found = attributes.find(key);
        return found == attributes.end() ? nullptr : &found->second;
    }
};

// The elements in the order in which they begin. Throws a ProjectError with the line for a text that isn't well formed
// or whose outermost element isn't called `root`. `path` names the text.
std::vector<XmlElement> readXml(const std::string& path, std::string_view text, std::string_view root);

}  // namespace BrevisUI
