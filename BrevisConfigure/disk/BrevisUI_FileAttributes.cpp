// Owner first, mode last: a change of owner clears bits of the mode, and an access control list sets some.
#include "BrevisUI_FileAttributes.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace BrevisUI {

namespace {

using Names = std::vector<std::string>;

// Asks for the size, then for the bytes. A file system that knows no attributes has none.
template <class Call>
std::error_code readBytes(Call call, std::string& bytes) {
    bytes.clear();
    const ssize_t size = call(nullptr, 0);
    if (size == -1) return errno == EOPNOTSUPP ? std::error_code() : lastError();
    if (size == 0) return {};
    bytes.resize(static_cast<std::size_t>(size));
    const ssize_t count = call(bytes.data(), bytes.size());
    if (count == -1) return lastError();
    bytes.resize(static_cast<std::size_t>(count));
    return {};
}

std::error_code readNames(FileSystem& system, int file, Names& names) {
    std::string list;
    const auto call = [&](char* bytes, std::size_t size) { return system.listAttributes(file, bytes, size); };
    if (const std::error_code error = readBytes(call, list)) return error;
    // Each name ends with a NUL.
    for (std::string_view rest = list; !rest.empty();) {
        names.emplace_back(rest.substr(0, rest.find('\0')));
        rest.remove_prefix(std::min(rest.size(), names.back().size() + 1));
    }
    return {};
}

std::error_code copyAttribute(FileSystem& system, int from, int to, const std::string& name) {
    std::string value;
    std::string present;
    const auto read = [&](int file, std::string& bytes) {
        return readBytes(
            [&](char* start, std::size_t size) { return system.attribute(file, name.c_str(), start, size); }, bytes);
    };
    if (const std::error_code error = read(from, value)) return error;
    // Labels that the system itself gives, and lets nobody set, are most often there already.
    if (!read(to, present) && !value.empty() && present == value) return {};
    return system.setAttribute(to, name.c_str(), value.data(), value.size()) == -1 ? lastError() : std::error_code();
}

std::error_code copyExtendedAttributes(FileSystem& system, int from, int to) {
    Names wanted;
    Names present;
    if (const std::error_code error = readNames(system, from, wanted)) return error;
    if (const std::error_code error = readNames(system, to, present)) return error;
    for (const std::string& name : present) {
        const bool extra = std::find(wanted.begin(), wanted.end(), name) == wanted.end();
        if (extra && system.removeAttribute(to, name.c_str()) == -1) return lastError();
    }
    for (const std::string& name : wanted) {
        if (const std::error_code error = copyAttribute(system, from, to, name)) return error;
    }
    return {};
}

std::error_code copyOwner(FileSystem& system, const struct stat& status, int to) {
    struct stat present {};
    if (system.status(to, present) == -1) return lastError();
    if (present.st_uid == status.st_uid && present.st_gid == status.st_gid) return {};
    return system.changeOwner(to, status.st_uid, status.st_gid) == -1 ? lastError() : std::error_code();
}

// Some file systems give every file the same mode and let nobody change it.
std::error_code copyMode(FileSystem& system, const struct stat& status, int to) {
    constexpr mode_t modeBits = 07777;
    struct stat present {};
    if (system.status(to, present) == -1) return lastError();
    if ((present.st_mode & modeBits) == (status.st_mode & modeBits)) return {};
    return system.changeMode(to, status.st_mode & modeBits) == -1 ? lastError() : std::error_code();
}

}  // namespace

std::error_code copyAttributes(FileSystem& system, int from, const struct stat& status, int to) {
    if (const std::error_code error = copyOwner(system, status, to)) return error;
    if (const std::error_code error = copyExtendedAttributes(system, from, to)) return error;
    return copyMode(system, status, to);
}

}  // namespace BrevisUI
