// Runs the transcripts in tests/BrevisConfigure/transcripts: what the scheme store, the delivery of schemes and the
// settings do to the files of a user. The first of them tells the commands. Each `==` begins with an empty directory.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <functional>
#include <iomanip>
#include <iostream>
#include <sstream>

#include "../support/Environment.h"
#include "../support/TestFiles.h"
#include "BrevisUI_Files.h"
#include "settings/BrevisUI_EditorSettings.h"
#include "settings/BrevisUI_Settings.h"
#include "store/BrevisUI_NewScheme.h"
#include "store/BrevisUI_SchemeConversion.h"
#include "store/BrevisUI_SchemeDelivery.h"

namespace BrevisUI {
namespace {

namespace fs = std::filesystem;
using Section = SettingsFile::Section;

void replaceAll(std::string& text, const std::string& from, const std::string& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
        text.replace(at, from.size(), to);
    }
}

// A file in one line: `;` stands for a line feed, a blank behind it for nothing, `scheme` for the head of a scheme
// file.
constexpr const char* schemeHead = "Brevis::PropertySet\n1\n";

std::string fromOneLine(std::string text) {
    replaceAll(text, "; ", "\n");
    replaceAll(text, ";", "\n");
    return text.starts_with("scheme ") ? schemeHead + text.substr(7) : text;
}

std::string toOneLine(std::string text) {
    if (text.starts_with(schemeHead)) text.replace(0, std::string(schemeHead).size(), "scheme ");
    replaceAll(text, "\n", "; ");
    return text.ends_with(' ') ? text.substr(0, text.size() - 1) : text;
}

// One directory with everything in it that commands work on.
class Scene {
public:
    // Gives what the command line has to say.
    std::string run(const std::string& line) {
        said_.str("");
        std::istringstream words(line);
        try {
            execute(words);
        } catch (const std::exception& exception) {
            say(exception.what());
        }
        std::istringstream traced(trace_.str());
        trace_.str("");
        for (std::string text; std::getline(traced, text);) say(text);
        std::string text = said_.str();
        replaceAll(text, dir_.path(), "@");
        return text;
    }

private:
    void say(std::string text) {
        replaceAll(text, "\r\n", "\n> ");
        if (!text.empty()) said_ << "> " << text << '\n';
    }

    // The next word, which may stand in quotes.
    static std::string word(std::istream& words) {
        std::string text;
        words >> std::quoted(text);
        return text;
    }
    std::string path(std::istream& words) const { return dir_.file(word(words)); }
    static Brevis::PropertySet scheme(std::istream& words) {
        Brevis::PropertySet set(word(words));
        set.setInt("TAB_SIZE", 4);
        return set;
    }

    void execute(std::istream& words) {
        const std::string command = word(words);
        if (command == "full-disk") {
            const Environment::FullDisk fullDisk;
            return execute(words);
        }
        commands_.at(command)(words);
    }

    void makeFile(std::istream& words) {
        const std::string file = path(words);
        std::string text;
        std::getline(words >> std::ws, text);
        TestFiles::write(file, fromOneLine(text));
    }

    void list(const std::string& top) {
        std::vector<std::string> lines;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(top)) {
            const std::string file = entry.path().string();
            std::string line = file.substr(top.size() + 1);
            if (entry.is_directory()) line += "/";
            if (entry.is_symlink()) line += " -> " + fs::read_symlink(entry).string();
            if (entry.is_regular_file())
                line += (fileIsWritable(file) ? ": " : "* ") + toOneLine(TestFiles::contents(file));
            lines.push_back(line);
        }
        std::sort(lines.begin(), lines.end());
        for (const std::string& line : lines) say(line);
    }

    void tellSchemes() {
        for (const auto& [name, entry] : store_.schemes()) {
            say(name + (entry.builtIn ? "* " : ": ") + store_.fileOf(name));
        }
    }

    void tellSettings() {
        const Settings s = readSettings(settings_);
        const PreviewFont font = previewFont(settings_);
        say(std::string(s.windowPosition ? "placed, " : "") + "scheme \"" + s.formattingScheme + "\", " +
            std::to_string(s.fileExtensions.size()) + " extensions, " + (s.createBackups ? "" : "no ") + "backups \"" +
            s.backupExtension + "\", threshold " + std::to_string(s.messagesThreshold) + ", font " + font.face + " " +
            std::to_string(font.size));
    }

    TestFiles::TempDir dir_;
    PropertySetStore store_{dir_.path()};
    SettingsFile settings_{dir_.file("c/settings.json")};
    std::ostringstream said_, trace_;
    using Words = std::istream&;
    const std::map<std::string, std::function<void(Words)>> commands_{
        {"file", [this](Words w) { makeFile(w); }},
        {"protect", [this](Words w) { chmod(path(w).c_str(), 0444); }},
        {"unprotect", [this](Words w) { chmod(path(w).c_str(), 0644); }},
        {"mkdir", [this](Words w) { fs::create_directories(path(w)); }},
        {"remove", [this](Words w) { EXPECT_NE(0u, fs::remove_all(path(w))); }},
        {"link",
         [this](Words w) {
             const std::string target = word(w);
             fs::create_symlink(target, path(w));
         }},
        {"list", [this](Words w) { list(path(w)); }},
        {"show",
         [this](Words w) {
             std::istringstream lines(TestFiles::contents(path(w)));
             for (std::string line; std::getline(lines, line);) say(line);
         }},
        {"store", [this](Words w) { store_.setPath(path(w)); }},
        {"no-store", [this](Words) { store_.setPath(""); }},
        {"trace", [this](Words) { store_.traceTo(trace_); }},
        {"read", [this](Words) { store_.read(); }},
        {"read-sound",
         [this](Words) {
             for (const std::string& file : store_.readSound()) say(file);
         }},
        {"write", [this](Words) { store_.write(); }},
        {"insert", [this](Words w) { store_.insert(scheme(w)); }},
        {"insert-new", [this](Words) { store_.insert(newScheme()); }},
        {"update", [this](Words w) { store_.update(scheme(w)); }},
        {"erase", [this](Words w) { store_.erase(word(w)); }},
        {"schemes", [this](Words) { tellSchemes(); }},
        {"convert", [this](Words) { say(convertOldSchemes(store_)); }},
        {"deliver",
         [this](Words w) {
             for (const std::string& file : deliverSchemes(dir_.file("shipped"), dir_.file("user"), word(w))) say(file);
         }},
        {"load", [this](Words) { say(std::string(settings_.load(SettingsFile::Access::Full))); }},
        {"load-only", [this](Words) { say(std::string(settings_.load(SettingsFile::Access::ReadOnly))); }},
        {"settings", [this](Words) { tellSettings(); }},
        {"set",
         [this](Words w) {
             const std::string name = word(w);
             settings_.setText(Section::Options, name, word(w));
         }},
        {"save", [this](Words) { say(std::string(settings_.save())); }},
        {"directory", [this](Words) { say(settledSchemeDirectory(settings_)); }},
    };
};

// The transcript as it comes out: all lines but those with an output are taken as they are.
std::string replay(const std::string& transcript) {
    std::istringstream lines(transcript);
    std::unique_ptr<Scene> scene;
    std::string result;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(">")) continue;
        result += line + "\n";
        if (line.starts_with("==")) scene = std::make_unique<Scene>();
        if (scene && !line.empty() && line.find_first_of("=#") != 0) result += scene->run(line);
    }
    return result;
}

TEST(Transcripts, ComeOutAsTheyAreWritten) {
    const Environment::Variable data("XDG_DATA_HOME", "/data");
    int count = 0;
    for (const auto& entry : fs::directory_iterator(CORVANE_SOURCE_DIR "/tests/BrevisConfigure/transcripts")) {
        const std::string transcript = TestFiles::contents(entry.path().string());
        EXPECT_EQ(transcript, replay(transcript)) << entry.path();
        ++count;
    }
    EXPECT_LT(3, count);
}

}  // namespace
}  // namespace BrevisUI
