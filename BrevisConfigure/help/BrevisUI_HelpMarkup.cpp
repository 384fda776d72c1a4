// The entities that the pages use, and no more.
#include "help/BrevisUI_HelpMarkup.h"

namespace BrevisUI {

namespace {

struct Entity {
    std::string_view character, name;
};

constexpr Entity entities[] = {{"&", "&amp;"}, {"<", "&lt;"}, {">", "&gt;"}, {"\"", "&quot;"}};

// Whether a tag stands inside a sentence, so that it parts no words.
bool isInline(std::string_view html) {
    const std::size_t start = html.starts_with("</") ? 2 : 1;
    const std::string_view name = html.substr(start, html.find_first_of(" >") - start);
    return name == "b" || name == "i" || name == "a" || name == "code";
}

}  // namespace

std::string toHtml(std::string_view text) {
    std::string html;
    for (const char character : text) {
        std::string_view written(&character, 1);
        for (const Entity& entity : entities) {
            if (entity.character.front() == character) {
                written = entity.name;
                break;
            }
        }
        html.append(written);
    }
    return html;
}

std::string toPlainText(std::string_view html) {
    std::string text;
    while (!html.empty()) {
        std::size_t length = 1;
        std::string_view plain = html.substr(0, 1);
        if (html.front() == '<') {
            length = html.find('>') + 1;
            plain = isInline(html) ? "" : " ";
        }
        for (const Entity& entity : entities) {
            if (html.starts_with(entity.name)) {
                length = entity.name.size();
                plain = entity.character;
            }
        }
        text.append(plain);
        html.remove_prefix(length == 0 ? html.size() : length);
    }
    return text;
}

std::string textOfElement(std::string_view html, std::string_view tag) {
    const std::string open = "<" + std::string(tag) + ">", close = "</" + std::string(tag) + ">";
    const std::size_t begin = html.find(open);
    const std::size_t end = begin == std::string_view::npos ? begin : html.find(close, begin);
    if (end == std::string_view::npos) return "";
    return toPlainText(html.substr(begin + open.size(), end - begin - open.size()));
}

}  // namespace BrevisUI
