// A scheme: a name and three keyed tables of values. A typed dictionary with strict key rules and a text form;
// it knows nothing of what the keys mean and nothing of where schemes live.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "Trn_Exception.h"

namespace Brevis {

class InvalidPropertyName : public Trn::Exception {
public:
    InvalidPropertyName() : Exception("Invalid name for a Property.") {}
};

// The type of a property is the table that it stands in; the same key may stand in several, and the typed
// getters and setters see their own table only.
class PropertySet {
public:
    PropertySet() = default;
    explicit PropertySet(std::string name) : name_(std::move(name)) {}

    const std::string& name() const { return name_; }
    void setName(std::string name) { name_ = std::move(name); }
    std::int32_t version() const { return 1; }

    // True if the key stands in any of the tables.
    bool has(std::string_view key) const;

    // A getter that finds nothing gives false and leaves `value` alone, so the caller presets the default.
    bool getBool(std::string_view key, bool& value) const;
    bool getInt(std::string_view key, std::int32_t& value) const;
    bool getString(std::string_view key, std::string& value) const;

    // Insert or replace. Throw InvalidPropertyName for a key that is empty or holds white space.
    void setBool(std::string_view key, bool value);
    void setInt(std::string_view key, std::int32_t value);
    void setString(std::string_view key, std::string value);

    // Removes the key from the first table that holds it, in the order strings, integers, booleans.
    // Throws as the setters do.
    bool erase(std::string_view key);

    std::size_t count() const;
    // Boolean keys, then integer keys, then string keys, each group in ascending order of bytes.
    std::vector<std::string> keys() const;

    // Replaces the whole object from a scheme file. On any failure the object stays as it was and the
    // stream's fail state says so.
    void read(std::istream& in);
    // Writes the object as a scheme file.
    void write(std::ostream& out) const;

    bool operator==(const PropertySet&) const = default;
    void swap(PropertySet& other) noexcept;

private:
    std::string name_;
    std::map<std::string, bool, std::less<>> bools_;
    std::map<std::string, std::int32_t, std::less<>> ints_;
    std::map<std::string, std::string, std::less<>> strings_;
};

}  // namespace Brevis
