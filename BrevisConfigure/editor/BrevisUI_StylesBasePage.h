// A page of the scheme editor without its window: the controls of one group of properties, how they come from a scheme
// and go into it, and what becomes of them as the user changes one. It touches the working scheme of its sheet only.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "editor/BrevisUI_PageField.h"
#include "editor/BrevisUI_PageTable.h"
#include "scheme/Brevis_PropertySet.h"

namespace BrevisUI {

class StylesSheet;
class StylesBasePage;

// A text that isn't white space was entered. Nothing has changed in the scheme; the window shows `message` with a
// warning icon and puts the focus back to the field.
struct EntryRefusal {
    const StylesBasePage* page;
    std::string_view key;
    std::string_view message;
};

// Nothing if the change was taken.
using ChangeResult = std::optional<EntryRefusal>;

class StylesBasePage {
public:
    // The sheet owns the page.
    StylesBasePage(StylesSheet& sheet, const PageInfo& info);
    virtual ~StylesBasePage() = default;
    StylesBasePage(const StylesBasePage&) = delete;
    StylesBasePage& operator=(const StylesBasePage&) = delete;

    const PageInfo& info() const { return info_; }
    std::size_t tab() const { return tabOf(info_.page); }
    std::string_view title() const { return info_.title; }
    std::string_view previewName() const { return info_.previewName; }
    std::string_view helpTopic() const { return info_.helpTopic; }
    // The key that says whether the page follows the global settings; empty for a page that never does.
    std::string_view useGlobalKey() const { return keyOf(Brevis::PropertyRole::UseGlobal); }
    std::string_view doNotFormatKey() const { return keyOf(Brevis::PropertyRole::DoNotFormat); }

    // The controls in the order in which they are to stand: fields of one group follow each other. The order and the
    // number never change, and a field keeps its address.
    std::span<const PageField> fields() const { return fields_; }
    // Null for a key that has no control on this page. The two keys of the page of directives share one control.
    const PageField* field(std::string_view key) const;

    // ---- Changes by the user. Each puts the value into the field, stores all values of the page in the scheme, marks
    // the scheme as modified and has the preview redrawn. Where a field of the page holds a refused text nothing is
    // stored, and that field is told. A key without a control of that kind is a fault of the caller and throws
    // Trn::InvalidParameterException; so is a choice that isn't there.
    ChangeResult enterText(std::string_view key, std::string_view entry);
    ChangeResult setIndent(std::string_view key, IndentEntry indent);
    ChangeResult setChecked(std::string_view key, bool isChecked);
    // A number beyond the limits of the field is brought to the nearest limit; so is that of an indent.
    ChangeResult setNumber(std::string_view key, std::int32_t number);
    ChangeResult select(std::string_view key, std::size_t choice);
    // Of a field with a switch: whether the scheme has the key. Any change above puts the key there too; a field of
    // names without a name has none.
    ChangeResult setPresent(std::string_view key, bool isPresent);

    // ---- A single property against the scheme as it was set into the sheet
    // Whether the control holds another value than it did then.
    bool isChanged(std::string_view key) const;
    // Changes the control back to the value that it had then, which drops a refused text too. To be offered while the
    // field is enabled: a page that is switched off or follows the global settings doesn't store the value of a field.
    ChangeResult setBack(std::string_view key);

    // ---- For the sheet
    // With `isStoring` the values of the fields go into the scheme, otherwise the other way. Of a page that isn't
    // switched off, a property of its own that the scheme lacks gets its page default there, which is a change; but a
    // key that came with the second edition of the rules stays absent until a user gives it a value.
    void exchangeProperties(bool isStoring);
    // Copies global values that differ from this page's own into the scheme, if the page follows them.
    void applyGlobals();
    // Enables the fields that act in the edition of the scheme, and disables the others.
    void followEdition();
    // The first field with a refused text.
    ChangeResult refusal() const;
    // From now on the values of the fields count as unchanged.
    void keepAsUnchanged();

protected:
    Brevis::PropertySet& scheme();
    void markModified();

    virtual void load();
    virtual void store();
    void loadField(PageField& field);
    void storeField(PageField& field);
    // Labels and enabled states after the values have changed.
    void refreshFields();
    // The key of the field that shows a property.
    virtual std::string_view fieldKey(std::string_view key) const { return key; }

    std::vector<PageField> fields_;

private:
    std::string_view keyOf(Brevis::PropertyRole role) const;
    bool isChecked(Brevis::PropertyRole role) const;
    bool isSwitchedOff() const { return isChecked(Brevis::PropertyRole::DoNotFormat); }
    bool followsGlobals() const { return isChecked(Brevis::PropertyRole::UseGlobal); }
    bool meetsConditions(const PageField& field) const;
    bool isUsable(const PageField& field) const;
    std::string_view labelOf(const PageField& field) const;
    std::string globalValueOf(const PageField& field);
    void storeSwitchedOff();
    void copyGlobal(PageField& field);
    PageField& fieldToChange(std::string_view key, FieldKind kind);
    ChangeResult changed();

    StylesSheet& sheet_;
    const PageInfo& info_;
    std::vector<FieldValue> unchanged_;  // in the order of the fields
};

}  // namespace BrevisUI
