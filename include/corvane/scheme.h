// A scheme: what a formatted text is to look like, as some 130 properties, each with a key.
#pragma once

#include <corvane/messages.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace corvane {

struct FormatResult;
struct SchemeResult;

// A property is a flag, a number or a text; its key decides which. One that is absent leaves its places in a text as
// they are, so an empty scheme changes next to nothing.
//
// A value type. Different objects may be used in different threads at the same time, and one object by any number of
// threads that only read it. An object that was moved from may only be assigned to or destroyed.
class [[gnu::visibility("default")]] Scheme {
public:
    // The text of a value holds what is to stand at a place: a line feed is one character, with no backslash.
    using Value = std::variant<bool, std::int32_t, std::string>;

    Scheme();
    Scheme(const Scheme& other);
    Scheme(Scheme&& other) noexcept;
    Scheme& operator=(const Scheme& other);
    Scheme& operator=(Scheme&& other) noexcept;
    ~Scheme();

    // Reads the text of a scheme file.
    static SchemeResult parse(std::string_view text);
    // Reads a scheme file.
    static SchemeResult load(const std::filesystem::path& path);
    // A scheme that comes with the library, by its name; nothing for another name.
    static std::optional<Scheme> shipped(std::string_view name);
    // The names of these; "Corvane", the default of the program, is the first.
    static std::vector<std::string> shippedNames();

    const std::string& name() const;
    void setName(std::string name);

    // The value of a property, or nothing if it is absent.
    std::optional<Value> get(std::string_view key) const;
    // Sets a property. Gives false, and does nothing, if the engine knows no such key or the key wants another type.
    [[nodiscard]] bool set(std::string_view key, Value value);
    // Makes a property absent. Gives false if it was.
    bool remove(std::string_view key);
    // The keys of all properties that are present: flags, then numbers, then texts, each in the order of their bytes.
    std::vector<std::string> keys() const;

    // The text of a scheme file, for parse to read.
    std::string text() const;

    bool operator==(const Scheme& other) const;
    bool operator!=(const Scheme& other) const { return !(*this == other); }

private:
    struct Contents;
    std::unique_ptr<Contents> contents_;

    friend FormatResult format(std::string_view source, const Scheme& scheme);
};

// What reading a scheme gives.
struct SchemeResult {
    std::optional<Scheme> scheme;  // nothing if the file can't be read or is no scheme
    Messages messages;             // by line; warnings and information may come with a good scheme

    explicit operator bool() const { return scheme.has_value(); }
};

}  // namespace corvane
