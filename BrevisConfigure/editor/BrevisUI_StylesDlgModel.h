// The rules of the "Manage Schemes" dialog: which scheme is worked on, and what becomes of a copy of the store as
// schemes are chosen, saved, deleted and brought in. Nothing reaches the disk but the editor's own settings and an
// exported file.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/BrevisUI_PreviewSamples.h"
#include "editor/BrevisUI_StylesDlgHost.h"
#include "editor/BrevisUI_StylesSheet.h"
#include "settings/BrevisUI_SettingsFile.h"
#include "store/BrevisUI_PropertySetStore.h"

namespace BrevisUI {

// What the next dialog of the same run starts with. The program holds one.
struct EditorMemory {
    bool isPreviewShown = true;
    std::size_t activeTab = 0;
};

class StylesDlgModel {
public:
    struct ChooserRow {
        std::string name;
        bool isBuiltIn;
    };

    // All references must outlive the object; the listener may be null. Starts with the scheme that the settings name,
    // else with the first one; an empty store gets a new scheme. Puts missing samples into the settings and saves them.
    StylesDlgModel(PropertySetStore store, SettingsFile& settings, EditorMemory& memory, StylesDlgHost& host,
                   StylesListener* listener = nullptr);

    StylesSheet& sheet() { return sheet_; }
    const StylesSheet& sheet() const { return sheet_; }
    const SampleTable& samples() const { return samples_; }
    EditorMemory& memory() { return memory_; }

    const PropertySetStore& store() const { return store_; }
    // All schemes in the order of the store.
    std::vector<ChooserRow> chooserRows() const;
    // Empty if there is no scheme any more.
    const std::string& currentName() const { return currentName_; }
    bool hasCurrent() const { return store_.count(currentName_) > 0; }
    bool isCurrentBuiltIn() const { return isBuiltIn(currentName_); }

    // Each of these may leave another scheme current and other rows in the chooser.

    // Goes to another scheme of the store; unsaved changes are lost. A refused text keeps the dialog where it is.
    ChangeResult choose(std::string_view name);
    // False if the user has cancelled it.
    bool saveAs();
    void deleteCurrent();
    // Reads a scheme file, brings an old one up to date, asks for a name where the scheme has none or that of another
    // in the store, which is then replaced if the user stays with it, and makes the scheme current. Unsaved changes of
    // the current one are lost. False if the file is no scheme, which the user is told, or if the user has cancelled
    // it.
    bool importScheme(const std::string& path);
    // Writes the working copy to a file under the current name. False if it can't be written, which the user is told.
    bool exportScheme(const std::string& path);

    // The button OK. True if the dialog ends: `store` is then the result, and the settings and the memory hold the
    // scheme and the page for the next time. False if the user is to stay; `refusal` then tells of a refused text.
    struct Closing {
        bool isDone = false;
        ChangeResult refusal;
    };
    Closing accept();

    // ---- For lists beside the pages
    // The scheme as the user sees it: the working copy for the current name, that of the store for another one.
    Brevis::PropertySet shownScheme(std::string_view name) const;

private:
    void start();
    void makeCurrent(std::string_view name);
    void makeFirstCurrent();
    bool isBuiltIn(std::string_view name) const;
    // Why a scheme can't be saved under a name; empty if it can.
    std::string_view faultOf(std::string_view name) const;
    // Asks until the name will do or the user cancels it.
    std::optional<std::string> askName(std::string proposal);
    // In the place of the scheme that has the name.
    void insertAs(Brevis::PropertySet scheme, const std::string& name);
    // False if the user is to stay in the dialog.
    bool saveChanges();

    PropertySetStore store_;
    SettingsFile& settings_;
    EditorMemory& memory_;
    StylesDlgHost& host_;
    StylesSheet sheet_;
    SampleTable samples_;
    std::string currentName_;
};

}  // namespace BrevisUI
