// What a window is told about the scheme that it shows. All calls come on the thread that caused them, once a kind at
// the end of a change however much it has changed, and may read anything of the sheet.
#pragma once

namespace BrevisUI {

class StylesBasePage;

class StylesListener {
public:
    virtual ~StylesListener() = default;

    // A page has changed the scheme for the first time since the marks were cleared.
    virtual void schemeModified() {}
    // Labels, enabled states or values of the page's fields may differ from what is shown.
    virtual void fieldsChanged(const StylesBasePage&) {}
    // The preview no longer shows what the scheme does.
    virtual void previewOutdated() {}
};

}  // namespace BrevisUI
