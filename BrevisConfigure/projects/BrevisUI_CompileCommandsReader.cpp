// Reads compile_commands.json: a list of objects with the members "directory" and "file".
#include <nlohmann/json.hpp>

#include "projects/BrevisUI_FileList.h"
#include "projects/BrevisUI_ProjectError.h"
#include "projects/BrevisUI_ProjectPaths.h"
#include "projects/BrevisUI_ProjectReaders.h"

namespace BrevisUI {

namespace {

using Json = nlohmann::json;

// Walks over the text and counts its lines, for the parser tells no place while it calls back.
class CountingIterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    CountingIterator(const char* at, int& line) : at_(at), line_(&line) {}

    reference operator*() const { return *at_; }
    CountingIterator& operator++() {
        if (*at_++ == '\n') ++*line_;
        return *this;
    }
    bool operator==(const CountingIterator& other) const { return at_ == other.at_; }

private:
    const char* at_;
    int* line_;
};

class CompileCommandsReader {
public:
    explicit CompileCommandsReader(const ProjectInput& input) : input_(input), paths_(input.path) {}

    std::vector<std::string> read() {
        const char* begin = input_.text.data();
        int atEnd = 0;  // the end moves nowhere
        try {
            const auto onEvent = [this](int depth, Json::parse_event_t event, const Json& value) {
                return accept(depth, event, value);
            };
            const Json kept = Json::parse(CountingIterator(begin, line_),
                                          CountingIterator(begin + input_.text.size(), atEnd), onEvent);
            if (!kept.is_array()) fail("A list is expected here.");
        } catch (const Json::exception&) {
            fail("The file cannot be read as JSON.");
        }
        return files_.take();
    }

private:
    [[noreturn]] void fail(const char* text) const { throw ProjectError(input_.path, line_, text); }

    // Entries are taken as they end and not kept.
    bool accept(int depth, Json::parse_event_t event, const Json& value) {
        using Event = Json::parse_event_t;
        if (depth == 0 && event == Event::object_start) fail("A list is expected here.");
        if (depth != 1) return true;
        if (event == Event::object_end) {
            addEntry(value);
            return false;
        }
        if (event == Event::value || event == Event::array_start) fail("An entry must be an object.");
        return true;
    }

    void addEntry(const Json& entry) {
        const std::string file = member(entry, "file"), directory = member(entry, "directory");
        if (file.empty()) fail("The entry names no file.");
        files_.add(fullPath(fullPath(paths_.directory(), directory), file));
    }

    static std::string member(const Json& entry, const char* key) {
        const auto found = entry.find(key);
        return found != entry.end() && found->is_string() ? found->get<std::string>() : std::string();
    }

    const ProjectInput& input_;
    ProjectPaths paths_;
    FileList files_;
    int line_ = 1;
};

}  // namespace

std::vector<std::string> readCompileCommands(const ProjectInput& input) { return CompileCommandsReader(input).read(); }

}  // namespace BrevisUI
