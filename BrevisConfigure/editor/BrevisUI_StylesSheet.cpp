// What the pages do together, and the news for the window.
#include "editor/BrevisUI_StylesSheet.h"

#include <algorithm>
#include <utility>

#include "editor/BrevisUI_StylesPages.h"

namespace BrevisUI {

namespace {

// Sets a value for as long as it lives.
template <class T>
class Meanwhile {
public:
    Meanwhile(T& place, T value) : place_(place), before_(std::exchange(place, value)) {}
    ~Meanwhile() { place_ = before_; }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

private:
    T& place_;
    T before_;
};

}  // namespace

StylesSheet::StylesSheet(StylesListener* listener) : listener_(listener), pages_(makePages(*this)) {}

StylesSheet::~StylesSheet() = default;

StylesBasePage* StylesSheet::pageOf(std::string_view key) {
    const auto found = std::ranges::find_if(pages_, [&](const auto& page) { return page->field(key) != nullptr; });
    return found == pages_.end() ? nullptr : found->get();
}

std::int32_t StylesSheet::edition() const {
    std::int32_t edition = 1;
    scheme_.getInt(Brevis::Catalogue::keyOf(&Brevis::Scheme::edition), edition);
    return edition == 2 ? 2 : 1;
}

void StylesSheet::setActiveTab(std::size_t tab) {
    activeTab_ = tab < pages_.size() ? tab : 0;
    inOneChange([&] { isPreviewNews_ = true; });
}

void StylesSheet::setScheme(const Brevis::PropertySet& scheme) {
    inBulk([&] {
        scheme_ = scheme;
        isModified_ = isModifiedNews_ = false;
        isPreviewNews_ = true;
        page(activeTab_).exchangeProperties(false);
        for (std::size_t tab = 0; tab < pages_.size(); ++tab) {
            if (tab != activeTab_) page(tab).exchangeProperties(false);
        }
        for (const auto& page : pages_) page->keepAsUnchanged();
    });
}

ChangeResult StylesSheet::fetchScheme() {
    for (const auto& page : pages_) {
        if (ChangeResult refused = page->refusal()) return refused;
    }
    inBulk([&] {
        const Brevis::PropertySet before = scheme_;
        for (const auto& page : pages_) page->exchangeProperties(true);
        if (scheme_ != before) isPreviewNews_ = true;
    });
    return std::nullopt;
}

void StylesSheet::schemeSaved(std::string name) {
    scheme_.setName(std::move(name));
    inOneChange([&] {
        for (const auto& page : pages_) {
            page->keepAsUnchanged();
            pageShows(*page);
        }
    });
}

void StylesSheet::inBulk(const std::function<void()>& work) {
    inOneChange([&] {
        const Meanwhile bulk(isBulk_, true);
        work();
    });
}

// The listener is told behind the guard, as what it does may throw.
void StylesSheet::inOneChange(const std::function<void()>& work) {
    {
        const Meanwhile inside(openChanges_, openChanges_ + 1);
        work();
    }
    if (openChanges_ == 0) tell();
}

void StylesSheet::pageModified() {
    isModifiedNews_ = isModifiedNews_ || !isModified_;
    isModified_ = isPreviewNews_ = true;
}

void StylesSheet::pageShows(const StylesBasePage& page) {
    if (std::ranges::find(changedPages_, &page) == changedPages_.end()) changedPages_.push_back(&page);
}

void StylesSheet::pageStored(const StylesBasePage& stored) {
    if (isBulk_ || stored.info().page != Brevis::PropertyPage::Globals) return;
    for (const auto& page : pages_) {
        if (page.get() == &stored) continue;
        page->applyGlobals();
        page->followEdition();
    }
}

void StylesSheet::tell() {
    const bool isModifiedNews = std::exchange(isModifiedNews_, false);
    const bool isPreviewNews = std::exchange(isPreviewNews_, false);
    const auto changedPages = std::exchange(changedPages_, {});
    if (!listener_) return;
    if (isModifiedNews) listener_->schemeModified();
    for (const StylesBasePage* const page : changedPages) listener_->fieldsChanged(*page);
    if (isPreviewNews) listener_->previewOutdated();
}

}  // namespace BrevisUI
