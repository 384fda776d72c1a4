// What the help tells of each property: tool tips, what's-this texts and pages all come from here, so that they cannot
// drift apart. Tests run every example through the engine.
//
// The form of a source, one file a page of the scheme editor:
//
//     [KEY] Title                     the title is the label of the control where none is given
//
//     The first paragraph is the short text. Further paragraphs tell more.
//
//     scheme:                         an example: lines as in a scheme file,
//         3 WS_AFTER_FN_NAME " "
//     before:                         a source,
//         int price();
//     after:                          and what the engine makes of it. A property may have several.
//         int price ();
//
// The lines of a block are indented by four blanks, and an arrow in them stands for a tab. The short text of a property
// that only the second edition reads gets a sentence that says so.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "help/BrevisUI_HelpSources.h"
#include "scheme/Brevis_PropertyCatalogue.h"
#include "scheme/Brevis_PropertySet.h"

namespace BrevisUI {

struct HelpExample {
    std::vector<std::string> keys;  // of the scheme, in the order of the source
    Brevis::PropertySet scheme;
    std::string before, after;  // whole lines, with tabs
};

struct PropertyHelp {
    std::string key;
    std::string title;  // without the colon of a label
    std::string shortText;
    std::vector<std::string> paragraphs;  // those behind the short text
    std::vector<HelpExample> examples;
};

class HelpText {
public:
    // The help of this program.
    static HelpText builtIn() { return HelpText(helpPropertySources()); }
    explicit HelpText(std::span<const HelpSource> sources);

    // Null for a key that the help doesn't know.
    const PropertyHelp* find(std::string_view key) const;
    // One or two sentences of plain text for a tool tip; empty for an unknown key.
    std::string_view shortText(std::string_view key) const;
    // All there is about a key, as HTML for a small window; empty for an unknown key.
    std::string whatsThis(std::string_view key) const;
    // The section of a help page, with the key as its anchor.
    std::string section(const PropertyHelp& property) const;

    // In the order of the sources.
    const std::vector<PropertyHelp>& properties() const { return properties_; }
    // What is wrong in the sources, one line each; a test wants none.
    const std::vector<std::string>& faults() const { return faults_; }

private:
    std::string examples(const PropertyHelp& property) const;
    std::string settings(const PropertyHelp& property, const HelpExample& example) const;

    std::vector<PropertyHelp> properties_;
    std::vector<std::string> faults_;
};

// A page of the scheme editor in the help.
struct HelpTopic {
    Brevis::PropertyPage page;
    std::string_view file;   // the help page
    std::string_view title;  // as the page shows it, in plain text
};

// The topic of a page; PropertyPage::None has one too, for the keys without a control.
const HelpTopic& helpTopic(Brevis::PropertyPage page);
// The topic whose help page is `file`, or null.
const HelpTopic* findHelpTopic(std::string_view file);

}  // namespace BrevisUI
