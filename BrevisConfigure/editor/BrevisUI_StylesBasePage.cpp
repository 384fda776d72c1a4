// The rules of a page, driven by the rows of its properties.
#include "editor/BrevisUI_StylesBasePage.h"

#include <algorithm>

#include "Trn_Exception.h"
#include "editor/BrevisUI_EditorMessages.h"
#include "editor/BrevisUI_FieldStorage.h"
#include "editor/BrevisUI_StylesSheet.h"

namespace BrevisUI {

namespace {

using Brevis::PropertyInfo;
using Brevis::PropertyRole;

// The switches of the page come first, then group by group in the order of the catalogue.
void sortFields(std::vector<PageField>& fields) {
    std::vector<std::pair<std::size_t, PageField>> ranked;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto isInGroup = [&](const PageField& other) { return other.group == fields[i].group; };
        std::size_t rank = i + 1;
        if (fields[i].property->role != PropertyRole::Value) rank = 0;
        if (!fields[i].group.empty()) rank = 1 + std::ranges::find_if(fields, isInGroup) - fields.begin();
        ranked.emplace_back(rank, fields[i]);
    }
    std::ranges::stable_sort(ranked, {}, [](const auto& entry) { return entry.first; });
    std::ranges::transform(ranked, fields.begin(), [](const auto& entry) { return entry.second; });
}

}  // namespace

StylesBasePage::StylesBasePage(StylesSheet& sheet, const PageInfo& info) : sheet_(sheet), info_(info) {
    for (const PropertyInfo& property : Brevis::Catalogue::properties) {
        if (property.page != info.page) continue;
        fields_.push_back(makeField(property));
        fields_.back().isHidden = info.isDoNotFormatHidden && property.role == PropertyRole::DoNotFormat;
    }
    sortFields(fields_);
    keepAsUnchanged();
}

std::string_view StylesBasePage::keyOf(PropertyRole role) const {
    for (const PropertyInfo& property : Brevis::Catalogue::properties) {
        if (property.page == info_.page && property.role == role) return property.key;
    }
    return {};
}

const PageField* StylesBasePage::field(std::string_view key) const {
    const auto found = std::ranges::find(fields_, fieldKey(key), &PageField::key);
    return found == fields_.end() ? nullptr : &*found;
}

Brevis::PropertySet& StylesBasePage::scheme() { return sheet_.scheme_; }

void StylesBasePage::markModified() { sheet_.pageModified(); }

// ---- Changes by the user

PageField& StylesBasePage::fieldToChange(std::string_view key, FieldKind kind) {
    const auto found = std::ranges::find(fields_, fieldKey(key), &PageField::key);
    if (found == fields_.end() || found->kind != kind) throw Trn::InvalidParameterException();
    found->value.isAbsent = false;
    return *found;
}

ChangeResult StylesBasePage::changed() {
    if (ChangeResult refused = refusal()) return refused;
    sheet_.inOneChange([&] {
        exchangeProperties(true);
        markModified();
    });
    return std::nullopt;
}

ChangeResult StylesBasePage::enterText(std::string_view key, std::string_view entry) {
    const PageField* const shown = field(key);
    PageField& field =
        fieldToChange(key, shown && shown->kind == FieldKind::Names ? shown->kind : FieldKind::WhiteSpace);
    field.refusedEntry.reset();
    if (std::optional<std::string> text = field.read(entry)) {
        field.value.text = std::move(*text);
        field.value.isAbsent = field.kind == FieldKind::Names && field.value.text.empty();
    } else {
        field.refusedEntry = entry;
    }
    return changed();
}

ChangeResult StylesBasePage::setIndent(std::string_view key, IndentEntry indent) {
    PageField& field = fieldToChange(key, FieldKind::Indent);
    indent.number = std::clamp(indent.number, field.least, field.most);
    field.value.indent = indent;
    return changed();
}

ChangeResult StylesBasePage::setChecked(std::string_view key, bool isChecked) {
    fieldToChange(key, FieldKind::Flag).value.isChecked = isChecked;
    return changed();
}

ChangeResult StylesBasePage::setNumber(std::string_view key, std::int32_t number) {
    PageField& field = fieldToChange(key, FieldKind::Number);
    field.value.number = std::clamp(number, field.least, field.most);
    return changed();
}

ChangeResult StylesBasePage::select(std::string_view key, std::size_t choice) {
    PageField& field = fieldToChange(key, FieldKind::Choice);
    if (choice >= field.choices.size()) throw Trn::InvalidParameterException();
    field.value.selected = choice;
    return changed();
}

ChangeResult StylesBasePage::setPresent(std::string_view key, bool isPresent) {
    const auto found = std::ranges::find(fields_, fieldKey(key), &PageField::key);
    if (found == fields_.end() || !found->hasSwitch) throw Trn::InvalidParameterException();
    found->refusedEntry.reset();
    if (isPresent) {
        found->value.isAbsent = false;
    } else {
        loadValue(Brevis::PropertySet(), *found);
    }
    return changed();
}

ChangeResult StylesBasePage::refusal() const {
    for (const PageField& field : fields_) {
        if (!field.refusedEntry) continue;
        const bool isNames = field.kind == FieldKind::Names;
        return EntryRefusal{this, field.key(), isNames ? EditorMessage::notNames : EditorMessage::notWhiteSpace};
    }
    return std::nullopt;
}

// ---- A single property against the scheme as it was set into the sheet

void StylesBasePage::keepAsUnchanged() {
    unchanged_.clear();
    for (const PageField& field : fields_) unchanged_.push_back(field.value);
}

bool StylesBasePage::isChanged(std::string_view key) const {
    const PageField* const changed = field(key);
    return changed && changed->value != unchanged_[static_cast<std::size_t>(changed - fields_.data())];
}

ChangeResult StylesBasePage::setBack(std::string_view key) {
    const auto found = std::ranges::find(fields_, fieldKey(key), &PageField::key);
    if (found == fields_.end()) throw Trn::InvalidParameterException();
    found->refusedEntry.reset();
    found->value = unchanged_[static_cast<std::size_t>(found - fields_.begin())];
    return changed();
}

// ---- Labels and enabled states

bool StylesBasePage::isChecked(PropertyRole role) const {
    return std::ranges::any_of(
        fields_, [&](const PageField& field) { return field.property->role == role && field.value.isChecked; });
}

bool StylesBasePage::meetsConditions(const PageField& conditional) const {
    return std::ranges::all_of(conditional.property->conditions, [&](const Brevis::PropertyCondition& condition) {
        const std::int32_t number = numberOf(*field(condition.key));
        return number >= condition.least && number <= condition.most;
    });
}

bool StylesBasePage::isUsable(const PageField& field) const {
    const PropertyRole role = field.property->role;
    if (role == PropertyRole::DoNotFormat || role == PropertyRole::Edition) return true;
    if (field.property->edition > sheet_.edition()) return false;
    if (isSwitchedOff() || (followsGlobals() && !field.property->globalTwin.empty())) return false;
    return meetsConditions(field);
}

std::string_view StylesBasePage::labelOf(const PageField& labelled) const {
    for (const Brevis::PropertyLabel& label : labelled.property->labels) {
        if (numberOf(*field(label.key)) == label.value) return label.label;
    }
    return labelled.label;
}

void StylesBasePage::refreshFields() {
    for (PageField& field : fields_) {
        field.isEnabled = isUsable(field);
        field.label = labelOf(field);
    }
}

// ---- The way from and to the scheme

void StylesBasePage::exchangeProperties(bool isStoring) {
    sheet_.inOneChange([&] {
        if (isStoring) {
            store();
        } else {
            load();
        }
        refreshFields();
        sheet_.pageShows(*this);
        if (isStoring) sheet_.pageStored(*this);
    });
}

// The switches are the first fields. The values that the global settings have too count as empty without a word if they
// are missing, and a page that is switched off lacks all its values.
void StylesBasePage::load() {
    for (PageField& field : fields_) loadField(field);
}

void StylesBasePage::loadField(PageField& field) {
    field.refusedEntry.reset();
    const PropertyInfo& property = *field.property;
    if (loadValue(scheme(), field)) return;
    const bool mayBeMissing = property.role == PropertyRole::UseGlobal || !property.globalTwin.empty() ||
                              (property.role == PropertyRole::Value && isSwitchedOff());
    if (mayBeMissing || field.value.isAbsent) return;
    storeValue(field, scheme());
    markModified();
}

void StylesBasePage::store() {
    if (isSwitchedOff()) return storeSwitchedOff();
    for (PageField& field : fields_) storeField(field);
}

// Whether the page follows the global settings stays as it was, in the scheme and in the field.
void StylesBasePage::storeSwitchedOff() {
    for (PageField& field : fields_) {
        if (field.property->role == PropertyRole::DoNotFormat) storeValue(field, scheme());
        if (field.property->role != PropertyRole::Value) continue;
        eraseKey(field.key(), scheme());
        if (!field.property->globalTwin.empty()) field.value = {};
    }
    if (!info_.erasedWhenOff.empty()) eraseKey(info_.erasedWhenOff, scheme());
}

void StylesBasePage::storeField(PageField& field) {
    if (followsGlobals() && !field.property->globalTwin.empty()) return copyGlobal(field);
    if (field.property->isClearedWhenOff && !meetsConditions(field)) field.value.isChecked = false;
    storeValue(field, scheme());
}

void StylesBasePage::followEdition() {
    if (std::ranges::all_of(fields_, [&](const PageField& field) { return field.isEnabled == isUsable(field); }))
        return;
    refreshFields();
    sheet_.pageShows(*this);
}

// ---- Global settings

std::string StylesBasePage::globalValueOf(const PageField& field) {
    std::string value;
    scheme().getString(field.property->globalTwin, value);
    return value;
}

void StylesBasePage::copyGlobal(PageField& field) {
    scheme().setString(field.key(), globalValueOf(field));
    loadValue(scheme(), field);
}

void StylesBasePage::applyGlobals() {
    if (!followsGlobals() || isSwitchedOff()) return;
    for (PageField& field : fields_) {
        if (field.property->globalTwin.empty()) continue;
        std::string own;
        if (scheme().getString(field.key(), own) && own == globalValueOf(field)) continue;
        copyGlobal(field);
        markModified();
        sheet_.pageShows(*this);
    }
}

}  // namespace BrevisUI
