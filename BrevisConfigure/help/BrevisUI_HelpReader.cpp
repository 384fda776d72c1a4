// A state machine over lines: a heading, paragraphs, then the blocks of examples.
#include "help/BrevisUI_HelpReader.h"

#include <sstream>

namespace BrevisUI {

namespace {

constexpr std::string_view arrow = "\u2192";
constexpr std::string_view blockIndent = "    ";

std::string withTabs(std::string_view line) {
    std::string text;
    for (std::size_t arrowAt = line.find(arrow); arrowAt != std::string_view::npos; arrowAt = line.find(arrow)) {
        text.append(line.substr(0, arrowAt)).append("\t");
        line.remove_prefix(arrowAt + arrow.size());
    }
    return text.append(line);
}

// The title that the label of a control makes: no colon at its end, and one "&" where the label has two.
std::string titleOf(std::string_view label) {
    std::string title;
    for (std::size_t at = 0; at < label.size(); ++at) {
        title.push_back(label[at]);
        if (label.substr(at, 2) == "&&") ++at;
    }
    while (title.ends_with(':') || title.ends_with(' ')) title.pop_back();
    return title;
}

// The key that chooses the edition means something to both.
bool isOfSecondEdition(std::string_view key) {
    const Brevis::PropertyInfo* row = Brevis::Catalogue::find(key);
    return row && row->edition == 2 && row->role != Brevis::PropertyRole::Edition;
}

class Reader {
public:
    Reader(std::string_view name, std::vector<std::string>& faults) : name_(name), faults_(faults) {}

    void read(std::string_view line) {
        ++line_;
        if (line.starts_with('[')) {
            startProperty(line);
        } else if (properties_.empty()) {
            if (!line.empty()) fault("text in front of the first property");
        } else if (line == "scheme:") {
            endBlock();
            properties_.back().examples.emplace_back();
            block_ = Block::Scheme;
        } else if (line == "before:" || line == "after:") {
            startBlock(line == "before:" ? Block::Before : Block::After);
        } else if (block_ != Block::None && (line.empty() || line.starts_with(blockIndent))) {
            blockLine(line);
        } else {
            paragraphLine(line);
        }
    }

    std::vector<PropertyHelp> finish() {
        endBlock();
        for (PropertyHelp& property : properties_) {
            if (property.shortText.empty()) faults_.push_back(name_ + ": no text for " + property.key);
            if (isOfSecondEdition(property.key)) property.shortText += " Second edition only.";
        }
        return std::move(properties_);
    }

private:
    enum class Block { None, Scheme, Before, After };

    void fault(std::string_view what) {
        faults_.push_back(name_ + ":" + std::to_string(line_) + ": " + std::string(what));
    }

    void startProperty(std::string_view line) {
        endBlock();
        const std::size_t close = line.find(']');
        PropertyHelp property;
        property.key = line.substr(1, close == std::string_view::npos ? close : close - 1);
        const std::string_view rest = close == std::string_view::npos ? "" : line.substr(close + 1);
        const Brevis::PropertyInfo* row = Brevis::Catalogue::find(property.key);
        if (!row) fault("unknown key " + property.key);
        property.title = rest.starts_with(' ') ? std::string(rest.substr(1)) : titleOf(row ? row->label : "");
        if (property.title.empty()) fault("no title for " + property.key);
        properties_.push_back(std::move(property));
        paragraphOpen_ = false;
    }

    void startBlock(Block block) {
        endBlock();
        if (properties_.back().examples.empty()) {
            fault("a block without a scheme");
        } else {
            block_ = block;
        }
    }

    void blockLine(std::string_view line) {
        const std::string text = withTabs(line.empty() ? line : line.substr(blockIndent.size()));
        blockText_.append(text).append("\n");
        if (!text.empty()) blockEnd_ = blockText_.size();
    }

    // Empty lines at the end of a block only separate it from what follows.
    void endBlock() {
        const std::string text = blockText_.substr(0, blockEnd_);
        blockText_.clear();
        blockEnd_ = 0;
        const Block block = block_;
        block_ = Block::None;
        if (block == Block::None) return;
        if (text.empty()) fault("an empty block");
        HelpExample& example = properties_.back().examples.back();
        if (block == Block::Before) example.before = text;
        if (block == Block::After) example.after = text;
        if (block == Block::Scheme) readScheme(text, example);
    }

    void readScheme(const std::string& text, HelpExample& example) {
        std::istringstream file("Brevis::PropertySet\n1\n\"\"\n" + text);
        example.scheme.read(file);
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            std::istringstream words(line);
            std::string type, key;
            words >> type >> key;
            if (!example.scheme.has(key) || !Brevis::Catalogue::find(key)) fault("a bad line of a scheme: " + line);
            example.keys.push_back(key);
        }
    }

    void paragraphLine(std::string_view line) {
        endBlock();
        PropertyHelp& property = properties_.back();
        if (line.empty()) {
            paragraphOpen_ = false;
            return;
        }
        if (!property.examples.empty()) fault("text behind an example");
        if (!paragraphOpen_ && !property.shortText.empty()) property.paragraphs.emplace_back();
        std::string& text = property.paragraphs.empty() ? property.shortText : property.paragraphs.back();
        if (!text.empty()) text.push_back(' ');
        text.append(line);
        paragraphOpen_ = true;
    }

    std::string name_;
    std::vector<std::string>& faults_;
    std::size_t line_ = 0;
    std::vector<PropertyHelp> properties_;
    bool paragraphOpen_ = false;
    // The open block, and how much of its text there is without the empty lines at its end.
    Block block_ = Block::None;
    std::string blockText_;
    std::size_t blockEnd_ = 0;
};

}  // namespace

std::vector<PropertyHelp> readPropertyHelp(std::string_view name, std::string_view text,
                                           std::vector<std::string>& faults) {
    Reader reader(name, faults);
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        reader.read(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return reader.finish();
}

}  // namespace BrevisUI
