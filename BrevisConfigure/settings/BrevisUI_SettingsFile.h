// Named values that outlive a run of the program, in one readable file. It knows nothing of what the values mean, keeps
// those that it doesn't know, and never throws for a bad file.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace BrevisUI {

class SettingsFile {
public:
    enum class Section { Application, Options, SourceWindow };
    enum class Access { Full, ReadOnly };

    // Nothing is read before `load`.
    explicit SettingsFile(std::string path);
    ~SettingsFile();
    SettingsFile(SettingsFile&&) noexcept;
    SettingsFile& operator=(SettingsFile&&) noexcept;

    // Reads the file. A missing one has no values. Gives the text of a warning for the user if the file is broken or,
    // for full access, can't be written, and an empty one if all is well. Behind a warning the values concerned are
    // missing.
    std::string_view load(Access access);

    // A value; none if it is missing or of another type.
    std::optional<std::string> text(Section section, std::string_view name) const;
    std::optional<std::uint32_t> number(Section section, std::string_view name) const;
    // Take effect at once, and in the file with the next `save`.
    void setText(Section section, std::string_view name, std::string_view value);
    void setNumber(Section section, std::string_view name, std::uint32_t value);

    // Writes what was set since the values were loaded over what the file holds by now, so that the rest of it stays,
    // also what another program has written meanwhile. A broken file isn't touched. Gives a warning as `load` does.
    std::string_view save();

private:
    struct Document;

    std::string path_;
    std::unique_ptr<Document> document_;
};

}  // namespace BrevisUI
