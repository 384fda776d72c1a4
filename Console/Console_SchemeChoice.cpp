// One thread at a time searches and loads.
#include "Console_SchemeChoice.h"

#include <utility>

#include "BrevisUI_Files.h"
#include "Console_SchemeLibrary.h"

namespace Console {

SchemeChoice::SchemeChoice(const std::string& given) : finder_(shippedSchemePath()) {
    if (given.empty()) return;
    GivenScheme found = findGivenScheme(given);
    remarks_ = std::move(found.remarks);
    given_ = std::move(found.path);
}

SchemeChoice::Choice SchemeChoice::forFile(const std::string& file) {
    const std::lock_guard lock(mutex_);
    Choice choice{given_.empty() ? pathFor(file) : given_, nullptr};
    choice.scheme = &finder_.load(choice.path);
    return choice;
}

const std::string& SchemeChoice::pathFor(const std::string& file) {
    std::string directory = file.substr(0, file.rfind('/') + 1);
    if (BrevisUI::isDirectory(file)) directory = file + "/";
    if (lastPath_.empty() || directory != lastDirectory_) lastPath_ = finder_.pathFor(directory);
    lastDirectory_ = std::move(directory);
    return lastPath_;
}

}  // namespace Console
