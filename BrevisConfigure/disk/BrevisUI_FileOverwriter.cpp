// Room for a longer text is made before the first byte is changed, and the end is cut off behind the last, so that a
// full disk is most often noticed while the file is still whole.
#include "BrevisUI_FileOverwriter.h"

#include <fcntl.h>

namespace BrevisUI {

namespace {

std::error_code fill(FileSystem& system, OpenFile& file, std::string_view text) {
    if (system.seek(file.number(), 0) == -1) return lastError();
    if (const std::error_code error = file.write(text)) return error;
    if (system.truncate(file.number(), static_cast<off_t>(text.size())) == -1) return lastError();
    return file.sync();
}

std::error_code makeRoom(FileSystem& system, OpenFile& file, std::string_view oldText, std::string_view newText) {
    if (newText.size() <= oldText.size()) return {};
    if (system.allocate(file.number(), static_cast<off_t>(newText.size())) == 0) return {};
    return lastError();
}

}  // namespace

Overwrite overwriteFile(FileSystem& system, const std::string& path, std::string_view oldText, std::string_view newText,
                        std::error_code& error) {
    OpenFile file(system, path, O_RDWR);
    error = file.openError();
    if (error) return Overwrite::Kept;
    // A file system without locks leaves it to the comparison below.
    if (system.lock(file.number()) == -1 && errno == EWOULDBLOCK) return Overwrite::Busy;
    std::string present;
    error = file.read(present);
    if (error) return Overwrite::Kept;
    if (present != oldText) return Overwrite::Changed;

    error = makeRoom(system, file, oldText, newText);
    if (!error) error = fill(system, file, newText);
    if (!error) return Overwrite::Written;
    return fill(system, file, oldText) ? Overwrite::Damaged : Overwrite::Kept;
}

Overwrite overwriteTornFile(FileSystem& system, const std::string& path, std::string_view text,
                            std::error_code& error) {
    OpenFile file(system, path, O_WRONLY | O_NOFOLLOW);
    error = file.openError();
    if (error) return Overwrite::Kept;
    error = fill(system, file, text);
    return error ? Overwrite::Damaged : Overwrite::Written;
}

}  // namespace BrevisUI
