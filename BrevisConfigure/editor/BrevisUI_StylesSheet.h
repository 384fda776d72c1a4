// The working copy of a scheme and the thirteen pages that show and change it. It knows no store and no file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "editor/BrevisUI_StylesBasePage.h"
#include "editor/BrevisUI_StylesListener.h"
#include "scheme/Brevis_PropertySet.h"

namespace BrevisUI {

class StylesSheet {
public:
    // The listener may be null and must otherwise outlive the sheet.
    explicit StylesSheet(StylesListener* listener = nullptr);
    ~StylesSheet();
    StylesSheet(const StylesSheet&) = delete;
    StylesSheet& operator=(const StylesSheet&) = delete;

    void setListener(StylesListener* listener) { listener_ = listener; }

    // In the order of the tabs.
    std::span<const std::unique_ptr<StylesBasePage>> pages() const { return pages_; }
    StylesBasePage& page(std::size_t tab) { return *pages_[tab]; }
    const StylesBasePage& page(std::size_t tab) const { return *pages_[tab]; }
    // The page with the control of a key, null if no page shows the key.
    StylesBasePage* pageOf(std::string_view key);

    std::size_t activeTab() const { return activeTab_; }
    // A number beyond the last tab counts as the first one. The preview has to be redrawn.
    void setActiveTab(std::size_t tab);
    const StylesBasePage& activePage() const { return *pages_[activeTab_]; }

    // The working copy, as the pages have stored it so far.
    const Brevis::PropertySet& scheme() const { return scheme_; }
    // The edition of the rules that it is for, 1 or 2.
    std::int32_t edition() const;
    // Whether a page has changed the scheme since it was set, which a page does too that finds a property missing.
    bool isModified() const { return isModified_; }

    // Takes a copy of the scheme and has first the active page and then the others load it, without any marks of
    // changes that were there.
    void setScheme(const Brevis::PropertySet& scheme);
    // Has all pages store their values. A refused text in one of them comes back, and nothing is stored then.
    ChangeResult fetchScheme();
    // The scheme has been saved as it is now under this name: the values of the fields count as unchanged, and
    // `isModified` stays as it was.
    void schemeSaved(std::string name);

private:
    friend class StylesBasePage;

    // ---- For the pages
    // Runs a change, or a part of one, and tells the listener at the end of the outermost one.
    void inOneChange(const std::function<void()>& work);
    // The same, while no page follows what another stores.
    void inBulk(const std::function<void()>& work);
    void pageModified();
    void pageShows(const StylesBasePage& page);
    void pageStored(const StylesBasePage& page);
    void tell();

    StylesListener* listener_;
    Brevis::PropertySet scheme_;
    std::vector<std::unique_ptr<StylesBasePage>> pages_;
    std::size_t activeTab_ = 0;
    bool isModified_ = false;
    bool isBulk_ = false;  // all pages load or store, so that none has to follow another

    // What the listener has to be told at the end of the change that goes on.
    int openChanges_ = 0;
    bool isModifiedNews_ = false;
    bool isPreviewNews_ = false;
    std::vector<const StylesBasePage*> changedPages_;
};

}  // namespace BrevisUI
