// The typed dictionary of a scheme. The text form of a scheme stands in Brevis_SchemeReader.cpp and in `write` below.
#include "scheme/Brevis_PropertySet.h"

#include <ostream>

#include "Vellum_WhiteSpace.h"
#include "scheme/Brevis_Escapes.h"
#include "scheme/Brevis_SchemeReader.h"

namespace Brevis {

namespace {

void checkKey(std::string_view key) {
    if (key.empty() || Vellum::whiteSpace.isIn(key)) throw InvalidPropertyName();
}

template <class Table, class Value>
bool get(const Table& table, std::string_view key, Value& value) {
    const auto found = table.find(key);
    if (found == table.end()) return false;
    value = found->second;
    return true;
}

template <class Table>
bool eraseFrom(Table& table, std::string_view key) {
    const auto found = table.find(key);
    if (found == table.end()) return false;
    table.erase(found);
    return true;
}

}  // namespace

bool PropertySet::has(std::string_view key) const {
    return bools_.contains(key) || ints_.contains(key) || strings_.contains(key);
}

bool PropertySet::getBool(std::string_view key, bool& value) const { return get(bools_, key, value); }

bool PropertySet::getInt(std::string_view key, std::int32_t& value) const { return get(ints_, key, value); }

bool PropertySet::getString(std::string_view key, std::string& value) const { return get(strings_, key, value); }

void PropertySet::setBool(std::string_view key, bool value) {
    checkKey(key);
    bools_.insert_or_assign(std::string(key), value);
}

void PropertySet::setInt(std::string_view key, std::int32_t value) {
    checkKey(key);
    ints_.insert_or_assign(std::string(key), value);
}

void PropertySet::setString(std::string_view key, std::string value) {
    checkKey(key);
    strings_.insert_or_assign(std::string(key), std::move(value));
}

bool PropertySet::erase(std::string_view key) {
    checkKey(key);
    return eraseFrom(strings_, key) || eraseFrom(ints_, key) || eraseFrom(bools_, key);
}

std::size_t PropertySet::count() const { return bools_.size() + ints_.size() + strings_.size(); }

std::vector<std::string> PropertySet::keys() const {
    std::vector<std::string> keys;
    keys.reserve(count());
    for (const auto& [key, value] : bools_) keys.push_back(key);
    for (const auto& [key, value] : ints_) keys.push_back(key);
    for (const auto& [key, value] : strings_) keys.push_back(key);
    return keys;
}

void PropertySet::read(std::istream& in) {
    PropertySet scheme;
    if (SchemeReader(in).read(scheme)) swap(scheme);
}

void PropertySet::write(std::ostream& out) const {
    if (!out) return;
    // Numbers are turned to text here, so that no format flag of the stream can change the file.
    out << SchemeFile::magic << '\n' << SchemeFile::version << '\n' << '"' << name_ << "\"\n";
    for (const auto& [key, value] : bools_) out << SchemeFile::boolType << ' ' << key << (value ? " 1\n" : " 0\n");
    for (const auto& [key, value] : ints_) {
        out << SchemeFile::intType << ' ' << key << ' ' << std::to_string(value) << '\n';
    }
    for (const auto& [key, value] : strings_) {
        out << SchemeFile::stringType << ' ' << key << " \"" << escapeText(value) << "\"\n";
    }
}

void PropertySet::swap(PropertySet& other) noexcept {
    name_.swap(other.name_);
    bools_.swap(other.bools_);
    ints_.swap(other.ints_);
    strings_.swap(other.strings_);
}

}  // namespace Brevis
