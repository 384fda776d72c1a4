// The pages of the help: prose from help/*.htm with the sections of the properties put in, a table of contents, and a
// search over all of it. Free of any toolkit; a window only shows what it gets here.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "help/BrevisUI_HelpText.h"

namespace BrevisUI {

struct HelpPage {
    std::string name;   // "Classes.htm"
    std::string title;  // its first heading
    std::string html;   // the body, without html and body tags
};

// A heading of the table of contents and the pages below it.
struct HelpChapter {
    std::string title;
    std::vector<std::string> pages;  // their names
};

struct HelpHit {
    std::string topic;    // "Classes.htm#WS_AFTER_CLASS_NAME", or the page alone
    std::string title;    // of the section
    std::string page;     // the title of its page
    std::string excerpt;  // the text round the first word that was found, in plain text
};

class HelpLibrary {
public:
    // The help of this program.
    HelpLibrary();

    const HelpText& text() const { return text_; }
    const std::vector<HelpPage>& pages() const { return pages_; }
    const std::vector<HelpChapter>& contents() const { return contents_; }
    // Null for an unknown name.
    const HelpPage* page(std::string_view name) const;

    // The sections that hold a word that begins with each word of `query`, case aside: those with the words in their
    // titles first, then those with more of them, and else in the order of the contents. None for a query without
    // words.
    std::vector<HelpHit> search(std::string_view query) const;

private:
    // What the search finds: a page up to its properties, or one property.
    struct Section {
        std::string topic, title, page, plain;
        std::string words;       // the text in lower case, each word behind a blank
        std::string titleWords;  // the title and the key in the same form
    };

    std::string withProperties(const HelpSource& source) const;
    void addSections(const HelpPage& page, std::string_view prose);

    HelpText text_ = HelpText::builtIn();
    std::vector<HelpPage> pages_;
    std::vector<HelpChapter> contents_;
    std::vector<Section> sections_;
};

}  // namespace BrevisUI
