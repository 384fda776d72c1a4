// Joins the restorer to the standard streams.
#include "Console_RestoreRun.h"

#include <filesystem>
#include <set>

#include "BrevisUI_Files.h"
#include "BrevisUI_UserPlaces.h"
#include "Console_FormatRun.h"
#include "Console_SignalWatch.h"
#include "disk/BrevisUI_Restorer.h"
#include "disk/BrevisUI_SiblingFile.h"

namespace Console {

namespace {

// Calls `work` with a restorer over the user's journals. A signal stops it behind the file in work.
template <class Work>
int restore(StandardOutput& output, std::string_view option, Work work) {
    const SignalWatch watch(SignalWatch::Again::Nothing);
    BrevisUI::FileSystem system;
    const BrevisUI::RunStore store(system, BrevisUI::userCacheDirectory());
    const auto tell = [&](const std::string& text, BrevisUI::Restorer::News news) {
        if (news == BrevisUI::Restorer::News::Done) return output.write(text + "\n");
        writeErrorLine(text);
    };
    BrevisUI::Restorer restorer(system, store, tell, [&] { return watch.signal() != 0; });
    const bool good = work(restorer);
    if (!restorer.hasLeft()) return good ? exitGood : exitTrouble;
    output.flush();
    writeErrorLine("Stopped by " + SignalWatch::nameOf(watch.signal()) + ". Another " + std::string(option) +
                   " goes on with the files that are left.");
    return SignalWatch::statusFor(watch.signal());
}

std::set<std::string> directoriesOf(const std::vector<std::string>& files) {
    std::set<std::string> directories;
    for (const std::string& file : files) {
        directories.insert(BrevisUI::isDirectory(file) ? file : BrevisUI::parentOf(file));
        // A link's text is beside its target.
        std::error_code error;
        const std::string target = std::filesystem::canonical(file, error).string();
        if (!error && !BrevisUI::isDirectory(file)) directories.insert(BrevisUI::parentOf(target));
    }
    if (files.empty()) directories.insert(".");
    return directories;
}

}  // namespace

int undoLastRun(StandardOutput& output) {
    return restore(output, "--undo", [](BrevisUI::Restorer& restorer) { return restorer.undo(); });
}

int recoverFiles(const std::vector<std::string>& files, StandardOutput& output) {
    return restore(output, "--recover",
                   [&](BrevisUI::Restorer& restorer) { return restorer.recover(directoriesOf(files)); });
}

}  // namespace Console
